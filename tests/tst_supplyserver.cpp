// Tests of tarn_supply_sim over a real loopback socket: whole sequences, faults and hostile
// clients.
#include "simulatorprocess.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QtTest>

#include <memory>

namespace {

constexpr int replyTimeoutMs = 5000;

// A client that talks one line at a time, every wait bounded.
class Client
{
public:
    explicit Client(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_socket.waitForConnected(replyTimeoutMs);
    }

    bool isConnected() const { return m_socket.state() == QAbstractSocket::ConnectedState; }
    QTcpSocket &socket() { return m_socket; }

    void send(const QByteArray &line)
    {
        m_socket.write(line + '\n');
        m_socket.flush();
    }

    // The next reply line, or "(timeout)" when none came within the time.
    QByteArray readLine(int timeoutMs = replyTimeoutMs)
    {
        QElapsedTimer waited;
        waited.start();
        while (!m_socket.canReadLine() && waited.elapsed() < timeoutMs
               && m_socket.state() == QAbstractSocket::ConnectedState)
            m_socket.waitForReadyRead(
                static_cast<int>(qMax<qint64>(1, timeoutMs - waited.elapsed())));
        if (!m_socket.canReadLine())
            return QByteArray("(timeout)");
        return m_socket.readLine().chopped(1);
    }

    QByteArray ask(const QByteArray &line, int timeoutMs = replyTimeoutMs)
    {
        send(line);
        return readLine(timeoutMs);
    }

    bool waitForDisconnect(int timeoutMs = replyTimeoutMs)
    {
        if (m_socket.state() == QAbstractSocket::UnconnectedState)
            return true;
        return m_socket.waitForDisconnected(timeoutMs);
    }

private:
    QTcpSocket m_socket;
};

QByteArray number(double value)
{
    return QByteArray::number(value, 'f', 3);
}

} // namespace

class TestSupplyServer : public QObject
{
    Q_OBJECT

private slots:
    void readyLineNamesTheAddress();
    void wholeListWrittenReadBackRunAndStopped();
    void dropAfterCommands();
    void malformedLinesLeaveTheServerWorking();
    void overlongLineIsDiscardedWithOverrun();
    void clientLeavingMidCommandLeavesNothingBehind();
    void clientThatNeverReadsCannotGrowTheServer();
    void terminateStopsCleanly();
};

void TestSupplyServer::readyLineNamesTheAddress()
{
    Simulator sim;
    QVERIFY2(sim.readyLine().startsWith(QStringLiteral("tarn_supply_sim: Simulated Supply with 6 "
                                                       "channels ready on 127.0.0.1:")),
             qPrintable(sim.readyLine()));
    QVERIFY(sim.port != 0);
    Client client(sim.port);
    QCOMPARE(client.ask("*IDN?"), QByteArray("Tarn,Simulated Supply,SIM-000001,1.0.0"));
}

void TestSupplyServer::wholeListWrittenReadBackRunAndStopped()
{
    Simulator sim({QStringLiteral("--speed"), QStringLiteral("1000")});
    Client client(sim.port);
    QVERIFY(client.isConnected());

    QByteArrayList expected;
    client.send("INST SERIES;LIST:CLE;LIST:REP 0;LIST:END LAST");
    for (int i = 1; i <= 2048; ++i) {
        const double volts = (i % 641) / 10.0; // up to the series channel's 64 V
        const double amperes = (i % 33) / 10.0 - (i % 33 == 32 ? 0.1 : 0.0);
        const double seconds = 0.001 * (1 + i % 997);
        client.send("LIST:STEP " + QByteArray::number(i) + ',' + number(volts) + ','
                    + number(amperes) + ',' + number(seconds));
        expected << number(volts) + ',' + number(amperes) + ',' + number(seconds);
    }
    QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
    QCOMPARE(client.ask("SYST:ERR?"), QByteArray("0,\"No error\""));
    QCOMPARE(client.ask("LIST:COUN?"), QByteArray("2048"));
    QCOMPARE(client.ask("LIST:DATA?"), expected.join(','));
    QCOMPARE(client.ask("LIST:STEP? 2048"), expected.last());

    QCOMPARE(client.ask("LIST:RUN;LIST:STAT?;OUTP?"), QByteArray("RUN;1"));
    QCOMPARE(client.ask("LIST:STOP;LIST:STAT?;OUTP?;VOLT?"),
             QByteArray("STOP;1;") + expected.last().split(',').first());
}

