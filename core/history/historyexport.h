// A recorded sequence and trace as the files a user exports: sequence CSV and trace CSV.
#pragma once

#include "historyrecord.h"

#include <instrumentdescription.h>

#include <QStringList>

namespace tarn::history {

// The sequence file's lines, numbers with the instrument's decimals, in the form every reader of
// sequence files takes.
QStringList sequenceLines(const HistoryRecord &record,
                          const sim::InstrumentDescription &description);
// The trace's lines, as a run's --trace writes them.
QStringList traceLines(const HistoryRecord &record, const sim::InstrumentDescription &description);

} // namespace tarn::history
