#include "access/Frm_Login.h"

#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

Frm_Login::Frm_Login() {
    setObjectName(QStringLiteral("Frm_Login"));
    setWindowTitle(QStringLiteral("Credênciais de acesso"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    KeyPreview = true;

    Ado_Autenticar = new DataControl(QStringLiteral("Ado_Autenticar"), this);

    Image1 = new QLabel(programTitle(), this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setAlignment(Qt::AlignCenter);
    Image1->setFrameShape(QFrame::Box);
    QFont marca = Image1->font();
    marca.setPointSize(26);
    marca.setBold(true);
    Image1->setFont(marca);

    lblUsuario = new QLabel(QStringLiteral("Usuário"), this);
    lblUsuario->setObjectName(QStringLiteral("lblUsuario"));
    cmbUsuario = new QComboBox(this);
    cmbUsuario->setObjectName(QStringLiteral("cmbUsuario"));
    cmbUsuario->setEditable(false);
    lblSenha = new QLabel(QStringLiteral("Senha"), this);
    lblSenha->setObjectName(QStringLiteral("lblSenha"));
    txtSenha = new QLineEdit(this);
    txtSenha->setObjectName(QStringLiteral("txtSenha"));
    txtSenha->setEchoMode(QLineEdit::Password);
    txtSenha->setStyleSheet(QStringLiteral("lineedit-password-character: 42")); // "*"
    cmdEntrar = new QPushButton(QStringLiteral("Entrar"), this);
    cmdEntrar->setObjectName(QStringLiteral("cmdEntrar"));
    cmdEntrar->setAutoDefault(false);
    connect(cmdEntrar, &QPushButton::clicked, this, guarded([this] { cmdEntrar_Click(); }));

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setHorizontalSpacing(16);
    layout->addWidget(Image1, 0, 0, 5, 1);
    layout->addWidget(lblUsuario, 0, 1);
    layout->addWidget(cmbUsuario, 1, 1);
    layout->addWidget(lblSenha, 2, 1);
    layout->addWidget(txtSenha, 3, 1);
    layout->addWidget(cmdEntrar, 4, 1, Qt::AlignRight);
    layout->setColumnMinimumWidth(0, 170);
    layout->setColumnMinimumWidth(1, 220);
    setFixedSize(sizeHint());
    centerOnScreen();
}

Frm_Login::~Frm_Login() = default;

void Frm_Login::Form_Load() {
    carregarColaboradores();
}

void Frm_Login::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27)
        endProcess();
    else if (KeyCode == 13)
        cmdEntrar_Click();
}

void Frm_Login::carregarColaboradores() {
    Ado_Autenticar->ConnectionString = conexaoLocal;
    Ado_Autenticar->RecordSource = QStringLiteral("SELECT * FROM Tb_Colaborador WHERE bZarvel = 1");
    Ado_Autenticar->Refresh();
    Recordset& rs = Ado_Autenticar->Recordset();
    while (!rs.Eof()) {
        cmbUsuario->addItem(CStr(rs.Fields(QStringLiteral("Nome")).Value()));
        rs.MoveNext();
    }
    if (cmbUsuario->count() > 0) {
        cmbUsuario->setCurrentIndex(0);
    } else {
        MsgBox(QStringLiteral("Não há usuários cadastrados com acesso ao módulo"), vbCritical,
               QStringLiteral("Atenção"));
        endProcess();
    }
}

void Frm_Login::cmdEntrar_Click() {
    if (!validarDados())
        return;
    if (!autenticar())
        return;
    // Gone before the map loads.
    Unload();
    Frm_Principal::instance().Show();
}

bool Frm_Login::validarDados() {
    if (cmbUsuario->currentText() == QLatin1String("")) {
        MsgBox(QStringLiteral("Informe o usuário"), vbCritical, QStringLiteral("Atenção"));
        cmbUsuario->setFocus();
        return false;
    }
    if (txtSenha->text() == QLatin1String("")) {
        MsgBox(QStringLiteral("Informe a senha"), vbCritical, QStringLiteral("Atenção"));
        txtSenha->setFocus();
        return false;
    }
    return true;
}

bool Frm_Login::autenticar() {
    const QString nome = cmbUsuario->currentText();
    const QString senha = txtSenha->text();
    // A password changed since the screen opened counts.
    Ado_Autenticar->Refresh();
    Recordset& rs = Ado_Autenticar->Recordset();
    // The name goes in as typed: an apostrophe breaks the criterion.
    rs.Find(QStringLiteral("Nome = '") + nome + QStringLiteral("'"), 0, adSearchForward);
    const QVariant guardada = rs.Fields(QStringLiteral("Senha")).Value();
    if (IsNull(guardada) || guardada.toString() != senha) {
        MsgBox(QStringLiteral("Senha inválida"), vbCritical, QStringLiteral("Atenção"));
        txtSenha->setSelection(0, txtSenha->text().length());
        txtSenha->setFocus();
        return false;
    }
    return true;
}
