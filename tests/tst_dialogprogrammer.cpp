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
#include <QRegularExpression>
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

template<typename T = QWidget> T *find(const QObject *root, const QString &name)
{
    T *object = root->findChild<T *>(name);
    if (!object)
        qFatal("no %s named %s", T::staticMetaObject.className(), qPrintable(name));
    return object;
}

// The two tabs name their widgets alike: "tv%1" is tvList or tvDelayer.
QString tabbed(const char *pattern, bool delayer)
{
    return QString::fromLatin1(pattern).arg(delayer ? "Delayer" : "List");
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

// Columns 1 to last of every row joined by "|"; the step number column is left out.
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

// `count` steps whose times 1, 2, 3 ... tell them apart, written through the table's model.
void fill(QAbstractItemModel *model, int count)
{
    QVERIFY(model->insertRows(0, count));
    for (int r = 0; r < count; ++r)
        QVERIFY(model->setData(model->index(r, model->columnCount() - 1), r + 1.0));
}

QCPItemText *invalidTextOf(QCustomPlot *plot)
{
    return qobject_cast<QCPItemText *>(plot->item(0));
}

QString titleOf(QCustomPlot *plot)
{
    return qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0))->text();
}

QCPCurve *curveOf(QCustomPlot *plot)
{
    return qobject_cast<QCPCurve *>(plot->plottable(0));
}

QString pointsOf(QCustomPlot *plot)
{
    QStringList points;
    for (const QCPCurveData &point : *curveOf(plot)->data())
        points << QStringLiteral("%1,%2").arg(point.key).arg(point.value);
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
        QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        QStringList entries;
        QAction *chosen = nullptr;
        for (QAction *action : menu->actions()) {
            entries << (action->isSeparator() ? QStringLiteral("|")
                                              : action->text() + (action->isEnabled() ? '+' : '-'));
            if (action->text() == pick && action->isEnabled())
                chosen = action;
        }
        run.entries = entries.join(QLatin1Char(' '));
        if (chosen) {
            menu->setActiveAction(chosen);
            QTest::keyClick(menu, Qt::Key_Return);
        }
        if (menu && menu->isVisible())
            menu->close();
    });
    QTimer failSafe;
    QObject::connect(&failSafe, &QTimer::timeout, &failSafe, [&run] {
        while (QWidget *popup = QApplication::activePopupWidget()) {
            run.hung = true;
            popup->close();
        }
    });
    failSafe.start(3000);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), target->mapToGlobal({4, 4}));
    run.consumed = QApplication::sendEvent(target, &event);
    return run;
}

// What an editor offers: "min..max suffix =value 'special'" for a spin box (the value only when
// `withValue`), "text=data, ..." for a combo box.
QString describe(QWidget *editor, bool withValue)
{
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        QStringList items;
        for (int i = 0; i < combo->count(); ++i)
            items << combo->itemText(i) + QLatin1Char('=') + combo->itemData(i).toString();
        return items.join(QStringLiteral(", "));
    }
    auto *box = qobject_cast<QAbstractSpinBox *>(editor);
    QString text = QStringLiteral("%1..%2 %3")
                       .arg(box->property("minimum").toDouble())
                       .arg(box->property("maximum").toDouble())
                       .arg(box->property("suffix").toString());
    if (withValue)
        text += QStringLiteral(" =%1").arg(box->property("value").toDouble());
    if (!box->specialValueText().isEmpty())
        text += QStringLiteral(" '%1'").arg(box->specialValueText());
    return text;
}

// One right-click on a table holding steps with times 1..rows.
struct MenuCase
{
    int rows, current;                     // current -1: none
    const char *selected, *pick;           // rows with a selected cell; the entry to choose
    const char *entries, *times, *removed; // removed: first-last of each removal, in order
    int newRow;                            // the new step that becomes current; -1: none
};

} // namespace

Q_DECLARE_METATYPE(MenuCase)

class TestDialogProgrammer : public QObject
{
    Q_OBJECT

    QTemporaryDir settingsHome;

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

