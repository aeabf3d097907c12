// Exporting through SequenceFile and RunTrace, the only writers of those two forms.
#include "historyexport.h"

#include <instrumentoption.h>
#include <sequencefile.h>

namespace tarn::history {

using namespace tarn2::specific::orvo5000::programmer;

QStringList sequenceLines(const HistoryRecord &record,
                          const sim::InstrumentDescription &description)
{
    const Option option = host::optionFor(description);
    const QString &end = record.sequence.endState;
    const int endIndex = end == QLatin1String("ON") ? 1 : end == QLatin1String("LAST") ? 2 : 0;
    return record.sequence.mode == List
               ? SequenceFile::listLines(
                   record.sequence.list, record.sequence.cycles, endIndex, option)
               : SequenceFile::delayerLines(
                   record.sequence.delayer, record.sequence.cycles, endIndex, option);
}

QStringList traceLines(const HistoryRecord &record, const sim::InstrumentDescription &description)
{
    // A trace of any length is exported whole, not thinned as a live run's is.
    host::RunTrace trace(qMax(1, record.samples.size()));
    for (const host::RunSample &sample : record.samples)
        trace.append(sample);
    return trace.csvLines(
        description.timeDecimals, description.voltageDecimals, description.currentDecimals);
}

} // namespace tarn::history
