// Linear maps between physical values and normalised levels, shared by every device module.
#pragma once

#include "tarn_core_export.h"

namespace tarn::core::algorithm {

// (value - min) / (max - min). min greater than max is allowed and mirrors the map.
TARN_CORE_EXPORT double normalize(double value, double min, double max);

// min + value * (max - min), the inverse of normalize(). Swapping min and max inverts a wave.
TARN_CORE_EXPORT double unnormalize(double value, double min, double max);

} // namespace tarn::core::algorithm
