#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/RecordsetData.h"
#include "platform/RuntimeError.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QTest>

namespace {
// The values of one column over the visible rows, from the first.
QStringList column(Recordset& rs, const QString& name) {
    QStringList values;
    if (rs.RecordCount() == 0)
        return values;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        values << rs.Fields(name).Value().toString();
    return values;
}
// Runs a script on a copy of the staff table and returns what each step saw, so that two ways of
// reading the same statement can be compared. Steps, separated by "; ": first, next, prev, last,
// count, eof, bof, pos, goto N, at N (the name at position N), name, find CRIT, findback CRIT,
// skip CRIT (forward from the row after), filter CRIT, mark, back (to the mark), add ID NAME, set
// NAME, update, other SQL (another terminal writes), self SQL (this terminal writes), drop (the
// pooled connections close). A step that raises shows "!" and the error's number.
QString trace(const QString& connectionString, const QString& script) {
    Recordset rs = executeStatement(connectionString, QStringLiteral("SELECT * FROM Tb_Colaborador"));
    const auto name = [&rs] { return rs.Fields(QStringLiteral("Nome")).Value().toString(); };
    QVariant mark;
    QStringList seen;
    for (const QString& step : script.split(QStringLiteral("; "))) {
        const QString op = step.section(QLatin1Char(' '), 0, 0);
        const QString arg = step.section(QLatin1Char(' '), 1);
        QString out;
        const RuntimeError error = raisedBy([&] {
            const QHash<QString, std::function<void()>> steps = {
                {"first", [&] { rs.MoveFirst(); }},
                {"next", [&] { rs.MoveNext(); }},
                {"prev", [&] { rs.MovePrevious(); }},
                {"last", [&] { rs.MoveLast(); }},
                {"count", [&] { out = QString::number(rs.RecordCount()); }},
                {"eof", [&] { out = rs.Eof() ? "T" : "F"; }},
                {"bof", [&] { out = rs.Bof() ? "T" : "F"; }},
                {"pos", [&] { out = QString::number(rs.AbsolutePosition()); }},
                {"goto", [&] { rs.setAbsolutePosition(arg.toInt()); }},
                {"at", [&] { out = rs.valueAt(arg.toInt(), 1).toString(); }},
                {"name", [&] { out = name(); }},
                {"find", [&] { rs.Find(arg); }},
                {"findback", [&] { rs.Find(arg, 0, adSearchBackward); }},
                {"skip", [&] { rs.Find(arg, 1); }},
                {"filter", [&] { rs.setFilter(arg); }},
                {"mark", [&] { mark = rs.Bookmark(); }},
                {"back", [&] { rs.setBookmark(mark); }},
                {"add",
                 [&] {
                     rs.AddNew();
                     rs.Fields(0).setValue(arg.section(QLatin1Char(' '), 0, 0).toInt());
                     rs.Fields(QStringLiteral("Nome")).setValue(arg.section(QLatin1Char(' '), 1));
                 }},
                {"set", [&] { rs.Fields(QStringLiteral("Nome")).setValue(arg); }},
                {"update", [&] { rs.Update(); }},
                {"other", [&] { executar(arg, secondTerminal(connectionString)); }},
                {"self", [&] { executeStatement(connectionString, arg); }},
                {"drop", [&] { closePooledDatabases(); }},
            };
            steps.value(op)();
        });
        seen << (error.Number ? QStringLiteral("!%1").arg(error.Number) : out);
    }
    return seen.join(QLatin1Char(' ')).trimmed();
}

// Staff 1 to 9: the test back office's three, then six more.
QString staffOfNine(const TestEnvironment& env) {
    const QString connectionString = bancoDeTeste(env);
    for (int id = 4; id <= 9; ++id)
        executar(QStringLiteral("INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha) VALUES (%1, "
                                "'N%1', '%1')")
                     .arg(id));
    return connectionString;
}
} // namespace

// The client-side copy on the test back office (see TestDatabase.h for its rows).
class TestRecordset : public QObject {
    Q_OBJECT

private slots:
    void init() {
        env = std::make_unique<TestEnvironment>();
        db = bancoDeTeste(*env);
    }
    void cleanup() { env.reset(); }

