// The traffic log with its Copy and Clear buttons.
#include "trafficpanel.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

namespace tarn::host {

TrafficPanel::TrafficPanel(QWidget *parent)
    : QWidget(parent)
    , m_log(new QPlainTextEdit(this))
    , m_flushTimer(new QTimer(this))
{
    m_flushTimer->setSingleShot(true);
    m_flushTimer->setInterval(100);
    connect(m_flushTimer, &QTimer::timeout, this, &TrafficPanel::flush);
    m_log->setObjectName(QStringLiteral("trafficLog"));
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(maxLines);
    m_log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_log->setLineWrapMode(QPlainTextEdit::NoWrap);

    auto *copy = new QPushButton(tr("Copy All"), this);
    copy->setToolTip(tr("Copy the whole log to the clipboard, for a bug report"));
    auto *clear = new QPushButton(tr("Clear"), this);
    connect(
        copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(text()); });
    connect(clear, &QPushButton::clicked, m_log, &QPlainTextEdit::clear);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(clear);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_log);
    layout->addLayout(buttons);
}

void TrafficPanel::append(bool sent, const QByteArray &line)
{
    // Not QTime::currentTime(): the C library reads the time zone file again at every call.
    m_pending.append({QDateTime::currentMSecsSinceEpoch(), sent, line});
    if (m_pending.size() > maxLines)
        m_pending.removeFirst();
    if (isVisible() && !m_flushTimer->isActive())
        m_flushTimer->start();
}

void TrafficPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    flush();
}

void TrafficPanel::flush()
{
    if (m_pending.isEmpty())
        return;
    QStringList lines;
    lines.reserve(m_pending.size());
    constexpr qint64 day = 24 * 3600 * 1000;
    const qint64 offset = QDateTime::currentDateTime().offsetFromUtc() * qint64(1000);
    for (const Line &line : qAsConst(m_pending)) {
        // Long read-backs are cut for display; the full line went to the session all the same.
        QString text = QString::fromUtf8(line.bytes.left(300));
        if (line.bytes.size() > 300)
            text += tr(" … (%1 bytes)").arg(line.bytes.size());
        lines << QStringLiteral("%1 %2 %3")
                     .arg(QTime::fromMSecsSinceStartOfDay(
                              int(((line.msecs + offset) % day + day) % day))
                              .toString(QStringLiteral("HH:mm:ss.zzz")),
                          QLatin1String(line.sent ? ">" : "<"),
                          text);
    }
    m_log->appendPlainText(lines.join(QLatin1Char('\n')));
    m_pending.clear();
}

QString TrafficPanel::text()
{
    flush();
    return m_log->toPlainText();
}

} // namespace tarn::host
