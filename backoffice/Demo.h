#pragma once

#include <QString>

// The demo bar: the back office's tables with 60 products in COZINHA, BAR and COPA (four without a
// stock row), four staff, five customers, the settings row (20 tables, 10 idle minutes, 10 %
// service, items printed, trading name "BAR DO PORTO") and the company row with user control on.
// Staff, with their passwords and rights (every one may use the system):
//   1 ADMINISTRADOR    1234  every right
//   2 CARLA CAIXA      2580  transfers, reprint, service rate, cancel
//   3 JOÃO GARÇOM      1357  reprint, exclude items
//   4 MARIA GARÇONETE  2468  none
// The program's schema upgrade runs on it in between (as conexaoLocal, which stays set), so the
// database is as the first start of the program leaves it: tab tables made, rights columns added.
// For SQLite the file must not exist yet.
void createDemoDatabase(const QString& connectionString);
