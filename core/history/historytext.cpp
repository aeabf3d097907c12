// Writing and reading steps and samples as lines of shortest round-trip numbers.
#include "historytext.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace tarn::history {

using namespace tarn2::specific::orvo5000::programmer;

namespace {

void put(QByteArray &out, double value)
{
    char text[32];
    const auto result = std::to_chars(std::begin(text), std::end(text), value);
    out.append(text, static_cast<int>(result.ptr - text));
}

void put(QByteArray &out, qint64 value)
{
    char text[24];
    const auto result = std::to_chars(std::begin(text), std::end(text), value);
    out.append(text, static_cast<int>(result.ptr - text));
}

// Reads the comma-separated numbers of one line; false unless there are exactly `count`.
bool fields(const char *begin, const char *end, double *values, int count)
{
    for (int i = 0; i < count; ++i) {
        const auto result = std::from_chars(begin, end, values[i]);
        if (result.ec != std::errc())
            return false;
        begin = result.ptr;
        if (i + 1 < count) {
            if (begin == end || *begin != ',')
                return false;
            ++begin;
        }
    }
    return begin == end;
}

template<class Line> bool eachLine(const QByteArray &text, int count, Line line)
{
    const char *at = text.constData();
    const char *const end = at + text.size();
    double values[6];
    while (at < end) {
        const char *stop = std::find(at, end, '\n');
        if (!fields(at, stop, values, count))
            return false;
        line(values);
        at = stop == end ? end : stop + 1;
    }
    return true;
}

} // namespace

QByteArray stepsText(const host::SequenceContent &content)
{
    QByteArray out;
    if (content.mode == List) {
        out.reserve(content.list.size() * 24);
        for (const ListData &step : content.list) {
            put(out, step.voltage);
            out.append(',');
            put(out, step.current);
            out.append(',');
            put(out, step.time);
            out.append('\n');
        }
    } else {
        out.reserve(content.delayer.size() * 12);
        for (const DelayerData &step : content.delayer) {
            out.append(step.state ? "1," : "0,");
            put(out, step.time);
            out.append('\n');
        }
    }
    return out;
}

bool readSteps(const QByteArray &text, host::SequenceContent *content)
{
    content->list.clear();
    content->delayer.clear();
    if (content->mode == List)
        return eachLine(text, 3, [content](const double *v) {
            content->list.append(ListData(v[0], v[1], v[2]));
        });
    return eachLine(text, 2, [content](const double *v) {
        content->delayer.append(DelayerData(v[0] != 0.0, v[1]));
    });
}

QByteArray samplesText(const QVector<host::RunSample> &samples)
{
    QByteArray out;
    out.reserve(samples.size() * 40);
    for (const host::RunSample &sample : samples) {
        put(out, sample.time);
        out.append(',');
        put(out, sample.voltage);
        out.append(',');
        put(out, sample.current);
        out.append(sample.output ? ",1," : ",0,");
        put(out, qint64(sample.step));
        out.append(',');
        put(out, sample.cycle);
        out.append('\n');
    }
    return out;
}

bool readSamples(const QByteArray &text, QVector<host::RunSample> *samples)
{
    return eachLine(text, 6, [samples](const double *v) {
        host::RunSample sample;
        sample.time = v[0];
        sample.voltage = v[1];
        sample.current = v[2];
        sample.output = v[3] != 0.0;
        sample.step = static_cast<int>(v[4]);
        sample.cycle = static_cast<qint64>(v[5]);
        samples->append(sample);
    });
}

} // namespace tarn::history
