// Reading, checking and writing instrument description files.
#include "instrumentdescription.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace tarn::sim {

namespace {

// Collects the first failure with the field it concerns; later checks are skipped once one failed.
class Checker
{
public:
    explicit Checker(QString *error)
        : m_error(error)
    {}

    bool ok() const { return m_ok; }

    void fail(const QString &field, const QString &reason)
    {
        if (m_ok && m_error)
            *m_error = QStringLiteral("field \"%1\": %2").arg(field, reason);
        m_ok = false;
    }

    QString text(const QJsonObject &object, const QString &key, const QString &field)
    {
        const QJsonValue value = object.value(key);
        if (!m_ok)
            return {};
        if (value.isUndefined()) {
            fail(field, QStringLiteral("is missing"));
            return QString();
        }
        if (!value.isString()) {
            fail(field, QStringLiteral("must be a text"));
            return QString();
        }
        const QString s = value.toString();
        if (s.trimmed().isEmpty()) {
            fail(field, QStringLiteral("must not be empty"));
            return QString();
        }
        if (s.size() > limits::maxTextLength) {
            fail(field, QStringLiteral("is longer than %1 characters").arg(limits::maxTextLength));
            return QString();
        }
        // The identity travels as one comma-separated reply line.
        for (const QChar c : s) {
            if (c == QLatin1Char(',') || c == QLatin1Char(';') || c == QLatin1Char('"')
                || c.unicode() < 0x20) {
                fail(field,
                     QStringLiteral("must not hold commas, semicolons, quotes or "
                                    "control characters"));
                return QString();
            }
        }
        return s;
    }

    double number(const QJsonObject &object, const QString &key, const QString &field)
    {
        const QJsonValue value = object.value(key);
        if (!m_ok)
            return 0.0;
        if (value.isUndefined()) {
            fail(field, QStringLiteral("is missing"));
            return 0.0;
        }
        if (!value.isDouble() || !std::isfinite(value.toDouble())) {
            fail(field, QStringLiteral("must be a number"));
            return 0.0;
        }
        return value.toDouble();
    }

    int integer(const QJsonObject &object, const QString &key, const QString &field, int lo, int hi)
    {
        const double d = number(object, key, field);
        if (!m_ok)
            return 0;
        if (d != std::floor(d)) {
            fail(field, QStringLiteral("must be a whole number"));
            return 0;
        }
        if (d < lo || d > hi) {
            fail(field, QStringLiteral("must lie in %1..%2").arg(lo).arg(hi));
            return 0;
        }
        return static_cast<int>(d);
    }

