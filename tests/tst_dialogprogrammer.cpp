// Drives the programmer dialog offscreen as a user would: its widgets, template editors and
// previews, the splicing of previews into the sequences, step counters and table context menus.
#include "dialogprogrammer.h"

#include <QtTest>
#include <QtWidgets>

#include <qcustomplot.h>

#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

// The host's instrument: millisecond times, 2048 steps, three 32 V / 3.2 A channels, a smaller one.
static Option hostOption()
{
    Option option{"Bench Supply", 3, 0.001, 99999, 3, 3, {}, 2048, true, true, true};
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i),
                                {{0.0, i < 4 ? 32.0 : 10.0}, {0.0, i < 4 ? 3.2 : 1.0}}});
    return option;
}

// Right-clicks `target`, notes the entries of the menu that opens ("Append+ Insert- | Delete-":
// enabled or not, "|" a separator) and picks `pick` with the keyboard, or closes it untouched.
static QString rightClick(QWidget *target, const QString &pick)
{
    QStringList entries;
    QTimer::singleShot(0, target, [&entries, pick] {
        QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
            entries << (action->isSeparator() ? QStringLiteral("|")
                                              : action->text() + (action->isEnabled() ? '+' : '-'));
            if (action->text() == pick && action->isEnabled())
                menu->setActiveAction(action);
        }
        if (menu && menu->activeAction() && menu->activeAction()->text() == pick)
            QTest::keyClick(menu, Qt::Key_Return);
        if (menu && menu->isVisible())
            menu->close();
    });
    QTimer failSafe; // closes any popup left open, so that no test can hang on a menu
    QObject::connect(&failSafe, &QTimer::timeout, &failSafe, [&entries] {
        for (; QWidget *popup = QApplication::activePopupWidget(); entries = QStringList{"hung"})
            popup->close();
    });
    failSafe.start(3000);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), target->mapToGlobal({4, 4}));
    return QApplication::sendEvent(target, &event) ? entries.join(' ') : "passed on";
}

class TestDialogProgrammer : public QObject
{
    Q_OBJECT

    QTemporaryDir settingsHome;
    std::unique_ptr<DialogProgrammer> dialog;

    template<typename T = QWidget> T *w(const QString &n) { return dialog->findChild<T *>(n); }

