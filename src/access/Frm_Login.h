#pragma once

#include "platform/Form.h"

class DataControl;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The gate between the start-up and the map: a staff member with access picks a name and types
// the password. It records nobody; who does what is asked later by Frm_Acesso.
class Frm_Login : public Form {
    Q_OBJECT

public:
    Frm_Login();
    ~Frm_Login() override;
    static Frm_Login& instance() { return defaultInstance<Frm_Login>(); }

    DataControl* Ado_Autenticar;
    QLabel* lblUsuario;
    QComboBox* cmbUsuario;
    QLabel* lblSenha;
    QLineEdit* txtSenha;
    QPushButton* cmdEntrar;
    QLabel* Image1;

    void carregarColaboradores();
    bool validarDados();
    bool autenticar();
    void cmdEntrar_Click();

protected:
    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
};
