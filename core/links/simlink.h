// The simulated supply running inside the host, reached like any other instrument.
#pragma once

#include "instrumentlink.h"

#include <QQueue>

#include <memory>

namespace tarn::sim {
class CommandInterpreter;
class SupplyEngine;
struct InstrumentDescription;
} // namespace tarn::sim

namespace tarn::host {

// SimLink answers from the event loop, never from inside write(), so the host meets the same
// order of events as with a real instrument.
class SimLink final : public InstrumentLink
{
    Q_OBJECT
    Q_DISABLE_COPY(SimLink)

public:
    SimLink(const sim::InstrumentDescription &description, double speed, QObject *parent = nullptr);
    ~SimLink() override;

    void open() override;
    void close() override;
    void write(const QByteArray &line) override;
    bool isOpen() const override { return m_open; }
    QString address() const override;

    sim::SupplyEngine &engine() { return *m_engine; }

private:
    void answer();

    std::unique_ptr<sim::SupplyEngine> m_engine;
    std::unique_ptr<sim::CommandInterpreter> m_interpreter;
    QQueue<QByteArray> m_lines;
    double m_speed;
    bool m_open = false;
    bool m_answering = false;
};

} // namespace tarn::host
