#include "platform/Recordset.h"

#include "platform/Criteria.h"
#include "platform/RecordsetData.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>
#include <QSqlRecord>

namespace {
using Data = Recordset::Data;

// The table a single-table SELECT reads; empty for a join or anything else.
QString baseTable(const QString& source) {
    static const QRegularExpression select(QStringLiteral("^\\s*SELECT\\s.+?\\sFROM\\s+([\\w\\[\\]\\.]+)(?:"
                                                          "\\s+(?:AS\\s+)?\\w+)?\\s*(?:$|WHERE\\b|ORDER\\b)"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = select.match(source);
    if (!match.hasMatch())
        return QString();
    QString table = match.captured(1).split(QLatin1Char('.')).last();
    table.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
    return table;
}

// "[c] = ?" with the value bound, or "[c] IS NULL".
void addCondition(const SqlSession& session, QStringList& conditions, QVariantList& values,
                  const QString& column, const QVariant& original) {
    if (original.isNull()) {
        conditions << session.quote(column) + QStringLiteral(" IS NULL");
    } else {
        conditions << session.quote(column) + QStringLiteral(" = ?");
        values << original;
    }
}

// Replaces the row with the database's version of it, read by the condition given.
void reread(SqlSession& session, Data& d, Data::Row& row, const QString& table, const QString& condition,
            const QVariant& value) {
    QStringList columns;
    for (const Data::Column& column : std::as_const(d.columns))
        columns << session.quote(column.name);
    QSqlQuery q = session.exec(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?")
                                   .arg(columns.join(QLatin1Char(',')), session.quote(table), condition),
                               {value}, false);
    if (!q.next())
        return;
    for (int i = 0; i < d.columns.size(); ++i)
        row.original[i] = q.value(i).isNull() ? QVariant() : q.value(i);
    row.values.clear(); // as read: converted when asked for
}

void insertRow(SqlSession& session, Data& d, Data::Row& row, const QString& table, const TableInfo& info) {
    QStringList columns, placeholders;
    QVariantList values;
    for (int i = 0; i < d.columns.size(); ++i) {
        if (!d.changed.at(i))
            continue;
        columns << session.quote(d.columns[i].name);
        if (row.values[i].isNull()) {
            placeholders << QStringLiteral("NULL");
        } else {
            placeholders << QStringLiteral("?");
            values << session.toDatabase(row.values[i]);
        }
    }
    const QString insert = columns.isEmpty()
                               ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(session.quote(table))
                               : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                     .arg(session.quote(table), columns.join(QLatin1Char(',')),
                                          placeholders.join(QLatin1Char(',')));
    for (int i = 0; i < d.columns.size(); ++i)
        row.original[i] = d.changed.at(i) ? session.toDatabase(row.values[i]) : QVariant();

    // Read the row back: the identity and the defaults are the database's.
    if (session.dialect() == Dialect::SQLite) {
        const QVariant rowid = session.exec(insert, values).lastInsertId();
        reread(session, d, row, table, QStringLiteral("rowid"), rowid);
        return;
    }
    const bool singleKey = info.key.size() == 1;
    QVariant identity;
    if (session.dialect() == Dialect::PostgreSQL) {
        // The key as the insert made it, identity or not.
        QSqlQuery q = session.exec(
            singleKey ? insert + QStringLiteral(" RETURNING ") + session.quote(info.key.first()) : insert,
            values);
        if (singleKey && q.next())
            identity = q.value(0);
    } else {
        // SCOPE_IDENTITY, not @@IDENTITY: a trigger's insert elsewhere must not leak in.
        QSqlQuery q = session.exec(QStringLiteral("SET NOCOUNT ON; ") + insert +
                                       QStringLiteral("; SELECT SCOPE_IDENTITY()"),
                                   values);
        while (!q.isSelect() && q.nextResult()) {
        }
        identity = q.next() ? q.value(0) : QVariant();
    }
    if (!singleKey || !d.columnIndex.contains(info.key.first().toLower()))
        return;
    const int keyColumn = d.columnIndex.value(info.key.first().toLower());
    const QVariant key = identity.isNull() ? row.original[keyColumn] : identity;
    if (!key.isNull())
        reread(session, d, row, table, session.quote(info.key.first()), key);
}

void updateRow(SqlSession& session, Data& d, Data::Row& row, const QString& table, const TableInfo& info) {
    QStringList assignments, conditions;
    QVariantList values;
    for (int i = 0; i < d.columns.size(); ++i) {
        if (!d.changed.at(i))
            continue;
        if (row.values[i].isNull()) {
            assignments << session.quote(d.columns[i].name) + QStringLiteral(" = NULL");
        } else {
            assignments << session.quote(d.columns[i].name) + QStringLiteral(" = ?");
            values << session.toDatabase(row.values[i]);
        }
    }
    if (assignments.isEmpty())
        return;

    // Optimistic lock: the key, and every changed column as it was read. Without a key in the
    // copy every column must still hold what was read.
    bool keyed = !info.key.isEmpty();
    for (const QString& column : info.key)
        keyed = keyed && d.columnIndex.contains(column.toLower());
    for (int i = 0; i < d.columns.size(); ++i) {
        bool inKey = false;
        for (const QString& column : info.key)
            inKey = inKey || column.compare(d.columns[i].name, Qt::CaseInsensitive) == 0;
        if (!keyed || inKey || d.changed.at(i))
            addCondition(session, conditions, values, d.columns[i].name, row.original[i]);
    }

    QSqlQuery q = session.exec(QStringLiteral("UPDATE %1 SET %2 WHERE %3")
                                   .arg(session.quote(table), assignments.join(QStringLiteral(", ")),
                                        conditions.join(QStringLiteral(" AND "))),
                               values);
    if (q.numRowsAffected() == 0)
        raiseError(vbErr::RowNotLocated);
    for (int i = 0; i < d.columns.size(); ++i)
        if (d.changed.at(i))
            row.original[i] = row.values[i].isNull() ? QVariant() : session.toDatabase(row.values[i]);
}

// Writes the row with unsaved changes; it stays unsaved when the write fails.
void save(Data& d) {
    if (d.editing < 0)
        return;
    const QString table = baseTable(d.source);
    if (table.isEmpty())
        raiseError(vbErr::NotUpdatable);
    SqlSession session(d.connectionString, d.connectionTimeout, d.commandTimeout);
    const TableInfo info = session.tableInfo(table);
    Data::Row& row = d.rows[d.editing];
    if (row.added)
        insertRow(session, d, row, table, info);
    else
        updateRow(session, d, row, table, info);
    row.added = false;
    d.editing = -1;
}

bool hasCurrent(const Data& d) {
    return d.position >= 0 && d.position < d.view.size();
}
} // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::Recordset(std::unique_ptr<Data> data) : d(std::move(data)) {}

bool Recordset::isOpen() const {
    return d != nullptr;
}

Recordset::Data& Recordset::open() const {
    if (!d)
        raiseError(vbErr::ObjectClosed);
    return *d;
}

int Recordset::currentRow() const {
    const Data& data = open();
    if (!hasCurrent(data))
        raiseError(vbErr::NoCurrentRecord);
    return data.view[data.position];
}

int Recordset::RecordCount() const {
    Data& data = open();
    data.fetchAll();
    return data.view.size();
}

bool Recordset::Eof() const {
    Data& data = open();
    data.reach(0);
    return data.view.isEmpty() || data.position >= data.view.size();
}

bool Recordset::Bof() const {
    Data& data = open();
    data.reach(0);
    return data.view.isEmpty() || data.position < 0;
}

Recordset::Field Recordset::Fields(const QString& name) {
    const Data& data = open();
    const auto it = data.columnIndex.constFind(name.toLower());
    if (it == data.columnIndex.constEnd())
        raiseError(vbErr::ItemNotFound);
    return Field(this, *it);
}

Recordset::Field Recordset::Fields(int index) {
    if (index < 0 || index >= open().columns.size())
        raiseError(vbErr::ItemNotFound);
    return Field(this, index);
}

int Recordset::FieldCount() const {
    return open().columns.size();
}

QVariant Recordset::Field::Value() const {
    const int row = m_rs->currentRow();
    const Data& data = *m_rs->d;
    return data.value(data.rows.at(row), m_index);
}

void Recordset::Field::setValue(const QVariant& value) {
    const int current = m_rs->currentRow();
    Data& data = *m_rs->d;
    if (data.editing != current) {
        save(data);
        data.editing = current;
        data.changed.fill(false, data.columns.size());
    }
    data.values(data.rows[current])[m_index] = value.isNull() ? QVariant() : value;
    data.changed[m_index] = true;
}

QString Recordset::Field::Name() const {
    return m_rs->open().columns.at(m_index).name;
}

// Leaving a row with unsaved changes writes it first, as the original's cursor did.
void Recordset::moveTo(int position) {
    Data& data = open();
    save(data);
    data.position = position;
}

void Recordset::MoveFirst() {
    open().reach(0);
    if (d->view.isEmpty())
        raiseError(vbErr::NoCurrentRecord);
    moveTo(0);
}

void Recordset::MoveLast() {
    open().fetchAll();
    if (d->view.isEmpty())
        raiseError(vbErr::NoCurrentRecord);
    moveTo(d->view.size() - 1);
}

void Recordset::MoveNext() {
    if (Eof())
        raiseError(vbErr::NoCurrentRecord);
    // From an added row the next one is known; from one of the statement's, it may be unread.
    if (!d->pastRead(d->position))
        d->reach(d->position + 1);
    moveTo(d->position + 1);
}

void Recordset::MovePrevious() {
    if (Bof())
        raiseError(vbErr::NoCurrentRecord);
    // Before the first added row comes the statement's last.
    if (d->pastRead(d->position))
        d->fetchAll();
    moveTo(d->position - 1);
}

std::function<int(const QString&)> Recordset::columnLookup() const {
    return [this](const QString& name) {
        const auto it = d->columnIndex.constFind(name.toLower());
        if (it == d->columnIndex.constEnd())
            raiseError(vbErr::ItemNotFound);
        return *it;
    };
}

void Recordset::Find(const QString& criteria, int skipRecords, SearchDirection direction) {
    Data& data = open();
    const Criteria criterion(criteria, columnLookup());
    if (criterion.clauseCount() != 1)
        raiseError(vbErr::BadArguments); // one column only
    if (!hasCurrent(data))
        raiseError(vbErr::NoCurrentRecord);
    save(data);
    const int step = direction == adSearchBackward ? -1 : 1;
    if (step < 0 || data.pastRead(data.position))
        data.fetchAll();
    int position = data.position + step * skipRecords;
    while (position >= 0) {
        data.reach(position);
        if (position >= data.view.size() || criterion.matches(data.values(data.rows[data.view[position]])))
            break;
        position += step;
    }
    data.position = qBound(-1, position, int(data.view.size()));
}

void Recordset::setFilter(const QString& criteria) {
    Data& data = open();
    data.fetchAll();
    QVector<int> view;
    if (criteria.trimmed().isEmpty()) {
        save(data);
        view.resize(data.rows.size());
        for (int i = 0; i < data.rows.size(); ++i)
            view[i] = i;
    } else {
        const Criteria criterion(criteria, columnLookup());
        save(data);
        for (int i = 0; i < data.rows.size(); ++i)
            if (criterion.matches(data.values(data.rows[i])))
                view << i;
    }
    data.view = view;
    data.filter = criteria.trimmed().isEmpty() ? QString() : criteria;
    data.position = 0;
}

QString Recordset::Filter() const {
    return open().filter;
}

QVariant Recordset::Bookmark() const {
    const Data& data = open();
    if (!hasCurrent(data))
        raiseError(vbErr::NoCurrentRecord);
    return data.rows.at(data.view[data.position]).bookmark;
}

int Recordset::AbsolutePosition() const {
    Data& data = open();
    if (!hasCurrent(data))
        return 0;
    if (data.pastRead(data.position))
        data.fetchAll();
    return data.position + 1;
}

void Recordset::setAbsolutePosition(int position) {
    open().reach(position - 1);
    if (position < 1 || position > d->view.size())
        raiseError(vbErr::InvalidCall);
    moveTo(position - 1);
}

QVariant Recordset::valueAt(int position, int column) const {
    Data& data = open();
    data.reach(position - 1);
    return data.value(data.rows.at(data.view.at(position - 1)), column);
}

void Recordset::setBookmark(const QVariant& bookmark) {
    Data& data = open();
    bool ok = false;
    const int token = bookmark.toInt(&ok);
    const auto find = [&data, token] {
        for (int i = 0; i < data.view.size(); ++i)
            if (data.rows.at(data.view[i]).bookmark == token)
                return i;
        return -1;
    };
    int position = ok ? find() : -1;
    if (ok && position < 0 && data.pending) {
        data.fetchAll();
        position = find();
    }
    if (position < 0)
        raiseError(vbErr::BadArguments);
    moveTo(position);
}

void Recordset::AddNew() {
    Data& data = open();
    save(data);
    Data::Row row;
    row.values.resize(data.columns.size());
    row.original.resize(data.columns.size());
    row.added = true;
    row.bookmark = -++data.addedRows;
    data.rows.append(row);
    data.view.append(data.rows.size() - 1);
    data.position = data.view.size() - 1;
    data.editing = data.rows.size() - 1;
    data.changed.fill(false, data.columns.size());
}

void Recordset::Update() {
    Data& data = open();
    if (data.editing < 0) {
        currentRow(); // nothing to write, but a current row is still required
        return;
    }
    save(data);
}

void Recordset::Close() {
    open();
    d.reset();
}
