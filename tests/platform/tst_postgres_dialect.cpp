#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "platform/SqlSession.h"
#include "support/TestMain.h"

#include <QSqlError>
#include <QTest>

// How a PostgreSQL address reads from IPCONEXAO and how its failures number, without a server.
class TestPostgresDialect : public QObject {
    Q_OBJECT

private slots:
    void addresses_data() {
        QTest::addColumn<QString>("server");
        QTest::addColumn<bool>("postgres");
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("port");
        QTest::newRow("host and port") << "pg:10.0.0.5:5433" << true << "10.0.0.5" << 5433;
        QTest::newRow("host alone: 5432") << "pg:dbhost" << true << "dbhost" << 5432;
        QTest::newRow("prefix in capitals") << "PG:dbhost:6000" << true << "dbhost" << 6000;
        QTest::newRow("socket folder") << "pg:/run/postgresql:5432" << true << "/run/postgresql" << 5432;
        QTest::newRow("not a port: part of the host") << "pg:dbhost:abc" << true << "dbhost:abc" << 5432;
        QTest::newRow("SQL Server host") << "SERVIDOR" << false << "SERVIDOR" << 5432;
        QTest::newRow("a file named pg.db") << "pg.db" << false << "pg.db" << 5432;
    }
    void addresses() {
        QFETCH(QString, server);
        QFETCH(bool, postgres);
        QFETCH(QString, host);
        QFETCH(int, port);
        const QString ado = "Provider=SQLNCLI;Server=" + server + ";Database=Norvik";
        QCOMPARE(dialectOf(ado) == Dialect::PostgreSQL, postgres);
        const PostgresAddress address = postgresAddressOf(ado);
        QCOMPARE(address.host, host);
        QCOMPARE(address.port, port);
        QCOMPARE(databaseOf(ado), QStringLiteral("Norvik"));
    }

    void errorNumbers_data() {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number");
        const struct {
            const char *name, *state, *text;
            int number;
        } rows[] = {
            {"refused", "08001", "could not connect", vbErr::ConnectionFailure},
            {"password", "28P01", "password authentication failed", vbErr::ConnectionFailure},
            {"no such database", "3D000", "database \"Norvik\" does not exist", vbErr::ConnectionFailure},
            {"server shut down", "57P01", "terminating connection", vbErr::ConnectionFailure},
            {"socket gone, no state", "", "server closed the connection unexpectedly",
             vbErr::ConnectionFailure},
            {"unique (class 23)", "23505", "duplicate key", vbErr::IntegrityViolation},
            {"statement_timeout", "57014", "canceling statement", vbErr::QueryTimeout},
            {"lock not available", "55P03", "could not obtain lock", vbErr::QueryTimeout},
            {"unknown column", "42703", "column does not exist", vbErr::SyntaxError},
            {"query canceled text, other state", "42601", "connection to server syntax", vbErr::SyntaxError},
        };
        for (const auto& r : rows)
            QTest::newRow(r.name) << QString(r.state) << QString(r.text) << r.number;
    }
    void errorNumbers() {
        QFETCH(QString, state);
        QFETCH(QString, text);
        QFETCH(int, number);
        const QSqlError error("QPSQL: Unable to create query", text, QSqlError::StatementError, state);
        QCOMPARE(errorNumberOf(Dialect::PostgreSQL, error), number);
    }
};

ZARVEL_TEST(TestPostgresDialect)
#include "tst_postgres_dialect.moc"
