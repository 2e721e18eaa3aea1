#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/RuntimeError.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QTest>

namespace {
// Runs action and returns the number of the run-time error it raised, 0 if none.
template <class F> int errorOf(F action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

QVariant scalar(const QString& connectionString, const QString& sql) {
    Connection connection;
    connection.Open(connectionString);
    Recordset rs = connection.Execute(sql);
    return rs.Fields(0).Value();
}

void openTab(const QString& connectionString, int mesa, int status) {
    Connection connection;
    connection.Open(connectionString);
    connection.Execute(
        QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, servico, "
                       "valor_servico, valor_total, data_ultima_movimentacao) VALUES "
                       "('2024-03-05 11:00:00', %1, %2, 1, 1, 0, 0, '2024-03-05 11:30:00')")
            .arg(status)
            .arg(mesa));
}
} // namespace

class TestRecordset : public QObject {
    Q_OBJECT

private slots:
    void init() {
        env = std::make_unique<TestEnvironment>();
        db = bancoDeTeste(*env);
    }
    void cleanup() { env.reset(); }

    void fieldsByNameAndPosition() {
        Recordset rs = executeStatement(db, QStringLiteral("SELECT CODIGO, DESCRICAO, PRECO FROM PRODUTOS"));
        QCOMPARE(rs.RecordCount(), 4);
        QCOMPARE(rs.FieldCount(), 3);
        QCOMPARE(rs.Fields(QStringLiteral("descricao")).Value().toString(), QStringLiteral("X-SALADA"));
        QCOMPARE(rs.Fields(1).Name(), QStringLiteral("DESCRICAO"));
        QCOMPARE(rs.Fields(2).Value().toDouble(), 18.5);
        QCOMPARE(errorOf([&] { rs.Fields(QStringLiteral("UN")); }), vbErr::ItemNotFound);
        QCOMPARE(errorOf([&] { rs.Fields(3); }), vbErr::ItemNotFound);
    }

    void walkingTheRows() {
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Colaborador"));
        QVERIFY(!rs.Bof() && !rs.Eof());
        QStringList names;
        while (!rs.Eof()) {
            names << rs.Fields(QStringLiteral("Nome")).Value().toString();
            rs.MoveNext();
        }
        QCOMPARE(names, QStringList({"ANA", "BRUNO", "D'ÁVILA"}));
        QCOMPARE(errorOf([&] { rs.Fields(0).Value(); }), vbErr::NoCurrentRecord);
        QCOMPARE(errorOf([&] { rs.MoveNext(); }), vbErr::NoCurrentRecord);
        rs.MoveLast();
        rs.MovePrevious();
        QCOMPARE(rs.Fields(0).Value().toInt(), 2);
        rs.MovePrevious();
        rs.MovePrevious();
        QVERIFY(rs.Bof() && !rs.Eof());
        QCOMPARE(errorOf([&] { rs.MovePrevious(); }), vbErr::NoCurrentRecord);
        rs.MoveFirst();
        QCOMPARE(rs.Fields(0).Value().toInt(), 1);
    }

    void emptyAndClosed() {
        Recordset empty = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        QCOMPARE(empty.RecordCount(), 0);
        QVERIFY(empty.Bof() && empty.Eof());
        QCOMPARE(errorOf([&] { empty.MoveFirst(); }), vbErr::NoCurrentRecord);
        QCOMPARE(errorOf([&] { empty.MoveLast(); }), vbErr::NoCurrentRecord);
        QCOMPARE(errorOf([&] { empty.Fields(0).setValue(1); }), vbErr::NoCurrentRecord);
        QCOMPARE(errorOf([&] { empty.Update(); }), vbErr::NoCurrentRecord);

        Recordset closed =
            executeStatement(db, QStringLiteral("UPDATE PRODUTOS SET PRECO = 1 WHERE CODIGO = 99"));
        QVERIFY(!closed.isOpen());
        QCOMPARE(errorOf([&] { closed.RecordCount(); }), vbErr::ObjectClosed);
        QCOMPARE(errorOf([&] { closed.Eof(); }), vbErr::ObjectClosed);
        QCOMPARE(errorOf([&] { closed.Fields(0); }), vbErr::ObjectClosed);
        empty.Close();
        QCOMPARE(errorOf([&] { empty.MoveFirst(); }), vbErr::ObjectClosed);
    }

