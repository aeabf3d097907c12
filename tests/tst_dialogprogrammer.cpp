// Drives the programmer dialog offscreen as a user would: its widgets, the List and Delayer
// template editors and previews, splicing previews into the sequences, the step counters and the
// context menus of the sequence tables.
#include "dialogprogrammer.h"
#include "helper.h"
#include "sequencebuilder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <qcustomplot.h>

#include <cmath>
#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

// The instrument the host describes: four 32 V / 3.2 A channels, millisecond times.
Option hostOption()
{
    Option option;
    option.name = QStringLiteral("Bench Supply");
    option.timeDecimals = 3;
    option.timeMin = 0.001;
    option.timeMax = 99999;
    option.voltageDecimals = 3;
    option.currentDecimals = 3;
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    option.maxCount = 2048;
    option.saveEnabled = option.loadEnabled = option.uploadEnabled = true;
    return option;
}

template<typename T> T *find(const QObject *root, const QString &name)
{
    T *object = root->findChild<T *>(name);
    if (!object)
        qFatal("no %s named %s", T::staticMetaObject.className(), qPrintable(name));
    return object;
}

QAbstractItemModel *modelOf(const QObject *root, const QString &view)
{
    return find<QTableView>(root, view)->model();
}

// A box set to `value` as if typed, then left: the dialog reads its editors back on that signal.
void finishEdit(QAbstractSpinBox *box, double value)
{
    box->setProperty("value", value);
    emit box->editingFinished();
}

void finishEdit(const QObject *root, const QString &name, double value)
{
    finishEdit(find<QAbstractSpinBox>(root, name), value);
}

// Columns 1 to last of every row, edit values joined by "|": the step number column is left out.
QStringList rowsOf(const QAbstractItemModel *model, int role = Qt::EditRole)
{
    QStringList rows;
    for (int r = 0; r < model->rowCount(); ++r) {
        QStringList cells;
        for (int c = 1; c < model->columnCount(); ++c)
            cells << model->index(r, c).data(role).toString();
        rows << cells.join(QLatin1Char('|'));
    }
    return rows;
}

QString timesOf(const QAbstractItemModel *model)
{
    QStringList times;
    for (int r = 0; r < model->rowCount(); ++r)
        times << model->index(r, model->columnCount() - 1).data(Qt::EditRole).toString();
    return times.join(QLatin1Char(' '));
}

// `count` steps whose times 1, 2, 3 ... tell them apart, written through the table's model.
void fill(QAbstractItemModel *model, int count)
{
    QVERIFY(model->insertRows(0, count));
    for (int r = 0; r < count; ++r)
        QVERIFY(model->setData(model->index(r, model->columnCount() - 1), r + 1.0));
}

QCPItemText *invalidTextOf(QCustomPlot *plot)
{
    for (int i = 0; i < plot->itemCount(); ++i) {
        if (auto *text = qobject_cast<QCPItemText *>(plot->item(i)))
            return text;
    }
    return nullptr;
}

QString titleOf(QCustomPlot *plot)
{
    auto *title = qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0));
    return title ? title->text() : QStringLiteral("<no title>");
}

QString pointsOf(QCustomPlot *plot)
{
    auto *curve = qobject_cast<QCPCurve *>(plot->plottable(0));
    QStringList points;
    for (auto it = curve->data()->constBegin(); it != curve->data()->constEnd(); ++it)
        points << QStringLiteral("%1,%2").arg(it->key).arg(it->value);
    return points.join(QLatin1Char(' '));
}

struct MenuRun
{
    bool consumed = false;
    bool hung = false;
    QString entries; // "Append+ Insert- | Delete- Clear-": text, enabled (+) or not, "|" separator
};

// Right-clicks `target` and, while the modal menu runs, records its entries and picks the one
// named `pick` with the keyboard (an empty or disabled pick closes the menu untouched). A fail-safe
// closes any popup left open, so no test can hang on a menu.
MenuRun rightClick(QWidget *target, const QString &pick)
{
    MenuRun run;
    QTimer::singleShot(0, target, [&run, pick] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        QStringList entries;
        QAction *chosen = nullptr;
        for (QAction *action : menu->actions()) {
            entries << (action->isSeparator() ? QStringLiteral("|")
                                              : action->text() + (action->isEnabled() ? "+" : "-"));
            if (action->text() == pick && action->isEnabled())
                chosen = action;
        }
        run.entries = entries.join(QLatin1Char(' '));
        if (chosen) {
            menu->setActiveAction(chosen);
            QTest::keyClick(menu, Qt::Key_Return);
        }
        if (menu->isVisible())
            menu->close();
    });
    QTimer failSafe;
    failSafe.setInterval(3000);
    QObject::connect(&failSafe, &QTimer::timeout, &failSafe, [&run] {
        run.hung = true;
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    });
    failSafe.start();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), target->mapToGlobal({4, 4}));
    run.consumed = QApplication::sendEvent(target, &event);
    return run;
}

} // namespace

class TestDialogProgrammer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(settingsHome.isValid());
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(settingsHome.path()));
        QCoreApplication::setOrganizationName(QStringLiteral("TarnTests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_dialogprogrammer"));
        QLocale::setDefault(QLocale::c());
    }
    // Every dialog writes its templates when it goes; each test starts from the defaults.
    void init() { QSettings().clear(); }

    void widgetTree_data();
    void widgetTree();
    void editorLimits_data();
    void editorLimits();
    void comboItems_data();
    void comboItems();

    void choosingTypeFillsItsPage_data();
    void choosingTypeFillsItsPage();
    void objectSwitchShowsStoredQuantity_data();
    void objectSwitchShowsStoredQuantity();
    void smallerChannelClampsTemplate();
    void resetAndResetAll();

    void defaultSinePreview();
    void declineThatWouldReachZeroIsInvalid();
    void delayerPreviewTitleAndOffDelay();

    void insertAndAppendSelectNewSteps_data();
    void insertAndAppendSelectNewSteps();
    void stepCounterMarksTooLongSequence_data();
    void stepCounterMarksTooLongSequence();

    void contextMenu_data();
    void contextMenu();
    void otherWidgetsKeepTheirContextMenu_data();
    void otherWidgetsKeepTheirContextMenu();
    void emptySequencePlotsAroundZero_data();
    void emptySequencePlotsAroundZero();
    void onePointPreviewKeepsAUnitAxis();

    void secondDialogChangesDecimals();
    void absurdTemplateIsRefusedAtOnce_data();
    void absurdTemplateIsRefusedAtOnce();
    void extremeEditorsOnZeroRange_data();
    void extremeEditorsOnZeroRange();

