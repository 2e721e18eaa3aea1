#include "map/Frm_Principal.h"
#include "platform/DataControl.h"
#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
int contar(const QString& condicao) {
    return consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE ") + condicao).toInt();
}

// An open tab of table mesa, as another terminal would have left it.
int abrirNoBanco(int mesa, int status, int id = 0) {
    executar(QStringLiteral(
                 "INSERT INTO Tb_Comandas (%1data_criacao, status, mesa, id_colaborador, identificacao, "
                 "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao) VALUES "
                 "(%2'2024-03-05 11:00:00', %3, %4, 2, 'JANELA', 1, 0, 0, 3, '2024-03-05 11:30:00')")
                 .arg(id ? QStringLiteral("id_comanda, ") : QString(),
                      id ? QString::number(id) + QStringLiteral(", ") : QString())
                 .arg(status)
                 .arg(mesa));
    return consultar(QStringLiteral("SELECT MAX(id_comanda) FROM Tb_Comandas")).toInt();
}

void incluirItem(int idComanda, int nItem, double valor, int status) {
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
                       "valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, "
                       "status, valor_total, id_comanda_origem) VALUES (%1, %2, 1, 'X-SALADA', 1, %3, 0, 0, "
                       "1, '2024-03-05 11:10:00', %4, %3, %1)")
            .arg(idComanda)
            .arg(nItem)
            .arg(valor, 0, 'f', 4)
            .arg(status));
}
// The store after the upgrade, with ANA (1) as the staff member who passed the prompt.
QString preparar(const TestEnvironment& env) {
    const QString conexao = bancoDeTeste(env);
    idColaborador = 1;
    return conexao;
}
} // namespace

class TestComanda : public QObject {
    Q_OBJECT

private slots:
    void mesaLivreAbreUmaLinha_data() {
        QTest::addColumn<int>("mesa");
        QTest::addColumn<QString>("identificacao");
        QTest::newRow("7") << 7 << QStringLiteral("MESA: 07");
        QTest::newRow("120") << 120 << QStringLiteral("MESA: 120");
    }
    void mesaLivreAbreUmaLinha() {
        QFETCH(int, mesa);
        QFETCH(QString, identificacao);
        TestEnvironment env;
        preparar(env);
        idColaborador = 2;
        cobrarServico = true;
        // A closed tab of the same table stays as it is.
        const int fechada = abrirNoBanco(mesa, 0);

        Comanda comanda;
        comanda.apelido(qint16(mesa));

        QCOMPARE(contar(QStringLiteral("status <> 0")), 1);
        QCOMPARE(comanda.status(), qint16(1));
        QCOMPARE(comanda.identificacao(), identificacao);
        QVERIFY(comanda.id() != fechada);
        const QString linha = QStringLiteral("id_comanda = %1 AND ").arg(comanda.id());
        QCOMPARE(
            contar(linha + QStringLiteral("mesa = %1 AND status = 1 AND id_colaborador = 2 AND servico = 1 "
                                          "AND ocupantes = 1 AND id_cliente IS NULL AND bloqueada = 0 AND "
                                          "cancelada = 0 AND faturada = 0")
                               .arg(mesa)),
            1);
        QCOMPARE(consultar(QStringLiteral("SELECT identificacao FROM Tb_Comandas WHERE ") + linha +
                           QStringLiteral("1 = 1"))
                     .toString(),
                 identificacao);
        QCOMPARE(comanda.dataCriacao(), testMoment());
        QCOMPARE(comanda.servico(), true);
        QCOMPARE(comanda.ocupantes(), qint16(1));
        QCOMPARE(comanda.cliente(), qint16(0));
        QCOMPARE(comanda.colaborador(), qint16(2));
    }

    void mesaOcupadaCarregaSemInserir() {
        TestEnvironment env;
        preparar(env);
        const int id = abrirNoBanco(4, 2);

        Comanda comanda;
        comanda.apelido(4);

        QCOMPARE(contar(QStringLiteral("1 = 1")), 1);
        QCOMPARE(comanda.id(), qint16(id));
        QCOMPARE(comanda.status(), qint16(2));
        QCOMPARE(comanda.identificacao(), QStringLiteral("JANELA"));
        QCOMPARE(comanda.ocupantes(), qint16(3));
        QCOMPARE(comanda.colaborador(), qint16(2));
        QCOMPARE(comanda.dataCriacao(), QDateTime(QDate(2024, 3, 5), QTime(11, 0)));
        // Only ever written.
        QVERIFY(!comanda.dataUltimaMovimentacao().isValid());
    }