    void widgetTree_data()
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
             "lblListTempIndex_10 lblListTempIndex_6 lblListTempIndex_9 label_3 "
             "lblListTempIndex_11 label_6 lblListTempIndex_12 label_11 lblListTempIndex_13 "
             "lblListTempIndex_2 lblListTempIndex_14 lblListTempIndex_3 label label_7 label_4 "
             "label_2 label_9 label_29 label_20 label_14 label_15 label_16 label_17"},
            {"QDoubleSpinBox",
             "sbListTempOtherValue sbListTempMax sbListTempMin sbListTempInterval0 "
             "sbListTempPeriod0 sbListTempPeriod1 sbListTempWidth1 sbListTempPeriod2 "
             "sbListTempInterval2 sbListTempPeriod3 sbListTempPeriod4 sbListTempPeriod5 "
             "sbListTempInterval6 sbListTempInterval7 sbDelayerTempOnTime sbDelayerTempOffTime "
             "sbDelayerTempIncBaseValue sbDelayerTempIncStep sbDelayerTempDecBaseValue "
             "sbDelayerTempDecStep"},
            {"QSpinBox",
             "sbListTempCycles0 sbListTempPulseCount1 sbListTempSymmetry2 sbListTempSteps3 "
             "sbListTempSteps4 sbListTempSteps5 sbListTempExpGroups6 sbListTempExpRate6 "
             "sbListTempExpGroups7 sbListTempExpRate7 sbListCycles sbListGroups "
             "sbDelayerTemplageGroups sbDelayerCycles sbDelayerGroups"},
            {"QComboBox",
             "cbbListTempType cbbListTempObject cbbListCH cbbListEndState cbbDelayerTempPattern "
             "cbbDelayerTempType cbbDelayerCH cbbDelayerEndState"},
            {"QPushButton",
             "btnReset btnResetAll btnListTemplateInsert btnListTemplateAppend btnListLoad "
             "btnListSave btnListUpload btnDelayerTemplateInsert btnDelayerTemplateAppend "
             "btnDelayerLoad btnDelayerSave btnDelayerUpload"},
            {"QCheckBox", "cbListTempInverted0 cbListTempInverted1 cbListTempInverted2"},
            {"QStackedWidget", "stackedWidget stacWgt"},
            {"QSplitter", "splitter splitter_3 splitter_2 splitter_4"},
            {"QTableView", "tvListTemplate tvList tvDelayerTemplate tvDelayer"},
            {"QToolBar", "toolbarListData toolbarDelayerData"},
            {"QCustomPlot", "plotListTemplate plotList plotDelayerTemplate plotDelayer"},
        };
        for (const auto &kind : kinds) {
            for (const QString &name : QString::fromLatin1(kind.second).split(QLatin1Char(' ')))
                QTest::newRow(qPrintable(name)) << name << QString::fromLatin1(kind.first);
        }
    }
    // Every named object once, of its class; the editors also with what they offer.
    void widgetTree()
    {
        QFETCH(QString, name);
        QFETCH(QString, className);
        static const QHash<QString, QString> offers{
            // as describe() puts it; " =" asks for the value
            {"sbListTempPeriod0", "0.001..3600 s =30"},
            {"sbDelayerTempOffTime", "0.001..3600 s =1"},
            {"sbListTempCycles0", "1..512  =1"},
            {"sbListTempPulseCount1", "1..256  =1"},
            {"sbListTempSymmetry2", "0..100 % =50"},
            {"sbListTempExpRate6", "0..10  =5"},
            {"sbListTempExpGroups7", "1..512  =1"},
            {"sbDelayerTemplageGroups", "1..512  =10"},
            {"sbListCycles", "0..99999  =0 'Infinite'"},
            {"sbDelayerCycles", "0..99999  =0 'Infinite'"},
            {"sbListTempOtherValue", "0..3.2 A =3"},
            {"sbListTempMax", "0..32 V =3"},
            {"cbbListCH", "CH1=, CH2=, CH3=, CH4="},
            {"cbbDelayerCH", "CH1=, CH2=, CH3=, CH4="},
            {"cbbListEndState", "Output Off=OFF, Output On=ON"},
            {"cbbDelayerEndState", "Output Off=OFF, Output On=ON, Last=LAST"},
            {"cbbDelayerTempPattern", "01 Pattern=1, 10 Pattern=10"},
            {"cbbDelayerTempType", "Fix Time=, Increase=, Decline="},
            {"cbbListTempType",
             "Sine=, Pulse=, Ramp=, Stair Up=, Stair Down=, Stair Up Down=, Exponent Rise=, "
             "Exponent Fall="}};
        // Every other time editor of a template; with fewer decimals than the option's, 0.001
        // would round away and let a zero period through.
        static const QRegularExpression timeBox(
            QStringLiteral("^sb(ListTemp(Period|Interval|Width)|DelayerTemp(On|Inc|Dec))"));
        DialogProgrammer dialog(hostOption(), nullptr);
        QCOMPARE(dialog.objectName(), QStringLiteral("DialogProgrammer"));
        const QList<QObject *> found = dialog.findChildren<QObject *>(name);
        QCOMPARE(found.size(), 1);
        QCOMPARE(QString::fromLatin1(found.first()->metaObject()->className()), className);
        const QString offer = offers.value(
            name, timeBox.match(name).hasMatch() ? QStringLiteral("0.001..3600 s") : QString());
        if (!offer.isEmpty())
            QCOMPARE(describe(find(&dialog, name), offer.contains(QLatin1String(" ="))), offer);
    }

    void choosingTypeFillsItsPage_data()
    {
        QTest::addColumn<int>("type");
        for (int type = 0; type < 8; ++type)
            QTest::addRow("type %d", type) << type;
    }
    // Each per-type editor shows its field's default when its type is chosen, whatever it held,
    // and what the user enters there comes back after another type has been shown.
    void choosingTypeFillsItsPage()
    {
        QFETCH(int, type);
        static const QMap<QString, QPair<double, double>> fields{// base name: default, edited value
                                                                 {"sbListTempPeriod", {30, 12.5}},
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
        QWidget *page = find(&dialog, QStringLiteral("page%1").arg(type));
        QList<QWidget *> editors;
        for (QWidget *editor : page->findChildren<QWidget *>()) {
            if (fields.contains(editor->objectName().chopped(1)))
                editors << editor;
        }
        QVERIFY(!editors.isEmpty());
        for (const bool edited : {false, true}) {
            // Show another type, scribble stale values on this page, come back.
            types->setCurrentIndex(type == 1 ? 2 : 1);
            for (QWidget *editor : qAsConst(editors)) {
                const QSignalBlocker blocker(editor);
                editor->setProperty(editor->inherits("QCheckBox") ? "checked" : "value", 8);
            }
            types->setCurrentIndex(type);
            QCOMPARE(find<QStackedWidget>(&dialog, "stackedWidget")->currentWidget(), page);
            for (QWidget *editor : qAsConst(editors)) {
                const auto field = fields.value(editor->objectName().chopped(1));
                const char *property = editor->inherits("QCheckBox") ? "checked" : "value";
                QCOMPARE(editor->property(property).toDouble(),
                         edited ? field.second : field.first);
            }
            for (QWidget *editor : edited ? QList<QWidget *>() : editors) {
                const double value = fields.value(editor->objectName().chopped(1)).second;
                if (auto *box = qobject_cast<QCheckBox *>(editor))
                    box->click();
                else
                    finishEdit(qobject_cast<QAbstractSpinBox *>(editor), value);
            }
        }
        QCOMPARE(titleOf(find<QCustomPlot>(&dialog, "plotListTemplate")), types->currentText());
    }

    void objectSwitchShowsStoredQuantity_data()
    {
        QTest::addColumn<double>("currentMax");
        QTest::addColumn<QString>("fixedCurrent");
        QTest::newRow("3.2 A channel clamps") << 3.2 << "3.200";
        QTest::newRow("10 A channel keeps 5") << 10.0 << "5.000";
    }
    void objectSwitchShowsStoredQuantity()
    {
        QFETCH(double, currentMax);
        QFETCH(QString, fixedCurrent);
        Option option = hostOption();
        option.channels[0].ranges[1].second = currentMax;
        DialogProgrammer dialog(option, nullptr);
        auto *object = find<QComboBox>(&dialog, "cbbListTempObject");
        auto *other = find<QDoubleSpinBox>(&dialog, "sbListTempOtherValue");
        auto *max = find<QDoubleSpinBox>(&dialog, "sbListTempMax");
        auto *min = find<QDoubleSpinBox>(&dialog, "sbListTempMin");
        auto *plot = find<QCustomPlot>(&dialog, "plotListTemplate");
        auto *preview = modelOf(&dialog, "tvListTemplate");
        // "label fixed [min..max] fixed-decimals curve-colour axis-label"
        auto shown = [&] {
            const auto text = [](QDoubleSpinBox *box) {
                return box->text();
            };
            return find<QLabel>(&dialog, "lblListTempOtherValue")->text() + ' ' + text(other) + " ["
                   + text(min) + ".." + text(max) + "] " + QString::number(other->decimals()) + ' '
                   + curveOf(plot)->pen().color().name() + ' ' + plot->yAxis->label();
        };
        finishEdit(other, 1.25);
        finishEdit(max, 20);
        finishEdit(min, 2);
        QCOMPARE(shown(), QStringLiteral("Current: 1.250A [2.000V..20.000V] 3 #0000ff Voltage(V)"));

        object->setCurrentIndex(1);
        QCOMPARE(shown(), QStringLiteral("Voltage: 3.0000V [0.000A..3.000A] 4 #ff0000 Current(A)"));
        QCOMPARE(rowsOf(preview, Qt::DisplayRole).first(), QStringLiteral("3.000|1.500|1.000"));

        finishEdit(other, 5);
        object->setCurrentIndex(0);
        QCOMPARE(shown(),
                 QStringLiteral("Current: %1A [2.000V..20.000V] 3 #0000ff Voltage(V)")
                     .arg(fixedCurrent));
        QCOMPARE(preview->index(0, 1).data().toString(), QStringLiteral("11.000"));
    }

    void smallerChannelClampsTemplate()
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
        // The preview follows the clamped maximum: 5 + 5 sin(2 pi 7/30) at step 7.
        QCOMPARE(modelOf(&dialog, "tvListTemplate")->index(7, 1).data().toString(),
                 QStringLiteral("9.973"));
        types->setCurrentIndex(1);
        types->setCurrentIndex(0);
        QCOMPARE(max->value(), 10.0);
        QCOMPARE(other->value(), 1.0);
    }

    void resetAndResetAll()
    {
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *types = find<QComboBox>(&dialog, "cbbListTempType");
        auto *period0 = find<QDoubleSpinBox>(&dialog, "sbListTempPeriod0");
        auto *width1 = find<QDoubleSpinBox>(&dialog, "sbListTempWidth1");
        auto *max = find<QDoubleSpinBox>(&dialog, "sbListTempMax");
        finishEdit(period0, 10);
        types->setCurrentIndex(1);
        finishEdit(width1, 5);
        finishEdit(max, 7);
        find<QPushButton>(&dialog, "btnReset")->click();
        QCOMPARE(QPair(width1->value(), max->value()), QPair(15.0, 3.0));
        types->setCurrentIndex(0);
        QCOMPARE(period0->value(), 10.0); // Reset touches the shown template only
        QCOMPARE(modelOf(&dialog, "tvListTemplate")->rowCount(), 10);

        types->setCurrentIndex(1);
        finishEdit(width1, 5);
        types->setCurrentIndex(0);
        find<QPushButton>(&dialog, "btnResetAll")->click();
        QCOMPARE(period0->value(), 30.0);
        QCOMPARE(modelOf(&dialog, "tvListTemplate")->rowCount(), 30);
        types->setCurrentIndex(1);
        QCOMPARE(width1->value(), 15.0);
    }

    void sinePreview()
    {
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *plot = find<QCustomPlot>(&dialog, "plotListTemplate");
        QStringList expected;
        for (int k = 0; k < 30; ++k) {
            const double volts = 1.5 + 1.5 * std::sin(2 * M_PI * k / 30);
            expected << QStringLiteral("%1|3.000|1.000").arg(volts, 0, 'f', 3);
        }
        QCOMPARE(rowsOf(modelOf(&dialog, "tvListTemplate"), Qt::DisplayRole), expected);
        QCOMPARE(titleOf(plot), QStringLiteral("Sine"));
        QVERIFY(!invalidTextOf(plot)->visible());
        QCOMPARE(curveOf(plot)->pen().color().name(), QStringLiteral("#0000ff"));
        const QStringList points = pointsOf(plot).split(QLatin1Char(' '));
        const QString second = QStringLiteral("1000,%1").arg(1.5 + 1.5 * std::sin(M_PI / 15));
        QCOMPARE(points.mid(0, 3), QStringList({"0,1.5", "1000,1.5", second}));
        QCOMPARE(points.size(), 60);
        QVERIFY(points.last().startsWith(QLatin1String("30000,")));
        // The axis stops one tick before the last point, then grows by 1 % about its centre.
        QCOMPARE(plot->xAxis->range().upper, 14999.5 + 14999.5 * 1.01);
        QCOMPARE(plot->yAxis->range().upper, 16 + 16 * 1.01);

        // A single step of one tick leaves no width to show; the axis falls back to a unit.
        find<QAbstractSpinBox>(&dialog, "sbListTempPeriod0")->setProperty("value", 0.001);
        finishEdit(&dialog, "sbListTempInterval0", 0.001);
        QCOMPARE(rowsOf(modelOf(&dialog, "tvListTemplate")).size(), 1);
        QCOMPARE(plot->xAxis->range().lower, -0.005);
        QCOMPARE(plot->xAxis->range().upper, 1.005);
    }

    void delayerPreview()
    {
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *types = find<QComboBox>(&dialog, "cbbDelayerTempType");
        auto *onTime = find<QDoubleSpinBox>(&dialog, "sbDelayerTempOnTime");
        auto *offTime = find<QDoubleSpinBox>(&dialog, "sbDelayerTempOffTime");
        auto *preview = modelOf(&dialog, "tvDelayerTemplate");
        auto *plot = find<QCustomPlot>(&dialog, "plotDelayerTemplate");
        QCOMPARE(titleOf(plot), QStringLiteral("Sine"));
        find<QComboBox>(&dialog, "cbbListTempType")->setCurrentIndex(2);
        finishEdit(&dialog, "sbDelayerTemplageGroups", 4);
        finishEdit(onTime, 2);
        QCOMPARE(titleOf(plot), QStringLiteral("Ramp")); // the List tab's template, on purpose
        QCOMPARE(plot->yAxis->label(), QStringLiteral("State"));
        QCOMPARE(rowsOf(preview), QStringList({"true|2", "false|1", "true|2", "false|1"}));
        QCOMPARE(pointsOf(plot),
                 QStringLiteral("0,1 2000,1 2000,0 3000,0 3000,1 5000,1 5000,0 6000,0"));

        // A refresh shows the On time in the Off Delay editor; the next edit stores it.
        find<QComboBox>(&dialog, "cbbDelayerTempPattern")->setCurrentIndex(0);
        QCOMPARE(rowsOf(preview), QStringList({"false|1", "true|2", "false|1", "true|2"}));
        types->setCurrentIndex(1);
        offTime->setValue(1);
        types->setCurrentIndex(0);
        QCOMPARE(QPair(onTime->value(), offTime->value()), QPair(2.0, 2.0));
        finishEdit(&dialog, "sbDelayerTemplageGroups", 2);
        QCOMPARE(rowsOf(preview), QStringList({"false|2", "true|2"}));

        types->setCurrentIndex(2);
        QCOMPARE(find<QStackedWidget>(&dialog, "stacWgt")->currentWidget()->objectName(),
                 QStringLiteral("pageDecline"));
        finishEdit(&dialog, "sbDelayerTempDecBaseValue", 10);
        finishEdit(&dialog, "sbDelayerTemplageGroups", 3);
        QCOMPARE(rowsOf(preview), QStringList({"true|10", "false|9", "true|8"}));
        QVERIFY(!invalidTextOf(plot)->visible());
        // 1 s falling by 0.5 s would reach 0 s at the third step.
        finishEdit(&dialog, "sbDelayerTempDecBaseValue", 1);
        finishEdit(&dialog, "sbDelayerTempDecStep", 0.5);
        QCOMPARE(preview->rowCount(), 0);
        QCOMPARE(invalidTextOf(plot)->text(), QStringLiteral("Invalid"));
        QVERIFY(invalidTextOf(plot)->visible());
        QCOMPARE(pointsOf(plot), QStringLiteral("0,1 1,1"));
        find<QPushButton>(&dialog, "btnDelayerTemplateAppend")->click();
        find<QPushButton>(&dialog, "btnDelayerTemplateInsert")->click();
        QCOMPARE(modelOf(&dialog, "tvDelayer")->rowCount(), 0);
    }

    void insertAndAppendSelectNewSteps_data()
    {
        QTest::addColumn<bool>("delayer");
        QTest::addColumn<bool>("insert"); // Insert, else Append
        QTest::addColumn<int>("current"); // -1: no current cell
        QTest::addColumn<int>("firstNew");
        for (bool delayer : {false, true}) {
            const char *tab = delayer ? "delayer" : "list";
            QTest::addRow("%s insert at 4", tab) << delayer << true << 4 << 4;
            QTest::addRow("%s insert at 0", tab) << delayer << true << 0 << 0;
            QTest::addRow("%s insert, no current", tab) << delayer << true << -1 << 10;
            QTest::addRow("%s append", tab) << delayer << false << 4 << 10;
        }
    }
    void insertAndAppendSelectNewSteps()
    {
        QFETCH(bool, delayer);
        QFETCH(bool, insert);
        QFETCH(int, current);
        QFETCH(int, firstNew);
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *view = find<QTableView>(&dialog, tabbed("tv%1", delayer));
        QAbstractItemModel *model = view->model();
        const QStringList preview = rowsOf(modelOf(&dialog, tabbed("tv%1Template", delayer)));
        QCOMPARE(preview.size(), delayer ? 10 : 30);
        fill(model, 10);
        QStringList expected = rowsOf(model);
        for (int i = 0; i < preview.size(); ++i)
            expected.insert(firstNew + i, preview.at(i));
        view->selectionModel()->clear();
        if (current >= 0)
            view->setCurrentIndex(model->index(current, 1));

        const char *button = insert ? "btn%1TemplateInsert" : "btn%1TemplateAppend";
        find<QPushButton>(&dialog, tabbed(button, delayer))->click();
        QCOMPARE(rowsOf(model), expected);
        QList<int> selected;
        for (const QModelIndex &index : view->selectionModel()->selectedRows())
            selected << index.row();
        std::sort(selected.begin(), selected.end());
        QCOMPARE(QPair(selected.first(), selected.last()),
                 QPair(firstNew, firstNew + preview.size() - 1));
        QCOMPARE(view->selectionModel()->selectedIndexes().size(),
                 preview.size() * model->columnCount());
        QCOMPARE(view->currentIndex(), model->index(firstNew, 0));
        QCOMPARE(find<QSpinBox>(&dialog, tabbed("sb%1Groups", delayer))->value(),
                 model->rowCount());
    }

    void stepCounterMarksTooLongSequence_data()
    {
        QTest::addColumn<bool>("delayer");
        QTest::newRow("list") << false;
        QTest::newRow("delayer") << true;
    }
    void stepCounterMarksTooLongSequence()
    {
        QFETCH(bool, delayer);
        Option option = hostOption();
        option.maxCount = 100;
        DialogProgrammer dialog(option, nullptr);
        auto *view = find<QTableView>(&dialog, tabbed("tv%1", delayer));
        auto *groups = find<QSpinBox>(&dialog, tabbed("sb%1Groups", delayer));
        auto counter = [groups] {
            return QPair(groups->value(), groups->styleSheet());
        };
        const QString red = QStringLiteral("background-color:#ff0000");
        // A preview of 100 steps: Sine of 100 s in 1 s steps, or 100 Fix Time groups.
        finishEdit(&dialog, delayer ? "sbDelayerTemplageGroups" : "sbListTempPeriod0", 100);
        find<QPushButton>(&dialog, tabbed("btn%1TemplateAppend", delayer))->click();
        QCOMPARE(counter(), QPair(100, QString()));
        QVERIFY(rightClick(view, "Append").consumed);
        QCOMPARE(counter(), QPair(101, red));
        view->selectionModel()->clear();
        view->setCurrentIndex(view->model()->index(50, 1));
        QVERIFY(rightClick(view, "Delete").consumed);
        QCOMPARE(counter(), QPair(100, QString()));
        // An edit of a cell refreshes the counter too.
        view->model()->insertRows(0, 1);
        QVERIFY(view->model()->setData(view->model()->index(0, 1), 0));
        QCOMPARE(counter(), QPair(101, red));
    }

    void contextMenu_data()
    {
        QTest::addColumn<bool>("delayer");
        QTest::addColumn<MenuCase>("c");
        static const char none[] = "Append+ Insert- | Delete- Clear-";
        static const char all[] = "Append+ Insert+ | Delete+ Clear+";
        static const std::pair<const char *, MenuCase> cases[] = {
            {"append to empty", {0, -1, "", "Append", none, "0", "", 0}},
            {"insert at 2 of 5", {5, 2, "", "Insert", all, "1 2 0 3 4 5", "", 2}},
            {"append after 5", {5, 2, "2", "Append", all, "1 2 3 4 5 0", "", 5}},
            {"delete 1 and 3", {5, 0, "3 1", "Delete", all, "1 3 5", "3-3 1-1", -1}},
            {"delete, nothing selected", {5, 2, "", "Delete", all, "1 2 3 4 5", "", -1}},
            {"clear", {5, 1, "1", "Clear", all, "", "0-4", -1}},
            {"clear, no current",
             {3, -1, "", "Clear", "Append+ Insert- | Delete- Clear+", "", "0-2", -1}},
            {"closed untouched", {2, 1, "", "", all, "1 2", "", -1}},
        };
        for (bool delayer : {false, true}) {
            for (const auto &c : cases)
                QTest::addRow("%s: %s", delayer ? "delayer" : "list", c.first)
                    << delayer << c.second;
        }
    }
    void contextMenu()
    {
        QFETCH(bool, delayer);
        QFETCH(MenuCase, c);
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *view = find<QTableView>(&dialog, tabbed("tv%1", delayer));
        QAbstractItemModel *model = view->model();
        if (c.rows > 0)
            fill(model, c.rows);
        QItemSelectionModel *selection = view->selectionModel();
        selection->clear();
        if (c.current >= 0)
            selection->setCurrentIndex(model->index(c.current, 1), QItemSelectionModel::NoUpdate);
        for (const QString &row : QString::fromLatin1(c.selected).split(' ', Qt::SkipEmptyParts)) {
            const int r = row.toInt(); // one cell of a row selects the row
            selection->select(model->index(r, r % model->columnCount()),
                              QItemSelectionModel::Select);
        }
        QSignalSpy removing(model, &QAbstractItemModel::rowsAboutToBeRemoved);
        QVERIFY(removing.isValid());

        const MenuRun run = rightClick(view, QString::fromLatin1(c.pick));
        QVERIFY(!run.hung);
        QVERIFY(run.consumed);
        QCOMPARE(run.entries, QString::fromLatin1(c.entries));
        QStringList left;
        double total = 0;
        for (int r = 0; r < model->rowCount(); ++r) {
            left << model->index(r, model->columnCount() - 1).data(Qt::EditRole).toString();
            total += left.last().toDouble();
        }
        QCOMPARE(left.join(QLatin1Char(' ')), QString::fromLatin1(c.times));
        QStringList removals;
        for (const QList<QVariant> &removal : qAsConst(removing))
            removals << removal.at(1).toString() + '-' + removal.at(2).toString();
        QCOMPARE(removals.join(QLatin1Char(' ')), QString::fromLatin1(c.removed));
        QCOMPARE(find<QSpinBox>(&dialog, tabbed("sb%1Groups", delayer))->value(),
                 model->rowCount());
        // The sequence plot spans the steps; with no time to show (none left, or a single
        // 0 s step) it falls back to a unit instead of keeping the scale of the steps gone.
        const double end = total > 0 ? total * 1000 : 1;
        const QCPRange range
            = find<QCustomPlot>(&dialog, tabbed("plot%1", delayer))->xAxis->range();
        QCOMPARE(range.lower, -end * 0.005);
        QCOMPARE(range.upper, end * 1.005);
        if (c.newRow >= 0) {
            QCOMPARE(view->currentIndex(), model->index(c.newRow, 1));
            QCOMPARE(rowsOf(model, Qt::DisplayRole).at(c.newRow),
                     delayer ? QStringLiteral("ON|0.000") : QStringLiteral("0.000|0.000|0.000"));
        }
    }

    void otherWidgetsKeepTheirContextMenu()
    {
        DialogProgrammer dialog(hostOption(), nullptr);
        for (const char *name : {"tvListTemplate", "tvDelayerTemplate", "plotList", "tabList"}) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(1, 1));
            const MenuRun run = rightClick(find(&dialog, name), QString());
            QVERIFY2(run.entries.isEmpty() && !run.hung, name); // no menu of the dialog
            QVERIFY2(!dialog.eventFilter(find(&dialog, name), &event), name);
        }
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        QVERIFY(!dialog.eventFilter(find(&dialog, "tvList"), &key));
    }

    void secondDialogChangesDecimals()
    {
        DialogProgrammer first(hostOption(), nullptr);
        find<QPushButton>(&first, "btnListTemplateAppend")->click();
        QAbstractItemModel *steps = modelOf(&first, "tvList");
        QCOMPARE(rowsOf(steps, Qt::DisplayRole).first(), QStringLiteral("1.500|3.000|1.000"));
        Option coarse = hostOption();
        coarse.name = QStringLiteral("Coarse Supply");
        coarse.timeDecimals = 1;
        coarse.voltageDecimals = 1;
        const DialogProgrammer second(coarse, nullptr);
        QCOMPARE(rowsOf(steps, Qt::DisplayRole).first(), QStringLiteral("1.5|3.000|1.0"));
    }

    void absurdTemplateIsRefusedAtOnce_data()
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
    void absurdTemplateIsRefusedAtOnce()
    {
        QFETCH(int, type);
        QFETCH(QString, edits);
        QFETCH(QString, steps);
        DialogProgrammer dialog(hostOption(), nullptr);
        auto *preview = modelOf(&dialog, "tvListTemplate");
        auto *invalid = invalidTextOf(find<QCustomPlot>(&dialog, "plotListTemplate"));
        auto *status = dialog.findChild<QStatusBar *>();
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

    void extremeEditorsOnZeroRange_data()
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
    // A channel that cannot move (0 to 0 V and A) and every template editor at one end of its
    // range: nothing may crash or read past a list, and no step may leave the channel.
    void extremeEditorsOnZeroRange()
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
        find<QComboBox>(&dialog, tabbed("cbb%1TempType", delayer))->setCurrentIndex(type);
        if (!delayer && atMaximum)
            find<QComboBox>(&dialog, "cbbListTempObject")->setCurrentIndex(1);
        const auto boxes = find(&dialog, delayer ? "groupBox_4" : "groupBox")
                               ->findChildren<QAbstractSpinBox *>();
        for (QAbstractSpinBox *box : boxes)
            box->setProperty("value", box->property(atMaximum ? "maximum" : "minimum"));
        emit boxes.last()->editingFinished();

        auto *preview = modelOf(&dialog, tabbed("tv%1Template", delayer));
        QVERIFY(preview->rowCount() <= (delayer ? 512 : kMaxTemplateSteps));
        for (const QString &row : rowsOf(preview, Qt::DisplayRole)) {
            QVERIFY2(row.section(QLatin1Char('|'), -1).toDouble() >= 0, qPrintable(row));
            if (!delayer)
                QVERIFY2(row.startsWith(QLatin1String("0.000|0.000|")), qPrintable(row));
        }
        if (delayer)
            QCOMPARE(invalidTextOf(find<QCustomPlot>(&dialog, "plotDelayerTemplate"))->visible(),
                     preview->rowCount() == 0);
        find<QPushButton>(&dialog, tabbed("btn%1TemplateAppend", delayer))->click();
        auto *view = find<QTableView>(&dialog, tabbed("tv%1", delayer));
        QCOMPARE(view->model()->rowCount(), preview->rowCount());
        QVERIFY(!rightClick(view, "Clear").hung);
        QCOMPARE(view->model()->rowCount(), 0);
    }
};

QTEST_MAIN(TestDialogProgrammer)
#include "tst_dialogprogrammer.moc"
