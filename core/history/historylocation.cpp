// Reading a history location and the settings that name one.
#include "historylocation.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace tarn::history {

namespace {

// The window's settings, read by the command line too, so that both find the same history.
QSettings benchSettings()
{
    return QSettings(QStringLiteral("Tarn"), QStringLiteral("Bench Host"));
}

constexpr qint64 defaultSizeLimitMiB = 512;

} // namespace

QString HistoryLocation::defaultFile()
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir(base).filePath(QStringLiteral("tarn_bench/history.sqlite"));
}

QString HistoryLocation::fromSettings()
{
    return benchSettings().value(QStringLiteral("history/location")).toString();
}

qint64 HistoryLocation::sizeLimitFromSettings()
{
    bool ok = false;
    const qint64 mib = benchSettings()
                           .value(QStringLiteral("history/sizeLimitMiB"), defaultSizeLimitMiB)
                           .toLongLong(&ok);
    return (ok && mib > 0 ? mib : defaultSizeLimitMiB) * 1024 * 1024;
}

std::optional<HistoryLocation> HistoryLocation::parse(const QString &given, QString *error)
{
    const QString text = given.isEmpty() ? fromSettings() : given;
    HistoryLocation location;
    location.file = defaultFile();
    if (text.isEmpty())
        return location;
    if (!text.startsWith(QLatin1String("postgresql:"))
        && !text.startsWith(QLatin1String("postgres:"))) {
        location.file = text;
        return location;
    }
    const QUrl url(text, QUrl::StrictMode);
    if (!url.password().isEmpty()) {
        *error = QStringLiteral("a history address may not hold a password; put it in the "
                                "server's password file (~/.pgpass) or a service file");
        return std::nullopt;
    }
    const QString database = url.path().mid(1);
    if (!url.isValid() || url.host().isEmpty() || database.isEmpty() || database.contains('/')
        || url.hasQuery()) {
        *error
            = QStringLiteral("a history server is written postgresql://user@host[:port]/database");
        return std::nullopt;
    }
    location.server = true;
    location.user = url.userName();
    location.host = url.host();
    location.port = url.port(5432);
    location.database = database;
    return location;
}

QString HistoryLocation::display() const
{
    if (!server)
        return file;
    QString text = QStringLiteral("postgresql://");
    if (!user.isEmpty())
        text += user + QLatin1Char('@');
    return text + QStringLiteral("%1:%2/%3").arg(host).arg(port).arg(database);
}

} // namespace tarn::history
