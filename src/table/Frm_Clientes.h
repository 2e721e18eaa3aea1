#pragma once

#include "table/Frm_Consulta.h"

// The customer picker: sets the customer of the tab. Lives only while shown.
class Frm_Clientes : public Frm_Consulta {
    Q_OBJECT

public:
    Frm_Clientes();
    static Frm_Clientes& instance() { return defaultInstance<Frm_Clientes>(); }

    DataGrid* Dtg_Clientes;
    DataControl* Ado_Clientes;

    void Cmd_confirmar_Click() override;
    // Filters the grid by name; resultado is never set.
    void pegaCliente(QString& texto, bool& resultado);

private:
    void Text_filtro_Change();
};
