// Tests of the upload flow: what a host receives, in which order, and what the dialog shows.
#include "benchoption.h"
#include "dialogprogrammer.h"

#include <QtTest>
#include <QtWidgets>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

enum DialogState { Unlocked, Locked };

// One signal the host heard, with what the dialog showed at that moment.
struct Heard
{
    QString signal;
    DialogState dialog = Unlocked;
    int progress = -1; // the progress bar's value and maximum; -1 while the bar is hidden
    int progressMaximum = -1;
};

bool operator==(const Heard &a, const Heard &b)
{
    return a.signal == b.signal && a.dialog == b.dialog && a.progress == b.progress
           && a.progressMaximum == b.progressMaximum;
}

char *toString(const Heard &heard)
{
    QString text = heard.signal + QLatin1String(heard.dialog == Locked ? ", locked" : ", unlocked");
    if (heard.progress >= 0)
        text
            += QStringLiteral(", progress %1 of %2").arg(heard.progress).arg(heard.progressMaximum);
    return qstrdup(qPrintable(text));
}

Heard locked(const char *signal, int progress, int progressMaximum)
{
    return {QLatin1String(signal), Locked, progress, progressMaximum};
}

Heard unlocked(const char *signal)
{
    return {QLatin1String(signal), Unlocked, -1, -1};
}

// A list and a delayer sequence of 3 steps each; a test uploads the first steps of one of them
// while the other tab holds two, so that a mix-up of the two shows.
const QList<ListData> listSteps{{1.5, 0.25, 0.5}, {32, 3.2, 99999}, {0, 0, 0.001}};
const QList<DelayerData> delayerSteps{{true, 0.5}, {false, 1.25}, {true, 99999}};

// A dialog for four channels of 32 V and 3.2 A with both tabs loaded, and a host that listens on
// all nine signals of it and records what it hears.
struct Bench
{
    static Option option(int maxCount)
    {
        Option option = test::benchOption();
        option.name = QStringLiteral("U");
        option.maxCount = maxCount;
        option.channels.fill(test::channel(QStringLiteral("CH"), 32, 3.2), 4);
        return option;
    }

    Bench(int maxCount, UploadMode mode, int steps)
        : dialog(option(maxCount))
        , mode(mode)
    {
        const QList<ListData> list = listSteps.mid(0, mode == UploadMode::List ? steps : 2);
        const QList<DelayerData> delays
            = delayerSteps.mid(0, mode == UploadMode::Delayer ? steps : 2);
        using D = DialogProgrammer;
        QObject::connect(&dialog, &D::listLoadFromCSV, &dialog, [list](QList<ListData> &datas) {
            datas = list;
        });
        QObject::connect(&dialog,
                         &D::delayerLoadFromCSV,
                         &dialog,
                         [delays](QList<DelayerData> &datas) { datas = delays; });
        QObject::connect(&dialog, &D::listSaveToCSV, &dialog, [this] { hear("listSaveToCSV"); });
        QObject::connect(
            &dialog, &D::delayerSaveToCSV, &dialog, [this] { hear("delayerSaveToCSV"); });
        QObject::connect(&dialog, &D::uploaderStarted, &dialog, [this](const UploadParam &param) {
            hear("uploaderStarted");
            started << param;
        });
        QObject::connect(
            &dialog, &D::uploaderNextData, &dialog, [this](int index, const ProgrammerData &data) {
                hear("uploaderNextData");
                handedIndexes << index;
                handedSteps << &data;
                QList<int> rows;
                for (const QModelIndex &row : table()->selectionModel()->selectedRows())
                    rows << row.row();
                selectedRows << rows;
            });
        QObject::connect(
            &dialog, &D::uploaderFinished, &dialog, [this] { hear("uploaderFinished"); });
        QObject::connect(&dialog, &D::uploaderError, &dialog, [this](const QString &e) {
            hear("uploaderError");
            errors << e;
        });
        QObject::connect(&dialog, &D::uploaderStoped, &dialog, [this] { hear("uploaderStoped"); });

        dialog.findChild<QAction *>(QStringLiteral("actionloadList"))->trigger();
        dialog.findChild<QAction *>(QStringLiteral("actionLoadDelayer"))->trigger();
        // The tab uploads from channel index 2 with 7 cycles and end-state index 1 (list) or 2
        // (delayer).
        child<QComboBox>("cbb", "CH")->setCurrentIndex(2);
        child<QSpinBox>("sb", "Cycles")->setValue(7);
        child<QComboBox>("cbb", "EndState")->setCurrentIndex(mode == UploadMode::Delayer ? 2 : 1);
    }

