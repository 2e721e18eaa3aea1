#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

class QLineEdit;

// Small lookups and formats that several screens share. They hold no state; each lookup is one
// round trip, nothing is cached.

// The time since data as a tab shows it: "00h:05m", "123h:04m".
QString tempoDecorrido(const QDateTime& data);

// The next value of an entry field that fills from the right: the digits of texto, divided by
// divisor, with casas decimals ("1,0005", 3, 1000 gives "10,005"). texto holds at least one digit.
QString formataDecimal(const QString& texto, qint16 casas, double divisor);

// The key-up of an entry field that fills from the right through formataDecimal: a key that leaves
// the text not numeric is taken back with a backspace, a numeric text is formatted with the caret
// at the end, and an emptied field gets a "0". A key that changes nothing (a function key, an
// arrow) leaves the field and its selection as they are, so the digits typed after F1 on the
// payment screen replace the value the key selected.
void preencherDaDireita(QLineEdit* campo, int& KeyCode, qint16 casas, double divisor);

// Whether idColaborador may work on table mesa: it is free, or its open tab is theirs.
bool podeMovimentarMesa(qint16 mesa);

// Names by id; 0 gives "" without touching the database. An id with no row is a run-time error.
QString nomeDoColaborador(qint16 id);
QString nomeDoCliente(qint16 id);

// valor cut (never rounded) to casas decimals; 0 on failure.
double truncaDecimais(double valor, qint16 casas);

// The open and unblocked tab of table mesa, 0 when there is none.
qint16 idComandaDaMesa(qint16 mesa);

// The first field of the first row of a query, on a connection of its own; 0 for no row or Null.
qint16 primeiroValor(const QString& sql);

// The highest item number of a tab, whatever the item's status; 0 when it has none.
qint16 ultimoItemDaComanda(qint16 idComanda);

// The tags (id_comanda_item) of the selected rows of the table screen's List_Itens, first row
// first, as 16-bit numbers; empty (unallocated) with none selected.
QVector<qint16> itensSelecionados();

// A table number field after each key: four digits with the caret at the end; a key that left it
// no number is taken back, and an emptied field gets a zero, both typed as keys are.
void numeroDeMesaKeyUp(QLineEdit& campo, int& KeyCode);

// The product search behind a code typed on the table screen and the picker's filter. texto loses
// its apostrophes and outer blanks in place. With the picker hidden, a match takes the first
// product into the item globals (quantity from the table screen), unloads the picker and gives
// true; with it visible the search only moves its filter and selection. No match takes the filter
// off again.
bool localizaProduto(QString& texto);
