// The command traffic as the user may read and copy it into a bug report.
#pragma once

#include <QWidget>

class QPlainTextEdit;
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

private:
    void flush();

    QPlainTextEdit *m_log;
    QStringList m_pending; // lines waiting for the next repaint, so an upload is not slowed down
    QTimer *m_flushTimer;
};

} // namespace tarn::host
