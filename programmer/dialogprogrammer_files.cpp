// Sequence files: the CSV lines of a List or Delayer sequence, and applying a load to a tab.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "delayermodel.h"
#include "helper.h"
#include "listdatamodel.h"
#include "stepcells.h"

#include <character.h>

#include <limits>

namespace tarn2::specific::orvo5000::programmer {

using tarn2::util::character::Character;

namespace {

const QString kFormatVersion = QStringLiteral("10");
const QChar kSeparator = QLatin1Char(',');
const int kHeaderLines = 5;
const int kMaxCycles = 99999;

// End-state names in the files, by the index of the tab's end-state combo.
QString endStateName(int index)
{
    static const QString names[]
        = {QStringLiteral("Output Off"), QStringLiteral("Output On"), QStringLiteral("Last")};
    return index >= 0 && index < 3 ? names[index] : QString();
}

QList<QString> headerLines(const QString &tag, int cycles, int endStateIndex, int groups)
{
    return {tag + kSeparator + kFormatVersion,
            QStringLiteral("Cycles,")
                + (cycles == 0 ? QStringLiteral("Infinite") : QString::number(cycles)),
            QStringLiteral("End Status,") + endStateName(endStateIndex),
            QStringLiteral("Groups,") + QString::number(groups)};
}

struct FileHeader
{
    int cycles = 0;
    QString endState;
};

// Checks the four head lines of a sequence file; any failure makes the whole file unusable.
bool readHeader(const QList<QString> &lines,
                const QString &tag,
                const QStringList &endStates,
                FileHeader &header)
{
    if (lines.size() < kHeaderLines - 1)
        return false;
    const QStringList head = lines.at(0).split(kSeparator);
    if (head.size() < 2 || head.at(0) != tag || head.at(1) != kFormatVersion)
        return false;

    const QStringList cycles = lines.at(1).split(kSeparator);
    if (cycles.size() < 2 || cycles.at(0) != QLatin1String("Cycles"))
        return false;
    header.cycles = cycles.at(1) == QLatin1String("Infinite") ? 0 : cycles.at(1).toInt();
    if (header.cycles < 0 || header.cycles > kMaxCycles)
        return false;

    const QStringList endState = lines.at(2).split(kSeparator);
    if (endState.size() < 2 || endState.at(0) != QLatin1String("End Status")
        || !endStates.contains(endState.at(1))) {
        return false;
    }
    header.endState = endState.at(1);

    const QStringList groups = lines.at(3).split(kSeparator);
    if (groups.size() < 2 || groups.at(0) != QLatin1String("Groups"))
        return false;
    const int count = groups.at(1).toInt();
    return count >= 1 && count <= Helper::getInstance().option.maxCount;
}

// The fields of a step line, found in place: the same fields a split at "," gives, with empty ones
// kept, without a list of strings for every line of a long file.
class StepFields
{
public:
    explicit StepFields(const QString &line)
        : m_line(line)
    {}

