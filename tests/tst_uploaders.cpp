// Tests of the uploaders: the run's signal sequences, the steps handed out and the step watchdog.
#include "delayeruploader.h"
#include "helper.h"
#include "listuploader.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace tarn2::specific::orvo5000::programmer;
using U = ProgrammerUploader;

namespace {

enum class Kind { List, Delayer };
enum Call { Start, Next, Stop, ShrinkToTwo };

// One signal of an uploader as its handler saw it.
struct Event
{
    enum Signal { Started, NextData, Finished, Error, Stoped };
    Signal signal = Started;
    int number = -1;              // started: the step count; nextData: the step index
    bool theListsElement = false; // nextData: the very element of the caller's list, not a copy
    QString text;                 // error: the message
};

bool operator==(const Event &a, const Event &b)
{
    return a.signal == b.signal && a.number == b.number && a.theListsElement == b.theListsElement
           && a.text == b.text;
}

char *toString(const Event &event)
{
    switch (event.signal) {
    case Event::Started:
        return qstrdup(qPrintable(QStringLiteral("started(%1)").arg(event.number)));
    case Event::NextData:
        return qstrdup(
            qPrintable(QStringLiteral("nextData(%1)%2")
                           .arg(event.number)
                           .arg(event.theListsElement ? QString() : QStringLiteral(" of a copy"))));
    case Event::Finished:
        return qstrdup("finished");
    case Event::Error:
        return qstrdup(qPrintable(QStringLiteral("error(%1)").arg(event.text)));
    case Event::Stoped:
        return qstrdup("stoped");
    }
    return nullptr;
}

Event started(int count)
{
    return {Event::Started, count, false, {}};
}
Event nextData(int index)
{
    return {Event::NextData, index, true, {}};
}
Event finished()
{
    return {Event::Finished, -1, false, {}};
}
Event error(const QString &text)
{
    return {Event::Error, -1, false, text};
}
Event timedOut()
{
    return error(QStringLiteral("The upload timed out"));
}
Event stoped()
{
    return {Event::Stoped, -1, false, {}};
}

template<class Step> const ProgrammerData *at(const QList<Step> &steps, int i)
{
    return i >= 0 && i < steps.size() ? &steps.at(i) : nullptr;
}

// One uploader over step lists kept outside it, as the dialog keeps them, with every signal
// recorded in one list so that the order across signals shows.
struct Run
{
    Run(Kind kind, int size)
    {
        Helper::getInstance().option.maxCount = 9; // room for every step a test here has
        resize(size);
        if (kind == Kind::Delayer)
            uploader = std::make_unique<DelayerUploader>(delayerSteps, nullptr);
        else
            uploader = std::make_unique<ListUploader>(listSteps, nullptr);
        U *u = uploader.get();
        QObject::connect(u, &U::started, u, [this](int n) { events << started(n); });
        QObject::connect(u, &U::nextData, u, [this, kind](int i, const ProgrammerData &data) {
            const ProgrammerData *step
                = kind == Kind::Delayer ? at(delayerSteps, i) : at(listSteps, i);
            Event seen = nextData(i);
            seen.theListsElement = &data == step;
            events << seen;
        });
        QObject::connect(u, &U::finished, u, [this] { events << finished(); });
        QObject::connect(u, &U::error, u, [this](const QString &e) { events << error(e); });
        QObject::connect(u, &U::stoped, u, [this] { events << stoped(); });
    }

    void resize(int size)
    {
        listSteps = QVector<ListData>(size).toList();
        delayerSteps = QVector<DelayerData>(size).toList();
    }

    void call(Call call)
    {
        switch (call) {
        case Start:
            uploader->start();
            break;
        case Next:
            uploader->next();
            break;
        case Stop:
            uploader->stop();
            break;
        case ShrinkToTwo: // the caller's list loses rows while the run is out
            resize(2);
            break;
        }
    }

    QList<ListData> listSteps;
    QList<DelayerData> delayerSteps;
    QList<Event> events;
    std::unique_ptr<U> uploader; // declared last: destroyed before the lists it reads
};

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Event)

class TestUploaders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void metaTypeNames();
    void walk_data();
    void walk();
    void watchdogReportsTimeOut();
    void stopFromInsideNextDataLeavesNoWatchdog();
};

