#include "backoffice/BackOffice.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/RuntimeError.h"
#include "platform/SqlSession.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSemaphore>
#include <QSqlDatabase>
#include <QSqlError>
#include <QTest>
#include <QThread>

#ifdef Q_OS_UNIX // the SQL Server path through FreeTDS
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace {
int countProducts(const QString& connectionString) {
    return executeStatement(connectionString, QStringLiteral("SELECT COUNT(*) FROM PRODUTOS"))
        .Fields(0)
        .Value()
        .toInt();
}

#ifdef Q_OS_UNIX
// A TCP port that accepts connections and never says a word, as a server that hangs does.
class SilentServer {
public:
    SilentServer() {
        m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address);
        ::listen(m_socket, 4);
        socklen_t length = sizeof address;
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length);
        m_port = ntohs(address.sin_port);
    }
    ~SilentServer() { ::close(m_socket); }
    int port() const { return m_port; }

private:
    int m_socket;
    int m_port = 0;
};
#endif
} // namespace

class TestConnection : public QObject {
    Q_OBJECT

private slots:
    void init() { env = std::make_unique<TestEnvironment>(); }
    void cleanup() { env.reset(); }

    void dialects_data() {
        QTest::addColumn<QString>("server");
        QTest::addColumn<bool>("sqlite");
        QTest::newRow("host name") << "SERVIDOR" << false;
        QTest::newRow("missing .db file") << "/nada/norvik.db" << true;
        QTest::newRow(".DB in capitals") << "/nada/NORVIK.DB" << true;
        QTest::newRow("existing file") << "EXISTING" << true;
    }
    void dialects() {
        QFETCH(QString, server);
        QFETCH(bool, sqlite);
        if (server == QLatin1String("EXISTING")) {
            server = env->scratchPath(QStringLiteral("norvik.sqlite"));
            QFile file(server);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QCOMPARE(dialectOf(adoConnectionString(server)) == Dialect::SQLite, sqlite);
    }

    void odbcStrings_data() {
        QTest::addColumn<QString>("ado");
        QTest::addColumn<QString>("odbc");
        QTest::newRow("as the start-up builds it")
            << "Provider=SQLNCLI;Server=SERVIDOR;Database=Norvik;Uid=sa;Pwd=@vzqrmlkd#318"
            << "Driver={FreeTDS};Server=SERVIDOR;Port=1433;Database=Norvik;UID=sa;PWD=@vzqrmlkd#318;TDS_"
               "Version=7.4";
        QTest::newRow("port after a comma")
            << "Provider=SQLNCLI;Server=10.0.0.5,1500;Database=Norvik;Uid=sa;Pwd=x"
            << "Driver={FreeTDS};Server=10.0.0.5;Port=1500;Database=Norvik;UID=sa;PWD=x;TDS_Version=7.4";
        QTest::newRow("named instance finds its own port")
            << "Provider=SQLNCLI;Server=10.0.0.5\\SQLEXPRESS;Database=Norvik;Uid=sa;Pwd=x"
            << "Driver={FreeTDS};Server=10.0.0.5\\SQLEXPRESS;Database=Norvik;UID=sa;PWD=x;TDS_Version=7.4";
        QTest::newRow("ADO synonyms, braces where needed")
            << "Provider=SQLNCLI;Data Source=SRV;Initial Catalog=Norvik;User ID=sa;Password=a}b"
            << "Driver={FreeTDS};Server=SRV;Port=1433;Database=Norvik;UID=sa;PWD={a}}b};TDS_Version=7.4";
    }
    void odbcStrings() {
#ifndef Q_OS_UNIX
        QSKIP("FreeTDS is the driver on Linux only");
#endif
        QFETCH(QString, ado);
        QFETCH(QString, odbc);
        QCOMPARE(odbcConnectionString(ado), odbc);
    }

    // A SQL Server statement past its time-out reports ODBC's HYT00 with no native code: Qt 6.4
    // passes on the driver's text only, later versions add the SQLSTATE.
    void sqlServerStatementErrors_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("native");
        QTest::addColumn<int>("number");
        QTest::newRow("FreeTDS time-out") << "[FreeTDS][SQL Server]Timeout expired"
                                          << "0" << vbErr::QueryTimeout;
        QTest::newRow("localized, with the SQLSTATE")
            << "[Microsoft][ODBC Driver 17 for SQL Server]Tempo limite da consulta expirado, HYT00"
            << "0" << vbErr::QueryTimeout;
        QTest::newRow("syntax") << "[FreeTDS][SQL Server]Incorrect syntax near 'FROM'."
                                << "102" << vbErr::SyntaxError;
    }
    void sqlServerStatementErrors() {
        QFETCH(QString, text);
        QFETCH(QString, native);
        QFETCH(int, number);
        const QSqlError error(QStringLiteral("QODBC: Unable to execute statement"), text,
                              QSqlError::StatementError, native);
        QCOMPARE(errorNumberOf(Dialect::SqlServer, error), number);
    }

