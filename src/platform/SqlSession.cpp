#include "platform/SqlSession.h"

#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLibrary>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QSqlResult>
#include <QThread>
#include <QUrl>
#include <limits>

#ifdef Q_OS_WIN
#define ODBC_API __stdcall
#else
#define ODBC_API
#endif

namespace {
std::function<void(const QString&)> s_observer;

#ifdef Q_OS_WIN
const QString kOdbcLibrary = QStringLiteral("odbc32");
#else
const QString kOdbcLibrary = QStringLiteral("libodbc.so.2");
#endif

// Connection-string keywords by lower-case name; ADO's synonyms folded onto one name each. Every
// statement asks, so each string is read once per thread.
const QHash<QString, QString>& adoKeywords(const QString& connectionString) {
    thread_local QHash<QString, QHash<QString, QString>> read;
    if (const auto found = read.constFind(connectionString); found != read.cend())
        return *found;
    static const QHash<QString, QString> synonyms = {
        {QStringLiteral("data source"), QStringLiteral("server")},
        {QStringLiteral("address"), QStringLiteral("server")},
        {QStringLiteral("initial catalog"), QStringLiteral("database")},
        {QStringLiteral("user id"), QStringLiteral("uid")},
        {QStringLiteral("password"), QStringLiteral("pwd")},
    };
    QHash<QString, QString> keywords;
    const QStringList parts = connectionString.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const int eq = part.indexOf(QLatin1Char('='));
        if (eq < 0)
            continue;
        const QString key = part.left(eq).trimmed().toLower();
        keywords.insert(synonyms.value(key, key), part.mid(eq + 1).trimmed());
    }
    return *read.insert(connectionString, keywords);
}

// An ODBC attribute value in braces when it holds characters that would end or split it.
QString odbcValue(const QString& value) {
    if (!value.contains(QLatin1Char(';')) && !value.contains(QLatin1Char('{')) &&
        !value.contains(QLatin1Char('}')) && value.trimmed() == value)
        return value;
    QString escaped = value;
    escaped.replace(QLatin1Char('}'), QStringLiteral("}}"));
    return QLatin1Char('{') + escaped + QLatin1Char('}');
}

// Pooled connections are named after the thread and the connection string.
const QString& poolPrefix() {
    thread_local const QString prefix = QStringLiteral("zarvel|%1|").arg(quintptr(QThread::currentThread()));
    return prefix;
}

thread_local QHash<QString, QHash<QString, TableInfo>> t_tables; // by pooled connection name
// The command time-out a pooled connection applies now, where the engine keeps it per connection.
thread_local QHash<QString, int> t_commandTimeouts; // seconds, by pooled connection name

// Reading connections: the idle ones by connection string, and what a lent one's copy must do
// before the pooled connections close.
thread_local QHash<QString, QStringList> t_idleReaders;
thread_local QHash<QString, std::function<void()>> t_lentReaders;
thread_local int t_readerCount = 0;

void dropPooled(const QString& name) {
    t_commandTimeouts.remove(name);
    {
        QSqlDatabase db = QSqlDatabase::database(name, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(name);
}

[[noreturn]] void raiseSqlError(Dialect dialect, const QSqlError& error, const QString& poolName) {
    const int number = errorNumberOf(dialect, error);
    QString text = error.databaseText().trimmed();
    if (text.isEmpty())
        text = error.driverText().trimmed();
    if (number == vbErr::ConnectionFailure) {
        t_tables.remove(poolName);
        dropPooled(poolName);
    }
    raiseError(number, text);
}

ColumnKind kindOfDeclaredType(const QString& declared) {
    const QString type = declared.toLower();
    if (type.startsWith(QLatin1String("bit")))
        return ColumnKind::Bit;
    if (type.contains(QLatin1String("date")) || type.contains(QLatin1String("time")))
        return ColumnKind::DateTime;
    return ColumnKind::Plain;
}

const QString kSqliteDateTime = QStringLiteral("yyyy-MM-dd HH:mm:ss");

// A time-out in seconds as SQLite's busy wait: ADO's 0 waits without limit, SQLite's 0 not at all.
int busyWaitMs(int seconds) {
    constexpr int kLongest = std::numeric_limits<int>::max() / 1000;
    return seconds <= 0 || seconds > kLongest ? std::numeric_limits<int>::max() : seconds * 1000;
}

// The statement that gives a connection the command time-out, for the engines that keep it per
// connection; none for SQL Server, where it is an attribute of each statement's ODBC handle.
// SQLite waits only for another terminal's lock, so its busy wait is the time-out. PostgreSQL
// cancels a statement that outlasts statement_timeout, whose 0 is ADO's "no limit" too.
QString commandTimeoutSetting(Dialect dialect, int seconds) {
    switch (dialect) {
    case Dialect::SQLite:
        return QStringLiteral("PRAGMA busy_timeout = %1").arg(busyWaitMs(seconds));
    case Dialect::PostgreSQL:
        return QStringLiteral("SET statement_timeout = %1").arg(qint64(qMax(0, seconds)) * 1000);
    case Dialect::SqlServer:
        break;
    }
    return QString();
}

const QString kPostgresPrefix = QStringLiteral("pg:");

// The moment as PostgreSQL's timestamp (without time zone) holds it: the wall clock of the
// terminal, as SQL Server's datetime does. QPSQL would send it in UTC, which the session's time
// zone then moves.
const QString kPostgresDateTime = QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz");

QVariant postgresValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return value.toDateTime().toString(kPostgresDateTime);
    case QMetaType::QDate:
        return value.toDate().startOfDay().toString(kPostgresDateTime);
    default:
        return value;
    }
}

