// The Delayer tab: On/Off timing templates, their preview, and splicing it into the sequence.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "comboboxdelegate.h"
#include "delayermodel.h"
#include "delayertemplatemodel.h"
#include "helper.h"
#include "plotcolors.h"
#include "plotvalues.h"
#include "sequencebuilder.h"
#include "stepcurve.h"

#include <qcustomplot.h>

#include <cmath>
#include <limits>

namespace tarn2::specific::orvo5000::programmer {

void DialogProgrammer::initDelayerWidgets()
{
    blockChildrenSignals(ui->tabDelayer, true);
    const Option &option = Helper::getInstance().option;

    ui->btnDelayerSave->setEnabled(option.saveEnabled);
    ui->btnDelayerLoad->setEnabled(option.loadEnabled);
    ui->btnDelayerUpload->setEnabled(option.uploadEnabled);

    for (QDoubleSpinBox *box : {ui->sbDelayerTempOnTime,
                                ui->sbDelayerTempOffTime,
                                ui->sbDelayerTempIncBaseValue,
                                ui->sbDelayerTempIncStep,
                                ui->sbDelayerTempDecBaseValue,
                                ui->sbDelayerTempDecStep}) {
        box->setDecimals(option.timeDecimals);
    }

    ui->cbbDelayerCH->clear();
    for (const Channel &channel : option.channels)
        ui->cbbDelayerCH->addItem(channel.name);
    ui->cbbDelayerCH->setCurrentIndex(0);

    QCustomPlot *plot = ui->plotDelayer;
    prepareStepPlot(plot, {false, false, false, false});
    plot->xAxis->setRange(0, 100);
    plot->yAxis->setRange(0, 1);
    delayerCurve = new StepCurve(plot->xAxis, plot->yAxis);
    delayerCurve->setPen(QPen(voltageColor()));

    delayerTemplateModel = new DelayerTemplateModel(delayerTemplateData, ui->tvDelayerTemplate);
    showStepTable(ui->tvDelayerTemplate, delayerTemplateModel);

    delayerDataModel = new DelayerModel(delayerData, ui->tvDelayer);
    trackPlotChanges(delayerDataModel, delayerPlotDirtyFrom);
    connect(delayerDataModel,
            &QAbstractItemModel::dataChanged,
            this,
            &DialogProgrammer::updateDelayerGroupsWidget);
    ui->tvDelayer->setItemDelegate(new ComboBoxDelegate(ui->tvDelayer));
    showStepTable(ui->tvDelayer, delayerDataModel);
    ui->tvDelayer->installEventFilter(this);

    plot = ui->plotDelayerTemplate;
    prepareStepPlot(plot, {false, false, false, true});
    plot->xAxis->setRange(0, 100);
    plot->yAxis->setRange(0, 1);
    delayerTemplateCurve = new StepCurve(plot->xAxis, plot->yAxis);

    ui->btnDelayerTemplateAppend->setIcon(QIcon(QStringLiteral(":images/append3.png")));
    ui->btnDelayerTemplateInsert->setIcon(QIcon(QStringLiteral(":images/insert32.png")));

    ui->cbbDelayerEndState->clear();
    ui->cbbDelayerEndState->addItem(tr("Output Off"), QStringLiteral("OFF"));
    ui->cbbDelayerEndState->addItem(tr("Output On"), QStringLiteral("ON"));
    ui->cbbDelayerEndState->addItem(tr("Last"), QStringLiteral("LAST"));
    ui->cbbDelayerEndState->setCurrentIndex(0);

    ui->sbDelayerCycles->setSpecialValueText(tr("Infinite"));
    ui->sbDelayerGroups->setReadOnly(true);
    ui->sbDelayerGroups->setButtonSymbols(QAbstractSpinBox::NoButtons);

    ui->cbbDelayerTempPattern->clear();
    ui->cbbDelayerTempPattern->addItem(tr("01 Pattern"), 1);
    ui->cbbDelayerTempPattern->addItem(tr("10 Pattern"), 10);

    ui->toolbarDelayerData->hide();
    ui->btnDelayerSave->setIcon(ui->actionSaveDelayer->icon());
    ui->btnDelayerLoad->setIcon(ui->actionLoadDelayer->icon());
    ui->btnDelayerUpload->setIcon(ui->actionDelayerUpload->icon());
    connect(ui->btnDelayerSave, &QPushButton::clicked, this, [this] {
        const UploadParam param = getUploadParamFromUI(UploadMode::Delayer);
        emit delayerSaveToCSV(delayerData, param);
    });
    connect(ui->btnDelayerLoad, &QPushButton::clicked, this, [this] {
        on_actionLoadDelayer_triggered();
    });
    connect(ui->btnDelayerUpload, &QPushButton::clicked, this, [this] {
        uploaderStart(UploadMode::Delayer);
    });

    blockChildrenSignals(ui->tabDelayer, false);
}

DelayerTemplateParam &DialogProgrammer::activeDelayerTemplate()
{
    const int index = ui->cbbDelayerTempType->currentIndex();
    return delayerTemplateParams[index >= 0 && index < delayerTemplateParams.size() ? index : 0];
}

void DialogProgrammer::on_cbbDelayerTempType_currentIndexChanged(int index)
{
    if (index < 0 || index >= delayerTemplateParams.size())
        return;
    DelayerTemplateParam &param = delayerTemplateParams[index];
    param.type = static_cast<DelayerTemplateType>(index);
    update_ui_from_delayer_tempparam(param);
    make_delayer_data(param);
}

void DialogProgrammer::on_cbbDelayerTempPattern_currentIndexChanged(int)
{
    DelayerTemplateParam &param = activeDelayerTemplate();
    param.pattern = ui->cbbDelayerTempPattern->currentData().toInt();
    param.type = static_cast<DelayerTemplateType>(ui->cbbDelayerTempType->currentIndex());
    update_ui_from_delayer_tempparam(param);
    make_delayer_data(param);
}

void DialogProgrammer::delaySpinBoxEditingFinished()
{
    DelayerTemplateParam &param = activeDelayerTemplate();
    update_delayer_tempparam_from_ui(&param);
    make_delayer_data(param);
}

void DialogProgrammer::update_ui_from_delayer_tempparam(const DelayerTemplateParam &p)
{
    blockChildrenSignals(ui->tabDelayer, true);
    ui->cbbDelayerTempType->setCurrentIndex(p.type);
    ui->cbbDelayerTempPattern->setCurrentIndex(ui->cbbDelayerTempPattern->findData(p.pattern));
    ui->sbDelayerTemplageGroups->setValue(p.groups);
    ui->sbDelayerTempOnTime->setValue(p.onTime);
    // The Off Delay editor shows the On time after every refresh; the next edit stores it as the
    // Off time unless the user changes it. Long-standing behaviour that users know.
    ui->sbDelayerTempOffTime->setValue(p.onTime);
    ui->sbDelayerTempIncBaseValue->setValue(p.incBaseValue);
    ui->sbDelayerTempIncStep->setValue(p.incStep);
    ui->sbDelayerTempDecBaseValue->setValue(p.decBaseValue);
    ui->sbDelayerTempDecStep->setValue(p.decStep);
    ui->stacWgt->setCurrentIndex(p.type);
    blockChildrenSignals(ui->tabDelayer, false);
}

void DialogProgrammer::update_delayer_tempparam_from_ui(DelayerTemplateParam *p)
{
    p->type = static_cast<DelayerTemplateType>(ui->cbbDelayerTempType->currentIndex());
    p->pattern = ui->cbbDelayerTempPattern->currentData().toInt();
    p->groups = ui->sbDelayerTemplageGroups->value();
    p->onTime = ui->sbDelayerTempOnTime->value();
    p->offTime = ui->sbDelayerTempOffTime->value();
    p->incBaseValue = ui->sbDelayerTempIncBaseValue->value();
    p->incStep = ui->sbDelayerTempIncStep->value();
    p->decBaseValue = ui->sbDelayerTempDecBaseValue->value();
    p->decStep = ui->sbDelayerTempDecStep->value();
}

void DialogProgrammer::make_delayer_data(const DelayerTemplateParam &p)
{
    const qint64 count = delayer_wave_step_count(p);
    if (count > kMaxTemplateSteps) {
        delayerTemplateData.clear();
        showTemplateRefused(count);
    } else {
        delayerTemplateData = make_delayer_wave(p);
    }
    delayerTemplateModel->setSourceData(delayerTemplateData);

    QVector<double> x;
    QVector<double> y;
    if (delayerTemplateData.isEmpty()) {
        delayerInvalidText->position->setCoords(0.5, 0.5);
        delayerInvalidText->setVisible(true);
        x = {0.0, 1.0};
        y = {1.0, 1.0};
    } else {
        delayerInvalidText->setVisible(false);
        make_delayer_plot_data(delayerTemplateData, x, y);
    }
    update_delayer_plot(p, x, y);
}

void DialogProgrammer::make_delayer_plot_data(const QList<DelayerData> &list,
                                              QVector<double> &x,
                                              QVector<double> &y)
{
    // The points of make_plot_values() over (1 or 0, time × 10^timeDecimals) steps, read straight
    // from the list.
    const double scale = std::pow(10.0, Helper::getInstance().option.timeDecimals);
    make_step_plot_values(
        list.size(),
        [&list, scale](int i, double &level, double &duration) {
            const DelayerData &step = list.at(i);
            level = step.state ? 1.0 : 0.0;
            duration = step.time * scale;
        },
        x,
        y);
}

void DialogProgrammer::update_delayer_plot(const DelayerTemplateParam &,
                                           QVector<double> &x,
                                           QVector<double> &y)
{
    QCustomPlot *plot = ui->plotDelayerTemplate;
    static_cast<StepCurve *>(delayerTemplateCurve)->setPoints(x, y);
    // The title reads the List tab's template name; kept so, as users have always seen it.
    if (auto *title = qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0)))
        title->setText(ui->cbbListTempType->currentText());
    plot->yAxis->setLabel(tr("State"));
    plot->xAxis->rescale(false);
    plot->yAxis->setRange(0, 1);
    plot->xAxis->scaleRange(1.01);
    plot->yAxis->scaleRange(1.01);
    plot->replot(QCustomPlot::rpRefreshHint);
}

