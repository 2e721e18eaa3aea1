#pragma once

#include <QFont>
#include <QPointer>
#include <QRectF>
#include <QString>
#include <QVector>
#include <functional>
#include <vector>

class DataControl;
class QPainter;

// A banded report bound to a data control's recordset, as the original's data reports were: its
// sections print in their order, the detail section once for each row of the recordset. Every
// position and size is in twips (1440 to the inch), font sizes in points.

enum class ReportControlKind {
    Label,    // Caption
    TextBox,  // the row's DataField through DataFormat
    Function, // the sum of DataField over every row, through DataFormat
    Line,     // a horizontal rule from Left, Width long
};

class ReportControl {
public:
    QString Name;
    ReportControlKind Kind = ReportControlKind::Label;
    double Left = 0, Top = 0, Width = 0, Height = 0;
    QString Caption;
    QString DataField;
    // Empty for the general text of the value, else a Format pattern ("#0.00").
    QString DataFormat;
    QString FontName = QStringLiteral("Courier New");
    double FontSize = 12;
    bool FontBold = false;
    bool FontItalic = false;
    Qt::Alignment Alignment = Qt::AlignLeft;
    // The text wraps at its width; a can-grow control grows to hold it and pushes down what lies
    // below it in the section, any other one is cut at its height. None ever shrinks.
    bool CanGrow = false;
    bool Visible = true;
};

class ReportSection {
public:
    QString Name;
    double Height = 0;
    bool Detail = false;
    std::vector<ReportControl> controls;

    // A control by name; an unknown name raises 9.
    ReportControl& Controls(const QString& name);

    // Adds a control, in Courier New until told otherwise; content is a label's caption, or the field of a
    // text box or a function. The reference holds until the next add.
    ReportControl& add(ReportControlKind kind, const QString& name, const QRectF& twips,
                       const QString& content, Qt::Alignment alignment, double fontSize, bool bold = false);
};

// One thing the report draws: a text in its box, or a rule when line is set. Positions are on the
// page, in twips.
struct ReportItem {
    QString section;
    QString control;
    QString text;
    QRectF rect;
    QFont font;
    Qt::Alignment alignment;
    bool line = false;
};

// What a report draws, in drawing order, on a page of the given size.
struct ReportLayout {
    QSizeF page;
    QVector<ReportItem> items;

    // The texts drawn by one control, one for each time its section printed.
    QStringList texts(const QString& control) const;
    // The drawn item of a control, the first time its section printed; nullptr when not drawn.
    const ReportItem* find(const QString& control) const;
};

class DataReport {
public:
    explicit DataReport(const QString& name);
    virtual ~DataReport();
    DataReport(const DataReport&) = delete;
    DataReport& operator=(const DataReport&) = delete;

    QString Name;
    double ReportWidth = 0;
    double LeftMargin = 180, RightMargin = 180, TopMargin = 180, BottomMargin = 180;
    // The base font, for the report's own texts.
    QString FontName = QStringLiteral("Courier");
    double FontSize = 12;
    QPointer<DataControl> DataSource;

    // A section by name; an unknown name raises 9.
    ReportSection& Sections(const QString& name);
    // Sections print in the order they are added; the detail one once for each row.
    ReportSection& addSection(const QString& name, double height, bool detail = false);

    // Lays the report out on the recordset as it stands: the visible rows, the current row kept.
    ReportLayout layout() const;
    // Prints on the default printer, without a dialog. Whatever fails inside, the data included,
    // raises -2147352567 with the inner description.
    void PrintReport();

    // Draws a layout on a painter that works in twips.
    static void paint(QPainter& painter, const ReportLayout& layout);

    // The font of a control as drawn: its size in twips as pixels, for a painter in twips.
    static QFont fontOf(const ReportControl& control);

private:
    std::vector<ReportSection> m_sections;
};

// What was printed: the printer, the document, what was drawn and, on the PDF printer folder, the
// file written.
struct PrintedReport {
    QString printer;
    QString document;
    ReportLayout layout;
    QString file;
};

// Tests see every report printed; an empty hook stops it.
void setReportPrintedHook(std::function<void(const PrintedReport&)> hook);
