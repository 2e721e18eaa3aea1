#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

class Frm_Principal;
class TestEnvironment;

// Staff of the test store: ANA (1, password "111") has no rights; BETO (2, "222") may transfer tables
// and change the settings.

// The tab store of a test and a second terminal on it: rows are written and read through a
// connection of its own, as another till would, never through the map's data controls.
class OutroTerminal {
public:
    explicit OutroTerminal(const TestEnvironment& ambiente);
    ~OutroTerminal();

    // Inserts a tab and returns its id.
    int abrirMesa(int mesa, int status, double valorTotal = 0, const QDateTime& movimento = QDateTime(),
                  int colaborador = 1);
    void executar(const QString& sql, const QVariantList& valores = {});
    // The first column of the first row, or an invalid value when there is none.
    QVariant consultar(const QString& sql, const QVariantList& valores = {});

private:
    QString m_conexao;
};

// The map loaded for the given number of tables (Form_Load runs), not shown.
Frm_Principal& carregarMapa(int mesas);