// The error number of a PostgreSQL SQLSTATE (five characters; the first two are its class).
int postgresErrorNumber(const QString& state, const QString& text) {
    const QString cls = state.left(2);
    // 08 connection exception, 28 invalid authorization, 3D unknown database, 57P0x the server
    // going away; a libpq failure with no SQLSTATE at all is the socket's.
    if (cls == QLatin1String("08") || cls == QLatin1String("28") || cls == QLatin1String("3D") ||
        state == QLatin1String("57P01") || state == QLatin1String("57P02") || state == QLatin1String("57P03"))
        return vbErr::ConnectionFailure;
    if (state.isEmpty() &&
        (text.contains(QLatin1String("server closed the connection"), Qt::CaseInsensitive) ||
         text.contains(QLatin1String("no connection to the server"), Qt::CaseInsensitive) ||
         text.contains(QLatin1String("connection to server"), Qt::CaseInsensitive)))
        return vbErr::ConnectionFailure;
    if (cls == QLatin1String("23"))
        return vbErr::IntegrityViolation; // not null, foreign key, unique, check
    if (state == QLatin1String("57014") || state == QLatin1String("55P03") || state == QLatin1String("40P01"))
        return vbErr::QueryTimeout; // statement_timeout, lock not available, deadlock victim
    return vbErr::SyntaxError;
}

// SQLSetStmtAttr of the ODBC driver manager that the QODBC plugin has loaded, found at run time so
// that the build needs no ODBC headers.
using SetStmtAttr = short(ODBC_API*)(void* statement, int attribute, void* value, int length);
SetStmtAttr setStmtAttr() {
    static const SetStmtAttr function = [] {
        QLibrary library(kOdbcLibrary);
        const auto resolved = reinterpret_cast<SetStmtAttr>(library.resolve("SQLSetStmtAttr"));
        if (!resolved)
            qWarning("No SQLSetStmtAttr in %s: statements run without a time-out",
                     qPrintable(library.fileName()));
        return resolved;
    }();
    return function;
}

// QODBC runs a statement given to exec(sql) on a handle it makes there and then: a statement's
// time-out can be set only between prepare() and exec().
void setQueryTimeout(const QSqlQuery& query, int seconds) {
    constexpr int kQueryTimeout = 0; // SQL_ATTR_QUERY_TIMEOUT, in seconds; 0 is no limit, as in ADO
    constexpr int kIsUInteger = -5;  // SQL_IS_UINTEGER
    const QVariant handle = query.result()->handle();
    const SetStmtAttr set = setStmtAttr();
    if (!set || handle.typeId() != QMetaType::VoidStar)
        return;
    void* statement = *static_cast<void* const*>(handle.constData());
    const short result = set(statement, kQueryTimeout,
                             reinterpret_cast<void*>(static_cast<quintptr>(qMax(0, seconds))), kIsUInteger);
    if (result != 0 && result != 1) // neither SQL_SUCCESS nor SQL_SUCCESS_WITH_INFO
        qWarning("The ODBC driver refused a query time-out of %d s", seconds);
}
} // namespace

