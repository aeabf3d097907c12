// Tests of the upload flow: what a host receives, in which order, and what the dialog shows.
#include "dialogprogrammer.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

// The host's instrument: four channels of 0-32 V and 0-3.2 A, millisecond steps.
Option hostOption(int maxCount)
{
    Option option{
        QStringLiteral("Upload Bench"), 3, 0.001, 99999, 3, 3, {}, maxCount, true, true, true};
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    return option;
}

const QList<ListData> listSteps = {ListData(1.5, 0.25, 0.5),
                                   ListData(32.0, 3.2, 99999.0),
                                   ListData(0.0, 0.0, 0.001),
                                   ListData(2.0, 1.0, 4.0),
                                   ListData(3.0, 2.0, 8.0)};
const QList<DelayerData> delayerSteps
    = {DelayerData(true, 0.5), DelayerData(false, 1.25), DelayerData(true, 99999.0)};

QString describe(const ProgrammerData &data)
{
    if (const auto *s = dynamic_cast<const ListData *>(&data))
        return QStringLiteral("%1 V %2 A %3 s").arg(s->voltage).arg(s->current).arg(s->time);
    if (const auto *s = dynamic_cast<const DelayerData *>(&data))
        return QStringLiteral("%1 %2 s").arg(QLatin1String(s->state ? "On" : "Off")).arg(s->time);
    return QStringLiteral("?");
}

// A scripted host and its dialog. The host fills the sequences through the load signals, as a
// host reading a file does, and writes every other signal into one log together with what the
// dialog showed at that moment: locked or not, the progress bar, the fully selected rows.
class Bench
{
public:
    explicit Bench(int maxCount, bool delayer)
        : dialog(hostOption(maxCount))
        , delayer(delayer)
        , bar(dialog.findChild<QProgressBar *>())
    {
        using D = DialogProgrammer;
        QObject::connect(
            &dialog, &D::listLoadFromCSV, &context, [this](auto &datas, auto &) { datas = list; });
        QObject::connect(&dialog, &D::delayerLoadFromCSV, &context, [this](auto &datas, auto &) {
            datas = delayerList;
        });
        QObject::connect(&dialog, &D::uploaderStarted, &context, [this](const UploadParam &p) {
            record(QStringLiteral("started %1 ch %2 max %3 cycles %4 %5")
                       .arg(p.mode)
                       .arg(p.channel)
                       .arg(p.maxCount)
                       .arg(p.cycles)
                       .arg(p.endState));
        });
        QObject::connect(&dialog, &D::uploaderNextData, &context, [this](int i, const auto &data) {
            log << QStringLiteral("next %1: %2 | %3 rows %4")
                       .arg(i)
                       .arg(describe(data), state(), selectedRows());
        });
        note(&D::uploaderFinished, "finished");
        QObject::connect(&dialog, &D::uploaderError, &context, [this](const QString &e) {
            record(QStringLiteral("error ") + e);
        });
        note(&D::uploaderStoped, "stoped");
        note(&D::listSaveToCSV, "list save");
        note(&D::delayerSaveToCSV, "delayer save");
    }

    template<typename T> T *child(const char *list, const char *other)
    {
        return dialog.findChild<T *>(QLatin1String(delayer ? other : list));
    }

    void load(int steps)
    {
        list = delayer ? QList<ListData>() : listSteps.mid(0, steps);
        delayerList = delayer ? delayerSteps.mid(0, steps) : QList<DelayerData>();
        child<QAction>("actionloadList", "actionLoadDelayer")->trigger();
    }

    void startUpload(bool button)
    {
        if (!button) {
            child<QAction>("actionListUpload", "actionDelayerUpload")->trigger();
            return;
        }
        dialog.findChild<QTabWidget *>()->setCurrentWidget(child<QWidget>("tabList", "tabDelayer"));
        QTest::mouseClick(child<QPushButton>("btnListUpload", "btnDelayerUpload"), Qt::LeftButton);
    }

    QString state() const
    {
        const QString lock = dialog.isEnabled() ? QStringLiteral("free") : QStringLiteral("locked");
        if (!bar->isVisibleTo(&dialog))
            return lock + QStringLiteral(" no bar");
        return lock
               + QStringLiteral(" bar %1 in %2-%3")
                     .arg(bar->value())
                     .arg(bar->minimum())
                     .arg(bar->maximum());
    }

    // The rows of the sequence table that are selected as a whole.
    QString selectedRows()
    {
        const auto *view = child<QTableView>("tvList", "tvDelayer");
        QStringList rows;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->selectionModel()->isRowSelected(row, QModelIndex()))
                rows << QString::number(row);
        }
        return rows.join(QLatin1Char(','));
    }

    DialogProgrammer dialog;
    QStringList log;
    bool delayer;

private:
    template<typename Signal> void note(Signal signal, const char *event)
    {
        QObject::connect(
            &dialog, signal, &context, [this, event] { record(QLatin1String(event)); });
    }

    void record(const QString &event) { log << event + QStringLiteral(" | ") + state(); }

    QProgressBar *bar;
    QList<ListData> list;
    QList<DelayerData> delayerList;
    QObject context;
};

} // namespace

