#pragma once
// The read-only data tables (elements, draws, saints) and the draw import
// are SQLite files reached through Qt's driver. Each use opens a connection
// of its own and removes it before returning, so two windows, a window and
// a test, or two calls never share one.
#include <QSqlDatabase>
#include <QString>
#include <functional>

enum class SqliteAccess {
  ReadOnly,   // the file must exist; it is never created or changed
  ReadWrite,  // the file is created when missing
};

// Runs work on the database at path; false when it cannot be opened,
// otherwise what work answers.
bool withSqlite(const QString& path, SqliteAccess access, const std::function<bool(QSqlDatabase&)>& work);
