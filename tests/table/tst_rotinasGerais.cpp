#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"
#include "table/rotinasGerais.h"

#include <QTest>
#include <limits>

class TestRotinasGerais : public QObject {
    Q_OBJECT

private slots:
    void tempoDecorrido_data() {
        QTest::addColumn<int>("segundos");
        QTest::addColumn<QString>("texto");
        QTest::newRow("30 s adiante") << -30 << QStringLiteral("-01h:59m");
        QTest::newRow("59:59") << 3599 << QStringLiteral("00h:59m");
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
        QTest::addColumn<QString>("resultado");
        QTest::newRow("um dígito a mais") << QStringLiteral("1,0005") << 3 << QStringLiteral("10,005");
        QTest::newRow("com milhar") << QStringLiteral("1.234,5678") << 3 << QStringLiteral("12.345,678");
        QTest::newRow("primeiro dígito") << QStringLiteral("0,0007") << 3 << QStringLiteral("0,007");
        QTest::newRow("apagado") << QStringLiteral("0,00") << 2 << QStringLiteral("0,00");
        QTest::newRow("retrocesso") << QStringLiteral("1.234,5") << 2 << QStringLiteral("123,45");
    }
    void formataDecimal() {
        QFETCH(QString, texto);
        QFETCH(int, casas);
        QFETCH(QString, resultado);
        QCOMPARE(::formataDecimal(texto, qint16(casas), casas == 3 ? 1000 : 100), resultado);
    }

    void truncaDecimais_data() {
        QTest::addColumn<double>("valor");
        QTest::addColumn<double>("resultado");
        QTest::newRow("corta") << 12.349 << 12.34;
        QTest::newRow("negativo") << -12.349 << -12.34;
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

    void consultasDaMesa() {
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 2;
        abrirComanda(1, 0, 0, QDateTime(), 1);                    // closed: the table is free
        const int aberta = abrirComanda(2, 1, 0, QDateTime(), 2); // BRUNO's
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = 1 WHERE id_comanda = %1")
                     .arg(abrirComanda(3, 3, 0, QDateTime(), 2)));
        const int alheia = abrirComanda(4, 4, 0, QDateTime(), 1); // ANA's
        itemNoBanco(aberta, 1, 7);
        itemNoBanco(aberta, 2, 7, 0); // excluded, still counts
        itemNoBanco(alheia, 9, 7);

        QCOMPARE(idComandaDaMesa(1), qint16(0));
        QCOMPARE(idComandaDaMesa(2), qint16(aberta));
        QCOMPARE(idComandaDaMesa(3), qint16(0));
        QCOMPARE(idComandaDaMesa(4), qint16(alheia));
        QCOMPARE(ultimoItemDaComanda(aberta), qint16(2));
        QCOMPARE(ultimoItemDaComanda(99), qint16(0));
        QVERIFY(podeMovimentarMesa(1));
        QVERIFY(podeMovimentarMesa(2));
        QVERIFY(podeMovimentarMesa(3));
        QVERIFY(!podeMovimentarMesa(4));
    }
};

ZARVEL_TEST(TestRotinasGerais)
#include "tst_rotinasGerais.moc"