private:
    QTemporaryDir settingsHome;
};

void TestDialogProgrammer::widgetTree_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("className");
    static const std::pair<const char *, const char *> kinds[] = {
        {"QAction",
         "actionSaveList actionloadList actionSaveDelayer actionLoadDelayer actionListUpload "
         "actionDelayerUpload"},
        {"QGridLayout", "gridLayout_30"},
        {"QTabWidget", "tabWidget"},
        {"QWidget",
         "tabList tabDelayer page0 page1 page2 page3 page4 page5 page6 page7 pageFixTime "
         "pageIncrease pageDecline widget_4 widget_5 widget_6 widget_7 widget_8 widget_9 "
         "widget_10 widget_11"},
        {"QGroupBox", "groupBox groupBox_2 gbBasic groupBox_4 groupBox_3 gbBasic_2"},
        {"QLabel",
         "lblListTempOtherValue lblListTempMax label_10 lblListTempMin label_8 "
         "lblListTempIndex_10 lblListTempIndex_6 lblListTempIndex_9 label_3 lblListTempIndex_11 "
         "label_6 lblListTempIndex_12 label_11 lblListTempIndex_13 lblListTempIndex_2 "
         "lblListTempIndex_14 lblListTempIndex_3 label label_7 label_4 label_2 label_9 label_29 "
         "label_20 label_14 label_15 label_16 label_17"},
        {"QDoubleSpinBox",
         "sbListTempOtherValue sbListTempMax sbListTempMin sbListTempInterval0 sbListTempPeriod0 "
         "sbListTempPeriod1 sbListTempWidth1 sbListTempPeriod2 sbListTempInterval2 "
         "sbListTempPeriod3 sbListTempPeriod4 sbListTempPeriod5 sbListTempInterval6 "
         "sbListTempInterval7 sbDelayerTempOnTime sbDelayerTempOffTime sbDelayerTempIncBaseValue "
         "sbDelayerTempIncStep sbDelayerTempDecBaseValue sbDelayerTempDecStep"},
        {"QSpinBox",
         "sbListTempCycles0 sbListTempPulseCount1 sbListTempSymmetry2 sbListTempSteps3 "
         "sbListTempSteps4 sbListTempSteps5 sbListTempExpGroups6 sbListTempExpRate6 "
         "sbListTempExpGroups7 sbListTempExpRate7 sbListCycles sbListGroups "
         "sbDelayerTemplageGroups sbDelayerCycles sbDelayerGroups"},
        {"QComboBox",
         "cbbListTempType cbbListTempObject cbbListCH cbbListEndState cbbDelayerTempPattern "
         "cbbDelayerTempType cbbDelayerCH cbbDelayerEndState"},
        {"QPushButton",
         "btnReset btnResetAll btnListTemplateInsert btnListTemplateAppend btnListLoad btnListSave "
         "btnListUpload btnDelayerTemplateInsert btnDelayerTemplateAppend btnDelayerLoad "
         "btnDelayerSave btnDelayerUpload"},
        {"QCheckBox", "cbListTempInverted0 cbListTempInverted1 cbListTempInverted2"},
        {"QStackedWidget", "stackedWidget stacWgt"},
        {"QSplitter", "splitter splitter_3 splitter_2 splitter_4"},
        {"QTableView", "tvListTemplate tvList tvDelayerTemplate tvDelayer"},
        {"QToolBar", "toolbarListData toolbarDelayerData"},
        {"QCustomPlot", "plotListTemplate plotList plotDelayerTemplate plotDelayer"},
    };
    for (const auto &kind : kinds) {
        const QStringList names = QString::fromLatin1(kind.second).split(QLatin1Char(' '));
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name << QString::fromLatin1(kind.first);
    }
}

void TestDialogProgrammer::widgetTree()
{
    QFETCH(QString, name);
    QFETCH(QString, className);
    DialogProgrammer dialog(hostOption(), nullptr);
    QCOMPARE(dialog.objectName(), QStringLiteral("DialogProgrammer"));
    const QList<QObject *> found = dialog.findChildren<QObject *>(name);
    QCOMPARE(found.size(), 1);
    QCOMPARE(QString::fromLatin1(found.first()->metaObject()->className()), className);
}

