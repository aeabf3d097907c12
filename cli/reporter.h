// What the tool tells its user or the rig software that reads it.
#pragma once

#include <QJsonObject>
#include <QString>

namespace tarn::cli {

// Reporter writes human text to stdout, or with --json one compact JSON object per line
// ({"type": "progress" | "problem" | "result" | "info", ...}); errors always go to stderr as text.
// A progress bar is drawn on stderr only when it is a terminal and the output is for humans.
class Reporter final
{
public:
    Reporter(bool json, bool quiet);

    bool json() const { return m_json; }
    void info(const QString &text, const QJsonObject &fields = {});
    // `row` is the step's number in the editor's "No." column, from 0, as every message names it;
    // -1 for a problem of the file as a whole.
    void problem(int row, const QString &text);
    void progress(int done, int total);
    // One found record: a line of text, or {"type": "record", ...}.
    void record(const QString &text, QJsonObject fields);
    void result(bool ok, const QString &text, QJsonObject fields = {});
    void error(const QString &text);

private:
    void line(const QJsonObject &object);
    void endProgress();

    bool m_json;
    bool m_quiet;
    bool m_bar;
    bool m_barShown = false;
};

} // namespace tarn::cli
