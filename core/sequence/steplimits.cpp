// The limits of a channel, and the texts that name a broken one.
#include "steplimits.h"

#include <records.h>

#include <QObject>

#include <cmath>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

QString text(double value)
{
    return QString::number(value, 'g', 12);
}

QString rangeProblem(const QString &quantity,
                     double value,
                     const QString &unit,
                     const Range &range,
                     const QString &channel)
{
    if (!std::isfinite(value))
        return QObject::tr("%1 %2 is not a finite number").arg(quantity, text(value));
    if (value > range.max)
        return QObject::tr("%1 %2 %3 is above %4's %5 %3")
            .arg(quantity, text(value), unit, channel, text(range.max));
    if (value < range.min)
        return QObject::tr("%1 %2 %3 is below %4's %5 %3")
            .arg(quantity, text(value), unit, channel, text(range.min));
    return {};
}

} // namespace

QString StepLimits::timeProblem(double time) const
{
    if (!std::isfinite(time))
        return QObject::tr("time %1 is not a finite number").arg(text(time));
    if (time < timeMin)
        return QObject::tr("time %1 s is below the shortest step of %2 s")
            .arg(text(time), text(timeMin));
    if (time > timeMax)
        return QObject::tr("time %1 s is above the longest step of %2 s")
            .arg(text(time), text(timeMax));
    return {};
}

QString StepLimits::problem(const ListData &step) const
{
    QString problem = rangeProblem(
        QObject::tr("voltage"), step.voltage, QStringLiteral("V"), voltage, channelName);
    if (problem.isEmpty() && step.voltage > overVoltage)
        problem = QObject::tr("voltage %1 V is above %2's over-voltage protection level of %3 V")
                      .arg(text(step.voltage), channelName, text(overVoltage));
    if (problem.isEmpty())
        problem = rangeProblem(
            QObject::tr("current"), step.current, QStringLiteral("A"), current, channelName);
    if (problem.isEmpty() && step.current > overCurrent)
        problem = QObject::tr("current %1 A is above %2's over-current protection level of %3 A")
                      .arg(text(step.current), channelName, text(overCurrent));
    if (problem.isEmpty())
        problem = timeProblem(step.time);
    return problem;
}

QString StepLimits::problem(const DelayerData &step) const
{
    return timeProblem(step.time);
}

} // namespace tarn::host
