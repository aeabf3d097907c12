// Tests of the sequence files: the exact lines written, the checks of loading, applying a load to a
// tab, and files no user should ever feed in.
#include "dialogprogrammer.h"

#include <character.h>

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSpinBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include <qcustomplot.h>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr qint64 kBadInputBudgetMsec = 10000;
#else
constexpr qint64 kBadInputBudgetMsec = 1000;
#endif

// The host's instrument: four channels of 0-32 V and 0-3.2 A, with `v`, `c` and `t` decimals for
// volts, amperes and seconds.
Option hostOption(int maxCount = 2048, int v = 3, int c = 3, int t = 3)
{
    Option option{QStringLiteral("Files"), t, 0.001, 99999, v, c, {}, maxCount, true, true, true};
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    return option;
}

QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

// Lines are written as one text with '|' between them, to keep the tables readable.
QStringList lines(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char('|'));
}

QByteArray fileBytes(const QStringList &lines)
{
    return lines.isEmpty() ? QByteArray() : lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString describe(const UploadParam &p)
{
    return QStringLiteral("mode %1 channel %2 max %3 cycles %4 end %5")
        .arg(p.mode)
        .arg(p.channel)
        .arg(p.maxCount)
        .arg(p.cycles)
        .arg(p.endState);
}

QStringList describe(const QList<ListData> &steps)
{
    QStringList out;
    for (const ListData &s : steps)
        out << QStringLiteral("%1 %2 %3").arg(exact(s.voltage), exact(s.current), exact(s.time));
    return out;
}

QStringList describe(const QList<DelayerData> &steps)
{
    QStringList out;
    for (const DelayerData &s : steps)
        out << QLatin1String(s.state ? "On " : "Off ") + exact(s.time);
    return out;
}

// A dialog with a host that answers its file signals within the emission, as the dialog expects:
// it saves to `path`, and loads prepared steps or the file at `path`.
class Bench
{
public:
    enum class Load { Ignore, Steps, File };

    Bench(bool delayer, const Option &option, const QString &path)
        : dialog(option)
        , delayer(delayer)
        , path(path)
        , cycles(child<QSpinBox>("sbListCycles", "sbDelayerCycles"))
        , endState(child<QComboBox>("cbbListEndState", "cbbDelayerEndState"))
        , view(child<QTableView>("tvList", "tvDelayer"))
    {
        using D = DialogProgrammer;
        QObject::connect(&dialog, &D::listSaveToCSV, &context, [this](auto &datas, auto &param) {
            saved(param, datas, dialog.listSaveData(this->path, datas));
        });
        QObject::connect(&dialog, &D::delayerSaveToCSV, &context, [this](auto &datas, auto &param) {
            saved(param, datas, dialog.delayerSaveData(this->path, datas));
        });
        QObject::connect(&dialog, &D::listLoadFromCSV, &context, [this](auto &datas, auto &param) {
            answer(datas, param, list, &D::listLoadData);
        });
        QObject::connect(&dialog, &D::delayerLoadFromCSV, &context, [this](auto &datas, auto &p) {
            answer(datas, p, delayerList, &D::delayerLoadData);
        });
    }

    template<typename T> T *child(const char *list, const char *other)
    {
        return dialog.findChild<T *>(QLatin1String(delayer ? other : list));
    }

    void trigger(const char *list, const char *other) { child<QAction>(list, other)->trigger(); }

    void loadSteps(const QList<ListData> &steps, const QList<DelayerData> &delayerSteps)
    {
        list = steps;
        delayerList = delayerSteps;
        load = Load::Steps;
        trigger("actionloadList", "actionLoadDelayer");
        log.clear();
    }

    // The table as its model holds it, without the step numbers.
    QStringList rows() const
    {
        QStringList out;
        const QAbstractItemModel *model = view->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 1; column < model->columnCount(); ++column) {
                const QVariant value = model->index(row, column).data(Qt::EditRole);
                cells << (value.userType() == QMetaType::Bool
                              ? QLatin1String(value.toBool() ? "On" : "Off")
                              : exact(value.toDouble()));
            }
            out << cells.join(QLatin1Char(' '));
        }
        return out;
    }

    DialogProgrammer dialog;
    const bool delayer;
    QString path;
    QSpinBox *cycles;
    QComboBox *endState;
    QTableView *view;
    Load load = Load::Ignore;
    // Left in param by a load handler when set; otherwise the tab as the loader left it.
    int paramCycles = -1;
    QString paramEndState;
    QStringList log;

