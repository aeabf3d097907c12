// What an instrument is: its identity, its limits and its channels, as a description file says.
#pragma once

#include <steplimits.h>

#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

namespace tarn::sim {

using Range = host::Range;

struct ChannelDescription
{
    QString name;
    Range voltage; // V
    Range current; // A
};

// How an instrument takes a List as arrays, one command per quantity, rather than step by step.
// A list longer than maxValues goes in pieces: the first with the write word, each further one with
// the append word, every word's %1 standing for the piece's values joined by commas. It is read
// back in pieces of at most maxValues, each read word's %1 standing for the first step (from 1)
// and %2 for how many; the reply is the values joined by commas.
struct ListArrays
{
    int maxValues = 0; // 0: the instrument takes List steps one by one
    QString writeVoltage, writeCurrent, writeTime;
    QString appendVoltage, appendCurrent, appendTime;
    QString readVoltage, readCurrent, readTime;

    bool used() const { return maxValues > 0; }
};

// InstrumentDescription is read from a JSON file by the simulated supply and by the bench host,
// so both sides of the wire agree on ranges, decimals, time limits and the longest sequence.
// `commands` maps our command words to another dialect's (empty: our own command set);
// `listArrays`, when used, says the instrument takes Lists as arrays.
struct InstrumentDescription
{
    QString maker;
    QString model;
    QString serial;
    QString firmware;
    int timeDecimals = 3;
    double timeMin = 0.001;
    double timeMax = 99999.0;
    int voltageDecimals = 3;
    int currentDecimals = 3;
    int maxCount = 2048;
    QVector<ChannelDescription> channels;
    QHash<QString, QString> commands;
    ListArrays listArrays;

    // The reply to *IDN?: maker, model, serial and firmware separated by commas.
    QString identity() const;

    // The supply the bench host programs when it is given no description.
    static InstrumentDescription builtIn();

    // Refuses a damaged or incomplete description as a whole; *error names the field and why.
    static std::optional<InstrumentDescription> fromJson(const QByteArray &json, QString *error);
    static std::optional<InstrumentDescription> fromFile(const QString &path, QString *error);
    QByteArray toJson() const;
};

// Bounds a description must keep, so that a hostile file cannot make either program huge.
namespace limits {
constexpr int maxChannels = 64;
constexpr int maxCount = 100000;
constexpr int maxDecimals = 6;
constexpr qint64 maxFileBytes = 1 << 20;
constexpr int maxTextLength = 64;
constexpr int maxArrayValues = 1000;
} // namespace limits

} // namespace tarn::sim