void DialogProgrammer::updateDelayerGroupsWidget()
{
    const int count = delayerData.size();
    ui->sbDelayerGroups->setValue(count);
    ui->sbDelayerGroups->setStyleSheet(Helper::getInstance().option.maxCount < count
                                           ? QStringLiteral("background-color:#ff0000")
                                           : QString());

    // The points of make_delayer_plot_data(), recomputed from the first step that changed since
    // the last refresh.
    const double scale = std::pow(10.0, Helper::getInstance().option.timeDecimals);
    const int from = scale == delayerPlotScale ? delayerPlotDirtyFrom : 0;
    delayerPlotDirtyFrom = std::numeric_limits<int>::max();
    delayerPlotScale = scale;
    auto *curve = static_cast<StepCurve *>(delayerCurve);
    curve->setSteps(count, from, [this, scale](int i, double &level, double &duration) {
        const DelayerData &step = delayerData.at(i);
        level = step.state ? 1.0 : 0.0;
        duration = step.time * scale;
    });

    QCustomPlot *plot = ui->plotDelayer;
    // The plot ignores a range of no width and would go on showing the scale of the steps that
    // were there before, so an empty sequence, or one of zero-length steps, gets a unit range.
    const double end = curve->data()->isEmpty() ? 0.0 : (curve->data()->constEnd() - 1)->key;
    plot->xAxis->setRange(0, end > 0 ? end : 1.0);
    plot->xAxis->scaleRange(1.01);
    plot->yAxis->setRange(0, 1);
    plot->yAxis->scaleRange(1.03);
    plot->replot(QCustomPlot::rpRefreshHint);
}

