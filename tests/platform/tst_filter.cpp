#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
template <class F> int errorOf(F action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

// The values of one column over the visible rows, from the first.
QStringList column(Recordset& rs, const QString& name) {
    QStringList values;
    if (rs.RecordCount() == 0)
        return values;
    rs.MoveFirst();
    while (!rs.Eof()) {
        values << rs.Fields(name).Value().toString();
        rs.MoveNext();
    }
    return values;
}
} // namespace

class TestFilter : public QObject {
    Q_OBJECT

private slots:
    void init() {
        env = std::make_unique<TestEnvironment>();
        db = bancoDeTeste(*env);
    }
    void cleanup() { env.reset(); }

    // Products: 1 X-SALADA 18,50 dep 1; 2 CERVEJA LATA 7,00 dep 2; 3 PORÇÃO DE FRITAS 25,90 dep 1;
    // 10 ÁGUA MINERAL 4,50 dep 2.
    void filter_data() {
        QTest::addColumn<QString>("criteria");
        QTest::addColumn<QString>("codes"); // the codes left visible, or the error raised
        QTest::newRow("numeric field, quoted number") << "CODIGO = '2'"
                                                      << "2";
        QTest::newRow("numeric field, number") << "CODIGO = 2"
                                               << "2";
        QTest::newRow("whole code only") << "CODIGO = '1'"
                                         << "1";
        QTest::newRow("no match") << "CODIGO = '99'"
                                  << "";
        QTest::newRow("starts with") << "DESCRICAO LIKE 'CER%'"
                                     << "2";
        QTest::newRow("starts with, star, any case") << "DESCRICAO LIKE 'cer*'"
                                                     << "2";
        QTest::newRow("contains") << "DESCRICAO LIKE '%FRITAS%'"
                                  << "3";
        QTest::newRow("contains an accented letter") << "DESCRICAO LIKE '%Ç%'"
                                                     << "3";
        QTest::newRow("LIKE without wildcard") << "DESCRICAO LIKE 'x-salada'"
                                               << "1";
        QTest::newRow("equal, any case") << "DESCRICAO = 'água mineral'"
                                         << "10";
        QTest::newRow("AND") << "PRECO > 10 AND DEP = 1"
                             << "1 3";
        QTest::newRow("OR") << "PRECO < 5 OR CODIGO = 2"
                            << "2 10";
        QTest::newRow("AND before OR") << "CODIGO = 10 OR CODIGO = 1 AND PRECO > 20"
                                       << "10";
        QTest::newRow("parentheses") << "(CODIGO = 1 OR CODIGO = 2) AND PRECO > 10"
                                     << "1";
        QTest::newRow("bracketed field, lower-case keywords") << "[PRECO] >= 18.5 and dep=1"
                                                              << "1 3";
        QTest::newRow("less or equal") << "PRECO <= 7"
                                       << "2 10";
        QTest::newRow("different") << "PRECO <> 7"
                                   << "1 3 10";
        QTest::newRow("quote doubled") << "DESCRICAO <> 'D''ÁVILA'"
                                       << "1 2 3 10";
        QTest::newRow("lone apostrophe") << "DESCRICAO = 'D'ÁVILA'"
                                         << "3001";
        QTest::newRow("wildcard at the start only") << "DESCRICAO LIKE '%SALADA'"
                                                    << "3001";
        QTest::newRow("wildcard in the middle") << "DESCRICAO LIKE 'X%SALADA'"
                                                << "3001";
        QTest::newRow("no value") << "CODIGO = "
                                  << "3001";
        QTest::newRow("no operator") << "CODIGO 1"
                                     << "3001";
        QTest::newRow("dangling AND") << "CODIGO = 1 AND"
                                      << "3001";
        QTest::newRow("unclosed quote") << "DESCRICAO = 'X-SALADA"
                                        << "3001";
        QTest::newRow("text against a number") << "CODIGO = 'X'"
                                               << "3001";
        QTest::newRow("unknown field") << "NADA = 1"
                                       << "3265";
    }
    void filter() {
        QFETCH(QString, criteria);
        QFETCH(QString, codes);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM PRODUTOS"));
        rs.setFilter(QStringLiteral("DEP = 1"));
        const int error = errorOf([&] { rs.setFilter(criteria); });
        if (codes.toInt() > 1000) {
            QCOMPARE(error, codes.toInt());
            // A refused filter leaves the one before in force.
            QCOMPARE(rs.Filter(), QStringLiteral("DEP = 1"));
            QCOMPARE(rs.RecordCount(), 2);
            return;
        }
        QCOMPARE(error, 0);
        QCOMPARE(rs.Filter(), criteria);
        const QStringList expected = codes.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QCOMPARE(rs.RecordCount(), expected.size());
        QCOMPARE(rs.Eof(), expected.isEmpty());
        QCOMPARE(rs.Bof(), expected.isEmpty());
        QCOMPARE(column(rs, QStringLiteral("CODIGO")), expected);
        rs.setFilter(QString());
        QCOMPARE(rs.RecordCount(), 4);
        QCOMPARE(rs.Fields(QStringLiteral("CODIGO")).Value().toInt(), 1);
    }

    void nullNeverMatches() {
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM CLIENTES")); // JOSÉ has no phone
        rs.setFilter(QStringLiteral("TELEFONE <> 'X'"));
        QCOMPARE(column(rs, QStringLiteral("NOME")), QStringList({"MARIA SILVA"}));
    }

