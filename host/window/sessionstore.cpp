// Sequences in the settings store.
#include "sessionstore.h"

#include <QDataStream>
#include <QSettings>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

const QString group = QStringLiteral("Sequences");
// A stored sequence no instrument description could hold is damage, not a sequence.
constexpr int mostSteps = 100000;

QString keyOf(UploadMode mode)
{
    return mode == UploadMode::List ? QStringLiteral("List") : QStringLiteral("Delayer");
}

} // namespace

void SessionStore::store(const SequenceContent &content)
{
    QByteArray steps;
    QDataStream out(&steps, QIODevice::WriteOnly);
    out << qint32(content.size());
    for (const ListData &step : content.list)
        out << step.voltage << step.current << step.time;
    for (const DelayerData &step : content.delayer)
        out << step.state << step.time;

    QSettings settings;
    settings.beginGroup(group);
    settings.beginGroup(keyOf(content.mode));
    settings.setValue(QStringLiteral("Cycles"), content.cycles);
    settings.setValue(QStringLiteral("EndState"), content.endState);
    settings.setValue(QStringLiteral("Steps"), steps);
}

std::optional<SequenceContent> SessionStore::restore(UploadMode mode)
{
    QSettings settings;
    settings.beginGroup(group);
    settings.beginGroup(keyOf(mode));
    if (!settings.contains(QStringLiteral("Steps")))
        return std::nullopt;
    SequenceContent content;
    content.mode = mode;
    content.cycles = settings.value(QStringLiteral("Cycles"), 1).toInt();
    content.endState = settings.value(QStringLiteral("EndState")).toString();

    const QByteArray steps = settings.value(QStringLiteral("Steps")).toByteArray();
    QDataStream in(steps);
    qint32 count = 0;
    in >> count;
    if (count < 0 || count > mostSteps)
        return std::nullopt;
    for (qint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        if (mode == UploadMode::List) {
            ListData step;
            in >> step.voltage >> step.current >> step.time;
            content.list.append(step);
        } else {
            DelayerData step;
            in >> step.state >> step.time;
            content.delayer.append(step);
        }
    }
    if (in.status() != QDataStream::Ok)
        return std::nullopt;
    return content;
}

void SessionStore::forget()
{
    QSettings().remove(group);
}

} // namespace tarn::host