private:
    template<typename Steps> void saved(const UploadParam &param, const Steps &datas, bool written)
    {
        log << describe(param) << describe(datas) << QLatin1String(written ? "written" : "failed");
    }

    template<typename Step>
    void answer(QList<Step> &datas,
                UploadParam &param,
                const QList<Step> &steps,
                QList<Step> (DialogProgrammer::*loader)(const QString &))
    {
        log << describe(param);
        if (load == Load::Steps)
            datas = steps;
        if (load == Load::File) {
            datas = (dialog.*loader)(path);
            param = dialog.getUploadParamFromUI(delayer ? UploadMode::Delayer : UploadMode::List);
        }
        if (paramCycles >= 0)
            param.cycles = paramCycles;
        if (!paramEndState.isNull())
            param.endState = paramEndState;
    }

    QList<ListData> list;
    QList<DelayerData> delayerList;
    QObject context;
};

} // namespace

class TestDialogFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void saveAndReload_data();
    void saveAndReload();
    void load_data();
    void load();
    void applyLoad_data();
    void applyLoad();
    void badInput_data();
    void badInput();

private:
    QString path() const { return dir.filePath(QStringLiteral("sequence.csv")); }

    QTemporaryDir dir;
};

void TestDialogFiles::initTestCase()
{
    QVERIFY(dir.isValid());
    qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_dialogfiles"));
    QLocale::setDefault(QLocale::c());
}

void TestDialogFiles::saveAndReload_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<bool>("button");
    QTest::addColumn<int>("decimals"); // voltage, current, time: one digit each
    QTest::addColumn<int>("cycles");
    QTest::addColumn<int>("endState");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("reloaded");

    // A list that ends with the output on is written, but this file version never reads it back.
    QTest::newRow("list, infinite, output on")
        << false << false << 333 << 0 << 1
        << lines("mode 0 channel 2 max 2048 cycles 0 end ON|5 1.5 0.25|32 0.001 99999|written")
        << lines("LIST,10|Cycles,Infinite|End Status,Output On|Groups,2|"
                 "No.,Voltage(V),Current(A),Time(s)|0,5.000,1.500,0.250|1,32.000,0.001,99999.000")
        << QStringList();
    QTest::newRow("list by button, other decimals")
        << false << true << 143 << 99999 << 0
        << lines("mode 0 channel 2 max 2048 cycles 99999 end OFF|5 1.5 0.25|32 0.001 99999|written")
        << lines("LIST,10|Cycles,99999|End Status,Output Off|Groups,2|"
                 "No.,Voltage(V),Current(A),Time(s)|0,5.0,1.5000,0.250|1,32.0,0.0010,99999.000")
        << lines("5 1.5 0.25|32 0.001 99999");
    QTest::newRow("delayer, last")
        << true << false << 333 << 10 << 2
        << lines("mode 1 channel 2 max 2048 cycles 10 end LAST|On 1|Off 2.5|written")
        << lines("DELAYER,10|Cycles,10|End Status,Last|Groups,2|No.,State,Time(s)|"
                 "0,On,1.000|1,Off,2.500")
        << lines("On 1|Off 2.5");
    QTest::newRow("delayer by button, infinite, output on")
        << true << true << 333 << 0 << 1
        << lines("mode 1 channel 2 max 2048 cycles 0 end ON|On 1|Off 2.5|written")
        << lines("DELAYER,10|Cycles,Infinite|End Status,Output On|Groups,2|No.,State,Time(s)|"
                 "0,On,1.000|1,Off,2.500")
        << lines("On 1|Off 2.5");
}

