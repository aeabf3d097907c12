// Tests of the sequence files: the exact lines written, the header checks of loading, applying a
// load to a tab, and files no user should ever feed in.
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

#include <cmath>

using namespace tarn2::specific::orvo5000::programmer;
using tarn2::util::character::Character;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr qint64 kBadInputBudgetMsec = 10000;
#else
constexpr qint64 kBadInputBudgetMsec = 1000;
#endif

Option hostOption(int maxCount = 2048, int vDecimals = 3, int cDecimals = 3, int tDecimals = 3)
{
    Option option;
    option.name = QStringLiteral("File Bench");
    option.timeDecimals = tDecimals;
    option.timeMin = 0.001;
    option.timeMax = 99999;
    option.voltageDecimals = vDecimals;
    option.currentDecimals = cDecimals;
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    option.maxCount = maxCount;
    option.saveEnabled = true;
    option.loadEnabled = true;
    option.uploadEnabled = true;
    return option;
}

QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

QStringList describe(const QList<ListData> &steps)
{
    QStringList out;
    for (const ListData &step : steps)
        out << exact(step.voltage) + QLatin1Char(' ') + exact(step.current) + QLatin1Char(' ')
                   + exact(step.time);
    return out;
}

QStringList describe(const QList<DelayerData> &steps)
{
    QStringList out;
    for (const DelayerData &step : steps)
        out << (step.state ? QStringLiteral("On ") : QStringLiteral("Off ")) + exact(step.time);
    return out;
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

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
           && file.write(bytes) == bytes.size();
}

QByteArray joined(const QStringList &lines)
{
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

// A host as the dialog expects one: it answers the file signals within the emission.
struct Host
{
    enum class Load { Ignore, Steps, File };

    explicit Host(DialogProgrammer *dialog)
    {
        QObject::connect(dialog,
                         &DialogProgrammer::listSaveToCSV,
                         &context,
                         [this, dialog](const QList<ListData> &datas, const UploadParam &param) {
                             saves << describe(param);
                             saved = describe(datas);
                             saveResult = dialog->listSaveData(path, datas);
                         });
        QObject::connect(dialog,
                         &DialogProgrammer::delayerSaveToCSV,
                         &context,
                         [this, dialog](const QList<DelayerData> &datas, const UploadParam &param) {
                             saves << describe(param);
                             saved = describe(datas);
                             saveResult = dialog->delayerSaveData(path, datas);
                         });
        QObject::connect(dialog,
                         &DialogProgrammer::listLoadFromCSV,
                         &context,
                         [this, dialog](QList<ListData> &datas, UploadParam &param) {
                             loads << describe(param);
                             if (load == Load::Steps)
                                 datas = list;
                             if (load == Load::File) {
                                 datas = dialog->listLoadData(path);
                                 param = dialog->getUploadParamFromUI(UploadMode::List);
                             }
                             apply(param);
                         });
        QObject::connect(dialog,
                         &DialogProgrammer::delayerLoadFromCSV,
                         &context,
                         [this, dialog](QList<DelayerData> &datas, UploadParam &param) {
                             loads << describe(param);
                             if (load == Load::Steps)
                                 datas = delayer;
                             if (load == Load::File) {
                                 datas = dialog->delayerLoadData(path);
                                 param = dialog->getUploadParamFromUI(UploadMode::Delayer);
                             }
                             apply(param);
                         });
    }

    void apply(UploadParam &param) const
    {
        if (cycles >= 0)
            param.cycles = cycles;
        if (!endState.isNull())
            param.endState = endState;
    }

    QString path;
    Load load = Load::Ignore;
    QList<ListData> list;
    QList<DelayerData> delayer;
    int cycles = -1;   // left in param when not negative
    QString endState;  // left in param when not null
    QStringList saves; // the params of the save signals
    QStringList loads; // the params of the load signals, as the dialog sent them
    QStringList saved; // the steps of the last save signal
    bool saveResult = false;
    QObject context;
};

// One tab of the dialog, found by object name.
struct Tab
{
    Tab(DialogProgrammer &dialog, bool delayer)
        : delayer(delayer)
        , view(find<QTableView>(dialog, "tvList", "tvDelayer"))
        , cycles(find<QSpinBox>(dialog, "sbListCycles", "sbDelayerCycles"))
        , endState(find<QComboBox>(dialog, "cbbListEndState", "cbbDelayerEndState"))
        , groups(find<QSpinBox>(dialog, "sbListGroups", "sbDelayerGroups"))
        , plot(find<QCustomPlot>(dialog, "plotList", "plotDelayer"))
        , save(find<QAction>(dialog, "actionSaveList", "actionSaveDelayer"))
        , saveButton(find<QPushButton>(dialog, "btnListSave", "btnDelayerSave"))
        , load(find<QAction>(dialog, "actionloadList", "actionLoadDelayer"))
    {}

    template<typename T>
    T *find(DialogProgrammer &dialog, const char *list, const char *other) const
    {
        return dialog.findChild<T *>(QString::fromLatin1(delayer ? other : list));
    }

    QStringList rows() const
    {
        QStringList out;
        const QAbstractItemModel *model = view->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 1; column < model->columnCount(); ++column) {
                const QVariant value = model->index(row, column).data(Qt::EditRole);
                cells << (value.userType() == QMetaType::Bool
                              ? (value.toBool() ? QStringLiteral("On") : QStringLiteral("Off"))
                              : exact(value.toDouble()));
            }
            out << cells.join(QLatin1Char(' '));
        }
        return out;
    }

    bool delayer;
    QTableView *view;
    QSpinBox *cycles;
    QComboBox *endState;
    QSpinBox *groups;
    QCustomPlot *plot;
    QAction *save;
    QPushButton *saveButton;
    QAction *load;
};

} // namespace

class TestDialogFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void save_data();
    void save();
    void loadRefused_data();
    void loadRefused();
    void loadAccepted_data();
    void loadAccepted();
    void roundTrip_data();
    void roundTrip();
    void applyLoad_data();
    void applyLoad();
    void badInput_data();
    void badInput();

private:
    QString path(const QString &name) const { return dir.filePath(name); }

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

void TestDialogFiles::save_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<bool>("button");
    QTest::addColumn<QVector<int>>("decimals"); // voltage, current, time
    QTest::addColumn<int>("cycles");
    QTest::addColumn<int>("endState");
    QTest::addColumn<QStringList>("param");
    QTest::addColumn<QStringList>("lines");

    const QVector<int> three{3, 3, 3};
    QTest::newRow("list, infinite, output on")
        << false << false << three << 0 << 1
        << QStringList{QStringLiteral("mode 0 channel 2 max 2048 cycles 0 end ON")}
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,Infinite"),
                       QStringLiteral("End Status,Output On"),
                       QStringLiteral("Groups,2"),
                       QStringLiteral("No.,Voltage(V),Current(A),Time(s)"),
                       QStringLiteral("0,5.000,1.500,0.250"),
                       QStringLiteral("1,32.000,0.001,99999.000")};
    QTest::newRow("list by button, other decimals")
        << false << true << QVector<int>{1, 4, 0} << 12 << 0
        << QStringList{QStringLiteral("mode 0 channel 2 max 2048 cycles 12 end OFF")}
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,12"),
                       QStringLiteral("End Status,Output Off"),
                       QStringLiteral("Groups,2"),
                       QStringLiteral("No.,Voltage(V),Current(A),Time(s)"),
                       QStringLiteral("0,5.0,1.5000,0"),
                       QStringLiteral("1,32.0,0.0010,99999")};
    QTest::newRow("delayer, last")
        << true << false << three << 10 << 2
        << QStringList{QStringLiteral("mode 1 channel 2 max 2048 cycles 10 end LAST")}
        << QStringList{QStringLiteral("DELAYER,10"),
                       QStringLiteral("Cycles,10"),
                       QStringLiteral("End Status,Last"),
                       QStringLiteral("Groups,2"),
                       QStringLiteral("No.,State,Time(s)"),
                       QStringLiteral("0,On,1.000"),
                       QStringLiteral("1,Off,2.500")};
    QTest::newRow("delayer by button, infinite, output on")
        << true << true << three << 0 << 1
        << QStringList{QStringLiteral("mode 1 channel 2 max 2048 cycles 0 end ON")}
        << QStringList{QStringLiteral("DELAYER,10"),
                       QStringLiteral("Cycles,Infinite"),
                       QStringLiteral("End Status,Output On"),
                       QStringLiteral("Groups,2"),
                       QStringLiteral("No.,State,Time(s)"),
                       QStringLiteral("0,On,1.000"),
                       QStringLiteral("1,Off,2.500")};
}

