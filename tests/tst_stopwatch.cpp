// Tests of the host's one-shot watchdog: one report per arming, restarts, cancellation.
#include <stopwatch.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

using tarn2::util::gadget::StopWatch;

class TestStopWatch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void offOnce_data();
    void offOnce();
    void rearmingRestartsTheCount();
    void stopCancels_data();
    void stopCancels();
    void handlerMayRearm();
};

void TestStopWatch::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestStopWatch::offOnce_data()
{
    QTest::addColumn<int>("msec");
    QTest::addColumn<int>("least"); // the least elapsed time off() may report

    QTest::newRow("immediately") << 0 << 0;
    QTest::newRow("negative counts as immediately") << -25 << 0;
    QTest::newRow("50 ms") << 50 << 50;
    QTest::newRow("200 ms") << 200 << 200;
}

void TestStopWatch::offOnce()
{
    QFETCH(int, msec);
    QFETCH(int, least);

    StopWatch watch(nullptr);
    QSignalSpy offSpy(&watch, &StopWatch::off);
    QVERIFY(offSpy.isValid());
    QVERIFY(!watch.isActive());

    QElapsedTimer clock;
    clock.start();
    watch.start(msec);
    QVERIFY(watch.isActive());
    QVERIFY(offSpy.wait(5000));
    const qint64 waited = clock.elapsed();

    QCOMPARE(offSpy.count(), 1);
    const qint64 elapsed = offSpy.at(0).at(0).toLongLong();
    QVERIFY2(elapsed >= least, QByteArray::number(elapsed).constData());
    QVERIFY(elapsed <= waited);
    QVERIFY(!watch.isActive());

    QTest::qWait(2 * qMax(msec, 0) + 100);
    QCOMPARE(offSpy.count(), 1);
}

void TestStopWatch::rearmingRestartsTheCount()
{
    StopWatch watch(nullptr);
    QSignalSpy offSpy(&watch, &StopWatch::off);
    QVERIFY(offSpy.isValid());

    QElapsedTimer clock;
    clock.start();
    watch.start(300);
    QTest::qWait(150);
    const qint64 rearmedAt = clock.elapsed();
    if (rearmedAt >= 280)
        QSKIP("the machine is too busy to time the watch");
    QCOMPARE(offSpy.count(), 0);
    watch.start(300);

    QVERIFY(offSpy.wait(5000));
    QCOMPARE(offSpy.count(), 1);
    // Counted from the second arming, not the first.
    QVERIFY(offSpy.at(0).at(0).toLongLong() >= 300);
    QVERIFY(clock.elapsed() >= rearmedAt + 300);
    QTest::qWait(400);
    QCOMPARE(offSpy.count(), 1);
}

void TestStopWatch::stopCancels_data()
{
    QTest::addColumn<bool>("armed");
    QTest::addColumn<int>("stops");

    QTest::newRow("armed, stopped once") << true << 1;
    QTest::newRow("armed, stopped twice") << true << 2;
    QTest::newRow("never armed") << false << 1;
}

void TestStopWatch::stopCancels()
{
    QFETCH(bool, armed);
    QFETCH(int, stops);

    StopWatch watch(nullptr);
    QSignalSpy offSpy(&watch, &StopWatch::off);
    QVERIFY(offSpy.isValid());

    if (armed)
        watch.start(50);
    for (int i = 0; i < stops; ++i)
        watch.stop();
    QVERIFY(!watch.isActive());
    QTest::qWait(250);
    QCOMPARE(offSpy.count(), 0);

    // A cancelled watch can be armed again.
    watch.start(10);
    QVERIFY(offSpy.wait(5000));
    QCOMPARE(offSpy.count(), 1);
}

void TestStopWatch::handlerMayRearm()
{
    StopWatch watch(nullptr);
    QSignalSpy offSpy(&watch, &StopWatch::off);
    QVERIFY(offSpy.isValid());
    QObject context;
    int reports = 0;
    connect(&watch, &StopWatch::off, &context, [&] {
        if (++reports < 3)
            watch.start(30);
    });

    watch.start(30);
    QTRY_COMPARE_WITH_TIMEOUT(offSpy.count(), 3, 5000);
    QVERIFY(!watch.isActive());
    QTest::qWait(150);
    QCOMPARE(offSpy.count(), 3);
    for (const QList<QVariant> &arguments : qAsConst(offSpy))
        QVERIFY(arguments.at(0).toLongLong() >= 30);
}

QTEST_GUILESS_MAIN(TestStopWatch)
#include "tst_stopwatch.moc"