void TestSupplyServer::dropAfterCommands()
{
    Simulator sim({QStringLiteral("--drop-after"), QStringLiteral("3")});
    Client client(sim.port);
    QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
    QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
    client.send("LIST:STEP 1,1,1,1");
    QVERIFY(client.waitForDisconnect());

    Client again(sim.port);
    QCOMPARE(again.ask("LIST:COUN?"), QByteArray("1"));
}

void TestSupplyServer::malformedLinesLeaveTheServerWorking()
{
    Simulator sim;
    Client client(sim.port);
    QByteArray junk;
    for (int i = 0; i < 1000; ++i) {
        QByteArray line;
        for (int j = 0; j < 1 + i % 40; ++j)
            line += static_cast<char>((i * 131 + j * 17) % 256 == '\n' ? 0
                                                                       : (i * 131 + j * 17) % 256);
        junk += line + '\n';
    }
    client.socket().write(junk);
    const char hostile[] = "\0\0\0\n;;;\n\"\n*IDN? extra\nLIST:STEP 1,1\n";
    client.socket().write(QByteArray(hostile, sizeof hostile - 1));
    QCOMPARE(client.ask("*IDN?"), QByteArray("Tarn,Simulated Supply,SIM-000001,1.0.0"));
    QCOMPARE(client.ask("SYST:ERR:COUN?"), QByteArray("32"));
    QCOMPARE(client.ask("*CLS;LIST:STEP 1,1,1,1;LIST:DATA?"), QByteArray("1.000,1.000,1.000"));
}

void TestSupplyServer::overlongLineIsDiscardedWithOverrun()
{
    Simulator sim;
    Client client(sim.port);
    client.socket().write(QByteArray(70 * 1024, 'A') + "*IDN?\n");
    QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
    QCOMPARE(client.ask("SYST:ERR?"), QByteArray("-363,\"Input buffer overrun\""));
    QCOMPARE(client.ask("SYST:ERR?"), QByteArray("0,\"No error\""));
}

void TestSupplyServer::clientLeavingMidCommandLeavesNothingBehind()
{
    Simulator sim;
    {
        Client client(sim.port);
        QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
        client.socket().write("LIST:STEP 1,5,");
        client.socket().flush();
    }
    // At once: the old connection is gone before the new one is judged.
    Client next(sim.port);
    QCOMPARE(next.ask("*IDN?"), QByteArray("Tarn,Simulated Supply,SIM-000001,1.0.0"));
    QCOMPARE(next.ask("LIST:COUN?;SYST:ERR?"), QByteArray("0;0,\"No error\""));
}

void TestSupplyServer::clientThatNeverReadsCannotGrowTheServer()
{
    Simulator sim;
    Client client(sim.port);
    for (int i = 1; i <= 2048; ++i)
        client.send("LIST:STEP " + QByteArray::number(i) + ",12.345,1.234,1.001");
    const QByteArray data = client.ask("LIST:DATA?");
    QCOMPARE(data.size(), 2048 * 19 - 1);
    const qint64 before = sim.residentKiB();

    // 37 MB of replies that nobody reads for a while: far more than the kernel's buffers hold.
    constexpr int queries = 1000;
    client.socket().setReadBufferSize(4096);
    client.socket().write(QByteArray("LIST:DATA?\n").repeated(queries));
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 1500)
        client.socket().waitForBytesWritten(100);
    const qint64 grown = sim.residentKiB() - before;
    QVERIFY2(grown < 8 * 1024, qPrintable(QStringLiteral("grew by %1 KiB").arg(grown)));

    client.socket().setReadBufferSize(0);
    int replies = 0;
    waited.restart();
    while (replies < queries && waited.elapsed() < 60000) {
        if (!client.socket().canReadLine())
            client.socket().waitForReadyRead(100);
        while (client.socket().canReadLine()) {
            if (client.socket().readLine().chopped(1) != data)
                break;
            ++replies;
        }
    }
    QCOMPARE(replies, queries);
}

void TestSupplyServer::terminateStopsCleanly()
{
    Simulator sim;
    Client client(sim.port);
    QCOMPARE(client.ask("*OPC?"), QByteArray("1"));
    sim.process().terminate();
    QVERIFY(sim.process().waitForFinished(5000));
    QCOMPARE(sim.process().exitStatus(), QProcess::NormalExit);
    QCOMPARE(sim.process().exitCode(), 0);
    // "*OPC?\n" in, "1\n" out.
    QCOMPARE(sim.process().readAllStandardOutput().trimmed(),
             QByteArray("tarn_supply_sim: stopped after 6 bytes in, 2 bytes out"));
}

QTEST_GUILESS_MAIN(TestSupplyServer)
#include "tst_supplyserver.moc"
