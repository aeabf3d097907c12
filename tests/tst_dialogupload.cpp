// Tests of the upload flow: what a host receives, in which order, and what the dialog shows.
#include "dialogprogrammer.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

Option hostOption(int maxCount)
{
    Option option;
    option.name = QStringLiteral("Upload Bench");
    option.timeDecimals = 3;
    option.timeMin = 0.001;
    option.timeMax = 99999;
    option.voltageDecimals = 3;
    option.currentDecimals = 3;
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    option.maxCount = maxCount;
    option.saveEnabled = true;
    option.loadEnabled = true;
    option.uploadEnabled = true;
    return option;
}

const QList<ListData> listSteps = {ListData(1.5, 0.25, 0.5),
                                   ListData(32.0, 3.2, 99999.0),
                                   ListData(0.0, 0.0, 0.001),
                                   ListData(2.0, 1.0, 4.0),
                                   ListData(3.0, 2.0, 8.0)};
const QList<DelayerData> delayerSteps = {DelayerData(true, 0.5),
                                         DelayerData(false, 1.25),
                                         DelayerData(true, 99999.0),
                                         DelayerData(false, 2.0),
                                         DelayerData(true, 3.0)};

// A scripted host: it answers the load signals with prepared steps, as a host reading a file
// would, and writes every upload signal with what the dialog showed at that moment into one log.
class Host
{
public:
    explicit Host(DialogProgrammer *dialog)
        : dialog(dialog)
        , bar(dialog->findChild<QProgressBar *>())
    {
        QObject::connect(dialog,
                         &DialogProgrammer::listLoadFromCSV,
                         &context,
                         [this](QList<ListData> &datas, UploadParam &) { datas = list; });
        QObject::connect(dialog,
                         &DialogProgrammer::delayerLoadFromCSV,
                         &context,
                         [this](QList<DelayerData> &datas, UploadParam &) { datas = delayer; });
        QObject::connect(
            dialog, &DialogProgrammer::uploaderStarted, &context, [this](const UploadParam &p) {
                record(QStringLiteral("started mode %1 channel %2 steps %3 cycles "
                                      "%4 end %5")
                           .arg(p.mode)
                           .arg(p.channel)
                           .arg(p.maxCount)
                           .arg(p.cycles)
                           .arg(p.endState));
            });
        QObject::connect(dialog,
                         &DialogProgrammer::uploaderNextData,
                         &context,
                         [this](int dataIndex, const ProgrammerData &data) {
                             record(QStringLiteral("next %1: %2 rows %3")
                                        .arg(dataIndex)
                                        .arg(describe(data), selectedRows()));
                         });
        QObject::connect(dialog, &DialogProgrammer::uploaderFinished, &context, [this] {
            record(QStringLiteral("finished"));
        });
        QObject::connect(dialog,
                         &DialogProgrammer::uploaderError,
                         &context,
                         [this](const QString &e) { record(QStringLiteral("error ") + e); });
        QObject::connect(dialog, &DialogProgrammer::uploaderStoped, &context, [this] {
            record(QStringLiteral("stoped"));
        });
        QObject::connect(dialog, &DialogProgrammer::listSaveToCSV, &context, [this] {
            record(QStringLiteral("list save"));
        });
        QObject::connect(dialog, &DialogProgrammer::delayerSaveToCSV, &context, [this] {
            record(QStringLiteral("delayer save"));
        });
    }

    // What the dialog shows besides the signal: locked or not, and the progress bar.
    QString state() const
    {
        const QString lock
            = dialog->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled");
        if (!bar->isVisibleTo(dialog))
            return lock + QStringLiteral(" no bar");
        return lock
               + QStringLiteral(" bar %1/%2..%3")
                     .arg(bar->value())
                     .arg(bar->minimum())
                     .arg(bar->maximum());
    }

    QStringList log;
    QList<ListData> list;
    QList<DelayerData> delayer;
    QTableView *view = nullptr; // the table whose selection the steps are checked against

private:
    void record(const QString &event) { log << event + QStringLiteral(" | ") + state(); }

    static QString describe(const ProgrammerData &data)
    {
        if (const auto *step = dynamic_cast<const ListData *>(&data))
            return QStringLiteral("%1 V %2 A %3 s")
                .arg(step->voltage)
                .arg(step->current)
                .arg(step->time);
        if (const auto *step = dynamic_cast<const DelayerData *>(&data))
            return QStringLiteral("%1 %2 s")
                .arg(step->state ? QStringLiteral("On") : QStringLiteral("Off"))
                .arg(step->time);
        return QStringLiteral("?");
    }

    QString selectedRows() const
    {
        QStringList rows;
        const QItemSelectionModel *selection = view->selectionModel();
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (selection->isRowSelected(row, QModelIndex()))
                rows << QString::number(row);
        }
        return rows.join(QLatin1Char(','));
    }

    DialogProgrammer *dialog;
    QProgressBar *bar;
    QObject context;
};

struct Bench
{
    explicit Bench(int maxCount)
        : dialog(hostOption(maxCount), nullptr)
        , host(&dialog)
    {}