void TestDialogFiles::saveAndReload()
{
    QFETCH(bool, delayer);
    QFETCH(bool, button);
    QFETCH(int, decimals);
    QFETCH(int, cycles);
    QFETCH(int, endState);
    QFETCH(QStringList, log);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, reloaded);

    Bench bench(
        delayer, hostOption(2048, decimals / 100, decimals / 10 % 10, decimals % 10), path());
    bench.loadSteps({ListData(5.0, 1.5, 0.25), ListData(32.0, 0.001, 99999.0)},
                    {DelayerData(true, 1.0), DelayerData(false, 2.5)});
    bench.child<QComboBox>("cbbListCH", "cbbDelayerCH")->setCurrentIndex(1);
    bench.cycles->setValue(cycles);
    bench.endState->setCurrentIndex(endState);
    if (button)
        QTest::mouseClick(bench.child<QPushButton>("btnListSave", "btnDelayerSave"),
                          Qt::LeftButton);
    else
        bench.trigger("actionSaveList", "actionSaveDelayer");
    QCOMPARE(bench.log, log);
    QCOMPARE(tarn2::util::character::Character::csvLoad(path()), lines);

    bench.cycles->setValue(7);
    bench.endState->setCurrentIndex(-1);
    bench.load = Bench::Load::File;
    bench.trigger("actionloadList", "actionLoadDelayer");
    QCOMPARE(bench.rows(), reloaded);
    QCOMPARE(bench.cycles->value(), reloaded.isEmpty() ? 7 : cycles);
    QCOMPARE(bench.endState->currentIndex(), reloaded.isEmpty() ? -1 : endState);
}

void TestDialogFiles::load_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("cycles");   // the spin box stands at 42 before
    QTest::addColumn<int>("endState"); // and the combo at 1

    // Each refused file breaks one line of a file that loads.
    const auto list = [](int line, const char *text) {
        QStringList file = lines("LIST,10|Cycles,5|End Status,Output Off|Groups,1|No.|0,1,1,1");
        file.replace(line, QString::fromUtf8(text));
        return file;
    };
    // A refused file leaves the widgets as they were.
    const auto refused = [](const char *name, bool delayer, const QStringList &file) {
        QTest::newRow(name) << delayer << 2048 << file << QStringList() << 42 << 1;
    };
    refused("version 1.0", false, list(0, "LIST,1.0"));
    refused("lower-case tag", false, list(0, "list,10"));
    refused("tag alone", false, list(0, "LIST"));
    refused("delayer tag", false, list(0, "DELAYER,10"));
    refused("cycles 100000", false, list(1, "Cycles,100000"));
    refused("cycles -1", false, list(1, "Cycles,-1"));
    refused("cycles alone", false, list(1, "Cycles"));
    refused("cycle tag", false, list(1, "Cycle,5"));
    refused("list ends on", false, list(2, "End Status,Output On"));
    refused("end state data", false, list(2, "End Status,OFF"));
    refused("end tag", false, list(2, "End State,Last"));
    refused("groups 0", false, list(3, "Groups,0"));
    refused("groups above maximum", false, list(3, "Groups,2049"));
    refused("groups not a number", false, list(3, "Groups,two"));
    refused("group tag", false, list(3, "Group,1"));
    refused("no groups line", false, list(0, "LIST,10").mid(0, 3));
    refused("empty file", false, QStringList());
    refused("list file as delayer", true, list(0, "LIST,10"));
    refused(
        "delayer groups 0", true, lines("DELAYER,10|Cycles,5|End Status,Last|Groups,0|No.|0,On,1"));

    QTest::newRow("cycles 99999; Last is no list item")
        << false << 2048 << list(1, "Cycles,99999").replaceInStrings("Output Off", "Last")
        << lines("1 1 1") << 99999 << 1;
    // The count of the head is checked, never used; what is not a number reads as 0.
    QTest::newRow("more lines than groups, bad numbers")
        << false << 2048
        << lines("LIST,10|Cycles,Infinite|End Status,Output Off|Groups,1|No.|"
                 "0,abc,2,3|1,1e1,-2,0.0005|2,1,2,3,extra")
        << lines("0 2 3|10 -2 0.00050000000000000001|1 2 3") << 0 << 0;
    // Short lines are skipped, but they take up the instrument's room all the same.
    QTest::newRow("short lines count towards the maximum")
        << false << 3
        << lines("LIST,10|Cycles,none|End Status,Output Off|Groups,3|No.|0,1,1,1|1,2,2||3,4,4,4")
        << lines("1 1 1") << 0 << 0;
    QTest::newRow("cut at the maximum")
        << false << 3
        << lines("LIST,10|Cycles,2|End Status,Output Off|Groups,3|No.|"
                 "0,1,1,1|1,2,2,2|2,3,3,3|3,4,4,4|4,5,5,5")
        << lines("1 1 1|2 2 2|3 3 3") << 2 << 0;
    QTest::newRow("delayer states are case-sensitive")
        << true << 2048
        << lines("DELAYER,10|Cycles,3|End Status,Output On|Groups,4|No.|"
                 "0,On,1.000|1,on,1.5|2,ON,2|3,Off|4,Off,0.125")
        << lines("On 1|Off 1.5|Off 2|Off 0.125") << 3 << 1;
    QTest::newRow("delayer ends last")
        << true << 2048 << lines("DELAYER,10|Cycles,Infinite|End Status,Last|Groups,1|No.|0,On,1")
        << lines("On 1") << 0 << 2;
}

