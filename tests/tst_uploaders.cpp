// Tests of the uploaders: the run's state table, the steps handed out and the step watchdog.
#include "delayeruploader.h"
#include "helper.h"
#include "listuploader.h"

#include <QElapsedTimer>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace {

const QString timedOut = QStringLiteral("error(The upload timed out)");

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

const char *kindName(bool delayer)
{
    return delayer ? "delayer" : "list";
}

// Writes every signal of one uploader into a single log, so that the order across signals shows.
class Recorder
{
public:
    explicit Recorder(ProgrammerUploader *uploader)
    {
        QObject::connect(uploader, &ProgrammerUploader::started, &context, [this](int count) {
            log << QStringLiteral("started(%1)").arg(count);
        });
        QObject::connect(uploader,
                         &ProgrammerUploader::nextData,
                         &context,
                         [this](int dataIndex, const ProgrammerData &data) {
                             log << QStringLiteral("nextData(%1)").arg(dataIndex);
                             handedOut << &data;
                         });
        QObject::connect(uploader, &ProgrammerUploader::finished, &context, [this] {
            log << QStringLiteral("finished");
        });
        QObject::connect(uploader, &ProgrammerUploader::error, &context, [this](const QString &e) {
            log << QStringLiteral("error(%1)").arg(e);
        });
        QObject::connect(uploader, &ProgrammerUploader::stoped, &context, [this] {
            log << QStringLiteral("stoped");
        });
    }

    QString events() const { return log.join(QLatin1Char(' ')); }

    QStringList log;
    QVector<const ProgrammerData *> handedOut;
    QObject context;
};

