#pragma once

#include "platform/Connection.h"

#include <QString>

// One statement in each dialect. The SQL Server text is the statement as this system has always
// sent it; the SQLite and PostgreSQL texts do the same thing on those engines. A PostgreSQL text
// left empty means the SQL Server text runs there as it stands.
struct Equivalente {
    QString sqlServer;
    QString sqlite;
    QString postgresql;

    const QString& texto(Dialect dialect) const {
        switch (dialect) {
        case Dialect::SQLite:
            return sqlite;
        case Dialect::PostgreSQL:
            return postgresql.isEmpty() ? sqlServer : postgresql;
        case Dialect::SqlServer:
            break;
        }
        return sqlServer;
    }
};
