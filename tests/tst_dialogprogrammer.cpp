// Drives the programmer dialog offscreen as a user would: its widgets, template editors and
// previews, the splicing of previews into the sequences, step counters and table context menus.
#include "benchoption.h"
#include "dialogprogrammer.h"

#include <QtTest>
#include <QtWidgets>

#include <qcustomplot.h>

#include <memory>

using namespace tarn2::specific::orvo5000::programmer;
using test::benchOption;
using Cells = QList<QPair<int, int>>; // (row, column) of each cell

namespace {

const QString separator = QStringLiteral("separator");

// What a context menu offered: its entries in order (a separator as `separator`) and the ones
// that could be chosen.
struct ContextMenu
{
    bool opened = false;
    QStringList entries;
    QStringList enabled;
};

// Right-clicks `target`, notes the menu that opens and chooses `pick` with the keyboard, or closes
// the menu untouched when `pick` is empty or disabled.
ContextMenu rightClick(QWidget *target, const QString &pick = QString())
{
    ContextMenu seen;
    QTimer::singleShot(0, target, [&seen, pick] {
        QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        seen.opened = true;
        for (QAction *action : menu->actions()) {
            seen.entries << (action->isSeparator() ? separator : action->text());
            if (action->isEnabled() && !action->isSeparator())
                seen.enabled << action->text();
            if (action->text() == pick && action->isEnabled())
                menu->setActiveAction(action);
        }
        if (menu->activeAction() && menu->activeAction()->text() == pick)
            QTest::keyClick(menu, Qt::Key_Return);
        if (menu && menu->isVisible())
            menu->close();
    });
    // Closes any popup left open, so that no test can hang on a menu.
    QTimer failSafe;
    QObject::connect(&failSafe, &QTimer::timeout, &failSafe, [&seen] {
        while (QWidget *popup = QApplication::activePopupWidget()) {
            popup->close();
            seen.opened = false;
        }
    });
    failSafe.start(3000);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), target->mapToGlobal({4, 4}));
    QApplication::sendEvent(target, &event);
    return seen;
}

const QStringList allMenuEntries{QStringLiteral("Append"),
                                 QStringLiteral("Insert"),
                                 QStringLiteral("Delete"),
                                 QStringLiteral("Clear")};

// Sets a spin box as a user who typed the value and left the editor.
void enterValue(QAbstractSpinBox *editor, double value)
{
    editor->setProperty("value", value);
    emit editor->editingFinished();
}

// Adds `count` steps after the last, timed 1 s, 2 s, ... by their row, with no row selected.
void addTimedSteps(QTableView *table, int count)
{
    QAbstractItemModel *model = table->model();
    const int first = model->rowCount();
    QVERIFY(model->insertRows(first, count));
    const int time = model->columnCount() - 1;
    for (int row = first; row < model->rowCount(); ++row)
        QVERIFY(model->setData(model->index(row, time), row + 1.0));
    table->selectionModel()->clear();
}

// Makes a cell of `row` current without selecting anything, as a click on an empty area would.
void makeCurrent(QTableView *table, int row)
{
    table->selectionModel()->setCurrentIndex(table->model()->index(row, 1),
                                             QItemSelectionModel::NoUpdate);
}

// Selects one cell of `row`, leaving the current cell alone.
void selectCell(QTableView *table, int row, int column)
{
    table->selectionModel()->select(table->model()->index(row, column),
                                    QItemSelectionModel::Select);
}

QStringList columnTexts(const QTableView *table, int column)
{
    QStringList texts;
    const QAbstractItemModel *model = table->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts << model->index(row, column).data().toString();
    return texts;
}

// The time column is the last one on both tabs.
QStringList timeTexts(const QTableView *table)
{
    return columnTexts(table, table->model()->columnCount() - 1);
}

