#pragma once

#include "support/Support.h"

#include <QString>

// The server the store's tests run on: "pg:host:port" when the environment variable
// ZARVEL_TEST_POSTGRES gives a PostgreSQL server's "host:port" (its user sa may create databases),
// or empty for SQLite files.
QString testServer();

// A fresh back-office database for one test: a SQLite file in the test's temporary area (or a new
// database on the server of testServer()) with the
// back office's tables as they are before this system's first start, and a handful of rows:
//
//   Tb_Departamento  1 COZINHA, 2 BAR
//   PRODUTOS         1 X-SALADA 18,50 (dep 1), 2 CERVEJA LATA 7,00 (dep 2),
//                    3 PORÇÃO DE FRITAS 25,90 (dep 1), 10 ÁGUA MINERAL 4,50 (dep 2, no stock row)
//   TB_ESTOQUE       1: 10, 2: 48, 3: 5
//   Tb_Colaborador   1 ANA "123", 2 BRUNO "456", 3 D'ÁVILA "789"
//   CLIENTES         1 MARIA SILVA, 2 JOSÉ SOUZA
//   Tb_ConVendas     one row: BAR DO TESTE, bServico 1, bProdutos 0, iTaxa 10
//   Tb_Usuario       one row: 12.345.678/0001-90, BAR DO TESTE LTDA, conAcesso 1
//
// Returns the ADO connection string ("Provider=SQLNCLI;Server=<file>;Database=Norvik;...").
// Several calls in one test make several files (name tells them apart).
QString backOfficeDatabase(const TestEnvironment& env, const QString& name = QStringLiteral("norvik.db"));

// The same database as another terminal sees it: a connection string that the pool keeps apart,
// so that statements run on a connection of their own to the same file.
QString secondTerminal(const QString& connectionString);
