// Sequence files: the CSV lines of a List or Delayer sequence, and applying a load to a tab.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "delayermodel.h"
#include "helper.h"
#include "listdatamodel.h"
#include "sequencefile.h"

#include <character.h>

namespace tarn2::specific::orvo5000::programmer {

using tarn2::util::character::Character;

namespace {

int maxCount()
{
    return Helper::getInstance().option.maxCount;
}

// The head of a file this tab can load; false for any file it drops without a word.
bool readHeader(const QList<QString> &lines, UploadMode mode, SequenceFile::Head &head)
{
    if (SequenceFile::readHead(lines, mode, maxCount(), false, &head)
        != SequenceFile::HeadProblem::None) {
        return false;
    }
    // A list file never ends with the output on: this format version refuses it.
    return mode == Delayer || head.endState != SequenceFile::endStateName(1);
}

// The step lines that are read: at most maxCount of them, the rest is cut without a message.
int stepLineCount(const QList<QString> &lines)
{
    return qMax(0, qMin(lines.size() - SequenceFile::headLines, maxCount()));
}

} // namespace

bool DialogProgrammer::listSaveData(const QString &path, const QList<ListData> &datas)
{
    return Character::csvSave(path,
                              SequenceFile::listLines(datas,
                                                      ui->sbListCycles->value(),
                                                      ui->cbbListEndState->currentIndex(),
                                                      Helper::getInstance().option));
}

bool DialogProgrammer::delayerSaveData(const QString &path, const QList<DelayerData> &datas)
{
    return Character::csvSave(path,
                              SequenceFile::delayerLines(datas,
                                                         ui->sbDelayerCycles->value(),
                                                         ui->cbbDelayerEndState->currentIndex(),
                                                         Helper::getInstance().option));
}

qint64 DialogProgrammer::sequenceFileBound(int maxCount)
{
    return SequenceFile::sizeBound(maxCount);
}

QList<ListData> DialogProgrammer::listLoadData(const QString &path)
{
    const QList<QString> lines = SequenceFile::readLines(path, maxCount());
    SequenceFile::Head header;
    if (!readHeader(lines, List, header))
        return {};

    QList<ListData> steps;
    const int count = stepLineCount(lines);
    steps.reserve(count);
    QStringRef fields[3];
    for (int i = 0; i < count; ++i) {
        if (!SequenceFile::stepFields(lines.at(SequenceFile::headLines + i), 4, 1, fields, 3))
            continue;
        steps.append(ListData(fields[0].toDouble(), fields[1].toDouble(), fields[2].toDouble()));
    }

    ui->sbListCycles->setValue(header.cycles);
    ui->cbbListEndState->setCurrentText(header.endState);
    return steps;
}

QList<DelayerData> DialogProgrammer::delayerLoadData(const QString &path)
{
    const QList<QString> lines = SequenceFile::readLines(path, maxCount());
    SequenceFile::Head header;
    if (!readHeader(lines, Delayer, header))
        return {};

    QList<DelayerData> steps;
    const int count = stepLineCount(lines);
    steps.reserve(count);
    QStringRef fields[2];
    for (int i = 0; i < count; ++i) {
        if (!SequenceFile::stepFields(lines.at(SequenceFile::headLines + i), 3, 1, fields, 2))
            continue;
        steps.append(DelayerData(fields[0] == QLatin1String("On"), fields[1].toDouble()));
    }

    ui->sbDelayerCycles->setValue(header.cycles);
    ui->cbbDelayerEndState->setCurrentText(header.endState);
    return steps;
}

const QList<ListData> &DialogProgrammer::listSequence() const
{
    return listData;
}

const QList<DelayerData> &DialogProgrammer::delayerSequence() const
{
    return delayerData;
}

void DialogProgrammer::on_actionSaveList_triggered()
{
    const UploadParam param = getUploadParamFromUI(UploadMode::List);
    emit listSaveToCSV(listData, param);
}

void DialogProgrammer::on_actionSaveDelayer_triggered()
{
    const UploadParam param = getUploadParamFromUI(UploadMode::Delayer);
    emit delayerSaveToCSV(delayerData, param);
}

void DialogProgrammer::on_actionloadList_triggered()
{
    UploadParam param = getUploadParamFromUI(UploadMode::List);
    QList<ListData> datas;
    emit listLoadFromCSV(datas, param);

    // What the handler left in param wins over what the loader put into the widgets, and the
    // steps replace the sequence unconditionally: a handler that leaves datas empty empties it.
    setListSequence(datas, param.cycles, param.endState);
}

void DialogProgrammer::on_actionLoadDelayer_triggered()
{
    UploadParam param = getUploadParamFromUI(UploadMode::Delayer);
    QList<DelayerData> datas;
    emit delayerLoadFromCSV(datas, param);

    setDelayerSequence(datas, param.cycles, param.endState);
}

} // namespace tarn2::specific::orvo5000::programmer
