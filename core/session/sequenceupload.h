// Uploading a sequence held in memory, for faces that have no dialog to hand out the steps.
#pragma once

#include <sequencecontent.h>

#include <QObject>

namespace tarn::host {

class UploadSession;

// SequenceUpload plays the part the dialog's upload run plays in the window: it begins the
// session with the sequence's settings and hands it the next step each time it asks, from the
// event loop and never from inside the session's own signal, until the steps the instrument can
// hold are sent. The session's ended() and verified() tell how it went.
class SequenceUpload final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(SequenceUpload)

public:
    explicit SequenceUpload(UploadSession *session, QObject *parent = nullptr);
    ~SequenceUpload() override;

    // Sends at most `maxCount` steps of `content` to `channel` (from 1).
    void start(const SequenceContent &content, int channel, int maxCount);
    bool isActive() const { return m_active; }

private:
    void pump();

    UploadSession *m_session;
    SequenceContent m_content;
    int m_count = 0;
    int m_next = 0;
    bool m_active = false;
    bool m_wanted = false;
    bool m_scheduled = false;
};

} // namespace tarn::host
