#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"
#include "table/rotinasGerais.h"

#include <QTest>
#include <limits>

namespace {
void abrirNoBanco(int id, int mesa, int status, int bloqueada, int colaborador) {
    executar(QStringLiteral(
                 "INSERT INTO Tb_Comandas (id_comanda, data_criacao, status, mesa, id_colaborador, "
                 "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao, bloqueada) "
                 "VALUES (%1, '2024-03-05 11:00:00', %2, %3, %4, 0, 0, 0, 1, '2024-03-05 11:00:00', %5)")
                 .arg(id)
                 .arg(status)
                 .arg(mesa)
                 .arg(colaborador)
                 .arg(bloqueada));
}

void incluirItem(int idComanda, int nItem, int status) {
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
                       "valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, "
                       "status, valor_total, id_comanda_origem) VALUES (%1, %2, 2, 'CERVEJA LATA', 1, 7, 0, "
                       "0, 1, '2024-03-05 11:10:00', %3, 7, %1)")
            .arg(idComanda)
            .arg(nItem)
            .arg(status));
}
} // namespace

class TestRotinasGerais : public QObject {
    Q_OBJECT

private slots:
    void tempoDecorrido_data() {
        QTest::addColumn<int>("segundos");
        QTest::addColumn<QString>("texto");
        QTest::newRow("agora") << 0 << QStringLiteral("00h:00m");
        QTest::newRow("30 s adiante") << -30 << QStringLiteral("-01h:59m");
        QTest::newRow("59:59") << 3599 << QStringLiteral("00h:59m");
        QTest::newRow("5 min") << 300 << QStringLiteral("00h:05m");
        QTest::newRow("12:30") << 12 * 3600 + 30 * 60 << QStringLiteral("12h:30m");
        QTest::newRow("123:04") << 123 * 3600 + 4 * 60 + 59 << QStringLiteral("123h:04m");
    }
    void tempoDecorrido() {
        QFETCH(int, segundos);
        QFETCH(QString, texto);
        TestEnvironment env;
        QCOMPARE(::tempoDecorrido(testMoment(-segundos)), texto);
    }

    void formataDecimal_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<int>("casas");
        QTest::addColumn<double>("divisor");
        QTest::addColumn<QString>("resultado");
        QTest::newRow("um dígito a mais")
            << QStringLiteral("1,0005") << 3 << 1000.0 << QStringLiteral("10,005");
        QTest::newRow("com milhar") << QStringLiteral("1.234,5678") << 3 << 1000.0
                                    << QStringLiteral("12.345,678");
        QTest::newRow("primeiro dígito")
            << QStringLiteral("0,0007") << 3 << 1000.0 << QStringLiteral("0,007");
        QTest::newRow("apagado") << QStringLiteral("0,00") << 2 << 100.0 << QStringLiteral("0,00");
        QTest::newRow("dinheiro") << QStringLiteral("12,345") << 2 << 100.0 << QStringLiteral("123,45");
        QTest::newRow("retrocesso") << QStringLiteral("1.234,5") << 2 << 100.0 << QStringLiteral("123,45");
    }
    void formataDecimal() {
        QFETCH(QString, texto);
        QFETCH(int, casas);
        QFETCH(double, divisor);
        QFETCH(QString, resultado);
        QCOMPARE(::formataDecimal(texto, qint16(casas), divisor), resultado);
    }

    void truncaDecimais_data() {
        QTest::addColumn<double>("valor");
        QTest::addColumn<double>("resultado");
        QTest::newRow("corta") << 12.349 << 12.34;
        QTest::newRow("negativo") << -12.349 << -12.34;
        QTest::newRow("taxa") << 3.333 << 3.33;
        QTest::newRow("exato") << 3.3 << 3.3;
        QTest::newRow("estouro") << std::numeric_limits<double>::max() << 0.0;
    }
    void truncaDecimais() {
        QFETCH(double, valor);
        QFETCH(double, resultado);
        QCOMPARE(::truncaDecimais(valor, 2), resultado);
    }

    void nomes() {
        TestEnvironment env;
        bancoDeTeste(env);
        QStringList comandos;
        setStatementObserver([&](const QString& sql) { comandos << sql; });
        QCOMPARE(nomeDoColaborador(0), QString());
        QCOMPARE(nomeDoCliente(0), QString());
        QVERIFY(comandos.isEmpty());
        setStatementObserver(nullptr);
        QCOMPARE(nomeDoColaborador(2), QStringLiteral("BRUNO"));
        QCOMPARE(nomeDoCliente(2), QStringLiteral("JOSÉ SOUZA"));
        try {
            nomeDoColaborador(99);
            QFAIL("no such staff member");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, vbErr::NoCurrentRecord);
        }
    }

    void comandaDaMesa() {
        TestEnvironment env;
        bancoDeTeste(env);
        abrirNoBanco(1, 1, 0, 0, 1); // closed
        abrirNoBanco(2, 2, 1, 0, 1);
        abrirNoBanco(3, 3, 3, 1, 1); // blocked
        abrirNoBanco(4, 4, 4, 0, 1);
        QCOMPARE(idComandaDaMesa(1), qint16(0));
        QCOMPARE(idComandaDaMesa(2), qint16(2));
        QCOMPARE(idComandaDaMesa(3), qint16(0));
        QCOMPARE(idComandaDaMesa(4), qint16(4));
        QCOMPARE(idComandaDaMesa(5), qint16(0));
    }

    void ultimoItem() {
        TestEnvironment env;
        bancoDeTeste(env);
        abrirNoBanco(1, 1, 1, 0, 1);
        abrirNoBanco(2, 2, 1, 0, 1);
        QCOMPARE(ultimoItemDaComanda(1), qint16(0));
        incluirItem(1, 1, 1);
        incluirItem(1, 2, 1);
        incluirItem(1, 3, 0); // excluded, still counts
        incluirItem(2, 9, 1);
        QCOMPARE(ultimoItemDaComanda(1), qint16(3));
    }

    void podeMovimentarMesa_data() {
        QTest::addColumn<int>("mesa");
        QTest::addColumn<bool>("pode");
        QTest::newRow("livre") << 1 << true;
        QTest::newRow("só fechada") << 2 << true;
        QTest::newRow("dele") << 3 << true;
        QTest::newRow("de outro") << 4 << false;
    }
    void podeMovimentarMesa() {
        QFETCH(int, mesa);
        QFETCH(bool, pode);
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 2;
        abrirNoBanco(1, 2, 0, 0, 1);
        abrirNoBanco(2, 3, 1, 0, 2);
        abrirNoBanco(3, 4, 2, 0, 1);
        QCOMPARE(::podeMovimentarMesa(qint16(mesa)), pode);
    }
};

ZARVEL_TEST(TestRotinasGerais)
#include "tst_rotinasGerais.moc"
