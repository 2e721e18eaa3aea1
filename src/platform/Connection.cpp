#include "platform/Connection.h"

#include "platform/RecordsetData.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <QSqlField>
#include <QSqlRecord>

std::unique_ptr<Recordset::Data> Recordset::Data::fromQuery(SqlSession& session, QSqlQuery& query) {
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
    const int count = d->columns.size();
    while (query.next()) {
        Row row;
        row.original.resize(count);
        for (int i = 0; i < count; ++i) {
            QVariant raw = query.value(i);
            if (!raw.isNull())
                row.original[i] = std::move(raw);
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
