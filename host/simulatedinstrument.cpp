// The simulated instrument's side of uploads and sequence files.
#include "simulatedinstrument.h"

#include <dialogprogrammer.h>

#include <QFileDialog>
#include <QTimer>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
// How long the simulated instrument takes to take one step, in milliseconds.
constexpr int kWriteDelay = 2;
const QString kFilter = QStringLiteral("CSV files (*.csv);;All files (*)");
} // namespace

SimulatedInstrument::SimulatedInstrument(DialogProgrammer *dialog)
    : QObject(dialog)
    , m_dialog(dialog)
{
    connect(dialog, &DialogProgrammer::uploaderStarted, this, [this](const UploadParam &param) {
        m_param = param;
        m_steps = 0;
        requestNext();
    });
    connect(dialog, &DialogProgrammer::uploaderNextData, this, [this](int, const ProgrammerData &) {
        ++m_steps;
        requestNext();
    });
    connect(dialog, &DialogProgrammer::uploaderFinished, this, [this] {
        m_dialog->uploaderStop();
        m_dialog->showInfo(tr("The instrument took %1 steps on channel %2").arg(m_steps).arg(m_param.channel),
                           5000);
    });
    connect(dialog, &DialogProgrammer::uploaderError, this, [this](const QString &e) {
        m_dialog->uploaderStop();
        m_dialog->showError(e, 5000);
    });

    connect(dialog,
            &DialogProgrammer::listSaveToCSV,
            this,
            [this](const QList<ListData> &datas, const UploadParam &) {
                const QString path = QFileDialog::getSaveFileName(m_dialog, tr("Save List"), {}, kFilter);
                if (!path.isEmpty() && !m_dialog->listSaveData(path, datas))
                    m_dialog->showError(tr("Could not write %1").arg(path), 5000);
            });
    connect(dialog,
            &DialogProgrammer::delayerSaveToCSV,
            this,
            [this](const QList<DelayerData> &datas, const UploadParam &) {
                const QString path = QFileDialog::getSaveFileName(m_dialog, tr("Save Delayer"), {}, kFilter);
                if (!path.isEmpty() && !m_dialog->delayerSaveData(path, datas))
                    m_dialog->showError(tr("Could not write %1").arg(path), 5000);
            });
    // A load keeps the file's repeat count and end state by reading the tab back into param.
    connect(dialog,
            &DialogProgrammer::listLoadFromCSV,
            this,
            [this](QList<ListData> &datas, UploadParam &param) {
                const QString path = QFileDialog::getOpenFileName(m_dialog, tr("Load List"), {}, kFilter);
                if (path.isEmpty())
                    return;
                datas = m_dialog->listLoadData(path);
                if (datas.isEmpty())
                    m_dialog->showError(tr("%1 holds no usable list").arg(path), 5000);
                param = m_dialog->getUploadParamFromUI(UploadMode::List);
            });
    connect(dialog,
            &DialogProgrammer::delayerLoadFromCSV,
            this,
            [this](QList<DelayerData> &datas, UploadParam &param) {
                const QString path = QFileDialog::getOpenFileName(m_dialog, tr("Load Delayer"), {}, kFilter);
                if (path.isEmpty())
                    return;
                datas = m_dialog->delayerLoadData(path);
                if (datas.isEmpty())
                    m_dialog->showError(tr("%1 holds no usable delayer sequence").arg(path), 5000);
                param = m_dialog->getUploadParamFromUI(UploadMode::Delayer);
            });
}

Option SimulatedInstrument::defaultOption()
{
    Option option;
    option.name = QStringLiteral("Simulated Supply");
    option.timeDecimals = 3;
    option.timeMin = 0.001;
    option.timeMax = 99999;
    option.voltageDecimals = 3;
    option.currentDecimals = 3;
    for (int i = 1; i <= 4; ++i)
        option.channels.append({QStringLiteral("CH%1").arg(i), {{0.0, 32.0}, {0.0, 3.2}}});
    option.maxCount = 2048;
    option.saveEnabled = true;
    option.loadEnabled = true;
    option.uploadEnabled = true;
    return option;
}

void SimulatedInstrument::requestNext()
{
    // The next step is asked for from the event loop, after the write, never from inside the
    // dialog's signal.
    QTimer::singleShot(kWriteDelay, m_dialog, [dialog = m_dialog] { dialog->uploaderNext(); });
}

} // namespace tarn::host
