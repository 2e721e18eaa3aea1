#include "platform/Connection.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

// Every query the system sends, as written, with the criterion it filters the result by, on the
// embedded engine: the test back office with a tab at table 5 holding a live and an excluded item
// and a payment, and a closed tab at the same table.
class TestStatements : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        env = std::make_unique<TestEnvironment>();
        db = bancoDeTeste(*env);
        const int tab = abrirComanda(5, 1, 7.7);
        abrirComanda(5, 0);
        itemNoBanco(tab, 1, 7);
        itemNoBanco(tab, 2, 18.5, 0);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador < 3"));
        executar(QStringLiteral(
            "INSERT INTO Tb_Comandas_Recebimentos (id_comanda, id_colaborador, finalizadora, "
            "valor_recebimento, data, status) VALUES (1, 1, 'PIX', 5, '2024-03-05 11:30:00', 1)"));
    }
    void cleanupTestCase() { env.reset(); }

    void statement_data() {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("criterion"); // a Filter on the result, or none
        QTest::addColumn<int>("rows");
        QTest::addColumn<QVariant>("first"); // the first field of the first row, when it says something
        auto row = [](const char* name, const QByteArray& sql, const char* criterion, int rows,
                      QVariant first = {}) {
            QTest::newRow(name) << QString::fromUtf8(sql) << QString::fromUtf8(criterion) << rows << first;
        };
        const char* items = "SELECT * FROM Tb_Comandas_Itens WHERE ";
        const char* picker =
            "SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN TB_ESTOQUE E "
            "ON E.CODIGO = P.CODIGO";
        const auto q = [](const char* a, const char* b) { return QByteArray(a) + b; };
        row("settings", "SELECT * FROM Tb_Convendas", "", 1, QStringLiteral("BAR DO TESTE"));
        row("company", "SELECT * FROM Tb_Usuario", "", 1, QStringLiteral("12.345.678/0001-90"));
        row("all tabs", "SELECT * FROM Tb_Comandas", "", 2, 1);
        row("load tab", "SELECT * FROM Tb_Comandas WHERE mesa = 5 AND status <> 0", "", 1, 1);
        row("map search", "SELECT * FROM Tb_Comandas WHERE status <> 0", "mesa =5", 1, 1);
        row("tabs in a state", "SELECT * FROM Tb_Comandas WHERE status = 1", "", 1, 1);
        row("tab of a table",
            "SELECT id_comanda FROM Tb_Comandas WHERE (mesa = '5') AND (status <> 0) AND (bloqueada = 0)", "",
            1, 1);
        row("bill", "SELECT valor_total FROM Tb_Comandas WHERE (id_comanda = 1) AND (status <> 0)", "", 1,
            7.7);
        row("highest table", "SELECT MAX(mesa) FROM Tb_Comandas WHERE status <> 0", "", 1, 5);
        row("tab total", "SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = 1 AND status = 1",
            "", 1, 7.0);
        row("last item", "SELECT MAX(n_item) FROM Tb_Comandas_Itens WHERE id_comanda = 1", "", 1, 2);
        row("transfer items", q(items, "id_comanda = 1"), "", 2, 1);
        row("table movable", "SELECT * FROM Tb_Comandas WHERE (mesa = 5) AND (status <> 0)", "", 1, 1);
        row("slip items", q(items, "(id_comanda = 1) AND (status = 1)"), "", 1, 1);
        row("items, STATUS", q(items, "(id_comanda = 1) AND (STATUS = 1)"), "", 1, 1);
        row("item list", q(items, "(id_comanda = 1) AND (status = 1) ORDER BY n_item"), "", 1, 1);
        row("one item", q(items, "(id_comanda = 1) AND (id_comanda_item = 2)"), "", 1, 2);
        row("reprint", q(items, "(id_comanda = 1) and (id_comanda_item = 1) and (status = 1)"), "", 1, 1);
        row("tickets", q(items, "(id_comanda = 1) AND (status = 1) AND (impresso = 0 or reimpressao = 1)"),
            "id_comanda_item = 1", 1, 1);
        row("products by code", picker, "CODIGO = '3'", 1, 3);
        row("products by name", picker, "DESCRICAO LIKE '%LATA%'", 1, 2);
        row("product of an item", "SELECT * FROM PRODUTOS WHERE CODIGO = '2'", "", 1, 2);
        row("department", "SELECT * FROM Tb_Departamento WHERE ID_Departamento = 2", "", 1, 2);
        row("customers", "SELECT ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO FROM CLIENTES",
            "NOME LIKE 'MARIA%'", 1, 1);
        row("customer name", "SELECT * FROM CLIENTES WHERE id_codigo = 2", "", 1, 2);
        row("staff name", "SELECT * FROM Tb_Colaborador WHERE id_colaborador = 2", "", 1, 2);
        row("staff", "SELECT * FROM Tb_Colaborador WHERE bZarvel = 1", "", 2, 1);
        row("login", "SELECT * FROM Tb_Colaborador WHERE bZarvel = 1", "Nome = 'BRUNO'", 1, 2);
        row("paid",
            "SELECT sum(valor_recebimento) FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND (status "
            "= 1)",
            "", 1, 5.0);
        row("slip paid",
            "SELECT SUM(valor_recebimento) FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND (status "
            "= 1)",
            "", 1, 5.0);
        row("payments", "SELECT * FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND (status = 1)", "",
            1, 1);
    }
    void statement() {
        QFETCH(QString, sql);
        QFETCH(QString, criterion);
        QFETCH(int, rows);
        QFETCH(QVariant, first);
        Recordset rs = executeStatement(db, sql);
        if (!criterion.isEmpty())
            rs.setFilter(criterion);
        QCOMPARE(rs.RecordCount(), rows);
        if (first.typeId() == QMetaType::Double)
            QCOMPARE(rs.Fields(0).Value().toDouble(), first.toDouble());
        else if (first.isValid())
            QCOMPARE(rs.Fields(0).Value().toString(), first.toString());
    }

private:
    std::unique_ptr<TestEnvironment> env;
    QString db;
};

ZARVEL_TEST(TestStatements)
#include "tst_statements.moc"