void TestUploaders::metaTypeNames()
{
    const Run list(Kind::List, 0), delayer(Kind::Delayer, 0); // the constructors register the names
    for (const char *type : {"ProgrammerData", "ListData", "DelayerData"}) {
        const QByteArray name = QByteArray("tarn2::specific::orvo5000::programmer::") + type;
        QVERIFY2(QMetaType::type(name) != QMetaType::UnknownType, name.constData());
        // The name with "&" is another name of the same type, not a type of its own.
        QCOMPARE(QMetaType::type(name + '&'), QMetaType::type(name));
    }
}

void TestUploaders::walk_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("maxCount");
    QTest::addColumn<QList<Call>>("calls");
    QTest::addColumn<QList<Event>>("events");
    const auto add = [](const char *name,
                        int size,
                        int maxCount,
                        const QList<Call> &calls,
                        const QList<Event> &events) {
        QTest::addRow("list: %s", name) << Kind::List << size << maxCount << calls << events;
        QTest::addRow("delayer: %s", name) << Kind::Delayer << size << maxCount << calls << events;
    };
    add("maxCount cuts the list",
        5,
        2,
        {Start, Next, Next, Next, Stop},
        {started(2), nextData(0), nextData(1), finished(), stoped()});
    add("finished until stopped",
        1,
        9,
        {Start, Next, Next, Next, Stop, Stop, Next},
        {started(1), nextData(0), finished(), finished(), stoped()});
    add("empty list", 0, 9, {Start, Next, Stop}, {started(0)});
    add("negative maxCount", 3, -5, {Start, Next, Stop}, {started(0)});
    add("next and stop while idle",
        3,
        9,
        {Next, Stop, Start, Next, Stop},
        {started(3), nextData(0), stoped()});
    add("start ignored until stop",
        2,
        9,
        {Start, Next, Start, Next, Next, Start, Next, Stop, Start, Next, Stop},
        {started(2),
         nextData(0),
         nextData(1),
         finished(),
         finished(),
         stoped(),
         started(2),
         nextData(0),
         stoped()});
    add("list shrunk below the index finishes",
        4,
        9,
        {Start, Next, Next, Next, ShrinkToTwo, Next, Stop},
        {started(4), nextData(0), nextData(1), nextData(2), finished(), stoped()});
}

void TestUploaders::walk()
{
    QFETCH(Kind, kind);
    QFETCH(int, size);
    QFETCH(int, maxCount);
    QFETCH(QList<Call>, calls);
    QFETCH(QList<Event>, events);
    Run run(kind, size);
    Helper::getInstance().option.maxCount = maxCount;
    for (const Call call : calls)
        run.call(call);
    QCOMPARE(run.events, events);
}

void TestUploaders::watchdogReportsTimeOut()
{
    Run run(Kind::List, 3);
    QSignalSpy errorSpy(run.uploader.get(), &U::error);
    QVERIFY(errorSpy.isValid());
    QElapsedTimer clock;
    clock.start();
    run.uploader->start();
    run.uploader->next();
    QVERIFY(errorSpy.wait(5000));
    QVERIFY2(clock.elapsed() >= 490, QByteArray::number(clock.elapsed()).constData());
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(errorSpy.at(0).at(0).toString(), QStringLiteral("The upload timed out"));

    // The time-out only reports: the run goes on where it was, and stop() disarms the watchdog.
    QVERIFY(run.uploader->isRunning());
    run.uploader->next();
    run.uploader->stop();
    QVERIFY(!errorSpy.wait(700)); // past the 500 ms a step may take
    QCOMPARE(run.events,
             (QList<Event>{started(3), nextData(0), timedOut(), nextData(1), stoped()}));
}

void TestUploaders::stopFromInsideNextDataLeavesNoWatchdog()
{
    Run run(Kind::List, 3);
    QObject::connect(
        run.uploader.get(), &U::nextData, run.uploader.get(), [&run] { run.uploader->stop(); });
    QSignalSpy errorSpy(run.uploader.get(), &U::error);
    QVERIFY(errorSpy.isValid());
    run.uploader->start();
    run.uploader->next();
    QVERIFY(!run.uploader->isRunning());
    QVERIFY(!errorSpy.wait(700)); // past the 500 ms a step may take
    QCOMPARE(run.events, (QList<Event>{started(3), nextData(0), stoped()}));
}

QTEST_GUILESS_MAIN(TestUploaders)
#include "tst_uploaders.moc"
