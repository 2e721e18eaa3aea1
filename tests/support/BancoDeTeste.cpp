#include "support/BancoDeTeste.h"

#include "platform/Connection.h"
#include "platform/VbText.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/TestDatabase.h"

QString bancoDeTeste(const TestEnvironment& env) {
    conexaoLocal = backOfficeDatabase(env);
    atualizarBanco();
    return conexaoLocal;
}

void executar(const QString& sql, const QString& conexao) {
    Connection cn;
    cn.Open(conexao.isEmpty() ? conexaoLocal : conexao);
    cn.Execute(sql);
}

QVariant consultar(const QString& sql, int campo) {
    Connection cn;
    cn.Open(conexaoLocal);
    return cn.Execute(sql).Fields(campo).Value();
}

int abrirComanda(int mesa, int status, double valorTotal, const QDateTime& movimento, int colaborador) {
    const QString quando =
        (movimento.isValid() ? movimento : testMoment()).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, identificacao, "
                       "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao) "
                       "VALUES ('%1', %2, %3, %4, 'MESA: %5', 0, 0, %6, 1, '%1')")
            .arg(quando)
            .arg(status)
            .arg(mesa)
            .arg(colaborador)
            .arg(Format(mesa, QStringLiteral("00")))
            .arg(valorTotal),
        secondTerminal(conexaoLocal));
    return consultar(QStringLiteral("SELECT MAX(id_comanda) FROM Tb_Comandas")).toInt();
}

void itemNoBanco(int idComanda, int nItem, double valor, int status) {
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
                       "valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, "
                       "status, valor_total, id_comanda_origem) VALUES (%1, %2, 1, 'X-SALADA', 1, %3, 0, "
                       "0, 1, '2024-03-05 11:10:00', %4, %3, %1)")
            .arg(idComanda)
            .arg(nItem)
            .arg(valor, 0, 'f', 4)
            .arg(status),
        secondTerminal(conexaoLocal));
}
