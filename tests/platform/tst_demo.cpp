#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "platform/Connection.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QSet>
#include <QTest>

// The demo database is what a new user first logs into: staff who can log in with distinct
// passwords and rights from all to none, products the picker lists and the printers can route,
// and settings that let the system start.
class TestDemo : public QObject {
    Q_OBJECT

private slots:
    void demoDatabase() {
        TestEnvironment env;
        const QString db = adoConnectionString(env.scratchPath(QStringLiteral("demo.db")));
        createDemoDatabase(db);
        Connection connection;
        connection.Open(db);
        const auto count = [&](const char* sql) {
            return connection.Execute(QString::fromUtf8(sql)).Fields(0).Value().toInt();
        };

        Recordset staff = connection.Execute(
            QStringLiteral("SELECT Senha, bTransferirItem + bTransferirMesa + bReimprimir + bConfiguracoes + "
                           "bTaxa + bCancelar + bExcluir FROM Tb_Colaborador WHERE bZarvel = 1"));
        QSet<QString> passwords;
        QSet<int> rights;
        for (; !staff.Eof(); staff.MoveNext()) {
            passwords << staff.Fields(0).Value().toString();
            rights << staff.Fields(1).Value().toInt();
        }
        QCOMPARE(passwords.size(), staff.RecordCount());
        QVERIFY(rights.contains(7) && rights.contains(0));

        QVERIFY(count("SELECT COUNT(*) FROM PRODUTOS P INNER JOIN TB_ESTOQUE E ON E.CODIGO = P.CODIGO") > 0);
        QCOMPARE(count("SELECT COUNT(*) FROM PRODUTOS P INNER JOIN Tb_Departamento D ON "
                       "D.ID_Departamento = P.DEP"),
                 count("SELECT COUNT(*) FROM PRODUTOS"));
        QCOMPARE(count("SELECT COUNT(*) FROM Tb_Departamento WHERE Impressora IN ('COZINHA', 'BAR', 'COPA')"),
                 count("SELECT COUNT(*) FROM Tb_Departamento"));
        QCOMPARE(count("SELECT COUNT(*) FROM Tb_Convendas WHERE iQuantidadeMesa BETWEEN 1 AND 30"), 1);
        QCOMPARE(count("SELECT conAcesso FROM Tb_Usuario"), 1);
    }
};

ZARVEL_TEST(TestDemo)
#include "tst_demo.moc"
