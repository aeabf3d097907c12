// The compact text in which the history keeps a sequence's steps and a trace's samples.
#pragma once

#include <runtrace.h>
#include <sequencecontent.h>

#include <QByteArray>
#include <QVector>

namespace tarn::history {

// Values are written as the shortest text that reads back as the same double, so that a
// sequence opened from the history is the one that was sent, to the last bit. One line per step
// ("V,A,s" or "1,s" for a Delayer step On) and per sample ("t,V,A,output,step,cycle").
QByteArray stepsText(const host::SequenceContent &content);
// Fills the steps of `content` for its mode; false when the text is not steps of that mode.
bool readSteps(const QByteArray &text, host::SequenceContent *content);
QByteArray samplesText(const QVector<host::RunSample> &samples);
bool readSamples(const QByteArray &text, QVector<host::RunSample> *samples);

} // namespace tarn::history
