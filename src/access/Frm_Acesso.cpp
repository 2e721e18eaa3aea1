#include "access/Frm_Acesso.h"

#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

Frm_Acesso::Frm_Acesso() {
    setObjectName(QStringLiteral("Frm_Acesso"));
    setWindowTitle(programTitle());
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    KeyPreview = true;

    Ado_Acesso = new DataControl(QStringLiteral("Ado_Acesso"), this);

    lblSenha = new QLabel(QStringLiteral("Digite sua senha"), this);
    lblSenha->setObjectName(QStringLiteral("lblSenha"));
    Text_senha = new QLineEdit(this);
    Text_senha->setObjectName(QStringLiteral("Text_senha"));
    Text_senha->setEchoMode(QLineEdit::Password);
    Text_senha->setStyleSheet(QStringLiteral("lineedit-password-character: 42")); // "*"
    QFont grande = Text_senha->font();
    grande.setPointSize(14);
    Text_senha->setFont(grande);
    lblSenha->setFont(grande);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 14, 18, 18);
    layout->addWidget(lblSenha);
    layout->addWidget(Text_senha);
    setFixedSize(300, 110);
    centerOnScreen();
}

Frm_Acesso::~Frm_Acesso() = default;

void Frm_Acesso::Form_Load() {
    Ado_Acesso->ConnectionString = conexaoLocal;
    acessoAutorizado = false;
}

void Frm_Acesso::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27)
        Unload();
    else if (KeyCode == 13)
        autenticar();
}

void Frm_Acesso::autenticar() {
    if (Text_senha->text() == QLatin1String("")) {
        MsgBox(QStringLiteral("Informe a senha"), vbCritical, QStringLiteral("Atenção"));
        return;
    }
    Ado_Acesso->RecordSource = QStringLiteral("SELECT * FROM Tb_Colaborador WHERE bZarvel = 1");
    Ado_Acesso->Refresh();
    Recordset& rs = Ado_Acesso->Recordset();
    while (!rs.Eof()) {
        const QVariant senha = rs.Fields(QStringLiteral("Senha")).Value();
        if (!IsNull(senha) && senha.toString() == Text_senha->text()) {
            idColaborador = CInt(rs.Fields(QStringLiteral("id_colaborador")).Value());
            nomeColaborador = CStr(rs.Fields(QStringLiteral("nome")).Value());
            podeTransferirItem = CBool(rs.Fields(QStringLiteral("bTransferirItem")).Value());
            podeTransferirMesa = CBool(rs.Fields(QStringLiteral("bTransferirMesa")).Value());
            podeReimprimir = CBool(rs.Fields(QStringLiteral("bReimprimir")).Value());
            podeConfigurar = CBool(rs.Fields(QStringLiteral("bConfiguracoes")).Value());
            podeAlterarTaxa = CBool(rs.Fields(QStringLiteral("bTaxa")).Value());
            podeCancelar = CBool(rs.Fields(QStringLiteral("bCancelar")).Value());
            podeExcluir = CBool(rs.Fields(QStringLiteral("bExcluir")).Value());
            acessoAutorizado = true;
            Unload();
            return;
        }
        rs.MoveNext();
    }
    MsgBox(QStringLiteral("Senha inválida"), vbCritical, QStringLiteral("Atenção"));
    Text_senha->setSelection(0, Text_senha->text().length());
}