    void totais_data() {
        QTest::addColumn<QList<double>>("ativos");
        QTest::addColumn<bool>("servico");
        QTest::addColumn<double>("produtos");
        QTest::addColumn<double>("taxa");
        QTest::addColumn<double>("total");
        QTest::newRow("com serviço") << QList<double>{11.11, 22.22} << true << 33.33 << 3.33 << 36.66;
        QTest::newRow("sem serviço") << QList<double>{11.11, 22.22} << false << 33.33 << 3.33 << 33.33;
        QTest::newRow("sem itens") << QList<double>{} << true << 0.0 << 0.0 << 0.0;
        // The products are rounded half up on their digits, the charge is cut.
        QTest::newRow("arredonda") << QList<double>{10.005} << true << 10.01 << 1.0 << 11.01;
        QTest::newRow("corta") << QList<double>{19.99} << true << 19.99 << 1.99 << 21.98;
    }
    void totais() {
        QFETCH(QList<double>, ativos);
        QFETCH(bool, servico);
        QFETCH(double, produtos);
        QFETCH(double, taxa);
        QFETCH(double, total);
        TestEnvironment env;
        preparar(env);
        taxaServico = 10;
        const int id = abrirNoBanco(1, 1);
        int n = 0;
        for (double valor : std::as_const(ativos))
            incluirItem(id, ++n, valor, 1);
        incluirItem(id, ++n, 100, 0); // excluded: counts for nothing
        incluirItem(abrirNoBanco(2, 1), 1, 50, 1);

        Comanda comanda;
        comanda.apelido(1);
        comanda.servico(servico);
        comanda.totalizaMesa();

        QCOMPARE(comanda.valorProdutos(), produtos);
        QCOMPARE(comanda.valorServico(), taxa);
        QCOMPARE(comanda.valorTotal(), total);
        const QString linha = QStringLiteral(" FROM Tb_Comandas WHERE id_comanda = %1").arg(id);
        QCOMPARE(consultar(QStringLiteral("SELECT valor_servico") + linha).toDouble(), taxa);
        QCOMPARE(consultar(QStringLiteral("SELECT valor_total") + linha).toDouble(), total);
    }

    void identificacaoVaziaViraNull() {
        TestEnvironment env;
        preparar(env);
        {
            Comanda comanda;
            comanda.apelido(3);
            comanda.identificacao(QString());
        }
        QCOMPARE(contar(QStringLiteral("mesa = 3 AND identificacao IS NULL")), 1);
        Comanda outra;
        outra.apelido(3);
        QCOMPARE(outra.identificacao(), QString());
        QCOMPARE(contar(QStringLiteral("1 = 1")), 1);
    }

    void cadaEscritaGravaALinha() {
        TestEnvironment env;
        preparar(env);
        Comanda comanda;
        comanda.apelido(6);
        comanda.ocupantes(4);
        comanda.bloqueada(true);
        comanda.cliente(2);
        comanda.status(3);
        QCOMPARE(contar(QStringLiteral("mesa = 6 AND ocupantes = 4 AND bloqueada = 1 AND id_cliente = 2 AND "
                                       "status = 3")),
                 1);
    }

    void idGrandeTransborda() {
        TestEnvironment env;
        preparar(env);
        abrirNoBanco(8, 1, 40000);
        Comanda comanda;
        try {
            comanda.apelido(8);
            QFAIL("the id fits no 16-bit integer");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, vbErr::Overflow);
        }
    }

    void outroTerminalMudouALinha() {
        TestEnvironment env;
        const QString conexao = preparar(env);
        Comanda comanda;
        comanda.apelido(5);
        executar(QStringLiteral("UPDATE Tb_Comandas SET ocupantes = 6 WHERE mesa = 5"),
                 secondTerminal(conexao));
        try {
            comanda.ocupantes(2);
            QFAIL("the row was changed since it was read");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, vbErr::RowNotLocated);
        }
        QCOMPARE(contar(QStringLiteral("mesa = 5 AND ocupantes = 6")), 1);
    }

    void fimDoObjetoFechaORecordset() {
        TestEnvironment env;
        preparar(env);
        comandaAtual = std::make_unique<Comanda>();
        comandaAtual->apelido(9);
        QVERIFY(Frm_Principal::instance().Ado_Mesas->Recordset().isOpen());
        comandaAtual.reset();
        QVERIFY(!Frm_Principal::instance().Ado_Mesas->Recordset().isOpen());
    }
};

ZARVEL_TEST(TestComanda)
#include "tst_comanda.moc"