    template<typename T> T *child(const char *prefix, const char *suffix)
    {
        const QLatin1String tab(mode == UploadMode::Delayer ? "Delayer" : "List");
        return dialog.findChild<T *>(QLatin1String(prefix) + tab + QLatin1String(suffix));
    }
    QTableView *table() { return child<QTableView>("tv", ""); }

    // The list goes by its action, the delayer by its button.
    void upload()
    {
        if (mode == UploadMode::Delayer)
            dialog.findChild<QPushButton *>(QStringLiteral("btnDelayerUpload"))->click();
        else
            dialog.findChild<QAction *>(QStringLiteral("actionListUpload"))->trigger();
    }

    // The step the dialog's own sequence holds at `index`.
    const ProgrammerData *sequenceStep(int index) const
    {
        if (mode == UploadMode::Delayer)
            return &dialog.delayerSequence().at(index);
        return &dialog.listSequence().at(index);
    }

    void hear(const char *signal)
    {
        const auto *bar = dialog.findChild<QProgressBar *>();
        Heard now{QLatin1String(signal), dialog.isEnabled() ? Unlocked : Locked, -1, -1};
        if (bar->isVisibleTo(&dialog)) {
            now.progress = bar->value();
            now.progressMaximum = bar->maximum();
        }
        heard << now;
    }

    DialogProgrammer dialog;
    const UploadMode mode;
    QList<Heard> heard;
    QList<UploadParam> started;
    QList<int> handedIndexes;
    QList<const ProgrammerData *> handedSteps;
    QList<QList<int>> selectedRows;
    QStringList errors;
};

} // namespace

Q_DECLARE_METATYPE(UploadMode)
Q_DECLARE_METATYPE(Heard)

class TestDialogUpload : public QObject
{
    Q_OBJECT

