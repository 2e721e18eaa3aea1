#include "platform/Connection.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

// Every query and criterion the system sends, as written, on the embedded engine: a tab at table 5
// with a live and an excluded item and one payment, on the test back office.
class TestStatements : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        env = std::make_unique<TestEnvironment>();
        db = bancoDeTeste(*env);
        Connection connection;
        connection.Open(db);
        const char* setup[] = {
            "UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador < 3",
            "INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, servico, valor_servico, "
            "valor_total, "
            "data_ultima_movimentacao) VALUES ('2024-03-05 11:00:00', 1, 5, 1, 1, 0.7, 7.7, '2024-03-05 "
            "11:00:00')",
            "INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, servico, valor_servico, "
            "valor_total, "
            "data_ultima_movimentacao) VALUES ('2024-03-04 20:00:00', 0, 5, 2, 0, 0, 0, '2024-03-04 "
            "21:00:00')",
            "INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
            "valor_unitario, "
            "valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, status, valor_total, "
            "id_comanda_origem) "
            "VALUES (1, 1, 2, 'CERVEJA LATA', 1, 7, 0, 0, 1, '2024-03-05 11:10:00', 1, 7, 1)",
            "INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
            "valor_unitario, "
            "valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, status, valor_total, "
            "id_comanda_origem, "
            "impresso, quem_excluiu, data_exclusao) VALUES (1, 2, 1, 'X-SALADA', 1, 18.5, 0, 0, 1, "
            "'2024-03-05 11:12:00', 0, 18.5, 1, 1, 2, '2024-03-05 11:20:00')",
            "INSERT INTO Tb_Comandas_Recebimentos (id_comanda, id_colaborador, finalizadora, "
            "valor_recebimento, data, "
            "status) VALUES (1, 1, 'PIX', 5, '2024-03-05 11:30:00', 1)",
        };
        for (const char* statement : setup)
            connection.Execute(QString::fromUtf8(statement));
    }
    void cleanupTestCase() { env.reset(); }

    void statement_data() {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("criterion"); // a Filter on the result, or none
        QTest::addColumn<int>("rows");
        QTest::addColumn<QVariant>("first"); // the first field of the first row, when it says something
        auto row = [](const char* name, const char* sql, const char* criterion, int rows,
                      QVariant first = {}) {
            QTest::newRow(name) << QString::fromUtf8(sql) << QString::fromUtf8(criterion) << rows << first;
        };
        row("settings", "SELECT * FROM Tb_Convendas", "", 1, QStringLiteral("BAR DO TESTE"));
        row("company", "SELECT * FROM Tb_Usuario", "", 1, QStringLiteral("12.345.678/0001-90"));
        row("load tab", "SELECT * FROM Tb_Comandas WHERE mesa = 5 AND status <> 0", "", 1, 1);
        row("all tabs", "SELECT * FROM Tb_Comandas", "", 2, 1);
        row("tab total", "SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = 1 AND status = 1",
            "", 1, 7.0);
        row("open tabs", "SELECT * FROM Tb_Comandas WHERE status <> 0", "", 1, 1);
        row("tabs in a state", "SELECT * FROM Tb_Comandas WHERE status = 1", "", 1, 1);
        row("map search", "SELECT * FROM Tb_Comandas WHERE status <> 0", "mesa =5", 1, 1);
        row("reprint",
            "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) and (id_comanda_item = 1) and (status = "
            "1)",
            "", 1, 1);
        row("products",
            "SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN TB_ESTOQUE E ON "
            "E.CODIGO = P.CODIGO",
            "", 3);
        row("product by code",
            "SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN TB_ESTOQUE E "
            "ON E.CODIGO = P.CODIGO",
            "CODIGO = '3'", 1, 3);
        row("product contains",
            "SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN "
            "TB_ESTOQUE E ON E.CODIGO = P.CODIGO",
            "DESCRICAO LIKE '%LATA%'", 1, 2);
        row("product starts",
            "SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN "
            "TB_ESTOQUE E ON E.CODIGO = P.CODIGO",
            "DESCRICAO LIKE 'POR%'", 1, 3);
        row("customers", "SELECT ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO FROM CLIENTES", "", 2, 1);
        row("customer contains", "SELECT ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO FROM CLIENTES",
            "NOME LIKE '%SOUZA%'", 1, 2);
        row("customer starts", "SELECT ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO FROM CLIENTES",
            "NOME LIKE 'MARIA%'", 1, 1);
        row("table movable", "SELECT * FROM Tb_Comandas WHERE (mesa = 5) AND (status <> 0)", "", 1, 1);
        row("staff name", "SELECT * FROM Tb_Colaborador WHERE id_colaborador = 2", "", 1, 2);
        row("customer name", "SELECT * FROM CLIENTES WHERE id_codigo = 2", "", 1, 2);
        row("tab of a table",
            "SELECT id_comanda FROM Tb_Comandas WHERE (mesa = '5') AND (status <> 0) AND (bloqueada = 0)", "",
            1, 1);
        row("last item", "SELECT MAX(n_item) FROM Tb_Comandas_Itens WHERE id_comanda = 1", "", 1, 2);
        row("product of an item", "SELECT * FROM PRODUTOS WHERE CODIGO = '2'", "", 1, 2);
        row("department", "SELECT * FROM Tb_Departamento WHERE ID_Departamento = 2", "", 1, 2);
        row("slip paid",
            "SELECT sum(valor_recebimento) FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND "
            "(status = 1)",
            "", 1, 5.0);
        row("items, STATUS", "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (STATUS = 1)", "", 1,
            1);
        row("one item", "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (id_comanda_item = 2)",
            "", 1, 2);
        row("item list",
            "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (status = 1) ORDER BY n_item", "", 1,
            1);
        row("pending tickets",
            "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (status = 1) AND (impresso = 0 "
            "or reimpressao = 1)",
            "", 1, 1);
        row("ticket row",
            "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (status = 1) AND (impresso = 0 "
            "or reimpressao = 1)",
            "id_comanda_item = 1", 1, 1);
        row("slip items", "SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (status = 1)", "", 1,
            1);
        row("transfer items", "SELECT * FROM Tb_Comandas_Itens WHERE id_comanda = 1", "", 2, 1);
        row("paid",
            "SELECT SUM(valor_recebimento) FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND (status "
            "= 1)",
            "", 1, 5.0);
        row("bill", "SELECT valor_total FROM Tb_Comandas WHERE (id_comanda = 1) AND (status <> 0)", "", 1,
            7.7);
        row("payments", "SELECT * FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 1) AND (status = 1)", "",
            1, 1);
        row("staff", "SELECT * FROM Tb_Colaborador WHERE bZarvel = 1", "", 2, 1);
        row("login", "SELECT * FROM Tb_Colaborador WHERE bZarvel = 1", "Nome = 'BRUNO'", 1, 2);
        row("highest table", "SELECT MAX(mesa) FROM Tb_Comandas WHERE status <> 0", "", 1, 5);
    }
    void statement() {
        QFETCH(QString, sql);
        QFETCH(QString, criterion);
        QFETCH(int, rows);
        QFETCH(QVariant, first);
        Connection connection;
        connection.Open(db);
        Recordset rs = connection.Execute(sql);
        if (!criterion.isEmpty())
            rs.setFilter(criterion);
        QCOMPARE(rs.RecordCount(), rows);
        if (first.isValid()) {
            if (first.typeId() == QMetaType::Double)
                QCOMPARE(rs.Fields(0).Value().toDouble(), first.toDouble());
            else
                QCOMPARE(rs.Fields(0).Value().toString(), first.toString());
        }
    }

private:
    std::unique_ptr<TestEnvironment> env;
    QString db;
};

ZARVEL_TEST(TestStatements)
#include "tst_statements.moc"
