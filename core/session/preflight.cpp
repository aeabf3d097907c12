// Counting the steps an instrument would refuse.
#include "preflight.h"

#include "steplimits.h"

#include <records.h>

#include <QObject>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

template<class Step> Preflight checkSteps(const QList<Step> &steps, const StepLimits &limits)
{
    Preflight result;
    result.channelName = limits.channelName;
    for (int i = 0; i < steps.size(); ++i) {
        const QString problem = limits.problem(steps.at(i));
        if (problem.isEmpty())
            continue;
        if (result.badCount++ == 0) {
            result.firstBad = i;
            result.firstProblem = problem;
        }
    }
    return result;
}

} // namespace

Preflight Preflight::check(const QList<ListData> &steps, const StepLimits &limits)
{
    return checkSteps(steps, limits);
}

Preflight Preflight::check(const QList<DelayerData> &steps, const StepLimits &limits)
{
    return checkSteps(steps, limits);
}

QString Preflight::refusal() const
{
    if (passed())
        return {};
    // A whole sentence for one step and one for several, so that each language can make the
    // count, the noun and the verb agree.
    if (badCount == 1)
        return QObject::tr(
                   "Not uploaded: 1 step cannot be sent to %1; the first is step No. %2: %3")
            .arg(channelName, QString::number(firstBad), firstProblem);
    return QObject::tr("Not uploaded: %1 steps cannot be sent to %2; the first is step No. %3: %4")
        .arg(QString::number(badCount), channelName, QString::number(firstBad), firstProblem);
}

} // namespace tarn::host
