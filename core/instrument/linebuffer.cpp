// Line assembly with a bound, for the command channel of the simulated supply.
#include "linebuffer.h"

#include <cstring>

namespace tarn::sim {

void LineBuffer::feed(const char *data,
                      qint64 size,
                      const std::function<void(const QByteArray &)> &onLine,
                      const std::function<void()> &onOverrun)
{
    const char *end = data + size;
    while (data < end) {
        const auto *newline = static_cast<const char *>(std::memchr(data, '\n', end - data));
        const char *stop = newline ? newline : end;
        if (!m_discarding) {
            if (m_line.size() + (stop - data) > m_bound) {
                m_line.clear();
                m_line.squeeze();
                m_discarding = true;
                onOverrun();
            } else {
                m_line.append(data, static_cast<int>(stop - data));
            }
        }
        if (!newline)
            return;
        if (!m_discarding) {
            if (m_line.endsWith('\r'))
                m_line.chop(1);
            const QByteArray line = m_line;
            m_line.clear();
            onLine(line);
        }
        m_discarding = false;
        data = newline + 1;
    }
}

} // namespace tarn::sim
