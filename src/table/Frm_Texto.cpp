#include "table/Frm_Texto.h"

#include "platform/Application.h"
#include "platform/VbText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kTamanho = 255; // the columns' size
} // namespace

Frm_Texto::Frm_Texto(const char* nome, const QString& titulo, const QString& legenda, const char* nomeDoTexto,
                     const QString& dicaDoTexto)
    : m_texto(new QPlainTextEdit(this)), m_botoes(new QHBoxLayout) {
    setObjectName(QLatin1String(nome));
    setWindowTitle(titulo);
    KeyPreview = true;
    Label_Descricao_Item = named(new QLabel(legenda, this), "Label_Descricao_Item");
    QFont negrito = Label_Descricao_Item->font();
    negrito.setBold(true);
    Label_Descricao_Item->setFont(negrito);
    named(m_texto, nomeDoTexto)->setToolTip(dicaDoTexto);
    m_texto->setTabChangesFocus(true);
    connect(m_texto, &QPlainTextEdit::textChanged, this, [this] {
        const QString texto = m_texto->toPlainText();
        if (texto.size() > kTamanho) {
            m_texto->setPlainText(texto.left(kTamanho));
            m_texto->moveCursor(QTextCursor::End);
        }
    });
    Cmd_Gravar = named(new QPushButton(QStringLiteral("&Gravar (F1)"), this), "Cmd_Gravar");
    Cmd_Gravar->setToolTip(QStringLiteral("Gravar alterações"));
    Cmd_Sair = named(new QPushButton(QStringLiteral("&Sair (ESC)"), this), "Cmd_Sair");
    Cmd_Sair->setToolTip(QStringLiteral("Gravar alterações"));
    CancelButton = Cmd_Sair;
    connect(Cmd_Gravar, &QPushButton::clicked, this, guarded([this] { Cmd_Gravar_Click(); }));
    connect(Cmd_Sair, &QPushButton::clicked, this, guarded([this] { Cmd_Sair_Click(); }));

    m_botoes->addStretch(1);
    m_botoes->addWidget(Cmd_Gravar);
    m_botoes->addWidget(Cmd_Sair);
    auto* tela = new QVBoxLayout(this);
    tela->addWidget(Label_Descricao_Item);
    tela->addWidget(m_texto, 1);
    tela->addLayout(m_botoes);
    resize(460, 240);
    centerOnScreen();
    setTabOrder(m_texto, Cmd_Gravar);
    setTabOrder(Cmd_Gravar, Cmd_Sair);
    m_texto->setFocus();
}

void Frm_Texto::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 112)
        Cmd_Gravar_Click();
    else if (KeyCode == 27)
        Cmd_Sair_Click();
}

void Frm_Texto::digitado(int& KeyAscii) {
    if (KeyAscii >= 32 && m_texto->toPlainText().size() >= kTamanho &&
        !m_texto->textCursor().hasSelection()) {
        KeyAscii = 0;
        return;
    }
    KeyAscii = UCase(QString(QChar(KeyAscii))).at(0).unicode();
}

void Frm_Texto::Cmd_Sair_Click() {
    Unload();
}
