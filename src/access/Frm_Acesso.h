#pragma once

#include "platform/Form.h"

class DataControl;
class QLabel;
class QLineEdit;

// The password prompt before a guarded action: the password alone names the staff member, who
// becomes the current one of the process with their rights. The caller shows it modally and then
// tests acessoAutorizado.
class Frm_Acesso : public Form {
    Q_OBJECT

public:
    Frm_Acesso();
    ~Frm_Acesso() override;
    static Frm_Acesso& instance() { return defaultInstance<Frm_Acesso>(); }

    DataControl* Ado_Acesso;
    QLabel* lblSenha;
    QLineEdit* Text_senha;

    // Finds the first staff row with access whose password is the one typed and loads it into the
    // run-time state; no match leaves the state as it was.
    void autenticar();

protected:
    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
};
