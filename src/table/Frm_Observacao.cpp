#include "table/Frm_Observacao.h"

#include "platform/Application.h"
#include "platform/DataControl.h"
#include "platform/VbText.h"
#include "table/Frm_Mesa.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kTamanho = 255; // the column's size
} // namespace

Frm_Observacao::Frm_Observacao() {
    setObjectName(QStringLiteral("Frm_Observacao"));
    setWindowTitle(QStringLiteral("Observação"));
    KeyPreview = true;
    Label_Descricao_Item = new QLabel(this);
    Label_Descricao_Item->setObjectName(QStringLiteral("Label_Descricao_Item"));
    QFont negrito = Label_Descricao_Item->font();
    negrito.setBold(true);
    Label_Descricao_Item->setFont(negrito);
    Text_Observacao = new QPlainTextEdit(this);
    Text_Observacao->setObjectName(QStringLiteral("Text_Observacao"));
    Text_Observacao->setToolTip(QStringLiteral("Insira aqui uma observação para o item"));
    Text_Observacao->setTabChangesFocus(true);
    Cmd_Gravar = new QPushButton(QStringLiteral("&Gravar (F1)"), this);
    Cmd_Gravar->setObjectName(QStringLiteral("Cmd_Gravar"));
    Cmd_Gravar->setToolTip(QStringLiteral("Gravar alterações"));
    Cmd_Sair = new QPushButton(QStringLiteral("&Sair (ESC)"), this);
    Cmd_Sair->setObjectName(QStringLiteral("Cmd_Sair"));
    Cmd_Sair->setToolTip(QStringLiteral("Gravar alterações"));
    CancelButton = Cmd_Sair;
    connect(Cmd_Gravar, &QPushButton::clicked, this, guarded([this] { Cmd_Gravar_Click(); }));
    connect(Cmd_Sair, &QPushButton::clicked, this, guarded([this] { Cmd_Sair_Click(); }));
    onKeyPress(Text_Observacao, &Frm_Observacao::Text_Observacao_KeyPress);
    // Pasted text is held to the column's size too.
    connect(Text_Observacao, &QPlainTextEdit::textChanged, this, [this] {
        const QString texto = Text_Observacao->toPlainText();
        if (texto.size() > kTamanho) {
            Text_Observacao->setPlainText(texto.left(kTamanho));
            Text_Observacao->moveCursor(QTextCursor::End);
        }
    });

    auto* botoes = new QHBoxLayout;
    botoes->addStretch(1);
    botoes->addWidget(Cmd_Gravar);
    botoes->addWidget(Cmd_Sair);
    auto* tela = new QVBoxLayout(this);
    tela->addWidget(Label_Descricao_Item);
    tela->addWidget(Text_Observacao, 1);
    tela->addLayout(botoes);
    resize(460, 240);
    centerOnScreen();
    setTabOrder(Text_Observacao, Cmd_Gravar);
    setTabOrder(Cmd_Gravar, Cmd_Sair);
    Text_Observacao->setFocus();
}

void Frm_Observacao::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 112)
        Cmd_Gravar_Click();
    else if (KeyCode == 27)
        Cmd_Sair_Click();
}

void Frm_Observacao::Text_Observacao_KeyPress(int& KeyAscii) {
    // Line breaks and erasing pass; a printable character past the size is refused.
    if (KeyAscii >= 32 && Text_Observacao->toPlainText().size() >= kTamanho &&
        !Text_Observacao->textCursor().hasSelection()) {
        KeyAscii = 0;
        return;
    }
    KeyAscii = UCase(QString(QChar(KeyAscii))).at(0).unicode();
}

// The note as it stands, also empty; impresso is left alone, so the item is not sent again.
void Frm_Observacao::Cmd_Gravar_Click() {
    DataControl& ado = *Frm_Mesa::instance().Ado_itens;
    ado.Recordset().Fields(QStringLiteral("Observacao")).setValue(Text_Observacao->toPlainText());
    ado.Recordset().Update();
    ado.Refresh();
    Unload();
}

void Frm_Observacao::Cmd_Sair_Click() {
    Unload();
}
