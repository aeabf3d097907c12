// Text files as lists of lines, the form in which device modules keep their sequence files.
#pragma once

#include "tarn2_util_export.h"

#include <QList>
#include <QString>

namespace tarn2::util::character {

class TARN2_UTIL_EXPORT Character final
{
public:
    Character() = delete;

    // Writes every string as one UTF-8 line ending in "\n", creating or truncating the file.
    // Returns false when the file cannot be written completely.
    static bool csvSave(const QString &path, const QList<QString> &lines);

    // The file's lines without their "\n" or "\r\n", untrimmed; an empty list when the file
    // cannot be read.
    static QList<QString> csvLoad(const QString &path);
    // The first `maxLines` lines of the file, read no further than them. When they take more than
    // `maxBytes` bytes the file counts as unreadable (an empty list), and no more than `maxBytes`
    // + 64 KiB of it are ever read.
    static QList<QString> csvLoad(const QString &path, int maxLines, qint64 maxBytes);
};

} // namespace tarn2::util::character
