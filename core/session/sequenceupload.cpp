// Handing an upload session the steps of a sequence in memory.
#include "sequenceupload.h"

#include "uploadsession.h"

#include <QTimer>

namespace tarn::host {

using namespace tarn2::specific::orvo5000::programmer;

namespace {
// Steps handed over in one turn of the event loop, so that the link is served between batches.
constexpr int batch = 256;
} // namespace

SequenceUpload::SequenceUpload(UploadSession *session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{
    connect(session, &UploadSession::nextWanted, this, [this] {
        m_wanted = true;
        if (!m_scheduled) {
            m_scheduled = true;
            QTimer::singleShot(0, this, &SequenceUpload::pump);
        }
    });
    connect(session, &UploadSession::stopWanted, this, [this] { m_active = false; });
    connect(session, &UploadSession::ended, this, [this] { m_active = false; });
}

SequenceUpload::~SequenceUpload() = default;

void SequenceUpload::start(const SequenceContent &content, int channel, int maxCount)
{
    m_content = content;
    m_count = qMax(0, qMin(content.size(), maxCount));
    m_next = 0;
    m_active = true;
    m_wanted = false;
    UploadParam param;
    param.mode = content.mode;
    param.channel = channel;
    param.maxCount = m_count;
    param.cycles = content.cycles;
    param.endState = content.endState.isEmpty() ? QStringLiteral("OFF") : content.endState;
    m_session->begin(param);
}

void SequenceUpload::pump()
{
    m_scheduled = false;
    for (int i = 0; i < batch && m_wanted && m_active; ++i) {
        m_wanted = false;
        if (m_next >= m_count) {
            m_active = false;
            m_session->finish();
            return;
        }
        const int index = m_next++;
        if (m_content.mode == List)
            m_session->step(index, m_content.list.at(index));
        else
            m_session->step(index, m_content.delayer.at(index));
    }
    if (m_wanted && m_active && !m_scheduled) {
        m_scheduled = true;
        QTimer::singleShot(0, this, &SequenceUpload::pump);
    }
}

} // namespace tarn::host