void TestDialogProgrammer::editorLimits_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QVariant>("value"); // invalid: not fixed by the layout or the templates
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("specialText");
    const QStringList times{"sbListTempPeriod0",
                            "sbListTempPeriod1",
                            "sbListTempPeriod2",
                            "sbListTempPeriod3",
                            "sbListTempPeriod4",
                            "sbListTempPeriod5",
                            "sbListTempInterval0",
                            "sbListTempInterval2",
                            "sbListTempInterval6",
                            "sbListTempInterval7",
                            "sbListTempWidth1",
                            "sbDelayerTempOnTime",
                            "sbDelayerTempOffTime",
                            "sbDelayerTempIncBaseValue",
                            "sbDelayerTempIncStep",
                            "sbDelayerTempDecBaseValue",
                            "sbDelayerTempDecStep"};
    for (const QString &name : times)
        QTest::newRow(qPrintable(name)) << name << 0.001 << 3600.0 << QVariant() << "s"
                                        << "";
    QTest::newRow("Sine period") << "sbListTempPeriod0" << 0.001 << 3600.0 << QVariant(30.0) << "s"
                                 << "";
    QTest::newRow("Fix Time off") << "sbDelayerTempOffTime" << 0.001 << 3600.0 << QVariant(1.0)
                                  << "s"
                                  << "";
    QTest::newRow("cycles0") << "sbListTempCycles0" << 1.0 << 512.0 << QVariant(1) << ""
                             << "";
    QTest::newRow("count1") << "sbListTempPulseCount1" << 1.0 << 256.0 << QVariant(1) << ""
                            << "";
    QTest::newRow("symmetry2") << "sbListTempSymmetry2" << 0.0 << 100.0 << QVariant(50) << "%"
                               << "";
    QTest::newRow("steps3") << "sbListTempSteps3" << 1.0 << 512.0 << QVariant(1) << ""
                            << "";
    QTest::newRow("rate6") << "sbListTempExpRate6" << 0.0 << 10.0 << QVariant(5) << ""
                           << "";
    QTest::newRow("rate7") << "sbListTempExpRate7" << 0.0 << 10.0 << QVariant(5) << ""
                           << "";
    QTest::newRow("groups6") << "sbListTempExpGroups6" << 1.0 << 512.0 << QVariant(1) << ""
                             << "";
    QTest::newRow("delayer groups")
        << "sbDelayerTemplageGroups" << 1.0 << 512.0 << QVariant(10) << ""
        << "";
    QTest::newRow("list cycles") << "sbListCycles" << 0.0 << 99999.0 << QVariant(0) << ""
                                 << "Infinite";
    QTest::newRow("delayer cycles") << "sbDelayerCycles" << 0.0 << 99999.0 << QVariant(0) << ""
                                    << "Infinite";
    QTest::newRow("list groups") << "sbListGroups" << 0.0 << 99999.0 << QVariant(0) << ""
                                 << "";
    QTest::newRow("fixed current") << "sbListTempOtherValue" << 0.0 << 3.2 << QVariant(3.0) << "A"
                                   << "";
    QTest::newRow("voltage max") << "sbListTempMax" << 0.0 << 32.0 << QVariant(3.0) << "V"
                                 << "";
}

void TestDialogProgrammer::editorLimits()
{
    QFETCH(QString, name);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QVariant, value);
    QFETCH(QString, suffix);
    QFETCH(QString, specialText);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *box = find<QAbstractSpinBox>(&dialog, name);
    // Decimals fewer than the option's would round 0.001 away and let a zero period through.
    QCOMPARE(box->property("minimum").toDouble(), minimum);
    QCOMPARE(box->property("maximum").toDouble(), maximum);
    if (value.isValid())
        QCOMPARE(box->property("value").toDouble(), value.toDouble());
    QCOMPARE(box->property("suffix").toString(), suffix);
    QCOMPARE(box->specialValueText(), specialText);
    box->setProperty("value", minimum - 0.0005);
    QCOMPARE(box->property("value").toDouble(), minimum);
    box->setProperty("value", maximum + 1);
    QCOMPARE(box->property("value").toDouble(), maximum);
}

void TestDialogProgrammer::comboItems_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("items"); // text=data, in order
    QTest::newRow("list channels") << "cbbListCH"
                                   << "CH1= CH2= CH3= CH4=";
    QTest::newRow("delayer channels") << "cbbDelayerCH"
                                      << "CH1= CH2= CH3= CH4=";
    QTest::newRow("list end") << "cbbListEndState"
                              << "Output Off=OFF Output On=ON";
    QTest::newRow("delayer end") << "cbbDelayerEndState"
                                 << "Output Off=OFF Output On=ON Last=LAST";
    QTest::newRow("pattern") << "cbbDelayerTempPattern"
                             << "01 Pattern=1 10 Pattern=10";
    QTest::newRow("object") << "cbbListTempObject"
                            << "Voltage= Current=";
    QTest::newRow("delayer types") << "cbbDelayerTempType"
                                   << "Fix Time= Increase= Decline=";
    QTest::newRow("list types") << "cbbListTempType"
                                << "Sine= Pulse= Ramp= Stair Up= Stair Down= Stair Up Down= "
                                   "Exponent Rise= Exponent Fall=";
}

void TestDialogProgrammer::comboItems()
{
    QFETCH(QString, name);
    QFETCH(QString, items);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *combo = find<QComboBox>(&dialog, name);
    QStringList found;
    for (int i = 0; i < combo->count(); ++i)
        found << combo->itemText(i) + QLatin1Char('=') + combo->itemData(i).toString();
    QCOMPARE(found.join(QLatin1Char(' ')), items);
}

void TestDialogProgrammer::choosingTypeFillsItsPage_data()
{
    QTest::addColumn<int>("type");
    for (int type = 0; type < 8; ++type)
        QTest::addRow("type %d", type) << type;
}

// Each per-type editor shows its field's default when its type is chosen, whatever it held, and
// what the user enters there comes back after another type has been shown.
void TestDialogProgrammer::choosingTypeFillsItsPage()
{
    QFETCH(int, type);
    // Base name: default, edited value.
    static const QMap<QString, QPair<double, double>> fields{{"sbListTempPeriod", {30, 12.5}},
                                                             {"sbListTempInterval", {1, 0.5}},
                                                             {"sbListTempCycles", {1, 3}},
                                                             {"sbListTempWidth", {15, 6.25}},
                                                             {"sbListTempPulseCount", {1, 4}},
                                                             {"sbListTempSymmetry", {50, 30}},
                                                             {"sbListTempSteps", {10, 7}},
                                                             {"sbListTempExpRate", {5, 3}},
                                                             {"sbListTempExpGroups", {5, 9}},
                                                             {"cbListTempInverted", {0, 1}}};
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *types = find<QComboBox>(&dialog, "cbbListTempType");
    auto *pages = find<QStackedWidget>(&dialog, "stackedWidget");
    QWidget *page = find<QWidget>(&dialog, QStringLiteral("page%1").arg(type));
    QList<QWidget *> editors;
    for (QWidget *editor : page->findChildren<QWidget *>()) {
        if (fields.contains(editor->objectName().chopped(1)))
            editors << editor;
    }
    QVERIFY(!editors.isEmpty());
    auto valueOf = [](QWidget *editor) {
        return editor->property(qobject_cast<QCheckBox *>(editor) ? "checked" : "value").toDouble();
    };
    auto scribble = [&] {
        for (QWidget *editor : qAsConst(editors)) {
            const QSignalBlocker blocker(editor);
            editor->setProperty(qobject_cast<QCheckBox *>(editor) ? "checked" : "value",
                                qobject_cast<QCheckBox *>(editor) ? QVariant(true) : 8.0);
        }
    };

    types->setCurrentIndex(type == 1 ? 2 : 1);
    scribble();
    types->setCurrentIndex(type);
    QCOMPARE(pages->currentWidget(), page);
    for (QWidget *editor : qAsConst(editors))
        QCOMPARE(valueOf(editor), fields.value(editor->objectName().chopped(1)).first);

    for (QWidget *editor : qAsConst(editors)) {
        const double edited = fields.value(editor->objectName().chopped(1)).second;
        if (auto *box = qobject_cast<QCheckBox *>(editor))
            box->click();
        else
            finishEdit(qobject_cast<QAbstractSpinBox *>(editor), edited);
    }
    types->setCurrentIndex(type == 0 ? 7 : 0);
    scribble();
    types->setCurrentIndex(type);
    for (QWidget *editor : qAsConst(editors))
        QCOMPARE(valueOf(editor), fields.value(editor->objectName().chopped(1)).second);
    QCOMPARE(titleOf(find<QCustomPlot>(&dialog, "plotListTemplate")), types->currentText());
}