void TestDialogFiles::save()
{
    QFETCH(bool, delayer);
    QFETCH(bool, button);
    QFETCH(QVector<int>, decimals);
    QFETCH(int, cycles);
    QFETCH(int, endState);
    QFETCH(QStringList, param);
    QFETCH(QStringList, lines);

    DialogProgrammer dialog(hostOption(2048, decimals.at(0), decimals.at(1), decimals.at(2)));
    Host host(&dialog);
    Tab tab(dialog, delayer);
    host.list = {ListData(5.0, 1.5, 0.25), ListData(32.0, 0.001, 99999.0)};
    host.delayer = {DelayerData(true, 1.0), DelayerData(false, 2.5)};
    host.load = Host::Load::Steps;
    tab.load->trigger();
    host.path = path(QStringLiteral("saved.csv"));
    tab.find<QComboBox>(dialog, "cbbListCH", "cbbDelayerCH")->setCurrentIndex(1);
    tab.cycles->setValue(cycles);
    tab.endState->setCurrentIndex(endState);

    if (button)
        QTest::mouseClick(tab.saveButton, Qt::LeftButton);
    else
        tab.save->trigger();
    QCOMPARE(host.saves, param);
    QCOMPARE(host.saved, delayer ? describe(host.delayer) : describe(host.list));
    QVERIFY(host.saveResult);
    QCOMPARE(Character::csvLoad(host.path), lines);
}

void TestDialogFiles::loadRefused_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QStringList>("lines");

    const auto list =
        [](const QString &head, const QString &cycles, const QString &end, const QString &groups) {
            return QStringList{head,
                               cycles,
                               end,
                               groups,
                               QStringLiteral("No.,Voltage(V),Current(A),Time(s)"),
                               QStringLiteral("0,1.000,1.000,1.000")};
        };
    const QString head = QStringLiteral("LIST,10");
    const QString cycles = QStringLiteral("Cycles,5");
    const QString off = QStringLiteral("End Status,Output Off");
    const QString groups = QStringLiteral("Groups,1");
    QTest::newRow("version 1.0") << false << list(QStringLiteral("LIST,1.0"), cycles, off, groups);
    QTest::newRow("lower-case tag")
        << false << list(QStringLiteral("list,10"), cycles, off, groups);
    QTest::newRow("tag alone") << false << list(QStringLiteral("LIST"), cycles, off, groups);
    QTest::newRow("delayer tag") << false
                                 << list(QStringLiteral("DELAYER,10"), cycles, off, groups);
    QTest::newRow("cycles 100000")
        << false << list(head, QStringLiteral("Cycles,100000"), off, groups);
    QTest::newRow("cycles -1") << false << list(head, QStringLiteral("Cycles,-1"), off, groups);
    QTest::newRow("cycles tag alone") << false << list(head, QStringLiteral("Cycles"), off, groups);
    QTest::newRow("cycle tag") << false << list(head, QStringLiteral("Cycle,5"), off, groups);
    QTest::newRow("list ends on")
        << false << list(head, cycles, QStringLiteral("End Status,Output On"), groups);
    QTest::newRow("end state data")
        << false << list(head, cycles, QStringLiteral("End Status,OFF"), groups);
    QTest::newRow("end tag") << false
                             << list(head, cycles, QStringLiteral("End State,Last"), groups);
    QTest::newRow("groups 0") << false << list(head, cycles, off, QStringLiteral("Groups,0"));
    QTest::newRow("groups above maximum")
        << false << list(head, cycles, off, QStringLiteral("Groups,2049"));
    QTest::newRow("groups not a number")
        << false << list(head, cycles, off, QStringLiteral("Groups,x"));
    QTest::newRow("group tag") << false << list(head, cycles, off, QStringLiteral("Group,1"));
    QTest::newRow("no groups line") << false << QStringList{head, cycles, off};
    QTest::newRow("no lines") << false << QStringList{};
    QTest::newRow("delayer version") << true
                                     << QStringList{QStringLiteral("DELAYER,11"),
                                                    cycles,
                                                    off,
                                                    groups,
                                                    QStringLiteral("No.,State,Time(s)"),
                                                    QStringLiteral("0,On,1.000")};
    QTest::newRow("list file as delayer") << true << list(head, cycles, off, groups);
    QTest::newRow("delayer groups 0") << true
                                      << QStringList{QStringLiteral("DELAYER,10"),
                                                     cycles,
                                                     off,
                                                     QStringLiteral("Groups,0"),
                                                     QStringLiteral("No.,State,Time(s)"),
                                                     QStringLiteral("0,On,1.000")};
}

