// Thinning and exporting a run's trace.
#include "runtrace.h"

namespace tarn::host {

RunTrace::RunTrace(int bound)
    : m_bound(qMax(4, bound))
{}

void RunTrace::append(const RunSample &sample)
{
    if (m_samples.size() >= m_bound)
        thin();
    m_samples.append(sample);
}

void RunTrace::thin()
{
    const int older = m_samples.size() / 2;
    int kept = 0;
    for (int i = 0; i < m_samples.size(); ++i) {
        if (i < older && i % 2 == 1)
            continue;
        m_samples[kept++] = m_samples.at(i);
    }
    m_samples.resize(kept);
}

QStringList RunTrace::csvLines(int timeDecimals, int voltageDecimals, int currentDecimals) const
{
    QStringList lines;
    lines.reserve(m_samples.size() + 1);
    // The step is named by its row number in the editor, from 0, and left empty once the sequence
    // no longer plays.
    lines << QStringLiteral("time,voltage,current,output,step_no,cycle");
    for (const RunSample &s : m_samples) {
        lines << QStringLiteral("%1,%2,%3,%4,%5,%6")
                     .arg(QString::number(s.time, 'f', timeDecimals),
                          QString::number(s.voltage, 'f', voltageDecimals),
                          QString::number(s.current, 'f', currentDecimals),
                          QLatin1String(s.output ? "1" : "0"),
                          s.step > 0 ? QString::number(s.step - 1) : QString(),
                          QString::number(s.cycle));
    }
    return lines;
}

} // namespace tarn::host
