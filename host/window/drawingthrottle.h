// Draws a widget a few times a second while it is busy, rather than at every change.
#pragma once

#include <QObject>
#include <QPointer>

class QTimer;
class QWidget;

namespace tarn::host {

// The dialog redraws its table and progress at every step it hands out, and a step reaches the
// instrument in microseconds: drawn at every step, a 2048-step upload would spend most of its
// time drawing. While active, DrawingThrottle keeps the widget from drawing and draws it once per
// interval instead; when it ends, the widget draws as usual again.
class DrawingThrottle final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(DrawingThrottle)

public:
    DrawingThrottle(QWidget *widget, int intervalMs, QObject *parent = nullptr);
    ~DrawingThrottle() override;

    void setActive(bool active);

private:
    void draw();

    QPointer<QWidget> m_widget;
    QTimer *m_timer;
};

} // namespace tarn::host