void TestDialogFiles::loadRefused()
{
    QFETCH(bool, delayer);
    QFETCH(QStringList, lines);

    DialogProgrammer dialog(hostOption());
    Tab tab(dialog, delayer);
    tab.cycles->setValue(42);
    tab.endState->setCurrentIndex(1);
    const QString file = path(QStringLiteral("refused.csv"));
    QVERIFY(writeFile(file, lines.isEmpty() ? QByteArray() : joined(lines)));

    if (delayer)
        QVERIFY(dialog.delayerLoadData(file).isEmpty());
    else
        QVERIFY(dialog.listLoadData(file).isEmpty());
    QCOMPARE(tab.cycles->value(), 42);
    QCOMPARE(tab.endState->currentIndex(), 1);
}

void TestDialogFiles::loadAccepted_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("cycles");
    QTest::addColumn<int>("endState"); // the combo starts at index 1

    const QString title = QStringLiteral("No.,Voltage(V),Current(A),Time(s)");
    QTest::newRow("cycles 99999, last keeps the combo")
        << false << 2048
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,99999"),
                       QStringLiteral("End Status,Last"),
                       QStringLiteral("Groups,1"),
                       title,
                       QStringLiteral("7,5.000,1.500,0.250")}
        << QStringList{QStringLiteral("5 1.5 0.25")} << 99999 << 1;
    // The count in the head is checked, never used; bad numbers read as 0.
    QTest::newRow("more lines than groups, bad numbers")
        << false << 2048
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,Infinite"),
                       QStringLiteral("End Status,Output Off"),
                       QStringLiteral("Groups,1"),
                       title,
                       QStringLiteral("0,abc,2,3"),
                       QStringLiteral("1,1e1,-2,0.0005"),
                       QStringLiteral("2,1,2,3,extra")}
        << QStringList{QStringLiteral("0 2 3"),
                       QStringLiteral("10 -2 0.00050000000000000001"),
                       QStringLiteral("1 2 3")}
        << 0 << 0;
    // Short lines are skipped but still use up the instrument's room.
    QTest::newRow("short lines count towards the maximum")
        << false << 3
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,not a number"),
                       QStringLiteral("End Status,Output Off"),
                       QStringLiteral("Groups,3"),
                       title,
                       QStringLiteral("0,1,1,1"),
                       QStringLiteral("1,2,2"),
                       QStringLiteral(""),
                       QStringLiteral("3,4,4,4"),
                       QStringLiteral("4,5,5,5")}
        << QStringList{QStringLiteral("1 1 1")} << 0 << 0;
    QTest::newRow("cut at the maximum")
        << false << 3
        << QStringList{QStringLiteral("LIST,10"),
                       QStringLiteral("Cycles,2"),
                       QStringLiteral("End Status,Output Off"),
                       QStringLiteral("Groups,3"),
                       title,
                       QStringLiteral("0,1,1,1"),
                       QStringLiteral("1,2,2,2"),
                       QStringLiteral("2,3,3,3"),
                       QStringLiteral("3,4,4,4"),
                       QStringLiteral("4,5,5,5")}
        << QStringList{QStringLiteral("1 1 1"), QStringLiteral("2 2 2"), QStringLiteral("3 3 3")}
        << 2 << 0;
    QTest::newRow("delayer states are case-sensitive")
        << true << 2048
        << QStringList{QStringLiteral("DELAYER,10"),
                       QStringLiteral("Cycles,3"),
                       QStringLiteral("End Status,Output On"),
                       QStringLiteral("Groups,4"),
                       QStringLiteral("No.,State,Time(s)"),
                       QStringLiteral("0,On,1.000"),
                       QStringLiteral("1,on,1.5"),
                       QStringLiteral("2,ON,2"),
                       QStringLiteral("3,Off"),
                       QStringLiteral("4,Off,0.125")}
        << QStringList{QStringLiteral("On 1"),
                       QStringLiteral("Off 1.5"),
                       QStringLiteral("Off 2"),
                       QStringLiteral("Off 0.125")}
        << 3 << 1;
    QTest::newRow("delayer ends last") << true << 2048
                                       << QStringList{QStringLiteral("DELAYER,10"),
                                                      QStringLiteral("Cycles,Infinite"),
                                                      QStringLiteral("End Status,Last"),
                                                      QStringLiteral("Groups,1"),
                                                      QStringLiteral("No.,State,Time(s)"),
                                                      QStringLiteral("0,On,1.000")}
                                       << QStringList{QStringLiteral("On 1")} << 0 << 2;
}