void TestDialogProgrammer::objectSwitchShowsStoredQuantity_data()
{
    QTest::addColumn<double>("currentMax");
    QTest::addColumn<double>("fixedCurrent");
    QTest::newRow("3.2 A channel clamps") << 3.2 << 3.2;
    QTest::newRow("10 A channel keeps 5") << 10.0 << 5.0;
}

void TestDialogProgrammer::objectSwitchShowsStoredQuantity()
{
    QFETCH(double, currentMax);
    QFETCH(double, fixedCurrent);
    Option option = hostOption();
    option.channels[0].ranges[1].second = currentMax;
    DialogProgrammer dialog(option, nullptr);
    auto *object = find<QComboBox>(&dialog, "cbbListTempObject");
    auto *label = find<QLabel>(&dialog, "lblListTempOtherValue");
    auto *other = find<QDoubleSpinBox>(&dialog, "sbListTempOtherValue");
    auto *max = find<QDoubleSpinBox>(&dialog, "sbListTempMax");
    auto *min = find<QDoubleSpinBox>(&dialog, "sbListTempMin");
    auto *plot = find<QCustomPlot>(&dialog, "plotListTemplate");
    auto *preview = modelOf(&dialog, "tvListTemplate");
    auto shown = [&] {
        return QStringLiteral("%1 %2%3 [%4%5..%6%7] %8 %9")
            .arg(label->text())
            .arg(other->value())
            .arg(other->suffix())
            .arg(min->value())
            .arg(min->suffix())
            .arg(max->value())
            .arg(max->suffix())
            .arg(other->decimals())
            .arg(qobject_cast<QCPCurve *>(plot->plottable(0))->pen().color().name());
    };
    finishEdit(other, 1.25);
    finishEdit(max, 20);
    finishEdit(min, 2);
    QCOMPARE(shown(), QStringLiteral("Current: 1.25A [2V..20V] 3 #0000ff"));

    object->setCurrentIndex(1);
    QCOMPARE(shown(), QStringLiteral("Voltage: 3V [0A..3A] 4 #ff0000"));
    QCOMPARE(preview->index(0, 1).data().toString(), QStringLiteral("3.000"));
    QCOMPARE(preview->index(0, 2).data().toString(), QStringLiteral("1.500"));
    QCOMPARE(plot->yAxis->label(), QStringLiteral("Current(A)"));

    finishEdit(other, 5);
    object->setCurrentIndex(0);
    QCOMPARE(shown(), QStringLiteral("Current: %1A [2V..20V] 3 #0000ff").arg(fixedCurrent));
    QCOMPARE(preview->index(0, 1).data().toString(), QStringLiteral("11.000"));
}

void TestDialogProgrammer::smallerChannelClampsTemplate()
{
    Option option = hostOption();
    option.channels[1].ranges = {{0.0, 10.0}, {0.0, 1.0}};
    DialogProgrammer dialog(option, nullptr);
    auto *types = find<QComboBox>(&dialog, "cbbListTempType");
    auto *max = find<QDoubleSpinBox>(&dialog, "sbListTempMax");
    auto *other = find<QDoubleSpinBox>(&dialog, "sbListTempOtherValue");
    finishEdit(max, 25);
    finishEdit(other, 2.5);

    find<QComboBox>(&dialog, "cbbListCH")->setCurrentIndex(1);
    QCOMPARE(Helper::getInstance().currentChannel, 1);
    QCOMPARE(max->maximum(), 10.0);
    QCOMPARE(max->value(), 10.0);
    QCOMPARE(other->value(), 1.0);
    // The preview follows the clamped maximum: 5 + 5 sin(2 pi 7/30) at step 7.
    QCOMPARE(modelOf(&dialog, "tvListTemplate")->index(7, 1).data().toString(),
             QStringLiteral("9.973"));

    types->setCurrentIndex(1);
    types->setCurrentIndex(0);
    QCOMPARE(max->value(), 10.0);
    QCOMPARE(other->value(), 1.0);
}

void TestDialogProgrammer::resetAndResetAll()
{
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *types = find<QComboBox>(&dialog, "cbbListTempType");
    auto *period0 = find<QDoubleSpinBox>(&dialog, "sbListTempPeriod0");
    auto *width1 = find<QDoubleSpinBox>(&dialog, "sbListTempWidth1");
    auto *max = find<QDoubleSpinBox>(&dialog, "sbListTempMax");
    auto *preview = modelOf(&dialog, "tvListTemplate");
    finishEdit(period0, 10);
    types->setCurrentIndex(1);
    finishEdit(width1, 5);
    finishEdit(max, 7);

    find<QPushButton>(&dialog, "btnReset")->click();
    QCOMPARE(width1->value(), 15.0);
    QCOMPARE(max->value(), 3.0);
    types->setCurrentIndex(0);
    QCOMPARE(period0->value(), 10.0); // Reset touches the shown template only
    QCOMPARE(preview->rowCount(), 10);

    types->setCurrentIndex(1);
    finishEdit(width1, 5);
    types->setCurrentIndex(0);
    find<QPushButton>(&dialog, "btnResetAll")->click();
    QCOMPARE(period0->value(), 30.0);
    QCOMPARE(preview->rowCount(), 30);
    types->setCurrentIndex(1);
    QCOMPARE(width1->value(), 15.0);
}

