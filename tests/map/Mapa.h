#pragma once

#include "platform/Connection.h"

#include <QDateTime>
#include <QString>
#include <QVariant>

class Frm_Principal;
class TestEnvironment;

// The test's back-office database, upgraded as at start-up and pointed to by conexaoLocal, and a
// second terminal on it: rows are written and read on a connection of its own, as another till
// would, never through the map's data controls. All staff may use the system; ANA (1, "123") has
// no rights, BRUNO (2, "456") may transfer tables and change the settings.
class OutroTerminal {
public:
    explicit OutroTerminal(const TestEnvironment& ambiente);

    // Inserts a tab and returns its id.
    int abrirMesa(int mesa, int status, double valorTotal = 0, const QDateTime& movimento = QDateTime(),
                  int colaborador = 1);
    void executar(const QString& sql);
    // The first column of the first row, or an invalid value when there is none.
    QVariant consultar(const QString& sql);

private:
    Connection m_conexao;
};

// The map loaded for the given number of tables (Form_Load runs), not shown.
Frm_Principal& carregarMapa(int mesas);