    Range range(const QJsonObject &object, const QString &key, const QString &field)
    {
        const QJsonValue value = object.value(key);
        if (!m_ok)
            return {};
        if (value.isUndefined()) {
            fail(field, QStringLiteral("is missing"));
            return Range();
        }
        const QJsonArray pair = value.toArray();
        if (!value.isArray() || pair.size() != 2 || !pair.at(0).isDouble()
            || !pair.at(1).isDouble()) {
            fail(field, QStringLiteral("must be two numbers [minimum, maximum]"));
            return Range();
        }
        const Range r{pair.at(0).toDouble(), pair.at(1).toDouble()};
        if (!std::isfinite(r.min) || !std::isfinite(r.max) || r.min < 0.0 || r.min >= r.max) {
            fail(field, QStringLiteral("must satisfy 0 <= minimum < maximum"));
            return Range();
        }
        return r;
    }

private:
    QString *m_error;
    bool m_ok = true;
};

// A word of the array form: one line holding exactly the placeholders %1..%`placeholders`.
QString arrayWord(Checker &check,
                  const QJsonObject &object,
                  const QString &key,
                  const QString &field,
                  int placeholders)
{
    const QJsonValue value = object.value(key);
    if (!check.ok())
        return {};
    if (!value.isString() || value.toString().trimmed().isEmpty()) {
        check.fail(field,
                   value.isUndefined() ? QStringLiteral("is missing")
                                       : QStringLiteral("must be a non-empty text"));
        return {};
    }
    const QString word = value.toString().trimmed();
    if (word.size() > 256 || word.contains(QLatin1Char('\n'))) {
        check.fail(field, QStringLiteral("must be one line of at most 256 characters"));
        return {};
    }
    for (int i = 1; i <= 9; ++i) {
        const int found = word.count(QLatin1Char('%') + QString::number(i));
        if (found != (i <= placeholders ? 1 : 0)) {
            check.fail(field,
                       placeholders == 1
                           ? QStringLiteral("must hold %1 once, for the values")
                           : QStringLiteral("must hold %1 (the first step) and %2 (how "
                                            "many) once each"));
            return {};
        }
    }
    return word;
}

ListArrays readListArrays(Checker &check, const QJsonValue &value)
{
    ListArrays arrays;
    const QString field = QStringLiteral("listArrays");
    if (!value.isObject()) {
        check.fail(field, QStringLiteral("must be an object"));
        return arrays;
    }
    const QJsonObject root = value.toObject();
    arrays.maxValues = check.integer(root,
                                     QStringLiteral("maxValues"),
                                     field + QStringLiteral(".maxValues"),
                                     1,
                                     limits::maxArrayValues);
    auto words = [&](const char *group,
                     int placeholders,
                     QString *voltage,
                     QString *current,
                     QString *time) {
        const QString name = QLatin1String(group);
        const QString prefix = field + QLatin1Char('.') + name + QLatin1Char('.');
        const QJsonValue object = root.value(name);
        if (check.ok() && !object.isObject()) {
            check.fail(field + QLatin1Char('.') + name,
                       object.isUndefined() ? QStringLiteral("is missing")
                                            : QStringLiteral("must be an object"));
            return;
        }
        const QJsonObject o = object.toObject();
        *voltage = arrayWord(
            check, o, QStringLiteral("voltage"), prefix + QStringLiteral("voltage"), placeholders);
        *current = arrayWord(
            check, o, QStringLiteral("current"), prefix + QStringLiteral("current"), placeholders);
        *time = arrayWord(
            check, o, QStringLiteral("time"), prefix + QStringLiteral("time"), placeholders);
    };
    words("write", 1, &arrays.writeVoltage, &arrays.writeCurrent, &arrays.writeTime);
    words("append", 1, &arrays.appendVoltage, &arrays.appendCurrent, &arrays.appendTime);
    words("read", 2, &arrays.readVoltage, &arrays.readCurrent, &arrays.readTime);
    return arrays;
}

QJsonObject listArraysToJson(const ListArrays &a)
{
    auto words = [](const QString &voltage, const QString &current, const QString &time) {
        return QJsonObject{{QStringLiteral("voltage"), voltage},
                           {QStringLiteral("current"), current},
                           {QStringLiteral("time"), time}};
    };
    return QJsonObject{
        {QStringLiteral("maxValues"), a.maxValues},
        {QStringLiteral("write"), words(a.writeVoltage, a.writeCurrent, a.writeTime)},
        {QStringLiteral("append"), words(a.appendVoltage, a.appendCurrent, a.appendTime)},
        {QStringLiteral("read"), words(a.readVoltage, a.readCurrent, a.readTime)},
    };
}

QJsonArray rangeToJson(const Range &r)
{
    return QJsonArray{r.min, r.max};
}

} // namespace

QString InstrumentDescription::identity() const
{
    return QStringList{maker, model, serial, firmware}.join(QLatin1Char(','));
}

InstrumentDescription InstrumentDescription::builtIn()
{
    InstrumentDescription d;
    d.maker = QStringLiteral("Tarn");
    d.model = QStringLiteral("Simulated Supply");
    d.serial = QStringLiteral("SIM-000001");
    d.firmware = QStringLiteral("1.0.0");
    for (int i = 1; i <= 4; ++i)
        d.channels.append({QStringLiteral("CH%1").arg(i), {0.0, 32.0}, {0.0, 3.2}});
    d.channels.append({QStringLiteral("Series"), {0.0, 64.0}, {0.0, 3.2}});
    d.channels.append({QStringLiteral("Parallel"), {0.0, 32.0}, {0.0, 6.4}});
    return d;
}

