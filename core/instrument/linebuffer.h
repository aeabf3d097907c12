// Cuts a byte stream into lines, with a bound on how long one line may grow.
#pragma once

#include <QByteArray>

#include <functional>

namespace tarn::sim {

// LineBuffer hands out each line without its "\n" (and a "\r" before it). A line longer than the
// bound is dropped whole, up to its end, and reported once as an overrun: memory never grows past
// the bound however the bytes arrive.
class LineBuffer
{
public:
    static constexpr int defaultBound = 64 * 1024;

    explicit LineBuffer(int bound = defaultBound)
        : m_bound(bound)
    {}

    void feed(const char *data,
              qint64 size,
              const std::function<void(const QByteArray &)> &onLine,
              const std::function<void()> &onOverrun);
    // Bytes waiting for their line to end.
    int pending() const { return m_line.size(); }

private:
    QByteArray m_line;
    int m_bound;
    bool m_discarding = false;
};

} // namespace tarn::sim