void TestDialogProgrammer::defaultSinePreview()
{
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *plot = find<QCustomPlot>(&dialog, "plotListTemplate");
    const QStringList rows = rowsOf(modelOf(&dialog, "tvListTemplate"), Qt::DisplayRole);
    QStringList expected;
    for (int k = 0; k < 30; ++k) {
        const double volts = 1.5 + 1.5 * std::sin(2 * M_PI * k / 30);
        expected << QStringLiteral("%1|3.000|1.000").arg(volts, 0, 'f', 3);
    }
    QCOMPARE(rows, expected);
    QCOMPARE(titleOf(plot), QStringLiteral("Sine"));
    QVERIFY(!invalidTextOf(plot)->visible());
    QCOMPARE(qobject_cast<QCPCurve *>(plot->plottable(0))->pen().color().name(),
             QStringLiteral("#0000ff"));
    const QStringList points = pointsOf(plot).split(QLatin1Char(' '));
    QCOMPARE(points.size(), 60);
    QCOMPARE(points.first(), QStringLiteral("0,1.5"));
    QCOMPARE(points.at(1), QStringLiteral("1000,1.5"));
    QVERIFY(points.last().startsWith(QLatin1String("30000,")));
    // The axis stops one tick before the last point, then grows by 1 % about its centre.
    QVERIFY(qFuzzyCompare(plot->xAxis->range().upper, 14999.5 + 14999.5 * 1.01));
    QVERIFY(qFuzzyCompare(plot->yAxis->range().upper, 16 + 16 * 1.01));
}

void TestDialogProgrammer::declineThatWouldReachZeroIsInvalid()
{
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *plot = find<QCustomPlot>(&dialog, "plotDelayerTemplate");
    auto *preview = modelOf(&dialog, "tvDelayerTemplate");
    find<QComboBox>(&dialog, "cbbDelayerTempType")->setCurrentIndex(2);
    QCOMPARE(find<QStackedWidget>(&dialog, "stacWgt")->currentWidget()->objectName(),
             QStringLiteral("pageDecline"));
    finishEdit(&dialog, "sbDelayerTempDecBaseValue", 10);
    finishEdit(&dialog, "sbDelayerTemplageGroups", 3);
    QCOMPARE(rowsOf(preview), QStringList({"true|10", "false|9", "true|8"}));
    QVERIFY(!invalidTextOf(plot)->visible());

    finishEdit(&dialog, "sbDelayerTempDecBaseValue", 1);
    finishEdit(&dialog, "sbDelayerTempDecStep", 0.5);
    QCOMPARE(preview->rowCount(), 0);
    QCOMPARE(invalidTextOf(plot)->text(), QStringLiteral("Invalid"));
    QVERIFY(invalidTextOf(plot)->visible());
    QCOMPARE(pointsOf(plot), QStringLiteral("0,1 1,1"));

    find<QPushButton>(&dialog, "btnDelayerTemplateAppend")->click();
    find<QPushButton>(&dialog, "btnDelayerTemplateInsert")->click();
    QCOMPARE(modelOf(&dialog, "tvDelayer")->rowCount(), 0);
    QCOMPARE(find<QSpinBox>(&dialog, "sbDelayerGroups")->value(), 0);
}

void TestDialogProgrammer::delayerPreviewTitleAndOffDelay()
{
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *delayerTypes = find<QComboBox>(&dialog, "cbbDelayerTempType");
    auto *onTime = find<QDoubleSpinBox>(&dialog, "sbDelayerTempOnTime");
    auto *offTime = find<QDoubleSpinBox>(&dialog, "sbDelayerTempOffTime");
    auto *preview = modelOf(&dialog, "tvDelayerTemplate");
    auto *plot = find<QCustomPlot>(&dialog, "plotDelayerTemplate");
    QCOMPARE(titleOf(plot), QStringLiteral("Sine"));
    find<QComboBox>(&dialog, "cbbListTempType")->setCurrentIndex(2);
    QCOMPARE(titleOf(plot), QStringLiteral("Sine")); // the List tab does not redraw this plot

    finishEdit(&dialog, "sbDelayerTemplageGroups", 4);
    finishEdit(onTime, 2);
    QCOMPARE(titleOf(plot), QStringLiteral("Ramp"));
    QCOMPARE(plot->yAxis->label(), QStringLiteral("State"));
    QCOMPARE(rowsOf(preview), QStringList({"true|2", "false|1", "true|2", "false|1"}));
    QCOMPARE(pointsOf(plot),
             QStringLiteral("0,1 2000,1 2000,0 3000,0 3000,1 5000,1 5000,0 6000,0"));

    find<QComboBox>(&dialog, "cbbDelayerTempPattern")->setCurrentIndex(0);
    QCOMPARE(rowsOf(preview), QStringList({"false|1", "true|2", "false|1", "true|2"}));
    delayerTypes->setCurrentIndex(1);
    offTime->setValue(1);
    delayerTypes->setCurrentIndex(0);
    QCOMPARE(onTime->value(), 2.0);
    QCOMPARE(offTime->value(), 2.0);
    finishEdit(&dialog, "sbDelayerTemplageGroups", 2);
    QCOMPARE(rowsOf(preview), QStringList({"false|2", "true|2"}));
}