    // SQLite keeps dates as text and bits as integers; the copy holds QDateTime and bool, and a
    // database NULL is a null QVariant.
    void valuesReadAsTheirTypes() {
        openTab(db, 5, 1);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        QCOMPARE(rs.Fields(QStringLiteral("data_criacao")).Value(),
                 QVariant(QDateTime(QDate(2024, 3, 5), QTime(11, 0))));
        QCOMPARE(rs.Fields(QStringLiteral("servico")).Value(), QVariant(true));
        QCOMPARE(rs.Fields(QStringLiteral("bloqueada")).Value(), QVariant(false));
        QVERIFY(rs.Fields(QStringLiteral("id_cliente")).Value().isNull());
        QVERIFY(!rs.Fields(QStringLiteral("id_cliente")).Value().isValid());
        QCOMPARE(rs.Fields(QStringLiteral("mesa")).Value().toInt(), 5);
    }

    void addNewInsertsAndKeepsTheNewRowCurrent() {
        QStringList sent;
        setStatementObserver([&](const QString& sql) { sent << sql; });
        for (int expectedId : {1, 2}) {
            Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
            rs.AddNew();
            QCOMPARE(rs.RecordCount(), expectedId); // the new row counts at once
            rs.Fields(QStringLiteral("data_criacao")).setValue(testMoment());
            rs.Fields(QStringLiteral("status")).setValue(1);
            rs.Fields(QStringLiteral("mesa")).setValue(7);
            rs.Fields(QStringLiteral("id_colaborador")).setValue(2);
            rs.Fields(QStringLiteral("id_cliente")).setValue(QVariant());
            rs.Fields(QStringLiteral("identificacao")).setValue(QStringLiteral("MESA: 07"));
            rs.Fields(QStringLiteral("servico")).setValue(true);
            rs.Fields(QStringLiteral("valor_servico")).setValue(0.0);
            rs.Fields(QStringLiteral("valor_total")).setValue(0.0);
            rs.Fields(QStringLiteral("data_ultima_movimentacao")).setValue(testMoment(30));
            rs.Update();
            QCOMPARE(rs.Fields(QStringLiteral("id_comanda")).Value().toInt(), expectedId);
            QCOMPARE(rs.Fields(QStringLiteral("ocupantes")).Value().toInt(), 1); // the table's default
            QCOMPARE(rs.Fields(QStringLiteral("bloqueada")).Value(), QVariant(false));
            QCOMPARE(rs.Fields(QStringLiteral("data_criacao")).Value(), QVariant(testMoment()));
            // The new row is a row like the others: a change to it is an ordinary update.
            rs.Fields(QStringLiteral("status")).setValue(2);
            rs.Update();
        }
        setStatementObserver(nullptr);
        QCOMPARE(scalar(db, QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE status = 2")).toInt(), 2);
        QCOMPARE(scalar(db, QStringLiteral(
                                "SELECT typeof(servico) || servico FROM Tb_Comandas WHERE id_comanda = 1")),
                 QVariant(QStringLiteral("integer1")));
        QCOMPARE(
            scalar(db, QStringLiteral(
                           "SELECT data_ultima_movimentacao || '' FROM Tb_Comandas WHERE id_comanda = 2")),
            QVariant(QStringLiteral("2024-03-05 12:00:30")));
        QVERIFY(sent.contains(
            QStringLiteral("UPDATE [Tb_Comandas] SET [status] = ? WHERE [id_comanda] = ? AND [status] = ?")));
    }

    void textWithApostropheIsBoundNotSpliced() {
        openTab(db, 3, 1);
        Recordset rs =
            executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 3 AND status <> 0"));
        rs.Fields(QStringLiteral("identificacao"))
            .setValue(QStringLiteral("D'ÁVILA'; DROP TABLE PRODUTOS; --"));
        rs.Update();
        QCOMPARE(scalar(db, QStringLiteral("SELECT identificacao FROM Tb_Comandas")).toString(),
                 QStringLiteral("D'ÁVILA'; DROP TABLE PRODUTOS; --"));
        QCOMPARE(scalar(db, QStringLiteral("SELECT COUNT(*) FROM PRODUTOS")).toInt(), 4);
    }

    // Two terminals read the same tab. What the second writes first decides whether the first one's
    // write still finds its row: the key and the columns it changes must hold what it read.
    void optimisticLock_data() {
        QTest::addColumn<QString>("otherColumn");
        QTest::addColumn<QVariant>("otherValue");
        QTest::addColumn<QString>("column");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("miss");
        QTest::newRow("same column") << "status" << QVariant(2) << "status" << QVariant(4) << true;
        QTest::newRow("other column") << "valor_total" << QVariant(12.5) << "status" << QVariant(4) << false;
        QTest::newRow("Null read, written since")
            << "identificacao" << QVariant("JOÃO") << "identificacao" << QVariant("MARIA") << true;
        QTest::newRow("bit") << "bloqueada" << QVariant(true) << "bloqueada" << QVariant(true) << true;
        QTest::newRow("date") << "data_ultima_movimentacao" << QVariant(testMoment(60))
                              << "data_ultima_movimentacao" << QVariant(testMoment(120)) << true;
    }
    void optimisticLock() {
        QFETCH(QString, otherColumn);
        QFETCH(QVariant, otherValue);
        QFETCH(QString, column);
        QFETCH(QVariant, value);
        QFETCH(bool, miss);
        openTab(db, 4, 1);
        const QString sql = QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0");
        Recordset mine = executeStatement(db, sql);
        Recordset other = executeStatement(secondTerminal(db), sql);
        other.Fields(otherColumn).setValue(otherValue);
        other.Update();

        mine.Fields(column).setValue(value);
        QCOMPARE(errorOf([&] { mine.Update(); }), miss ? vbErr::RowNotLocated : 0);

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
        QCOMPARE(scalar(db, QStringLiteral("SELECT iTaxa FROM Tb_ConVendas")).toDouble(), 12.0);
        other.Fields(QStringLiteral("bServico")).setValue(false); // read before the change to iTaxa
        QCOMPARE(errorOf([&] { other.Update(); }), vbErr::RowNotLocated);
        QCOMPARE(scalar(db, QStringLiteral("SELECT bServico FROM Tb_ConVendas")).toInt(), 1);
    }

    void leavingAChangedRowWritesIt() {
        openTab(db, 1, 1);
        openTab(db, 2, 1);
        Recordset rs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas ORDER BY mesa"));
        rs.Fields(QStringLiteral("status")).setValue(4);
        rs.MoveNext();
        QCOMPARE(scalar(db, QStringLiteral("SELECT status FROM Tb_Comandas WHERE mesa = 1")).toInt(), 4);
        // Refresh drops changes that were never written.
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
            db, QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN "
                               "TB_ESTOQUE E ON E.CODIGO = P.CODIGO"));
        QCOMPARE(join.RecordCount(), 3);
        join.Fields(QStringLiteral("QD")).setValue(1);
        QCOMPARE(errorOf([&] { join.Update(); }), vbErr::NotUpdatable);

        Recordset tabs = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        tabs.AddNew();
        tabs.Fields(QStringLiteral("mesa")).setValue(1);
        QCOMPARE(errorOf([&] { tabs.Update(); }), vbErr::IntegrityViolation); // NOT NULL columns left out

        openTab(db, 1, 1);
        Recordset tab = executeStatement(db, QStringLiteral("SELECT * FROM Tb_Comandas"));
        tab.Fields(QStringLiteral("id_colaborador")).setValue(99); // no such staff member
        QCOMPARE(errorOf([&] { tab.Update(); }), vbErr::IntegrityViolation);
    }

    void executeGivesTotalsAndErrors() {
        Connection connection;
        QCOMPARE(errorOf([&] { connection.Execute(QStringLiteral("SELECT 1")); }), vbErr::ConnectionNotOpen);
        connection.Open(db);
        Recordset sum = connection.Execute(QStringLiteral(
            "SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = 1 AND status = 1"));
        QCOMPARE(sum.RecordCount(), 1);
        QVERIFY(sum.Fields(0).Value().isNull());
        Recordset max =
            connection.Execute(QStringLiteral("SELECT MAX(mesa) FROM Tb_Comandas WHERE status <> 0"));
        QVERIFY(max.Fields(0).Value().isNull());
        try {
            connection.Execute(QStringLiteral("SELEC * FROM PRODUTOS"));
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.Number, vbErr::SyntaxError);
            QVERIFY2(error.Description.contains(QLatin1String("syntax error")),
                     qPrintable(error.Description));
        }
        QCOMPARE(errorOf([&] { connection.Execute(QStringLiteral("SELECT * FROM Tb_Nada")); }),
                 vbErr::SyntaxError);
    }

private:
    std::unique_ptr<TestEnvironment> env;
    QString db;
};

ZARVEL_TEST(TestRecordset)
#include "tst_recordset.moc"
