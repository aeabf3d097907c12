// What a host builds on besides the fixed signals: replacing sequences, the tab in front, a step's
// row, and the controls it decorates, so that no host has to know the layout's object names.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "delayermodel.h"
#include "listdatamodel.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QStatusBar>

namespace tarn2::specific::orvo5000::programmer {

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
