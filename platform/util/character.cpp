// Line-based text file reading and writing, one buffered pass over the file.
#include "character.h"

#include <QFile>
#include <QSaveFile>

#include <limits>

namespace tarn2::util::character {

bool Character::csvSave(const QString &path, const QList<QString> &lines)
{
    // QSaveFile so that a failed write never leaves a half-written sequence behind.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    QByteArray buffer;
    for (const QString &line : lines) {
        buffer += line.toUtf8();
        buffer += '\n';
        if (buffer.size() >= (1 << 20)) {
            if (file.write(buffer) != buffer.size())
                return false;
            buffer.clear();
        }
    }
    if (!buffer.isEmpty() && file.write(buffer) != buffer.size())
        return false;
    return file.commit();
}

QList<QString> Character::csvLoad(const QString &path)
{
    // Far beyond any sequence file, and below what one string of the file's text could hold.
    return csvLoad(path, std::numeric_limits<int>::max(), qint64{256} << 20);
}

QList<QString> Character::csvLoad(const QString &path, int maxLines, qint64 maxBytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};

    QList<QString> lines;
    QByteArray pending; // the start of a line whose end has not been read yet
    qint64 consumed = 0;
    constexpr qint64 chunk = qint64{1} << 16;
    while (lines.size() < maxLines) {
        const QByteArray piece = file.read(chunk);
        if (file.error() != QFileDevice::NoError)
            return {};
        if (piece.isEmpty())
            break;
        pending += piece;
        int begin = 0;
        for (int end = pending.indexOf('\n'); end >= 0 && lines.size() < maxLines;
             end = pending.indexOf('\n', begin)) {
            const int stop = end > begin && pending.at(end - 1) == '\r' ? end - 1 : end;
            lines.append(QString::fromUtf8(pending.constData() + begin, stop - begin));
            consumed += end + 1 - begin;
            begin = end + 1;
        }
        pending.remove(0, begin);
        if (consumed + pending.size() > maxBytes)
            return {};
    }
    // A last line without its terminator still counts.
    if (lines.size() < maxLines && !pending.isEmpty()) {
        int stop = pending.size();
        if (pending.endsWith('\r'))
            --stop;
        lines.append(QString::fromUtf8(pending.constData(), stop));
    }
    return lines;
}

} // namespace tarn2::util::character
