#include "platform/Printers.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <optional>

namespace {
std::optional<QString> s_pdfFolder; // unset: the environment decides

[[noreturn]] void printerFailure(const QString& what) {
    raiseError(vbErr::AutomationException, what);
}

const QString defaultFile = QStringLiteral(".default");

QStringList pdfPrinters(const QString& folder) {
    return QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

// A default that names no printer any more is no default, as with CUPS.
QString pdfDefault(const QString& folder) {
    QFile file(QDir(folder).filePath(defaultFile));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QString name = QString::fromUtf8(file.readAll()).trimmed();
    return pdfPrinters(folder).contains(name) ? name : QString();
}

void setPdfDefault(const QString& folder, const QString& name) {
    if (!pdfPrinters(folder).contains(name))
        printerFailure(QStringLiteral("There is no printer named '%1'.").arg(name));
    // Written in place, not synced: it changes twice a ticket, and a folder of PDFs needs no more.
    QFile file(QDir(folder).filePath(defaultFile));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(name.toUtf8() + '\n') < 0)
        raiseError(vbErr::PathFileAccess);
}

// The next number of a printer folder: one past the highest "NNNN name.pdf" there.
QString nextPdfFile(const QString& printerFolder, const QString& documentName) {
    static const QRegularExpression numbered(QStringLiteral("^(\\d+) "));
    int last = 0;
    for (const QString& name :
         QDir(printerFolder).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QRegularExpressionMatch match = numbered.match(name);
        if (match.hasMatch())
            last = std::max(last, match.captured(1).toInt());
    }
    return QDir(printerFolder)
        .filePath(QStringLiteral("%1 %2.pdf").arg(last + 1, 4, 10, QLatin1Char('0')).arg(documentName));
}

QPageSize pageOf(const QSizeF& twips) {
    return QPageSize(twips / 1440.0, QPageSize::Inch, QString(), QPageSize::ExactMatch);
}
} // namespace

void usePdfPrinterFolder(const QString& folder) {
    s_pdfFolder = folder;
}

QString pdfPrinterFolder() {
    if (!s_pdfFolder)
        return qEnvironmentVariable("ZARVEL_PDF_PRINTERS");
    return *s_pdfFolder;
}

QStringList printerNames() {
    const QString folder = pdfPrinterFolder();
    return folder.isEmpty() ? QPrinterInfo::availablePrinterNames() : pdfPrinters(folder);
}

QString defaultPrinterName() {
    const QString folder = pdfPrinterFolder();
    return folder.isEmpty() ? platformPrinters::defaultPrinter() : pdfDefault(folder);
}

void SetDefaultPrinter(const QString& name) {
    const QString folder = pdfPrinterFolder();
    if (folder.isEmpty())
        platformPrinters::setDefaultPrinter(name);
    else
        setPdfDefault(folder, name);
}

QString lpoptionsWithDefault(const QString& lpoptions, const QString& name) {
    QStringList lines = lpoptions.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    bool found = false;
    for (QString& line : lines) {
        QStringList words = line.split(QLatin1Char(' '));
        if (words.size() < 2)
            continue;
        const bool isDefault = words.at(0).compare(QLatin1String("Default"), Qt::CaseInsensitive) == 0;
        const bool isDest = words.at(0).compare(QLatin1String("Dest"), Qt::CaseInsensitive) == 0;
        if (!isDefault && !isDest)
            continue;
        const bool named = words.at(1) == name;
        found = found || named;
        words[0] = named ? QStringLiteral("Default") : QStringLiteral("Dest");
        line = words.join(QLatin1Char(' '));
    }
    if (!found)
        lines.prepend(QStringLiteral("Default ") + name);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

struct PrintJob::Impl {
    QString printer;
    QString file;
    std::unique_ptr<QPdfWriter> pdf;
    std::unique_ptr<QPrinter> spooler;
    QPainter painter;
    bool finished = false;
};

PrintJob::PrintJob(const QString& documentName, const QSizeF& pageTwips) : d(std::make_unique<Impl>()) {
    d->printer = defaultPrinterName();
    if (d->printer.isEmpty())
        printerFailure(QStringLiteral("There is no default printer."));
    QPagedPaintDevice* device = nullptr;
    int resolution = 1440;
    const QString folder = pdfPrinterFolder();
    if (!folder.isEmpty()) {
        d->file = nextPdfFile(QDir(folder).filePath(d->printer), documentName);
        d->pdf = std::make_unique<QPdfWriter>(d->file);
        d->pdf->setTitle(documentName);
        d->pdf->setCreator(QStringLiteral("Zarvel"));
        d->pdf->setResolution(resolution);
        device = d->pdf.get();
    } else {
        const QPrinterInfo info = QPrinterInfo::printerInfo(d->printer);
        if (info.isNull())
            printerFailure(QStringLiteral("The printer '%1' is not available.").arg(d->printer));
        d->spooler = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
        d->spooler->setDocName(documentName);
        d->spooler->setFullPage(true);
        resolution = d->spooler->resolution();
        device = d->spooler.get();
    }
    device->setPageSize(pageOf(pageTwips));
    device->setPageMargins(QMarginsF(0, 0, 0, 0));
    if (!d->painter.begin(device)) {
        if (!d->file.isEmpty())
            QFile::remove(d->file);
        printerFailure(QStringLiteral("The printer '%1' refused the document.").arg(d->printer));
    }
    d->painter.scale(resolution / 1440.0, resolution / 1440.0);
}

PrintJob::~PrintJob() {
    if (d->finished)
        return;
    // A job left half-way is dropped, never half printed.
    if (d->spooler)
        d->spooler->abort();
    if (d->painter.isActive())
        d->painter.end();
    if (!d->file.isEmpty())
        QFile::remove(d->file);
}

QPainter& PrintJob::painter() {
    return d->painter;
}

void PrintJob::finish() {
    d->finished = true;
    const bool ended = d->painter.end();
    if (!ended || (d->spooler && d->spooler->printerState() == QPrinter::Error))
        printerFailure(QStringLiteral("The printer '%1' failed to print the document.").arg(d->printer));
}

QString PrintJob::printerName() const {
    return d->printer;
}

QString PrintJob::outputFile() const {
    return d->file;
}
