#include "platform/Connection.h"

#include "platform/RecordsetData.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <QSqlField>
#include <QSqlRecord>

std::unique_ptr<Recordset::Data> Recordset::Data::fromQuery(SqlSession& session, QSqlQuery& query) {
    auto d = std::make_unique<Data>();
    const QSqlRecord record = query.record();
    d->columns.resize(record.count());
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        Column& column = d->columns[i];
        column.name = field.name();
        // SQLite names the table a column comes from; its declared type says how to read it.
        if (session.dialect() == Dialect::SQLite && !field.tableName().isEmpty())
            column.kind =
                session.tableInfo(field.tableName()).kinds.value(column.name.toLower(), ColumnKind::Plain);
        if (!d->columnIndex.contains(column.name.toLower()))
            d->columnIndex.insert(column.name.toLower(), i);
    }
    const int count = d->columns.size();
    while (query.next()) {
        Row row;
        row.values.resize(count);
        row.original.resize(count);
        for (int i = 0; i < count; ++i) {
            const QVariant raw = query.value(i);
            if (!raw.isNull())
                row.original[i] = raw;
            row.values[i] = session.fromDatabase(raw, d->columns[i].kind);
        }
        d->rows.append(std::move(row));
    }
    d->view.resize(d->rows.size());
    for (int i = 0; i < d->rows.size(); ++i)
        d->view[i] = i;
    return d;
}

Recordset executeStatement(const QString& connectionString, const QString& sql, int connectionTimeoutSeconds,
                           int commandTimeoutSeconds) {
    SqlSession session(connectionString, connectionTimeoutSeconds, commandTimeoutSeconds);
    QSqlQuery query = session.exec(sql);
    static const QRegularExpression ddl(QStringLiteral("^\\s*(CREATE|ALTER|DROP)\\b"),
                                        QRegularExpression::CaseInsensitiveOption);
    if (ddl.match(sql).hasMatch())
        session.forgetTables();
    if (!query.isSelect())
        return Recordset();
    auto d = Recordset::Data::fromQuery(session, query);
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
