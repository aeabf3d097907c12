// Tests of the uploaders: the run's state table, the steps handed out and the step watchdog.
#include "delayeruploader.h"
#include "helper.h"
#include "listuploader.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

const QString timedOut = QStringLiteral("The upload timed out");

// The step lists an uploader walks, kept outside it as the dialog keeps them.
struct Steps
{
    QList<ListData> list;
    QList<DelayerData> delayer;

    void resize(int size)
    {
        while (list.size() > size)
            list.removeLast();
        while (delayer.size() > size)
            delayer.removeLast();
        for (int i = list.size(); i < size; ++i)
            list.append(ListData(i + 1.0, (i + 1) * 0.5, (i + 1) * 0.25));
        for (int i = delayer.size(); i < size; ++i)
            delayer.append(DelayerData(i % 2 == 0, (i + 1) * 0.125));
    }
};

std::unique_ptr<ProgrammerUploader> makeUploader(bool delayer, const Steps &steps)
{
    if (delayer)
        return std::make_unique<DelayerUploader>(steps.delayer, nullptr);
    return std::make_unique<ListUploader>(steps.list, nullptr);
}

// Writes every signal of one uploader into a single list, so that the order across signals shows.
class Recorder
{
public:
    explicit Recorder(ProgrammerUploader *uploader)
    {
        QObject::connect(uploader, &ProgrammerUploader::started, &context, [this](int count) {
            events << QStringLiteral("started(%1)").arg(count);
        });
        QObject::connect(uploader,
                         &ProgrammerUploader::nextData,
                         &context,
                         [this](int dataIndex, const ProgrammerData &data) {
                             events << QStringLiteral("nextData(%1)").arg(dataIndex);
                             handedOut << &data;
                         });
        QObject::connect(uploader, &ProgrammerUploader::finished, &context, [this] {
            events << QStringLiteral("finished");
        });
        QObject::connect(uploader, &ProgrammerUploader::error, &context, [this](const QString &e) {
            events << QStringLiteral("error(%1)").arg(e);
        });
        QObject::connect(uploader, &ProgrammerUploader::stoped, &context, [this] {
            events << QStringLiteral("stoped");
        });
    }

    QStringList events;
    QVector<const ProgrammerData *> handedOut;
    QObject context;
};

void addForBothKinds(const char *name, const std::function<void(QTestData &)> &fill)
{
    for (const bool delayer : {false, true}) {
        const QByteArray row = QByteArray(delayer ? "delayer: " : "list: ") + name;
        QTestData &data = QTest::newRow(row.constData()) << delayer;
        fill(data);
    }
}

} // namespace

class TestUploaders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void signalsInDeclarationOrder_data();
    void signalsInDeclarationOrder();
    void metaTypesRegistered_data();
    void metaTypesRegistered();
    void nextDataTravelsQueued();

    void walk_data();
    void walk();
    void idleUploaderIgnoresNextAndStop();
    void nextDataIsTheListElement_data();
    void nextDataIsTheListElement();
    void startWhileRunningKeepsIndex();
    void startAfterFinishIsIgnoredUntilStop();
    void listChangesDuringRun_data();
    void listChangesDuringRun();
    void reentrantNextRepeatsStep();

    void watchdogReportsTimeOut();
    void watchdogOutlivesFinished();
    void nextRearmsWatchdog();
    void stopFromHandlerLeavesNoWatchdog();
    void handlerMayDeleteUploader_data();
    void handlerMayDeleteUploader();
};

void TestUploaders::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestUploaders::init()
{
    Helper::getInstance().option.maxCount = 1000;
}

void TestUploaders::signalsInDeclarationOrder_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QByteArrayList>("names");

    QTest::newRow("started") << 0 << QByteArray("started(int)") << QByteArrayList{"dataCount"};
    QTest::newRow("nextData")
        << 1 << QByteArray("nextData(int,tarn2::specific::orvo5000::programmer::ProgrammerData)")
        << QByteArrayList{"dataIndex", "data"};
    QTest::newRow("finished") << 2 << QByteArray("finished()") << QByteArrayList{};
    QTest::newRow("error") << 3 << QByteArray("error(QString)") << QByteArrayList{"e"};
    QTest::newRow("stoped") << 4 << QByteArray("stoped()") << QByteArrayList{};
}