void TestDialogProgrammer::insertAndAppendSelectNewSteps_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("current"); // -1: no current cell
    QTest::addColumn<int>("previewSteps");
    QTest::addColumn<int>("firstNew");
    QTest::newRow("list insert at 4") << "tvList"
                                      << "btnListTemplateInsert" << 4 << 30 << 4;
    QTest::newRow("list insert, no current") << "tvList"
                                             << "btnListTemplateInsert" << -1 << 30 << 10;
    QTest::newRow("list append") << "tvList"
                                 << "btnListTemplateAppend" << 4 << 30 << 10;
    QTest::newRow("delayer insert at 4") << "tvDelayer"
                                         << "btnDelayerTemplateInsert" << 4 << 10 << 4;
    QTest::newRow("delayer insert, no current") << "tvDelayer"
                                                << "btnDelayerTemplateInsert" << -1 << 10 << 10;
    QTest::newRow("delayer append") << "tvDelayer"
                                    << "btnDelayerTemplateAppend" << 0 << 10 << 10;
}

void TestDialogProgrammer::insertAndAppendSelectNewSteps()
{
    QFETCH(QString, table);
    QFETCH(QString, button);
    QFETCH(int, current);
    QFETCH(int, previewSteps);
    QFETCH(int, firstNew);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *view = find<QTableView>(&dialog, table);
    QAbstractItemModel *model = view->model();
    const QStringList preview = rowsOf(modelOf(&dialog, table + QLatin1String("Template")));
    QCOMPARE(preview.size(), previewSteps);
    fill(model, 10);
    QStringList expected = rowsOf(model);
    for (int i = 0; i < previewSteps; ++i)
        expected.insert(firstNew + i, preview.at(i));
    view->selectionModel()->clear();
    if (current >= 0)
        view->setCurrentIndex(model->index(current, 1));

    find<QPushButton>(&dialog, button)->click();
    QCOMPARE(rowsOf(model), expected);
    QList<int> selected;
    for (const QModelIndex &index : view->selectionModel()->selectedRows())
        selected << index.row();
    std::sort(selected.begin(), selected.end());
    QList<int> fresh;
    for (int i = 0; i < previewSteps; ++i)
        fresh << firstNew + i;
    QCOMPARE(selected, fresh);
    QCOMPARE(view->selectionModel()->selectedIndexes().size(), previewSteps * model->columnCount());
    QCOMPARE(view->currentIndex(), model->index(firstNew, 0));
    const QString counter = table == QLatin1String("tvList") ? "sbListGroups" : "sbDelayerGroups";
    QCOMPARE(find<QSpinBox>(&dialog, counter)->value(), 10 + previewSteps);
}

void TestDialogProgrammer::stepCounterMarksTooLongSequence_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("lengthBox"); // makes the preview 100 steps long
    QTest::addColumn<QString>("append");
    QTest::addColumn<QString>("counter");
    QTest::newRow("list") << "tvList"
                          << "sbListTempPeriod0"
                          << "btnListTemplateAppend"
                          << "sbListGroups";
    QTest::newRow("delayer") << "tvDelayer"
                             << "sbDelayerTemplageGroups"
                             << "btnDelayerTemplateAppend"
                             << "sbDelayerGroups";
}

void TestDialogProgrammer::stepCounterMarksTooLongSequence()
{
    QFETCH(QString, table);
    QFETCH(QString, lengthBox);
    QFETCH(QString, append);
    QFETCH(QString, counter);
    Option option = hostOption();
    option.maxCount = 100;
    DialogProgrammer dialog(option, nullptr);
    auto *view = find<QTableView>(&dialog, table);
    auto *groups = find<QSpinBox>(&dialog, counter);
    const QString red = QStringLiteral("background-color:#ff0000");
    finishEdit(&dialog, lengthBox, 100);
    find<QPushButton>(&dialog, append)->click();
    QCOMPARE(groups->value(), 100);
    QCOMPARE(groups->styleSheet(), QString());

    QVERIFY(rightClick(view, "Append").consumed);
    QCOMPARE(groups->value(), 101);
    QCOMPARE(groups->styleSheet(), red);

    view->selectionModel()->clear();
    view->setCurrentIndex(view->model()->index(50, 1));
    QVERIFY(rightClick(view, "Delete").consumed);
    QCOMPARE(groups->value(), 100);
    QCOMPARE(groups->styleSheet(), QString());

    // An edit of a cell refreshes the counter too.
    view->model()->insertRows(0, 1);
    QVERIFY(view->model()->setData(view->model()->index(0, 1), 0));
    QCOMPARE(groups->value(), 101);
    QCOMPARE(groups->styleSheet(), red);
}

void TestDialogProgrammer::contextMenu_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("rows");    // times 1..rows
    QTest::addColumn<int>("current"); // -1: none
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QString>("pick");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("times");
    QTest::addColumn<QString>("removed"); // first-last of each removal, in order
    QTest::addColumn<int>("newRow");      // -1: none
    const QString none = QStringLiteral("Append+ Insert- | Delete- Clear-");
    const QString all = QStringLiteral("Append+ Insert+ | Delete+ Clear+");
    for (const QString &table : {QStringLiteral("tvList"), QStringLiteral("tvDelayer")}) {
        const QByteArray t = table.toLatin1();
        QTest::addRow("%s: append to empty", t.data())
            << table << 0 << -1 << QList<int>() << "Append" << none << "0"
            << "" << 0;
        QTest::addRow("%s: insert at 2 of 5", t.data())
            << table << 5 << 2 << QList<int>() << "Insert" << all << "1 2 0 3 4 5"
            << "" << 2;
        QTest::addRow("%s: append after 5", t.data())
            << table << 5 << 2 << QList<int>{2} << "Append" << all << "1 2 3 4 5 0"
            << "" << 5;
        QTest::addRow("%s: delete 1 and 3", t.data())
            << table << 5 << 0 << QList<int>{3, 1} << "Delete" << all << "1 3 5"
            << "3-3 1-1" << -1;
        QTest::addRow("%s: delete, nothing selected", t.data())
            << table << 5 << 2 << QList<int>() << "Delete" << all << "1 2 3 4 5"
            << "" << -1;
        QTest::addRow("%s: clear", t.data())
            << table << 5 << 1 << QList<int>{1} << "Clear" << all << ""
            << "0-4" << -1;
        QTest::addRow("%s: clear, no current", t.data())
            << table << 3 << -1 << QList<int>() << "Clear"
            << "Append+ Insert- | Delete- Clear+"
            << ""
            << "0-2" << -1;
    }
}

