// Line-based text file reading and writing, one buffered pass over the file.
#include "character.h"

#include <QFile>
#include <QSaveFile>

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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {};

    QList<QString> lines;
    int begin = 0;
    const int size = bytes.size();
    while (begin < size) {
        int end = bytes.indexOf('\n', begin);
        const int next = end < 0 ? size : end + 1;
        if (end < 0)
            end = size;
        int stop = end;
        if (stop > begin && bytes.at(stop - 1) == '\r')
            --stop;
        lines.append(QString::fromUtf8(bytes.constData() + begin, stop - begin));
        begin = next;
    }
    return lines;
}

} // namespace tarn2::util::character
