// One upload or run as the history keeps it, and what a search of the history asks for.
#pragma once

#include <runtrace.h>
#include <sequencecontent.h>

#include <QDateTime>
#include <QString>
#include <QVector>

namespace tarn::history {

// A HistoryRecord is self-contained: an upload carries the steps as they were sent, a run the
// steps it played, so that either can be opened, compared or exported on its own, wherever it
// was sent. `steps` of the sequence and `samples` are filled only when asked for; `stepCount`
// and `sampleCount` always are.
struct HistoryRecord
{
    enum class Kind { Upload, Run };

    qint64 id = 0;
    QString uid; // the same on every database the record reaches
    Kind kind = Kind::Upload;
    QString station;
    QDateTime started; // UTC
    QDateTime ended;   // invalid while a run is being recorded
    QString identity;
    QString address;
    QString dialect;
    int channel = 0; // from 1
    QString channelName;
    host::SequenceContent sequence;
    int stepCount = 0;
    // An upload: verified, refused, mismatch, timed-out, link-lost, not-connected, bad-request,
    // unreadable or cancelled. A run: running, ended, failed or cut-off.
    QString outcome;
    QString message;
    int failedStep = 0; // from 1: the step refused or differing; 0 for none
    QString uploadUid;  // a run: the upload that put its sequence on the instrument
    int sampleCount = 0;
    QVector<host::RunSample> samples;

    // "U12" or "R7", as the command line and the panel name a record.
    QString name() const;
    QString kindName() const
    {
        return kind == Kind::Run ? QStringLiteral("run") : QStringLiteral("upload");
    }
};

// A search: every field left empty or 0 matches every record.
struct HistoryFilter
{
    QString instrument; // part of the identity or the address
    int channel = 0;
    QString outcome;
    QString kind;     // "run", "upload" or empty
    QDateTime since;  // started at or after
    QDateTime before; // started before
    QString text;     // part of the message, identity, address, station or channel name
    int limit = 100;
};

} // namespace tarn::history
