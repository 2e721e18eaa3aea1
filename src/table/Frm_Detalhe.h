#pragma once

#include "platform/Form.h"

class QLabel;
class QPushButton;

// Who added an item and when, with its note; read-only. Enter and Escape leave.
class Frm_Detalhe : public Form {
    Q_OBJECT

public:
    Frm_Detalhe();
    static Frm_Detalhe& instance() { return defaultInstance<Frm_Detalhe>(); }

    QLabel* Label_Item;
    QLabel* Label_Item_Descricao;
    QLabel* Label_Inclusao;
    QLabel* Label_Inclusao_Data;
    QLabel* Label_Garcom;
    QLabel* Label_Garcom_Nome;
    QLabel* Label_Observacao;
    QLabel* Label_Observacao_Descricao;
    QPushButton* Cmd_Sair;

    void Cmd_Sair_Click();
};
