// The CSV form of a List or Delayer sequence: the only code that writes or reads its lines.
#pragma once

#include "records.h"
#include "tarn2_specific_export.h"

#include <QList>
#include <QString>
#include <QStringRef>

namespace tarn2::specific::orvo5000::programmer {

// SequenceFile knows the file format: a head of four lines ("LIST,10" or "DELAYER,10", "Cycles",
// "End Status", "Groups"), a line of column titles, then one line per step. Readers differ only
// in what they do with a problem: the dialog's loader drops the file without a word, the host
// tells the user the line and the reason. Both read through here, so both take the same files.
class TARN2_SPECIFIC_EXPORT SequenceFile final
{
public:
    // The head, the column titles, then steps.
    static constexpr int headLines = 5;
    // The largest repeat count a file may carry; 0 repeats endlessly.
    static constexpr int maxCycles = 99999;

    // The first field of the first line: "LIST" or "DELAYER".
    static QString tag(UploadMode mode);
    // "Output Off", "Output On", "Last", by the index of a tab's end-state choice; empty for
    // others.
    static QString endStateName(int index);

    // The lines of a file, numbers written with the option's decimals.
    static QList<QString>
    listLines(const QList<ListData> &steps, int cycles, int endStateIndex, const Option &option);
    static QList<QString> delayerLines(const QList<DelayerData> &steps,
                                       int cycles,
                                       int endStateIndex,
                                       const Option &option);

    // The most bytes the lines of a sequence of `maxCount` steps may take: the head, and every
    // step line at up to 256 bytes, far beyond what any saver writes.
    static qint64 sizeBound(int maxCount);
    // The lines a load can use, and no more: the head and at most `maxCount` step lines, read in
    // at most sizeBound(maxCount) bytes. Empty when the file is unreadable or they need more.
    static QList<QString> readLines(const QString &path, int maxCount);

    // What the head says. `cyclesIsNumber` is false for a repeat count that is neither a number
    // nor "Infinite": the dialog's loader reads it as 0, the host refuses it.
    struct Head
    {
        int cycles = 0;
        bool cyclesIsNumber = false;
        QString cyclesText;
        QString endState;
        int groups = 0;
        bool groupsIsNumber = false;
        QString groupsText;
    };

    // The first thing wrong with a head, in the order a reader meets it.
    enum class HeadProblem {
        None,
        OtherKind,    // line 1 is the head of the other kind of sequence
        NotASequence, // line 1 is no head of this kind, or of this format version
        Truncated,    // the file ends within its head
        NoCycles,     // line 2
        CyclesRange,  // line 2: not 0 to maxCycles
        NoEndState,   // line 3
        UnknownEndState,
        NoGroups, // line 4
        GroupsNotANumber,
        GroupsAboveMax,
        GroupsBelowOne,
    };
    // `strictCycles` refuses a repeat count that is not a number (CyclesRange).
    static HeadProblem readHead(
        const QList<QString> &lines, UploadMode mode, int maxCount, bool strictCycles, Head *head);
    // The 1-based line a head problem is on.
    static int lineOf(HeadProblem problem, const QList<QString> &lines);

    // The kind a file's first line names, whatever its version; false for any other line.
    static bool kindOf(const QString &firstLine, UploadMode *mode);

    // The fields of a step line, found in place (the same a split at "," gives, empty ones kept):
    // puts `count` fields from field `first` on (0-based) into `fields`. False when the line has
    // fewer than `atLeast` fields.
    static bool
    stepFields(const QString &line, int atLeast, int first, QStringRef *fields, int count);
    // The fields a step line of each kind has, its step number first.
    static int fieldCount(UploadMode mode);
};

} // namespace tarn2::specific::orvo5000::programmer
