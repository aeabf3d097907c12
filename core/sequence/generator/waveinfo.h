// Timing of the List waves: how many steps a wave has and how many ticks each one lasts.
#pragma once

#include "tarn2_specific_export.h"

#include <memory>

namespace tarn2::specific::orvo5000 {

class WaveInfoPrivate;

// A WaveInfo answers the timing half of a List wave: the number of steps the timing defines and
// the length of step i in ticks. Every List generator creates the WaveInfo of its kind from its
// own arguments, owns it and forwards count() and time() to it.
class TARN2_SPECIFIC_EXPORT WaveInfo
{
public:
    virtual ~WaveInfo();

    WaveInfo(const WaveInfo &) = delete;
    WaveInfo &operator=(const WaveInfo &) = delete;

    virtual int count() const = 0;
    virtual double time(int i) const = 0;

protected:
    WaveInfo();

    std::unique_ptr<WaveInfoPrivate> d_ptr;
};

// P × C ticks cut into intervals of I; the last interval may be shorter. Durations round half up,
// while the setters truncate.
class TARN2_SPECIFIC_EXPORT SineWaveInfo final : public WaveInfo
{
public:
    SineWaveInfo(double period, double interval, int cycles);
    ~SineWaveInfo() override;

    int count() const override;
    double time(int i) const override;

    int period() const;
    void setPeriod(int period);
    double interval() const;
    void setInterval(double interval);
    int cycles() const;
    void setCycles(double cycles);
};

// C pulses, each high for W and low for P − W; a width that fills the period leaves one step per
// pulse. Durations round half up.
class TARN2_SPECIFIC_EXPORT PulseWaveInfo final : public WaveInfo
{
public:
    PulseWaveInfo(double period, double width, int count);
    ~PulseWaveInfo() override;

    int count() const override;
    double time(int i) const override;
};

// One period cut into intervals; the last one may be shorter. Durations round half up.
class TARN2_SPECIFIC_EXPORT RampWaveInfo final : public WaveInfo
{
public:
    RampWaveInfo(double period, double interval);
    ~RampWaveInfo() override;

    int count() const override;
    double time(int i) const override;
};

// One period shared by S steps, each boundary rounded to a whole tick. More steps than ticks
// leave no timing at all. The period truncates.
class TARN2_SPECIFIC_EXPORT StairWaveInfo final : public WaveInfo
{
public:
    StairWaveInfo(double period, int steps);
    ~StairWaveInfo() override;

    int count() const override;
    double time(int i) const override;
};

// G steps of one interval each. The interval truncates.
class TARN2_SPECIFIC_EXPORT ExpWaveInfo final : public WaveInfo
{
public:
    ExpWaveInfo(double interval, int groups);
    ~ExpWaveInfo() override;

    int count() const override;
    double time(int i) const override;
};

} // namespace tarn2::specific::orvo5000
