// The command words the host sends, ours by default, another dialect's when a description says so.
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

#include <initializer_list>

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

    // The line for `key` with its placeholders %1.. filled in.
    QByteArray line(const char *key, const QStringList &arguments = {}) const;
    QByteArray line(const char *key, std::initializer_list<QByteArray> arguments) const;
    QString word(const char *key) const;
    static QStringList keys();

private:
    // A word cut at its placeholders once, so that a line costs no parsing per step.
    struct Piece
    {
        QByteArray literal;
        int argument = -1; // index into the arguments, or -1 for the literal
    };
    void prepare();

    QHash<QString, QString> m_words;
    QHash<QString, QVector<Piece>> m_pieces;
};

} // namespace tarn::host
