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

template<class Step> const ProgrammerData *at(const QList<Step> &steps, int i)
{
    return i >= 0 && i < steps.size() ? &steps.at(i) : nullptr;
}

// One uploader over step lists kept outside it, as the dialog keeps them, with every signal
// written into one log so that the order across signals shows.
struct Run
{
    explicit Run(bool delayer)
    {
        Helper::getInstance().option.maxCount = 9;
        if (delayer)
            uploader = std::make_unique<DelayerUploader>(delayerSteps, nullptr);
        else
            uploader = std::make_unique<ListUploader>(listSteps, nullptr);
        U *u = uploader.get();
        QObject::connect(
            u, &U::started, u, [this](int n) { log << QStringLiteral("started(%1)").arg(n); });
        QObject::connect(u, &U::nextData, u, [this, delayer](int i, const ProgrammerData &data) {
            // The handler must get the very element of the caller's list, not a copy.
            const ProgrammerData *step = delayer ? at(delayerSteps, i) : at(listSteps, i);
            log << QStringLiteral("nextData(%1)").arg(i)
                       + QLatin1String(&data == step ? "" : " copy");
        });
        QObject::connect(u, &U::finished, u, [this] { log << QStringLiteral("finished"); });
        QObject::connect(u, &U::error, u, [this](const QString &e) {
            log << QStringLiteral("error(%1)").arg(e);
        });
        QObject::connect(u, &U::stoped, u, [this] { log << QStringLiteral("stoped"); });
    }

    void resize(int size)
    {
        listSteps = QVector<ListData>(size).toList();
        delayerSteps = QVector<DelayerData>(size).toList();
    }

    // Plays calls such as "size=4 max=2 start next stop"; "size=N" rebuilds the lists with N steps.
    QString play(const QString &calls)
    {
        for (const QString &call : calls.split(QLatin1Char(' '))) {
            if (call == QLatin1String("start"))
                uploader->start();
            else if (call == QLatin1String("next"))
                uploader->next();
            else if (call == QLatin1String("stop"))
                uploader->stop();
            else if (call.startsWith(QLatin1String("max=")))
                Helper::getInstance().option.maxCount = call.mid(4).toInt();
            else
                resize(call.mid(5).toInt());
        }
        return log.join(QLatin1Char(' '));
    }

    QList<ListData> listSteps;
    QList<DelayerData> delayerSteps;
    QStringList log;
    std::unique_ptr<U> uploader; // declared last: destroyed before the lists it reads
};

} // namespace

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
    const Run list(false), delayer(true); // the constructors register the names
    for (const char *type : {"ProgrammerData", "ListData", "DelayerData"}) {
        const QByteArray name = QByteArray("tarn2::specific::orvo5000::programmer::") + type;
        QVERIFY2(QMetaType::type(name) != QMetaType::UnknownType, name.constData());
        // The name with "&" is another name of the same type, not a type of its own.
        QCOMPARE(QMetaType::type(name + '&'), QMetaType::type(name));
    }
}

void TestUploaders::walk_data()
{
    QTest::addColumn<bool>("delayer");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<QString>("events");
    const auto add = [](const char *name, const char *calls, const char *events) {
        for (const bool delayer : {false, true}) {
            QTest::addRow("%s: %s", delayer ? "delayer" : "list", name)
                << delayer << QString::fromLatin1(calls) << QString::fromLatin1(events);
        }
    };
    // clang-format off
    add("maxCount cuts the list", "size=5 max=2 start next next next stop",
        "started(2) nextData(0) nextData(1) finished stoped");
    add("finished until stopped", "size=1 start next next next stop stop next",
        "started(1) nextData(0) finished finished stoped");
    add("empty list", "size=0 start next stop", "started(0)");
    add("negative maxCount", "size=3 max=-5 start next stop", "started(0)");
    add("next and stop while idle", "size=3 next stop start next stop", "started(3) nextData(0) stoped");
    add("start ignored until stop", "size=2 start next start next next start next stop start next stop",
        "started(2) nextData(0) nextData(1) finished finished stoped started(2) nextData(0) stoped");
    add("list shrinks below the index", "size=4 start next next next size=2 next stop",
        "started(4) nextData(0) nextData(1) nextData(2) finished stoped");
    // clang-format on
}

void TestUploaders::walk()
{
    QFETCH(bool, delayer);
    QFETCH(QString, calls);
    QFETCH(QString, events);
    QCOMPARE(Run(delayer).play(calls), events);
}

void TestUploaders::watchdogReportsTimeOut()
{
    Run run(false);
    QSignalSpy errorSpy(run.uploader.get(), &U::error);
    QVERIFY(errorSpy.isValid());
    QElapsedTimer clock;
    clock.start();
    run.play(QStringLiteral("size=3 start next"));
    QVERIFY(errorSpy.wait(5000));
    QVERIFY2(clock.elapsed() >= 490, QByteArray::number(clock.elapsed()).constData());
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(errorSpy.at(0).at(0).toString(), QStringLiteral("The upload timed out"));

    // The time-out only reports: the run goes on where it was, and stop() disarms the watchdog.
    QVERIFY(run.uploader->isRunning());
    const QString events = run.play(QStringLiteral("next stop"));
    QTest::qWait(700);
    QCOMPARE(errorSpy.count(), 1);
    QCOMPARE(
        events,
        QStringLiteral("started(3) nextData(0) error(The upload timed out) nextData(1) stoped"));
}

void TestUploaders::stopFromInsideNextDataLeavesNoWatchdog()
{
    Run run(false);
    run.resize(3);
    QObject::connect(
        run.uploader.get(), &U::nextData, run.uploader.get(), [&run] { run.uploader->stop(); });
    QSignalSpy errorSpy(run.uploader.get(), &U::error);
    run.uploader->start();
    run.uploader->next();
    QVERIFY(!run.uploader->isRunning());
    QVERIFY(!errorSpy.wait(700)); // past the 500 ms a step may take
    QCOMPARE(run.log.join(QLatin1Char(' ')), QStringLiteral("started(3) nextData(0) stoped"));
}

QTEST_GUILESS_MAIN(TestUploaders)
#include "tst_uploaders.moc"
