// The base of the List wave generators: levels from the subclass, timing from its WaveInfo.
#pragma once

#include "wavegenerator.h"

namespace tarn2::specific::orvo5000 {

class ListGeneratorPrivate;

// A ListGenerator produces normalised levels in 0..1 and takes its timing from the WaveInfo that
// the concrete generator created: time(i) and count() forward to it. The caller takes one level
// per element of generate() and asks time(i) for each; it does not compare that with count().
class TARN2_SPECIFIC_EXPORT ListGenerator : public WaveGenerator
{
public:
    ~ListGenerator() override;

    double time(int i) const override;
    // The number of steps that the timing defines (not necessarily the number of levels).
    virtual int count() const;

protected:
    explicit ListGenerator(ListGeneratorPrivate &dd);
};

} // namespace tarn2::specific::orvo5000