    // A fact of the dialog as text: "table>Entry" right-clicks a table and picks Entry, giving the
    // menu's entries; "name.fact" a fact of a plot, a table or an editor, else a property.
    QString probe(const QString &what)
    {
        if (what.contains('>'))
            return rightClick(w(what.section('>', 0, 0)), what.section('>', 1));
        const QString fact = what.section('.', 1);
        QObject *object = w<QObject>(what.section('.', 0, 0));
        QStringList list;
        if (!object)
            return "no object " + what;
        if (auto *plot = qobject_cast<QCustomPlot *>(object)) {
            auto *curve = qobject_cast<QCPCurve *>(plot->plottable(0));
            const QCPRange x = plot->xAxis->range();
            for (const QCPCurveData &point : *curve->data())
                list << QStringLiteral("%1,%2").arg(point.key).arg(point.value);
            if (fact == "title")
                return qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0))->text();
            if (fact == "invalid") // shown when the template makes no steps
                return plot->item(0)->visible() ? qobject_cast<QCPItemText *>(plot->item(0))->text()
                                                : QString();
            const QMap<QString, QString> facts{{"pen", curve->pen().color().name()},
                                               {"ylabel", plot->yAxis->label()},
                                               {"points", list.join(' ')}};
            return facts.value(
                fact, QStringLiteral("%1..%2").arg(x.lower, 0, 'g', 9).arg(x.upper, 0, 'g', 9));
        }
        if (auto *view = qobject_cast<QTableView *>(object)) {
            const QAbstractItemModel *model = view->model();
            const int rows = model->rowCount(), last = model->columnCount() - 1;
            const int n = fact == "times" ? last : fact.mid(3).toInt(); // of "rowN", "colN"
            QModelIndexList picked = view->selectionModel()->selectedIndexes();
            std::sort(picked.begin(), picked.end());
            const int top = picked.value(0).row(), end = picked.isEmpty() ? 0 : picked.last().row();
            const QModelIndex current = view->currentIndex();
            if (fact == "count")
                return QString::number(rows);
            if (fact == "current")
                return QStringLiteral("%1,%2").arg(current.row()).arg(current.column());
            if (fact == "selected") // one block of whole rows
                return QStringLiteral("%1-%2").arg(top).arg(end)
                       + (picked.size() == (end - top + 1) * (last + 1) ? "" : " partly");
            for (int c = 1; fact.startsWith("row") && c <= last; ++c) // the step number left out
                list << model->index(n, c).data().toString();
            for (int r = 0; !fact.startsWith("row") && r < rows; ++r) // "colN", "times"
                list << model->index(r, n).data().toString();
            return list.join(fact.startsWith("row") ? '|' : ' ');
        }
        if (fact == "message")
            return qobject_cast<QStatusBar *>(object)->currentMessage();
        if (fact != "offer") {
            const QVariant value = object->property(qPrintable(fact));
            return value.isValid() ? value.toString() : "no property " + fact;
        }
        auto *combo = qobject_cast<QComboBox *>(object);
        for (int i = 0; combo && i < combo->count(); ++i)
            list << combo->itemText(i) + '=' + combo->itemData(i).toString();
        for (const char *property : {"minimum", "maximum", "suffix", "value", "specialValueText"})
            list << object->property(property).toString();
        list.removeAll(QString());
        return list.join(", ");
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

    // The sequence plot draws the voltages on the blue curve against the left axis and the
    // currents on the red one against the right axis, each at the level of its own column.
    void sequencePlotDrawsVoltageAndCurrentEachOnItsOwnCurve()
    {
        dialog = std::make_unique<DialogProgrammer>(hostOption());
        w<QDoubleSpinBox>("sbListTempOtherValue")->setValue(1.25); // the template's fixed current
        w<QDoubleSpinBox>("sbListTempOtherValue")->editingFinished();
        w<QPushButton>("btnListTemplateAppend")->click();
        auto *plot = w<QCustomPlot>("plotList");
        QCOMPARE(plot->plottableCount(), 2);
        auto *voltage = qobject_cast<QCPCurve *>(plot->plottable(0));
        auto *current = qobject_cast<QCPCurve *>(plot->plottable(1));
        QCOMPARE(voltage->pen().color().name(), QStringLiteral("#0000ff"));
        QCOMPARE(current->pen().color().name(), QStringLiteral("#ff0000"));
        QCOMPARE(voltage->valueAxis(), plot->yAxis);
        QCOMPARE(current->valueAxis(), plot->yAxis2);
        QAbstractItemModel *table = w<QTableView>("tvList")->model();
        QSet<QString> voltages;
        for (int row = 0; row < table->rowCount(); ++row)
            voltages << table->index(row, 1).data().toString();
        QVERIFY(voltages.size() > 2);
        for (const QCPCurveData &point : *current->data())
            QCOMPARE(point.value, 1.25);
        for (const QCPCurveData &point : *voltage->data())
            QVERIFY2(voltages.contains(QString::number(point.value, 'f', 3)),
                     qPrintable(QString::number(point.value)));
    }

    void widgetTree_data()
    {
        QTest::addColumn<QStringList>("names");
        // Each class, then the objects of that class.
        const QString tree = QStringLiteral(R"(
QAction actionSaveList actionloadList actionSaveDelayer actionLoadDelayer actionListUpload
actionDelayerUpload QGridLayout gridLayout_30 QTabWidget tabWidget QWidget tabList tabDelayer page0
page1 page2 page3 page4 page5 page6 page7 pageFixTime pageIncrease pageDecline widget_4 widget_5
widget_6 widget_7 widget_8 widget_9 widget_10 widget_11 QGroupBox groupBox groupBox_2 gbBasic
groupBox_4 groupBox_3 gbBasic_2 QLabel lblListTempOtherValue lblListTempMax label_10 lblListTempMin
label_8 lblListTempIndex_10 lblListTempIndex_6 lblListTempIndex_9 label_3 lblListTempIndex_11
label_6 lblListTempIndex_12 label_11 lblListTempIndex_13 lblListTempIndex_2 lblListTempIndex_14
lblListTempIndex_3 label label_7 label_4 label_2 label_9 label_29 label_20 label_14 label_15
label_16 label_17 QDoubleSpinBox sbListTempOtherValue sbListTempMax sbListTempMin
sbListTempInterval0 sbListTempPeriod0 sbListTempPeriod1 sbListTempWidth1 sbListTempPeriod2
sbListTempInterval2 sbListTempPeriod3 sbListTempPeriod4 sbListTempPeriod5 sbListTempInterval6
sbListTempInterval7 sbDelayerTempOnTime sbDelayerTempOffTime sbDelayerTempIncBaseValue
sbDelayerTempIncStep sbDelayerTempDecBaseValue sbDelayerTempDecStep QSpinBox sbListTempCycles0
sbListTempPulseCount1 sbListTempSymmetry2 sbListTempSteps3 sbListTempSteps4 sbListTempSteps5
sbListTempExpGroups6 sbListTempExpRate6 sbListTempExpGroups7 sbListTempExpRate7 sbListCycles
sbListGroups sbDelayerTemplageGroups sbDelayerCycles sbDelayerGroups QComboBox cbbListTempType
cbbListTempObject cbbListCH cbbListEndState cbbDelayerTempPattern cbbDelayerTempType cbbDelayerCH
cbbDelayerEndState QPushButton btnReset btnResetAll btnListTemplateInsert btnListTemplateAppend
btnListLoad btnListSave btnListUpload btnDelayerTemplateInsert btnDelayerTemplateAppend
btnDelayerLoad btnDelayerSave btnDelayerUpload QCheckBox cbListTempInverted0 cbListTempInverted1
cbListTempInverted2 QStackedWidget stackedWidget stacWgt QSplitter splitter splitter_3 splitter_2
splitter_4 QTableView tvListTemplate tvList tvDelayerTemplate tvDelayer QToolBar toolbarListData
toolbarDelayerData QCustomPlot plotListTemplate plotList plotDelayerTemplate plotDelayer)");
        for (const QString &kind :
             tree.simplified().split(QRegularExpression(QStringLiteral(" (?=Q)"))))
            QTest::newRow(qPrintable(kind.section(' ', 0, 0))) << kind.split(' ');
    }
    // Each named object once, of its class; a time editor with fewer decimals rounds 0.001 off.
    void widgetTree()
    {
        QFETCH(QStringList, names);
        dialog = std::make_unique<DialogProgrammer>(hostOption(), nullptr);
        QCOMPARE(dialog->objectName(), QStringLiteral("DialogProgrammer"));
        for (const QString &name : names.mid(1)) {
            const QList<QObject *> found = dialog->findChildren<QObject *>(name);
            QVERIFY2(found.size() == 1, qPrintable(name));
            QCOMPARE(name + ' ' + found.first()->metaObject()->className(), name + ' ' + names[0]);
            if (name.contains(QRegularExpression("^sb(ListTemp(Per|Int|Wid)|DelayerTemp[OID])")))
                QVERIFY2(probe(name + ".offer").startsWith("0.001, 3600, s, "), qPrintable(name));
        }
    }

    // A row per paragraph, "name: statements", "//" opening a comment. The rows of `tabs` run on
    // both tabs: %1 is the tab, %2 its preview length's editor, %3 its preview's first step.
    void scripts_data()
    {
        QTest::addColumn<QString>("script");
        static const char common[] = R"(
editors offer: sbListTempPeriod0.offer == 0.001, 3600, s, 30; sbListTempExpRate6.offer == 0, 10, 5;
 sbListTempSymmetry2.offer == 0, 100, %, 50; cbbDelayerCH.offer == CH1=, CH2=, CH3=, CH4=;
 cbbListCH.offer == CH1=, CH2=, CH3=, CH4=; cbbListEndState.offer == Output Off=OFF, Output On=ON;
 cbbDelayerEndState.offer == Output Off=OFF, Output On=ON, Last=LAST
Pulse fills its page, not stale values: sbListTempPeriod1=8; sbListTempWidth1=8;
 sbListTempPulseCount1=8; cbListTempInverted1!; cbbListTempType=1; stackedWidget.currentIndex == 1;
 plotListTemplate.title == Pulse; sbListTempPeriod1.value == 30; sbListTempWidth1.value == 15;
 sbListTempPulseCount1.value == 1; cbListTempInverted1.checked == false
// The fixed voltage of a Current template is kept as its fixed current too, on purpose.
Voltage to Current and back: sbListTempOtherValue=1.25; sbListTempMax=20; sbListTempMin=2;
 plotListTemplate.pen == #0000ff; lblListTempOtherValue.text == Current:; cbbListTempObject=1;
 lblListTempOtherValue.text == Voltage:; sbListTempOtherValue.text == 3.0000V;
 sbListTempMin.text == 0.000A; sbListTempMax.text == 3.000A; plotListTemplate.pen == #ff0000;
 plotListTemplate.ylabel == Current(A); tvListTemplate.row0 == 3.000|1.500|1.000;
 sbListTempOtherValue=5; cbbListTempObject=0; tvListTemplate.row0 == 11.000|5.000|1.000;
 sbListTempOtherValue.text == 3.200A
smaller channel clamps: sbListTempMax=25; sbListTempOtherValue=2.5; cbbListCH=3;
 sbListTempMax.maximum == 10; tvListTemplate.row7 == 9.973|1.000|1.000; cbbListTempType=1;
 cbbListTempType=0; sbListTempMax.value == 10; sbListTempOtherValue.value == 1
Reset, Reset All: sbListTempPeriod0=10; cbbListTempType=1; sbListTempWidth1=5; sbListTempMax=7;
 btnReset!; sbListTempWidth1.value == 15; sbListTempMax.value == 3; cbbListTempType=0;
 sbListTempPeriod0.value == 10; tvListTemplate.count == 10; cbbListTempType=1; sbListTempWidth1=5;
 cbbListTempType=0; btnResetAll!; sbListTempPeriod0.value == 30; tvListTemplate.count == 30;
 cbbListTempType=1; sbListTempWidth1.value == 15
// The axis stops one tick before the last point, then grows by 1 % about its centre.
Sine preview: plotListTemplate.title == Sine; plotListTemplate.xrange == -149.995..30148.995;
 tvListTemplate.col1 == 1.500 1.812 2.110 2.382 2.615 2.799 2.927 2.992 2.992 2.927 2.799 2.615
 2.382 2.110 1.812 1.500 1.188 0.890 0.618 0.385 0.201 0.073 0.008 0.008 0.073 0.201 0.385 0.618
 0.890 1.188; tvListTemplate.row0 == 1.500|3.000|1.000
// On purpose: the List template titles the Delayer preview; Off Delay shows and then stores On.
Delayer preview: cbbListTempType=2; sbDelayerTemplageGroups=4; sbDelayerTempOnTime=2;
 tvDelayerTemplate.col1 == ON OFF ON OFF; tvDelayerTemplate.times == 2.000 1.000 2.000 1.000;
 plotDelayerTemplate.points == 0,1 2000,1 2000,0 3000,0 3000,1 5000,1 5000,0 6000,0;
 cbbDelayerTempPattern=0; cbbDelayerTempType=1; cbbDelayerTempType=0;
 sbDelayerTempOffTime.value == 2; sbDelayerTemplageGroups=2; tvDelayerTemplate.col1 == OFF ON;
 tvDelayerTemplate.times == 2.000 2.000; plotDelayerTemplate.title == Ramp
Decline of 1 s by 0.5 s reaching 0 s: cbbDelayerTempType=2; stacWgt.currentIndex == 2;
 sbDelayerTempDecBaseValue=10; sbDelayerTemplageGroups=3;
 tvDelayerTemplate.times == 10.000 9.000 8.000; plotDelayerTemplate.invalid == ;
 sbDelayerTempDecBaseValue=1; sbDelayerTempDecStep=0.5; tvDelayerTemplate.count == 0;
 plotDelayerTemplate.invalid == Invalid; plotDelayerTemplate.points == 0,1 1,1;
 btnDelayerTemplateAppend!; tvDelayer.count == 0
absurd template: sbListTempPeriod0=3600; sbListTempInterval0=0.001; sbListTempCycles0=512;
 tvListTemplate.count == 0; plotListTemplate.invalid == Invalid;
 statusBar.message == This template would make 1843200000 steps\; at most 1000000 are allowed;
 statusBar.styleSheet == color:#ff0000; btnListTemplateAppend!; btnListTemplateInsert!;
 tvList.count == 0; btnReset!; tvListTemplate.count == 30; plotListTemplate.invalid ==)";
        static const char tabs[] = R"(
