// The instrument's bounded queue of errors, read oldest first.
#pragma once

#include "scpierror.h"

#include <QString>
#include <QVector>

namespace tarn::sim {

// ErrorQueue keeps at most `capacity` errors. When it is full, the newest entry becomes -350
// "Queue overflow" and further errors are dropped until the queue is read, as instruments do, so
// that a client that never asks cannot make it grow.
class ErrorQueue
{
public:
    static constexpr int capacity = 32;

    struct Entry
    {
        ScpiError error = ScpiError::None;
        QString detail;
    };

    void push(ScpiError error, const QString &detail = {});
    // The oldest error, or 0 "No error" when there is none.
    Entry pop();
    void clear();
    int size() const { return m_entries.size(); }
    bool isEmpty() const { return m_entries.isEmpty(); }
    // The standard event bits of the errors pushed since the last call, also of those the full
    // queue could not keep.
    quint8 takeRaisedEvents();

    // How SYST:ERR? replies: -222,"Data out of range;voltage 40 is above 32".
    static QString format(const Entry &entry);

private:
    QVector<Entry> m_entries;
    quint8 m_raised = 0;
};

} // namespace tarn::sim
