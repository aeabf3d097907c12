// Holding a widget's drawing back to a steady pace.
#include "drawingthrottle.h"

#include <QTimer>
#include <QWidget>

namespace tarn::host {

DrawingThrottle::DrawingThrottle(QWidget *widget, int intervalMs, QObject *parent)
    : QObject(parent)
    , m_widget(widget)
    , m_timer(new QTimer(this))
{
    m_timer->setInterval(intervalMs);
    connect(m_timer, &QTimer::timeout, this, &DrawingThrottle::draw);
}

DrawingThrottle::~DrawingThrottle() = default;

void DrawingThrottle::setActive(bool active)
{
    if (!m_widget || active == m_timer->isActive())
        return;
    if (active)
        m_timer->start();
    else
        m_timer->stop();
    // Enabling again schedules a full redraw, so the widget shows where things ended.
    m_widget->setUpdatesEnabled(!active);
}

void DrawingThrottle::draw()
{
    if (!m_widget)
        return;
    m_widget->setUpdatesEnabled(true);
    m_widget->repaint();
    m_widget->setUpdatesEnabled(false);
}

} // namespace tarn::host