append to empty: tv%1>Append == Append+ Insert- | Delete- Clear-; tv%1.times == 0.000;
 tv%1.current == 0,1; sb%1Groups.value == 1
insert at 2 of 5: tv%1+=5; tv%1=2; tv%1>Insert == Append+ Insert+ | Delete+ Clear+;
 tv%1.current == 2,1; tv%1.times == 1.000 2.000 0.000 3.000 4.000 5.000
append after 5: tv%1+=5; tv%1=2 2; tv%1>Append == Append+ Insert+ | Delete+ Clear+;
 tv%1.times == 1.000 2.000 3.000 4.000 5.000 0.000; tv%1.current == 5,1
delete 3 then 1: tv%1+=5; tv%1=0 3 1; tv%1>Delete == Append+ Insert+ | Delete+ Clear+;
 tv%1.times == 1.000 3.000 5.000; sb%1Groups.value == 3; plot%1.xrange == -45..9045
delete unselected: tv%1+=5; tv%1=2; tv%1>Delete == Append+ Insert+ | Delete+ Clear+; tv%1.count == 5
clear: tv%1+=5; tv%1=1 1; tv%1>Clear == Append+ Insert+ | Delete+ Clear+; tv%1.count == 0;
 sb%1Groups.value == 0; plot%1.xrange == -0.005..1.005
