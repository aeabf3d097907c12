// Human text, JSON lines and the progress bar.
#include "reporter.h"

#include <QJsonDocument>

#include <cstdio>
#include <unistd.h>

namespace tarn::cli {

Reporter::Reporter(bool json, bool quiet)
    : m_json(json)
    , m_quiet(quiet)
    , m_bar(!json && !quiet && isatty(STDERR_FILENO) == 1)
{}

void Reporter::line(const QJsonObject &object)
{
    std::fputs(QJsonDocument(object).toJson(QJsonDocument::Compact).constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void Reporter::endProgress()
{
    if (m_barShown) {
        std::fputc('\n', stderr);
        m_barShown = false;
    }
}

void Reporter::info(const QString &text, const QJsonObject &fields)
{
    if (m_json) {
        QJsonObject object = fields;
        object.insert(QStringLiteral("type"), QStringLiteral("info"));
        object.insert(QStringLiteral("message"), text);
        line(object);
    } else if (!m_quiet) {
        endProgress();
        std::printf("%s\n", qPrintable(text));
        std::fflush(stdout);
    }
}

void Reporter::problem(int row, const QString &text)
{
    if (m_json) {
        line({{QStringLiteral("type"), QStringLiteral("problem")},
              {QStringLiteral("step"), row},
              {QStringLiteral("message"), text}});
    } else {
        endProgress();
        if (row >= 0)
            std::printf("step No. %d: %s\n", row, qPrintable(text));
        else
            std::printf("%s\n", qPrintable(text));
        std::fflush(stdout);
    }
}

void Reporter::progress(int done, int total)
{
    if (m_json) {
        line({{QStringLiteral("type"), QStringLiteral("progress")},
              {QStringLiteral("done"), done},
              {QStringLiteral("total"), total}});
        return;
    }
    if (!m_bar || total <= 0)
        return;
    constexpr int width = 40;
    const int filled = static_cast<int>(static_cast<qint64>(width) * done / total);
    std::fprintf(stderr,
                 "\r[%s%s] %d/%d",
                 QByteArray(filled, '#').constData(),
                 QByteArray(width - filled, '.').constData(),
                 done,
                 total);
    std::fflush(stderr);
    m_barShown = true;
}

void Reporter::record(const QString &text, QJsonObject fields)
{
    if (m_json) {
        fields.insert(QStringLiteral("type"), QStringLiteral("record"));
        line(fields);
    } else if (!m_quiet) {
        std::printf("%s\n", qPrintable(text));
    }
}

void Reporter::result(bool ok, const QString &text, QJsonObject fields)
{
    if (m_json) {
        fields.insert(QStringLiteral("type"), QStringLiteral("result"));
        fields.insert(QStringLiteral("ok"), ok);
        fields.insert(QStringLiteral("message"), text);
        line(fields);
        if (!ok)
            std::fprintf(stderr, "tarn_bench_cli: %s\n", qPrintable(text));
        return;
    }
    endProgress();
    if (ok) {
        if (!m_quiet) {
            std::printf("%s\n", qPrintable(text));
            std::fflush(stdout);
        }
    } else {
        std::fprintf(stderr, "tarn_bench_cli: %s\n", qPrintable(text));
    }
}

void Reporter::error(const QString &text)
{
    endProgress();
    std::fprintf(stderr, "tarn_bench_cli: %s\n", qPrintable(text));
}

} // namespace tarn::cli
