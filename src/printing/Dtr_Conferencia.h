#pragma once

#include "platform/DataReport.h"

// The conference slip: the bill of a tab with its live items, the service, what was paid and what
// is left, per person too. Bound to the table screen's Ado_itens by imprimirConferencia.
class Dtr_Conferencia : public DataReport {
public:
    Dtr_Conferencia();
    // Made on first use; it stays for the run.
    static Dtr_Conferencia& instance();
};
