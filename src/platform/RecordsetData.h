#pragma once

#include "platform/Recordset.h"
#include "platform/SqlSession.h"

#include <QHash>
#include <QMetaType>
#include <QSqlQuery>
#include <QVector>

// The client-side copy behind a Recordset.
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
    int editing = -1;      // the row with unsaved changes, always the current one
    QVector<bool> changed; // of the editing row, per column

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

    // Reads every row of an executed SELECT.
    static std::unique_ptr<Data> fromQuery(SqlSession& session, QSqlQuery& query);
};
