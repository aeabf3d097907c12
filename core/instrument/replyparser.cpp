// Strict readers of instrument replies: anything unexpected is refused, never guessed.
#include "replyparser.h"

#include <cmath>

namespace tarn::host::reply {

using tarn2::specific::orvo5000::programmer::DelayerData;
using tarn2::specific::orvo5000::programmer::ListData;

namespace {

std::optional<double> finite(const QByteArray &field)
{
    bool ok = false;
    const double value = field.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

// Splits a data line into fields, refusing one that would hold more than `bound` steps of
// `perStep` fields before any of it is converted.
std::optional<QList<QByteArray>> fields(const QByteArray &line, int bound, int perStep)
{
    if (line.trimmed().isEmpty())
        return QList<QByteArray>();
    const qint64 commas = line.count(',');
    if ((commas + 1) % perStep != 0 || (commas + 1) / perStep > bound)
        return std::nullopt;
    return line.split(',');
}

} // namespace

std::optional<Error> parseError(const QByteArray &line)
{
    const int comma = line.indexOf(',');
    if (comma <= 0)
        return std::nullopt;
    bool ok = false;
    const int code = line.left(comma).trimmed().toInt(&ok);
    if (!ok || code > 0 || code < -999)
        return std::nullopt;
    QByteArray text = line.mid(comma + 1).trimmed();
    if (text.size() >= 2 && text.startsWith('"') && text.endsWith('"'))
        text = text.mid(1, text.size() - 2);
    if (text.size() > 512)
        text.truncate(512);
    return Error{code, QString::fromUtf8(text)};
}

std::optional<int> parseCount(const QByteArray &line, int bound)
{
    bool ok = false;
    const int count = line.trimmed().toInt(&ok);
    if (!ok || count < 0 || count > bound)
        return std::nullopt;
    return count;
}

std::optional<QList<ListData>> parseListData(const QByteArray &line, int bound)
{
    const auto parts = fields(line, bound, 3);
    if (!parts)
        return std::nullopt;
    QList<ListData> steps;
    steps.reserve(parts->size() / 3);
    for (int i = 0; i + 2 < parts->size(); i += 3) {
        const auto v = finite(parts->at(i));
        const auto c = finite(parts->at(i + 1));
        const auto t = finite(parts->at(i + 2));
        if (!v || !c || !t)
            return std::nullopt;
        steps.append(ListData(*v, *c, *t));
    }
    return steps;
}

std::optional<QVector<double>> parseValues(const QByteArray &line, int count)
{
    const auto parts = fields(line, count, 1);
    if (!parts || parts->size() != count)
        return std::nullopt;
    QVector<double> values;
    values.reserve(count);
    for (const QByteArray &part : *parts) {
        const auto value = finite(part);
        if (!value)
            return std::nullopt;
        values.append(*value);
    }
    return values;
}

std::optional<QList<DelayerData>> parseDelayerData(const QByteArray &line, int bound)
{
    const auto parts = fields(line, bound, 2);
    if (!parts)
        return std::nullopt;
    QList<DelayerData> steps;
    steps.reserve(parts->size() / 2);
    for (int i = 0; i + 1 < parts->size(); i += 2) {
        const QByteArray state = parts->at(i).trimmed().toUpper();
        const auto t = finite(parts->at(i + 1));
        if (!t || (state != "1" && state != "0" && state != "ON" && state != "OFF"))
            return std::nullopt;
        steps.append(DelayerData(state == "1" || state == "ON", *t));
    }
    return steps;
}

std::optional<Position> parsePosition(const QByteArray &line, int maxStep)
{
    const QList<QByteArray> parts = line.split(',');
    if (parts.size() != 3)
        return std::nullopt;
    bool stepOk = false;
    bool cycleOk = false;
    Position p;
    p.step = parts.at(0).trimmed().toInt(&stepOk);
    p.cycle = parts.at(1).trimmed().toLongLong(&cycleOk);
    const auto elapsed = finite(parts.at(2));
    if (!stepOk || !cycleOk || !elapsed || p.step < 0 || p.step > maxStep || p.cycle < 0
        || *elapsed < 0.0)
        return std::nullopt;
    p.elapsed = *elapsed;
    return p;
}

std::optional<double> parseValue(const QByteArray &line)
{
    return finite(line);
}

std::optional<bool> parseBool(const QByteArray &line)
{
    const QByteArray word = line.trimmed().toUpper();
    if (word == "1" || word == "ON")
        return true;
    if (word == "0" || word == "OFF")
        return false;
    return std::nullopt;
}

std::optional<QString> parseIdentity(const QByteArray &line)
{
    QString text;
    for (const QChar c : QString::fromUtf8(line.left(200)).trimmed())
        text += c.isPrint() ? c : QChar(0xfffd);
    if (text.isEmpty())
        return std::nullopt;
    return text;
}

} // namespace tarn::host::reply
