// The List tab: waveform templates, their preview, and splicing the preview into the sequence.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "floatdelegate.h"
#include "helper.h"
#include "listdatamodel.h"
#include "listtemplatemodel.h"
#include "plotcolors.h"
#include "plotvalues.h"
#include "sequencebuilder.h"
#include "stepcurve.h"

#include <qcustomplot.h>

#include <cmath>
#include <limits>

namespace tarn2::specific::orvo5000::programmer {

namespace {

struct TypeEntry
{
    const char *name;
    const char *icon;
};

// The combo's names and icons, in ListTemplateType order.
constexpr TypeEntry kListTypes[] = {
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Sine"), ":images/sine2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Pulse"), ":images/pulse2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Ramp"), ":images/ramp2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Stair Up"), ":images/stairup2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Stair Down"), ":images/stairdown2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Stair Up Down"), ":images/stairupdown2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Exponent Rise"), ":images/exprise2.png"},
    {QT_TRANSLATE_NOOP("DialogProgrammer", "Exponent Fall"), ":images/expfall2.png"},
};

template<typename Widget> Widget *pageEditor(QWidget *page, const char *baseName, int type)
{
    return page->findChild<Widget *>(QString::fromLatin1(baseName).arg(type));
}

} // namespace

void DialogProgrammer::initListWidgets()
{
    blockChildrenSignals(ui->tabList, true);
    const Option &option = Helper::getInstance().option;

    ui->btnListSave->setEnabled(option.saveEnabled);
    ui->btnDelayerSave->setEnabled(option.saveEnabled);
    ui->btnListLoad->setEnabled(option.loadEnabled);
    ui->btnDelayerLoad->setEnabled(option.loadEnabled);
    ui->btnListUpload->setEnabled(option.uploadEnabled);
    ui->btnDelayerUpload->setEnabled(option.uploadEnabled);

    for (QDoubleSpinBox *box : {ui->sbListTempPeriod0,
                                ui->sbListTempPeriod1,
                                ui->sbListTempPeriod2,
                                ui->sbListTempPeriod3,
                                ui->sbListTempPeriod4,
                                ui->sbListTempPeriod5,
                                ui->sbListTempInterval0,
                                ui->sbListTempInterval2,
                                ui->sbListTempInterval6,
                                ui->sbListTempInterval7,
                                ui->sbListTempWidth1}) {
        box->setDecimals(option.timeDecimals);
    }

    ui->cbbListCH->clear();
    for (const Channel &channel : option.channels)
        ui->cbbListCH->addItem(channel.name);
    ui->cbbListCH->setCurrentIndex(0);

    QCustomPlot *plot = ui->plotList;
    prepareStepPlot(plot, {true, true, true, false});
    plot->xAxis->setRange(0, 100);
    plot->yAxis->setLabel(tr("Voltage(V)"));
    plot->yAxis->setRange(0, 35);
    plot->yAxis2->setLabel(tr("Current(A)"));
    listVoltageCurve = new StepCurve(plot->xAxis, plot->yAxis);
    listVoltageCurve->setName(tr("Voltage"));
    listVoltageCurve->setPen(QPen(voltageColor()));
    listCurrentCurve = new StepCurve(plot->xAxis, plot->yAxis2);
    listCurrentCurve->setName(tr("Current"));
    listCurrentCurve->setPen(QPen(currentColor()));

    listTemplateModel = new ListTemplateModel(listTemplateData, ui->tvListTemplate);
    showStepTable(ui->tvListTemplate, listTemplateModel);

    listDataModel = new ListDataModel(listData, ui->tvList);
    trackPlotChanges(listDataModel, listPlotDirtyFrom);
    connect(listDataModel,
            &QAbstractItemModel::dataChanged,
            this,
            &DialogProgrammer::updateListGroupsWidget);
    ui->tvList->setItemDelegate(new FloatDelegate(ui->tvList));
    showStepTable(ui->tvList, listDataModel);
    ui->tvList->installEventFilter(this);

    plot = ui->plotListTemplate;
    prepareStepPlot(plot, {false, true, false, true});
    plot->xAxis->setRange(0, 100);
    plot->yAxis->setRange(0, 35);
    listTemplateCurve = new StepCurve(plot->xAxis, plot->yAxis);

    ui->cbbListTempType->clear();
    for (const TypeEntry &entry : kListTypes)
        ui->cbbListTempType->addItem(QIcon(QString::fromLatin1(entry.icon)),
                                     QCoreApplication::translate("DialogProgrammer", entry.name));

    ui->btnListTemplateAppend->setIcon(QIcon(QStringLiteral(":images/append3.png")));
    ui->btnListTemplateInsert->setIcon(QIcon(QStringLiteral(":images/insert32.png")));

    ui->cbbListEndState->clear();
    ui->cbbListEndState->addItem(tr("Output Off"), QStringLiteral("OFF"));
    ui->cbbListEndState->addItem(tr("Output On"), QStringLiteral("ON"));
    ui->cbbListEndState->setCurrentIndex(0);

    ui->sbListCycles->setSpecialValueText(tr("Infinite"));
    ui->sbListGroups->setReadOnly(true);
    ui->sbListGroups->setButtonSymbols(QAbstractSpinBox::NoButtons);
    ui->toolbarListData->hide();

    ui->btnListSave->setIcon(ui->actionSaveList->icon());
    ui->btnListLoad->setIcon(ui->actionloadList->icon());
    ui->btnListUpload->setIcon(ui->actionListUpload->icon());
    connect(ui->btnListSave, &QPushButton::clicked, this, [this] {
        const UploadParam param = getUploadParamFromUI(UploadMode::List);
        emit listSaveToCSV(listData, param);
    });
    connect(
        ui->btnListLoad, &QPushButton::clicked, this, [this] { on_actionloadList_triggered(); });
    connect(ui->btnListUpload, &QPushButton::clicked, this, [this] {
        uploaderStart(UploadMode::List);
    });

    blockChildrenSignals(ui->tabList, false);
}

ListTemplateParam &DialogProgrammer::activeListTemplate()
{
    const int index = ui->cbbListTempType->currentIndex();
    return listTemplateParams[index >= 0 && index < listTemplateParams.size() ? index : 0];
}

void DialogProgrammer::on_cbbListTempType_currentIndexChanged(int index)
{
    if (index < 0 || index >= listTemplateParams.size())
        return;
    ListTemplateParam &param = listTemplateParams[index];
    param.type = static_cast<ListTemplateType>(index);
    update_ui_from_list_tempparam(param);
    make_list_data(param);
}

void DialogProgrammer::on_cbbListTempObject_currentIndexChanged(int index)
{
    // The editors are not read back: the values stored for the newly chosen quantity are shown.
    ListTemplateParam &param = activeListTemplate();
    param.object = index;
    param.type = static_cast<ListTemplateType>(ui->cbbListTempType->currentIndex());
    update_ui_from_list_tempparam(param);
    make_list_data(param);
}

void DialogProgrammer::cbListTempInverted_clicked(bool value)
{
    ListTemplateParam &param = activeListTemplate();
    param.inverted = value;
    param.type = static_cast<ListTemplateType>(ui->cbbListTempType->currentIndex());
    update_ui_from_list_tempparam(param);
    make_list_data(param);
}

void DialogProgrammer::listSpinBoxEditingFinished()
{
    ListTemplateParam &param = activeListTemplate();
    update_list_tempparam_from_ui(&param);
    make_list_data(param);
}

void DialogProgrammer::on_btnReset_clicked()
{
    ListTemplateParam &param = activeListTemplate();
    resetListTemplateParam(param, static_cast<unsigned char>(param.type));
    update_ui_from_list_tempparam(param);
    make_list_data(param);
}

void DialogProgrammer::on_btnResetAll_clicked()
{
    resetListTemplateParams(listTemplateParams);
    const ListTemplateParam param = activeListTemplate();
    update_ui_from_list_tempparam(param);
    make_list_data(param);
}

void DialogProgrammer::on_cbbListCH_currentIndexChanged(int index)
{
    Helper::getInstance().currentChannel = index;
    // Showing the template under the new channel's ranges clamps the editors; reading them back
    // stores the clamped values.
    ListTemplateParam &param = activeListTemplate();
    update_ui_from_list_tempparam(param);
    update_list_tempparam_from_ui(&param);
    make_list_data(param);
}

void DialogProgrammer::update_ui_from_list_tempparam(const ListTemplateParam &p)
{
    blockChildrenSignals(ui->tabList, true);
    const int channel = Helper::getInstance().currentChannel;
    const QPair<double, double> voltageRange = getVRangeOfChannel(channel);
    const QPair<double, double> currentRange = getCRangeOfChannel(channel);
    const bool voltage = p.object == 0;
    const QPair<double, double> &valueRange = voltage ? voltageRange : currentRange;
    const QPair<double, double> &otherRange = voltage ? currentRange : voltageRange;

    ui->lblListTempOtherValue->setText(voltage ? tr("Current:") : tr("Voltage:"));
    ui->sbListTempOtherValue->setSuffix(voltage ? QStringLiteral("A") : QStringLiteral("V"));
    ui->sbListTempMax->setSuffix(voltage ? QStringLiteral("V") : QStringLiteral("A"));
    ui->sbListTempMin->setSuffix(voltage ? QStringLiteral("V") : QStringLiteral("A"));

    ui->sbListTempMin->setRange(valueRange.first, valueRange.second);
    ui->sbListTempMax->setRange(valueRange.first, valueRange.second);
    ui->sbListTempOtherValue->setRange(otherRange.first, otherRange.second);
    // The fixed current is edited with 3 decimals and the fixed voltage with 4, as it always was.
    ui->sbListTempOtherValue->setDecimals(voltage ? 3 : 4);

    listTemplateCurve->setPen(QPen(voltage ? voltageColor() : currentColor()));

    ui->cbbListTempType->setCurrentIndex(p.type);
    ui->cbbListTempObject->setCurrentIndex(p.object);

    ui->sbListTempOtherValue->setValue(voltage ? p.current : p.voltage);
    ui->sbListTempMax->setValue(voltage ? p.voltageMax : p.currentMax);
    ui->sbListTempMin->setValue(voltage ? p.voltageMin : p.currentMin);

    ui->stackedWidget->setCurrentIndex(p.type);
    if (QWidget *page = ui->stackedWidget->widget(p.type)) {
        const int type = p.type;
        if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempPeriod%1", type))
            box->setValue(p.period);
        if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempInterval%1", type))
            box->setValue(p.interval);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempCycles%1", type))
            box->setValue(p.cycles);
        if (auto *box = pageEditor<QCheckBox>(page, "cbListTempInverted%1", type))
            box->setChecked(p.inverted);
        if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempWidth%1", type))
            box->setValue(p.width);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempPulseCount%1", type))
            box->setValue(p.pulseCount);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempSymmetry%1", type))
            box->setValue(p.symmetry);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempSteps%1", type))
            box->setValue(p.steps);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempExpRate%1", type))
            box->setValue(p.expRate);
        if (auto *box = pageEditor<QSpinBox>(page, "sbListTempExpGroups%1", type))
            box->setValue(p.expGroups);
    }
    blockChildrenSignals(ui->tabList, false);
}

void DialogProgrammer::update_list_tempparam_from_ui(ListTemplateParam *p)
{
    p->type = static_cast<ListTemplateType>(ui->cbbListTempType->currentIndex());
    p->object = ui->cbbListTempObject->currentIndex();
    if (p->object == 0) {
        p->current = ui->sbListTempOtherValue->value();
        p->voltageMax = ui->sbListTempMax->value();
        p->voltageMin = ui->sbListTempMin->value();
    } else {
        // The fixed voltage lands in `current` too, so that switching back to Voltage shows it
        // as the fixed current; users have come to expect that.
        p->voltage = ui->sbListTempOtherValue->value();
        p->current = p->voltage;
        p->currentMax = ui->sbListTempMax->value();
        p->currentMin = ui->sbListTempMin->value();
    }

    QWidget *page = ui->stackedWidget->widget(p->type);
    if (!page)
        return;
    const int type = p->type;
    if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempPeriod%1", type))
        p->period = box->value();
    if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempInterval%1", type))
        p->interval = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempCycles%1", type))
        p->cycles = box->value();
    if (auto *box = pageEditor<QCheckBox>(page, "cbListTempInverted%1", type))
        p->inverted = box->isChecked();
    if (auto *box = pageEditor<QDoubleSpinBox>(page, "sbListTempWidth%1", type))
        p->width = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempPulseCount%1", type))
        p->pulseCount = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempSymmetry%1", type))
        p->symmetry = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempSteps%1", type))
        p->steps = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempExpRate%1", type))
        p->expRate = box->value();
    if (auto *box = pageEditor<QSpinBox>(page, "sbListTempExpGroups%1", type))
        p->expGroups = box->value();
}

void DialogProgrammer::make_list_data(const ListTemplateParam &p)
{
    QVector<double> x;
    QVector<double> y;
    // Decided before anything is generated: an absurd template would otherwise freeze the dialog
    // and exhaust memory.
    const qint64 count = list_wave_step_count(p);
    if (count > kMaxTemplateSteps) {
        listTemplateData.clear();
        listTemplateModel->setSourceData(listTemplateData);
        listInvalidText->setVisible(true);
        update_list_plot(p, x, y);
        showTemplateRefused(count);
        return;
    }
    listInvalidText->setVisible(false);

    // The generated rows become the preview in place: the value moves to the quantity the
    // template drives and the fixed one joins it, without a second list of steps.
    QList<ListData> rows = make_list_wave(p);
    for (ListData &row : rows) {
        if (p.object == 0) {
            row.current = p.current;
        } else {
            row.current = row.voltage;
            row.voltage = p.voltage;
        }
    }
    listTemplateData.swap(rows);
    listTemplateModel->setSourceData(listTemplateData);

    make_list_plot_data(listTemplateData, p.object == 0, x, y);
    update_list_plot(p, x, y);
}

void DialogProgrammer::make_list_plot_data(const QList<ListData> &list,
                                           bool voltage,
                                           QVector<double> &x,
                                           QVector<double> &y)
{
    // The points of make_plot_values() over (value, time × 10^timeDecimals) steps, read straight
    // from the list.
    const double scale = std::pow(10.0, Helper::getInstance().option.timeDecimals);
    make_step_plot_values(
        list.size(),
        [&list, voltage, scale](int i, double &level, double &duration) {
            const ListData &step = list.at(i);
            level = voltage ? step.voltage : step.current;
            duration = step.time * scale;
        },
        x,
        y);
}

void DialogProgrammer::update_list_plot(const ListTemplateParam &p,
                                        QVector<double> &x,
                                        QVector<double> &y)
{
    const int channel = Helper::getInstance().currentChannel;
    const QPair<double, double> range
        = p.object == 0 ? getVRangeOfChannel(channel) : getCRangeOfChannel(channel);
    QCustomPlot *plot = ui->plotListTemplate;
    if (auto *title = qobject_cast<QCPTextElement *>(plot->plotLayout()->element(0, 0)))
        title->setText(ui->cbbListTempType->currentText());
    plot->yAxis->setLabel(p.object == 0 ? tr("Voltage(V)") : tr("Current(A)"));
    // The axis ends one quantum before the last point, as it always has. The plot ignores a range
    // of no width and would keep the scale of the previous preview, so a preview without steps,
    // or of a single quantum, gets a unit range.
    const double end = x.isEmpty() ? 0.0 : x.last() - 1.0;
    plot->xAxis->setRange(0, end > 0 ? end : 1.0);
    plot->yAxis->setRange(range.first, range.second);
    plot->xAxis->scaleRange(1.01);
    plot->yAxis->scaleRange(1.01);
    static_cast<StepCurve *>(listTemplateCurve)->setPoints(x, y);
    plot->replot(QCustomPlot::rpRefreshHint);
}

void DialogProgrammer::updateListGroupsWidget()
{
    const int count = listData.size();
    ui->sbListGroups->setValue(count);
    ui->sbListGroups->setStyleSheet(Helper::getInstance().option.maxCount < count
                                        ? QStringLiteral("background-color:#ff0000")
                                        : QString());

    // The points of make_list_plot_data() for both quantities, recomputed from the first step
    // that changed since the last refresh.
    const double scale = std::pow(10.0, Helper::getInstance().option.timeDecimals);
    const int from = scale == listPlotScale ? listPlotDirtyFrom : 0;
    listPlotDirtyFrom = std::numeric_limits<int>::max();
    listPlotScale = scale;
    static_cast<StepCurve *>(listVoltageCurve)
        ->setSteps(count, from, [this, scale](int i, double &level, double &duration) {
            const ListData &step = listData.at(i);
            level = step.voltage;
            duration = step.time * scale;
        });
    auto *currentCurve = static_cast<StepCurve *>(listCurrentCurve);
    currentCurve->setSteps(count, from, [this, scale](int i, double &level, double &duration) {
        const ListData &step = listData.at(i);
        level = step.current;
        duration = step.time * scale;
    });

    const int channel = Helper::getInstance().currentChannel;
    const QPair<double, double> voltageRange = getVRangeOfChannel(channel);
    const QPair<double, double> currentRange = getCRangeOfChannel(channel);
    QCustomPlot *plot = ui->plotList;
    // The plot ignores a range of no width and would go on showing the scale of the steps that
    // were there before, so an empty sequence, or one of zero-length steps, gets a unit range.
    const double end
        = currentCurve->data()->isEmpty() ? 0.0 : (currentCurve->data()->constEnd() - 1)->key;
    plot->xAxis->setRange(0, end > 0 ? end : 1.0);
    plot->xAxis->scaleRange(1.01);
    plot->yAxis->setRange(voltageRange.first, voltageRange.second);
    plot->yAxis->scaleRange(1.03);
    plot->yAxis2->setRange(currentRange.first, currentRange.second);
    plot->yAxis2->scaleRange(1.03);
    plot->replot(QCustomPlot::rpRefreshHint);
}

void DialogProgrammer::update_list_data_model(const QList<ListData> &) {}

void DialogProgrammer::on_btnListTemplateAppend_clicked()
{
    if (listTemplateData.isEmpty())
        return;
    const int first = listData.size();
    listDataModel->appendRows(listTemplateData);
    selectTvItems(ui->tvList,
                  listDataModel->index(first, 0),
                  listDataModel->index(listData.size() - 1, listDataModel->columnCount() - 1));
    updateListGroupsWidget();
}

void DialogProgrammer::on_btnListTemplateInsert_clicked()
{
    if (listTemplateData.isEmpty())
        return;
    const QModelIndex current = ui->tvList->currentIndex();
    if (!current.isValid()) {
        on_btnListTemplateAppend_clicked();
        updateListGroupsWidget();
        return;
    }
    const int row = current.row();
    const int count = listTemplateData.size();
    listDataModel->insertRows(row, listTemplateData);
    selectTvItems(ui->tvList,
                  listDataModel->index(row, 0),
                  listDataModel->index(row + count - 1, listDataModel->columnCount() - 1));
    updateListGroupsWidget();
}

} // namespace tarn2::specific::orvo5000::programmer
