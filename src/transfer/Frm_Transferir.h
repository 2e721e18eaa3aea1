#pragma once

#include "platform/Form.h"

#include <QVector>

class QLabel;
class QLineEdit;
class QPushButton;

// Moves item rows to the open tab of another table: the items selected on the table screen
// (tipo 0) or every item of one open tab, the excluded ones too (tipo 1). Only the rows move;
// payments, customer, waiter and status stay with their tab, and a tab left empty stays open.
// The caller sets tipo, the caption and Label_Operacao before showing the screen modally.
class Frm_Transferir : public Form {
    Q_OBJECT

public:
    Frm_Transferir();
    static Frm_Transferir& instance() { return defaultInstance<Frm_Transferir>(); }

    QLabel* Label_Operacao;
    QLabel* Label_Origem;
    QLineEdit* Text_Origem;
    QLabel* Label_Destino;
    QLineEdit* Text_Destino;
    QPushButton* Cmd_Transferir;
    QLabel* Image1;

    // 0 the selected items, 1 a whole table; anything else is refused.
    qint16 tipo = 0;
    // id_comanda_item of the selected rows, taken as the screen comes up (tipo 0).
    QVector<qint16> itens;
    // The two tabs, as validar found them.
    qint16 idOrigem = 0;
    qint16 idDestino = 0;

    // The destination (and the source) tested in a fixed order; a refusal shows its message,
    // selects the destination field and answers false.
    bool validar();
    // Rewrites n_item and id_comanda of each row that moves; each row is saved on its own.
    void transferir(qint16& tipo);
    void Cmd_Transferir_Click();

protected:
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void showEvent(QShowEvent* event) override;

private:
    void Text_Origem_GotFocus();
    void Text_Origem_KeyUp(int& KeyCode, int Shift);
    void Text_Destino_GotFocus();
    void Text_Destino_KeyPress(int& KeyAscii);
    void Text_Destino_KeyUp(int& KeyCode, int Shift);

    bool recusar(const QString& mensagem);
};