QString databaseOf(const QString& connectionString) {
    return adoKeywords(connectionString).value(QStringLiteral("database"));
}

QString databaseFileOf(const QString& connectionString) {
    return QFileInfo(adoKeywords(connectionString).value(QStringLiteral("server"))).absoluteFilePath();
}

Dialect dialectOf(const QString& connectionString) {
    const QString server = adoKeywords(connectionString).value(QStringLiteral("server"));
    if (server.startsWith(kPostgresPrefix, Qt::CaseInsensitive))
        return Dialect::PostgreSQL;
    if (server.endsWith(QLatin1String(".db"), Qt::CaseInsensitive) || QFileInfo(server).isFile())
        return Dialect::SQLite;
    return Dialect::SqlServer;
}

PostgresAddress postgresAddressOf(const QString& connectionString) {
    QString server = adoKeywords(connectionString).value(QStringLiteral("server"));
    if (server.startsWith(kPostgresPrefix, Qt::CaseInsensitive))
        server = server.mid(kPostgresPrefix.size());
    PostgresAddress address;
    const int colon = server.lastIndexOf(QLatin1Char(':'));
    bool numeric = false;
    const int port = colon >= 0 ? server.mid(colon + 1).trimmed().toInt(&numeric) : 0;
    if (numeric && port > 0 && port < 65536) {
        address.port = port;
        server = server.left(colon);
    }
    address.host = server.trimmed();
    return address;
}

QString odbcConnectionString(const QString& connectionString) {
    const QHash<QString, QString>& ado = adoKeywords(connectionString);
    QString server = ado.value(QStringLiteral("server"));
    QString port;
    // "host,port" is SQL Server's own spelling of a port; a named instance finds its port itself.
    const int comma = server.indexOf(QLatin1Char(','));
    if (comma >= 0) {
        port = server.mid(comma + 1).trimmed();
        server = server.left(comma).trimmed();
    } else if (!server.contains(QLatin1Char('\\'))) {
        port = QStringLiteral("1433");
    }
    QStringList parts;
#ifdef Q_OS_WIN
    parts << QStringLiteral("Driver={SQL Server}");
#else
    parts << QStringLiteral("Driver={FreeTDS}");
#endif
    parts << QStringLiteral("Server=") + odbcValue(server);
    if (!port.isEmpty())
        parts << QStringLiteral("Port=") + port;
    parts << QStringLiteral("Database=") + odbcValue(ado.value(QStringLiteral("database")))
          << QStringLiteral("UID=") + odbcValue(ado.value(QStringLiteral("uid")))
          << QStringLiteral("PWD=") + odbcValue(ado.value(QStringLiteral("pwd")));
#ifndef Q_OS_WIN
    parts << QStringLiteral("TDS_Version=7.4");
#endif
    return parts.join(QLatin1Char(';'));
}