    // FreeTDS fails at once on a closed port, and within the login time-out on a server that
    // accepts and never answers.
    void sqlServerThatIsNotThere_data() {
        QTest::addColumn<bool>("silent");
        QTest::newRow("refused") << false;
        QTest::newRow("silent") << true;
    }
    void sqlServerThatIsNotThere() {
#ifndef Q_OS_UNIX
        QSKIP("FreeTDS is the driver on Linux only");
#else
        QFETCH(bool, silent);
        SilentServer server;
        // A listening socket closed at once leaves a port that refuses.
        int port = server.port();
        if (!silent) {
            SilentServer closed;
            port = closed.port();
        }
        const QString cs = adoConnectionString(QStringLiteral("127.0.0.1,%1").arg(port));
        QElapsedTimer timer;
        timer.start();
        Connection connection;
        connection.ConnectionTimeout = 2;
        const RuntimeError error = raisedBy([&] { connection.Open(cs); });
        QCOMPARE(error.Number, vbErr::ConnectionFailure);
        QVERIFY2(error.Description.contains(QLatin1String("FreeTDS")), qPrintable(error.Description));
        QVERIFY2(timer.elapsed() < 15000, qPrintable(QString::number(timer.elapsed())));
#endif
    }

    void fileThatIsNotThere_data() {
        QTest::addColumn<QString>("damage");
        QTest::newRow("never there") << "never";
        QTest::newRow("removed under an open connection") << "removed";
        QTest::newRow("not a database") << "garbage";
    }
    void fileThatIsNotThere() {
        QFETCH(QString, damage);
        const QString file = env->scratchPath(QStringLiteral("norvik.db"));
        QString cs = adoConnectionString(file);
        if (damage != QLatin1String("never")) {
            cs = backOfficeDatabase(*env);
            QCOMPARE(countProducts(cs), 4);
            QVERIFY(QFile::remove(file));
            QFile::remove(file + QStringLiteral("-wal"));
            QFile::remove(file + QStringLiteral("-shm"));
        }
        if (damage == QLatin1String("garbage")) {
            closePooledDatabases();
            QFile junk(file);
            QVERIFY(junk.open(QIODevice::WriteOnly));
            junk.write(QByteArray(8192, 'x'));
        }
        const RuntimeError error = raisedBy([&] { countProducts(cs); });
        QCOMPARE(error.Number, vbErr::ConnectionFailure);
        QVERIFY(!error.Description.isEmpty());
        QCOMPARE(QFile::exists(file), damage == QLatin1String("garbage")); // never made anew
    }

    void poolOpensAgainAfterAFailure() {
        const QString cs = backOfficeDatabase(*env);
        const QString file = env->scratchPath(QStringLiteral("norvik.db"));
        const QString aside = env->scratchPath(QStringLiteral("aside.db"));
        QCOMPARE(countProducts(cs), 4);
        // Terminals share the file in WAL mode; closing folds the WAL back so that it can be moved.
        QCOMPARE(executeStatement(cs, QStringLiteral("PRAGMA journal_mode")).Fields(0).Value().toString(),
                 QStringLiteral("wal"));
        closePooledDatabases();
        QCOMPARE(countProducts(cs), 4);
        QVERIFY(QFile::rename(file, aside));
        QCOMPARE(raisedBy([&] { countProducts(cs); }).Number, vbErr::ConnectionFailure);
        QVERIFY(QFile::rename(aside, file));
        QCOMPARE(countProducts(cs), 4);
    }

    void onePooledConnectionPerStringAndThread() {
        const QString cs = backOfficeDatabase(*env);
        const QString first = pooledDatabase(cs).connectionName();
        QCOMPARE(pooledDatabase(cs).connectionName(), first);
        QVERIFY(pooledDatabase(secondTerminal(cs)).connectionName() != first);
        QString other;
        QThread* thread = QThread::create([&] {
            other = pooledDatabase(cs).connectionName();
            closePooledDatabases();
        });
        thread->start();
        QVERIFY(thread->wait(10000));
        delete thread;
        QVERIFY(!other.isEmpty() && other != first);
        QVERIFY(!QSqlDatabase::contains(other));
    }

