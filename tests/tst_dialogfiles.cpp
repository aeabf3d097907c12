// Tests of the sequence files: the lines written, the checks of loading, and applying a load.
#include "benchoption.h"
#include "dialogprogrammer.h"

#include <character.h>

#include <QtTest>
#include <QtWidgets>

#include <sys/resource.h>

using namespace tarn2::specific::orvo5000::programmer;

#ifdef __SANITIZE_ADDRESS__
constexpr qint64 kBudgetMsec = 10000;         // the sanitizers slow parsing down tenfold
constexpr long kMemoryBudgetKiB = 256 * 1024; // and keep freed blocks for a while
#else
constexpr qint64 kBudgetMsec = 1000;
constexpr long kMemoryBudgetKiB = 64 * 1024;
#endif

// The most memory this process has held at once so far.
long peakResidentKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// A table row as a failed comparison prints it.
char *toString(const QStringList &cells)
{
    return qstrdup(
        qPrintable(QLatin1Char('(') + cells.join(QLatin1String(", ")) + QLatin1Char(')')));
}

namespace {

// What the host does when the dialog asks it to load a file.
enum class Host {
    KeepsTheFile, // loads the file and hands back the tab as the load left it
    Answers,      // loads the file, then hands back its own cycles and end state
};

// A list file that loads: one step, 5 cycles, end state "Output Off".
const QByteArrayList loadable{
    "LIST,10", "Cycles,5", "End Status,Output Off", "Groups,1", "No.", "0,1,1,1"};

// The loadable file with its line `number` (counted from 1) replaced.
QByteArrayList withLine(int number, const QByteArray &line)
{
    QByteArrayList lines = loadable;
    lines[number - 1] = line;
    return lines;
}

// The head of a list file of 1 cycle and end state "Output Off", announcing 3 steps.
const QByteArrayList listHead{"LIST,10", "Cycles,1", "End Status,Output Off", "Groups,3", "No."};

} // namespace

Q_DECLARE_METATYPE(UploadMode)

class TestDialogFiles : public QObject
{
    Q_OBJECT

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sequence.csv"));
    UploadMode tab = UploadMode::List;
    Host host = Host::KeepsTheFile;
    int hostCycles = 0;
    QString hostEndState;
    std::unique_ptr<DialogProgrammer> dialog;

    bool save(const QList<ListData> &datas) { return dialog->listSaveData(path, datas); }
    bool save(const QList<DelayerData> &datas) { return dialog->delayerSaveData(path, datas); }
    void fill(QList<ListData> &datas) { datas = dialog->listLoadData(path); }
    void fill(QList<DelayerData> &datas) { datas = dialog->delayerLoadData(path); }
    template<typename T> T *child(const char *prefix, const char *suffix = "")
    {
        const QLatin1String name(tab == UploadMode::Delayer ? "Delayer" : "List");
        return dialog->findChild<T *>(QLatin1String(prefix) + name + QLatin1String(suffix));
    }
    const QAbstractItemModel *table() { return child<QTableView>("tv")->model(); }

    void triggerLoad()
    {
        dialog
            ->findChild<QAction *>(tab == UploadMode::Delayer ? "actionLoadDelayer"
                                                              : "actionloadList")
            ->trigger();
    }

    // Writes the lines to the file and loads it through the tab's load action.
    void loadFile(const QByteArrayList &lines)
    {
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray bytes = lines.join('\n');
        QCOMPARE(out.write(bytes), bytes.size());
        out.close();
        triggerLoad();
    }

    // The load of a file, in time even when the file is large.
    void loadInTime(const QByteArrayList &lines)
    {
        const QDeadlineTimer budget(kBudgetMsec);
        loadFile(lines);
        QVERIFY2(!budget.hasExpired(), qPrintable(QString::number(budget.remainingTime())));
    }