QSqlDatabase pooledDatabase(const QString& connectionString, int connectionTimeoutSeconds) {
    const QString name = poolPrefix() + connectionString;
    const Dialect dialect = dialectOf(connectionString);
    if (dialect == Dialect::SQLite) {
        // A vanished file must not come back empty, neither at the open nor under a pooled
        // connection that still holds the unlinked file.
        const QString file = databaseFileOf(connectionString);
        if (!QFileInfo::exists(file)) {
            if (QSqlDatabase::contains(name)) {
                t_tables.remove(name);
                dropPooled(name);
            }
            raiseError(vbErr::ConnectionFailure,
                       QStringLiteral("unable to open database file: %1").arg(file));
        }
    }
    if (QSqlDatabase::contains(name)) {
        QSqlDatabase db = QSqlDatabase::database(name, false);
        if (db.isOpen())
            return db;
        dropPooled(name);
    }

    // Idle reading connections may hold a file that has since been replaced: they go with the
    // connection they were opened beside.
    const QStringList idle = t_idleReaders.take(connectionString);
    for (const QString& reader : idle)
        dropPooled(reader);

    QSqlDatabase db;
    if (dialect == Dialect::SQLite) {
        db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        // mode=rw: SQLite opens an existing file only, never creates one.
        db.setDatabaseName(
            QString::fromLatin1(QUrl::fromLocalFile(databaseFileOf(connectionString)).toEncoded()) +
            QStringLiteral("?mode=rw"));
        // Until the first statement sets its own, the opener's login time-out is the busy wait:
        // the settings below may wait for another terminal too.
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1")
                                 .arg(busyWaitMs(connectionTimeoutSeconds)));
    } else if (dialect == Dialect::PostgreSQL) {
        const QHash<QString, QString>& ado = adoKeywords(connectionString);
        const PostgresAddress address = postgresAddressOf(connectionString);
        db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        db.setHostName(address.host);
        db.setPort(address.port);
        db.setDatabaseName(databaseOf(connectionString));
        db.setUserName(ado.value(QStringLiteral("uid")));
        db.setPassword(ado.value(QStringLiteral("pwd")));
        // libpq waits without limit at 0, as ADO does; it takes 1 as 2.
        if (connectionTimeoutSeconds > 0)
            db.setConnectOptions(QStringLiteral("connect_timeout=%1").arg(connectionTimeoutSeconds));
        db.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    } else {
        db = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), name);
        db.setDatabaseName(odbcConnectionString(connectionString));
        db.setConnectOptions(
            QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1").arg(qMax(1, connectionTimeoutSeconds)));
        db.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    }
    if (!db.open()) {
        const QSqlError error = db.lastError();
        db = QSqlDatabase();
        dropPooled(name);
        QString text = error.databaseText().trimmed();
        raiseError(vbErr::ConnectionFailure, text.isEmpty() ? error.driverText() : text);
    }
    if (dialect == Dialect::SQLite) {
        // Several terminals on one machine are several processes on one file. A garbage file
        // opens without complaint and fails here, on its first statement.
        const QStringList pragmas = {QStringLiteral("PRAGMA foreign_keys=ON"),
                                     QStringLiteral("PRAGMA journal_mode=WAL")};
        for (const QString& pragma : pragmas) {
            QSqlError error;
            {
                QSqlQuery q(db);
                if (!q.exec(pragma))
                    error = q.lastError();
            }
            if (error.isValid()) {
                db = QSqlDatabase();
                QString text = error.databaseText().trimmed();
                dropPooled(name);
                raiseError(vbErr::ConnectionFailure, text.isEmpty() ? error.driverText() : text);
            }
        }
        t_commandTimeouts.insert(name, connectionTimeoutSeconds);
    }
    return db;
}

void closePooledDatabases() {
    // The copies still reading finish first: their rows stay theirs after the files go.
    const QList<std::function<void()>> reading = t_lentReaders.values();
    for (const std::function<void()>& finish : reading)
        if (finish)
            finish();
    t_lentReaders.clear();
    t_idleReaders.clear();
    const QString& prefix = poolPrefix();
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString& name : names) {
        if (name.startsWith(prefix)) {
            t_tables.remove(name);
            dropPooled(name);
        }
    }
}

void setStatementObserver(std::function<void(const QString& sql)> observer) {
    s_observer = std::move(observer);
}

// By the driver's native code alone: QSQLITE reports a failed fetch as a connection error even for
// a constraint. A failed open is a connection failure of its own (pooledDatabase).
int errorNumberOf(Dialect dialect, const QSqlError& error) {
    if (dialect == Dialect::PostgreSQL)
        return postgresErrorNumber(error.nativeErrorCode().trimmed(), error.databaseText());
    const int native = error.nativeErrorCode().toInt();
    if (dialect == Dialect::SQLite) {
        switch (native & 0xff) { // the primary result code under the extended one
        case 10:                 // SQLITE_IOERR
        case 11:                 // SQLITE_CORRUPT
        case 14:                 // SQLITE_CANTOPEN
        case 26:                 // SQLITE_NOTADB
            return vbErr::ConnectionFailure;
        case 19: // SQLITE_CONSTRAINT
            return vbErr::IntegrityViolation;
        case 5: // SQLITE_BUSY
        case 6: // SQLITE_LOCKED
            return vbErr::QueryTimeout;
        default:
            return vbErr::SyntaxError;
        }
    }
    switch (native) {
    case 2:
    case 53:
    case 233:
    case 4060:
    case 10053:
    case 10054:
    case 10060:
    case 10061:
    case 18456:
    case 20002:
    case 20003:
    case 20004:
    case 20006:
    case 20009:
    case 20017:
    case 20047:
        return vbErr::ConnectionFailure; // network, server gone, login or database refused
    case 515:
    case 547:
    case 2601:
    case 2627:
        return vbErr::IntegrityViolation; // NULL into NOT NULL, foreign key, unique, primary key
    case 1222:
        return vbErr::QueryTimeout;
    default:
        break;
    }
    const QString text = error.databaseText();
    if (text.contains(QLatin1String("Communication link failure"), Qt::CaseInsensitive))
        return vbErr::ConnectionFailure;
    // A query time-out is ODBC's HYT00 with no native code; Qt 6.4 passes on only its text.
    if (text.contains(QLatin1String("Timeout expired"), Qt::CaseInsensitive) ||
        text.contains(QLatin1String("HYT00")))
        return vbErr::QueryTimeout;
    return vbErr::SyntaxError;
}

