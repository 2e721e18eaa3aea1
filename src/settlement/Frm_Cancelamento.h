#pragma once

#include "platform/Form.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

// The written reason for cancelling the whole of comandaAtual. An accepted reason is recorded on
// the tab through its properties, each written as it is set; the table screen then closes the tab
// when it finds it cancelled. Items and payments stay as they are.
class Frm_Cancelamento : public Form {
    Q_OBJECT

public:
    Frm_Cancelamento();
    static Frm_Cancelamento& instance() { return defaultInstance<Frm_Cancelamento>(); }

    QLabel* Label_Descricao_Item;
    QPlainTextEdit* Text_Cancelamento;
    QLabel* Label_Caracteres;
    QPushButton* Cmd_Gravar;
    QPushButton* Cmd_Sair;

    void Cmd_Gravar_Click();
    void Cmd_Sair_Click();

protected:
    void Form_KeyDown(int& KeyCode, int Shift) override;

private:
    void Text_Cancelamento_KeyPress(int& KeyAscii);
    void Text_Cancelamento_KeyUp(int& KeyCode, int Shift);
};
