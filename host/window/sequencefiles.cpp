// Saving and loading sequences, with the checks that keep the user's work.
#include "sequencefiles.h"

#include "channellimits.h"
#include "prompter.h"
#include "sequencereader.h"

#include <character.h>
#include <dialogprogrammer.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;
using tarn2::util::character::Character;

namespace {
const QString folderKey = QStringLiteral("Files/LastFolder");
constexpr int messageMs = 8000;

QString tabName(UploadMode mode)
{
    return mode == UploadMode::List ? QObject::tr("List") : QObject::tr("Delayer");
}

} // namespace

SequenceFiles::SequenceFiles(DialogProgrammer *dialog,
                             const sim::InstrumentDescription &description)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_description(description)
{
    connect(dialog,
            &DialogProgrammer::listSaveToCSV,
            this,
            [this](const QList<ListData> &datas, const UploadParam &param) {
                handleSave(UploadMode::List, datas.size(), param, [this, &datas](const QString &p) {
                    return m_dialog->listSaveData(p, datas);
                });
            });
    connect(dialog,
            &DialogProgrammer::delayerSaveToCSV,
            this,
            [this](const QList<DelayerData> &datas, const UploadParam &param) {
                handleSave(
                    UploadMode::Delayer, datas.size(), param, [this, &datas](const QString &p) {
                        return m_dialog->delayerSaveData(p, datas);
                    });
            });
    connect(dialog,
            &DialogProgrammer::listLoadFromCSV,
            this,
            [this](QList<ListData> &datas, UploadParam &param) {
                handleLoad(UploadMode::List, &datas, nullptr, param);
            });
    connect(dialog,
            &DialogProgrammer::delayerLoadFromCSV,
            this,
            [this](QList<DelayerData> &datas, UploadParam &param) {
                handleLoad(UploadMode::Delayer, nullptr, &datas, param);
            });
}

QString SequenceFiles::lastFolder()
{
    return QSettings().value(folderKey).toString();
}

void SequenceFiles::rememberFolder(const QString &path)
{
    QSettings().setValue(folderKey, QFileInfo(path).absolutePath());
}

StepLimits SequenceFiles::limits(UploadMode mode) const
{
    return stepLimitsFor(m_description, m_dialog->getUploadParamFromUI(mode).channel - 1);
}

SequenceContent SequenceFiles::current(UploadMode mode) const
{
    const UploadParam param = m_dialog->getUploadParamFromUI(mode);
    SequenceContent content;
    content.mode = mode;
    content.cycles = param.cycles;
    content.endState = param.endState;
    if (mode == UploadMode::List)
        content.list = m_dialog->listSequence();
    else
        content.delayer = m_dialog->delayerSequence();
    return content;
}

void SequenceFiles::replace(const SequenceContent &content)
{
    const QString endState = content.endState.isEmpty()
                                 ? m_dialog->getUploadParamFromUI(content.mode).endState
                                 : content.endState;
    if (content.mode == UploadMode::List)
        m_dialog->setListSequence(content.list, content.cycles, endState);
    else
        m_dialog->setDelayerSequence(content.delayer, content.cycles, endState);
}

void SequenceFiles::load(UploadMode mode)
{
    loadFrom(mode, QString());
}

bool SequenceFiles::loadFrom(UploadMode mode, const QString &path)
{
    const std::optional<SequenceContent> content = readForLoad(mode, path);
    if (!content)
        return false;
    replace(*content);
    emit loaded(mode);
    return true;
}

bool SequenceFiles::save(UploadMode mode)
{
    m_lastSaveWritten = false;
    const UploadParam param = m_dialog->getUploadParamFromUI(mode);
    if (mode == UploadMode::List) {
        const QList<ListData> &steps = m_dialog->listSequence();
        handleSave(mode, steps.size(), param, [this, &steps](const QString &path) {
            return m_dialog->listSaveData(path, steps);
        });
    } else {
        const QList<DelayerData> &steps = m_dialog->delayerSequence();
        handleSave(mode, steps.size(), param, [this, &steps](const QString &path) {
            return m_dialog->delayerSaveData(path, steps);
        });
    }
    return m_lastSaveWritten;
}

bool SequenceFiles::openFile(const QString &path)
{
    QString error;
    const std::optional<QList<QString>> lines
        = SequenceReader::readLines(path, m_description.maxCount, &error);
    const std::optional<UploadMode> mode = lines ? SequenceReader::modeOf(*lines) : std::nullopt;
    if (!mode) {
        const QString text
            = tr("%1 was not opened: %2")
                  .arg(QDir::toNativeSeparators(path),
                       lines ? tr("line 1: it is not a List or Delayer file") : error);
        m_dialog->showError(text, messageMs);
        if (m_prompter)
            m_prompter->warning(m_dialog, tr("Open Sequence"), text);
        return false;
    }
    m_dialog->setCurrentMode(*mode);
    return loadFrom(*mode, path);
}