    // Puts `count` fields from field `first` on (0-based) into `fields`; false when the line has
    // fewer than `atLeast` fields.
    bool read(int atLeast, int first, QStringRef *fields, int count)
    {
        int begin = 0;
        int field = 0;
        while (field < atLeast) {
            const int comma = m_line.indexOf(kSeparator, begin);
            const int end = comma < 0 ? m_line.size() : comma;
            if (field >= first && field < first + count)
                fields[field - first] = m_line.midRef(begin, end - begin);
            ++field;
            if (comma < 0)
                break;
            begin = comma + 1;
        }
        return field >= atLeast;
    }

private:
    const QString &m_line;
};

// The step lines that are read: at most maxCount of them, the rest is cut without a message.
int maxCount()
{
    return Helper::getInstance().option.maxCount;
}

// The lines a load can use, and no more: the head and at most maxCount step lines.
QList<QString> loadLines(const QString &path)
{
    const int count = qMax(0, maxCount());
    const int lines = count > std::numeric_limits<int>::max() - kHeaderLines
                          ? std::numeric_limits<int>::max()
                          : kHeaderLines + count;
    return Character::csvLoad(path, lines, DialogProgrammer::sequenceFileBound(count));
}

int stepLineCount(const QList<QString> &lines)
{
    return qMax(0, qMin(lines.size() - kHeaderLines, Helper::getInstance().option.maxCount));
}

} // namespace

bool DialogProgrammer::listSaveData(const QString &path, const QList<ListData> &datas)
{
    const Option &option = Helper::getInstance().option;
    QList<QString> lines = headerLines(QStringLiteral("LIST"),
                                       ui->sbListCycles->value(),
                                       ui->cbbListEndState->currentIndex(),
                                       datas.size());
    lines.reserve(datas.size() + kHeaderLines);
    lines.append(QStringLiteral("No.,Voltage(V),Current(A),Time(s)"));
    for (int i = 0; i < datas.size(); ++i) {
        const ListData &step = datas.at(i);
        lines.append(QStringLiteral("%1,%2,%3,%4")
                         .arg(QString::number(i),
                              stepcells::number(step.voltage, option.voltageDecimals),
                              stepcells::number(step.current, option.currentDecimals),
                              stepcells::number(step.time, option.timeDecimals)));
    }
    return Character::csvSave(path, lines);
}

bool DialogProgrammer::delayerSaveData(const QString &path, const QList<DelayerData> &datas)
{
    const Option &option = Helper::getInstance().option;
    QList<QString> lines = headerLines(QStringLiteral("DELAYER"),
                                       ui->sbDelayerCycles->value(),
                                       ui->cbbDelayerEndState->currentIndex(),
                                       datas.size());
    lines.reserve(datas.size() + kHeaderLines);
    lines.append(QStringLiteral("No.,State,Time(s)"));
    for (int i = 0; i < datas.size(); ++i) {
        const DelayerData &step = datas.at(i);
        lines.append(QStringLiteral("%1,%2,%3")
                         .arg(QString::number(i),
                              step.state ? QStringLiteral("On") : QStringLiteral("Off"),
                              stepcells::number(step.time, option.timeDecimals)));
    }
    return Character::csvSave(path, lines);
}

qint64 DialogProgrammer::sequenceFileBound(int maxCount)
{
    return (qint64{1} << 20) + static_cast<qint64>(qMax(0, maxCount)) * 256;
}

QList<ListData> DialogProgrammer::listLoadData(const QString &path)
{
    const QList<QString> lines = loadLines(path);
    FileHeader header;
    // A list file never ends with the output on: this format version refuses it.
    if (!readHeader(lines,
                    QStringLiteral("LIST"),
                    {QStringLiteral("Output Off"), QStringLiteral("Last")},
                    header)) {
        return {};
    }

    QList<ListData> steps;
    const int count = stepLineCount(lines);
    steps.reserve(count);
    QStringRef fields[3];
    for (int i = 0; i < count; ++i) {
        if (!StepFields(lines.at(kHeaderLines + i)).read(4, 1, fields, 3))
            continue;
        steps.append(ListData(fields[0].toDouble(), fields[1].toDouble(), fields[2].toDouble()));
    }

    ui->sbListCycles->setValue(header.cycles);
    ui->cbbListEndState->setCurrentText(header.endState);
    return steps;
}

QList<DelayerData> DialogProgrammer::delayerLoadData(const QString &path)
{
    const QList<QString> lines = loadLines(path);
    FileHeader header;
    if (!readHeader(
            lines,
            QStringLiteral("DELAYER"),
            {QStringLiteral("Output Off"), QStringLiteral("Output On"), QStringLiteral("Last")},
            header)) {
        return {};
    }

    QList<DelayerData> steps;
    const int count = stepLineCount(lines);
    steps.reserve(count);
    QStringRef fields[2];
    for (int i = 0; i < count; ++i) {
        if (!StepFields(lines.at(kHeaderLines + i)).read(3, 1, fields, 2))
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

    // What the handler left in param wins over what the loader put into the widgets.
    ui->sbListCycles->setValue(param.cycles);
    ui->cbbListEndState->setCurrentIndex(ui->cbbListEndState->findData(param.endState));
    // Unconditional: a handler that leaves datas empty empties the sequence.
    listDataModel->setSourceData(datas);
    selectTvItems(
        ui->tvList,
        listDataModel->index(0, 0),
        listDataModel->index(listDataModel->rowCount() - 1, listDataModel->columnCount() - 1));
    ui->tvList->setFocus(Qt::OtherFocusReason);
    updateListGroupsWidget();
}

void DialogProgrammer::on_actionLoadDelayer_triggered()
{
    UploadParam param = getUploadParamFromUI(UploadMode::Delayer);
    QList<DelayerData> datas;
    emit delayerLoadFromCSV(datas, param);

    ui->sbDelayerCycles->setValue(param.cycles);
    ui->cbbDelayerEndState->setCurrentIndex(ui->cbbDelayerEndState->findData(param.endState));
    delayerDataModel->setSourceData(datas);
    selectTvItems(ui->tvDelayer,
                  delayerDataModel->index(0, 0),
                  delayerDataModel->index(delayerDataModel->rowCount() - 1,
                                          delayerDataModel->columnCount() - 1));
    ui->tvDelayer->setFocus(Qt::OtherFocusReason);
    updateDelayerGroupsWidget();
}

} // namespace tarn2::specific::orvo5000::programmer
