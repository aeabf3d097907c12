// The common root of every step generator: levels out, durations in ticks.
#pragma once

#include "tarn2_specific_export.h"

#include <memory>
#include <vector>

namespace tarn2::specific::orvo5000 {

class WaveGeneratorPrivate;

// A WaveGenerator turns a few timing parameters into a sequence of levels (List waves in 0..1,
// Delayer states as 1.0 or 0.0) and tells how many ticks each level is held. It knows nothing of
// volts, amperes or seconds; the sequence builders scale in and out. A generator does not change
// after construction.
class TARN2_SPECIFIC_EXPORT WaveGenerator
{
public:
    virtual ~WaveGenerator();

    WaveGenerator(const WaveGenerator &) = delete;
    WaveGenerator &operator=(const WaveGenerator &) = delete;

    // The levels, one per step.
    virtual std::vector<double> generate() const = 0;
    // How long step i is held, in ticks.
    virtual double time(int i) const = 0;

protected:
    // Takes ownership of dd, which the subclass allocated with its own kind of private part.
    explicit WaveGenerator(WaveGeneratorPrivate &dd);

    std::unique_ptr<WaveGeneratorPrivate> d_ptr;
};

} // namespace tarn2::specific::orvo5000