    // A dialog for a supply with room for 3 steps and 1 voltage, 4 current and 3 time decimals,
    // whose tab of `mode` holds one step, 42 cycles and end state "Output On".
    void openTab(UploadMode mode)
    {
        Option option = test::benchOption();
        option.name = QStringLiteral("Files");
        option.voltageDecimals = 1;
        option.currentDecimals = 4;
        option.maxCount = 3;
        option.channels.clear(); // the files name no channel
        dialog.reset(new DialogProgrammer(option));
        tab = mode;
        // A host that answers within the emission, as the dialog expects.
        const auto saving = [this](const auto &datas) {
            QVERIFY(save(datas));
        };
        const auto loading = [this](auto &datas, UploadParam &param) {
            fill(datas);
            param = dialog->getUploadParamFromUI(tab);
            if (host == Host::Answers) {
                param.cycles = hostCycles;
                param.endState = hostEndState;
            }
        };
        connect(dialog.get(), &DialogProgrammer::listSaveToCSV, saving);
        connect(dialog.get(), &DialogProgrammer::delayerSaveToCSV, saving);
        connect(dialog.get(), &DialogProgrammer::listLoadFromCSV, loading);
        connect(dialog.get(), &DialogProgrammer::delayerLoadFromCSV, loading);
        host = Host::Answers;
        hostCycles = 42;
        hostEndState = QStringLiteral("ON");
        if (tab == UploadMode::Delayer)
            loadFile({"DELAYER,10", "Cycles,1", "End Status,Last", "Groups,1", "No.", "0,On,9"});
        else
            loadFile({"LIST,10", "Cycles,1", "End Status,Last", "Groups,1", "No.", "0,9,9,9"});
        QCOMPARE(table()->rowCount(), 1);
    }

