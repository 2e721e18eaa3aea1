#include "platform/DataGrid.h"

#include "platform/Application.h"
#include "platform/Recordset.h"
#include "platform/VbText.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QMouseEvent>

namespace {
// A column's format is written as the grid's designer saw it, in the locale's notation
// ("R$" #.##0,00): its group point and decimal comma become Format's "," and ".". Quoted text and
// an escaped character stay as they are.
QString patternFromLocale(const QString& format) {
    QString pattern;
    bool quoted = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        QChar c = format[i];
        if (c == u'"') {
            quoted = !quoted;
        } else if (c == u'\\' && !quoted && i + 1 < format.size()) {
            pattern += c;
            c = format[++i];
        } else if (!quoted && c == groupSeparator()) {
            c = u',';
        } else if (!quoted && c == decimalSeparator()) {
            c = u'.';
        }
        pattern += c;
    }
    return pattern;
}
} // namespace

class RecordsetModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    QList<DataGrid::Column> columns;
    QList<int> fieldIndex; // of each column in the recordset
    Recordset* recordset = nullptr;

    void bind(Recordset* rs) {
        beginResetModel();
        recordset = rs;
        fieldIndex.clear();
        if (rs && rs->isOpen()) {
            for (const DataGrid::Column& c : std::as_const(columns)) {
                int index = -1;
                for (int i = 0; i < rs->FieldCount(); ++i)
                    if (rs->Fields(i).Name().compare(c.field, Qt::CaseInsensitive) == 0)
                        index = i;
                fieldIndex << index;
            }
        }
        endResetModel();
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() || fieldIndex.isEmpty() ? 0 : recordset->RecordCount();
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : columns.size();
    }

    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || fieldIndex.value(index.column(), -1) < 0)
            return QVariant();
        const QVariant value = recordset->valueAt(index.row() + 1, fieldIndex[index.column()]);
        if (IsNull(value))
            return QString();
        // A text field shows as it is, whatever the column's format.
        const QString& format = columns[index.column()].format;
        if (format.isEmpty() || value.typeId() == QMetaType::QString)
            return CStr(value);
        return Format(value, format);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
            return columns.value(section).caption;
        return QVariant();
    }
};

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), m_model(new RecordsetModel(this)) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setStretchLastSection(true);
}

DataGrid::~DataGrid() = default;

bool DataGrid::isBound() const {
    return QTableView::model() == m_model;
}

void DataGrid::bindView() {
    if (isBound())
        return;
    setModel(m_model);
    applyWidths();
    connect(QTableView::selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guarded([this](const QModelIndex& atual) {
                Recordset* rs = m_model->recordset;
                if (atual.isValid() && rs && rs->AbsolutePosition() != atual.row() + 1)
                    rs->setAbsolutePosition(atual.row() + 1);
            }));
    if (m_selectCurrent)
        selectCurrent();
    m_selectCurrent = false;
}

QAbstractItemModel* DataGrid::model() const {
    const_cast<DataGrid*>(this)->bindView();
    return m_model;
}

QItemSelectionModel* DataGrid::selectionModel() const {
    const_cast<DataGrid*>(this)->bindView();
    return QTableView::selectionModel();
}

QModelIndex DataGrid::currentIndex() const {
    const_cast<DataGrid*>(this)->bindView();
    return QTableView::currentIndex();
}

void DataGrid::setColumns(const QList<Column>& columns) {
    m_model->columns = columns;
    for (Column& c : m_model->columns)
        c.format = patternFromLocale(c.format);
    m_model->bind(m_model->recordset);
    m_selectCurrent = false;
    if (isBound())
        applyWidths();
}

void DataGrid::applyWidths() {
    for (int i = 0; i < m_model->columns.size(); ++i)
        if (m_model->columns[i].width > 0)
            horizontalHeader()->resizeSection(i, m_model->columns[i].width);
}

void DataGrid::setDataSource(Recordset& recordset) {
    m_model->bind(&recordset);
    m_selectCurrent = false;
}

void DataGrid::removeSelBookmark() {
    m_selectCurrent = false;
    clearSelection();
}

void DataGrid::addCurrentBookmark() {
    if (isBound())
        selectCurrent();
    else
        m_selectCurrent = true;
}

void DataGrid::selectCurrent() {
    Recordset* rs = m_model->recordset;
    if (!rs || rs->AbsolutePosition() == 0)
        return;
    const QModelIndex linha = m_model->index(rs->AbsolutePosition() - 1, 0);
    QTableView::selectionModel()->setCurrentIndex(linha, QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
    scrollTo(linha);
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (indexAt(event->position().toPoint()).isValid())
        emit DblClick();
}

void DataGrid::showEvent(QShowEvent* event) {
    bindView();
    QTableView::showEvent(event);
}
