// Template settings: the tuned templates and the last shown types, kept per instrument name.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "helper.h"
#include "templatestream.h"

#include <QSettings>

namespace tarn2::specific::orvo5000::programmer {

namespace {

const int kListTemplateCount = 8;
const int kDelayerTemplateCount = 3;

QString settingsGroup()
{
    return QStringLiteral("%1/Programmer").arg(Helper::getInstance().option.name);
}

// A stored value of another type converts if it can, and is empty otherwise.
template<typename Vector> Vector storedVector(const QVariant &value)
{
    if (value.userType() == qMetaTypeId<Vector>())
        return value.value<Vector>();
    QVariant copy = value;
    if (copy.convert(qMetaTypeId<Vector>()))
        return copy.value<Vector>();
    return {};
}

} // namespace

bool DialogProgrammer::loadListTemplateParamsFromSettings()
{
    QSettings settings;
    settings.beginGroup(settingsGroup());
    listActiveType = settings.value(QStringLiteral("List Active Type"), 0).toInt();
    const QVariant value = settings.value(QStringLiteral("List Template Params"));
    if (value.isNull()) {
        settings.endGroup();
        return false;
    }
    listTemplateParams = storedVector<QVector<ListTemplateParam>>(value);
    settings.endGroup();
    return listTemplateParams.size() == kListTemplateCount;
}

bool DialogProgrammer::loadDelayerTemplateParamsFromSettings()
{
    QSettings settings;
    settings.beginGroup(settingsGroup());
    delayerActiveType = settings.value(QStringLiteral("Delayer Active Type"), 0).toInt();
    const QVariant value = settings.value(QStringLiteral("Delayer Template Params"));
    if (value.isNull()) {
        settings.endGroup();
        return false;
    }
    delayerTemplateParams = storedVector<QVector<DelayerTemplateParam>>(value);
    settings.endGroup();
    return delayerTemplateParams.size() == kDelayerTemplateCount;
}

void DialogProgrammer::saveListTemplateParamsToSettings()
{
    QSettings settings;
    settings.beginGroup(settingsGroup());
    settings.setValue(QStringLiteral("List Active Type"), ui->cbbListTempType->currentIndex());
    settings.setValue(QStringLiteral("List Template Params"),
                      QVariant::fromValue(listTemplateParams));
    settings.endGroup();
}

void DialogProgrammer::saveDelayerTemplateParamsToSettings()
{
    QSettings settings;
    settings.beginGroup(settingsGroup());
    settings.setValue(QStringLiteral("Delayer Active Type"),
                      ui->cbbDelayerTempType->currentIndex());
    settings.setValue(QStringLiteral("Delayer Template Params"),
                      QVariant::fromValue(delayerTemplateParams));
    settings.endGroup();
}

} // namespace tarn2::specific::orvo5000::programmer
