#pragma once

#include <QString>
#include <QStringList>

class DataReport;

// Sends every pending item of comandaAtual, and every reprint asked for, as a ticket of its own to
// its department's printer. Each item is marked printed and stored before its ticket goes out: a
// ticket that fails leaves no pending item, only the reprint menu brings it back.
void imprimirPedidos();

// The destination of a product: its department's number as text, the department's name and its
// printer (the default printer when the department names none). No array at all (an empty list)
// when the code is empty or the product or its department isn't found once and only once.
QStringList destinoDoProduto(QString& codigo);

// Prints a report on a named printer by making it the machine's default for the job and putting
// the old default back. An empty name gives the message and prints nothing; a failure of the
// printer or the report gives its message and ends here, with the default as it stands; any other
// failure is shown and the next step runs.
void imprimirRelatorio(const QString& impressora, DataReport& relatorio);

// Prints the conference slip of comandaAtual on this terminal's conference printer. It changes
// nothing in the store.
void imprimirConferencia();
