// Linear maps between physical values and normalised levels.
#include "algorithm.h"

namespace tarn::core::algorithm {

double normalize(double value, double min, double max)
{
    return (value - min) / (max - min);
}

double unnormalize(double value, double min, double max)
{
    return min + value * (max - min);
}

} // namespace tarn::core::algorithm
