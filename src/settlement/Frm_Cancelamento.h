#pragma once

#include "table/Frm_Texto.h"

// The written reason for cancelling the whole of comandaAtual. An accepted reason is recorded on
// the tab through its properties, each written as it is set; the table screen then closes the tab
// when it finds it cancelled. Items and payments stay as they are.
class Frm_Cancelamento : public Frm_Texto {
    Q_OBJECT

public:
    Frm_Cancelamento();
    static Frm_Cancelamento& instance() { return defaultInstance<Frm_Cancelamento>(); }

    QPlainTextEdit* Text_Cancelamento;
    QLabel* Label_Caracteres;

    void Cmd_Gravar_Click() override;

private:
    void Text_Cancelamento_KeyPress(int& KeyAscii);
    void Text_Cancelamento_KeyUp(int& KeyCode, int Shift);
};