void TestUploaders::signalsInDeclarationOrder()
{
    QFETCH(int, offset);
    QFETCH(QByteArray, signature);
    QFETCH(QByteArrayList, names);

    const QMetaObject &meta = ProgrammerUploader::staticMetaObject;
    // Five signals and nothing else: start(), next() and stop() are plain functions, not slots.
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 5);
    QCOMPARE(ListUploader::staticMetaObject.methodCount(), meta.methodCount());
    QCOMPARE(DelayerUploader::staticMetaObject.methodCount(), meta.methodCount());

    const QMetaMethod method = meta.method(meta.methodOffset() + offset);
    QCOMPARE(method.methodType(), QMetaMethod::Signal);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(method.parameterNames(), names);
}

void TestUploaders::metaTypesRegistered_data()
{
    QTest::addColumn<QByteArray>("name");

    for (const char *type : {"ProgrammerData", "ListData", "DelayerData"}) {
        const QByteArray name = QByteArray("tarn2::specific::orvo5000::programmer::") + type;
        QTest::newRow(type) << name;
        QTest::newRow((QByteArray(type) + '&').constData()) << name + '&';
    }
}

void TestUploaders::metaTypesRegistered()
{
    QFETCH(QByteArray, name);

    const QList<ListData> list;
    const QList<DelayerData> delayer;
    const ListUploader listUploader(list, nullptr);
    const DelayerUploader delayerUploader(delayer, nullptr);

    const int id = QMetaType::type(name.constData());
    QVERIFY(id != QMetaType::UnknownType);
    // The name with "&" is another name of the same type, not a type of its own.
    QByteArray plain = name;
    if (plain.endsWith('&'))
        plain.chop(1);
    QCOMPARE(id, QMetaType::type(plain.constData()));
}

void TestUploaders::nextDataTravelsQueued()
{
    Steps steps;
    steps.resize(2);
    ListUploader uploader(steps.list, nullptr);
    QObject receiver;
    QList<int> indices;
    connect(
        &uploader,
        &ProgrammerUploader::nextData,
        &receiver,
        [&](int dataIndex, const ProgrammerData &) { indices << dataIndex; },
        Qt::QueuedConnection);

    uploader.start();
    uploader.next();
    uploader.next();
    QVERIFY(indices.isEmpty());
    QTRY_COMPARE(indices, (QList<int>{0, 1}));
    uploader.stop();
}

void TestUploaders::walk_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("events");

    // Every row: start(), next() four times, stop() twice, next() once more.
    addForBothKinds("list shorter than maxCount", [](QTestData &row) {
        row << 3 << 10 << 3
            << QStringList{
                   "started(3)", "nextData(0)", "nextData(1)", "nextData(2)", "finished", "stoped"};
    });
    addForBothKinds("maxCount cuts the list", [](QTestData &row) {
        row << 5 << 2 << 2
            << QStringList{
                   "started(2)", "nextData(0)", "nextData(1)", "finished", "finished", "stoped"};
    });
    addForBothKinds("list as long as maxCount", [](QTestData &row) {
        row << 4 << 4 << 4
            << QStringList{"started(4)",
                           "nextData(0)",
                           "nextData(1)",
                           "nextData(2)",
                           "nextData(3)",
                           "stoped"};
    });
    addForBothKinds("single step", [](QTestData &row) {
        row << 1 << 10 << 1
            << QStringList{
                   "started(1)", "nextData(0)", "finished", "finished", "finished", "stoped"};
    });
    addForBothKinds("empty list",
                    [](QTestData &row) { row << 0 << 10 << 0 << QStringList{"started(0)"}; });
    addForBothKinds("zero maxCount",
                    [](QTestData &row) { row << 3 << 0 << 0 << QStringList{"started(0)"}; });
    addForBothKinds("negative maxCount",
                    [](QTestData &row) { row << 3 << -5 << 0 << QStringList{"started(0)"}; });
}

