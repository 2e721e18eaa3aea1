#pragma once

#include <QSizeF>
#include <QString>
#include <QStringList>
#include <memory>

class QPainter;

// The machine's printers, as the original's Printers collection, Printer.DeviceName and the
// scripting host's SetDefaultPrinter gave them. On Linux they are CUPS's queues, and the default is
// the user's, kept where CUPS keeps it; on Windows they are the spooler's. A printer or spooler that
// refuses raises -2147352567, as the original's report and printer objects did.

// The printers by the names the spooler knows them, in the system's order.
QStringList printerNames();

// The name of the default printer; empty when there is none.
QString defaultPrinterName();

// Makes name the default printer of this user, for every program. A printer that doesn't exist
// raises -2147352567; a default that can't be recorded raises 75.
void SetDefaultPrinter(const QString& name);

// One document on the default printer, without a dialog: a single page of the size given in
// twips, painted in twips from its top left corner. A printer that can't be opened (none set, no
// such printer, a stopped spooler) raises -2147352567, and so does a job the spooler takes badly.
class PrintJob {
public:
    PrintJob(const QString& documentName, const QSizeF& pageTwips);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    QPainter& painter();
    // Ends the document and hands it over: to the spooler, or to a file in the PDF printer folder.
    void finish();

    QString printerName() const;
    // The PDF written in the PDF printer folder; empty for a real printer.
    QString outputFile() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// The PDF printer folder: each sub-folder is a printer of that name, in name order; a document
// printed there becomes a numbered PDF in its printer's folder ("0001 Dtr_Pedido.pdf"), and the
// default printer's name is kept in the folder's file ".default". Tests and the demo print there.
// Until a folder is set, the environment variable ZARVEL_PDF_PRINTERS names it; an empty folder
// gives the system's printers back.
void usePdfPrinterFolder(const QString& folder);
QString pdfPrinterFolder();

// CUPS's lpoptions text with name as its default destination: the old default goes back to a plain
// destination and every destination keeps its options ("Dest BAR copies=2" becomes
// "Default BAR copies=2").
QString lpoptionsWithDefault(const QString& lpoptions, const QString& name);

// The system's side, one file per platform.
namespace platformPrinters {
QString defaultPrinter();
// Raises as SetDefaultPrinter does.
void setDefaultPrinter(const QString& name);
} // namespace platformPrinters