    // The table's cells but the step numbers, row by row, as their editors would get them.
    QList<QStringList> shownSteps()
    {
        const QAbstractItemModel *model = table();
        QList<QStringList> shown;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 1; column < model->columnCount(); ++column)
                cells << model->index(row, column).data(Qt::EditRole).toString();
            shown << cells;
        }
        return shown;
    }

    // After every load the step counter follows the table, and the whole table is selected.
    void verifyCounterAndSelection()
    {
        const QAbstractItemModel *model = table();
        QCOMPARE(child<QSpinBox>("sb", "Groups")->value(), model->rowCount());
        QCOMPARE(child<QTableView>("tv")->selectionModel()->selectedIndexes().size(),
                 model->rowCount() * model->columnCount());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(dir.isValid());
        QVERIFY(qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
    }

    void loadedFile_data()
    {
        QTest::addColumn<QByteArrayList>("lines");
        QTest::addColumn<QList<QStringList>>("steps"); // voltage, current, time
        QTest::addColumn<int>("cycles");
        QTest::addColumn<QString>("endState");

        QTest::newRow("cut at the maximum")
            << loadable + QByteArrayList{"1,2,2,2", "2,3,3,3", "3,4,4,4"}
            << QList<QStringList>{{"1", "1", "1"}, {"2", "2", "2"}, {"3", "3", "3"}} << 5 << "OFF";
        // Line 5 is never examined: without its column titles the first step stands in for them.
        QTest::newRow("no column-title line") << QByteArrayList{"LIST,10",
                                                                "Cycles,5",
                                                                "End Status,Output Off",
                                                                "Groups,2",
                                                                "0,1,1,1",
                                                                "1,2,2,2"}
                                              << QList<QStringList>{{"2", "2", "2"}} << 5 << "OFF";
        const QByteArray wide = "0." + QByteArray(9998, '7');
        QTest::newRow("wide fields")
            << listHead + QByteArrayList{wide + ",1,2," + wide, "1," + wide}
            << QList<QStringList>{{"1", "2", "0.7777777777777778"}} << 1 << "OFF";
        QTest::newRow("NUL bytes")
            << listHead
                   + QByteArrayList{QByteArray("0,1\0,2,3", 8),
                                    QByteArray("\0\0\0", 3),
                                    QByteArray("1,\0,\0,\0", 7)}
            << QList<QStringList>{{"0", "2", "3"}, {"0", "0", "0"}} << 1 << "OFF";

        // Each breaks or cuts one line of the loadable file: the host loads no steps, and the tab
        // keeps its values.
        const QList<QStringList> none;
        QTest::newRow("version 1.0") << withLine(1, "LIST,1.0") << none << 42 << "ON";
        QTest::newRow("lower-case tag") << withLine(1, "list,10") << none << 42 << "ON";
        QTest::newRow("cycles -1") << withLine(2, "Cycles,-1") << none << 42 << "ON";
        QTest::newRow("list ends on") << withLine(3, "End Status,Output On") << none << 42 << "ON";
        QTest::newRow("groups above maximum") << withLine(4, "Groups,4") << none << 42 << "ON";
        QTest::newRow("no groups line") << loadable.mid(0, 3) << none << 42 << "ON";
        // No user should feed this in; it is refused all the same, and quickly.
        QVector<quint32> noise(1 << 18);
        QRandomGenerator(20240229).fillRange(noise.data(), noise.size());
        QTest::newRow("random bytes") << QByteArrayList{QByteArray(
            reinterpret_cast<const char *>(noise.constData()), 1 << 20)}
                                      << none << 42 << "ON";
    }

    // The host keeps what the file says, and nothing of a file it refuses.
    void loadedFile()
    {
        QFETCH(QByteArrayList, lines);
        QFETCH(QList<QStringList>, steps);
        QFETCH(int, cycles);
        QFETCH(QString, endState);
        openTab(UploadMode::List);
        host = Host::KeepsTheFile;
        loadInTime(lines);
        QCOMPARE(shownSteps(), steps);
        QCOMPARE(dialog->getUploadParamFromUI(tab).cycles, cycles);
        QCOMPARE(dialog->getUploadParamFromUI(tab).endState, endState);
        verifyCounterAndSelection();
    }

    void oversizedFile_data()
    {
        QTest::addColumn<UploadMode>("mode");
        QTest::addColumn<QByteArray>("head");
        QTest::addColumn<QByteArray>("line"); // repeated up to the size; NULs when empty
        QTest::addColumn<qint64>("size");
        QTest::addColumn<int>("steps");

        const QByteArray head = listHead.join('\n') + '\n';
        QTest::newRow("1.2 GB of NULs") << UploadMode::Delayer << QByteArray() << QByteArray()
                                        << qint64{1200} * 1000 * 1000 << 0;
        QTest::newRow("one 300 MB line")
            << UploadMode::List << head << QByteArray() << qint64{300} * 1000 * 1000 << 0;
        QTest::newRow("200 MB of steps")
            << UploadMode::List << head << QByteArray("0,1.000,0.500,0.010\n")
            << qint64{200} * 1000 * 1000 << 3;
    }

    // Files no user should feed in: the loaders read no further than the steps they can use and
    // refuse a file whose lines are longer than any sequence's, quickly and in little memory.
    void oversizedFile()
    {
        QFETCH(UploadMode, mode);
        QFETCH(QByteArray, head);
        QFETCH(QByteArray, line);
        QFETCH(qint64, size);
        QFETCH(int, steps);
        openTab(mode);
        QFile out(path);
        QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(head);
        if (!line.isEmpty()) {
            const QByteArray block = line.repeated(qMax(1, (1 << 20) / line.size()));
            while (out.size() < size)
                QCOMPARE(out.write(block), block.size());
        }
        QVERIFY(out.resize(size)); // the rest a hole of NULs that costs no disk
        out.close();

        const long peakBefore = peakResidentKiB();
        const QDeadlineTimer budget(kBudgetMsec);
        const int loaded = mode == UploadMode::List ? dialog->listLoadData(path).size()
                                                    : dialog->delayerLoadData(path).size();
        QVERIFY2(!budget.hasExpired(), qPrintable(QString::number(budget.remainingTime())));
        QCOMPARE(loaded, steps);
        QVERIFY2(peakResidentKiB() - peakBefore < kMemoryBudgetKiB,
                 qPrintable(QString::number(peakResidentKiB() - peakBefore)));
        QVERIFY(out.remove());
    }

    void roundTrip_data()
    {
        QTest::addColumn<UploadMode>("mode");
        QTest::addColumn<QByteArrayList>("lines");
        QTest::addColumn<int>("hostCycles");
        QTest::addColumn<QString>("hostEndState");
        QTest::addColumn<QList<QStringList>>("steps");
        QTest::addColumn<QStringList>("saved");

        QTest::newRow("list") << UploadMode::List
                              << QByteArrayList{"LIST,10",
                                                "Cycles,1",
                                                "End Status,Last",
                                                "Groups,1",
                                                "No.",
                                                "0,5,1.5,0.25"}
                              << 0 << "OFF" << QList<QStringList>{{"5", "1.5", "0.25"}}
                              << QStringList{"LIST,10",
                                             "Cycles,Infinite",
                                             "End Status,Output Off",
                                             "Groups,1",
                                             "No.,Voltage(V),Current(A),Time(s)",
                                             "0,5.0,1.5000,0.250"};
        QTest::newRow("delayer, states case-sensitive")
            << UploadMode::Delayer
            << QByteArrayList{"DELAYER,10",
                              "Cycles,1",
                              "End Status,Last",
                              "Groups,3",
                              "No.",
                              "0,On,0.1",
                              "1,ON,2",
                              "3,on,1.5"}
            << 99999 << "ON"
            << QList<QStringList>{{"true", "0.1"}, {"false", "2"}, {"false", "1.5"}}
            << QStringList{"DELAYER,10",
                           "Cycles,99999",
                           "End Status,Output On",
                           "Groups,3",
                           "No.,State,Time(s)",
                           "0,On,0.100",
                           "1,Off,2.000",
                           "2,Off,1.500"};
    }

    // The host's cycles and end state win over the file's; what is then saved, with the
    // instrument's decimals, loads back with the cycles and end state it was saved with.
    void roundTrip()
    {
        QFETCH(UploadMode, mode);
        QFETCH(QByteArrayList, lines);
        QFETCH(int, hostCycles);
        QFETCH(QString, hostEndState);
        QFETCH(QList<QStringList>, steps);
        QFETCH(QStringList, saved);
        openTab(mode);
        this->hostCycles = hostCycles;
        this->hostEndState = hostEndState;
        loadInTime(lines);
        QCOMPARE(shownSteps(), steps);
        QCOMPARE(dialog->getUploadParamFromUI(tab).cycles, hostCycles);
        QCOMPARE(dialog->getUploadParamFromUI(tab).endState, hostEndState);
        verifyCounterAndSelection();

        if (tab == UploadMode::Delayer) // the button of each tab does what its action does
            child<QPushButton>("btn", "Save")->click();
        else
            dialog->findChild<QAction *>(QStringLiteral("actionSaveList"))->trigger();
        QCOMPARE(tarn2::util::character::Character::csvLoad(path), saved);

        child<QSpinBox>("sb", "Cycles")->setValue(7);
        child<QComboBox>("cbb", "EndState")->setCurrentIndex(-1);
        host = Host::KeepsTheFile;
        triggerLoad();
        QCOMPARE(shownSteps(), steps);
        QCOMPARE(dialog->getUploadParamFromUI(tab).cycles, hostCycles);
        QCOMPARE(dialog->getUploadParamFromUI(tab).endState, hostEndState);
    }
};

QTEST_MAIN(TestDialogFiles)
#include "tst_dialogfiles.moc"
