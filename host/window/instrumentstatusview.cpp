// Words for the instrument's status.
#include "instrumentstatusview.h"

#include "statusmonitor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace tarn::host {

InstrumentStatusView::InstrumentStatusView(StatusMonitor *monitor,
                                           const QStringList &channelNames,
                                           QWidget *parent)
    : QWidget(parent)
    , m_channelNames(channelNames)
    , m_label(new QLabel(this))
    , m_clear(new QPushButton(tr("Clear Trip"), this))
{
    m_label->setObjectName(QStringLiteral("instrumentStatus"));
    m_clear->setObjectName(QStringLiteral("clearTrip"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_clear);
    connect(m_clear, &QPushButton::clicked, monitor, &StatusMonitor::clearTrips);
    connect(monitor, &StatusMonitor::changed, this, &InstrumentStatusView::showStatus);
    showStatus(monitor->status());
}

InstrumentStatusView::~InstrumentStatusView() = default;

QString InstrumentStatusView::text() const
{
    return m_label->text();
}

void InstrumentStatusView::showStatus(const InstrumentStatus &status)
{
    QStringList trips;
    QStringList tripped;
    for (const ProtectionTrip &trip : status.trips) {
        const QString name = m_channelNames.value(trip.channel - 1, QString::number(trip.channel));
        tripped << name;
        if (trip.overVoltage && trip.overCurrent)
            trips << tr("%1 over-voltage and over-current").arg(name);
        else if (trip.overVoltage)
            trips << tr("%1 over-voltage").arg(name);
        else
            trips << tr("%1 over-current").arg(name);
    }
    QStringList parts;
    if (!trips.isEmpty())
        parts << tr("Protection tripped: %1").arg(QLocale().createSeparatedList(trips));
    if (status.errors > 0)
        parts << tr("%n errors waiting", nullptr, status.errors);
    if (status.known && parts.isEmpty())
        parts << tr("No trips, no errors");
    m_label->setText(parts.join(QStringLiteral("; ")));
    m_label->setStyleSheet(trips.isEmpty() ? QString() : QStringLiteral("color: #c00000;"));
    m_clear->setVisible(!trips.isEmpty());
    m_clear->setToolTip(tr("Clears the tripped protection of %1; the output stays off until it is "
                           "switched on again")
                            .arg(QLocale().createSeparatedList(tripped)));
}

} // namespace tarn::host