clear, no current: tv%1+=3; tv%1>Clear == Append+ Insert- | Delete- Clear+; tv%1.count == 0
insert 30 at 4 of 10: %2=30; tv%1+=10; tv%1=4; btn%1TemplateInsert!; tv%1.count == 40;
 tv%1.selected == 4-33; tv%1.current == 4,0; sb%1Groups.value == 40; tv%1.row4 == %3;
 tv%1.times == 1.000 2.000 3.000 4.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000
 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000 1.000
 1.000 1.000 1.000 1.000 5.000 6.000 7.000 8.000 9.000 10.000
insert, no current: %2=3; tv%1+=2; btn%1TemplateInsert!; tv%1.row2 == %3;
 tv%1.times == 1.000 2.000 1.000 1.000 1.000; tv%1.selected == 2-4; sb%1Groups.value == 5
append: %2=3; tv%1+=2; tv%1=0; btn%1TemplateAppend!; tv%1.row2 == %3;
 tv%1.times == 1.000 2.000 1.000 1.000 1.000; tv%1.selected == 2-4; tv%1.current == 2,0
step counter: %2=512; btn%1TemplateAppend!; btn%1TemplateAppend!; btn%1TemplateAppend!;
 btn%1TemplateAppend!; sb%1Groups.value == 2048; sb%1Groups.styleSheet == ; tv%1>Append;
 sb%1Groups.value == 2049; sb%1Groups.styleSheet == background-color:#ff0000; tv%1=50; tv%1>Delete;
 sb%1Groups.value == 2048; sb%1Groups.styleSheet == ; tv%1+=1;
 sb%1Groups.styleSheet == background-color:#ff0000)";
        static const QRegularExpression paragraph(QStringLiteral("\\n(?=\\S)"));
        for (const QString tab : {"", "List", "Delayer"}) {
            const bool list = tab == "List";
            for (const QString &row : QString(tab.isEmpty() ? common : tabs).split(paragraph)) {
                if (!row.trimmed().isEmpty() && !row.startsWith("//"))
                    QTest::newRow(qPrintable((tab + ' ' + row.section(':', 0, 0)).trimmed()))
                        << row.section(':', 1)
                               .replace("%1", tab)
                               .replace("%2",
                                        list ? "sbListTempPeriod0" : "sbDelayerTemplageGroups")
                               .replace("%3", list ? "1.500|3.000|1.000" : "ON|1.000");
            }
        }
    }
    // Statements split at ";" ("\;" stays text): "probe == text" compares; "x=v" sets a combo box's
    // index, a spin box's value (finishing the edit) or a table's current and selected rows; "x!"
    // clicks; "table+=n" adds n steps timed on from the row count, unselected; "table>E" picks E.
    void scripts()
    {
        QFETCH(QString, script);
        static const QRegularExpression form(QStringLiteral(R"(^(\w+)(\+=|=|!|>)(.*)$)"));
        dialog = std::make_unique<DialogProgrammer>(hostOption(), nullptr);
        for (QString statement : script.split(QRegularExpression(QStringLiteral(R"((?<!\\);)")))) {
            statement = statement.simplified().replace("\\;", ";");
            const int equals = statement.indexOf("==");
            const QRegularExpressionMatch match = form.match(statement);
            QObject *object = match.hasMatch() ? w<QObject>(match.captured(1)) : nullptr;
            const QString op = match.captured(2), value = match.captured(3);
            auto *view = qobject_cast<QTableView *>(object);
            QAbstractItemModel *model = view ? view->model() : nullptr;
            const QDeadlineTimer second(1000); // no statement may take a second
            QVERIFY2(equals >= 0 || object, qPrintable(statement));
            if (equals >= 0) {
                const QString actual = probe(statement.left(equals).trimmed());
                QVERIFY2(actual == statement.mid(equals + 2).trimmed(),
                         qPrintable(statement + " -> " + actual));
            } else if (op == "!") {
                qobject_cast<QAbstractButton *>(object)->click();
            } else if (op == ">") {
                QVERIFY2(rightClick(view, value).startsWith("Append+"), qPrintable(statement));
            } else if (op == "+=") {
                const int first = model->rowCount();
                QVERIFY(model->insertRows(first, value.toInt()));
                for (int r = first; r < model->rowCount(); ++r)
                    QVERIFY(model->setData(model->index(r, model->columnCount() - 1), r + 1.0));
                view->selectionModel()->clear();
            } else if (view) { // the current row, then rows to select a cell of
                const QStringList rows = value.split(' ');
                view->selectionModel()->setCurrentIndex(model->index(rows[0].toInt(), 1),
                                                        QItemSelectionModel::NoUpdate);
                for (const QString &row : rows.mid(1))
                    view->selectionModel()->select(model->index(row.toInt(), row.toInt() % 3),
                                                   QItemSelectionModel::Select);
            } else if (auto *combo = qobject_cast<QComboBox *>(object)) {
                combo->setCurrentIndex(value.toInt());
            } else {
                object->setProperty("value", value.toDouble());
                emit qobject_cast<QAbstractSpinBox *>(object)->editingFinished();
            }
            QVERIFY2(!second.hasExpired(), qPrintable(statement));
        }
    }

    // The option is process-wide: a second dialog changes the decimals the first one shows.
    void secondDialogChangesDecimals()
    {
        dialog = std::make_unique<DialogProgrammer>(hostOption(), nullptr);
        w<QPushButton>("btnListTemplateAppend")->click();
        QCOMPARE(probe("tvList.row0"), QStringLiteral("1.500|3.000|1.000"));
        Option coarse = hostOption();
        coarse.timeDecimals = coarse.voltageDecimals = 1;
        const DialogProgrammer second(coarse, nullptr);
        QCOMPARE(probe("tvList.row0"), QStringLiteral("1.5|3.000|1.0"));
    }

    // Hiding an active dialog commits an open cell editor into its table's model, in ~QDialog:
    // after the step lists are gone, unless the tables went first.
    void shownDialogIsDeletedCleanly()
    {
        dialog = std::make_unique<DialogProgrammer>(hostOption(), nullptr);
        w<QPushButton>("btnListTemplateAppend")->click();
        w<QPushButton>("btnDelayerTemplateAppend")->click();
        dialog->show();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        w<QTableView>("tvList")->edit(w<QTableView>("tvList")->model()->index(2, 1));
        QVERIFY(qobject_cast<QDoubleSpinBox *>(QApplication::focusWidget()));
        dialog.reset();
    }
};

QTEST_MAIN(TestDialogProgrammer)
#include "tst_dialogprogrammer.moc"