    template<typename T> T *child(const char *name)
    {
        return dialog.findChild<T *>(QString::fromLatin1(name));
    }

    // Fills a sequence the way a host loading a file does.
    void load(bool delayer, int steps)
    {
        host.list = listSteps.mid(0, delayer ? 0 : steps);
        host.delayer = delayerSteps.mid(0, delayer ? steps : 0);
        child<QAction>(delayer ? "actionLoadDelayer" : "actionloadList")->trigger();
        host.view = child<QTableView>(delayer ? "tvDelayer" : "tvList");
    }

    void startUpload(bool delayer, bool button)
    {
        if (!button) {
            child<QAction>(delayer ? "actionDelayerUpload" : "actionListUpload")->trigger();
            return;
        }
        child<QTabWidget>("tabWidget")
            ->setCurrentWidget(child<QWidget>(delayer ? "tabDelayer" : "tabList"));
        QTest::mouseClick(child<QPushButton>(delayer ? "btnDelayerUpload" : "btnListUpload"),
                          Qt::LeftButton);
    }

    DialogProgrammer dialog;
    Host host;
};

} // namespace

class TestDialogUpload : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void run_data();
    void run();
    void timeout();
    void idleCalls();
    void emptySequence_data();
    void emptySequence();

private:
    QTemporaryDir configDir;
};

void TestDialogUpload::initTestCase()
{
    QVERIFY(configDir.isValid());
    qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit());
    QCoreApplication::setOrganizationName(QStringLiteral("TarnTests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_dialogupload"));
    QLocale::setDefault(QLocale::c());
}

void TestDialogUpload::run_data()
{
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<bool>("button");
    QTest::addColumn<int>("steps");
    QTest::addColumn<QStringList>("expected");

    // Set on every tab before the upload: channel index 2, cycles 7, the end state at index 1
    // (list) or 2 (delayer).
    QTest::newRow("list of 3 by action")
        << 2048 << false << false << 3
        << QStringList{
               QStringLiteral(
                   "started mode 0 channel 3 steps 3 cycles 7 end ON | disabled bar 0/0..3"),
               QStringLiteral("next 0: 1.5 V 0.25 A 0.5 s rows 0 | disabled bar 1/0..3"),
               QStringLiteral("next 1: 32 V 3.2 A 99999 s rows 1 | disabled bar 2/0..3"),
               QStringLiteral("next 2: 0 V 0 A 0.001 s rows 2 | disabled bar 3/0..3"),
               QStringLiteral("finished | disabled bar 3/0..3"),
               QStringLiteral("stoped | enabled no bar")};
    QTest::newRow("list of 3 by button")
        << 2048 << false << true << 3
        << QStringList{
               QStringLiteral(
                   "started mode 0 channel 3 steps 3 cycles 7 end ON | disabled bar 0/0..3"),
               QStringLiteral("next 0: 1.5 V 0.25 A 0.5 s rows 0 | disabled bar 1/0..3"),
               QStringLiteral("next 1: 32 V 3.2 A 99999 s rows 1 | disabled bar 2/0..3"),
               QStringLiteral("next 2: 0 V 0 A 0.001 s rows 2 | disabled bar 3/0..3"),
               QStringLiteral("finished | disabled bar 3/0..3"),
               QStringLiteral("stoped | enabled no bar")};
    QTest::newRow("delayer of 2 by action")
        << 2048 << true << false << 2
        << QStringList{
               QStringLiteral(
                   "started mode 1 channel 3 steps 2 cycles 7 end LAST | disabled bar 0/0..2"),
               QStringLiteral("next 0: On 0.5 s rows 0 | disabled bar 1/0..2"),
               QStringLiteral("next 1: Off 1.25 s rows 1 | disabled bar 2/0..2"),
               QStringLiteral("finished | disabled bar 2/0..2"),
               QStringLiteral("stoped | enabled no bar")};
    QTest::newRow("delayer of 3 by button")
        << 2048 << true << true << 3
        << QStringList{
               QStringLiteral(
                   "started mode 1 channel 3 steps 3 cycles 7 end LAST | disabled bar 0/0..3"),
               QStringLiteral("next 0: On 0.5 s rows 0 | disabled bar 1/0..3"),
               QStringLiteral("next 1: Off 1.25 s rows 1 | disabled bar 2/0..3"),
               QStringLiteral("next 2: On 99999 s rows 2 | disabled bar 3/0..3"),
               QStringLiteral("finished | disabled bar 3/0..3"),
               QStringLiteral("stoped | enabled no bar")};
    QTest::newRow("list of 5, instrument holds 3")
        << 3 << false << false << 5
        << QStringList{
               QStringLiteral(
                   "started mode 0 channel 3 steps 3 cycles 7 end ON | disabled bar 0/0..3"),
               QStringLiteral("next 0: 1.5 V 0.25 A 0.5 s rows 0 | disabled bar 1/0..3"),
               QStringLiteral("next 1: 32 V 3.2 A 99999 s rows 1 | disabled bar 2/0..3"),
               QStringLiteral("next 2: 0 V 0 A 0.001 s rows 2 | disabled bar 3/0..3"),
               QStringLiteral("finished | disabled bar 3/0..3"),
               QStringLiteral("stoped | enabled no bar")};
    // The uploader never runs with nothing to send; stopping the run still unlocks the dialog.
    QTest::newRow("instrument holds none")
        << 0 << false << false << 2
        << QStringList{
               QStringLiteral(
                   "started mode 0 channel 3 steps 0 cycles 7 end ON | disabled bar 0/0..0"),
               QStringLiteral("stoped | enabled no bar")};
}