void TestDialogFiles::load()
{
    QFETCH(bool, delayer);
    QFETCH(int, maxCount);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, steps);
    QFETCH(int, cycles);
    QFETCH(int, endState);

    Bench bench(delayer, hostOption(maxCount), path());
    bench.cycles->setValue(42);
    bench.endState->setCurrentIndex(1);
    QVERIFY(writeFile(path(), fileBytes(lines)));

    QCOMPARE(delayer ? describe(bench.dialog.delayerLoadData(path()))
                     : describe(bench.dialog.listLoadData(path())),
             steps);
    QCOMPARE(bench.cycles->value(), cycles);
    QCOMPARE(bench.endState->currentIndex(), endState);
}

void TestDialogFiles::applyLoad_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<int>("cycles"); // left in param, -1 for the file's
    QTest::addColumn<QString>("endState");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<int>("shownCycles");
    QTest::addColumn<int>("shownEndState");
    QTest::addColumn<QStringList>("curve"); // the first curve of the tab's plot, time:level

    const QStringList rows = lines("5 1.5 0.25|2 0.5 1");
    const QStringList curve = lines("0:5|250:5|250:2|1250:2");
    QTest::newRow("file values kept")
        << false << true << -1 << QString() << rows << 5 << 0 << curve;
    QTest::newRow("param wins") << false << true << 9 << QStringLiteral("ON") << rows << 9 << 1
                                << curve;
    QTest::newRow("unknown end state")
        << false << true << -1 << QStringLiteral("on") << rows << 5 << -1 << curve;
    QTest::newRow("host ignores") << false << false << -1 << QString() << QStringList() << 4 << 1
                                  << QStringList();
    QTest::newRow("delayer param wins")
        << true << true << 0 << QStringLiteral("LAST") << lines("On 0.25|Off 1") << 0 << 2
        << lines("0:1|250:1|250:0|1250:0");
    QTest::newRow("delayer host ignores")
        << true << false << -1 << QString() << QStringList() << 4 << 1 << QStringList();
}

