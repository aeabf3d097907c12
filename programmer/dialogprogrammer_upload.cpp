// The upload flow: the dialog's side of the step-by-step conversation with the host.
#include "dialogprogrammer.h"
#include "ui_dialogprogrammer.h"

#include "delayeruploader.h"
#include "helper.h"
#include "listuploader.h"

#include <QItemSelectionModel>
#include <QProgressBar>

namespace tarn2::specific::orvo5000::programmer {

void DialogProgrammer::on_actionListUpload_triggered()
{
    uploaderStart(UploadMode::List);
}

void DialogProgrammer::on_actionDelayerUpload_triggered()
{
    uploaderStart(UploadMode::Delayer);
}

void DialogProgrammer::uploaderStart(UploadMode mode)
{
    // The locked dialog keeps users from starting a second run; a host calling in during a run
    // is turned away too, so the run in progress keeps its uploader.
    if (uploader)
        return;
    const bool empty = mode == UploadMode::List ? listData.isEmpty() : delayerData.isEmpty();
    if (empty) {
        showError(
            tr("The %1 data is empty").arg(mode == UploadMode::List ? tr("list") : tr("delayer")),
            3000);
        return;
    }
    setupUploader(mode);
    if (uploader)
        uploader->start();
}

void DialogProgrammer::setupUploader(UploadMode mode)
{
    // The dialog stays disabled for the whole run, so the lists the uploaders refer to cannot
    // change under them.
    if (mode == UploadMode::List)
        uploader = new ListUploader(listData, nullptr);
    else if (mode == UploadMode::Delayer)
        uploader = new DelayerUploader(delayerData, nullptr);
    if (!uploader)
        return;

    ProgrammerUploader *const current = uploader;
    connect(
        current,
        &ProgrammerUploader::started,
        current,
        [this, mode](int count) {
            setEnabled(false);
            progressBar->setRange(0, count);
            // The bar counts the steps handed out; without this a second run would open on the
            // last run's full bar.
            progressBar->setValue(0);
            progressBar->show();
            UploadParam param = getUploadParamFromUI(mode);
            param.maxCount = count;
            emit uploaderStarted(param);
        },
        Qt::DirectConnection);
    connect(
        current,
        &ProgrammerUploader::nextData,
        current,
        [this, mode](int dataIndex, const ProgrammerData &data) {
            progressBar->setValue(dataIndex + 1);
            QTableView *view = mode == UploadMode::List ? ui->tvList : ui->tvDelayer;
            if (QItemSelectionModel *selection = view->selectionModel()) {
                selection->clearSelection();
                selection->setCurrentIndex(selection->model()->index(dataIndex, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
            }
            emit uploaderNextData(dataIndex, data);
        },
        Qt::DirectConnection);
    connect(
        current,
        &ProgrammerUploader::error,
        current,
        [this](const QString &e) { emit uploaderError(e); },
        Qt::DirectConnection);
    connect(
        current,
        &ProgrammerUploader::finished,
        current,
        [this] { emit uploaderFinished(); },
        Qt::DirectConnection);
    connect(
        current,
        &ProgrammerUploader::stoped,
        current,
        [this, current] {
            setEnabled(true);
            progressBar->hide();
            emit uploaderStoped();
            current->deleteLater();
            if (uploader == current)
                uploader = nullptr;
        },
        Qt::DirectConnection);
}

UploadParam DialogProgrammer::getUploadParamFromUI(UploadMode mode)
{
    const bool list = mode == UploadMode::List;
    UploadParam param;
    param.mode = mode;
    param.channel = (list ? ui->cbbListCH : ui->cbbDelayerCH)->currentIndex() + 1;
    param.maxCount = Helper::getInstance().option.maxCount;
    param.cycles = (list ? ui->sbListCycles : ui->sbDelayerCycles)->value();
    param.endState
        = (list ? ui->cbbListEndState : ui->cbbDelayerEndState)->currentData().toString();
    return param;
}

void DialogProgrammer::uploaderNext()
{
    if (uploader && uploader->isRunning())
        uploader->next();
}

void DialogProgrammer::uploaderStop()
{
    if (!uploader)
        return;
    if (uploader->isRunning()) {
        uploader->stop();
        return;
    }
    // An uploader that started with nothing to send (an instrument maximum of 0) never runs, so
    // its stop() would do nothing and leave the dialog locked for good. End that run here.
    ProgrammerUploader *const current = uploader;
    uploader = nullptr;
    setEnabled(true);
    progressBar->hide();
    emit uploaderStoped();
    current->deleteLater();
}

} // namespace tarn2::specific::orvo5000::programmer
