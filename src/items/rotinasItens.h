#pragma once

#include <QVector>

// The items of the current tab: the rows of Tb_Comandas_Itens and the list List_Itens of Frm_Mesa,
// kept in step through Frm_Mesa's Ado_itens. Rows are never deleted: an exclusion is status 0.
// The item in hand travels through the item globals (itemCodigo and the rest), which these
// routines empty when they are done.

// Stores the item in hand on comandaAtual, adds its row to the list and refreshes the totals.
// n_item is the count of live items with the new one, so numbers repeat after an exclusion.
void incluirItem();

// Excludes the items of these ids (an empty array is an unallocated one) and takes their rows off
// the list. A failure is shown with the routine's name; ids done before it stay excluded.
void excluirItem(const QVector<qint16>& ids);

// The selected item's detail and its note for the kitchen.
void detalharItem();
void abrirObservacao();

// Appends the item in hand as a row numbered nItem; on an item just typed in, with the setting
// on, the row is selected and the note prompt opens.
void adicionarItemLista(qint16 nItem);

// Appends every live item of comandaAtual to the list, in item order, priced as unit price times
// quantity. The list is not cleared first.
void listarItens();

// The selected items of the table screen to the open tab of another table, through Frm_Transferir;
// the total labels are shown again afterwards, whether anything moved or not.
void transferirItens();
