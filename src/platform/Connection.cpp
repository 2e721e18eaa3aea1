#include "platform/Connection.h"

#include "platform/RecordsetData.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <QSqlField>
#include <QSqlRecord>

int Recordset::Data::firstRows = 64;

Recordset::Data::Pending::~Pending() {
    query = QSqlQuery(); // the statement ends before its connection goes back
    releaseReader(reader);
}

void Recordset::Data::fetch(int count) {
    if (!pending)
        return;
    const int width = columns.size();
    QVector<Row> read;
    bool more = true;
    while (count < 0 || read.size() < count) {
        // A failed step ends the rows, as it does for a copy read whole.
        if (!pending->query.next()) {
            more = false;
            break;
        }
        Row row;
        row.original.resize(width);
        for (int i = 0; i < width; ++i) {
            QVariant raw = pending->query.value(i);
            if (!raw.isNull())
                row.original[i] = std::move(raw);
        }
        row.bookmark = queryRows + read.size();
        read.append(std::move(row));
    }
    if (!more)
        pending.reset();
    if (read.isEmpty())
        return;
    // In before the added rows; a position or edit among those moves on with them.
    const int at = queryRows;
    const int n = read.size();
    const bool afterAdded = at < rows.size();
    if (afterAdded) {
        rows.insert(at, n, Row());
        std::move(read.begin(), read.end(), rows.begin() + at);
    } else {
        rows.append(read);
    }
    queryRows += n;
    view.resize(rows.size());
    for (int i = at; i < view.size(); ++i)
        view[i] = i;
    if (afterAdded && position >= at)
        position += n;
    if (afterAdded && editing >= at)
        editing += n;
}

std::unique_ptr<Recordset::Data> Recordset::Data::fromQuery(SqlSession& session, QSqlQuery&& query,
                                                            const QString& reader) {
    auto d = std::make_unique<Data>();
    d->dialect = session.dialect();
    const QSqlRecord record = query.record();
    d->columns.resize(record.count());
    QString table;
    TableInfo info;
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        Column& column = d->columns[i];
        column.name = field.name();
        // SQLite and PostgreSQL name the table a column comes from; its declared type says how to
        // read it.
        if (d->dialect != Dialect::SqlServer && !field.tableName().isEmpty()) {
            if (field.tableName() != table) {
                table = field.tableName();
                info = session.tableInfo(table);
            }
            column.kind = info.kinds.value(column.name.toLower(), ColumnKind::Plain);
        }
        if (!d->columnIndex.contains(column.name.toLower()))
            d->columnIndex.insert(column.name.toLower(), i);
    }
    d->pending.reset(new Pending{std::move(query), reader});
    if (reader.isEmpty()) {
        d->fetch(-1);
        return d;
    }
    // The current row is always read: only navigations and searches read on.
    d->fetch(qMax(1, firstRows));
    if (d->pending) {
        Data* copy = d.get();
        onReaderClosing(reader, [copy] { copy->fetchAll(); });
    }
    return d;
}

Recordset executeStatement(const QString& connectionString, const QString& sql, int connectionTimeoutSeconds,
                           int commandTimeoutSeconds) {
    SqlSession session(connectionString, connectionTimeoutSeconds, commandTimeoutSeconds);
    // A SQLite SELECT is read as far as it is needed (see RecordsetData.h).
    static const QRegularExpression select(QStringLiteral("^\\s*SELECT\\b"),
                                           QRegularExpression::CaseInsensitiveOption);
    QString reader;
    QSqlQuery query = session.dialect() == Dialect::SQLite && select.match(sql).hasMatch()
                          ? session.execReading(sql, reader)
                          : session.exec(sql);
    static const QRegularExpression ddl(QStringLiteral("^\\s*(CREATE|ALTER|DROP)\\b"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (ddl.match(sql).hasMatch())
        session.forgetTables();
    if (!query.isSelect()) {
        query = QSqlQuery();
        releaseReader(reader);
        return Recordset();
    }
    auto d = Recordset::Data::fromQuery(session, std::move(query), reader);
    d->connectionString = connectionString;
    d->connectionTimeout = connectionTimeoutSeconds;
    d->commandTimeout = commandTimeoutSeconds;
    d->source = sql;
    return Recordset(std::move(d));
}

void Connection::Open(const QString& connectionString) {
    pooledDatabase(connectionString, ConnectionTimeout);
    m_connectionString = connectionString;
}

Recordset Connection::Execute(const QString& sql) {
    if (m_connectionString.isEmpty())
        raiseError(vbErr::ConnectionNotOpen);
    return executeStatement(m_connectionString, sql, ConnectionTimeout, CommandTimeout);
}

Dialect Connection::dialect() const {
    return dialectOf(m_connectionString);
}