void TestUploaders::walk()
{
    QFETCH(bool, delayer);
    QFETCH(int, size);
    QFETCH(int, maxCount);
    QFETCH(int, count);
    QFETCH(QStringList, events);

    Helper::getInstance().option.maxCount = maxCount;
    Steps steps;
    steps.resize(size);
    const auto uploader = makeUploader(delayer, steps);
    Recorder recorder(uploader.get());
    QSignalSpy startedSpy(uploader.get(), &ProgrammerUploader::started);
    QSignalSpy nextDataSpy(uploader.get(), &ProgrammerUploader::nextData);
    QSignalSpy stopedSpy(uploader.get(), &ProgrammerUploader::stoped);
    QVERIFY(startedSpy.isValid());
    QVERIFY(nextDataSpy.isValid());
    QVERIFY(stopedSpy.isValid());

    QCOMPARE(uploader->getDataCount(), count);
    uploader->start();
    QCOMPARE(uploader->isRunning(), count > 0);
    for (int i = 0; i < 4; ++i)
        uploader->next();
    QCOMPARE(uploader->isRunning(), count > 0);
    uploader->stop();
    uploader->stop();
    QVERIFY(!uploader->isRunning());
    uploader->next();

    QCOMPARE(recorder.events, events);
    QCOMPARE(startedSpy.count(), 1);
    QCOMPARE(startedSpy.at(0).at(0).toInt(), count);
    QCOMPARE(nextDataSpy.count(), qMin(count, 4));
    for (int i = 0; i < nextDataSpy.count(); ++i)
        QCOMPARE(nextDataSpy.at(i).at(0).toInt(), i);
    QCOMPARE(stopedSpy.count(), count > 0 ? 1 : 0);
}

void TestUploaders::idleUploaderIgnoresNextAndStop()
{
    Steps steps;
    steps.resize(3);
    ListUploader uploader(steps.list, nullptr);
    Recorder recorder(&uploader);

    uploader.next();
    uploader.stop();
    QVERIFY(!uploader.isRunning());
    QCOMPARE(recorder.events, QStringList{});

    // Nothing was handed out before start(), so the first step is still step 0.
    uploader.start();
    uploader.next();
    QCOMPARE(recorder.events, (QStringList{"started(3)", "nextData(0)"}));
    uploader.stop();
}

void TestUploaders::nextDataIsTheListElement_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::newRow("list") << false;
    QTest::newRow("delayer") << true;
}

void TestUploaders::nextDataIsTheListElement()
{
    QFETCH(bool, delayer);

    Steps steps;
    steps.resize(3);
    const auto uploader = makeUploader(delayer, steps);
    Recorder recorder(uploader.get());

    uploader->start();
    for (int i = 0; i < 3; ++i)
        uploader->next();
    uploader->stop();

    QCOMPARE(recorder.handedOut.size(), 3);
    for (int i = 0; i < 3; ++i) {
        const ProgrammerData *data = recorder.handedOut.at(i);
        const auto *listStep = dynamic_cast<const ListData *>(data);
        const auto *delayerStep = dynamic_cast<const DelayerData *>(data);
        if (delayer) {
            QVERIFY(!listStep);
            QCOMPARE(delayerStep, &steps.delayer.at(i));
        } else {
            QVERIFY(!delayerStep);
            QCOMPARE(listStep, &steps.list.at(i));
        }
    }
}

void TestUploaders::startWhileRunningKeepsIndex()
{
    Steps steps;
    steps.resize(4);
    ListUploader uploader(steps.list, nullptr);
    Recorder recorder(&uploader);

    uploader.start();
    uploader.next();
    uploader.next();
    uploader.start();
    QVERIFY(uploader.isRunning());
    uploader.next();
    uploader.stop();

    QCOMPARE(recorder.events,
             (QStringList{"started(4)", "nextData(0)", "nextData(1)", "nextData(2)", "stoped"}));
}

void TestUploaders::startAfterFinishIsIgnoredUntilStop()
{
    Steps steps;
    steps.resize(2);
    DelayerUploader uploader(steps.delayer, nullptr);
    Recorder recorder(&uploader);

    uploader.start();
    uploader.next();
    uploader.next();
    uploader.next();
    uploader.start();
    uploader.next();
    uploader.stop();
    uploader.start();
    uploader.next();
    uploader.stop();

    QCOMPARE(recorder.events,
             (QStringList{"started(2)",
                          "nextData(0)",
                          "nextData(1)",
                          "finished",
                          "finished",
                          "stoped",
                          "started(2)",
                          "nextData(0)",
                          "stoped"}));
}

