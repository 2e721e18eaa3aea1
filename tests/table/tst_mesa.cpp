#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"

#include <QTest>

class TestMesa : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*m_env);
        idColaborador = 2;
    }
    void cleanup() { m_env.reset(); }

    void textos() {
        // A tab stamped by a terminal whose clock runs 30 s ahead.
        QCOMPARE(tempoDecorrido(testMoment(30)), QStringLiteral("-01h:59m"));
        // Each key moves the digits one place: a digit typed at the end, or one taken off.
        QCOMPARE(formataDecimal(QStringLiteral("1.234,5678"), 3, 1000), QStringLiteral("12.345,678"));
        QCOMPARE(formataDecimal(QStringLiteral("1.234,5"), 2, 100), QStringLiteral("123,45"));
    }

    void consultasDaMesa() {
        const int aberta = abrirComanda(2, 1, 0, QDateTime(), 2); // BRUNO's
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = 1 WHERE id_comanda = %1")
                     .arg(abrirComanda(3, 3, 0, QDateTime(), 2)));
        abrirComanda(4, 4, 0, QDateTime(), 1); // ANA's
        itemNoBanco(aberta, 1, 7);
        itemNoBanco(aberta, 2, 7, 0); // excluded, still counts
        QCOMPARE(idComandaDaMesa(1), qint16(0));
        QCOMPARE(idComandaDaMesa(2), qint16(aberta));
        QCOMPARE(idComandaDaMesa(3), qint16(0));
        QCOMPARE(ultimoItemDaComanda(aberta), qint16(2));
        QVERIFY(podeMovimentarMesa(2));
        QVERIFY(!podeMovimentarMesa(4));
        QCOMPARE(nomeDoColaborador(2), QStringLiteral("BRUNO"));
        QCOMPARE(nomeDoCliente(2), QStringLiteral("JOSÉ SOUZA"));
    }

    // The screen holds the tab in edition (2) and gives it back on Escape: open (1), or in
    // conference (3) when it is blocked.
    void frmMesaEscapeDevolve_data() {
        QTest::addColumn<int>("bloqueada");
        QTest::addColumn<int>("depois");
        QTest::newRow("livre") << 0 << 1;
        QTest::newRow("bloqueada") << 1 << 3;
    }
    void frmMesaEscapeDevolve() {
        QFETCH(int, bloqueada);
        QFETCH(int, depois);
        comandaAtual = std::make_unique<Comanda>();
        comandaAtual->apelido(12);
        executar(QStringLiteral("UPDATE Tb_Comandas SET status = 3, bloqueada = %1").arg(bloqueada));
        comandaAtual->carregar();
        const QString status = QStringLiteral("SELECT status FROM Tb_Comandas WHERE mesa = 12");
        QVariant durante;
        onNextModal<Frm_Mesa>([&](Frm_Mesa* f) {
            durante = consultar(status);
            QTest::keyClick(f, Qt::Key_Escape);
        });
        Frm_Mesa::instance().ShowModal();
        QCOMPARE(durante.toInt(), 2);
        QCOMPARE(consultar(status).toInt(), depois);
        QCOMPARE(comandaAtual->status(), qint16(depois));
        QVERIFY(!Form::isLoaded<Frm_Mesa>());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestMesa)
#include "tst_mesa.moc"
