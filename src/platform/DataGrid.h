#pragma once

#include <QList>
#include <QTableView>

class Recordset;
class RecordsetModel;

// The original's data grid: a grid bound to a recordset's client copy through a model, so that
// filtering is the recordset's own and only the rows on screen are drawn. A click on a row makes
// it the recordset's current row. Columns show fields by name with the formats given.
class DataGrid : public QTableView {
    Q_OBJECT

public:
    struct Column {
        QString caption;
        QString field;
        // In the locale's notation ("R$" #.##0,00); empty: the value's own text. A text field
        // shows as it is.
        QString format;
    };

    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    void setColumns(const QList<Column>& columns);
    // Binds the grid to the recordset (again, after a Refresh replaced its rows or a Filter changed
    // them); the current row shows selected unless none is.
    void setDataSource(Recordset& recordset);
    // SelBookmarks: the first selected bookmark removed; the recordset's current row added.
    void removeSelBookmark();
    void addCurrentBookmark();

signals:
    void DblClick();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    RecordsetModel* m_model;
};
