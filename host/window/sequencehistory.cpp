// The recorded changes of a sequence.
#include "sequencehistory.h"

#include "prompter.h"
#include "sequencefiles.h"

#include <dialogprogrammer.h>

#include <QAbstractItemModel>
#include <QComboBox>
#include <QSpinBox>
#include <QTableView>
#include <QTimer>
#include <QUndoCommand>
#include <QUndoStack>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

// Consecutive changes of only the repeat count or end state are one step of the history, so that
// spinning the repeat count from 1 to 20 is undone at once.
constexpr int settingsOnlyId = 1;

bool sameSteps(const SequenceContent &a, const SequenceContent &b)
{
    SequenceContent c = b;
    c.cycles = a.cycles;
    c.endState = a.endState;
    return a.sameAs(c);
}

QString describe(const SequenceContent &before, const SequenceContent &after)
{
    // %n lets each catalogue say "1 step" and "2 steps" in its own plural forms.
    const int difference = after.size() - before.size();
    if (difference > 0)
        return QObject::tr("Add %n steps", nullptr, difference);
    if (after.size() == 0)
        return QObject::tr("Clear %n steps", nullptr, before.size());
    if (difference < 0)
        return QObject::tr("Delete %n steps", nullptr, -difference);
    if (sameSteps(before, after))
        return QObject::tr("Change repeat count or end state");
    return QObject::tr("Edit steps");
}

class SequenceChange final : public QUndoCommand
{
public:
    SequenceChange(SequenceHistory *history, SequenceContent before, SequenceContent after)
        : QUndoCommand(describe(before, after))
        , m_history(history)
        , m_before(std::move(before))
        , m_after(std::move(after))
    {}

    void undo() override { m_history->apply(m_before); }
    void redo() override
    {
        // The change is on screen already when it is recorded.
        if (m_done)
            m_history->apply(m_after);
        m_done = true;
    }
    int id() const override { return sameSteps(m_before, m_after) ? settingsOnlyId : -1; }
    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *next = static_cast<const SequenceChange *>(other);
        if (next->id() != settingsOnlyId)
            return false;
        m_after = next->m_after;
        return true;
    }

private:
    SequenceHistory *m_history;
    SequenceContent m_before;
    SequenceContent m_after;
    bool m_done = false;
};

} // namespace

SequenceHistory::SequenceHistory(UploadMode mode, DialogProgrammer *dialog, SequenceFiles *files)
    : QObject(dialog)
    , m_mode(mode)
    , m_dialog(dialog)
    , m_files(files)
    , m_stack(new QUndoStack(this))
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(0);
    connect(m_timer, &QTimer::timeout, this, &SequenceHistory::commit);
    m_baseline = m_files->current(mode);

    QAbstractItemModel *model = dialog->sequenceView(mode)->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &SequenceHistory::schedule);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &SequenceHistory::schedule);
    connect(model, &QAbstractItemModel::dataChanged, this, &SequenceHistory::schedule);
    connect(model, &QAbstractItemModel::modelReset, this, &SequenceHistory::schedule);
    auto *cycles
        = qobject_cast<QSpinBox *>(dialog->control(mode, DialogProgrammer::Control::Cycles));
    connect(cycles, qOverload<int>(&QSpinBox::valueChanged), this, &SequenceHistory::schedule);
    auto *endState
        = qobject_cast<QComboBox *>(dialog->control(mode, DialogProgrammer::Control::EndState));
    connect(endState,
            qOverload<int>(&QComboBox::currentIndexChanged),
            this,
            &SequenceHistory::schedule);
    connect(files, &SequenceFiles::loaded, this, [this](UploadMode loaded) {
        if (loaded == m_mode)
            m_cleanAfterCommit = true;
        schedule();
    });
    connect(files, &SequenceFiles::saved, this, [this](UploadMode saved) {
        if (saved == m_mode)
            markClean();
    });
}

SequenceHistory::~SequenceHistory()
{
    // Commands hold a pointer back to the history; they go first, silently, since the dialog and
    // the editor listening to the stack may be half destroyed by now.
    m_stack->blockSignals(true);
    m_stack->clear();
}

void SequenceHistory::schedule()
{
    if (!m_applying)
        m_timer->start();
}

void SequenceHistory::flush()
{
    if (m_timer->isActive()) {
        m_timer->stop();
        commit();
    }
}

void SequenceHistory::commit()
{
    if (!m_dialog)
        return;
    const SequenceContent now = m_files->current(m_mode);
    if (!now.sameAs(m_baseline)) {
        if (now.size() == 0 && m_baseline.size() > quietClear && m_prompter
            && m_prompter->question(
                   m_dialog,
                   tr("Clear"),
                   tr("Erase all %1 steps of the %2 sequence?")
                       .arg(m_baseline.size())
                       .arg(m_mode == UploadMode::List ? tr("List") : tr("Delayer")))
                   != Prompter::Answer::Yes) {
            apply(m_baseline);
            return;
        }
        const SequenceContent before = m_baseline;
        m_baseline = now;
        m_stack->push(new SequenceChange(this, before, now));
    }
    if (m_cleanAfterCommit) {
        m_cleanAfterCommit = false;
        m_stack->setClean();
    }
    emit changed();
}

bool SequenceHistory::isModified()
{
    flush();
    return !m_stack->isClean();
}

void SequenceHistory::markClean()
{
    flush();
    m_stack->setClean();
}

void SequenceHistory::restart()
{
    flush();
    m_stack->clear();
    m_baseline = m_files->current(m_mode);
    m_stack->setClean();
    emit changed();
}

void SequenceHistory::apply(const SequenceContent &content)
{
    m_applying = true;
    m_files->replace(content);
    m_applying = false;
    m_timer->stop();
    m_baseline = m_files->current(m_mode);
    emit changed();
}

} // namespace tarn::host
