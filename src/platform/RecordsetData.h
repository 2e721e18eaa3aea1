#pragma once

#include "platform/Recordset.h"
#include "platform/SqlSession.h"

#include <QHash>
#include <QMetaType>
#include <QSqlQuery>
#include <QVector>

// The client-side copy behind a Recordset. On SQLite its rows are read when something needs them:
// the statement runs on a reading connection of its own (SqlSession::execReading), which keeps
// the rows of the moment it ran, and the copy reads on from it as a navigation, a count, a search,
// a filter or a bookmark reaches past what it holds. Rows added meanwhile stay after all of the
// statement's rows, as they would in a copy read whole: while rows remain to be read, the rows
// held are the statement's first queryRows ones followed by the added ones, and a position past
// queryRows counts from there (it moves on as more of the statement's rows come in before it).
struct Recordset::Data {
    struct Column {
        QString name;
        ColumnKind kind = ColumnKind::Plain;
    };
    struct Row {
        QVector<QVariant> original; // as the database holds it, for the optimistic WHERE
        // As the program sees them, edits included. Empty while the row is as it was read: its
        // values are then the originals, converted when asked for, so that rows nobody reads cost
        // no conversion.
        QVector<QVariant> values;
        bool added = false; // AddNew'ed and not yet inserted
        int bookmark = 0;   // the statement's rows from 0 on; added rows from -1 down
    };
    // The statement still being read, on its lent reading connection.
    struct Pending {
        QSqlQuery query;
        QString reader;
        ~Pending();
    };

    QString connectionString;
    int connectionTimeout = 15;
    int commandTimeout = 30;
    QString source; // the statement the rows came from; Update writes to its table
    Dialect dialect = Dialect::SQLite;

    QVector<Column> columns;
    QHash<QString, int> columnIndex; // by lower-case name
    QVector<Row> rows;
    QVector<int> view; // rows visible through the filter, in order
    int position = 0;  // index into view: -1 is BOF, view.size() is EOF
    QString filter;
    int editing = -1;                 // the row with unsaved changes, always the current one
    QVector<bool> changed;            // of the editing row, per column
    std::unique_ptr<Pending> pending; // rows of the statement not read yet; never with a filter
    int queryRows = 0;                // rows read from the statement, first in rows
    int addedRows = 0;                // rows added by AddNew, for their bookmarks

    // Rows a SQLite statement gives at once; the rest wait until something needs them.
    static int firstRows;

    // Reads `count` more rows of the statement, or all that are left with -1.
    void fetch(int count);
    void fetchAll() {
        if (pending)
            fetch(-1);
    }
    // Reads the statement up to the row at view position `index`, counted among all of its rows,
    // or to its end.
    void reach(int index) {
        if (pending && index >= queryRows)
            fetch(index - queryRows + 1);
    }
    // Whether a position counts from the end of the statement's rows, still unread.
    bool pastRead(int index) const { return pending && index >= queryRows; }

    // A value of a row as the program sees it.
    QVariant value(const Row& row, int column) const {
        return row.values.isEmpty() ? fromDatabase(dialect, row.original.at(column), columns.at(column).kind)
                                    : row.values.at(column);
    }
    // The values of a row, converted once and kept from then on (to be edited or matched).
    QVector<QVariant>& values(Row& row) const {
        if (row.values.isEmpty()) {
            QVector<QVariant> converted;
            converted.reserve(columns.size());
            for (int i = 0; i < columns.size(); ++i)
                converted.append(fromDatabase(dialect, row.original.at(i), columns.at(i).kind));
            row.values = std::move(converted);
        }
        return row.values;
    }

    // The copy of an executed SELECT: every row, or with `reader` (the reading connection the
    // query runs on) the first rows and the rest on demand.
    static std::unique_ptr<Data> fromQuery(SqlSession& session, QSqlQuery&& query,
                                           const QString& reader = QString());
};
