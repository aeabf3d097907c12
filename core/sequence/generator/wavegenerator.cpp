// The common root of every step generator.
#include "wavegenerator.h"
#include "wavegenerator_p.h"

namespace tarn2::specific::orvo5000 {

WaveGeneratorPrivate::~WaveGeneratorPrivate() = default;

WaveGenerator::WaveGenerator(WaveGeneratorPrivate &dd)
    : d_ptr(&dd)
{
    d_ptr->q_ptr = this;
}

WaveGenerator::~WaveGenerator() = default;

} // namespace tarn2::specific::orvo5000
