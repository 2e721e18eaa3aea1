#pragma once

#include "table/Frm_Texto.h"

// The note of one item for the kitchen. It saves on the current row of Frm_Mesa's Ado_itens,
// which abrirObservacao leaves on the item; it holds no item of its own.
class Frm_Observacao : public Frm_Texto {
    Q_OBJECT

public:
    Frm_Observacao();
    static Frm_Observacao& instance() { return defaultInstance<Frm_Observacao>(); }

    QPlainTextEdit* Text_Observacao;

    void Cmd_Gravar_Click() override;

private:
    void Text_Observacao_KeyPress(int& KeyAscii);
};
