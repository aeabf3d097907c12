// The head of a sequence file: "LIST,10" or "DELAYER,10", "Cycles,N", "End Status,NAME", ...
#include "sequencefilehead.h"

#include <QFile>

namespace tarn::host {

namespace {
const int kEndStateLine = 2;
} // namespace

QString sequenceFileEndState(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray line;
    for (int i = 0; i <= kEndStateLine; ++i) {
        if (file.atEnd())
            return {};
        line = file.readLine(256);
    }
    const QString text = QString::fromUtf8(line).trimmed();
    static const QString kPrefix = QStringLiteral("End Status,");
    if (!text.startsWith(kPrefix))
        return {};
    const QString name = text.mid(kPrefix.size());
    if (name == QLatin1String("Output Off"))
        return QStringLiteral("OFF");
    if (name == QLatin1String("Output On"))
        return QStringLiteral("ON");
    if (name == QLatin1String("Last"))
        return QStringLiteral("LAST");
    return {};
}

} // namespace tarn::host
