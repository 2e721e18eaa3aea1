#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

// What only a PostgreSQL server shows: its catalogue after the upgrade, the copy's values and keys
// through its types, and its statement time-out. Runs in the suite's PostgreSQL pass only.
class TestPostgres : public QObject {
    Q_OBJECT

private slots:
    void init() {
        if (testServer().isEmpty())
            QSKIP("needs ZARVEL_TEST_POSTGRES");
        m_env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*m_env);
    }
    void cleanup() { m_env.reset(); }

    // The first start made every key; a second one only asks the catalogue, and says nothing.
    void upgradeOnceThenOnlyTests() {
        const QString chaves =
            consultar(
                "SELECT string_agg(left(constraint_type, 1) || ':' || constraint_name, ' ' ORDER BY "
                "constraint_type, constraint_name) FROM information_schema.table_constraints WHERE "
                "table_schema = current_schema() AND constraint_type IN ('PRIMARY KEY', 'FOREIGN KEY') AND "
                "table_name IN ('tb_comandas', 'tb_comandas_itens', 'tb_comandas_recebimentos', 'clientes', "
                "'tb_colaborador')")
                .toString();
        QCOMPARE(chaves,
                 "F:fk_tb_comandas_clientes F:fk_tb_comandas_itens_tb_colaborador "
                 "F:fk_tb_comandas_itens_tb_colaborador1 F:fk_tb_comandas_itens_tb_comandas "
                 "F:fk_tb_comandas_itens_tb_comandas1 F:fk_tb_comandas_recebimentos_tb_colaborador "
                 "F:fk_tb_comandas_recebimentos_tb_colaborador1 F:fk_tb_comandas_recebimentos_tb_comandas "
                 "F:fk_tb_comandas_tb_colaborador F:fk_tb_comandas_tb_colaborador1 P:pk_clientes "
                 "P:pk_tb_colaborador P:pk_tb_comandas P:pk_tb_comandas_itens P:pk_tb_comandas_recebimentos");
        QStringList enviados;
        setStatementObserver([&](const QString& sql) { enviados << sql; });
        atualizarBanco();
        setStatementObserver(nullptr);
        QVERIFY(boxes().isEmpty());
        QCOMPARE(enviados.size(), 24);
        QCOMPARE(enviados.filter("SELECT COUNT(*) FROM ").size(), 24);
        const QString indices = consultar("SELECT string_agg(indexname, ' ' ORDER BY indexname) FROM "
                                          "pg_indexes WHERE schemaname = current_schema() AND indexname "
                                          "LIKE 'ix_%'")
                                    .toString();
        QCOMPARE(indices, "ix_tb_comandas_abertas ix_tb_comandas_itens_id_comanda "
                          "ix_tb_comandas_recebimentos_id_comanda");
    }

    // A row made through the copy comes back with its identity and its values in the program's types,
    // and a copy that another terminal overtook can't write.
    void copyThroughTheServersTypes_data() {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("bit true") << "bloqueada" << QVariant(true);
        QTest::newRow("bit false") << "servico" << QVariant(false);
        QTest::newRow("datetime, milliseconds kept")
            << "data_ultima_movimentacao" << QVariant(QDateTime(QDate(2024, 3, 5), QTime(23, 59, 58, 250)));
        QTest::newRow("text with an apostrophe") << "identificacao" << QVariant(QStringLiteral("D'ÁVILA"));
        QTest::newRow("float") << "valor_total" << QVariant(1234.56);
    }
    void copyThroughTheServersTypes() {
        QFETCH(QString, column);
        QFETCH(QVariant, value);
        const int antes = abrirComanda(3, 1);
        Connection cn;
        cn.Open(conexaoLocal);
        Recordset rs = cn.Execute(QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 3"));
        rs.AddNew();
        const QVariantMap obrigatorias{{"data_criacao", testMoment()},
                                       {"data_ultima_movimentacao", testMoment()},
                                       {"status", 1},
                                       {"mesa", 3},
                                       {"id_colaborador", 2},
                                       {"servico", true},
                                       {"valor_servico", 0},
                                       {"valor_total", 0}};
        for (auto it = obrigatorias.cbegin(); it != obrigatorias.cend(); ++it)
            rs.Fields(it.key()).setValue(it.value());
        rs.Fields(column).setValue(value);
        rs.Update();
        QCOMPARE(rs.Fields(QStringLiteral("id_comanda")).Value().toInt(), antes + 1);
        QCOMPARE(rs.Fields(column).Value(), value);

        Recordset lido =
            cn.Execute(QStringLiteral("SELECT * FROM Tb_Comandas WHERE id_comanda = %1").arg(antes + 1));
        QCOMPARE(lido.Fields(column).Value(), value);
        QCOMPARE(lido.Fields(column).Value().typeId(), value.typeId());

        executar(
            QStringLiteral("UPDATE Tb_Comandas SET %1 = %1 WHERE id_comanda = %2; UPDATE Tb_Comandas SET "
                           "status = 2 WHERE id_comanda = %2")
                .arg(column)
                .arg(antes + 1),
            secondTerminal(conexaoLocal));
        rs.Fields(QStringLiteral("status")).setValue(3);
        QCOMPARE(raisedBy([&] { rs.Update(); }).Number, vbErr::RowNotLocated);
        lido.Fields(QStringLiteral("ocupantes")).setValue(4);
        QCOMPARE(raisedBy([&] { lido.Update(); }).Number, 0);
    }

    // A statement past the command time-out is cancelled as a time-out; the connection serves the next.
    void statementTimeout() {
        Connection cn;
        cn.CommandTimeout = 1;
        cn.Open(conexaoLocal);
        const RuntimeError erro = raisedBy([&] { cn.Execute(QStringLiteral("SELECT pg_sleep(3)")); });
        QCOMPARE(erro.Number, vbErr::QueryTimeout);
        QCOMPARE(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas")).Fields(0).Value().toInt(), 0);
        cn.CommandTimeout = 0; // no limit, as in ADO
        QCOMPARE(raisedBy([&] { cn.Execute(QStringLiteral("SELECT pg_sleep(1.2)")); }).Number, 0);
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestPostgres)
#include "tst_postgres.moc"
