// Turning a List or Delayer template into the steps it describes.
#pragma once

#include "records.h"
#include "templateparam.h"

#include <QList>

namespace tarn2::specific::orvo5000::programmer {

// The most steps one template may generate. Larger templates are refused rather than built, so
// a stray period or count can never make the dialog allocate gigabytes.
constexpr qint64 kMaxTemplateSteps = 1000000;

// How many steps make_list_wave() / make_delayer_wave() would produce for `param` under the
// current option's timeDecimals, worked out in 64 bits without generating anything. An unknown
// type or an invalid Decline counts 0. Above kMaxTemplateSteps the builders return nothing.
TARN2_SPECIFIC_EXPORT qint64 list_wave_step_count(const ListTemplateParam &param);
TARN2_SPECIFIC_EXPORT qint64 delayer_wave_step_count(const DelayerTemplateParam &param);

// The steps of a List template: durations scaled to ticks of 10^-timeDecimals s, generated, and
// levels mapped onto the chosen range (swapped when inverted). The generated value always lands
// in `voltage`, whichever quantity `object` selects, and `current` is 0.0; the caller places the
// value. An unknown type, or more than kMaxTemplateSteps steps, gives an empty list.
TARN2_SPECIFIC_EXPORT QList<ListData> make_list_wave(const ListTemplateParam &param);

// The steps of a Delayer template: alternating states with the rule's durations. An unknown
// type, a Decline whose last step would not stay above zero, or more than kMaxTemplateSteps
// steps gives an empty list. A pattern other than 1 counts as 10 (On first).
TARN2_SPECIFIC_EXPORT QList<DelayerData> make_delayer_wave(const DelayerTemplateParam &param);

} // namespace tarn2::specific::orvo5000::programmer
