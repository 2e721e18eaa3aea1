#pragma once

#include "platform/Form.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

// The note of one item for the kitchen. It saves on the current row of Frm_Mesa's Ado_itens,
// which abrirObservacao leaves on the item; it holds no item of its own.
class Frm_Observacao : public Form {
    Q_OBJECT

public:
    Frm_Observacao();
    static Frm_Observacao& instance() { return defaultInstance<Frm_Observacao>(); }

    QLabel* Label_Descricao_Item;
    QPlainTextEdit* Text_Observacao;
    QPushButton* Cmd_Gravar;
    QPushButton* Cmd_Sair;

    void Cmd_Gravar_Click();
    void Cmd_Sair_Click();

protected:
    void Form_KeyDown(int& KeyCode, int Shift) override;

private:
    void Text_Observacao_KeyPress(int& KeyAscii);
};
