#include "platform/DataReport.h"

#include "platform/DataControl.h"
#include "platform/Printers.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <algorithm>

namespace {
std::function<void(const PrintedReport&)> s_printedHook;

template <class T> T& byName(std::vector<T>& items, const QString& name) {
    const auto it =
        std::find_if(items.begin(), items.end(), [&](const T& item) { return item.Name == name; });
    if (it == items.end())
        raiseError(vbErr::SubscriptOutOfRange);
    return *it;
}

QString valueText(const QVariant& value, const QString& format) {
    if (IsNull(value))
        return QString();
    return format.isEmpty() ? CStr(value) : Format(value, format);
}

// The rows of the data source, read by position so that the recordset's current row stays where
// the caller left it.
class Rows {
public:
    explicit Rows(DataControl* source) {
        if (!source)
            raiseError(vbErr::AutomationException, QStringLiteral("The report has no data source."));
        m_rs = &source->Recordset();
        m_count = m_rs->RecordCount();
        for (int i = 0; i < m_rs->FieldCount(); ++i)
            m_columns.insert(m_rs->Fields(i).Name().toLower(), i);
    }
    int count() const { return m_count; }
    QVariant value(int row, const QString& field) const {
        const auto it = m_columns.constFind(field.toLower());
        if (it == m_columns.constEnd())
            raiseError(vbErr::AutomationException,
                       QStringLiteral("The data field '%1' is not in the data source.").arg(field));
        return m_rs->valueAt(row, *it);
    }
    double sum(const QString& field) const {
        double total = 0;
        for (int row = 1; row <= m_count; ++row) {
            const QVariant v = value(row, field);
            if (!IsNull(v))
                total += CDbl(v);
        }
        return total;
    }

private:
    Recordset* m_rs = nullptr;
    int m_count = 0;
    QHash<QString, int> m_columns;
};

// The text of a control for one row of the detail (row 0 outside it: the first row, if any).
QString textOf(const ReportControl& c, const Rows& rows, int row) {
    switch (c.Kind) {
    case ReportControlKind::Label:
        return c.Caption;
    case ReportControlKind::TextBox:
        if (row == 0 && rows.count() == 0)
            return QString();
        return valueText(rows.value(std::max(row, 1), c.DataField), c.DataFormat);
    case ReportControlKind::Function:
        return valueText(rows.sum(c.DataField), c.DataFormat);
    case ReportControlKind::Line:
        break;
    }
    return QString();
}

constexpr int textFlags = Qt::AlignTop | Qt::TextWordWrap;

// How much taller than its design the wrapped text makes a can-grow control.
double growthOf(const ReportControl& c, const QString& text) {
    if (!c.CanGrow || !c.Visible || text.isEmpty())
        return 0;
    const QFontMetricsF metrics(DataReport::fontOf(c));
    const QRectF needed =
        metrics.boundingRect(QRectF(0, 0, c.Width, 1e7), int(c.Alignment) | textFlags, text);
    return std::max(0.0, needed.height() - c.Height);
}

// Places one printing of a section at y on the page; returns its height there. A control moves
// down by what the controls wholly above it grew, so that a long text pushes its neighbours below.
double placeSection(const ReportSection& section, const Rows& rows, int row, double left, double y,
                    QVector<ReportItem>& items) {
    const auto& controls = section.controls;
    const int n = int(controls.size());
    std::vector<int> order(n);
    for (int i = 0; i < n; ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return controls[a].Top < controls[b].Top; });
    std::vector<QString> texts(n);
    std::vector<double> grow(n, 0), shift(n, 0);
    double extra = 0;
    for (int k = 0; k < n; ++k) {
        const int i = order[k];
        const ReportControl& c = controls[i];
        texts[i] = textOf(c, rows, row);
        grow[i] = growthOf(c, texts[i]);
        for (int m = 0; m < k; ++m) {
            const int above = order[m];
            if (controls[above].Top + controls[above].Height <= c.Top)
                shift[i] = std::max(shift[i], shift[above] + grow[above]);
        }
        extra = std::max(extra, shift[i] + grow[i]);
    }
    for (int i = 0; i < n; ++i) {
        const ReportControl& c = controls[i];
        if (!c.Visible)
            continue;
        ReportItem item;
        item.section = section.Name;
        item.control = c.Name;
        item.rect = QRectF(left + c.Left, y + c.Top + shift[i], c.Width,
                           c.Kind == ReportControlKind::Line ? 0 : c.Height + grow[i]);
        item.line = c.Kind == ReportControlKind::Line;
        if (!item.line) {
            item.text = texts[i];
            item.font = DataReport::fontOf(c);
            item.alignment = c.Alignment;
        }
        items.append(item);
    }
    return section.Height + extra;
}
} // namespace