void TestUploaders::listChangesDuringRun_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<int>("stepsOut");
    QTest::addColumn<int>("newSize");
    QTest::addColumn<int>("newMaxCount");
    QTest::addColumn<QStringList>("events"); // of the next two next() calls

    addForBothKinds("list shrinks below the index", [](QTestData &row) {
        row << 4 << 10 << 3 << 2 << 10 << QStringList{"finished", "finished"};
    });
    addForBothKinds("list shrinks to the index", [](QTestData &row) {
        row << 4 << 10 << 2 << 2 << 10 << QStringList{"finished", "finished"};
    });
    addForBothKinds("list emptied", [](QTestData &row) {
        row << 4 << 10 << 1 << 0 << 10 << QStringList{"finished", "finished"};
    });
    addForBothKinds("list shrinks above the index", [](QTestData &row) {
        row << 4 << 10 << 1 << 3 << 10 << QStringList{"nextData(1)", "nextData(2)"};
    });
    addForBothKinds("maxCount grows past the list", [](QTestData &row) {
        row << 2 << 1 << 1 << 2 << 100 << QStringList{"nextData(1)", "finished"};
    });
    addForBothKinds("maxCount drops below the index", [](QTestData &row) {
        row << 4 << 10 << 2 << 4 << 1 << QStringList{"finished", "finished"};
    });
    addForBothKinds("maxCount turns negative", [](QTestData &row) {
        row << 4 << 10 << 1 << 4 << -3 << QStringList{"finished", "finished"};
    });
    addForBothKinds("list grows after the last step", [](QTestData &row) {
        row << 2 << 10 << 2 << 3 << 10 << QStringList{"nextData(2)", "finished"};
    });
}

void TestUploaders::listChangesDuringRun()
{
    QFETCH(bool, delayer);
    QFETCH(int, size);
    QFETCH(int, maxCount);
    QFETCH(int, stepsOut);
    QFETCH(int, newSize);
    QFETCH(int, newMaxCount);
    QFETCH(QStringList, events);

    Helper::getInstance().option.maxCount = maxCount;
    Steps steps;
    steps.resize(size);
    const auto uploader = makeUploader(delayer, steps);
    uploader->start();
    for (int i = 0; i < stepsOut; ++i)
        uploader->next();

    steps.resize(newSize);
    Helper::getInstance().option.maxCount = newMaxCount;
    Recorder recorder(uploader.get());
    uploader->next();
    uploader->next();
    QCOMPARE(recorder.events, events);
    QVERIFY(uploader->isRunning());
    uploader->stop();
}

void TestUploaders::reentrantNextRepeatsStep()
{
    Steps steps;
    steps.resize(3);
    ListUploader uploader(steps.list, nullptr);
    Recorder recorder(&uploader);
    bool reentered = false;
    connect(&uploader, &ProgrammerUploader::nextData, &recorder.context, [&] {
        if (!reentered) {
            reentered = true;
            uploader.next();
        }
    });

    uploader.start();
    uploader.next();
    // The inner call hands out step 0 again; both calls then advance, so step 1 is skipped.
    uploader.next();
    uploader.next();
    uploader.stop();

    QCOMPARE(recorder.events,
             (QStringList{
                 "started(3)", "nextData(0)", "nextData(0)", "nextData(2)", "finished", "stoped"}));
}

void TestUploaders::watchdogReportsTimeOut()
{
    Steps steps;
    steps.resize(3);
    ListUploader uploader(steps.list, nullptr);
    Recorder recorder(&uploader);
    QSignalSpy errorSpy(&uploader, &ProgrammerUploader::error);
    QVERIFY(errorSpy.isValid());

    uploader.start();
    QElapsedTimer clock;
    clock.start();
    uploader.next();
    QVERIFY(errorSpy.wait(5000));
    const qint64 waited = clock.elapsed();
    QVERIFY2(waited >= 490, QByteArray::number(waited).constData());
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(errorSpy.at(0).at(0).toString(), timedOut);

    // The time-out only reports; the run goes on where it was.
    QVERIFY(uploader.isRunning());
    uploader.next();
    uploader.stop();
    QTest::qWait(700);
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(recorder.events,
             (QStringList{
                 "started(3)", "nextData(0)", "error(" + timedOut + ")", "nextData(1)", "stoped"}));
}