class TestDialogUpload : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void run_data();
    void run();

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
    QTest::addColumn<bool>("silentHost"); // waits for the time-out before it stops the run
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("expected");

    // Every tab is set to channel index 2, 7 cycles and end-state index 1 (list) or 2 (delayer).
    QTest::newRow("list by action")
        << 2048 << false << false << 3 << false << QString()
        << QStringList{"started 0 ch 3 max 3 cycles 7 ON | locked bar 0 in 0-3",
                       "next 0: 1.5 V 0.25 A 0.5 s | locked bar 1 in 0-3 rows 0",
                       "next 1: 32 V 3.2 A 99999 s | locked bar 2 in 0-3 rows 1",
                       "next 2: 0 V 0 A 0.001 s | locked bar 3 in 0-3 rows 2",
                       "finished | locked bar 3 in 0-3",
                       "stoped | free no bar"};
    QTest::newRow("delayer by button")
        << 2048 << true << true << 3 << false << QString()
        << QStringList{"started 1 ch 3 max 3 cycles 7 LAST | locked bar 0 in 0-3",
                       "next 0: On 0.5 s | locked bar 1 in 0-3 rows 0",
                       "next 1: Off 1.25 s | locked bar 2 in 0-3 rows 1",
                       "next 2: On 99999 s | locked bar 3 in 0-3 rows 2",
                       "finished | locked bar 3 in 0-3",
                       "stoped | free no bar"};
    QTest::newRow("list of 5, instrument holds 3")
        << 3 << false << true << 5 << false << QString()
        << QStringList{"started 0 ch 3 max 3 cycles 7 ON | locked bar 0 in 0-3",
                       "next 0: 1.5 V 0.25 A 0.5 s | locked bar 1 in 0-3 rows 0",
                       "next 1: 32 V 3.2 A 99999 s | locked bar 2 in 0-3 rows 1",
                       "next 2: 0 V 0 A 0.001 s | locked bar 3 in 0-3 rows 2",
                       "finished | locked bar 3 in 0-3",
                       "stoped | free no bar"};
    QTest::newRow("host ignores finished")
        << 2048 << false << false << 2 << true << QString()
        << QStringList{"started 0 ch 3 max 2 cycles 7 ON | locked bar 0 in 0-2",
                       "next 0: 1.5 V 0.25 A 0.5 s | locked bar 1 in 0-2 rows 0",
                       "next 1: 32 V 3.2 A 99999 s | locked bar 2 in 0-2 rows 1",
                       "finished | locked bar 2 in 0-2",
                       "error The upload timed out | locked bar 2 in 0-2",
                       "stoped | free no bar"};
    // The uploader never runs with nothing to send; stopping still ends the run and unlocks.
    QTest::newRow("instrument holds none")
        << 0 << false << false << 2 << false << QString()
        << QStringList{"started 0 ch 3 max 0 cycles 7 ON | locked bar 0 in 0-0",
                       "stoped | free no bar"};
    QTest::newRow("empty list by button")
        << 2048 << false << true << 0 << false << QStringLiteral("The list data is empty")
        << QStringList();
    QTest::newRow("empty delayer by action")
        << 2048 << true << false << 0 << false << QStringLiteral("The delayer data is empty")
        << QStringList();
}

void TestDialogUpload::run()
{
    QFETCH(int, maxCount);
    QFETCH(bool, delayer);
    QFETCH(bool, button);
    QFETCH(int, steps);
    QFETCH(bool, silentHost);
    QFETCH(QString, message);
    QFETCH(QStringList, expected);

    // The other tab's sequence is never empty, so that a mix-up of the two shows.
    Bench bench(maxCount, !delayer);
    bench.load(2);
    bench.delayer = delayer;
    bench.load(steps);
    bench.child<QComboBox>("cbbListCH", "cbbDelayerCH")->setCurrentIndex(2);
    bench.child<QSpinBox>("sbListCycles", "sbDelayerCycles")->setValue(7);
    bench.child<QComboBox>("cbbListEndState", "cbbDelayerEndState")
        ->setCurrentIndex(delayer ? 2 : 1);

    // Calls outside a run reach nothing, and a second run looks exactly like the first.
    bench.dialog.uploaderNext();
    bench.dialog.uploaderStop();
    for (int round = 0; round < 2; ++round) {
        bench.log.clear();
        bench.startUpload(button);
        // One call per step, and one asking past the last step.
        for (int i = 0; i <= qMin(steps, maxCount); ++i)
            bench.dialog.uploaderNext();
        if (silentHost) {
            QElapsedTimer sinceLastStep;
            sinceLastStep.start();
            QTRY_COMPARE_WITH_TIMEOUT(bench.log.size(), expected.size() - 1, 5000);
            const qint64 elapsed = sinceLastStep.elapsed();
            QVERIFY2(elapsed >= 450 && elapsed < 1500, qPrintable(QString::number(elapsed)));
        }
        bench.dialog.uploaderStop();
        bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();
        // A run that is over reports nothing later.
        if (silentHost)
            QTest::qWait(700);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(bench.log, expected);
    }

    const auto *status = bench.dialog.findChild<QStatusBar *>();
    QCOMPARE(status->currentMessage(), message);
    if (!message.isEmpty())
        QCOMPARE(status->styleSheet(), QStringLiteral("color:#ff0000"));
}

QTEST_MAIN(TestDialogUpload)
#include "tst_dialogupload.moc"
