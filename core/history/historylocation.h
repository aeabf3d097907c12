// Where the history lives: a local SQLite file, or a shared PostgreSQL server with a local queue.
#pragma once

#include <QString>

#include <optional>

namespace tarn::history {

// HistoryLocation reads what a user wrote after --history or into the setting: a file path, or
// postgresql://user@host[:port]/database. A password in the address is refused, so that none is
// ever written into the settings, a history or a log: the server's password file or service file
// answers for it. A server location still names a local file, which holds every record first and
// queues it until the server has it.
struct HistoryLocation
{
    QString file; // the local history, or a server's queue
    bool server = false;
    QString user;
    QString host;
    int port = 5432;
    QString database;

    // Nothing, with *error saying why, for text that is neither a path nor a server address.
    // Empty text means the setting, and without one the default file.
    static std::optional<HistoryLocation> parse(const QString &text, QString *error);
    // history.sqlite in the user's data location, shared by the window and the command line.
    static QString defaultFile();
    // The window's settings: "history/location" and "history/sizeLimitMiB".
    static QString fromSettings();
    static qint64 sizeLimitFromSettings();
    // postgresql://user@host:port/database or the file's path: never a password.
    QString display() const;
};

} // namespace tarn::history