std::optional<InstrumentDescription> InstrumentDescription::fromJson(const QByteArray &json,
                                                                     QString *error)
{
    if (json.size() > limits::maxFileBytes) {
        if (error)
            *error = QStringLiteral("the description is larger than %1 bytes")
                         .arg(limits::maxFileBytes);
        return std::nullopt;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isObject()) {
        if (error)
            *error = parseError.error != QJsonParseError::NoError
                         ? QStringLiteral("not JSON at byte %1: %2")
                               .arg(parseError.offset)
                               .arg(parseError.errorString())
                         : QStringLiteral("the description must be a JSON object");
        return std::nullopt;
    }

    const QJsonObject root = document.object();
    Checker check(error);
    InstrumentDescription d;

    if (!root.value(QLatin1String("identity")).isObject())
        check.fail(QStringLiteral("identity"),
                   root.contains(QLatin1String("identity")) ? QStringLiteral("must be an object")
                                                            : QStringLiteral("is missing"));
    const QJsonObject identity = root.value(QLatin1String("identity")).toObject();
    d.maker = check.text(identity, QStringLiteral("maker"), QStringLiteral("identity.maker"));
    d.model = check.text(identity, QStringLiteral("model"), QStringLiteral("identity.model"));
    d.serial = check.text(identity, QStringLiteral("serial"), QStringLiteral("identity.serial"));
    d.firmware
        = check.text(identity, QStringLiteral("firmware"), QStringLiteral("identity.firmware"));

    d.timeDecimals = check.integer(root,
                                   QStringLiteral("timeDecimals"),
                                   QStringLiteral("timeDecimals"),
                                   0,
                                   limits::maxDecimals);
    d.timeMin = check.number(root, QStringLiteral("timeMin"), QStringLiteral("timeMin"));
    d.timeMax = check.number(root, QStringLiteral("timeMax"), QStringLiteral("timeMax"));
    if (check.ok()) {
        const double quantum = std::pow(10.0, -d.timeDecimals);
        if (d.timeMin < quantum * (1.0 - 1e-9))
            check.fail(QStringLiteral("timeMin"),
                       QStringLiteral("must be at least the time quantum %1 s").arg(quantum));
        else if (d.timeMax < d.timeMin)
            check.fail(QStringLiteral("timeMax"), QStringLiteral("must not be below timeMin"));
        else if (d.timeMax > 1e6)
            check.fail(QStringLiteral("timeMax"), QStringLiteral("must not exceed 1000000 s"));
    }
    d.voltageDecimals = check.integer(root,
                                      QStringLiteral("voltageDecimals"),
                                      QStringLiteral("voltageDecimals"),
                                      0,
                                      limits::maxDecimals);
    d.currentDecimals = check.integer(root,
                                      QStringLiteral("currentDecimals"),
                                      QStringLiteral("currentDecimals"),
                                      0,
                                      limits::maxDecimals);
    d.maxCount = check.integer(
        root, QStringLiteral("maxCount"), QStringLiteral("maxCount"), 1, limits::maxCount);

    const QJsonValue channels = root.value(QLatin1String("channels"));
    if (check.ok()) {
        if (channels.isUndefined())
            check.fail(QStringLiteral("channels"), QStringLiteral("is missing"));
        else if (!channels.isArray())
            check.fail(QStringLiteral("channels"), QStringLiteral("must be an array"));
        else if (channels.toArray().isEmpty())
            check.fail(QStringLiteral("channels"),
                       QStringLiteral("must hold at least one channel"));
        else if (channels.toArray().size() > limits::maxChannels)
            check.fail(QStringLiteral("channels"),
                       QStringLiteral("holds more than %1 channels").arg(limits::maxChannels));
    }
    const QJsonArray channelArray = check.ok() ? channels.toArray() : QJsonArray();
    for (int i = 0; i < channelArray.size() && check.ok(); ++i) {
        const QString field = QStringLiteral("channels[%1]").arg(i);
        if (!channelArray.at(i).isObject()) {
            check.fail(field, QStringLiteral("must be an object"));
            break;
        }
        const QJsonObject channel = channelArray.at(i).toObject();
        ChannelDescription c;
        c.name = check.text(channel, QStringLiteral("name"), field + QStringLiteral(".name"));
        c.voltage
            = check.range(channel, QStringLiteral("voltage"), field + QStringLiteral(".voltage"));
        c.current
            = check.range(channel, QStringLiteral("current"), field + QStringLiteral(".current"));
        for (const ChannelDescription &other : qAsConst(d.channels)) {
            if (check.ok() && other.name.compare(c.name, Qt::CaseInsensitive) == 0)
                check.fail(field + QStringLiteral(".name"),
                           QStringLiteral("\"%1\" names another channel too").arg(c.name));
        }
        d.channels.append(c);
    }

    const QJsonValue commands = root.value(QLatin1String("commands"));
    if (check.ok() && !commands.isUndefined()) {
        if (!commands.isObject()) {
            check.fail(QStringLiteral("commands"), QStringLiteral("must be an object"));
        } else {
            const QJsonObject object = commands.toObject();
            if (object.size() > 256)
                check.fail(QStringLiteral("commands"),
                           QStringLiteral("holds more than 256 entries"));
            for (auto it = object.begin(); it != object.end() && check.ok(); ++it) {
                const QString field = QStringLiteral("commands.") + it.key();
                if (!it.value().isString())
                    check.fail(field, QStringLiteral("must be a text"));
                else if (it.value().toString().size() > 256)
                    check.fail(field, QStringLiteral("is longer than 256 characters"));
                else
                    d.commands.insert(it.key(), it.value().toString());
            }
        }
    }

    const QJsonValue arrays = root.value(QLatin1String("listArrays"));
    if (check.ok() && !arrays.isUndefined())
        d.listArrays = readListArrays(check, arrays);

    if (!check.ok())
        return std::nullopt;
    return d;
}

