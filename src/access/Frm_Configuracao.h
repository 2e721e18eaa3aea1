#pragma once

#include "platform/Form.h"

#include <QStringList>
#include <functional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class UpDown;

// The machine's printers for the conference list, in the spooler's order. Tests give a list of
// their own.
extern std::function<QStringList()> impressorasDoSistema;

// "Ajustes": every setting of the run-time state on one screen. There is no save button: whatever
// the screen shows is saved when it closes, however it closes (gravaDados). The server's address and
// the number of tables take effect only at the next start, so changing either asks first, and the
// process ends once the screen has saved.
class Frm_Configuracao : public Form {
    Q_OBJECT

public:
    Frm_Configuracao();
    ~Frm_Configuracao() override;
    static Frm_Configuracao& instance() { return defaultInstance<Frm_Configuracao>(); }

    QLabel* Label_Operacao;
    QLabel* Image1;

    QGroupBox* Frame1;
    QLabel* Label1;
    QLineEdit* Text_Servidor;

    QGroupBox* Frame_Busca;
    QRadioButton* Opt_Qualquer_Ocorrencia;
    QRadioButton* Opt_Inicio;

    QGroupBox* Frame_Personalizacao;
    QCheckBox* Chk_Imprimir_Itens;
    QCheckBox* Chk_Multiplos_Atendentes;
    QCheckBox* Chk_Bloquear_Apos_Conferencia;
    QCheckBox* Chk_Observacao;
    QCheckBox* Chk_Aliquota_Servico;
    QLabel* Label_Impressora_Conferencia;
    QComboBox* Cmb_Impressora_Conferencia;
    QLabel* Label_Mesas;
    QLineEdit* Text_Quantidade_Mesas;
    UpDown* UpDown_Quantidade_Mesas;
    QLabel* Label_Quantidade_Mesas;
    QLabel* Label_Mesa_Ocio;
    QLineEdit* Text_Tempo_Ocio;
    UpDown* UpDown_Tempo_Ocio;
    QLabel* Label_Tempo_Ocio;
    QLabel* Label_Taxa_Servico;
    QLineEdit* Text_Aliquota_Servico;
    QLabel* Label_Aliquota_Servico;

    QLabel* Label2;

    // A restart is required: set when the user agreed to a change that needs one.
    bool reiniciar = false;

    void carregaImpressoras();
    // The highest table with an open tab, 0 with none.
    qint16 maiorMesaOcupada();
    void gravaDados();

protected:
    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void Form_Unload(int& Cancel) override;

private:
    void Text_Aliquota_Servico_KeyUp(int& KeyCode, int Shift);
    void Text_Servidor_GotFocus();
};
