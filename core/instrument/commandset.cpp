// Our command set and the checks on a dialect that replaces it.
#include "commandset.h"

#include <QRegularExpression>

namespace tarn::host {

namespace {

const QHash<QString, QString> &defaults()
{
    static const QHash<QString, QString> words{
        {QStringLiteral("identify"), QStringLiteral("*IDN?")},
        {QStringLiteral("clearStatus"), QStringLiteral("*CLS")},
        {QStringLiteral("complete"), QStringLiteral("*OPC?")},
        {QStringLiteral("nextError"), QStringLiteral("SYST:ERR?")},
        {QStringLiteral("errorCount"), QStringLiteral("SYST:ERR:COUN?")},
        {QStringLiteral("statusByte"), QStringLiteral("*STB?")},
        {QStringLiteral("questionableCondition"), QStringLiteral("STAT:QUES:COND?")},
        {QStringLiteral("selectChannel"), QStringLiteral("INST:NSEL %1")},
        {QStringLiteral("selectedChannel"), QStringLiteral("INST:NSEL?")},
        {QStringLiteral("voltageLimit"), QStringLiteral("VOLT? %1")},
        {QStringLiteral("currentLimit"), QStringLiteral("CURR? %1")},
        {QStringLiteral("voltageProtection"), QStringLiteral("VOLT:PROT?")},
        {QStringLiteral("currentProtection"), QStringLiteral("CURR:PROT?")},
        {QStringLiteral("voltageTripped"), QStringLiteral("VOLT:PROT:TRIP?")},
        {QStringLiteral("currentTripped"), QStringLiteral("CURR:PROT:TRIP?")},
        {QStringLiteral("clearProtection"), QStringLiteral("OUTP:PROT:CLE")},
        {QStringLiteral("output"), QStringLiteral("OUTP %1")},
        {QStringLiteral("measureVoltage"), QStringLiteral("MEAS:VOLT?")},
        {QStringLiteral("measureCurrent"), QStringLiteral("MEAS:CURR?")},
        {QStringLiteral("outputState"), QStringLiteral("OUTP?")},
        {QStringLiteral("listClear"), QStringLiteral("LIST:CLE")},
        {QStringLiteral("listStep"), QStringLiteral("LIST:STEP %1,%2,%3,%4")},
        {QStringLiteral("listCount"), QStringLiteral("LIST:COUN?")},
        {QStringLiteral("listData"), QStringLiteral("LIST:DATA?")},
        {QStringLiteral("listRepeat"), QStringLiteral("LIST:REP %1")},
        {QStringLiteral("listEnd"), QStringLiteral("LIST:END %1")},
        {QStringLiteral("listRun"), QStringLiteral("LIST:RUN")},
        {QStringLiteral("listStop"), QStringLiteral("LIST:STOP")},
        {QStringLiteral("listPosition"), QStringLiteral("LIST:POS?")},
        {QStringLiteral("delayerClear"), QStringLiteral("DEL:CLE")},
        {QStringLiteral("delayerStep"), QStringLiteral("DEL:STEP %1,%2,%3")},
        {QStringLiteral("delayerCount"), QStringLiteral("DEL:COUN?")},
        {QStringLiteral("delayerData"), QStringLiteral("DEL:DATA?")},
        {QStringLiteral("delayerRepeat"), QStringLiteral("DEL:REP %1")},
        {QStringLiteral("delayerEnd"), QStringLiteral("DEL:END %1")},
        {QStringLiteral("delayerRun"), QStringLiteral("DEL:RUN")},
        {QStringLiteral("delayerStop"), QStringLiteral("DEL:STOP")},
        {QStringLiteral("delayerPosition"), QStringLiteral("DEL:POS?")},
    };
    return words;
}

int placeholders(const QString &word)
{
    static const QRegularExpression marker(QStringLiteral("%(\\d)"));
    int highest = 0;
    auto it = marker.globalMatch(word);
    while (it.hasNext())
        highest = qMax(highest, it.next().captured(1).toInt());
    return highest;
}

} // namespace

CommandSet::CommandSet()
    : m_words(defaults())
{
    prepare();
}

void CommandSet::prepare()
{
    m_pieces.clear();
    for (auto it = m_words.cbegin(); it != m_words.cend(); ++it) {
        const QByteArray word = it.value().toUtf8();
        QVector<Piece> pieces;
        QByteArray literal;
        for (int i = 0; i < word.size(); ++i) {
            if (word.at(i) == '%' && i + 1 < word.size() && word.at(i + 1) >= '1'
                && word.at(i + 1) <= '9') {
                pieces.append({literal, -1});
                pieces.append({{}, word.at(i + 1) - '1'});
                literal.clear();
                ++i;
            } else {
                literal += word.at(i);
            }
        }
        pieces.append({literal, -1});
        m_pieces.insert(it.key(), pieces);
    }
}

std::optional<CommandSet> CommandSet::fromOverrides(const QHash<QString, QString> &overrides,
                                                    QString *error)
{
    CommandSet set;
    for (auto it = overrides.cbegin(); it != overrides.cend(); ++it) {
        const QString field = QStringLiteral("commands.") + it.key();
        if (!set.m_words.contains(it.key())) {
            *error = QObject::tr("field \"%1\": no such command word").arg(field);
            return std::nullopt;
        }
        const QString word = it.value().trimmed();
        if (word.isEmpty() || word.contains(QLatin1Char('\n'))) {
            *error = QObject::tr("field \"%1\": must be one non-empty line").arg(field);
            return std::nullopt;
        }
        const int wanted = placeholders(set.m_words.value(it.key()));
        if (placeholders(word) != wanted) {
            QStringList markers;
            for (int i = 1; i <= wanted; ++i)
                markers << QLatin1Char('%') + QString::number(i);
            *error = wanted == 0 ? QObject::tr("field \"%1\": must hold no placeholder").arg(field)
                                 : QObject::tr("field \"%1\": must hold the placeholders %2")
                                       .arg(field, markers.join(QLatin1String(", ")));
            return std::nullopt;
        }
        set.m_words.insert(it.key(), word);
    }
    set.prepare();
    return set;
}

QByteArray CommandSet::line(const char *key, const QStringList &arguments) const
{
    QByteArrayList bytes;
    for (const QString &argument : arguments)
        bytes.append(argument.toUtf8());
    QByteArray text;
    for (const Piece &piece : m_pieces.value(QLatin1String(key))) {
        if (piece.argument < 0)
            text += piece.literal;
        else if (piece.argument < bytes.size())
            text += bytes.at(piece.argument);
    }
    return text;
}

QByteArray CommandSet::line(const char *key, std::initializer_list<QByteArray> arguments) const
{
    const auto found = m_pieces.constFind(QLatin1String(key));
    if (found == m_pieces.cend())
        return {};
    QByteArray text;
    text.reserve(64);
    for (const Piece &piece : *found) {
        if (piece.argument < 0)
            text += piece.literal;
        else if (piece.argument < static_cast<int>(arguments.size()))
            text += *(arguments.begin() + piece.argument);
    }
    return text;
}

QString CommandSet::word(const char *key) const
{
    return m_words.value(QLatin1String(key));
}

QStringList CommandSet::keys()
{
    QStringList all = defaults().keys();
    all.sort();
    return all;
}

} // namespace tarn::host
