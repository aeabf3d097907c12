// The Delayer generators: On/Off sequences with fixed, growing or shrinking step times.
#pragma once

#include "wavegenerator.h"

namespace tarn2::specific::orvo5000 {

class DelayerGeneratorPrivate;

// A DelayerGenerator yields `count` alternating states as levels (1.0 On, 0.0 Off), starting Off
// for Pattern01 and On for Pattern10; any pattern value other than 10 counts as Pattern01. The
// subclasses decide how long each state lasts, in ticks kept as unrounded doubles, and whether
// their parameters make a usable sequence at all.
class TARN2_SPECIFIC_EXPORT DelayerGenerator : public WaveGenerator
{
public:
    // The numbers are stored as they stand in templates and settings.
    enum Pattern : int { Pattern01 = 1, Pattern10 = 10 };

    ~DelayerGenerator() override;

    std::vector<double> generate() const override;
    virtual bool isValid() const = 0;

protected:
    DelayerGenerator(Pattern pattern, int count);
};

// Every On step lasts `onTime`, every Off step `offTime`.
class TARN2_SPECIFIC_EXPORT FixTimeGenerator final : public DelayerGenerator
{
public:
    FixTimeGenerator(Pattern pattern, int count, double onTime, double offTime);
    ~FixTimeGenerator() override;

    double time(int i) const override;
    bool isValid() const override;
};

// Step i lasts baseValue + i × step, whatever its state. A negative step shrinks the times.
class TARN2_SPECIFIC_EXPORT IncreaseGenerator final : public DelayerGenerator
{
public:
    IncreaseGenerator(Pattern pattern, int count, double baseValue, double step);
    ~IncreaseGenerator() override;

    double time(int i) const override;
    bool isValid() const override;
};

// Step i lasts baseValue − i × step. Valid only while the last step stays longer than zero.
class TARN2_SPECIFIC_EXPORT DecreaseGenerator final : public DelayerGenerator
{
public:
    DecreaseGenerator(Pattern pattern, int count, double baseValue, double step);
    ~DecreaseGenerator() override;

    double time(int i) const override;
    bool isValid() const override;
};

} // namespace tarn2::specific::orvo5000
