#pragma once

#include "platform/Connection.h"

#include <QString>
#include <QStringList>

// The back office's own tables (PRODUTOS, TB_ESTOQUE, Tb_Departamento, Tb_Colaborador, CLIENTES,
// Tb_ConVendas, Tb_Usuario) as the back-office product has them before this system first starts:
// only the columns this system uses, without what its schema upgrade adds (the rights and settings
// columns, Impressora, PK_CLIENTES, PK_Tb_Colaborador) and without the tab tables. The program never
// creates them; tests and the demo tool do.
//
// On PostgreSQL the bit columns are of the domain bit_flag, a smallint of 0 or 1, which this
// system's own tables use too: PostgreSQL's bit is a bit string that compares with no number.
//
// On SQLite, CLIENTES.ID_CODIGO and Tb_Colaborador.ID_Colaborador are INTEGER UNIQUE NOT NULL: SQLite
// cannot add a primary key to a table afterwards, and the tab tables' foreign keys need a unique
// column to point at.
QStringList backOfficeSchema(Dialect dialect);

// "Provider=SQLNCLI;Server=<server>;Database=Norvik;Uid=sa;Pwd=...", as the start-up builds it.
QString adoConnectionString(const QString& server);

// Makes the back office's tables on the database of the connection string. For SQLite the file is
// made (empty) first; for PostgreSQL the database (through the server's database "postgres", as
// the connection string's user). Either must not exist yet.
void createBackOffice(const QString& connectionString);

// The connection string with its Database= changed (added when it names none).
QString withDatabase(const QString& connectionString, const QString& database);