    QTemporaryDir configDir;

private slots:
    void initTestCase()
    {
        QVERIFY(configDir.isValid());
        QVERIFY(qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit()));
        QLocale::setDefault(QLocale::c());
    }

    void run_data()
    {
        QTest::addColumn<int>("maxCount");
        QTest::addColumn<UploadMode>("mode");
        QTest::addColumn<int>("steps");
        QTest::addColumn<bool>("hostWaitsForTimeOut"); // instead of stopping when finished
        QTest::addColumn<QList<Heard>>("heard");
        QTest::addColumn<int>("announced"); // the step count uploaderStarted carries
        QTest::addColumn<QString>("endState");
        QTest::addColumn<QList<int>>("handedOut");

        const QList<Heard> listRun{locked("uploaderStarted", 0, 3),
                                   locked("uploaderNextData", 1, 3),
                                   locked("uploaderNextData", 2, 3),
                                   locked("uploaderNextData", 3, 3),
                                   locked("uploaderFinished", 3, 3)};
        QTest::newRow("list") << 2048 << UploadMode::List << 3 << false
                              << listRun + QList<Heard>{unlocked("uploaderStoped")} << 3 << "ON"
                              << QList<int>{0, 1, 2};
        QTest::newRow("delayer of 3, instrument holds 2")
            << 2 << UploadMode::Delayer << 3 << false
            << QList<Heard>{locked("uploaderStarted", 0, 2),
                            locked("uploaderNextData", 1, 2),
                            locked("uploaderNextData", 2, 2),
                            locked("uploaderFinished", 2, 2),
                            unlocked("uploaderStoped")}
            << 2 << "LAST" << QList<int>{0, 1};
        QTest::newRow("host ignores finished")
            << 2048 << UploadMode::List << 3 << true
            << listRun + QList<Heard>{locked("uploaderError", 3, 3), unlocked("uploaderStoped")}
            << 3 << "ON" << QList<int>{0, 1, 2};
        // The uploader never runs with nothing to send; stopping still ends the run and unlocks.
        QTest::newRow("instrument holds none")
            << 0 << UploadMode::List << 2 << false
            << QList<Heard>{locked("uploaderStarted", 0, 0), unlocked("uploaderStoped")} << 0
            << "ON" << QList<int>{};
    }

    void run()
    {
        QFETCH(int, maxCount);
        QFETCH(UploadMode, mode);
        QFETCH(int, steps);
        QFETCH(bool, hostWaitsForTimeOut);
        QFETCH(QList<Heard>, heard);
        QFETCH(int, announced);
        QFETCH(QString, endState);
        QFETCH(QList<int>, handedOut);
        Bench bench(maxCount, mode, steps);
        // Calls outside a run reach nothing.
        bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();

        bench.upload();
        for (int i = 0; i <= qMin(steps, maxCount); ++i) // and one asking past the last step
            bench.dialog.uploaderNext();
        if (hostWaitsForTimeOut)
            QTRY_COMPARE_WITH_TIMEOUT(bench.errors.size(), 1, 1500);
        bench.dialog.uploaderStop();
        bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();
        QTest::qWait(700); // past the watchdog's 500 ms: a run that is over reports nothing later

        QCOMPARE(bench.heard, heard);
        QCOMPARE(bench.started.size(), 1);
        QCOMPARE(bench.started.at(0).mode, mode);
        QCOMPARE(bench.started.at(0).channel, 3);
        QCOMPARE(bench.started.at(0).maxCount, announced);
        QCOMPARE(bench.started.at(0).cycles, 7);
        QCOMPARE(bench.started.at(0).endState, endState);
        QCOMPARE(bench.handedIndexes, handedOut);
        for (const int i : handedOut) {
            // Each step handed out is the sequence's own, of the tab uploaded, shown as the one
            // selected row; what a load puts into the sequence is for the file tests.
            QCOMPARE(bench.handedSteps.at(i), bench.sequenceStep(i));
            QCOMPARE(bench.selectedRows.at(i), QList<int>{i});
        }
        QCOMPARE(bench.errors,
                 hostWaitsForTimeOut ? QStringList{"The upload timed out"} : QStringList());
        QCOMPARE(bench.dialog.findChild<QStatusBar *>()->currentMessage(), QString());
    }

    void emptySequenceIsRefused_data()
    {
        QTest::addColumn<UploadMode>("mode");
        QTest::addColumn<QString>("message");
        QTest::newRow("list") << UploadMode::List << "The list data is empty";
        QTest::newRow("delayer") << UploadMode::Delayer << "The delayer data is empty";
    }

    // The host hears nothing; the user reads why in red.
    void emptySequenceIsRefused()
    {
        QFETCH(UploadMode, mode);
        QFETCH(QString, message);
        Bench bench(2048, mode, 0);
        bench.upload();
        bench.dialog.uploaderNext();
        bench.dialog.uploaderStop();
        QCOMPARE(bench.heard, QList<Heard>());
        QVERIFY(bench.dialog.isEnabled());
        const auto *status = bench.dialog.findChild<QStatusBar *>();
        QCOMPARE(status->currentMessage(), message);
        QCOMPARE(status->styleSheet(), QStringLiteral("color:#ff0000"));
    }

    // A second request while a run is out is turned away: the run keeps its uploader and its
    // place, and the host hears of one start only.
    void uploadAgainDuringARunIsIgnored()
    {
        Bench bench(2048, UploadMode::List, 3);
        auto *upload = bench.dialog.findChild<QAction *>(QStringLiteral("actionListUpload"));

        upload->trigger();
        bench.dialog.uploaderNext();
        upload->trigger();
        bench.dialog.uploaderStart(UploadMode::Delayer);
        bench.dialog.uploaderNext();
        QCOMPARE(bench.started.size(), 1);
        QCOMPARE(bench.handedIndexes, (QList<int>{0, 1}));
        bench.dialog.uploaderStop();
        QVERIFY(bench.dialog.isEnabled());
    }
};

QTEST_MAIN(TestDialogUpload)
#include "tst_dialogupload.moc"