void TestDialogFiles::applyLoad()
{
    QFETCH(bool, delayer);
    QFETCH(bool, answer);
    QFETCH(int, cycles);
    QFETCH(QString, endState);
    QFETCH(QStringList, rows);
    QFETCH(int, shownCycles);
    QFETCH(int, shownEndState);
    QFETCH(QStringList, curve);

    Bench bench(delayer, hostOption(), path());
    // Steps to replace, and widgets that differ from the file.
    bench.loadSteps({ListData(1, 1, 1), ListData(2, 2, 2), ListData(3, 3, 3)},
                    {DelayerData(true, 1), DelayerData(true, 2), DelayerData(true, 3)});
    bench.cycles->setValue(4);
    bench.endState->setCurrentIndex(1);
    QVERIFY(writeFile(path(),
                      delayer ? fileBytes(lines("DELAYER,10|Cycles,5|End Status,Output Off|"
                                                "Groups,2|No.|0,On,0.250|1,Off,1"))
                              : fileBytes(lines("LIST,10|Cycles,5|End Status,Output Off|"
                                                "Groups,2|No.|0,5,1.5,0.25|1,2,0.5,1"))));
    bench.load = answer ? Bench::Load::File : Bench::Load::Ignore;
    bench.paramCycles = cycles;
    bench.paramEndState = endState;

    bench.trigger("actionloadList", "actionLoadDelayer");
    QCOMPARE(bench.log,
             QStringList(
                 QStringLiteral("mode %1 channel 1 max 2048 cycles 4 end ON").arg(int(delayer))));
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.cycles->value(), shownCycles);
    QCOMPARE(bench.endState->currentIndex(), shownEndState);
    QCOMPARE(bench.child<QSpinBox>("sbListGroups", "sbDelayerGroups")->value(), rows.size());

    // The whole table is selected and has the focus, ready for the next edit.
    const QItemSelectionModel *selection = bench.view->selectionModel();
    QCOMPARE(selection->selectedIndexes().size(), rows.size() * bench.view->model()->columnCount());
    for (int row = 0; row < rows.size(); ++row)
        QVERIFY(selection->isRowSelected(row, QModelIndex()));
    QCOMPARE(bench.dialog.focusWidget(), bench.view);

    QStringList points;
    const auto *drawn = qobject_cast<QCPCurve *>(
        bench.child<QCustomPlot>("plotList", "plotDelayer")->plottable(0));
    QVERIFY(drawn);
    for (auto it = drawn->data()->constBegin(); it != drawn->data()->constEnd(); ++it)
        points << exact(it->key) + QLatin1Char(':') + exact(it->value);
    QCOMPARE(points, curve);
}

void TestDialogFiles::badInput_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("steps"); // exact, or -1 for at most the maximum

    const QByteArray listHead = "LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,5\nNo.\n";
    const QByteArray delayerHead = "DELAYER,10\nCycles,1\nEnd Status,Last\nGroups,5\nNo.\n";

    QRandomGenerator random(20240229);
    QByteArray noise(1 << 20, Qt::Uninitialized);
    for (char &c : noise)
        c = char(random.bounded(256));
    QTest::newRow("random bytes") << false << noise << 0;
    QTest::newRow("random bytes after a head") << false << listHead + noise << -1;

    QByteArray million = listHead;
    QByteArray delayerMillion = delayerHead;
    for (int i = 0; i < 1000000; ++i) {
        million += QByteArray::number(i) + ",1.000,0.500,0.010\n";
        delayerMillion += QByteArray::number(i) + ",On,0.010\n";
    }
    QTest::newRow("a million steps") << false << million << 2048;
    QTest::newRow("a million delayer steps") << true << delayerMillion << 2048;

    const QByteArray wide(10000, '7');
    QTest::newRow("wide tag") << false << "LIST" + wide + ",10\n" + listHead.mid(8) << 0;
    QTest::newRow("wide end state")
        << false << "LIST,10\nCycles,1\nEnd Status," + wide + "\nGroups,1\n"
        << 0;
    QTest::newRow("wide step fields")
        << false << listHead + "0," + wide + "," + wide + "," + wide + "\n1," + wide << 1;

    QTest::newRow("NUL in the head")
        << false << QByteArray("LIST\0,10\n", 9) + listHead.mid(8) << 0;
    QTest::newRow("NUL in steps") << false
                                  << listHead + QByteArray("0,1\0,2,3\n\0\0\0\n1,\0,\0,\0\n", 22)
                                  << 2;
    QTest::newRow("only NUL") << true << QByteArray(4096, '\0') << 0;
}

void TestDialogFiles::badInput()
{
    QFETCH(bool, delayer);
    QFETCH(QByteArray, bytes);
    QFETCH(int, steps);

    DialogProgrammer dialog(hostOption());
    QVERIFY(writeFile(path(), bytes));

    QElapsedTimer timer;
    timer.start();
    const int loaded
        = delayer ? dialog.delayerLoadData(path()).size() : dialog.listLoadData(path()).size();
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed < kBadInputBudgetMsec, qPrintable(QString::number(elapsed)));
    if (steps >= 0)
        QCOMPARE(loaded, steps);
    else
        QVERIFY(loaded <= 2048);
}

QTEST_MAIN(TestDialogFiles)
#include "tst_dialogfiles.moc"
