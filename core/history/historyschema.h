// The history's tables, version by version: the first schema and each step after it.
#pragma once

#include <QStringList>

namespace tarn::history::schema {

// The version this build writes. A database of an older one is migrated step by step on opening,
// each step one transaction; one of a newer version is left alone.
constexpr int current = 2;
// Marks a SQLite file as a history ("tarn"), so that another program's database is never taken
// for one.
constexpr int applicationId = 0x7461726E;

// The statements that create version 1, in the SQLite dialect.
QStringList first();
// The statements that take a database of version `from` to `from + 1`.
QStringList migration(int from);
// A statement of either kind, in the dialect of the server when `postgres`.
QString adapt(const QString &statement, bool postgres);

} // namespace tarn::history::schema