ReportControl& ReportSection::Controls(const QString& name) {
    return byName(controls, name);
}

ReportControl& ReportSection::add(ReportControlKind kind, const QString& name, const QRectF& twips,
                                  const QString& content, Qt::Alignment alignment, double fontSize,
                                  bool bold) {
    ReportControl c;
    c.Name = name;
    c.Kind = kind;
    c.Left = twips.left();
    c.Top = twips.top();
    c.Width = twips.width();
    c.Height = twips.height();
    (kind == ReportControlKind::Label ? c.Caption : c.DataField) = content;
    c.Alignment = alignment;
    c.FontSize = fontSize;
    c.FontBold = bold;
    controls.push_back(std::move(c));
    return controls.back();
}

QStringList ReportLayout::texts(const QString& control) const {
    QStringList found;
    for (const ReportItem& item : items)
        if (item.control == control)
            found << item.text;
    return found;
}

const ReportItem* ReportLayout::find(const QString& control) const {
    for (const ReportItem& item : items)
        if (item.control == control)
            return &item;
    return nullptr;
}

DataReport::DataReport(const QString& name) : Name(name) {}

DataReport::~DataReport() = default;

ReportSection& DataReport::Sections(const QString& name) {
    return byName(m_sections, name);
}

ReportSection& DataReport::addSection(const QString& name, double height, bool detail) {
    ReportSection section;
    section.Name = name;
    section.Height = height;
    section.Detail = detail;
    m_sections.push_back(std::move(section));
    return m_sections.back();
}

QFont DataReport::fontOf(const ReportControl& control) {
    QFont font(control.FontName);
    // A point is 20 twips: the painter works in twips, so the size goes in as pixels.
    font.setPixelSize(qRound(control.FontSize * 20));
    font.setBold(control.FontBold);
    font.setItalic(control.FontItalic);
    // Outlines as designed, so that the page measures the same on every device.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

ReportLayout DataReport::layout() const {
    const Rows rows(DataSource.data());
    ReportLayout result;
    double y = TopMargin;
    for (const ReportSection& section : m_sections) {
        if (!section.Detail) {
            y += placeSection(section, rows, 0, LeftMargin, y, result.items);
            continue;
        }
        for (int row = 1; row <= rows.count(); ++row)
            y += placeSection(section, rows, row, LeftMargin, y, result.items);
    }
    result.page = QSizeF(LeftMargin + ReportWidth + RightMargin, y + BottomMargin);
    return result;
}

void DataReport::paint(QPainter& painter, const ReportLayout& layout) {
    for (const ReportItem& item : layout.items) {
        if (item.line) {
            painter.setPen(QPen(Qt::black, 15));
            painter.drawLine(item.rect.topLeft(), item.rect.topRight());
            continue;
        }
        painter.save();
        painter.setClipRect(item.rect);
        painter.setFont(item.font);
        painter.setPen(Qt::black);
        painter.drawText(item.rect, int(item.alignment) | textFlags, item.text);
        painter.restore();
    }
}

void DataReport::PrintReport() {
    try {
        const ReportLayout drawn = layout();
        PrintJob job(Name, drawn.page);
        paint(job.painter(), drawn);
        job.finish();
        if (s_printedHook)
            s_printedHook({job.printerName(), Name, drawn, job.outputFile()});
    } catch (const RuntimeError& error) {
        if (error.Number == vbErr::AutomationException)
            throw;
        // Whatever fails inside the report reaches its caller as the report object's exception.
        raiseError(vbErr::AutomationException, error.Description);
    }
}

void setReportPrintedHook(std::function<void(const PrintedReport&)> hook) {
    s_printedHook = std::move(hook);
}
