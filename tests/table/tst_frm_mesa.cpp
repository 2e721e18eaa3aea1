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
    void abertaEmEdicaoEscapeDevolve() {
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 1;
        comandaAtual = std::make_unique<Comanda>();
        comandaAtual->apelido(12);
        QVariant durante;
        onNextModal<Frm_Mesa>([&](Frm_Mesa* f) {
            durante = consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE mesa = 12"));
            QTest::keyClick(f, Qt::Key_Escape);
        });
        Frm_Mesa::instance().ShowModal();
        QCOMPARE(durante.toInt(), 2);
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE mesa = 12")).toInt(), 1);
        QCOMPARE(comandaAtual->status(), qint16(1));
        QVERIFY(!Form::isLoaded<Frm_Mesa>());
    }
};

ZARVEL_TEST(TestFrmMesa)
#include "tst_frm_mesa.moc"
