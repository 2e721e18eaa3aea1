#pragma once

#include "platform/Connection.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <functional>

// Inside the data layer: one connection string's pooled session, the statements run on it and what
// the layer learns of a table. Not for the program's own code, which goes through Connection,
// Recordset and DataControl.

// How a column's values need translating between the copy and the database. SQLite keeps bit
// columns as integers and dates as text, PostgreSQL bit columns as smallint (the bit_flag domain);
// the copy holds them as bool and QDateTime on every dialect.
enum class ColumnKind { Plain, Bit, DateTime };

struct TableInfo {
    QStringList key;                  // primary-key columns in key order; empty when the table has none
    QHash<QString, ColumnKind> kinds; // by lower-case column name
};

class SqlSession {
public:
    SqlSession(const QString& connectionString, int connectionTimeoutSeconds, int commandTimeoutSeconds);

    Dialect dialect() const { return m_dialect; }

    // Runs one statement with the values bound in order and returns the query, positioned before
    // its first row. A failure raises the run-time error of its kind; a connection failure also
    // drops the pooled connection so that the next use opens a new one. The layer's own catalogue
    // look-ups pass observed = false: the observer sees what the program sends.
    QSqlQuery exec(const QString& sql, const QVariantList& values = {}, bool observed = true);

    // SQLite: runs a SELECT on a reading connection of its own, lent from this thread's pool, so
    // that rows read from it later are the rows of this moment whatever is written meanwhile, on
    // the pooled connection or elsewhere (WAL keeps a reader's snapshot until its statement ends).
    // `reader` receives the connection's name, to be given back with releaseReader once the
    // query is gone. Failures raise as exec's do.
    QSqlQuery execReading(const QString& sql, QString& reader);

    // Key and column kinds of a table, cached per connection until a statement changes the schema.
    TableInfo tableInfo(const QString& table);

    // A value of the copy as it is bound for this dialect (never a Null: the layer writes NULL).
    QVariant toDatabase(const QVariant& value) const;
    // A table or column name quoted for this dialect: [name], or on PostgreSQL "name" in the lower
    // case that the program's unquoted names fold to.
    QString quote(const QString& name) const;
    // Forgets what is known of every table (after DDL).
    void forgetTables();

private:
    // Gives the pooled connection this session's command time-out where the engine keeps it per
    // connection, unless it has it already.
    void applyCommandTimeout(QSqlDatabase& db);

    QString m_connectionString;
    int m_connectionTimeout;
    int m_commandTimeout;
    Dialect m_dialect;
};

// Gives a reading connection back to its pool; its query must be finished or gone.
void releaseReader(const QString& reader);
// What must happen to the statement of a lent reading connection before the pooled connections
// close: the copy reading from it reads the rest of its rows, then releases the reader.
void onReaderClosing(const QString& reader, std::function<void()> finish);

// A value read from the database as the copy holds it.
QVariant fromDatabase(Dialect dialect, const QVariant& value, ColumnKind kind);

// The error number of a failed statement or connection.
int errorNumberOf(Dialect dialect, const class QSqlError& error);
