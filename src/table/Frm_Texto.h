#pragma once

#include "platform/Form.h"

class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// The shape the item's note and the tab's cancellation share: a caption in bold over a text of
// several lines, held to its column's 255 characters, pasted text included; "&Gravar (F1)" and
// "&Sair (ESC)". F1 saves, Escape leaves. Both buttons carry the tip "Gravar alterações": the
// leave button repeats the save button's, as users know it.
class Frm_Texto : public Form {
    Q_OBJECT

public:
    QLabel* Label_Descricao_Item;
    QPushButton* Cmd_Gravar;
    QPushButton* Cmd_Sair;

    virtual void Cmd_Gravar_Click() = 0;
    void Cmd_Sair_Click();

protected:
    // The text is made here under the name and tip given, owned by the screen.
    Frm_Texto(const char* nome, const QString& titulo, const QString& legenda, const char* nomeDoTexto,
              const QString& dicaDoTexto);

    void Form_KeyDown(int& KeyCode, int Shift) override;
    // A character typed into the text: upper case, and refused past the size unless it replaces a
    // selection. Line breaks and erasing pass.
    void digitado(int& KeyAscii);

    QPlainTextEdit* m_texto;
    // The buttons' row, for what a screen shows beside them.
    QHBoxLayout* m_botoes;
};
