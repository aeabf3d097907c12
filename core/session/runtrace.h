// What a running sequence did: measured samples against sequence time, bounded in memory.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace tarn::host {

struct RunSample
{
    double time = 0.0; // s of sequence time since Run
    double voltage = 0.0;
    double current = 0.0;
    bool output = false;
    int step = 0; // from 1; 0 once the sequence no longer runs
    qint64 cycle = 0;
};

// RunTrace keeps at most `bound` samples. When it is full, every other sample of the older half
// is dropped, so an hour at 10 Hz still fits and the recent part keeps its full rate; the first
// sample always stays.
class RunTrace
{
public:
    explicit RunTrace(int bound = 20000);

    void append(const RunSample &sample);
    void clear() { m_samples.clear(); }
    const QVector<RunSample> &samples() const { return m_samples; }
    int bound() const { return m_bound; }

    // time,voltage,current,output,step_no,cycle: one line per sample after the column titles, the
    // values with the instrument's decimals.
    QStringList csvLines(int timeDecimals, int voltageDecimals, int currentDecimals) const;

private:
    void thin();

    QVector<RunSample> m_samples;
    int m_bound;
};

} // namespace tarn::host