void TestDialogFiles::loadAccepted()
{
    QFETCH(bool, delayer);
    QFETCH(int, maxCount);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, steps);
    QFETCH(int, cycles);
    QFETCH(int, endState);

    DialogProgrammer dialog(hostOption(maxCount));
    Tab tab(dialog, delayer);
    tab.cycles->setValue(42);
    tab.endState->setCurrentIndex(1);
    const QString file = path(QStringLiteral("accepted.csv"));
    QVERIFY(writeFile(file, joined(lines)));

    QCOMPARE(delayer ? describe(dialog.delayerLoadData(file)) : describe(dialog.listLoadData(file)),
             steps);
    QCOMPARE(tab.cycles->value(), cycles);
    QCOMPARE(tab.endState->currentIndex(), endState);
}

void TestDialogFiles::roundTrip_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("cycles");
    QTest::addColumn<int>("endState");

    QTest::newRow("list, infinite") << false << 0 << 0;
    QTest::newRow("list, 99999 cycles") << false << 99999 << 0;
    QTest::newRow("delayer, output on") << true << 1 << 1;
    QTest::newRow("delayer, last") << true << 0 << 2;
}

void TestDialogFiles::roundTrip()
{
    QFETCH(bool, delayer);
    QFETCH(int, cycles);
    QFETCH(int, endState);

    DialogProgrammer dialog(hostOption());
    Host host(&dialog);
    Tab tab(dialog, delayer);
    host.path = path(QStringLiteral("round.csv"));
    host.list = {ListData(0.001, 3.2, 0.001),
                 ListData(31.999, 0.0, 99999.0),
                 ListData(12.345, 1.234, 5.678)};
    host.delayer
        = {DelayerData(false, 0.001), DelayerData(true, 99999.0), DelayerData(true, 5.678)};
    host.load = Host::Load::Steps;
    tab.load->trigger();
    const QStringList steps = tab.rows();
    tab.cycles->setValue(cycles);
    tab.endState->setCurrentIndex(endState);
    tab.save->trigger();

    tab.cycles->setValue(7);
    tab.endState->setCurrentIndex(-1);
    host.load = Host::Load::File;
    tab.load->trigger();
    QCOMPARE(tab.rows(), steps);
    QCOMPARE(tab.cycles->value(), cycles);
    QCOMPARE(tab.endState->currentIndex(), endState);
}