    void fieldsAndMoves() {
        Recordset rs =
            executeStatement(db, QStringLiteral("SELECT ID_Colaborador, Nome FROM Tb_Colaborador"));
        QCOMPARE(rs.FieldCount(), 2);
        QCOMPARE(rs.Fields(1).Name(), QStringLiteral("Nome"));
        QCOMPARE(raisedBy([&] { rs.Fields(QStringLiteral("Senha")); }).Number, vbErr::ItemNotFound);
        QCOMPARE(column(rs, QStringLiteral("nome")), QStringList({"ANA", "BRUNO", "D'ÁVILA"}));
        rs.MoveLast();
        rs.MoveNext();
        QVERIFY(rs.Eof() && !rs.Bof());
        QCOMPARE(raisedBy([&] { rs.Fields(0).Value(); }).Number, vbErr::NoCurrentRecord);
        QCOMPARE(raisedBy([&] { rs.MoveNext(); }).Number, vbErr::NoCurrentRecord);
        rs.MoveFirst();
        rs.MovePrevious();
        QVERIFY(rs.Bof() && !rs.Eof());
        QCOMPARE(raisedBy([&] { rs.MovePrevious(); }).Number, vbErr::NoCurrentRecord);

        Recordset empty = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        QVERIFY(empty.Bof() && empty.Eof());
        QCOMPARE(raisedBy([&] { empty.MoveFirst(); }).Number, vbErr::NoCurrentRecord);
        QCOMPARE(raisedBy([&] { empty.Fields(0).setValue(1); }).Number, vbErr::NoCurrentRecord);
        Recordset closed =
            executeStatement(db, QStringLiteral("UPDATE PRODUTOS SET PRECO = 1 WHERE CODIGO = 99"));
        QCOMPARE(raisedBy([&] { closed.RecordCount(); }).Number, vbErr::ObjectClosed);
    }

    // SQLite keeps dates as text and bits as integers; the copy holds QDateTime and bool, and a
    // database NULL is a null QVariant.
    void valuesReadAsTheirTypes() {
        abrirComanda(5, 1);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        QCOMPARE(rs.Fields(QStringLiteral("data_criacao")).Value(), QVariant(testMoment()));
        QCOMPARE(rs.Fields(QStringLiteral("bloqueada")).Value().typeId(), int(QMetaType::Bool));
        QVERIFY(rs.Fields(QStringLiteral("id_cliente")).Value().isNull());
    }

    void addNewGivesTheIdentityAndKeepsTheNewRowCurrent() {
        abrirComanda(3, 1);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        rs.AddNew();
        QCOMPARE(rs.RecordCount(), 2); // the new row counts at once
        const QList<std::pair<const char*, QVariant>> values = {{"data_criacao", testMoment()},
                                                                {"status", 1},
                                                                {"mesa", 7},
                                                                {"id_colaborador", 2},
                                                                {"servico", true},
                                                                {"valor_servico", 0.0},
                                                                {"valor_total", 0.0},
                                                                {"data_ultima_movimentacao", testMoment(30)}};
        for (const auto& [name, value] : values)
            rs.Fields(QString::fromUtf8(name)).setValue(value);
        rs.Update();
        QCOMPARE(rs.Fields(QStringLiteral("id_comanda")).Value().toInt(), 2);
        QCOMPARE(rs.Fields(QStringLiteral("ocupantes")).Value().toInt(), 1); // the table's default
        // The new row is a row like the others: a change to it is an ordinary update.
        rs.Fields(QStringLiteral("status")).setValue(2);
        rs.Update();
        // Stored as the other terminals' queries compare them.
        QCOMPARE(consultar(QStringLiteral("SELECT status || typeof(servico) || servico || ' ' || "
                                          "data_ultima_movimentacao FROM Tb_Comandas WHERE id_comanda = 2")),
                 QVariant(QStringLiteral("2integer1 2024-03-05 12:00:30")));
    }

