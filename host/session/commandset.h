// The command words the host sends, ours by default, another dialect's when a description says so.
#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace tarn::host {

// CommandSet maps what the host wants done ("listStep") to the line the instrument understands
// ("LIST:STEP %1,%2,%3,%4"). A description file's "commands" object may replace any of the words;
// a replacement must keep the placeholders %1.. the word has, so that no value is lost.
class CommandSet
{
public:
    CommandSet();

    static std::optional<CommandSet> fromOverrides(const QHash<QString, QString> &overrides,
                                                   QString *error);

    // The line for `key` with the placeholders filled in order.
    QByteArray line(const char *key, const QStringList &arguments = {}) const;
    QString word(const char *key) const;
    static QStringList keys();

private:
    QHash<QString, QString> m_words;
};

} // namespace tarn::host
