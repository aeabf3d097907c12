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
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void timeline_data();
    void timeline();
};

void TestStopWatch::timeline_data()
{
    QTest::addColumn<QString>("calls");
    QTest::addColumn<int>("least"); // the least elapsed time off() may report; -1: no report

    QTest::newRow("immediately") << QStringLiteral("start=0") << 0;
    QTest::newRow("negative counts as immediately") << QStringLiteral("start=-25") << 0;
    QTest::newRow("200 ms") << QStringLiteral("start=200") << 200;
    QTest::newRow("rearming restarts the count")
        << QStringLiteral("start=300 wait=150 start=300") << 300;
    QTest::newRow("stop cancels") << QStringLiteral("start=50 stop") << -1;
    QTest::newRow("armed again after stop") << QStringLiteral("start=50 stop start=10") << 10;
}

void TestStopWatch::timeline()
{
    QFETCH(QString, calls);
    QFETCH(int, least);
    StopWatch watch(nullptr);
    QSignalSpy offSpy(&watch, &StopWatch::off);
    QVERIFY(offSpy.isValid());

    QElapsedTimer sinceArmed;
    for (const QString &call : calls.split(QLatin1Char(' '))) {
        const int msec = call.section(QLatin1Char('='), 1).toInt();
        if (call.startsWith(QLatin1String("start"))) {
            sinceArmed.start();
            watch.start(msec);
        } else if (call == QLatin1String("stop")) {
            watch.stop();
        } else {
            QTest::qWait(msec);
            if (!offSpy.isEmpty())
                QSKIP("the machine is too busy to time the watch");
        }
    }
    if (least >= 0) {
        QVERIFY(offSpy.wait(5000));
        // Counted from the last arming: not earlier, and not from an earlier arming.
        const qint64 elapsed = offSpy.at(0).at(0).toLongLong();
        QVERIFY2(elapsed >= least && elapsed <= sinceArmed.elapsed(),
                 QByteArray::number(elapsed).constData());
    }
    QTest::qWait(2 * least + 250);
    QCOMPARE(offSpy.count(), least >= 0 ? 1 : 0);
}

QTEST_GUILESS_MAIN(TestStopWatch)
#include "tst_stopwatch.moc"
