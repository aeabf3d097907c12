// How steps show in table cells: the texts and values shared by the List and Delayer tables.
#pragma once

#include "records.h"
#include "tarn2_specific_export.h"

#include <QStringList>
#include <QVariant>

namespace tarn2::specific::orvo5000::programmer::stepcells {

// A number in fixed notation with the given decimals, as every step table shows it.
TARN2_SPECIFIC_EXPORT QString number(double value, int decimals);

// The cell of a List step at (row, column) for `role`, with the current option's decimals:
// column 0 the 0-based row, then voltage, current and time. Anything else is invalid.
TARN2_SPECIFIC_EXPORT QVariant listCell(const ListData &step, int row, int column, int role);

// The horizontal header texts; vertical headers and other roles have none.
TARN2_SPECIFIC_EXPORT QVariant header(const QStringList &headers,
                                      int section,
                                      Qt::Orientation orientation,
                                      int role);

} // namespace tarn2::specific::orvo5000::programmer::stepcells
