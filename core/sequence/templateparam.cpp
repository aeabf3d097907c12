// Defaults and resets of the List and Delayer template records.
#include "templateparam.h"

namespace tarn2::specific::orvo5000::programmer {

bool operator==(const ListTemplateParam &a, const ListTemplateParam &b)
{
    return a.type == b.type && a.object == b.object && a.voltage == b.voltage
           && a.current == b.current && a.voltageMin == b.voltageMin && a.voltageMax == b.voltageMax
           && a.currentMin == b.currentMin && a.currentMax == b.currentMax && a.period == b.period
           && a.interval == b.interval && a.cycles == b.cycles && a.inverted == b.inverted
           && a.width == b.width && a.pulseCount == b.pulseCount && a.symmetry == b.symmetry
           && a.steps == b.steps && a.expRate == b.expRate && a.expGroups == b.expGroups;
}

bool operator!=(const ListTemplateParam &a, const ListTemplateParam &b)
{
    return !(a == b);
}

bool operator==(const DelayerTemplateParam &a, const DelayerTemplateParam &b)
{
    return a.type == b.type && a.pattern == b.pattern && a.groups == b.groups
           && a.onTime == b.onTime && a.offTime == b.offTime && a.incBaseValue == b.incBaseValue
           && a.incStep == b.incStep && a.decBaseValue == b.decBaseValue && a.decStep == b.decStep;
}

bool operator!=(const DelayerTemplateParam &a, const DelayerTemplateParam &b)
{
    return !(a == b);
}

void resetListTemplateParam(ListTemplateParam &param, unsigned char type)
{
    param = ListTemplateParam();
    param.type = static_cast<ListTemplateType>(type);
}

void resetDelayerTemplateParam(DelayerTemplateParam &param, unsigned char type)
{
    param = DelayerTemplateParam();
    param.type = static_cast<DelayerTemplateType>(type);
}

void resetListTemplateParams(QVector<ListTemplateParam> &params)
{
    params.resize(kListTemplateTypeCount);
    for (int i = 0; i < kListTemplateTypeCount; ++i)
        resetListTemplateParam(params[i], static_cast<unsigned char>(i));
}

void resetDelayerTemplateParams(QVector<DelayerTemplateParam> &params)
{
    params.resize(kDelayerTemplateTypeCount);
    for (int i = 0; i < kDelayerTemplateTypeCount; ++i)
        resetDelayerTemplateParam(params[i], static_cast<unsigned char>(i));
}

} // namespace tarn2::specific::orvo5000::programmer