void TestDialogProgrammer::contextMenu()
{
    QFETCH(QString, table);
    QFETCH(int, rows);
    QFETCH(int, current);
    QFETCH(QList<int>, selected);
    QFETCH(QString, pick);
    QFETCH(QString, entries);
    QFETCH(QString, times);
    QFETCH(QString, removed);
    QFETCH(int, newRow);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *view = find<QTableView>(&dialog, table);
    QAbstractItemModel *model = view->model();
    const bool list = table == QLatin1String("tvList");
    auto *counter = find<QSpinBox>(&dialog, list ? "sbListGroups" : "sbDelayerGroups");
    if (rows > 0)
        fill(model, rows);
    QItemSelectionModel *selection = view->selectionModel();
    selection->clear();
    if (current >= 0)
        selection->setCurrentIndex(model->index(current, 1), QItemSelectionModel::NoUpdate);
    for (int row : selected) // one cell per row is enough to select the row
        selection->select(model->index(row, row % model->columnCount()),
                          QItemSelectionModel::Select);
    QStringList removals;
    connect(model,
            &QAbstractItemModel::rowsAboutToBeRemoved,
            this,
            [&removals](const QModelIndex &, int first, int last) {
                removals << QStringLiteral("%1-%2").arg(first).arg(last);
            });

    const MenuRun run = rightClick(view, pick);
    QVERIFY(!run.hung);
    QVERIFY(run.consumed);
    QCOMPARE(run.entries, entries);
    QCOMPARE(timesOf(model), times);
    QCOMPARE(removals.join(QLatin1Char(' ')), removed);
    QCOMPARE(counter->value(), model->rowCount());
    if (newRow >= 0) {
        QCOMPARE(view->currentIndex(), model->index(newRow, 1));
        QCOMPARE(rowsOf(model, Qt::DisplayRole).at(newRow),
                 list ? QStringLiteral("0.000|0.000|0.000") : QStringLiteral("ON|0.000"));
    }
}

void TestDialogProgrammer::otherWidgetsKeepTheirContextMenu_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("list preview") << "tvListTemplate";
    QTest::newRow("delayer preview") << "tvDelayerTemplate";
    QTest::newRow("sequence plot") << "plotList";
    QTest::newRow("type combo") << "cbbListTempType";
}

void TestDialogProgrammer::otherWidgetsKeepTheirContextMenu()
{
    QFETCH(QString, name);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *widget = find<QWidget>(&dialog, name);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(1, 1));
    QTimer failSafe;
    failSafe.setSingleShot(true);
    bool opened = false;
    connect(&failSafe, &QTimer::timeout, this, [&opened] {
        while (QWidget *popup = QApplication::activePopupWidget()) {
            opened = true;
            popup->close();
        }
    });
    failSafe.start(0);
    QVERIFY(!dialog.eventFilter(widget, &event));
    QVERIFY(!opened);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QVERIFY(!dialog.eventFilter(find<QTableView>(&dialog, "tvList"), &key));
}

void TestDialogProgrammer::emptySequencePlotsAroundZero_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("plot");
    QTest::addColumn<QString>("append");
    QTest::addColumn<bool>("zeroStep"); // after Clear, append one step of 0 s by the menu
    QTest::newRow("list cleared") << "tvList"
                                  << "plotList"
                                  << "btnListTemplateAppend" << false;
    QTest::newRow("list 0 s step") << "tvList"
                                   << "plotList"
                                   << "btnListTemplateAppend" << true;
    QTest::newRow("delayer cleared") << "tvDelayer"
                                     << "plotDelayer"
                                     << "btnDelayerTemplateAppend" << false;
    QTest::newRow("delayer 0 s step") << "tvDelayer"
                                      << "plotDelayer"
                                      << "btnDelayerTemplateAppend" << true;
}

void TestDialogProgrammer::emptySequencePlotsAroundZero()
{
    QFETCH(QString, table);
    QFETCH(QString, plot);
    QFETCH(QString, append);
    QFETCH(bool, zeroStep);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *view = find<QTableView>(&dialog, table);
    auto *axis = find<QCustomPlot>(&dialog, plot)->xAxis;
    find<QPushButton>(&dialog, append)->click();
    QVERIFY(axis->range().upper > 10000);
    QVERIFY(!rightClick(view, "Clear").hung);
    QCOMPARE(view->model()->rowCount(), 0);
    QCOMPARE(pointsOf(find<QCustomPlot>(&dialog, plot)), QString());
    if (zeroStep) {
        QVERIFY(!rightClick(view, "Append").hung);
        QCOMPARE(view->model()->rowCount(), 1);
    }
    // The scale of steps that are gone must not stay: a unit range at the origin replaces it.
    QCOMPARE(axis->range().lower, -0.005);
    QCOMPARE(axis->range().upper, 1.005);
}

void TestDialogProgrammer::onePointPreviewKeepsAUnitAxis()
{
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *axis = find<QCustomPlot>(&dialog, "plotListTemplate")->xAxis;
    QVERIFY(axis->range().upper > 10000);
    find<QAbstractSpinBox>(&dialog, "sbListTempPeriod0")->setProperty("value", 0.001);
    finishEdit(&dialog, "sbListTempInterval0", 0.001);
    QCOMPARE(modelOf(&dialog, "tvListTemplate")->rowCount(), 1);
    QCOMPARE(axis->range().lower, -0.005);
    QCOMPARE(axis->range().upper, 1.005);
}