std::optional<InstrumentDescription> InstrumentDescription::fromFile(const QString &path,
                                                                     QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    if (file.size() > limits::maxFileBytes) {
        if (error)
            *error = QStringLiteral("%1: the description is larger than %2 bytes")
                         .arg(path)
                         .arg(limits::maxFileBytes);
        return std::nullopt;
    }
    auto description = fromJson(file.read(limits::maxFileBytes + 1), error);
    if (!description && error)
        *error = path + QStringLiteral(": ") + *error;
    return description;
}

QByteArray InstrumentDescription::toJson() const
{
    QJsonArray channelArray;
    for (const ChannelDescription &c : channels) {
        channelArray.append(QJsonObject{{QStringLiteral("name"), c.name},
                                        {QStringLiteral("voltage"), rangeToJson(c.voltage)},
                                        {QStringLiteral("current"), rangeToJson(c.current)}});
    }
    QJsonObject root{
        {QStringLiteral("identity"),
         QJsonObject{{QStringLiteral("maker"), maker},
                     {QStringLiteral("model"), model},
                     {QStringLiteral("serial"), serial},
                     {QStringLiteral("firmware"), firmware}}},
        {QStringLiteral("timeDecimals"), timeDecimals},
        {QStringLiteral("timeMin"), timeMin},
        {QStringLiteral("timeMax"), timeMax},
        {QStringLiteral("voltageDecimals"), voltageDecimals},
        {QStringLiteral("currentDecimals"), currentDecimals},
        {QStringLiteral("maxCount"), maxCount},
        {QStringLiteral("channels"), channelArray},
    };
    if (!commands.isEmpty()) {
        QJsonObject commandObject;
        for (auto it = commands.begin(); it != commands.end(); ++it)
            commandObject.insert(it.key(), it.value());
        root.insert(QStringLiteral("commands"), commandObject);
    }
    if (listArrays.used())
        root.insert(QStringLiteral("listArrays"), listArraysToJson(listArrays));
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

} // namespace tarn::sim
