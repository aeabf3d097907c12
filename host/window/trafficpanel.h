// The command traffic as the user may read and copy it into a bug report.
#pragma once

#include <QWidget>

class QPlainTextEdit;
class QShowEvent;
class QTimer;

namespace tarn::host {

// TrafficPanel shows every line sent (">") and received ("<") with its time. It keeps the last
// `maxLines` lines, so an hour of uploads cannot fill memory.
class TrafficPanel final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(TrafficPanel)

public:
    static constexpr int maxLines = 20000;

    explicit TrafficPanel(QWidget *parent = nullptr);

    void append(bool sent, const QByteArray &line);
    QString text();

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Line
    {
        qint64 msecs; // since the epoch, UTC: the local time is worked out once per flush
        bool sent;
        QByteArray bytes;
    };
    void flush();

    QPlainTextEdit *m_log;
    // Lines not yet shown: written out at most ten times a second, and only while the panel is
    // in sight, so an upload is not slowed down by a log nobody reads.
    QList<Line> m_pending;
    QTimer *m_flushTimer;
};

} // namespace tarn::host
