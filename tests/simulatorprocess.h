// Starts tarn_supply_sim for a test on 127.0.0.1 with a port of its own choosing, and stops it.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

// One tarn_supply_sim process on 127.0.0.1 with a port of its own choosing.
class Simulator
{
public:
    explicit Simulator(const QStringList &options = {})
    {
        m_process.setProgram(QStringLiteral(TARN_SUPPLY_SIM));
        m_process.setArguments(
            QStringList{QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0")} + options);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // Under the address sanitizer freed blocks are held back for a while; keep that small so
        // that the server's resident size shows what it really keeps.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const QString asan = environment.value(QStringLiteral("ASAN_OPTIONS"));
        environment.insert(QStringLiteral("ASAN_OPTIONS"),
                           asan + QStringLiteral(":quarantine_size_mb=1"));
        m_process.setProcessEnvironment(environment);
        m_process.start();
        QElapsedTimer waited;
        waited.start();
        while (!m_process.canReadLine() && waited.elapsed() < 10000)
            m_process.waitForReadyRead(100);
        m_readyLine = QString::fromUtf8(m_process.readLine()).trimmed();
        port = static_cast<quint16>(
            m_readyLine.mid(m_readyLine.lastIndexOf(QLatin1Char(':')) + 1).toUInt());
    }

    ~Simulator()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.terminate();
            if (!m_process.waitForFinished(5000))
                m_process.kill();
            m_process.waitForFinished(1000);
        }
    }

    QString readyLine() const { return m_readyLine; }
    QProcess &process() { return m_process; }

    // Resident memory of the server process, from the kernel's view of it.
    qint64 residentKiB()
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return -1;
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("VmRSS:"))
                return line.mid(6).trimmed().split(' ').first().toLongLong();
        }
        return -1;
    }

    quint16 port = 0;

private:
    QProcess m_process;
    QString m_readyLine;
};
