#include "Mapa.h"

#include "map/Frm_Principal.h"
#include "platform/VbText.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/TestDatabase.h"

OutroTerminal::OutroTerminal(const TestEnvironment& ambiente) {
    conexaoLocal = backOfficeDatabase(ambiente);
    atualizarBanco();
    m_conexao.Open(secondTerminal(conexaoLocal));
    executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
    executar(QStringLiteral("UPDATE Tb_Colaborador SET bTransferirMesa = 1, bConfiguracoes = 1 "
                            "WHERE ID_Colaborador = 2"));
}

int OutroTerminal::abrirMesa(int mesa, int status, double valorTotal, const QDateTime& movimento,
                             int colaborador) {
    const QString quando =
        (movimento.isValid() ? movimento : testMoment()).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    executar(QStringLiteral(
                 "INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, identificacao, "
                 "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao, bloqueada, "
                 "cancelada, faturada) VALUES ('%1', %2, %3, %4, 'MESA: %5', 0, 0, %6, 1, '%1', 0, 0, 0)")
                 .arg(quando)
                 .arg(status)
                 .arg(mesa)
                 .arg(colaborador)
                 .arg(Format(mesa, QStringLiteral("00")))
                 .arg(valorTotal));
    return consultar(QStringLiteral("SELECT MAX(id_comanda) FROM Tb_Comandas")).toInt();
}

void OutroTerminal::executar(const QString& sql) {
    m_conexao.Execute(sql);
}

QVariant OutroTerminal::consultar(const QString& sql) {
    Recordset rs = m_conexao.Execute(sql);
    return rs.Eof() ? QVariant() : rs.Fields(0).Value();
}

Frm_Principal& carregarMapa(int mesas) {
    quantidadeMesas = static_cast<qint16>(mesas);
    return Frm_Principal::instance();
}