SqlSession::SqlSession(const QString& connectionString, int connectionTimeoutSeconds,
                       int commandTimeoutSeconds)
    : m_connectionString(connectionString), m_connectionTimeout(connectionTimeoutSeconds),
      m_commandTimeout(commandTimeoutSeconds), m_dialect(dialectOf(connectionString)) {}

void SqlSession::applyCommandTimeout(QSqlDatabase& db) {
    const QString name = db.connectionName();
    if (t_commandTimeouts.value(name, -1) == m_commandTimeout)
        return;
    const QString setting = commandTimeoutSetting(m_dialect, m_commandTimeout);
    if (setting.isEmpty())
        return;
    QSqlError error;
    {
        QSqlQuery q(db);
        if (!q.exec(setting))
            error = q.lastError();
    }
    if (error.isValid()) {
        db = QSqlDatabase();
        raiseSqlError(m_dialect, error, name);
    }
    t_commandTimeouts.insert(name, m_commandTimeout);
}

QSqlQuery SqlSession::exec(const QString& sql, const QVariantList& values, bool observed) {
    QSqlDatabase db = pooledDatabase(m_connectionString, m_connectionTimeout);
    applyCommandTimeout(db);
    if (observed && s_observer)
        s_observer(sql);
    QSqlError error;
    {
        QSqlQuery q(db);
        // QPSQL names a column's table only on a scrollable result: the copy reads bit columns by it.
        q.setForwardOnly(m_dialect != Dialect::PostgreSQL);
        bool ok;
        // SQL Server's statements all go prepared: their time-out is set on the handle in between.
        if (values.isEmpty() && m_dialect != Dialect::SqlServer) {
            ok = q.exec(sql);
        } else {
            ok = q.prepare(sql);
            if (ok) {
                if (m_dialect == Dialect::SqlServer)
                    setQueryTimeout(q, m_commandTimeout);
                for (const QVariant& value : values)
                    q.addBindValue(m_dialect == Dialect::PostgreSQL ? postgresValue(value) : value);
                ok = q.exec();
            }
        }
        if (ok)
            return q;
        error = q.lastError();
    }
    const QString name = db.connectionName();
    db = QSqlDatabase();
    raiseSqlError(m_dialect, error, name);
}

QSqlQuery SqlSession::execReading(const QString& sql, QString& reader) {
    QSqlDatabase main = pooledDatabase(m_connectionString, m_connectionTimeout);
    applyCommandTimeout(main);
    QStringList& idle = t_idleReaders[m_connectionString];
    if (idle.isEmpty()) {
        reader = poolPrefix() + QStringLiteral("reader%1|").arg(++t_readerCount) + m_connectionString;
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), reader);
        db.setDatabaseName(main.databaseName());
        db.setConnectOptions(
            QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(busyWaitMs(m_commandTimeout)));
        if (!db.open()) {
            const QSqlError error = db.lastError();
            db = QSqlDatabase();
            dropPooled(reader);
            raiseSqlError(m_dialect, error, reader);
        }
    } else {
        reader = idle.takeLast();
    }
    if (s_observer)
        s_observer(sql);
    QSqlError error;
    {
        QSqlQuery q(QSqlDatabase::database(reader, false));
        q.setForwardOnly(true);
        if (q.exec(sql)) {
            t_lentReaders.insert(reader, nullptr);
            return q;
        }
        error = q.lastError();
    }
    dropPooled(reader);
    raiseSqlError(m_dialect, error, reader);
}

void releaseReader(const QString& reader) {
    if (!t_lentReaders.remove(reader))
        return; // closed with the pool meanwhile
    const QString connectionString = reader.mid(reader.indexOf(QLatin1Char('|'), poolPrefix().size()) + 1);
    t_idleReaders[connectionString].append(reader);
}

