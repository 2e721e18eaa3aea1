#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QTest>

class TestFrmMesa : public QObject {
    Q_OBJECT

private slots:
    void abertaEmEdicaoEscapeDevolve_data() {
        QTest::addColumn<int>("bloqueada");
        QTest::addColumn<int>("depois");
        QTest::newRow("livre") << 0 << 1;
        QTest::newRow("bloqueada") << 1 << 3;
    }
    void abertaEmEdicaoEscapeDevolve() {
        QFETCH(int, bloqueada);
        QFETCH(int, depois);
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 1;
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
};

ZARVEL_TEST(TestFrmMesa)
#include "tst_frm_mesa.moc"