void TestDialogFiles::applyLoad_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("load");
    QTest::addColumn<int>("cycles"); // what the host leaves in param, -1 for nothing
    QTest::addColumn<QString>("endState");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<int>("shownCycles");
    QTest::addColumn<int>("shownEndState");
    QTest::addColumn<QStringList>("curve"); // first curve of the tab's plot, key:value

    const int file = int(Host::Load::File);
    const QStringList listRows{QStringLiteral("5 1.5 0.25"), QStringLiteral("2 0.5 1")};
    const QStringList listCurve{QStringLiteral("0:5"),
                                QStringLiteral("250:5"),
                                QStringLiteral("250:2"),
                                QStringLiteral("1250:2")};
    QTest::newRow("file values kept")
        << false << file << -1 << QString() << listRows << 5 << 0 << listCurve;
    QTest::newRow("param wins") << false << file << 9 << QStringLiteral("ON") << listRows << 9 << 1
                                << listCurve;
    QTest::newRow("unknown end state")
        << false << file << -1 << QStringLiteral("on") << listRows << 5 << -1 << listCurve;
    QTest::newRow("host ignores") << false << int(Host::Load::Ignore) << -1 << QString()
                                  << QStringList() << 4 << 1 << QStringList();
    QTest::newRow("delayer param wins")
        << true << file << 0 << QStringLiteral("LAST")
        << QStringList{QStringLiteral("On 0.25"), QStringLiteral("Off 1")} << 0 << 2
        << QStringList{QStringLiteral("0:1"),
                       QStringLiteral("250:1"),
                       QStringLiteral("250:0"),
                       QStringLiteral("1250:0")};
    QTest::newRow("delayer host ignores") << true << int(Host::Load::Ignore) << -1 << QString()
                                          << QStringList() << 4 << 1 << QStringList();
}

void TestDialogFiles::applyLoad()
{
    QFETCH(bool, delayer);
    QFETCH(int, load);
    QFETCH(int, cycles);
    QFETCH(QString, endState);
    QFETCH(QStringList, rows);
    QFETCH(int, shownCycles);
    QFETCH(int, shownEndState);
    QFETCH(QStringList, curve);

    DialogProgrammer dialog(hostOption());
    Host host(&dialog);
    Tab tab(dialog, delayer);
    // Something to replace, and widgets that differ from the file's.
    host.list = {ListData(1, 1, 1), ListData(2, 2, 2), ListData(3, 3, 3)};
    host.delayer = {DelayerData(true, 1), DelayerData(true, 2), DelayerData(true, 3)};
    host.load = Host::Load::Steps;
    tab.load->trigger();
    tab.cycles->setValue(4);
    tab.endState->setCurrentIndex(1);
    host.path = path(QStringLiteral("apply.csv"));
    QVERIFY(writeFile(host.path,
                      delayer ? joined({QStringLiteral("DELAYER,10"),
                                        QStringLiteral("Cycles,5"),
                                        QStringLiteral("End Status,Output Off"),
                                        QStringLiteral("Groups,2"),
                                        QStringLiteral("No."),
                                        QStringLiteral("0,On,0.250"),
                                        QStringLiteral("1,Off,1")})
                              : joined({QStringLiteral("LIST,10"),
                                        QStringLiteral("Cycles,5"),
                                        QStringLiteral("End Status,Output Off"),
                                        QStringLiteral("Groups,2"),
                                        QStringLiteral("No."),
                                        QStringLiteral("0,5,1.5,0.25"),
                                        QStringLiteral("1,2,0.5,1")})));
    host.loads.clear();
    host.load = Host::Load(load);
    host.cycles = cycles;
    host.endState = endState;

    tab.load->trigger();
    QCOMPARE(host.loads,
             QStringList{delayer ? QStringLiteral("mode 1 channel 1 max 2048 cycles 4 end ON")
                                 : QStringLiteral("mode 0 channel 1 max 2048 cycles 4 end ON")});
    QCOMPARE(tab.rows(), rows);
    QCOMPARE(tab.cycles->value(), shownCycles);
    QCOMPARE(tab.endState->currentIndex(), shownEndState);
    QCOMPARE(tab.groups->value(), rows.size());

    // The whole table is selected and has the focus, ready for the next edit.
    const QAbstractItemModel *model = tab.view->model();
    QCOMPARE(tab.view->selectionModel()->selectedIndexes().size(),
             model->rowCount() * model->columnCount());
    for (int row = 0; row < model->rowCount(); ++row)
        QVERIFY(tab.view->selectionModel()->isRowSelected(row, QModelIndex()));
    QCOMPARE(dialog.focusWidget(), tab.view);

    QStringList points;
    const auto *drawn = qobject_cast<QCPCurve *>(tab.plot->plottable(0));
    QVERIFY(drawn);
    for (auto it = drawn->data()->constBegin(); it != drawn->data()->constEnd(); ++it)
        points << exact(it->key) + QLatin1Char(':') + exact(it->value);
    QCOMPARE(points, curve);
}

