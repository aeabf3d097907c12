// The value records that the programmer module passes around: steps, instrument options, uploads.
#pragma once

#include "tarn2_specific_export.h"

#include <QList>
#include <QMetaType>
#include <QPair>
#include <QString>
#include <QVector>

namespace tarn2::specific::orvo5000::programmer {

// Empty polymorphic base of the step records, so that an uploader hands out any kind of step
// through one type. Holding a step through it is safe: the destructor is virtual.
class TARN2_SPECIFIC_EXPORT ProgrammerData
{
public:
    ProgrammerData() = default;
    ProgrammerData(const ProgrammerData &) = default;
    ProgrammerData &operator=(const ProgrammerData &) = default;
    virtual ~ProgrammerData();
};

// One List-mode step: volts, amperes and seconds.
class TARN2_SPECIFIC_EXPORT ListData : public ProgrammerData
{
public:
    ListData() = default;
    ListData(double voltage, double current, double time)
        : voltage(voltage)
        , current(current)
        , time(time)
    {}
    ListData(const ListData &) = default;
    ListData &operator=(const ListData &) = default;
    ~ListData() override;

    double voltage = 0.0;
    double current = 0.0;
    double time = 0.0;
};

// One Delayer-mode step. A default step is On, not Off.
class TARN2_SPECIFIC_EXPORT DelayerData : public ProgrammerData
{
public:
    DelayerData() = default;
    DelayerData(bool state, double time)
        : state(state)
        , time(time)
    {}
    DelayerData(const DelayerData &) = default;
    DelayerData &operator=(const DelayerData &) = default;
    ~DelayerData() override;

    bool state = true;
    double time = 0.0;
};

// One output channel as the host describes it: ranges[0] is the voltage range in V, ranges[1]
// the current range in A, each a (minimum, maximum) pair.
struct Channel
{
    QString name;
    QVector<QPair<double, double>> ranges;
};

// The host's description of the instrument, handed to the dialog at construction.
struct Option
{
    QString name;
    int timeDecimals = 0;
    double timeMin = 0.0;
    double timeMax = 0.0;
    int voltageDecimals = 0;
    int currentDecimals = 0;
    QVector<Channel> channels;
    int maxCount = 0;
    // The host's permissions: the dialog enables its Save, Load and Upload buttons by them.
    bool saveEnabled = false;
    bool loadEnabled = false;
    bool uploadEnabled = false;
};

// Which sequence an upload or a file concerns. DialogProgrammer::UploadMode names the same type.
enum UploadMode { List = 0, Delayer = 1 };

// What an upload or a sequence file carries besides the steps.
struct UploadParam
{
    UploadMode mode = List;
    int channel = 1; // 1-based
    int maxCount = 0;
    int cycles = 0;
    QString endState;
};

} // namespace tarn2::specific::orvo5000::programmer

Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::ProgrammerData)
Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::ListData)
Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::DelayerData)
Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::UploadParam)
