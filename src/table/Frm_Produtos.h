#pragma once

#include "table/Frm_Consulta.h"

// The product picker. It also lives hidden, as the data of every product search: the first
// search loads it with the whole product list, and it stays loaded until a search finds a product
// or the picker is left.
class Frm_Produtos : public Frm_Consulta {
    Q_OBJECT

public:
    Frm_Produtos();
    static Frm_Produtos& instance() { return defaultInstance<Frm_Produtos>(); }

    DataGrid* Dtg_Produtos;
    DataControl* Ado_Produtos;

    void Cmd_confirmar_Click() override;

private:
    void Text_filtro_KeyPress(int& KeyAscii);
    void Text_filtro_Change();
};