void DialogProgrammer::update_delayer_data_model(const QList<DelayerData> &) {}

void DialogProgrammer::on_btnDelayerTemplateAppend_clicked()
{
    if (delayerTemplateData.isEmpty())
        return;
    const int first = delayerData.size();
    delayerDataModel->appendRows(delayerTemplateData);
    selectTvItems(
        ui->tvDelayer,
        delayerDataModel->index(first, 0),
        delayerDataModel->index(delayerData.size() - 1, delayerDataModel->columnCount() - 1));
    updateDelayerGroupsWidget();
}

void DialogProgrammer::on_btnDelayerTemplateInsert_clicked()
{
    if (delayerTemplateData.isEmpty())
        return;
    const QModelIndex current = ui->tvDelayer->currentIndex();
    if (!current.isValid()) {
        on_btnDelayerTemplateAppend_clicked();
        updateDelayerGroupsWidget();
        return;
    }
    const int row = current.row();
    const int count = delayerTemplateData.size();
    delayerDataModel->insertRows(row, delayerTemplateData);
    selectTvItems(ui->tvDelayer,
                  delayerDataModel->index(row, 0),
                  delayerDataModel->index(row + count - 1, delayerDataModel->columnCount() - 1));
    updateDelayerGroupsWidget();
}

} // namespace tarn2::specific::orvo5000::programmer
