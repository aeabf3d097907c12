// Splitting a line of instrument commands into headers and parameters, and reading SCPI numbers.
#pragma once

#include "scpierror.h"

#include <QByteArray>
#include <QList>
#include <QVector>

#include <optional>

namespace tarn::sim {

struct ScpiCommand
{
    QByteArray header; // as sent, without a leading ':' and without the query mark
    bool query = false;
    QList<QByteArray> parameters; // trimmed, quotes kept
};

namespace scpi {

// The commands of one line, split at the semicolons that are not inside quotes. Empty commands
// (";;", a trailing ';') are dropped.
QList<QByteArray> splitMessage(const QByteArray &line);

// One command: header, query mark and comma-separated parameters. On failure *error tells why.
std::optional<ScpiCommand> parseCommand(const QByteArray &text, ScpiError *error);

// A decimal number (1, +1.5, -.5, 2., 1E3, 1.5e-3), optionally followed by `unit` with a milli,
// micro or kilo prefix (500mV, 2 ms), a non-decimal integer (#H1F, #Q17, #B101), or one of the
// special values INFinity, NINFinity and NAN. `unit` is 'V', 'A', 'S' or 0 for none.
std::optional<double> parseNumber(const QByteArray &token, char unit = 0);

// A header pattern as the command list writes it, "SYSTem:ERRor[:NEXT]": each node matches its
// short form (its capitals) or its long form, in any case; nodes in brackets may be left out.
class HeaderPattern
{
public:
    explicit HeaderPattern(const char *pattern);
    bool matches(const QByteArray &header) const;
    // The header already upper-cased and split at its colons, for matching it against many
    // patterns.
    bool matches(const QList<QByteArray> &nodes) const;
    static QList<QByteArray> nodesOf(const QByteArray &header);

private:
    struct Node
    {
        QByteArray shortForm;
        QByteArray longForm;
        bool optional = false;
    };
    bool matchFrom(int node, const QList<QByteArray> &tokens, int token) const;

    QVector<Node> m_nodes;
};

} // namespace scpi
} // namespace tarn::sim
