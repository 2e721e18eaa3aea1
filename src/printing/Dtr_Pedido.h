#pragma once

#include "platform/DataReport.h"

// The order ticket: one item of a tab, headed by its table, for the department that makes it.
// Bound to the table screen's Ado_itens, filtered to the one item, by imprimirPedidos.
class Dtr_Pedido : public DataReport {
public:
    Dtr_Pedido();
    // Made on first use; it stays for the run.
    static Dtr_Pedido& instance();
};