void TestUploaders::watchdogOutlivesFinished()
{
    Steps steps;
    steps.resize(1);
    DelayerUploader uploader(steps.delayer, nullptr);
    Recorder recorder(&uploader);
    QSignalSpy errorSpy(&uploader, &ProgrammerUploader::error);
    QVERIFY(errorSpy.isValid());

    uploader.start();
    uploader.next();
    uploader.next();
    QVERIFY(errorSpy.wait(5000));
    QCOMPARE(errorSpy.count(), 1);
    uploader.stop();

    QCOMPARE(recorder.events,
             (QStringList{
                 "started(1)", "nextData(0)", "finished", "error(" + timedOut + ")", "stoped"}));
}

void TestUploaders::nextRearmsWatchdog()
{
    Steps steps;
    steps.resize(3);
    ListUploader uploader(steps.list, nullptr);
    QSignalSpy errorSpy(&uploader, &ProgrammerUploader::error);
    QVERIFY(errorSpy.isValid());

    uploader.start();
    QElapsedTimer sinceFirst;
    sinceFirst.start();
    uploader.next();
    QTest::qWait(300);
    if (sinceFirst.elapsed() >= 450)
        QSKIP("the machine is too busy to time the watchdog");
    QCOMPARE(errorSpy.count(), 0);

    QElapsedTimer sinceSecond;
    sinceSecond.start();
    uploader.next();
    // Past the first step's 500 ms, but within the second's.
    QTest::qWait(350);
    if (sinceSecond.elapsed() >= 480)
        QSKIP("the machine is too busy to time the watchdog");
    QCOMPARE(errorSpy.count(), 0);

    QVERIFY(errorSpy.wait(5000));
    QVERIFY(sinceSecond.elapsed() >= 490);
    QCOMPARE(errorSpy.count(), 1);
    uploader.stop();
}

void TestUploaders::stopFromHandlerLeavesNoWatchdog()
{
    Steps steps;
    steps.resize(2);
    ListUploader uploader(steps.list, nullptr);
    Recorder recorder(&uploader);
    connect(&uploader, &ProgrammerUploader::nextData, &recorder.context, [&] { uploader.stop(); });

    uploader.start();
    uploader.next();
    QVERIFY(!uploader.isRunning());
    QTest::qWait(700);
    uploader.next();

    QCOMPARE(recorder.events, (QStringList{"started(2)", "nextData(0)", "stoped"}));
}

void TestUploaders::handlerMayDeleteUploader_data()
{
    QTest::addColumn<QString>("signal");

    for (const char *signal : {"nextData", "finished", "error", "stoped"})
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

void TestUploaders::handlerMayDeleteUploader()
{
    QFETCH(QString, signal);

    Steps steps;
    steps.resize(1);
    QPointer<ProgrammerUploader> uploader = new DelayerUploader(steps.delayer, nullptr);
    QObject context;
    const auto remove = [&uploader] {
        delete uploader.data();
    };
    if (signal == QLatin1String("nextData"))
        connect(uploader.data(), &ProgrammerUploader::nextData, &context, remove);
    else if (signal == QLatin1String("finished"))
        connect(uploader.data(), &ProgrammerUploader::finished, &context, remove);
    else if (signal == QLatin1String("error"))
        connect(uploader.data(), &ProgrammerUploader::error, &context, remove);
    else
        connect(uploader.data(), &ProgrammerUploader::stoped, &context, remove);

    uploader->start();
    for (int i = 0; i < 2 && uploader; ++i)
        uploader->next();
    if (uploader && signal == QLatin1String("stoped"))
        uploader->stop();
    QTRY_VERIFY_WITH_TIMEOUT(uploader.isNull(), 5000);
    // The watchdog went with the uploader: nothing may fire into freed memory.
    QTest::qWait(700);
}

QTEST_GUILESS_MAIN(TestUploaders)
#include "tst_uploaders.moc"