// A step as the table shows it, without its step number.
QStringList stepTexts(const QTableView *table, int row)
{
    QStringList texts;
    const QAbstractItemModel *model = table->model();
    for (int column = 1; column < model->columnCount(); ++column)
        texts << model->index(row, column).data().toString();
    return texts;
}

// Times as a table shows them, with the dialog's three decimals.
QStringList seconds(std::initializer_list<double> values)
{
    QStringList texts;
    for (double value : values)
        texts << QString::number(value, 'f', 3);
    return texts;
}

QList<int> rowsFrom(int first, int last)
{
    QList<int> rows;
    for (int row = first; row <= last; ++row)
        rows << row;
    return rows;
}

// The rows selected whole, in order.
QList<int> wholeRowsSelected(const QTableView *table)
{
    QList<int> rows;
    for (const QModelIndex &index : table->selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

// Cells selected outside whole rows.
int strayCellsSelected(const QTableView *table)
{
    const QModelIndexList cells = table->selectionModel()->selectedIndexes();
    return cells.size() - wholeRowsSelected(table).size() * table->model()->columnCount();
}

QCPCurve *curve(QCustomPlot *plot, int index = 0)
{
    return qobject_cast<QCPCurve *>(plot->plottable(index));
}

QList<QPointF> curvePoints(QCustomPlot *plot)
{
    QList<QPointF> points;
    for (const QCPCurveData &point : *curve(plot)->data())
        points << QPointF(point.key, point.value);
    return points;
}

QString plotTitle(QCustomPlot *plot)
{
    return qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0))->text();
}

// The mark a preview shows over its plot when the template makes no steps; empty while hidden.
QString invalidMark(QCustomPlot *plot)
{
    QCPAbstractItem *mark = plot->item(0);
    return mark->visible() ? qobject_cast<QCPItemText *>(mark)->text() : QString();
}

QStringList itemTexts(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

// The names one tab's sequence widgets have, for the tests that run the same on both tabs.
struct Tab
{
    QString table;
    QString plot;
    QString stepCounter;
    QString append;
    QString insert;
    // The editor that sets how many steps the default preview makes, and its first step.
    QString previewLength;
    QStringList firstPreviewStep;
};

Tab tabOf(UploadMode mode)
{
    if (mode == List)
        return {QStringLiteral("tvList"),
                QStringLiteral("plotList"),
                QStringLiteral("sbListGroups"),
                QStringLiteral("btnListTemplateAppend"),
                QStringLiteral("btnListTemplateInsert"),
                QStringLiteral("sbListTempPeriod0"),
                {QStringLiteral("1.500"), QStringLiteral("3.000"), QStringLiteral("1.000")}};
    return {QStringLiteral("tvDelayer"),
            QStringLiteral("plotDelayer"),
            QStringLiteral("sbDelayerGroups"),
            QStringLiteral("btnDelayerTemplateAppend"),
            QStringLiteral("btnDelayerTemplateInsert"),
            QStringLiteral("sbDelayerTemplageGroups"),
            {QStringLiteral("ON"), QStringLiteral("1.000")}};
}

void addTabRows()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("List") << int(List);
    QTest::newRow("Delayer") << int(Delayer);
}

} // namespace

class TestDialogProgrammer : public QObject
{
    Q_OBJECT

    QTemporaryDir settingsHome;
    std::unique_ptr<DialogProgrammer> dialog;

