#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>

enum SearchDirection { adSearchForward = 1, adSearchBackward = -1 };

// A client-side static copy of a query's result with optimistic locking, as the original's
// recordsets were. Reading or writing with no current row raises 3021, an unknown field 3265,
// a closed recordset 3704. A database NULL reads as a null QVariant; on every dialect bit columns
// read as bool and datetime columns as QDateTime.
//
// Update writes the current row back through the pooled connection of the connection string it
// was read with (see Connection.h): UPDATE of the changed columns WHERE the primary key and each
// changed column still hold the values read (a table without a key: every column), values bound.
// No row matched raises -2147217864 and the row is left as the other terminal wrote it. After
// AddNew, Update inserts and re-reads the row, so its identity and defaults are there. Leaving a
// row with unsaved changes (a Move, Find, Filter, Bookmark or AddNew) writes it first, as the
// original's cursor did; Close and DataControl::Refresh drop them. Update works on a recordset of
// one table's rows (SELECT ... FROM table [WHERE ...] [ORDER BY ...]); otherwise it raises 3251.
class Recordset {
public:
    class Field {
    public:
        QVariant Value() const;
        void setValue(const QVariant& value);
        QString Name() const;

    private:
        friend class Recordset;
        Field(Recordset* rs, int index) : m_rs(rs), m_index(index) {}
        Recordset* m_rs;
        int m_index;
    };

    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    bool isOpen() const;
    int RecordCount() const;
    bool Eof() const;
    bool Bof() const;

    Field Fields(const QString& name);
    Field Fields(int index);
    int FieldCount() const;

    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();

    // One-column criterion ("mesa =3", "Nome = 'ANA'"; grammar in Criteria.h), from the current
    // row; not found: EOF (forward) or BOF (backward). No current row raises 3021.
    void Find(const QString& criteria, int skipRecords = 0, SearchDirection direction = adSearchForward);

    // Clauses joined by AND/OR; "" removes the filter. Moves to the first visible row.
    void setFilter(const QString& criteria);
    QString Filter() const;

    // A token of the current row, valid for this copy (filtered or not) until the next Refresh.
    QVariant Bookmark() const;
    void setBookmark(const QVariant& bookmark);

    // The place of the current row among the visible ones, 1 for the first; 0 with none (BOF, EOF).
    // Setting it moves there, as a grid's click does.
    int AbsolutePosition() const;
    void setAbsolutePosition(int position);
    // A value of the visible row at position (1 for the first), without moving: what a grid shows.
    QVariant valueAt(int position, int column) const;

    void AddNew();
    void Update();
    void Close();

    // Used by the data layer to fill the copy.
    struct Data;
    explicit Recordset(std::unique_ptr<Data> data);

private:
    Data& open() const;
    int currentRow() const; // index into the copy's rows; 3021 without one
    void moveTo(int position);
    std::function<int(const QString&)> columnLookup() const;

    std::unique_ptr<Data> d;
};
