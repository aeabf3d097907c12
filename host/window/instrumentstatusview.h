// The instrument's status in the status bar: tripped protection, errors waiting, and the way
// to clear a trip.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace tarn::host {

class StatusMonitor;
struct InstrumentStatus;

class InstrumentStatusView final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(InstrumentStatusView)

public:
    InstrumentStatusView(StatusMonitor *monitor, const QStringList &channelNames, QWidget *parent);
    ~InstrumentStatusView() override;

    QString text() const;

private:
    void showStatus(const InstrumentStatus &status);

    QStringList m_channelNames;
    QLabel *m_label;
    QPushButton *m_clear;
};

} // namespace tarn::host
