#pragma once

#include <QList>
#include <QTableView>

class Recordset;
class RecordsetModel;

// The original's data grid: a grid bound to a recordset's client copy through a model, so that
// filtering is the recordset's own and only the rows on screen are drawn. A click on a row makes
// it the recordset's current row. Columns show fields by name with the formats given.
// A grid on a screen loaded hidden (the product search's) is rebuilt with every search: the view
// takes its model only when it is first shown or its model is asked for, and the selection asked
// for meanwhile is applied then.
class DataGrid : public QTableView {
    Q_OBJECT

public:
    struct Column {
        QString caption;
        QString field;
        // In the locale's notation ("R$" #.##0,00); empty: the value's own text. A text field
        // shows as it is.
        QString format;
        int width = 0; // pixels; 0 leaves the header's own
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

    // The view's model and selection, the view bound first if it is not yet.
    QAbstractItemModel* model() const;
    QItemSelectionModel* selectionModel() const;
    QModelIndex currentIndex() const;

signals:
    void DblClick();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool isBound() const;
    void bindView();
    void applyWidths();
    void selectCurrent();

    RecordsetModel* m_model;
    bool m_selectCurrent = false; // the current row asked for before the view was bound
};
