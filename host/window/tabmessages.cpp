// Swapping the dialog's status message as the tabs change.
#include "tabmessages.h"

#include <dialogprogrammer.h>

#include <QTabWidget>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

TabMessages::TabMessages(DialogProgrammer *dialog)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_shown(dialog->currentMode() == UploadMode::Delayer ? 1 : 0)
{
    auto *tabs = qobject_cast<QTabWidget *>(
        dialog->control(UploadMode::List, DialogProgrammer::Control::Tabs));
    connect(tabs, &QTabWidget::currentChanged, this, &TabMessages::tabChanged);
}

void TabMessages::tabChanged(int index)
{
    if (!m_dialog || index == m_shown || index < 0 || index > 1)
        return;
    // A message that timed out has left the line already and is not kept.
    m_kept[m_shown] = {m_dialog->statusMessage(), m_dialog->statusIsError()};
    m_shown = index;
    const Message back = std::exchange(m_kept[index], Message());
    if (back.error)
        m_dialog->showError(back.text, 0);
    else
        m_dialog->showInfo(back.text, 0);
}

} // namespace tarn::host
