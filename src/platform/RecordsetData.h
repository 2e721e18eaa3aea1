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
        QVector<QVariant> values;   // as the program sees them, edits included
        QVector<QVariant> original; // as the database holds it, for the optimistic WHERE
        bool added = false;         // AddNew'ed and not yet inserted
    };

    QString connectionString;
    int connectionTimeout = 15;
    int commandTimeout = 30;
    QString source; // the statement the rows came from; Update writes to its table

    QVector<Column> columns;
    QHash<QString, int> columnIndex; // by lower-case name
    QVector<Row> rows;
    QVector<int> view; // rows visible through the filter, in order
    int position = 0;  // index into view: -1 is BOF, view.size() is EOF
    QString filter;
    int editing = -1;      // the row with unsaved changes, always the current one
    QVector<bool> changed; // of the editing row, per column

    // Reads every row of an executed SELECT.
    static std::unique_ptr<Data> fromQuery(SqlSession& session, QSqlQuery& query);
};