std::optional<SequenceContent> SequenceFiles::readForLoad(UploadMode mode, QString path)
{
    if (path.isEmpty() && m_prompter)
        path = m_prompter->openFileName(m_dialog, tr("Load %1").arg(tabName(mode)), lastFolder());
    if (path.isEmpty())
        return std::nullopt;
    rememberFolder(path);

    QString unreadable;
    const std::optional<QList<QString>> lines
        = SequenceReader::readLines(path, m_description.maxCount, &unreadable);
    ReadResult read;
    if (lines) {
        read = SequenceReader::readFile(*lines, mode, limits(mode));
    } else {
        read.ok = false;
        read.error = unreadable;
    }
    if (read.ok) {
        m_paths[mode == UploadMode::List ? 0 : 1] = path;
        return read.content;
    }
    const QString title = tr("Load %1").arg(tabName(mode));
    const QString file = QDir::toNativeSeparators(path);
    if (read.refusedOnlyForEndState && m_prompter
        && m_prompter->question(m_dialog,
                                title,
                                tr("%1 was not loaded: %2.\n\nLoad its %n steps with the end "
                                   "state Output Off?",
                                   nullptr,
                                   read.content.size())
                                    .arg(file, read.error))
               == Prompter::Answer::Yes) {
        read.content.endState = QStringLiteral("OFF");
        return read.content;
    }
    const QString text = tr("%1 was not loaded: %2").arg(file, read.error);
    m_dialog->showError(text, messageMs);
    if (m_prompter && !read.refusedOnlyForEndState)
        m_prompter->warning(m_dialog, title, text);
    return std::nullopt;
}

void SequenceFiles::handleLoad(UploadMode mode,
                               QList<ListData> *list,
                               QList<DelayerData> *delayer,
                               UploadParam &param)
{
    std::optional<SequenceContent> content = readForLoad(mode, QString());
    const bool fromFile = content.has_value();
    // Whatever is not replaced goes back into the dialog as it was: its load empties otherwise.
    if (!content)
        content = current(mode);
    if (list)
        *list = content->list;
    if (delayer)
        *delayer = content->delayer;
    param.cycles = content->cycles;
    if (!content->endState.isEmpty())
        param.endState = content->endState;
    if (fromFile)
        emit loaded(mode);
}

QString SequenceFiles::writeFailure(const QString &path) const
{
    const QFileInfo info(path);
    if (!info.absoluteDir().exists())
        return tr("the folder %1 does not exist")
            .arg(QDir::toNativeSeparators(info.absolutePath()));
    if (info.isDir())
        return tr("it is a folder");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return file.errorString();
    return tr("the file could not be written completely");
}

void SequenceFiles::handleSave(UploadMode mode,
                               int count,
                               const UploadParam &param,
                               const std::function<bool(const QString &)> &write)
{
    const QString title = tr("Save %1").arg(tabName(mode));
    QStringList problems;
    if (count == 0)
        problems << tr("The sequence is empty.");
    if (mode == UploadMode::List && param.endState == QLatin1String("ON"))
        problems << tr("It ends in Output On, and a List file with that end state is refused.");
    if (count > m_description.maxCount)
        problems << tr("It has %1 steps, more than this instrument's %2.")
                        .arg(count)
                        .arg(m_description.maxCount);
    if (!problems.isEmpty()
        && (!m_prompter
            || m_prompter->question(m_dialog,
                                    title,
                                    tr("This file would not load back:\n%1\n\nSave anyway?")
                                        .arg(problems.join(QLatin1Char('\n'))))
                   != Prompter::Answer::Yes)) {
        return;
    }

    const QString known = filePath(mode);
    QString path
        = m_prompter
              ? m_prompter->saveFileName(m_dialog, title, known.isEmpty() ? lastFolder() : known)
              : QString();
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".csv");
    rememberFolder(path);
    const QString file = QDir::toNativeSeparators(path);
    if (!write(path)) {
        const QString text = tr("Could not write %1: %2").arg(file, writeFailure(path));
        m_dialog->showError(text, messageMs);
        if (m_prompter)
            m_prompter->warning(m_dialog, title, text);
        return;
    }
    m_lastSaveWritten = true;
    m_paths[mode == UploadMode::List ? 0 : 1] = path;
    m_dialog->showInfo(tr("Saved %n steps to %1", nullptr, count).arg(file), messageMs);
    emit saved(mode);
}

} // namespace tarn::host
