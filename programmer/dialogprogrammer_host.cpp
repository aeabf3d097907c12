// What a host builds on besides the fixed signals: replacing sequences, the tab in front, a step's
// row, and the controls it decorates, so that no host has to know the layout's object names.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "delayermodel.h"
#include "floatdelegate.h"
#include "listdatamodel.h"
#include "rangenotice.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QStatusBar>

namespace tarn2::specific::orvo5000::programmer {

namespace {
// Long enough to read, short enough not to stand beside what the user does next.
constexpr int rangeMessageMs = 8000;
} // namespace

void DialogProgrammer::setListSequence(const QList<ListData> &steps,
                                       int cycles,
                                       const QString &endState)
{
    // The same steps as the load action after its handler has answered.
    ui->sbListCycles->setValue(cycles);
    ui->cbbListEndState->setCurrentIndex(ui->cbbListEndState->findData(endState));
    QList<ListData> copy = steps;
    listDataModel->setSourceData(copy);
    selectTvItems(
        ui->tvList,
        listDataModel->index(0, 0),
        listDataModel->index(listDataModel->rowCount() - 1, listDataModel->columnCount() - 1));
    ui->tvList->setFocus(Qt::OtherFocusReason);
    updateListGroupsWidget();
}

void DialogProgrammer::setDelayerSequence(const QList<DelayerData> &steps,
                                          int cycles,
                                          const QString &endState)
{
    ui->sbDelayerCycles->setValue(cycles);
    ui->cbbDelayerEndState->setCurrentIndex(ui->cbbDelayerEndState->findData(endState));
    QList<DelayerData> copy = steps;
    delayerDataModel->setSourceData(copy);
    selectTvItems(ui->tvDelayer,
                  delayerDataModel->index(0, 0),
                  delayerDataModel->index(delayerDataModel->rowCount() - 1,
                                          delayerDataModel->columnCount() - 1));
    ui->tvDelayer->setFocus(Qt::OtherFocusReason);
    updateDelayerGroupsWidget();
}

DialogProgrammer::UploadMode DialogProgrammer::currentMode() const
{
    return ui->tabWidget->currentIndex() == 1 ? Delayer : List;
}

void DialogProgrammer::setCurrentMode(UploadMode mode)
{
    ui->tabWidget->setCurrentIndex(mode == Delayer ? 1 : 0);
}

void DialogProgrammer::selectStep(UploadMode mode, int row)
{
    QTableView *view = sequenceView(mode);
    QAbstractItemModel *model = view->model();
    if (!model || row < 0 || row >= model->rowCount())
        return;
    const QModelIndex index = model->index(row, 0);
    view->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    view->scrollTo(index);
}

void DialogProgrammer::appendTemplate(UploadMode mode)
{
    (mode == List ? ui->btnListTemplateAppend : ui->btnDelayerTemplateAppend)->click();
}

QString DialogProgrammer::statusMessage() const
{
    return statusBar ? statusBar->currentMessage() : QString();
}

bool DialogProgrammer::statusIsError() const
{
    return statusBar && !statusBar->styleSheet().isEmpty();
}

QTableView *DialogProgrammer::sequenceView(UploadMode mode) const
{
    return mode == List ? ui->tvList : ui->tvDelayer;
}

QWidget *DialogProgrammer::control(UploadMode mode, Control control) const
{
    const bool list = mode == List;
    switch (control) {
    case Control::Tabs:
        return ui->tabWidget;
    case Control::Channel:
        return list ? ui->cbbListCH : ui->cbbDelayerCH;
    case Control::Cycles:
        return list ? ui->sbListCycles : ui->sbDelayerCycles;
    case Control::EndState:
        return list ? ui->cbbListEndState : ui->cbbDelayerEndState;
    case Control::Steps:
        return sequenceView(mode);
    case Control::StepCount:
        return list ? ui->sbListGroups : ui->sbDelayerGroups;
    case Control::TemplateSteps:
        return list ? ui->tvListTemplate : ui->tvDelayerTemplate;
    case Control::TemplateType:
        return list ? ui->cbbListTempType : ui->cbbDelayerTempType;
    case Control::TemplateObject:
        return list ? static_cast<QWidget *>(ui->cbbListTempObject)
                    : static_cast<QWidget *>(ui->cbbDelayerTempPattern);
    case Control::TemplateReset:
        return list ? ui->btnReset : nullptr;
    case Control::TemplateResetAll:
        return list ? ui->btnResetAll : nullptr;
    case Control::TemplateAppend:
        return list ? ui->btnListTemplateAppend : ui->btnDelayerTemplateAppend;
    case Control::TemplateInsert:
        return list ? ui->btnListTemplateInsert : ui->btnDelayerTemplateInsert;
    case Control::Save:
        return list ? ui->btnListSave : ui->btnDelayerSave;
    case Control::Load:
        return list ? ui->btnListLoad : ui->btnDelayerLoad;
    case Control::Upload:
        return list ? ui->btnListUpload : ui->btnDelayerUpload;
    case Control::SequenceSplitter:
        return list ? ui->splitter_3 : ui->splitter_4;
    case Control::TemplateSplitter:
        return list ? ui->splitter : ui->splitter_2;
    }
    return nullptr;
}

RangeNotice *DialogProgrammer::guardRanges()
{
    if (auto *notice = findChild<RangeNotice *>(QString(), Qt::FindDirectChildrenOnly))
        return notice;
    auto *notice = new RangeNotice(this);
    for (QAbstractSpinBox *box : findChildren<QAbstractSpinBox *>())
        notice->watch(box);
    if (auto *delegate = qobject_cast<FloatDelegate *>(ui->tvList->itemDelegate()))
        delegate->setRangeNotice(notice);
    connect(notice, &RangeNotice::refused, this, [this](const QString &message) {
        showError(message, rangeMessageMs);
    });
    return notice;
}

void DialogProgrammer::explainTemplateEditors()
{
    // By the editors' names without the number of the template page they are on.
    const QHash<QString, QString> tips{
        {QStringLiteral("sbListTempMin"), tr("The level at the bottom of the waveform")},
        {QStringLiteral("sbListTempMax"), tr("The level at the top of the waveform")},
        {QStringLiteral("sbListTempOtherValue"),
         tr("The value of the quantity the waveform does not shape, the same at every step")},
        {QStringLiteral("sbListTempPeriod"), tr("The length of one period of the waveform")},
        {QStringLiteral("sbListTempInterval"),
         tr("How long each step lasts: the waveform is sampled once per interval")},
        {QStringLiteral("sbListTempCycles"), tr("How many periods the template makes")},
        {QStringLiteral("cbListTempInverted"), tr("Turns the waveform upside down")},
        {QStringLiteral("sbListTempWidth"), tr("How long each pulse stays at the top")},
        {QStringLiteral("sbListTempPulseCount"), tr("How many pulses the template makes")},
        {QStringLiteral("sbListTempSymmetry"),
         tr("Where in the period the ramp turns, in percent: 0 only falls, 100 only rises, 50 "
            "rises and falls alike")},
        {QStringLiteral("sbListTempSteps"), tr("How many steps share the period")},
        {QStringLiteral("sbListTempExpRate"),
         tr("How fast the curve approaches its end: a higher rate bends it sooner")},
        {QStringLiteral("sbListTempExpGroups"),
         tr("How many steps the curve has, each as long as the interval")},
        {QStringLiteral("sbDelayerTemplageGroups"),
         tr("How many On and Off steps the template makes")},
        {QStringLiteral("sbDelayerTempOnTime"), tr("How long the output stays On at each On step")},
        {QStringLiteral("sbDelayerTempOffTime"),
         tr("How long the output stays Off at each Off step")},
        {QStringLiteral("sbDelayerTempIncBaseValue"), tr("How long the first step lasts")},
        {QStringLiteral("sbDelayerTempIncStep"),
         tr("How much longer each step lasts than the one before")},
        {QStringLiteral("sbDelayerTempDecBaseValue"), tr("How long the first step lasts")},
        {QStringLiteral("sbDelayerTempDecStep"),
         tr("How much shorter each step lasts than the one before; the last must stay longer "
            "than zero")},
    };
    for (QWidget *widget : findChildren<QWidget *>()) {
        QString name = widget->objectName();
        while (!name.isEmpty() && name.back().isDigit())
            name.chop(1);
        const auto tip = tips.constFind(name);
        if (tip != tips.cend() && widget->toolTip().isEmpty())
            widget->setToolTip(*tip);
    }
}

void DialogProgrammer::explainEditorsByTheirLabels()
{
    for (QWidget *widget : findChildren<QWidget *>()) {
        if (!widget->toolTip().isEmpty()
            || !(qobject_cast<QAbstractSpinBox *>(widget) || qobject_cast<QComboBox *>(widget)
                 || qobject_cast<QAbstractButton *>(widget))) {
            continue;
        }
        auto *grid = widget->parentWidget()
                         ? qobject_cast<QGridLayout *>(widget->parentWidget()->layout())
                         : nullptr;
        const int index = grid ? grid->indexOf(widget) : -1;
        if (index < 0)
            continue;
        int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
        grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
        QLayoutItem *left = column > 0 ? grid->itemAtPosition(row, column - 1) : nullptr;
        if (auto *label = left ? qobject_cast<QLabel *>(left->widget()) : nullptr)
            widget->setToolTip(label->text().remove(QLatin1Char(':')).trimmed());
    }
}

} // namespace tarn2::specific::orvo5000::programmer
