// Tests of the host's one-shot watchdog: one report per arming, restarts, cancellation.
#include <stopwatch.h>

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using tarn2::util::gadget::StopWatch;

class TestStopWatch : public QObject
{
    Q_OBJECT

    // Waits for the one report of the arming made when `sinceArmed` started: it says how long the
    // watch ran, counted from that arming, which is no less than `least` ms, and no other follows.
    static void verifyOneReport(QSignalSpy &offSpy, const QElapsedTimer &sinceArmed, int least)
    {
        QVERIFY(offSpy.wait(5000));
        const qint64 elapsed = offSpy.at(0).at(0).toLongLong();
        QVERIFY2(elapsed >= least, QByteArray::number(elapsed).constData());
        QVERIFY2(elapsed <= sinceArmed.elapsed(), QByteArray::number(elapsed).constData());
        QVERIFY(!offSpy.wait(2 * least + 250));
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void reportsOnceWhenTheTimeRunsOut_data()
    {
        QTest::addColumn<int>("msec");
        QTest::addColumn<int>("least"); // the least elapsed time off() may report
        QTest::newRow("immediately") << 0 << 0;
        QTest::newRow("negative counts as immediately") << -25 << 0;
        QTest::newRow("200 ms") << 200 << 200;
    }
    void reportsOnceWhenTheTimeRunsOut()
    {
        QFETCH(int, msec);
        QFETCH(int, least);
        StopWatch watch(nullptr);
        QSignalSpy offSpy(&watch, &StopWatch::off);
        QVERIFY(offSpy.isValid());
        QElapsedTimer sinceArmed;
        sinceArmed.start();
        watch.start(msec);
        verifyOneReport(offSpy, sinceArmed, least);
    }

    void rearmingRestartsTheCount()
    {
        StopWatch watch(nullptr);
        QSignalSpy offSpy(&watch, &StopWatch::off);
        QVERIFY(offSpy.isValid());
        watch.start(300);
        // Time passes without the event loop, so the first arming cannot report before the
        // second, however long a busy machine keeps this thread asleep.
        QThread::msleep(150);
        QElapsedTimer sinceRearmed;
        sinceRearmed.start();
        watch.start(300);
        verifyOneReport(offSpy, sinceRearmed, 300);
    }

    // A stopped watch reports nothing, and armed again it counts afresh.
    void stopCancelsUntilArmedAgain()
    {
        StopWatch watch(nullptr);
        QSignalSpy offSpy(&watch, &StopWatch::off);
        QVERIFY(offSpy.isValid());
        watch.start(50);
        watch.stop();
        QVERIFY(!watch.isActive());
        QVERIFY(!offSpy.wait(250));
        QElapsedTimer sinceArmed;
        sinceArmed.start();
        watch.start(10);
        QVERIFY(watch.isActive());
        verifyOneReport(offSpy, sinceArmed, 10);
    }
};

QTEST_GUILESS_MAIN(TestStopWatch)
#include "tst_stopwatch.moc"
