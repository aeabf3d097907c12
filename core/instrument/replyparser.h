// Reading what an instrument answers: error replies, identities, counts and whole sequences.
#pragma once

#include <records.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>

#include <optional>

namespace tarn::host::reply {

struct Error
{
    int code = 0;
    QString text;
};

// `-222,"Data out of range;voltage 33 is outside 0..32"` or `0,"No error"`.
std::optional<Error> parseError(const QByteArray &line);
// A count, 0 or more, at most `bound`.
std::optional<int> parseCount(const QByteArray &line, int bound);
// Voltage, current and time of each step, all in one line; at most `bound` steps.
std::optional<QList<tarn2::specific::orvo5000::programmer::ListData>>
parseListData(const QByteArray &line, int bound);
// Exactly `count` numbers joined by commas: one quantity of a List read as an array.
std::optional<QVector<double>> parseValues(const QByteArray &line, int count);
// State (1/0 or ON/OFF) and time of each step; at most `bound` steps.
std::optional<QList<tarn2::specific::orvo5000::programmer::DelayerData>>
parseDelayerData(const QByteArray &line, int bound);
struct Position
{
    int step = 0; // from 1; 0 when the sequence does not run
    qint64 cycle = 0;
    double elapsed = 0.0; // s of sequence time
};
// `3,2,1.450`: the step now playing, the cycle and the sequence time since Run.
std::optional<Position> parsePosition(const QByteArray &line, int maxStep);
// A measured value: a finite number.
std::optional<double> parseValue(const QByteArray &line);
// A boolean reply, 1/0 or ON/OFF.
std::optional<bool> parseBool(const QByteArray &line);

// The *IDN? reply as it may be shown: printable, at most 200 characters; nothing when empty.
std::optional<QString> parseIdentity(const QByteArray &line);

} // namespace tarn::host::reply