    // On the shared pooled connection each caller waits out another terminal's lock for its own
    // command time-out, not for what the caller that opened the connection asked; 0 waits for ever.
    void commandTimeoutOfEachCaller_data() {
        QTest::addColumn<int>("openerTimeout");
        QTest::addColumn<int>("commandTimeout");
        QTest::addColumn<int>("lockHeldMs"); // -1: until the statement gives up
        QTest::addColumn<bool>("succeeds");
        QTest::newRow("shorter than the opener's") << 5 << 1 << -1 << false;
        QTest::newRow("longer than the opener's") << 1 << 8 << 2500 << true;
        QTest::newRow("no limit") << 1 << 0 << 2500 << true;
    }
    void commandTimeoutOfEachCaller() {
        QFETCH(int, openerTimeout);
        QFETCH(int, commandTimeout);
        QFETCH(int, lockHeldMs);
        QFETCH(bool, succeeds);
        const QString cs = backOfficeDatabase(*env);
        closePooledDatabases(); // the opener below is the first
        Connection opener;
        opener.ConnectionTimeout = openerTimeout;
        opener.CommandTimeout = openerTimeout;
        opener.Open(cs);
        opener.Execute(QStringLiteral("SELECT COUNT(*) FROM PRODUTOS"));

        // Another terminal: a connection of its own (its own thread) holding the write lock.
        QSemaphore held, release;
        QThread* terminal = QThread::create([&] {
            executeStatement(cs, QStringLiteral("BEGIN IMMEDIATE"));
            held.release();
            release.tryAcquire(1, lockHeldMs < 0 ? 60000 : lockHeldMs);
            executeStatement(cs, QStringLiteral("COMMIT"));
            closePooledDatabases();
        });
        terminal->start();
        QVERIFY(held.tryAcquire(1, 10000));

        Connection mine;
        mine.CommandTimeout = commandTimeout;
        mine.Open(cs);
        QElapsedTimer timer;
        timer.start();
        const RuntimeError error =
            raisedBy([&] { mine.Execute(QStringLiteral("UPDATE PRODUTOS SET PRECO = 1 WHERE CODIGO = 1")); });
        const qint64 elapsed = timer.elapsed();
        release.release();
        QVERIFY(terminal->wait(20000));
        delete terminal;
        QCOMPARE(error.Number, succeeds ? 0 : vbErr::QueryTimeout);
        if (!succeeds)
            QVERIFY2(elapsed >= 800 && elapsed < 4000, qPrintable(QString::number(elapsed)));
    }

    // The error event sees the low word of a provider failure; the control shows the error unless
    // the handler keeps it quiet; the caller gets the error either way.
    void refreshFailure_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<bool>("cancel");
        QTest::addColumn<int>("eventNumber");
        QTest::addColumn<int>("number");
        QTest::newRow("lost, silenced") << "" << true << 16389 << vbErr::ConnectionFailure;
        QTest::newRow("bad statement, shown")
            << "SELECT * FROM Tb_Nada" << false << 3604 << vbErr::SyntaxError;
    }
    void refreshFailure() {
        QFETCH(QString, source);
        QFETCH(bool, cancel);
        QFETCH(int, eventNumber);
        QFETCH(int, number);
        DataControl control(QStringLiteral("Ado_Inicializacao"));
        QList<int> seen;
        control.Error = [&](int ErrorNumber, bool& fCancelDisplay) {
            seen << ErrorNumber;
            fCancelDisplay = cancel;
        };
        if (source.isEmpty()) {
            control.ConnectionString = adoConnectionString(env->scratchPath(QStringLiteral("gone.db")));
            control.RecordSource = QStringLiteral("SELECT * FROM Tb_Convendas");
        } else {
            control.ConnectionString = backOfficeDatabase(*env);
            control.RecordSource = source;
        }
        const RuntimeError error = raisedBy([&] { control.Refresh(); });
        QCOMPARE(error.Number, number);
        QCOMPARE(seen, QList<int>({eventNumber}));
        QCOMPARE(boxes().size(), cancel ? 0 : 1);
        if (!cancel)
            QCOMPARE(boxes().first().prompt, error.Description);
        QVERIFY(!control.Recordset().isOpen());
    }

private:
    std::unique_ptr<TestEnvironment> env;
};

ZARVEL_TEST(TestConnection)
#include "tst_connection.moc"
