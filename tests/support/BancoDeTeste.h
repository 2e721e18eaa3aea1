#pragma once

#include "support/Support.h"

#include <QDateTime>
#include <QString>
#include <QVariant>

// The back office as this system leaves it after its upgrade at start-up: the database of
// backOfficeDatabase with the tab tables and the added columns (no staff has access yet), set as
// conexaoLocal. Returns the connection string.
QString bancoDeTeste(const TestEnvironment& env);

// A statement on conexaoLocal, or on the connection string given (another terminal's).
void executar(const QString& sql, const QString& conexao = QString());
// A field (the first unless told) of the first row of a query on conexaoLocal.
QVariant consultar(const QString& sql, int campo = 0);

// An open tab of a table as another terminal leaves it (written on a connection of its own):
// identificacao "MESA: nn", created and last moved at movimento (testMoment() when not given).
// Returns its id.
int abrirComanda(int mesa, int status, double valorTotal = 0, const QDateTime& movimento = QDateTime(),
                 int colaborador = 1);
// An item of a tab worth valor, written as abrirComanda writes its tab.
void itemNoBanco(int idComanda, int nItem, double valor, int status = 1);
