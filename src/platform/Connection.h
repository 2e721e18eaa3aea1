#pragma once

#include "platform/Recordset.h"

#include <QSqlDatabase>
#include <QString>
#include <functional>

// The SQL dialect behind a connection string.
enum class Dialect { SqlServer, SQLite, PostgreSQL };

// The ADO-style connection string of the start-up ("Provider=SQLNCLI;Server=...;Database=...;
// Uid=...;Pwd=...") mapped to a QtSql driver: Server= naming a database file (ends in .db, or an
// existing file) is SQLite; "pg:host" or "pg:host:port" is PostgreSQL (port 5432 when not given;
// a host that is a folder is the server's socket folder); anything else is SQL Server through ODBC
// (FreeTDS on Linux).
Dialect dialectOf(const QString& connectionString);

// Host and port of a PostgreSQL Server= ("pg:host:port"); port 5432 when it names none.
struct PostgresAddress {
    QString host;
    int port = 5432;
};
PostgresAddress postgresAddressOf(const QString& connectionString);

// The database that Database= (or Initial Catalog=) names.
QString databaseOf(const QString& connectionString);

// The absolute path of the file that Server= names (the SQLite database).
QString databaseFileOf(const QString& connectionString);

// The ODBC connection string that SQL Server is reached with, for the given ADO one.
QString odbcConnectionString(const QString& connectionString);

// The pooled connection of this connection string and thread, opened (or re-opened after a
// failure) with the login time-out given; a connection already open is shared as it is, and each
// statement brings its own command time-out. A refused or failed connection raises -2147467259
// with the driver's text. SQLite: foreign keys on, WAL, and the login time-out as the busy wait
// for another terminal's lock while opening; a database file that is missing (or has gone) is
// never created anew. PostgreSQL: Database=, Uid= and Pwd= of the connection string, the login
// time-out as libpq's connect_timeout, and the command time-out as the session's statement_timeout.
QSqlDatabase pooledDatabase(const QString& connectionString, int connectionTimeoutSeconds = 15);

// Closes every pooled connection of this thread (tests, before their database files go).
void closePooledDatabases();

// Runs a statement on the pooled connection and returns its rows as a client-side copy (closed
// when the statement returns no rows). A failure raises the run-time error of its kind:
// -2147467259 for a refused, failed or lost connection (also a file that is not a database),
// -2147217873 for a key, foreign-key or NOT NULL violation, -2147217871 when the statement outlasted
// the command time-out (on SQLite: another terminal held the database locked that long; 0 waits
// without limit), and -2147217900 for every other statement error (syntax, unknown table or
// column); the description is the driver's text.
Recordset executeStatement(const QString& connectionString, const QString& sql,
                           int connectionTimeoutSeconds = 15, int commandTimeoutSeconds = 30);

// The original's connection object: Open, then Execute. It holds no connection of its own beyond
// the pooled one, as the original's provider pooled its sessions.
class Connection {
public:
    int ConnectionTimeout = 15;
    int CommandTimeout = 30;

    // Execute before Open raises 3709.
    void Open(const QString& connectionString);
    Recordset Execute(const QString& sql);
    Dialect dialect() const;

private:
    QString m_connectionString;
};

// Test seam: sees every statement sent to a database (after dialect mapping), in order: what the
// program runs and the UPDATE and INSERT statements of Recordset::Update, but not the layer's own
// catalogue look-ups (key columns, column types) nor the settings it makes on a connection (at
// the open, and a statement's command time-out).
void setStatementObserver(std::function<void(const QString& sql)> observer);