void TestDialogFiles::badInput_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("steps"); // exact count, or -1 for "at most the maximum"

    const QByteArray listHead = "LIST,10\nCycles,1\nEnd Status,Output Off\nGroups,5\nNo.\n";
    const QByteArray delayerHead = "DELAYER,10\nCycles,1\nEnd Status,Output Off\nGroups,5\nNo.\n";

    QRandomGenerator random(20240229);
    QByteArray noise(1 << 20, Qt::Uninitialized);
    for (char &c : noise)
        c = char(random.bounded(256));
    QTest::newRow("random bytes") << false << noise << 0;
    QTest::newRow("random bytes after a head") << false << listHead + noise << -1;
    QTest::newRow("random bytes after a delayer head") << true << delayerHead + noise << -1;

    QByteArray million = listHead;
    QByteArray delayerMillion = delayerHead;
    million.reserve(million.size() + 16 * 1000000);
    delayerMillion.reserve(delayerMillion.size() + 12 * 1000000);
    for (int i = 0; i < 1000000; ++i) {
        const QByteArray number = QByteArray::number(i);
        million += number + ",1.000,0.500,0.010\n";
        delayerMillion += number + ",On,0.010\n";
    }
    QTest::newRow("a million steps") << false << million << 2048;
    QTest::newRow("a million delayer steps") << true << delayerMillion << 2048;

    const QByteArray wide(10000, '7');
    QTest::newRow("wide tag") << false << "LIST" + wide + ",10\n" + listHead.mid(8) << 0;
    QTest::newRow("wide end state")
        << false << "LIST,10\nCycles,1\nEnd Status," + wide + "\nGroups,1\n"
        << 0;
    QTest::newRow("wide step fields")
        << false << listHead + "0," + wide + "," + wide + "," + wide + "\n1," + wide + "\n"
        << 1;
    QTest::newRow("wide delayer step fields")
        << true << delayerHead + "0," + wide + "," + wide + "\n"
        << 1;

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
    const QString file = path(QStringLiteral("bad.csv"));
    QVERIFY(writeFile(file, bytes));

    QElapsedTimer timer;
    timer.start();
    const int loaded
        = delayer ? dialog.delayerLoadData(file).size() : dialog.listLoadData(file).size();
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed < kBadInputBudgetMsec, qPrintable(QString::number(elapsed)));
    if (steps >= 0)
        QCOMPARE(loaded, steps);
    else
        QVERIFY(loaded <= 2048);
}

QTEST_MAIN(TestDialogFiles)
#include "tst_dialogfiles.moc"