void TestDialogUpload::run()
{
    QFETCH(int, maxCount);
    QFETCH(bool, delayer);
    QFETCH(bool, button);
    QFETCH(int, steps);
    QFETCH(QStringList, expected);

    Bench bench(maxCount);
    bench.load(delayer, steps);
    QCOMPARE(bench.host.view->model()->rowCount(), steps);
    bench.child<QComboBox>(delayer ? "cbbDelayerCH" : "cbbListCH")->setCurrentIndex(2);
    bench.child<QSpinBox>(delayer ? "sbDelayerCycles" : "sbListCycles")->setValue(7);
    bench.child<QComboBox>(delayer ? "cbbDelayerEndState" : "cbbListEndState")
        ->setCurrentIndex(delayer ? 2 : 1);

    // A second run over the same dialog must look exactly like the first.
    for (int round = 0; round < 2; ++round) {
        bench.host.log.clear();
        bench.startUpload(delayer, button);
        // One call per step, then one asking past the last step.
        for (int i = 0; i <= qMin(steps, maxCount); ++i)
            bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();
        // The run is over: neither call reaches an uploader any more.
        bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(bench.host.log, expected);
    }
}

void TestDialogUpload::timeout()
{
    Bench bench(2048);
    bench.load(false, 2);
    QSignalSpy errors(&bench.dialog, &DialogProgrammer::uploaderError);
    QVERIFY(errors.isValid());

    bench.startUpload(false, false);
    bench.dialog.uploaderNext();
    bench.dialog.uploaderNext();
    QElapsedTimer sinceLastStep;
    sinceLastStep.start();
    bench.dialog.uploaderNext();
    QVERIFY(errors.wait(5000));
    const qint64 elapsed = sinceLastStep.elapsed();
    QVERIFY2(elapsed >= 450, qPrintable(QString::number(elapsed)));
    QVERIFY2(elapsed < 1500, qPrintable(QString::number(elapsed)));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), QStringLiteral("The upload timed out"));

    bench.dialog.uploaderStop();
    QCOMPARE(
        bench.host.log,
        (QStringList{QStringLiteral(
                         "started mode 0 channel 1 steps 2 cycles 0 end OFF | disabled bar 0/0..2"),
                     QStringLiteral("next 0: 1.5 V 0.25 A 0.5 s rows 0 | disabled bar 1/0..2"),
                     QStringLiteral("next 1: 32 V 3.2 A 99999 s rows 1 | disabled bar 2/0..2"),
                     QStringLiteral("finished | disabled bar 2/0..2"),
                     QStringLiteral("error The upload timed out | disabled bar 2/0..2"),
                     QStringLiteral("stoped | enabled no bar")}));
    // A stopped run reports nothing later.
    QTest::qWait(700);
    QCOMPARE(errors.count(), 1);
}

void TestDialogUpload::idleCalls()
{
    Bench bench(2048);
    bench.load(false, 3);
    bench.dialog.uploaderNext();
    bench.dialog.uploaderStop();
    QVERIFY(bench.host.log.isEmpty());
    QCOMPARE(bench.host.state(), QStringLiteral("enabled no bar"));
}

void TestDialogUpload::emptySequence_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<bool>("button");
    QTest::addColumn<QString>("message");

    QTest::newRow("list action") << false << false << QStringLiteral("The list data is empty");
    QTest::newRow("list button") << false << true << QStringLiteral("The list data is empty");
    QTest::newRow("delayer action") << true << false << QStringLiteral("The delayer data is empty");
    QTest::newRow("delayer button") << true << true << QStringLiteral("The delayer data is empty");
}

void TestDialogUpload::emptySequence()
{
    QFETCH(bool, delayer);
    QFETCH(bool, button);
    QFETCH(QString, message);

    Bench bench(2048);
    // The other sequence is not empty, so that a mix-up of the two shows.
    bench.load(!delayer, 2);
    bench.startUpload(delayer, button);
    const auto *status = bench.dialog.findChild<QStatusBar *>();
    QCOMPARE(status->currentMessage(), message);
    QCOMPARE(status->styleSheet(), QStringLiteral("color:#ff0000"));
    bench.dialog.uploaderNext();
    bench.dialog.uploaderStop();
    QVERIFY(bench.host.log.isEmpty());
    QCOMPARE(bench.host.state(), QStringLiteral("enabled no bar"));
}

QTEST_MAIN(TestDialogUpload)
#include "tst_dialogupload.moc"