    void find_data() {
        QTest::addColumn<QString>("criteria");
        QTest::addColumn<int>("from"); // position of the current row before the search
        QTest::addColumn<int>("skip");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("found"); // Nome of the row found, EOF, BOF or the error
        QTest::newRow("first row") << "Nome = 'ANA'" << 0 << 0 << int(adSearchForward) << "ANA";
        QTest::newRow("later row") << "Nome = 'BRUNO'" << 0 << 0 << int(adSearchForward) << "BRUNO";
        QTest::newRow("the current row counts")
            << "Nome = 'BRUNO'" << 1 << 0 << int(adSearchForward) << "BRUNO";
        QTest::newRow("skipped") << "Nome = 'BRUNO'" << 1 << 1 << int(adSearchForward) << "EOF";
        QTest::newRow("behind the current row") << "Nome = 'ANA'" << 1 << 0 << int(adSearchForward) << "EOF";
        QTest::newRow("backward") << "Nome = 'ANA'" << 2 << 0 << int(adSearchBackward) << "ANA";
        QTest::newRow("backward, not found")
            << "Nome = 'D''ÁVILA'" << 1 << 0 << int(adSearchBackward) << "BOF";
        QTest::newRow("no blank after =")
            << "ID_Colaborador =3" << 0 << 0 << int(adSearchForward) << "D'ÁVILA";
        QTest::newRow("LIKE") << "Nome LIKE 'BR%'" << 0 << 0 << int(adSearchForward) << "BRUNO";
        QTest::newRow("name with an apostrophe")
            << "Nome = 'D'ÁVILA'" << 0 << 0 << int(adSearchForward) << "3001";
        QTest::newRow("two columns") << "Nome = 'ANA' AND Senha = '123'" << 0 << 0 << int(adSearchForward)
                                     << "3001";
        QTest::newRow("from EOF") << "Nome = 'ANA'" << 3 << 0 << int(adSearchForward) << "3021";
    }
    void find() {
        QFETCH(QString, criteria);
        QFETCH(int, from);
        QFETCH(int, skip);
        QFETCH(int, direction);
        QFETCH(QString, found);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Colaborador"));
        for (int i = 0; i < from; ++i)
            rs.MoveNext();
        const int error = errorOf([&] { rs.Find(criteria, skip, SearchDirection(direction)); });
        if (found.toInt() > 1000)
            QCOMPARE(error, found.toInt());
        else if (found == QLatin1String("EOF"))
            QVERIFY(rs.Eof() && !rs.Bof());
        else if (found == QLatin1String("BOF"))
            QVERIFY(rs.Bof() && !rs.Eof());
        else
            QCOMPARE(rs.Fields(QStringLiteral("Nome")).Value().toString(), found);
    }

    void bookmarks() {
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM PRODUTOS"));
        rs.setFilter(QStringLiteral("DEP = 2"));
        rs.MoveLast();
        const QVariant water = rs.Bookmark();
        rs.setFilter(QString());
        QCOMPARE(rs.Fields(QStringLiteral("CODIGO")).Value().toInt(), 1);
        rs.setBookmark(water);
        QCOMPARE(rs.Fields(QStringLiteral("CODIGO")).Value().toInt(), 10);
        rs.MoveFirst();
        const QVariant salad = rs.Bookmark();
        rs.setFilter(QStringLiteral("DEP = 2"));
        QCOMPARE(errorOf([&] { rs.setBookmark(salad); }), vbErr::BadArguments); // filtered out
        rs.MoveLast();
        rs.MoveNext();
        QCOMPARE(errorOf([&] { rs.Bookmark(); }), vbErr::NoCurrentRecord);
    }

    // Marking an item printed: the change is made on the current row, the filter narrows the copy
    // to that row, and Update stores it.
    void changeThenFilterThenUpdate() {
        Connection connection;
        connection.Open(db);
        connection.Execute(
            QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, servico, "
                           "valor_servico, valor_total, data_ultima_movimentacao) VALUES "
                           "('2024-03-05 11:00:00', 2, 1, 1, 0, 0, 0, '2024-03-05 11:00:00')"));
        for (int n = 1; n <= 2; ++n)
            connection.Execute(
                QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, "
                               "quantidade, valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, "
                               "data_inclusao, status, valor_total, id_comanda_origem, reimpressao) "
                               "VALUES (1, %1, 2, 'CERVEJA LATA', 1, 7, 0, 0, 1, '2024-03-05 11:10:00', "
                               "1, 7, 1, 1)")
                    .arg(n));
        Recordset rs =
            executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND "
                                                "(status = 1) AND (impresso = 0 or reimpressao = 1)"));
        QCOMPARE(rs.RecordCount(), 2);
        const int id = rs.Fields(QStringLiteral("id_comanda_item")).Value().toInt();
        rs.Fields(QStringLiteral("impresso")).setValue(1);
        rs.Fields(QStringLiteral("reimpressao")).setValue(0);
        rs.setFilter(QStringLiteral("id_comanda_item = ") + QString::number(id));
        rs.Update();
        QCOMPARE(rs.RecordCount(), 1);
        Recordset pending =
            executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) "
                                                "AND (status = 1) AND (impresso = 0 or reimpressao = 1)"));
        QCOMPARE(pending.RecordCount(), 1);
        QVERIFY(pending.Fields(QStringLiteral("id_comanda_item")).Value().toInt() != id);
    }

private:
    std::unique_ptr<TestEnvironment> env;
    QString db;
};

ZARVEL_TEST(TestFilter)
#include "tst_filter.moc"