// Plays calls written as "start next*3 stop": start(), next() three times, stop().
void play(ProgrammerUploader &uploader, const QString &calls)
{
    for (const QString &call : calls.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList parts = call.split(QLatin1Char('*'));
        const int times = parts.size() > 1 ? parts.at(1).toInt() : 1;
        for (int i = 0; i < times; ++i) {
            if (parts.at(0) == QLatin1String("start"))
                uploader.start();
            else if (parts.at(0) == QLatin1String("next"))
                uploader.next();
            else if (parts.at(0) == QLatin1String("stop"))
                uploader.stop();
            else
                QFAIL(qPrintable(QStringLiteral("unknown call ") + call));
        }
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
    void runningFlag_data();
    void runningFlag();
    void nextDataIsTheListElement_data();
    void nextDataIsTheListElement();
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
        QTest::addRow("%s", type) << name;
        QTest::addRow("%s&", type) << name + '&';
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

    play(uploader, QStringLiteral("start next next"));
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
    QTest::addColumn<QString>("calls");
    QTest::addColumn<QString>("events");

    struct Row
    {
        const char *name;
        int size;
        int maxCount;
        int count;
        const char *calls;
        const char *events;
    };
    // clang-format off
    const Row rows[] = {
        {"list shorter than maxCount", 3, 10, 3, "start next*4 stop stop next",
         "started(3) nextData(0) nextData(1) nextData(2) finished stoped"},
        {"maxCount cuts the list", 5, 2, 2, "start next*4 stop stop next",
         "started(2) nextData(0) nextData(1) finished finished stoped"},
        {"list as long as maxCount", 4, 4, 4, "start next*4 stop",
         "started(4) nextData(0) nextData(1) nextData(2) nextData(3) stoped"},
        {"finished until stopped", 1, 10, 1, "start next*5 stop next",
         "started(1) nextData(0) finished finished finished finished stoped"},
        {"empty list", 0, 10, 0, "start next stop next", "started(0)"},
        {"zero maxCount", 3, 0, 0, "start next stop", "started(0)"},
        {"negative maxCount", 3, -5, 0, "start next stop", "started(0)"},
        {"next and stop while idle", 3, 10, 3, "next stop start next stop",
         "started(3) nextData(0) stoped"},
        {"start while running keeps the index", 4, 10, 4, "start next next start next stop",
         "started(4) nextData(0) nextData(1) nextData(2) stoped"},
        {"start after the end ignored until stop", 2, 10, 2,
         "start next*3 start next stop start next stop",
         "started(2) nextData(0) nextData(1) finished finished stoped started(2) nextData(0) stoped"},
    };
    // clang-format on
    for (const bool delayer : {false, true}) {
        for (const Row &row : rows) {
            QTest::addRow("%s: %s", kindName(delayer), row.name)
                << delayer << row.size << row.maxCount << row.count
                << QString::fromLatin1(row.calls) << QString::fromLatin1(row.events);
        }
    }
}

void TestUploaders::walk()
{
    QFETCH(bool, delayer);
    QFETCH(int, size);
    QFETCH(int, maxCount);
    QFETCH(int, count);
    QFETCH(QString, calls);
    QFETCH(QString, events);

    Helper::getInstance().option.maxCount = maxCount;
    Steps steps;
    steps.resize(size);
    const auto uploader = makeUploader(delayer, steps);
    Recorder recorder(uploader.get());
    QSignalSpy nextDataSpy(uploader.get(), &ProgrammerUploader::nextData);
    QVERIFY(nextDataSpy.isValid());

    QCOMPARE(uploader->getDataCount(), count);
    play(*uploader, calls);
    QCOMPARE(recorder.events(), events);
    QVERIFY(!uploader->isRunning());
    // A spy, which copies the arguments, sees the same steps as the direct handler.
    QStringList spied;
    for (const QList<QVariant> &arguments : qAsConst(nextDataSpy))
        spied << QStringLiteral("nextData(%1)").arg(arguments.at(0).toInt());
    QCOMPARE(spied, recorder.log.filter(QStringLiteral("nextData")));
}

void TestUploaders::runningFlag_data()
{
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<bool>("running");

    QTest::newRow("new") << 10 << QString() << false;
    QTest::newRow("started") << 10 << QStringLiteral("start") << true;
    QTest::newRow("started with nothing to send") << 0 << QStringLiteral("start") << false;
    QTest::newRow("after the last step") << 10 << QStringLiteral("start next*3") << true;
    QTest::newRow("stopped") << 10 << QStringLiteral("start next stop") << false;
}

void TestUploaders::runningFlag()
{
    QFETCH(int, maxCount);
    QFETCH(QString, calls);
    QFETCH(bool, running);

    Helper::getInstance().option.maxCount = maxCount;
    Steps steps;
    steps.resize(2);
    ListUploader uploader(steps.list, nullptr);
    play(uploader, calls);
    QCOMPARE(uploader.isRunning(), running);
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
    play(*uploader, QStringLiteral("start next*3 stop"));

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

void TestUploaders::listChangesDuringRun_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<int>("stepsOut");
    QTest::addColumn<int>("newSize");
    QTest::addColumn<int>("newMaxCount");
    QTest::addColumn<QString>("events"); // of the next two next() calls

    struct Row
    {
        const char *name;
        int size;
        int maxCount;
        int stepsOut;
        int newSize;
        int newMaxCount;
        const char *events;
    };
    const Row rows[] = {
        {"list shrinks below the index", 4, 10, 3, 2, 10, "finished finished"},
        {"list shrinks to the index", 4, 10, 2, 2, 10, "finished finished"},
        {"list emptied", 4, 10, 1, 0, 10, "finished finished"},
        {"list shrinks above the index", 4, 10, 1, 3, 10, "nextData(1) nextData(2)"},
        {"maxCount grows past the list", 2, 1, 1, 2, 100, "nextData(1) finished"},
        {"maxCount drops below the index", 4, 10, 2, 4, 1, "finished finished"},
        {"maxCount turns negative", 4, 10, 1, 4, -3, "finished finished"},
        {"list grows after the last step", 2, 10, 2, 3, 10, "nextData(2) finished"},
    };
    for (const bool delayer : {false, true}) {
        for (const Row &row : rows) {
            QTest::addRow("%s: %s", kindName(delayer), row.name)
                << delayer << row.size << row.maxCount << row.stepsOut << row.newSize
                << row.newMaxCount << QString::fromLatin1(row.events);
        }
    }
}

void TestUploaders::listChangesDuringRun()
{
    QFETCH(bool, delayer);
    QFETCH(int, size);
    QFETCH(int, maxCount);
    QFETCH(int, stepsOut);
    QFETCH(int, newSize);
    QFETCH(int, newMaxCount);
    QFETCH(QString, events);

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
    play(*uploader, QStringLiteral("next next"));
    QCOMPARE(recorder.events(), events);
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

    // The inner call hands out step 0 again; both calls then advance, so step 1 is skipped.
    play(uploader, QStringLiteral("start next*3 stop"));
    QCOMPARE(recorder.events(),
             QStringLiteral("started(3) nextData(0) nextData(0) nextData(2) finished stoped"));
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
    QCOMPARE(errorSpy.at(0).at(0).toString(), QStringLiteral("The upload timed out"));

    // The time-out only reports; the run goes on where it was.
    QVERIFY(uploader.isRunning());
    play(uploader, QStringLiteral("next stop"));
    QTest::qWait(700);
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(recorder.events(),
             QStringLiteral("started(3) nextData(0) %1 nextData(1) stoped").arg(timedOut));
}

void TestUploaders::watchdogOutlivesFinished()
{
    Steps steps;
    steps.resize(1);
    DelayerUploader uploader(steps.delayer, nullptr);
    Recorder recorder(&uploader);
    QSignalSpy errorSpy(&uploader, &ProgrammerUploader::error);
    QVERIFY(errorSpy.isValid());

    play(uploader, QStringLiteral("start next next"));
    QVERIFY(errorSpy.wait(5000));
    QCOMPARE(errorSpy.count(), 1);
    uploader.stop();
    QCOMPARE(recorder.events(),
             QStringLiteral("started(1) nextData(0) finished %1 stoped").arg(timedOut));
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

    play(uploader, QStringLiteral("start next"));
    QVERIFY(!uploader.isRunning());
    QTest::qWait(700);
    uploader.next();
    QCOMPARE(recorder.events(), QStringLiteral("started(2) nextData(0) stoped"));
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
