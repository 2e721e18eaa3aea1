#pragma once

#include <QString>

// One statement in each dialect. The SQL Server text is the statement as this system has always
// sent it; the SQLite text does the same thing on the embedded database.
struct Equivalente {
    QString sqlServer;
    QString sqlite;
};