void onReaderClosing(const QString& reader, std::function<void()> finish) {
    t_lentReaders.insert(reader, std::move(finish));
}

TableInfo SqlSession::tableInfo(const QString& table) {
    const QString poolName = poolPrefix() + m_connectionString;
    const QString key = table.toLower();
    {
        const auto pool = t_tables.constFind(poolName);
        if (pool != t_tables.constEnd() && pool->contains(key))
            return pool->value(key);
    }
    TableInfo info;
    if (m_dialect == Dialect::SQLite) {
        QSqlQuery q = exec(QStringLiteral("PRAGMA table_info([%1])").arg(table), {}, false);
        QMap<int, QString> keyOrder;
        while (q.next()) {
            const QString column = q.value(1).toString();
            info.kinds.insert(column.toLower(), kindOfDeclaredType(q.value(2).toString()));
            if (q.value(5).toInt() > 0)
                keyOrder.insert(q.value(5).toInt(), column);
        }
        info.key = keyOrder.values();
    } else if (m_dialect == Dialect::PostgreSQL) {
        // Unquoted names fold to lower case; the table is the one the search path finds.
        QSqlQuery q =
            exec(QStringLiteral("SELECT a.attname, t.typname, array_position(i.indkey::int2[], a.attnum) "
                                "FROM pg_attribute a JOIN pg_type t ON t.oid = a.atttypid "
                                "LEFT JOIN pg_index i ON i.indrelid = a.attrelid AND i.indisprimary "
                                "WHERE a.attrelid = to_regclass(lower(?)) AND a.attnum > 0 "
                                "AND NOT a.attisdropped ORDER BY a.attnum"),
                 {table}, false);
        QMap<int, QString> keyOrder;
        while (q.next()) {
            const QString column = q.value(0).toString();
            info.kinds.insert(column.toLower(), kindOfDeclaredType(q.value(1).toString()));
            if (!q.value(2).isNull())
                keyOrder.insert(q.value(2).toInt(), column);
        }
        info.key = keyOrder.values();
    } else {
        QSqlQuery q = exec(
            QStringLiteral("SELECT KU.COLUMN_NAME FROM INFORMATION_SCHEMA.TABLE_CONSTRAINTS TC "
                           "INNER JOIN INFORMATION_SCHEMA.KEY_COLUMN_USAGE KU "
                           "ON KU.CONSTRAINT_NAME = TC.CONSTRAINT_NAME AND KU.TABLE_NAME = TC.TABLE_NAME "
                           "WHERE TC.CONSTRAINT_TYPE = 'PRIMARY KEY' AND TC.TABLE_NAME = ? "
                           "ORDER BY KU.ORDINAL_POSITION"),
            {table}, false);
        while (q.next())
            info.key << q.value(0).toString();
    }
    t_tables[poolName].insert(key, info);
    return info;
}

QString SqlSession::quote(const QString& name) const {
    if (m_dialect == Dialect::PostgreSQL)
        return QLatin1Char('"') + name.toLower() + QLatin1Char('"');
    return QLatin1Char('[') + name + QLatin1Char(']');
}

void SqlSession::forgetTables() {
    t_tables.remove(poolPrefix() + m_connectionString);
}

QVariant SqlSession::toDatabase(const QVariant& value) const {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? 1 : 0; // bit columns hold 0 and 1, never -1 or "true"
    case QMetaType::QDateTime:
        if (m_dialect == Dialect::SQLite)
            return value.toDateTime().toString(kSqliteDateTime);
        return value;
    case QMetaType::QDate:
        if (m_dialect == Dialect::SQLite)
            return value.toDate().startOfDay().toString(kSqliteDateTime);
        return value;
    default:
        return value;
    }
}

QVariant fromDatabase(Dialect dialect, const QVariant& value, ColumnKind kind) {
    if (value.isNull())
        return QVariant();
    if (dialect == Dialect::SqlServer)
        return value;
    switch (kind) {
    case ColumnKind::Bit:
        return value.toLongLong() != 0;
    case ColumnKind::DateTime:
        if (value.typeId() == QMetaType::QString) {
            const QDateTime moment = QDateTime::fromString(value.toString(), Qt::ISODate);
            if (moment.isValid())
                return moment;
        }
        return value;
    case ColumnKind::Plain:
        break;
    }
    return value;
}
