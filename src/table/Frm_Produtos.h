#pragma once

#include "platform/Form.h"

class DataControl;

// The product picker. It also lives hidden, as the data of every product search: the first
// search loads it with the whole product list, and it stays loaded until a search finds a product
// or the picker is left.
class Frm_Produtos : public Form {
    Q_OBJECT

public:
    Frm_Produtos();
    static Frm_Produtos& instance() { return defaultInstance<Frm_Produtos>(); }

    DataControl* Ado_Produtos;

protected:
    void Form_Load() override;
};
