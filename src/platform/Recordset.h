#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>

enum SearchDirection { adSearchForward = 1, adSearchBackward = -1 };

// A client-side static copy of a query's result with optimistic locking, as the original's
// recordsets were. Reading or writing with no current row raises 3021, an unknown field 3265,
// a closed recordset 3704. Update writes the current row back through the pooled connection of
// the connection string it was read with (see Connection.h).
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

    // One-column criterion ("mesa =3", "Nome = 'ANA'"), from the current row; not found: EOF
    // (forward) or BOF (backward).
    void Find(const QString& criteria, int skipRecords = 0, SearchDirection direction = adSearchForward);

    // Clauses joined by AND/OR; "" removes the filter. Moves to the first visible row.
    void setFilter(const QString& criteria);
    QString Filter() const;

    QVariant Bookmark() const;
    void setBookmark(const QVariant& bookmark);

    void AddNew();
    void Update();
    void Close();

    // Used by the data layer to fill the copy.
    struct Data;
    explicit Recordset(std::unique_ptr<Data> data);

private:
    std::unique_ptr<Data> d;
};
