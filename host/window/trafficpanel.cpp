// The traffic log with its Copy and Clear buttons.
#include "trafficpanel.h"

#include <QApplication>
#include <QClipboard>
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
    // Long read-backs are cut for display; the full line went to the session all the same.
    QString text = QString::fromUtf8(line.left(300));
    if (line.size() > 300)
        text += tr(" … (%1 bytes)").arg(line.size());
    m_pending.append(QStringLiteral("%1 %2 %3")
                         .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")),
                              QLatin1String(sent ? ">" : "<"),
                              text));
    if (m_pending.size() > maxLines)
        m_pending.removeFirst();
    if (!m_flushTimer->isActive())
        m_flushTimer->start();
}

void TrafficPanel::flush()
{
    if (m_pending.isEmpty())
        return;
    m_log->appendPlainText(m_pending.join(QLatin1Char('\n')));
    m_pending.clear();
}

QString TrafficPanel::text()
{
    flush();
    return m_log->toPlainText();
}

} // namespace tarn::host
