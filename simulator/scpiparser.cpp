// The hand-written command parser of the simulated supply: small, table-free, allocation-light.
#include "scpiparser.h"

#include <cmath>
#include <limits>

namespace tarn::sim::scpi {

namespace {

bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

QByteArray trimmed(const QByteArray &text)
{
    int begin = 0;
    int end = text.size();
    while (begin < end && isSpace(text.at(begin)))
        ++begin;
    while (end > begin && isSpace(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

bool isHeaderChar(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == ':'
           || c == '*' || c == '?' || c == '_';
}

// Splits at `separator` outside single or double quotes; false when a quote is left open.
bool splitOutsideQuotes(const QByteArray &text, char separator, QList<QByteArray> *parts)
{
    char quote = 0;
    int begin = 0;
    for (int i = 0; i < text.size(); ++i) {
        const char c = text.at(i);
        if (quote) {
            if (c == quote)
                quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == separator) {
            parts->append(text.mid(begin, i - begin));
            begin = i + 1;
        }
    }
    parts->append(text.mid(begin));
    return quote == 0;
}

std::optional<double> parseBased(const QByteArray &digits, int base)
{
    if (digits.isEmpty() || digits.size() > 64)
        return std::nullopt;
    double value = 0.0;
    for (const char c : digits) {
        int d = -1;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        if (d < 0 || d >= base)
            return std::nullopt;
        value = value * base + d;
    }
    return value;
}

} // namespace

QList<QByteArray> splitMessage(const QByteArray &line)
{
    QList<QByteArray> parts;
    splitOutsideQuotes(line, ';', &parts);
    QList<QByteArray> commands;
    for (const QByteArray &part : qAsConst(parts)) {
        const QByteArray command = trimmed(part);
        if (!command.isEmpty())
            commands.append(command);
    }
    return commands;
}

std::optional<ScpiCommand> parseCommand(const QByteArray &text, ScpiError *error)
{
    const QByteArray command = trimmed(text);
    int headerEnd = 0;
    while (headerEnd < command.size() && !isSpace(command.at(headerEnd)))
        ++headerEnd;

    ScpiCommand result;
    QByteArray header = command.left(headerEnd);
    if (header.startsWith(':'))
        header.remove(0, 1);
    if (header.endsWith('?')) {
        result.query = true;
        header.chop(1);
    }
    if (header.isEmpty()) {
        *error = ScpiError::SyntaxError;
        return std::nullopt;
    }
    for (const char c : header) {
        if (!isHeaderChar(c) || c == '?') {
            *error = ScpiError::SyntaxError;
            return std::nullopt;
        }
    }
    result.header = header;

    const QByteArray rest = trimmed(command.mid(headerEnd));
    if (rest.isEmpty())
        return result;
    QList<QByteArray> parameters;
    if (!splitOutsideQuotes(rest, ',', &parameters)) {
        *error = ScpiError::SyntaxError;
        return std::nullopt;
    }
    for (const QByteArray &parameter : qAsConst(parameters)) {
        const QByteArray value = trimmed(parameter);
        if (value.isEmpty()) {
            *error = ScpiError::SyntaxError;
            return std::nullopt;
        }
        result.parameters.append(value);
    }
    return result;
}

std::optional<double> parseNumber(const QByteArray &token, char unit)
{
    const QByteArray text = trimmed(token).toUpper();
    if (text.isEmpty() || text.size() > 64)
        return std::nullopt;
    if (text == "INF" || text == "INFINITY")
        return std::numeric_limits<double>::infinity();
    if (text == "NINF" || text == "NINFINITY")
        return -std::numeric_limits<double>::infinity();
    if (text == "NAN")
        return std::numeric_limits<double>::quiet_NaN();
    if (text.startsWith('#') && text.size() > 2) {
        const char base = text.at(1);
        const QByteArray digits = text.mid(2);
        if (base == 'H')
            return parseBased(digits, 16);
        if (base == 'Q')
            return parseBased(digits, 8);
        if (base == 'B')
            return parseBased(digits, 2);
        return std::nullopt;
    }

    // Mantissa, then an optional exponent; spaces may stand around the exponent's E.
    int i = 0;
    const int n = text.size();
    auto digitsFrom = [&](int from) {
        int j = from;
        while (j < n && text.at(j) >= '0' && text.at(j) <= '9')
            ++j;
        return j - from;
    };
    QByteArray clean;
    if (i < n && (text.at(i) == '+' || text.at(i) == '-'))
        clean += text.at(i++);
    const int intDigits = digitsFrom(i);
    clean += text.mid(i, intDigits);
    i += intDigits;
    int fracDigits = 0;
    if (i < n && text.at(i) == '.') {
        ++i;
        fracDigits = digitsFrom(i);
        clean += '.' + text.mid(i, fracDigits);
        i += fracDigits;
    }
    if (intDigits + fracDigits == 0)
        return std::nullopt;
    int afterMantissa = i;
    while (i < n && isSpace(text.at(i)))
        ++i;
    if (i < n && text.at(i) == 'E') {
        int j = i + 1;
        while (j < n && isSpace(text.at(j)))
            ++j;
        QByteArray exponent;
        if (j < n && (text.at(j) == '+' || text.at(j) == '-'))
            exponent += text.at(j++);
        const int expDigits = digitsFrom(j);
        if (expDigits > 0) {
            exponent += text.mid(j, expDigits);
            clean += 'E' + exponent;
            i = j + expDigits;
            afterMantissa = i;
        } else {
            i = afterMantissa; // an E without digits is no exponent; let the suffix reading judge
        }
    } else {
        i = afterMantissa;
    }
    while (i < n && isSpace(text.at(i)))
        ++i;

    bool ok = false;
    double value = clean.toDouble(&ok);
    if (!ok)
        return std::nullopt;

    const QByteArray suffix = text.mid(i);
    if (suffix.isEmpty())
        return value;
    if (unit == 0)
        return std::nullopt;
    if (suffix.size() == 1 && suffix.at(0) == unit)
        return value;
    if (suffix.size() == 2 && suffix.at(1) == unit) {
        switch (suffix.at(0)) {
        case 'M':
            return value * 1e-3;
        case 'U':
            return value * 1e-6;
        case 'K':
            return value * 1e3;
        default:
            break;
        }
    }
    return std::nullopt;
}

HeaderPattern::HeaderPattern(const char *pattern)
{
    Node node;
    bool optional = false;
    auto close = [&] {
        if (!node.longForm.isEmpty()) {
            node.optional = optional;
            m_nodes.append(node);
        }
        node = Node();
    };
    for (const char *p = pattern; *p; ++p) {
        const char c = *p;
        if (c == '[') {
            close();
            optional = true;
        } else if (c == ']') {
            close();
            optional = false;
        } else if (c == ':') {
            close();
        } else {
            node.longForm += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
            if (!(c >= 'a' && c <= 'z'))
                node.shortForm += c;
        }
    }
    close();
}

bool HeaderPattern::matches(const QByteArray &header) const
{
    return matches(nodesOf(header));
}

bool HeaderPattern::matches(const QList<QByteArray> &nodes) const
{
    return matchFrom(0, nodes, 0);
}

QList<QByteArray> HeaderPattern::nodesOf(const QByteArray &header)
{
    return header.toUpper().split(':');
}

bool HeaderPattern::matchFrom(int node, const QList<QByteArray> &tokens, int token) const
{
    if (node == m_nodes.size())
        return token == tokens.size();
    const Node &n = m_nodes.at(node);
    if (token < tokens.size() && (tokens.at(token) == n.shortForm || tokens.at(token) == n.longForm)
        && matchFrom(node + 1, tokens, token + 1))
        return true;
    return n.optional && matchFrom(node + 1, tokens, token);
}

} // namespace tarn::sim::scpi
