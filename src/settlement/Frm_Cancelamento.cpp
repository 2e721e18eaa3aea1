#include "settlement/Frm_Cancelamento.h"

#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/MsgBox.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

Frm_Cancelamento::Frm_Cancelamento() {
    setObjectName(QStringLiteral("Frm_Cancelamento"));
    setWindowTitle(QStringLiteral("Cancelamento"));
    KeyPreview = true;
    Label_Descricao_Item = new QLabel(QStringLiteral("Motivo do cancelamento:"), this);
    Label_Descricao_Item->setObjectName(QStringLiteral("Label_Descricao_Item"));
    QFont negrito = Label_Descricao_Item->font();
    negrito.setBold(true);
    Label_Descricao_Item->setFont(negrito);
    Text_Cancelamento = new QPlainTextEdit(this);
    Text_Cancelamento->setObjectName(QStringLiteral("Text_Cancelamento"));
    Text_Cancelamento->setToolTip(QStringLiteral("Insira aqui o motivo do cancelamento:"));
    Text_Cancelamento->setTabChangesFocus(true);
    Label_Caracteres = new QLabel(QStringLiteral("Caracteres: 0"), this);
    Label_Caracteres->setObjectName(QStringLiteral("Label_Caracteres"));
    Cmd_Gravar = new QPushButton(QStringLiteral("&Gravar (F1)"), this);
    Cmd_Gravar->setObjectName(QStringLiteral("Cmd_Gravar"));
    Cmd_Gravar->setToolTip(QStringLiteral("Gravar alterações"));
    // The leave button's tip repeats the save button's: users know it so.
    Cmd_Sair = new QPushButton(QStringLiteral("&Sair (ESC)"), this);
    Cmd_Sair->setObjectName(QStringLiteral("Cmd_Sair"));
    Cmd_Sair->setToolTip(QStringLiteral("Gravar alterações"));
    connect(Cmd_Gravar, &QPushButton::clicked, this, guarded([this] { Cmd_Gravar_Click(); }));
    connect(Cmd_Sair, &QPushButton::clicked, this, guarded([this] { Cmd_Sair_Click(); }));
    onKeyPress(Text_Cancelamento, &Frm_Cancelamento::Text_Cancelamento_KeyPress);
    onKeyUp(Text_Cancelamento, &Frm_Cancelamento::Text_Cancelamento_KeyUp);

    auto* botoes = new QHBoxLayout;
    botoes->addWidget(Label_Caracteres);
    botoes->addStretch(1);
    botoes->addWidget(Cmd_Gravar);
    botoes->addWidget(Cmd_Sair);
    auto* tela = new QVBoxLayout(this);
    tela->addWidget(Label_Descricao_Item);
    tela->addWidget(Text_Cancelamento, 1);
    tela->addLayout(botoes);
    resize(460, 240);
    centerOnScreen();
    setTabOrder(Text_Cancelamento, Cmd_Gravar);
    setTabOrder(Cmd_Gravar, Cmd_Sair);
    Text_Cancelamento->setFocus();
}

void Frm_Cancelamento::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 112)
        Cmd_Gravar_Click();
    else if (KeyCode == 27)
        Cmd_Sair_Click();
}

void Frm_Cancelamento::Text_Cancelamento_KeyPress(int& KeyAscii) {
    KeyAscii = UCase(QString(QChar(KeyAscii))).at(0).unicode();
}

// The count is of the text as it stands, blanks at the ends included.
void Frm_Cancelamento::Text_Cancelamento_KeyUp(int& KeyCode, int Shift) {
    Label_Caracteres->setText(QStringLiteral("Caracteres: ") + CStr(Text_Cancelamento->toPlainText().size()));
}

// The tests run on the trimmed text and count characters, whatever the message says of letters.
// The four writes are separate: a failure half-way leaves the first ones in the store.
void Frm_Cancelamento::Cmd_Gravar_Click() {
    const QString motivo = Trim(Text_Cancelamento->toPlainText());
    const auto recusar = [](const QString& texto) {
        MsgBox(texto, vbOKOnly | vbCritical, QStringLiteral("Atenção"));
    };
    if (motivo.isEmpty()) {
        recusar(QStringLiteral("Informe o motivo do cancelamento!"));
        return;
    }
    if (motivo.size() < 30) {
        recusar(QStringLiteral("O cancelamento deve possuir ao menos 30 letras!"));
        return;
    }
    if (IsNumeric(motivo)) {
        recusar(QStringLiteral("O motivo do cancelamento não pode ser um número!"));
        return;
    }
    Comanda& comanda = *comandaAtual;
    comanda.cancelada(true);
    comanda.quem_cancelou(idColaborador);
    comanda.data_cancelamento(agora());
    comanda.motivo_cancelamento(UCase(motivo));
    Unload();
}

void Frm_Cancelamento::Cmd_Sair_Click() {
    Unload();
}
