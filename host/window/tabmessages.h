// Keeps each tab's status message with its tab.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

namespace tarn2::specific::orvo5000::programmer {
class DialogProgrammer;
}

namespace tarn::host {

// The dialog has one status line for both tabs. TabMessages takes the line's message with it when
// the user leaves a tab and puts it back on return, so "Verified 4 steps on CH1" of the List is
// never shown under the Delayer.
class TabMessages final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(TabMessages)

public:
    explicit TabMessages(tarn2::specific::orvo5000::programmer::DialogProgrammer *dialog);

private:
    struct Message
    {
        QString text;
        bool error = false;
    };
    void tabChanged(int index);

    QPointer<tarn2::specific::orvo5000::programmer::DialogProgrammer> m_dialog;
    Message m_kept[2];
    int m_shown = 0;
};

} // namespace tarn::host
