// The List and Delayer template records, their type enumerations and their defaults.
#pragma once

#include "tarn2_specific_export.h"

#include <QMetaType>
#include <QVector>

namespace tarn2::specific::orvo5000::programmer {

// The List waveforms, in the order of the dialog's type list and of the template vector. The
// underlying type is fixed so that any number read back from settings is a valid value.
enum ListTemplateType : int {
    ListSine = 0,
    ListPulse = 1,
    ListRamp = 2,
    ListStairUp = 3,
    ListStairDown = 4,
    ListStairUpDown = 5,
    ListExpRise = 6,
    ListExpFall = 7,
};
constexpr int kListTemplateTypeCount = 8;

// The Delayer timing rules, in the order of the dialog's type list and of the template vector.
enum DelayerTemplateType : int {
    DelayerFixTime = 0,
    DelayerIncrease = 1,
    DelayerDecline = 2,
};
constexpr int kDelayerTemplateTypeCount = 3;

// The parameters of one List waveform. Durations are seconds, `symmetry` is a percentage, and
// `object` chooses the driven quantity: 0 the voltage (the current stays at `current`), any other
// value the current (the voltage stays at `voltage`). `inverted` swaps the level-0 and level-1
// values. A default-constructed record holds the defaults of a Sine template, the same values
// that resetListTemplateParam() gives.
struct ListTemplateParam
{
    ListTemplateType type = ListSine;
    int object = 0;
    double voltage = 3.0;
    double current = 3.0;
    double voltageMin = 0.0;
    double voltageMax = 3.0;
    double currentMin = 0.0;
    double currentMax = 3.0;
    double period = 30.0;
    double interval = 1.0;
    int cycles = 1;
    bool inverted = false;
    double width = 15.0;
    int pulseCount = 1;
    int symmetry = 50;
    int steps = 10;
    int expRate = 5;
    int expGroups = 5;
};

// The parameters of one Delayer timing rule. Durations are seconds; `pattern` holds a
// DelayerGenerator::Pattern number, 1 (Off first) or 10 (On first). A default-constructed record
// holds the defaults of a Fix Time template.
struct DelayerTemplateParam
{
    DelayerTemplateType type = DelayerFixTime;
    int pattern = 10;
    int groups = 10;
    double onTime = 1.0;
    double offTime = 1.0;
    double incBaseValue = 1.0;
    double incStep = 1.0;
    double decBaseValue = 1.0;
    double decStep = 1.0;
};

// Field-by-field comparison; doubles compare exactly.
TARN2_SPECIFIC_EXPORT bool operator==(const ListTemplateParam &a, const ListTemplateParam &b);
TARN2_SPECIFIC_EXPORT bool operator!=(const ListTemplateParam &a, const ListTemplateParam &b);
TARN2_SPECIFIC_EXPORT bool operator==(const DelayerTemplateParam &a, const DelayerTemplateParam &b);
TARN2_SPECIFIC_EXPORT bool operator!=(const DelayerTemplateParam &a, const DelayerTemplateParam &b);

// Sets `type` and every other field to its default.
TARN2_SPECIFIC_EXPORT void resetListTemplateParam(ListTemplateParam &param, unsigned char type);
TARN2_SPECIFIC_EXPORT void resetDelayerTemplateParam(DelayerTemplateParam &param,
                                                     unsigned char type);

// Resize to one template per type and reset element i with type i, so that the vectors are
// indexed by ListTemplateType and DelayerTemplateType.
TARN2_SPECIFIC_EXPORT void resetListTemplateParams(QVector<ListTemplateParam> &params);
TARN2_SPECIFIC_EXPORT void resetDelayerTemplateParams(QVector<DelayerTemplateParam> &params);

} // namespace tarn2::specific::orvo5000::programmer

Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::ListTemplateParam)
Q_DECLARE_METATYPE(tarn2::specific::orvo5000::programmer::DelayerTemplateParam)
// The settings store a vector under its meta-type name, so the vectors are known by the short
// names that stored settings carry, not by the fully qualified ones Q_DECLARE_METATYPE would give.
#define TARN2_DECLARE_TEMPLATE_VECTOR(ELEMENT, NAME)                                               \
    QT_BEGIN_NAMESPACE                                                                             \
    template<> struct QMetaTypeId<QVector<ELEMENT>>                                                \
    {                                                                                              \
        enum { Defined = 1 };                                                                      \
        static int qt_metatype_id()                                                                \
        {                                                                                          \
            static QBasicAtomicInt id = Q_BASIC_ATOMIC_INITIALIZER(0);                             \
            if (const int known = id.loadAcquire())                                                \
                return known;                                                                      \
            const int registered = qRegisterMetaType<QVector<ELEMENT>>(                            \
                NAME, reinterpret_cast<QVector<ELEMENT> *>(quintptr(-1)));                         \
            id.storeRelease(registered);                                                           \
            return registered;                                                                     \
        }                                                                                          \
    };                                                                                             \
    QT_END_NAMESPACE

TARN2_DECLARE_TEMPLATE_VECTOR(tarn2::specific::orvo5000::programmer::ListTemplateParam,
                              "QVector<programmer::ListTemplateParam>")
TARN2_DECLARE_TEMPLATE_VECTOR(tarn2::specific::orvo5000::programmer::DelayerTemplateParam,
                              "QVector<programmer::DelayerTemplateParam>")
#undef TARN2_DECLARE_TEMPLATE_VECTOR
