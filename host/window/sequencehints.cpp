// What the tables tell without being asked: tool tips, each sequence's total duration, and the
// step counter's warning when a sequence is longer than the instrument holds.
#include "sequencehints.h"

#include "sequencefiles.h"

#include <dialogprogrammer.h>
#include <helper.h>

#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
const UploadMode modes[] = {UploadMode::List, UploadMode::Delayer};
} // namespace

SequenceHints::SequenceHints(DialogProgrammer *dialog, SequenceFiles *files, QObject *parent)
    : QObject(parent)
    , m_dialog(dialog)
    , m_files(files)
{
    addDurationLabels();
    addToolTips();
    refresh(UploadMode::List);
    refresh(UploadMode::Delayer);
}

SequenceHints::~SequenceHints() = default;

void SequenceHints::addDurationLabels()
{
    for (UploadMode mode : modes) {
        QWidget *counter = m_dialog->control(mode, DialogProgrammer::Control::StepCount);
        auto *label = new QLabel(counter->parentWidget());
        label->setObjectName(mode == UploadMode::List ? QStringLiteral("listDuration")
                                                      : QStringLiteral("delayerDuration"));
        // Under the counter, across the whole row: translated totals run longer than the
        // counter's own columns are wide. It does not wrap: a label that wraps asks for its
        // height by its width, and so makes the whole dialog as tall as it likes to be, which
        // would scroll it beside the run view.
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setToolTip(tr("How long the sequence runs on the instrument, repeats included"));
        if (auto *grid = qobject_cast<QGridLayout *>(counter->parentWidget()->layout())) {
            int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
            grid->getItemPosition(grid->indexOf(counter), &row, &column, &rowSpan, &columnSpan);
            grid->addWidget(label, row + 1, 0, 1, grid->columnCount());
        }
        (mode == UploadMode::List ? m_listDuration : m_delayerDuration) = label;
    }
}

void SequenceHints::addToolTips()
{
    using Control = DialogProgrammer::Control;
    struct Tip
    {
        UploadMode mode;
        Control control;
        QString text;
    };
    const UploadMode list = UploadMode::List;
    const UploadMode delayer = UploadMode::Delayer;
    const Tip tips[] = {
        {list, Control::Channel, tr("The channel the List sequence is uploaded to")},
        {delayer, Control::Channel, tr("The channel the Delayer sequence is uploaded to")},
        {list,
         Control::Cycles,
         tr("How often the instrument runs the sequence; Infinite repeats it until stopped")},
        {delayer,
         Control::Cycles,
         tr("How often the instrument runs the sequence; Infinite repeats it until stopped")},
        {list, Control::EndState, tr("The output's state after the last step")},
        {delayer, Control::EndState, tr("The output's state after the last step")},
        {list,
         Control::Steps,
         tr("The List sequence: double-click a cell to edit it; right-click to add or remove "
            "steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows")},
        {delayer,
         Control::Steps,
         tr("The Delayer sequence: double-click a cell to edit it; right-click to add or remove "
            "steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows")},
        {list, Control::TemplateSteps, tr("The steps the template makes")},
        {delayer, Control::TemplateSteps, tr("The steps the template makes")},
        {list, Control::TemplateType, tr("The waveform the template makes")},
        {list, Control::TemplateObject, tr("Whether the waveform shapes voltage or current")},
        {delayer, Control::TemplateType, tr("How the step times develop")},
        {delayer, Control::TemplateObject, tr("Whether the pattern starts On or Off")},
        {list, Control::TemplateReset, tr("Put this template back to its defaults")},
        {list, Control::TemplateResetAll, tr("Put every List template back to its defaults")},
        {list, Control::TemplateAppend, tr("Add the template's steps after the last step")},
        {list, Control::TemplateInsert, tr("Add the template's steps before the selected step")},
        {delayer, Control::TemplateAppend, tr("Add the template's steps after the last step")},
        {delayer, Control::TemplateInsert, tr("Add the template's steps before the selected step")},
        {list, Control::Save, tr("Save the List sequence to a CSV file (Ctrl+S)")},
        {delayer, Control::Save, tr("Save the Delayer sequence to a CSV file (Ctrl+S)")},
        {list, Control::Load, tr("Load a List sequence from a CSV file (Ctrl+O)")},
        {delayer, Control::Load, tr("Load a Delayer sequence from a CSV file (Ctrl+O)")},
        {list, Control::Upload, tr("Check the List sequence and send it to the instrument")},
        {delayer, Control::Upload, tr("Check the Delayer sequence and send it to the instrument")},
    };
    for (const Tip &tip : tips) {
        if (QWidget *widget = m_dialog->control(tip.mode, tip.control);
            widget && widget->toolTip().isEmpty()) {
            widget->setToolTip(tip.text);
        }
    }
    // What each template editor does; its range and unit come with the tool tip as it shows.
    m_dialog->explainTemplateEditors();
    m_dialog->guardRanges();
}

QString SequenceHints::durationText(UploadMode mode) const
{
    double total = 0.0;
    if (mode == UploadMode::List) {
        for (const ListData &step : m_dialog->listSequence())
            total += step.time;
    } else {
        for (const DelayerData &step : m_dialog->delayerSequence())
            total += step.time;
    }
    const int decimals = Helper::getInstance().option.timeDecimals;
    const int cycles = m_dialog->getUploadParamFromUI(mode).cycles;
    const QString once = QString::number(total, 'f', decimals);
    if (cycles == 0)
        return tr("Total %1 s, repeated endlessly").arg(once);
    if (cycles == 1)
        return tr("Total %1 s").arg(once);
    return tr("Total %1 s × %2 = %3 s")
        .arg(once)
        .arg(cycles)
        .arg(QString::number(total * cycles, 'f', decimals));
}

void SequenceHints::refresh(UploadMode mode)
{
    if (!m_dialog)
        return;
    QLabel *label = mode == UploadMode::List ? m_listDuration : m_delayerDuration;
    if (label)
        label->setText(durationText(mode));
    auto *counter
        = qobject_cast<QSpinBox *>(m_dialog->control(mode, DialogProgrammer::Control::StepCount));
    const int count = counter->value();
    const int most = m_files->maxCount();
    counter->setToolTip(count > most ? tr("Red: %1 steps are more than the %2 this instrument "
                                          "holds. An upload sends only the first %2, after "
                                          "asking, and a file of this sequence would not load "
                                          "back.")
                                           .arg(count)
                                           .arg(most)
                                     : tr("Steps in the sequence; red above the %1 this "
                                          "instrument holds")
                                           .arg(most));
}

} // namespace tarn::host
