#pragma once

#include "platform/Form.h"

#include <QList>

class QLabel;

// The sheet of the table screen's keys: what each key and each Ctrl combination does, the two marks
// of the item list, and which actions ask for a right. It reads nothing and writes nothing; the
// texts are fixed, so staff without a right see the marked actions too.
class Frm_Ajuda : public Form {
    Q_OBJECT

public:
    Frm_Ajuda();
    ~Frm_Ajuda() override;
    static Frm_Ajuda& instance() { return defaultInstance<Frm_Ajuda>(); }

    QLabel* Label_Operacao;
    QLabel* Image1;
    // The keys, with each function beside its key.
    QLabel* Label_Teclas;
    QList<QLabel*> Label_Tecla;
    QList<QLabel*> Label_Funcao_Tecla;
    // The Ctrl combinations, likewise.
    QLabel* Label_Combinacoes;
    QList<QLabel*> Label_Combinacao;
    QList<QLabel*> Label_Funcao_Combinacao;
    // The legend of the item list's marks.
    QLabel* Image2;
    QLabel* Label_Impresso;
    QLabel* Image3;
    QLabel* Label_Pendente;
    QLabel* Label_Nota;

protected:
    void Form_KeyDown(int& KeyCode, int Shift) override;
};
