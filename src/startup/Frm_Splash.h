#pragma once

#include "platform/Form.h"

class DataControl;
class QFrame;
class QLabel;

// The start-up screen: refuses a second copy, gives the updater its turn, shows the version and
// walks through the start-up steps, then hands over to the login.
class Frm_Splash : public Form {
    Q_OBJECT

public:
    Frm_Splash();
    static Frm_Splash& instance() { return defaultInstance<Frm_Splash>(); }

    // The connection through which the settings are read.
    DataControl* Ado_Inicializacao;
    QFrame* Frame1;
    QLabel* Image1;
    QLabel* lblWarning;
    QLabel* lblVersion;

    // The start-up steps, from the configuration file to the login; any of them may end the process.
    void inicializacao();

protected:
    void Form_Load() override;
    void Form_Activate() override;
};
