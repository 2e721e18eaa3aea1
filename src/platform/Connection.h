#pragma once

#include "platform/Recordset.h"

#include <QSqlDatabase>
#include <QString>
#include <functional>

// The SQL dialect behind a connection string.
enum class Dialect { SqlServer, SQLite };

// The ADO-style connection string of the start-up ("Provider=SQLNCLI;Server=...;Database=...;
// Uid=...;Pwd=...") mapped to a QtSql driver: Server= naming a database file (ends in .db, or an
// existing file) is SQLite; anything else is SQL Server through ODBC (FreeTDS on Linux).
Dialect dialectOf(const QString& connectionString);

// The ODBC connection string that SQL Server is reached with, for the given ADO one.
QString odbcConnectionString(const QString& connectionString);

// The pooled connection of this connection string and thread, opened (or re-opened after a
// failure) with the login time-out given. A refused or failed connection raises -2147467259 with
// the driver's text.
QSqlDatabase pooledDatabase(const QString& connectionString, int connectionTimeoutSeconds = 15);

// Runs a statement on the pooled connection and returns its rows as a client-side copy (closed
// when the statement returns no rows). A failure raises the run-time error of its kind.
Recordset executeStatement(const QString& connectionString, const QString& sql,
                           int connectionTimeoutSeconds = 15, int commandTimeoutSeconds = 30);

// The original's connection object: Open, then Execute. It holds no connection of its own beyond
// the pooled one, as the original's provider pooled its sessions.
class Connection {
public:
    int ConnectionTimeout = 15;
    int CommandTimeout = 30;

    void Open(const QString& connectionString);
    Recordset Execute(const QString& sql);
    Dialect dialect() const;

private:
    QString m_connectionString;
};

// Test seam: sees every statement sent to a database (after dialect mapping), in order.
void setStatementObserver(std::function<void(const QString& sql)> observer);