void TestDialogProgrammer::secondDialogChangesDecimals()
{
    DialogProgrammer first(hostOption(), nullptr);
    find<QPushButton>(&first, "btnListTemplateAppend")->click();
    QAbstractItemModel *steps = modelOf(&first, "tvList");
    QCOMPARE(rowsOf(steps, Qt::DisplayRole).first(), QStringLiteral("1.500|3.000|1.000"));
    Option coarse = hostOption();
    coarse.name = QStringLiteral("Coarse Supply");
    coarse.timeDecimals = 1;
    coarse.voltageDecimals = 1;
    {
        DialogProgrammer second(coarse, nullptr);
        QCOMPARE(rowsOf(steps, Qt::DisplayRole).first(), QStringLiteral("1.5|3.000|1.0"));
    }
    QCOMPARE(rowsOf(steps, Qt::DisplayRole).first(), QStringLiteral("1.5|3.000|1.0"));
}

void TestDialogProgrammer::absurdTemplateIsRefusedAtOnce_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("edits"); // name=value, the last one finishing the edit
    QTest::addColumn<QString>("steps");
    QTest::newRow("sine") << 0
                          << "sbListTempPeriod0=3600 sbListTempInterval0=0.001 "
                             "sbListTempCycles0=512"
                          << "1843200000";
    QTest::newRow("ramp") << 2 << "sbListTempInterval2=0.001 sbListTempPeriod2=3600"
                          << "3600000";
}

void TestDialogProgrammer::absurdTemplateIsRefusedAtOnce()
{
    QFETCH(int, type);
    QFETCH(QString, edits);
    QFETCH(QString, steps);
    DialogProgrammer dialog(hostOption(), nullptr);
    auto *preview = modelOf(&dialog, "tvListTemplate");
    auto *invalid = invalidTextOf(find<QCustomPlot>(&dialog, "plotListTemplate"));
    auto *status = find<QStatusBar>(&dialog, "statusBar");
    find<QComboBox>(&dialog, "cbbListTempType")->setCurrentIndex(type);
    QAbstractSpinBox *box = nullptr;
    for (const QString &edit : edits.split(QLatin1Char(' '))) {
        box = find<QAbstractSpinBox>(&dialog, edit.section(QLatin1Char('='), 0, 0));
        box->setProperty("value", edit.section(QLatin1Char('='), 1).toDouble());
    }
    QElapsedTimer clock;
    clock.start();
    emit box->editingFinished();
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(preview->rowCount(), 0);
    QVERIFY(invalid->visible());
    QVERIFY2(status->currentMessage().contains(steps), qPrintable(status->currentMessage()));
    QCOMPARE(status->styleSheet(), QStringLiteral("color:#ff0000"));

    find<QPushButton>(&dialog, "btnListTemplateAppend")->click();
    find<QPushButton>(&dialog, "btnListTemplateInsert")->click();
    QCOMPARE(modelOf(&dialog, "tvList")->rowCount(), 0);

    find<QPushButton>(&dialog, "btnReset")->click();
    QVERIFY(preview->rowCount() > 0);
    QVERIFY(!invalid->visible());
}

void TestDialogProgrammer::extremeEditorsOnZeroRange_data()
{
    QTest::addColumn<int>("timeDecimals");
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("atMaximum");
    for (int decimals : {3, 0}) {
        for (bool atMaximum : {false, true}) {
            const char *end = atMaximum ? "max" : "min";
            for (int type = 0; type < 8; ++type)
                QTest::addRow("d%d list %d %s", decimals, type, end)
                    << decimals << false << type << atMaximum;
            for (int type = 0; type < 3; ++type)
                QTest::addRow("d%d delayer %d %s", decimals, type, end)
                    << decimals << true << type << atMaximum;
        }
    }
}

// A channel that cannot move (0 to 0 V and A) and every editor of a template at one end of its
// range: nothing may crash or read past a list, and no step may leave the channel.
void TestDialogProgrammer::extremeEditorsOnZeroRange()
{
    QFETCH(int, timeDecimals);
    QFETCH(bool, delayer);
    QFETCH(int, type);
    QFETCH(bool, atMaximum);
    Option option = hostOption();
    option.timeDecimals = timeDecimals;
    for (Channel &channel : option.channels)
        channel.ranges = {{0.0, 0.0}, {0.0, 0.0}};
    DialogProgrammer dialog(option, nullptr);
    const QString prefix = delayer ? QStringLiteral("Delayer") : QStringLiteral("List");
    find<QComboBox>(&dialog, QStringLiteral("cbb%1TempType").arg(prefix))->setCurrentIndex(type);
    if (!delayer && atMaximum)
        find<QComboBox>(&dialog, "cbbListTempObject")->setCurrentIndex(1);
    auto *area = find<QWidget>(&dialog, delayer ? "groupBox_4" : "groupBox");
    QAbstractSpinBox *last = nullptr;
    for (QAbstractSpinBox *box : area->findChildren<QAbstractSpinBox *>()) {
        box->setProperty("value", box->property(atMaximum ? "maximum" : "minimum"));
        last = box;
    }
    QVERIFY(last);
    emit last->editingFinished();

    auto *preview = modelOf(&dialog, QStringLiteral("tv%1Template").arg(prefix));
    QVERIFY(preview->rowCount() <= (delayer ? 512 : kMaxTemplateSteps));
    for (const QString &row : rowsOf(preview, Qt::DisplayRole)) {
        const QStringList cells = row.split(QLatin1Char('|'));
        QVERIFY2(cells.last().toDouble() >= 0, qPrintable(row));
        if (!delayer)
            QCOMPARE(cells.mid(0, 2), QStringList({"0.000", "0.000"}));
    }
    if (delayer)
        QCOMPARE(invalidTextOf(find<QCustomPlot>(&dialog, "plotDelayerTemplate"))->visible(),
                 preview->rowCount() == 0);

    find<QPushButton>(&dialog, QStringLiteral("btn%1TemplateAppend").arg(prefix))->click();
    auto *view = find<QTableView>(&dialog, QStringLiteral("tv%1").arg(prefix));
    QCOMPARE(view->model()->rowCount(), preview->rowCount());
    QVERIFY(!rightClick(view, "Clear").hung);
    QCOMPARE(view->model()->rowCount(), 0);
}

QTEST_MAIN(TestDialogProgrammer)
#include "tst_dialogprogrammer.moc"