    template<typename T = QWidget> T *w(const QString &name)
    {
        T *found = dialog->findChild<T *>(name);
        if (!found)
            qFatal("no %s named %s", T::staticMetaObject.className(), qPrintable(name));
        return found;
    }
    void openDialog() { dialog = std::make_unique<DialogProgrammer>(benchOption(), nullptr); }
    // For the tests that run the same on both tabs: the tab of the data row being run.
    Tab openOnTheRowsTab()
    {
        QFETCH(int, mode);
        openDialog();
        return tabOf(UploadMode(mode));
    }
    void pickListTemplate(int type) { w<QComboBox>("cbbListTempType")->setCurrentIndex(type); }
    void enter(const QString &editor, double value)
    {
        enterValue(w<QAbstractSpinBox>(editor), value);
    }
    double valueOf(const QString &editor)
    {
        return w<QObject>(editor)->property("value").toDouble();
    }
    QString textOf(const QString &widget)
    {
        return w<QObject>(widget)->property("text").toString();
    }

private slots:
    void initTestCase()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(settingsHome.path()));
        QCoreApplication::setOrganizationName(QStringLiteral("TarnTests"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_dialogprogrammer"));
        QLocale::setDefault(QLocale::c());
    }
    // Every dialog writes its templates when it goes; each test starts from the defaults.
    void init() { QSettings().clear(); }
    void cleanup() { dialog.reset(); }

    void timeEditorsOfferAMillisecondToAnHour_data()
    {
        QTest::addColumn<QString>("editor");
        // clang-format off
        for (const char *name : {
                 "sbListTempInterval0", "sbListTempPeriod0", "sbListTempPeriod1",
                 "sbListTempWidth1", "sbListTempPeriod2", "sbListTempInterval2",
                 "sbListTempPeriod3", "sbListTempPeriod4", "sbListTempPeriod5",
                 "sbListTempInterval6", "sbListTempInterval7", "sbDelayerTempOnTime",
                 "sbDelayerTempOffTime", "sbDelayerTempIncBaseValue", "sbDelayerTempIncStep",
                 "sbDelayerTempDecBaseValue", "sbDelayerTempDecStep"})
            // clang-format on
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    // A time editor with fewer decimals than the instrument's would round its 1 ms minimum off.
    void timeEditorsOfferAMillisecondToAnHour()
    {
        QFETCH(QString, editor);
        openDialog();
        auto *spinBox = w<QDoubleSpinBox>(editor);
        QCOMPARE(spinBox->minimum(), 0.001);
        QCOMPARE(spinBox->maximum(), 3600.0);
        QCOMPARE(spinBox->suffix(), QStringLiteral("s"));
    }

    void numberEditorsOffer_data()
    {
        QTest::addColumn<QString>("editor");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<double>("value");
        QTest::newRow("sine period") << "sbListTempPeriod0" << 0.001 << 3600.0 << "s" << 30.0;
        QTest::newRow("exponent rate") << "sbListTempExpRate6" << 0.0 << 10.0 << "" << 5.0;
        QTest::newRow("ramp symmetry") << "sbListTempSymmetry2" << 0.0 << 100.0 << "%" << 50.0;
    }
    void numberEditorsOffer()
    {
        QFETCH(QString, editor);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(QString, suffix);
        QFETCH(double, value);
        openDialog();
        QObject *spinBox = w<QObject>(editor);
        QCOMPARE(spinBox->property("minimum").toDouble(), minimum);
        QCOMPARE(spinBox->property("maximum").toDouble(), maximum);
        QCOMPARE(spinBox->property("suffix").toString(), suffix);
        QCOMPARE(spinBox->property("value").toDouble(), value);
        QCOMPARE(spinBox->property("specialValueText").toString(), QString());
    }

    // Each tab offers the instrument's channels by name.
    void channelsOffered_data()
    {
        QTest::addColumn<QString>("comboBox");
        QTest::newRow("List") << "cbbListCH";
        QTest::newRow("Delayer") << "cbbDelayerCH";
    }
    void channelsOffered()
    {
        QFETCH(QString, comboBox);
        openDialog();
        QCOMPARE(itemTexts(w<QComboBox>(comboBox)), (QStringList{"CH1", "CH2", "CH3", "CH4"}));
    }

    // Choosing a template shows its page with the template's own defaults, not values typed on
    // that page before.
    void pulsePageShowsDefaultsNotStaleValues()
    {
        openDialog();
        enter("sbListTempPeriod1", 8);
        enter("sbListTempWidth1", 8);
        enter("sbListTempPulseCount1", 8);
        w<QCheckBox>("cbListTempInverted1")->click();
        pickListTemplate(1);
        QCOMPARE(w<QStackedWidget>("stackedWidget")->currentIndex(), 1);
        QCOMPARE(plotTitle(w<QCustomPlot>("plotListTemplate")), QStringLiteral("Pulse"));
        QCOMPARE(valueOf("sbListTempPeriod1"), 30.0);
        QCOMPARE(valueOf("sbListTempWidth1"), 15.0);
        QCOMPARE(valueOf("sbListTempPulseCount1"), 1.0);
        QCOMPARE(w<QCheckBox>("cbListTempInverted1")->isChecked(), false);
    }

    // Switching a template from voltage to current swaps its editors' units and ranges; the fixed
    // voltage of a Current template is kept as its fixed current too, on purpose.
    void templateSwitchesFromVoltageToCurrentAndBack()
    {
        openDialog();
        auto *plot = w<QCustomPlot>("plotListTemplate");
        auto *table = w<QTableView>("tvListTemplate");
        enter("sbListTempOtherValue", 1.25);
        enter("sbListTempMax", 20);
        enter("sbListTempMin", 2);
        QCOMPARE(curve(plot)->pen().color().name(), QStringLiteral("#0000ff"));
        QCOMPARE(textOf("lblListTempOtherValue"), QStringLiteral("Current:"));

        w<QComboBox>("cbbListTempObject")->setCurrentIndex(1);
        QCOMPARE(textOf("lblListTempOtherValue"), QStringLiteral("Voltage:"));
        QCOMPARE(textOf("sbListTempOtherValue"), QStringLiteral("3.0000V"));
        QCOMPARE(textOf("sbListTempMin"), QStringLiteral("0.000A"));
        QCOMPARE(textOf("sbListTempMax"), QStringLiteral("3.000A"));
        QCOMPARE(curve(plot)->pen().color().name(), QStringLiteral("#ff0000"));
        QCOMPARE(plot->yAxis->label(), QStringLiteral("Current(A)"));
        QCOMPARE(stepTexts(table, 0), (QStringList{"3.000", "1.500", "1.000"}));

        enter("sbListTempOtherValue", 5);
        w<QComboBox>("cbbListTempObject")->setCurrentIndex(0);
        QCOMPARE(stepTexts(table, 0), (QStringList{"11.000", "5.000", "1.000"}));
        QCOMPARE(textOf("sbListTempOtherValue"), QStringLiteral("3.200A"));
    }

    // CH4 regulates only up to 10 V and 1 A: choosing it clamps what was typed for a larger one.
    void smallerChannelClampsTheTemplate()
    {
        openDialog();
        enter("sbListTempMax", 25);
        enter("sbListTempOtherValue", 2.5);
        w<QComboBox>("cbbListCH")->setCurrentIndex(3);
        QCOMPARE(w<QDoubleSpinBox>("sbListTempMax")->maximum(), 10.0);
        QCOMPARE(stepTexts(w<QTableView>("tvListTemplate"), 7),
                 (QStringList{"9.973", "1.000", "1.000"}));
        pickListTemplate(1);
        pickListTemplate(0);
        QCOMPARE(valueOf("sbListTempMax"), 10.0);
        QCOMPARE(valueOf("sbListTempOtherValue"), 1.0);
    }

    // Reset restores the shown template only; Reset All every template.
    void resetAndResetAll()
    {
        openDialog();
        auto *table = w<QTableView>("tvListTemplate");
        enter("sbListTempPeriod0", 10);
        pickListTemplate(1);
        enter("sbListTempWidth1", 5);
        enter("sbListTempMax", 7);
        w<QPushButton>("btnReset")->click();
        QCOMPARE(valueOf("sbListTempWidth1"), 15.0);
        QCOMPARE(valueOf("sbListTempMax"), 3.0);
        pickListTemplate(0);
        QCOMPARE(valueOf("sbListTempPeriod0"), 10.0);
        QCOMPARE(table->model()->rowCount(), 10);

        pickListTemplate(1);
        enter("sbListTempWidth1", 5);
        pickListTemplate(0);
        w<QPushButton>("btnResetAll")->click();
        QCOMPARE(valueOf("sbListTempPeriod0"), 30.0);
        QCOMPARE(table->model()->rowCount(), 30);
        pickListTemplate(1);
        QCOMPARE(valueOf("sbListTempWidth1"), 15.0);
    }

    // The default Sine template: 30 steps of 1 s about 1.5 V. The axis stops one tick before the
    // last point, then grows by 1 % about its centre.
    void sinePreview()
    {
        openDialog();
        auto *plot = w<QCustomPlot>("plotListTemplate");
        auto *table = w<QTableView>("tvListTemplate");
        QCOMPARE(plotTitle(plot), QStringLiteral("Sine"));
        QCOMPARE(plot->xAxis->range().lower, -149.995);
        QCOMPARE(plot->xAxis->range().upper, 30148.995);
        QCOMPARE(table->model()->rowCount(), 30);
        QCOMPARE(stepTexts(table, 0), (QStringList{"1.500", "3.000", "1.000"}));
    }

    // The Delayer preview is titled by the List tab's template, on purpose. Its Off delay editor
    // shows one value and then keeps the On delay's, also on purpose.
    void delayerPreview()
    {
        openDialog();
        auto *plot = w<QCustomPlot>("plotDelayerTemplate");
        auto *table = w<QTableView>("tvDelayerTemplate");
        pickListTemplate(2);
        enter("sbDelayerTemplageGroups", 4);
        enter("sbDelayerTempOnTime", 2);
        QCOMPARE(columnTexts(table, 1), (QStringList{"ON", "OFF", "ON", "OFF"}));
        QCOMPARE(timeTexts(table), seconds({2, 1, 2, 1}));
        QCOMPARE(curvePoints(plot),
                 (QList<QPointF>{{0, 1},
                                 {2000, 1},
                                 {2000, 0},
                                 {3000, 0},
                                 {3000, 1},
                                 {5000, 1},
                                 {5000, 0},
                                 {6000, 0}}));

        w<QComboBox>("cbbDelayerTempPattern")->setCurrentIndex(0);
        w<QComboBox>("cbbDelayerTempType")->setCurrentIndex(1);
        w<QComboBox>("cbbDelayerTempType")->setCurrentIndex(0);
        QCOMPARE(valueOf("sbDelayerTempOffTime"), 2.0);
        enter("sbDelayerTemplageGroups", 2);
        QCOMPARE(columnTexts(table, 1), (QStringList{"OFF", "ON"}));
        QCOMPARE(timeTexts(table), seconds({2, 2}));
        QCOMPARE(plotTitle(plot), QStringLiteral("Ramp"));
    }

    // A decline from 1 s by 0.5 s reaches 0 s at its second step: no steps, and nothing to add.
    void declineReachingZeroMakesNoSteps()
    {
        openDialog();
        auto *plot = w<QCustomPlot>("plotDelayerTemplate");
        auto *table = w<QTableView>("tvDelayerTemplate");
        w<QComboBox>("cbbDelayerTempType")->setCurrentIndex(2);
        QCOMPARE(w<QStackedWidget>("stacWgt")->currentIndex(), 2);
        enter("sbDelayerTempDecBaseValue", 10);
        enter("sbDelayerTemplageGroups", 3);
        QCOMPARE(timeTexts(table), seconds({10, 9, 8}));
        QCOMPARE(invalidMark(plot), QString());

        enter("sbDelayerTempDecBaseValue", 1);
        enter("sbDelayerTempDecStep", 0.5);
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(invalidMark(plot), QStringLiteral("Invalid"));
        QCOMPARE(curvePoints(plot), (QList<QPointF>{{0, 1}, {1, 1}}));
        w<QPushButton>("btnDelayerTemplateAppend")->click();
        QCOMPARE(w<QTableView>("tvDelayer")->model()->rowCount(), 0);
    }

    // An hour at 1 ms, 512 times, is refused at once, before any of it is generated.
    void absurdTemplateIsRefusedQuickly()
    {
        openDialog();
        auto *plot = w<QCustomPlot>("plotListTemplate");
        auto *table = w<QTableView>("tvListTemplate");
        QElapsedTimer clock;
        clock.start();
        enter("sbListTempPeriod0", 3600);
        enter("sbListTempInterval0", 0.001);
        enter("sbListTempCycles0", 512);
        QVERIFY2(clock.elapsed() < 1000, "an absurd template must not be generated");
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(invalidMark(plot), QStringLiteral("Invalid"));
        auto *statusBar = w<QStatusBar>("statusBar");
        QCOMPARE(statusBar->currentMessage(),
                 QStringLiteral("This template would make 1843200000 steps; at most 1000000 are "
                                "allowed"));
        QCOMPARE(statusBar->styleSheet(), QStringLiteral("color:#ff0000"));

        w<QPushButton>("btnListTemplateAppend")->click();
        w<QPushButton>("btnListTemplateInsert")->click();
        QCOMPARE(w<QTableView>("tvList")->model()->rowCount(), 0);
        w<QPushButton>("btnReset")->click();
        QCOMPARE(table->model()->rowCount(), 30);
        QCOMPARE(invalidMark(plot), QString());
    }

    // A right-click offers what the current row and the selection allow, and the entry chosen
    // edits the steps, timed 1 s, 2 s, ... by their row; a new step takes 0 s. The step counter
    // and the plot's time axis follow.
    void contextMenu_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("current");    // -1: no row is current
        QTest::addColumn<Cells>("selected"); // (row, column) of each selected cell
        QTest::addColumn<QString>("pick");
        QTest::addColumn<QStringList>("enabled");
        QTest::addColumn<QStringList>("times");
        QTest::addColumn<int>("currentAfter"); // -1: not looked at
        QTest::addColumn<double>("axisEnd");
        for (const UploadMode mode : {List, Delayer}) {
            const auto add = [mode](const char *name) -> QTestData & {
                return QTest::addRow("%s: %s", mode == List ? "List" : "Delayer", name)
                       << int(mode);
            };
            add("Append on an empty table") << 0 << -1 << Cells{} << "Append"
                                            << QStringList{"Append"} << seconds({0}) << 0 << 1.005;
            add("Insert before the current row") << 5 << 2 << Cells{} << "Insert" << allMenuEntries
                                                 << seconds({1, 2, 0, 3, 4, 5}) << 2 << 15075.0;
            add("Append after the last row")
                << 5 << 2 << Cells{{2, 2}} << "Append" << allMenuEntries
                << seconds({1, 2, 3, 4, 5, 0}) << 5 << 15075.0;
            add("Delete the rows with a selected cell")
                << 5 << 0 << Cells{{3, 0}, {1, 1}} << "Delete" << allMenuEntries
                << seconds({1, 3, 5}) << -1 << 9045.0;
            add("Delete with nothing selected") << 5 << 2 << Cells{} << "Delete" << allMenuEntries
                                                << seconds({1, 2, 3, 4, 5}) << -1 << 15075.0;
            add("Clear") << 5 << 1 << Cells{{1, 1}} << "Clear" << allMenuEntries << QStringList()
                         << -1 << 1.005;
            // Without a current row there is nothing to insert before or delete, but still all to
            // clear.
            add("Clear without a current row")
                << 3 << -1 << Cells{} << "Clear" << QStringList{"Append", "Clear"} << QStringList()
                << -1 << 1.005;
        }
    }
    void contextMenu()
    {
        QFETCH(int, steps);
        QFETCH(int, current);
        QFETCH(Cells, selected);
        QFETCH(QString, pick);
        QFETCH(QStringList, enabled);
        QFETCH(QStringList, times);
        QFETCH(int, currentAfter);
        QFETCH(double, axisEnd);
        const Tab tab = openOnTheRowsTab();
        auto *table = w<QTableView>(tab.table);
        if (steps > 0)
            addTimedSteps(table, steps);
        if (current >= 0)
            makeCurrent(table, current);
        for (const auto &cell : selected)
            selectCell(table, cell.first, cell.second);
        const ContextMenu menu = rightClick(table, pick);
        QVERIFY(menu.opened);
        QCOMPARE(menu.entries, (QStringList{"Append", "Insert", separator, "Delete", "Clear"}));
        QCOMPARE(menu.enabled, enabled);
        QCOMPARE(timeTexts(table), times);
        if (currentAfter >= 0) {
            QCOMPARE(table->currentIndex().row(), currentAfter);
            QCOMPARE(table->currentIndex().column(), 1);
        }
        QCOMPARE(valueOf(tab.stepCounter), double(times.size()));
        QCOMPARE(w<QCustomPlot>(tab.plot)->xAxis->range().upper, axisEnd);
    }

    // The preview goes in before the current row, or after the last without one, and is selected
    // whole, its first cell current.
    void previewSplicedIn_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("previewLength");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("current"); // -1: no row is current
        QTest::addColumn<bool>("insert"); // by the Insert button, or by Append
        QTest::addColumn<int>("firstAdded");
        QTest::addColumn<QStringList>("times");
        const QStringList thirtySeconds = QVector<QString>(30, QStringLiteral("1.000")).toList();
        for (const UploadMode mode : {List, Delayer}) {
            const auto add = [mode](const char *name) -> QTestData & {
                return QTest::addRow("%s: %s", mode == List ? "List" : "Delayer", name)
                       << int(mode);
            };
            add("inserted before the current row")
                << 30 << 10 << 4 << true << 4
                << seconds({1, 2, 3, 4}) + thirtySeconds + seconds({5, 6, 7, 8, 9, 10});
            add("inserted at the end without a current row")
                << 3 << 2 << -1 << true << 2 << seconds({1, 2, 1, 1, 1});
            add("appended after the last row")
                << 3 << 2 << 0 << false << 2 << seconds({1, 2, 1, 1, 1});
        }
    }
    void previewSplicedIn()
    {
        QFETCH(int, previewLength);
        QFETCH(int, steps);
        QFETCH(int, current);
        QFETCH(bool, insert);
        QFETCH(int, firstAdded);
        QFETCH(QStringList, times);
        const Tab tab = openOnTheRowsTab();
        auto *table = w<QTableView>(tab.table);
        enter(tab.previewLength, previewLength);
        addTimedSteps(table, steps);
        if (current >= 0)
            makeCurrent(table, current);
        w<QPushButton>(insert ? tab.insert : tab.append)->click();
        QCOMPARE(timeTexts(table), times);
        QCOMPARE(stepTexts(table, firstAdded), tab.firstPreviewStep);
        QCOMPARE(wholeRowsSelected(table), rowsFrom(firstAdded, firstAdded + previewLength - 1));
        QCOMPARE(strayCellsSelected(table), 0);
        QCOMPARE(table->currentIndex().row(), firstAdded);
        QCOMPARE(table->currentIndex().column(), 0);
        QCOMPARE(valueOf(tab.stepCounter), double(times.size()));
    }

    // The step counter turns red past the instrument's 2048 steps, and back when under again.
    void stepCounterMarksTooManySteps_data() { addTabRows(); }
    void stepCounterMarksTooManySteps()
    {
        const Tab tab = openOnTheRowsTab();
        const QString red = QStringLiteral("background-color:#ff0000");
        auto *table = w<QTableView>(tab.table);
        auto *counter = w<QSpinBox>(tab.stepCounter);
        enter(tab.previewLength, 512);
        for (int i = 0; i < 4; ++i)
            w<QPushButton>(tab.append)->click();
        QCOMPARE(counter->value(), 2048);
        QCOMPARE(counter->styleSheet(), QString());

        QVERIFY(rightClick(table, QStringLiteral("Append")).opened);
        QCOMPARE(counter->value(), 2049);
        QCOMPARE(counter->styleSheet(), red);

        makeCurrent(table, 50);
        QVERIFY(rightClick(table, QStringLiteral("Delete")).opened);
        QCOMPARE(counter->value(), 2048);
        QCOMPARE(counter->styleSheet(), QString());

        addTimedSteps(table, 1);
        QCOMPARE(counter->styleSheet(), red);
    }

    // The sequence plot draws the voltages on the blue curve against the left axis and the
    // currents on the red one against the right axis, each at the level of its own column.
    void sequencePlotDrawsVoltageAndCurrentEachOnItsOwnCurve()
    {
        openDialog();
        enter("sbListTempOtherValue", 1.25); // the template's fixed current
        w<QPushButton>("btnListTemplateAppend")->click();
        auto *plot = w<QCustomPlot>("plotList");
        QCOMPARE(plot->plottableCount(), 2);
        QCPCurve *voltage = curve(plot, 0);
        QCPCurve *current = curve(plot, 1);
        QCOMPARE(voltage->pen().color().name(), QStringLiteral("#0000ff"));
        QCOMPARE(current->pen().color().name(), QStringLiteral("#ff0000"));
        QCOMPARE(voltage->valueAxis(), plot->yAxis);
        QCOMPARE(current->valueAxis(), plot->yAxis2);
        const QStringList shown = columnTexts(w<QTableView>("tvList"), 1);
        const QSet<QString> voltages(shown.begin(), shown.end());
        QVERIFY(voltages.size() > 2);
        for (const QCPCurveData &point : *current->data())
            QCOMPARE(point.value, 1.25);
        for (const QCPCurveData &point : *voltage->data())
            QVERIFY2(voltages.contains(QString::number(point.value, 'f', 3)),
                     qPrintable(QString::number(point.value)));
    }

    // The option is process-wide: a second dialog changes the decimals the first one shows.
    void secondDialogChangesDecimals()
    {
        openDialog();
        auto *table = w<QTableView>("tvList");
        w<QPushButton>("btnListTemplateAppend")->click();
        QCOMPARE(stepTexts(table, 0), (QStringList{"1.500", "3.000", "1.000"}));
        Option coarse = benchOption();
        coarse.timeDecimals = 1;
        coarse.voltageDecimals = 1;
        const DialogProgrammer second(coarse, nullptr);
        QCOMPARE(stepTexts(table, 0), (QStringList{"1.5", "3.000", "1.0"}));
    }

    // Hiding an active dialog commits an open cell editor into its table's model, in ~QDialog:
    // after the step lists are gone, unless the tables went first. Gone first, they take the
    // editor and the model along without a commit.
    void shownDialogWithAnOpenEditorIsDeletedCleanly()
    {
        openDialog();
        w<QPushButton>("btnListTemplateAppend")->click();
        w<QPushButton>("btnDelayerTemplateAppend")->click();
        dialog->show();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        auto *table = w<QTableView>("tvList");
        table->edit(table->model()->index(2, 1));
        QPointer<QDoubleSpinBox> editor
            = qobject_cast<QDoubleSpinBox *>(QApplication::focusWidget());
        QVERIFY(editor);
        QPointer<QAbstractItemModel> model = table->model();
        QSignalSpy committed(model.data(), &QAbstractItemModel::dataChanged);

        dialog.reset();
        QVERIFY(editor.isNull());
        QVERIFY(model.isNull());
        QCOMPARE(committed.count(), 0);
    }
};

QTEST_MAIN(TestDialogProgrammer)
#include "tst_dialogprogrammer.moc"
