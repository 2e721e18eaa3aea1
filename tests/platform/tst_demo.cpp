#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "platform/Connection.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QSet>
#include <QTest>

// The demo database is what a new user first logs into: it must hold staff who can log in with
// distinct passwords and rights from all to none, products the picker lists, and the settings.
class TestDemo : public QObject {
    Q_OBJECT

private slots:
    void demoDatabase() {
        TestEnvironment env;
        const QString db = adoConnectionString(env.scratchPath(QStringLiteral("demo.db")));
        createDemoDatabase(db);
        Connection connection;
        connection.Open(db);

        Recordset staff =
            connection.Execute(QStringLiteral("SELECT * FROM Tb_Colaborador WHERE bZarvel = 1"));
        QCOMPARE(staff.RecordCount(), 4);
        QSet<QString> passwords;
        QList<int> rights;
        const QStringList columns = {"bTransferirItem", "bTransferirMesa", "bReimprimir", "bConfiguracoes",
                                     "bTaxa",           "bCancelar",       "bExcluir"};
        for (; !staff.Eof(); staff.MoveNext()) {
            passwords << staff.Fields(QStringLiteral("Senha")).Value().toString();
            int count = 0;
            for (const QString& column : columns)
                count += staff.Fields(column).Value().toBool() ? 1 : 0;
            rights << count;
        }
        QCOMPARE(passwords.size(), 4);
        QCOMPARE(rights.first(), 7);
        QCOMPARE(rights.last(), 0);

        Recordset picker =
            connection.Execute(QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM "
                                              "PRODUTOS P INNER JOIN TB_ESTOQUE E ON E.CODIGO = "
                                              "P.CODIGO"));
        QCOMPARE(picker.RecordCount(), 56);
        QCOMPARE(
            connection.Execute(QStringLiteral("SELECT COUNT(*) FROM PRODUTOS")).Fields(0).Value().toInt(),
            60);
        QCOMPARE(
            connection
                .Execute(QStringLiteral("SELECT COUNT(*) FROM PRODUTOS P INNER JOIN Tb_Departamento D ON "
                                        "D.ID_Departamento = P.DEP"))
                .Fields(0)
                .Value()
                .toInt(),
            60);

        Recordset settings = connection.Execute(QStringLiteral("SELECT * FROM Tb_Convendas"));
        QCOMPARE(settings.RecordCount(), 1);
        QCOMPARE(settings.Fields(QStringLiteral("Fantasia")).Value().toString(),
                 QStringLiteral("BAR DO PORTO"));
        QCOMPARE(settings.Fields(QStringLiteral("iQuantidadeMesa")).Value().toInt(), 20);
        QCOMPARE(settings.Fields(QStringLiteral("iTempoParaOcio")).Value().toInt(), 10);
        QCOMPARE(settings.Fields(QStringLiteral("iTaxa")).Value().toDouble(), 10.0);
        QCOMPARE(settings.Fields(QStringLiteral("bServico")).Value(), QVariant(true));
        QCOMPARE(settings.Fields(QStringLiteral("bImprimirItens")).Value(), QVariant(true));
        Recordset company = connection.Execute(QStringLiteral("SELECT * FROM Tb_Usuario"));
        QCOMPARE(company.Fields(QStringLiteral("conAcesso")).Value(), QVariant(true));
    }
};

ZARVEL_TEST(TestDemo)
#include "tst_demo.moc"
