// Saving and loading sequences through file dialogs.
#include "sequencefiles.h"

#include "session/sequencefilehead.h"

#include <dialogprogrammer.h>

#include <QComboBox>
#include <QFileDialog>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
QString filter()
{
    return QObject::tr("CSV files (*.csv);;All files (*)");
}

// The dialog's loader finds the file's end state by the combo's shown text, which is translated:
// under any language but English it misses and the tab keeps its old state. The file's own key is
// applied instead, wherever the tab offers it, so a file loads the same under every language.
void keepFileEndState(DialogProgrammer *dialog,
                      const char *combo,
                      const QString &path,
                      UploadParam &param)
{
    const QString key = sequenceFileEndState(path);
    const auto *box = dialog->findChild<QComboBox *>(QLatin1String(combo));
    if (!key.isEmpty() && box && box->findData(key) >= 0)
        param.endState = key;
}
} // namespace

SequenceFiles::SequenceFiles(DialogProgrammer *dialog)
    : QObject(dialog)
    , m_dialog(dialog)
{
    connect(dialog,
            &DialogProgrammer::listSaveToCSV,
            this,
            [this](const QList<ListData> &datas, const UploadParam &) {
                const QString path
                    = QFileDialog::getSaveFileName(m_dialog, tr("Save List"), {}, filter());
                if (!path.isEmpty() && !m_dialog->listSaveData(path, datas))
                    m_dialog->showError(tr("Could not write %1").arg(path), 5000);
            });
    connect(dialog,
            &DialogProgrammer::delayerSaveToCSV,
            this,
            [this](const QList<DelayerData> &datas, const UploadParam &) {
                const QString path
                    = QFileDialog::getSaveFileName(m_dialog, tr("Save Delayer"), {}, filter());
                if (!path.isEmpty() && !m_dialog->delayerSaveData(path, datas))
                    m_dialog->showError(tr("Could not write %1").arg(path), 5000);
            });
    // A load keeps the file's repeat count and end state by reading the tab back into param.
    connect(dialog,
            &DialogProgrammer::listLoadFromCSV,
            this,
            [this](QList<ListData> &datas, UploadParam &param) {
                const QString path
                    = QFileDialog::getOpenFileName(m_dialog, tr("Load List"), {}, filter());
                if (path.isEmpty())
                    return;
                datas = m_dialog->listLoadData(path);
                if (datas.isEmpty())
                    m_dialog->showError(tr("%1 holds no usable list").arg(path), 5000);
                param = m_dialog->getUploadParamFromUI(UploadMode::List);
                if (!datas.isEmpty())
                    keepFileEndState(m_dialog, "cbbListEndState", path, param);
            });
    connect(dialog,
            &DialogProgrammer::delayerLoadFromCSV,
            this,
            [this](QList<DelayerData> &datas, UploadParam &param) {
                const QString path
                    = QFileDialog::getOpenFileName(m_dialog, tr("Load Delayer"), {}, filter());
                if (path.isEmpty())
                    return;
                datas = m_dialog->delayerLoadData(path);
                if (datas.isEmpty())
                    m_dialog->showError(tr("%1 holds no usable delayer sequence").arg(path), 5000);
                param = m_dialog->getUploadParamFromUI(UploadMode::Delayer);
                if (!datas.isEmpty())
                    keepFileEndState(m_dialog, "cbbDelayerEndState", path, param);
            });
}

} // namespace tarn::host