    // Two terminals read the same tab; the other one writes first. Mine still finds its row when the
    // key and the columns it changes hold what it read.
    void optimisticLock_data() {
        QTest::addColumn<QString>("otherColumn");
        QTest::addColumn<QVariant>("otherValue");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("miss");
        QTest::newRow("same column") << "status" << QVariant(2) << "status" << QVariant(4) << true;
        QTest::newRow("other column") << "valor_total" << QVariant(12.5) << "status" << QVariant(4) << false;
        QTest::newRow("Null read") << "valor_total" << QVariant(12.5) << "id_cliente" << QVariant(2) << false;
        QTest::newRow("Null read, written since")
            << "id_cliente" << QVariant(1) << "id_cliente" << QVariant(2) << true;
        QTest::newRow("bit read") << "valor_total" << QVariant(12.5) << "bloqueada" << QVariant(true)
                                  << false;
        QTest::newRow("date read") << "valor_total" << QVariant(12.5) << "data_ultima_movimentacao"
                                   << QVariant(testMoment(60)) << false;
        QTest::newRow("text bound, not spliced") << "valor_total" << QVariant(12.5) << "identificacao"
                                                 << QVariant("D'ÁVILA'; DROP TABLE PRODUTOS; --") << false;
    }
    void optimisticLock() {
        QFETCH(QString, otherColumn);
        QFETCH(QVariant, otherValue);
        QFETCH(QString, column);
        QFETCH(QVariant, value);
        QFETCH(bool, miss);
        abrirComanda(4, 1);
        const QString sql = QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0");
        Recordset mine = executeStatement(db, sql);
        Recordset other = executeStatement(secondTerminal(db), sql);
        other.Fields(otherColumn).setValue(otherValue);
        other.Update();

        mine.Fields(column).setValue(value);
        QCOMPARE(raisedBy([&] { mine.Update(); }).Number, miss ? vbErr::RowNotLocated : 0);

        Recordset now = executeStatement(db, sql);
        QCOMPARE(now.Fields(otherColumn).Value(), otherValue); // what the other terminal wrote stays
        if (!miss)
            QCOMPARE(now.Fields(column).Value(), value);
    }

    void tableWithoutKeyMatchesEveryColumn() {
        Recordset mine = executeStatement(db, QStringLiteral("SELECT * FROM Tb_ConVendas"));
        Recordset other = executeStatement(secondTerminal(db), QStringLiteral("SELECT * FROM Tb_ConVendas"));
        mine.Fields(QStringLiteral("iTaxa")).setValue(12.0);
        mine.Update();
        other.Fields(QStringLiteral("bServico")).setValue(false); // read before the change to iTaxa
        QCOMPARE(raisedBy([&] { other.Update(); }).Number, vbErr::RowNotLocated);
        QCOMPARE(consultar(QStringLiteral("SELECT iTaxa || bServico FROM Tb_ConVendas")).toString(),
                 QStringLiteral("12.01"));
    }

    void leavingAChangedRowWritesItAndRefreshDropsIt() {
        abrirComanda(1, 1);
        abrirComanda(2, 1);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas ORDER BY mesa"));
        rs.Fields(QStringLiteral("status")).setValue(4);
        rs.MoveNext();
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE mesa = 1")).toInt(), 4);
        DataControl control(QStringLiteral("Ado_Teste"));
        control.ConnectionString = db;
        control.RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 2");
        control.Refresh();
        control.Recordset().Fields(QStringLiteral("status")).setValue(3);
        control.Refresh();
        QCOMPARE(control.Recordset().Fields(QStringLiteral("status")).Value().toInt(), 1);
    }

    void writesThatCannotBeMade() {
        Recordset join = executeStatement(
            db, QStringLiteral(
                    "SELECT P.CODIGO, E.QD FROM PRODUTOS P INNER JOIN TB_ESTOQUE E ON E.CODIGO = P.CODIGO"));
        join.Fields(QStringLiteral("QD")).setValue(1);
        QCOMPARE(raisedBy([&] { join.Update(); }).Number, vbErr::NotUpdatable);

        Recordset tabs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        tabs.AddNew();
        tabs.Fields(QStringLiteral("mesa")).setValue(1);
        QCOMPARE(raisedBy([&] { tabs.Update(); }).Number,
                 vbErr::IntegrityViolation); // NOT NULL columns left out

        abrirComanda(1, 1);
        Recordset tab = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        tab.Fields(QStringLiteral("id_colaborador")).setValue(99); // no such staff member
        QCOMPARE(raisedBy([&] { tab.Update(); }).Number, vbErr::IntegrityViolation);
    }

    void executeGivesTotalsAndErrors() {
        Connection connection;
        QCOMPARE(raisedBy([&] { connection.Execute(QStringLiteral("SELECT 1")); }).Number,
                 vbErr::ConnectionNotOpen);
        connection.Open(db);
        QVERIFY(connection.Execute(QStringLiteral("SELECT SUM(valor_total) FROM Tb_Comandas_Itens"))
                    .Fields(0)
                    .Value()
                    .isNull());
        try {
            connection.Execute(QStringLiteral("SELEC * FROM PRODUTOS"));
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.Number, vbErr::SyntaxError);
            QVERIFY2(error.Description.contains(QLatin1String("syntax error")),
                     qPrintable(error.Description));
        }
    }

    // Products: 1 X-SALADA 18,50 dep 1; 2 CERVEJA LATA 7,00 dep 2; 3 PORÇÃO DE FRITAS 25,90 dep 1;
    // 10 ÁGUA MINERAL 4,50 dep 2.
    void filter_data() {
        QTest::addColumn<QString>("criteria");
        QTest::addColumn<QString>("codes"); // the codes left visible, or the error raised
        auto row = [](const char* criteria, const char* codes) {
            QTest::newRow(criteria) << QString::fromUtf8(criteria) << QString::fromUtf8(codes);
        };
        row("CODIGO = '2'", "2"); // a number quoted on a numeric field
        row("CODIGO = '1'", "1"); // the whole code, not 10
        row("CODIGO = '99'", "");
        row("DESCRICAO LIKE 'cer*'", "2");
        row("DESCRICAO LIKE '%Ç%'", "3");
        row("DESCRICAO = 'água mineral'", "10");
        row("DESCRICAO <> 'D''ÁVILA'", "1 2 3 10");
        row("[PRECO] >= 18.5 and dep=1", "1 3");
        row("PRECO < 5 OR CODIGO = 2", "2 10");
        row("CODIGO = 10 OR CODIGO = 1 AND PRECO > 20", "10");
        row("(CODIGO = 1 OR CODIGO = 2) AND PRECO > 10", "1");
        row("DESCRICAO = 'D'ÁVILA'", "3001"); // a lone apostrophe
        row("DESCRICAO = 'X-SALADA", "3001");
        row("DESCRICAO LIKE '%SALADA'", "3001"); // a wildcard only at the end or at both ends
        row("CODIGO = 1 AND", "3001");
        row("CODIGO = 'X'", "3001");
        row("NADA = 1", "3265");
        // Neither may exhaust the stack.
        QTest::newRow("a million clauses") << QStringLiteral("CODIGO = 9 OR ").repeated(999999) + "CODIGO = 2"
                                           << "2";
        QTest::newRow("10,000 parentheses")
            << QString(10000, u'(') + "CODIGO = 2" + QString(10000, u')') << "3001";
    }
    void filter() {
        QFETCH(QString, criteria);
        QFETCH(QString, codes);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM PRODUTOS"));
        rs.setFilter(QStringLiteral("DEP = 1"));
        const int error = raisedBy([&] { rs.setFilter(criteria); }).Number;
        if (codes.toInt() > 1000) {
            QCOMPARE(error, codes.toInt());
            // A refused filter leaves the one before in force.
            QCOMPARE(rs.Filter(), QStringLiteral("DEP = 1"));
            QCOMPARE(rs.RecordCount(), 2);
            return;
        }
        QCOMPARE(error, 0);
        const QStringList expected = codes.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QCOMPARE(rs.RecordCount(), expected.size());
        QCOMPARE(rs.Eof(), expected.isEmpty());
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

    // Staff: ANA, BRUNO, D'ÁVILA.
    void find_data() {
        QTest::addColumn<QString>("criteria");
        QTest::addColumn<int>("from"); // position of the current row before the search
        QTest::addColumn<int>("skip");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("found"); // Nome of the row found, EOF, BOF or the error
        const int forward = adSearchForward, backward = adSearchBackward;
        QTest::newRow("the current row counts") << "Nome = 'BRUNO'" << 1 << 0 << forward << "BRUNO";
        QTest::newRow("skipped") << "Nome = 'BRUNO'" << 1 << 1 << forward << "EOF";
        QTest::newRow("backward") << "Nome = 'ANA'" << 2 << 0 << backward << "ANA";
        QTest::newRow("backward, not found") << "Nome = 'D''ÁVILA'" << 1 << 0 << backward << "BOF";
        QTest::newRow("no blank after =") << "ID_Colaborador =3" << 0 << 0 << forward << "D'ÁVILA";
        QTest::newRow("LIKE") << "Nome LIKE 'BR%'" << 0 << 0 << forward << "BRUNO";
        QTest::newRow("lone apostrophe") << "Nome = 'D'ÁVILA'" << 0 << 0 << forward << "3001";
        QTest::newRow("two columns") << "Nome = 'ANA' AND Senha = '123'" << 0 << 0 << forward << "3001";
        QTest::newRow("from EOF") << "Nome = 'ANA'" << 3 << 0 << forward << "3021";
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
        const int error = raisedBy([&] { rs.Find(criteria, skip, SearchDirection(direction)); }).Number;
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
        rs.setBookmark(water);
        QCOMPARE(rs.Fields(QStringLiteral("CODIGO")).Value().toInt(), 10);
        rs.MoveFirst();
        const QVariant salad = rs.Bookmark();
        rs.setFilter(QStringLiteral("DEP = 2"));
        QCOMPARE(raisedBy([&] { rs.setBookmark(salad); }).Number, vbErr::BadArguments); // filtered out
    }

    // Marking an item printed: the change is made on the current row, the filter narrows the copy
    // to that row, and Update stores it.
    void changeThenFilterThenUpdate() {
        const int tab = abrirComanda(1, 2);
        itemNoBanco(tab, 1, 7);
        itemNoBanco(tab, 2, 7);
        const QString pending = QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND "
                                               "(status = 1) AND (impresso = 0 or reimpressao = 1)");
        Recordset rs = executeStatement(db, pending);
        QCOMPARE(rs.RecordCount(), 2);
        const int id = rs.Fields(QStringLiteral("id_comanda_item")).Value().toInt();
        rs.Fields(QStringLiteral("impresso")).setValue(1);
        rs.Fields(QStringLiteral("reimpressao")).setValue(0);
        rs.setFilter(QStringLiteral("id_comanda_item = ") + QString::number(id));
        rs.Update();
        QCOMPARE(rs.RecordCount(), 1);
        Recordset left = executeStatement(db, pending);
        QCOMPARE(left.RecordCount(), 1);
        QVERIFY(left.Fields(QStringLiteral("id_comanda_item")).Value().toInt() != id);
    }

    // However few rows the statement gives at first, every step sees what the copy read whole
    // shows: the rows of the moment the statement ran, writes made since on this terminal or
    // another left out, added rows after all of the statement's, positions, bookmarks and the
    // optimistic lock unchanged.
    void readAsNeededShowsWhatTheWholeCopyShows_data() {
        QTest::addColumn<QString>("script");
        QTest::newRow("table opened: added, then walked")
            << "add 20 NOVA; update; name; pos; count; last; name; prev; name; first; name; mark; eof";
        QTest::newRow("added before the rest is read, then stepped onto")
            << "next; add 20 NOVA; name; prev; name; pos; next; name; next; eof; prev; prev; name; count";
        QTest::newRow("walked to the end and back")
            << "bof; eof; name; next; next; next; name; pos; goto 9; name; next; eof; pos; next; prev; "
               "name; first; prev; bof; prev";
        QTest::newRow("written since, elsewhere and here")
            << "other UPDATE Tb_Colaborador SET Nome = 'X' WHERE ID_Colaborador = 7; self DELETE FROM "
               "Tb_Colaborador WHERE ID_Colaborador = 8; other INSERT INTO Tb_Colaborador (ID_Colaborador, "
               "Nome, Senha) VALUES (30, 'Y', '0'); goto 7; name; set Z; update; at 8; count; last; name";
        QTest::newRow("searches")
            << "find Nome = 'N6'; pos; skip Nome LIKE 'N*'; pos; findback ID_Colaborador < 3; name; find "
               "Nome = 'NADA'; eof; pos; first; find ID_Colaborador > 8; name";
        QTest::newRow("positions and values by place")
            << "at 9; goto 10; goto 5; name; at 2; pos; add 11 K; pos; at 10; goto 10; name; count";
        QTest::newRow("bookmarks and filters") << "goto 4; mark; last; back; name; add 12 M; mark; first; "
                                                  "back; name; filter ID_Colaborador > 5; "
                                                  "count; back; pos; filter ; count";
        QTest::newRow("pooled connections closed while reading")
            << "next; name; drop; next; name; count; last; name";
    }
    void readAsNeededShowsWhatTheWholeCopyShows() {
        QFETCH(QString, script);
        const int firstRows = Recordset::Data::firstRows;
        const auto run = [&](int rows) {
            Recordset::Data::firstRows = rows;
            TestEnvironment fresh;
            const QString result = trace(staffOfNine(fresh), script);
            Recordset::Data::firstRows = firstRows;
            return result;
        };
        const QString whole = run(1000);
        for (int rows : {1, 2, 8})
            QCOMPARE(run(rows), whole);
    }

private:
    std::unique_ptr<TestEnvironment> env;
    QString db;
};

ZARVEL_TEST(TestRecordset)
#include "tst_recordset.moc"
