#include "table/Frm_Detalhe.h"

#include "platform/Application.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

Frm_Detalhe::Frm_Detalhe() {
    setObjectName(QStringLiteral("Frm_Detalhe"));
    setWindowTitle(QStringLiteral("Detalhes do item"));
    Label_Item = namedLabel(this, "Label_Item", QStringLiteral("Item"));
    Label_Item_Descricao = namedLabel(this, "Label_Item_Descricao");
    Label_Inclusao = namedLabel(this, "Label_Inclusao", QStringLiteral("Incluido em"));
    Label_Inclusao_Data = namedLabel(this, "Label_Inclusao_Data");
    Label_Garcom = namedLabel(this, "Label_Garcom", QStringLiteral("Incluido por"));
    Label_Garcom_Nome = namedLabel(this, "Label_Garcom_Nome");
    Label_Observacao = namedLabel(this, "Label_Observacao", QStringLiteral("Observações"));
    Label_Observacao_Descricao = namedLabel(this, "Label_Observacao_Descricao");
    Label_Observacao_Descricao->setWordWrap(true);
    Label_Observacao_Descricao->setMinimumHeight(60);
    Label_Observacao_Descricao->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Cmd_Sair = new QPushButton(QStringLiteral("&Sair (ESC)"), this);
    Cmd_Sair->setObjectName(QStringLiteral("Cmd_Sair"));
    Cmd_Sair->setToolTip(QStringLiteral("Gravar alterações"));
    DefaultButton = Cmd_Sair;
    CancelButton = Cmd_Sair;
    connect(Cmd_Sair, &QPushButton::clicked, this, guarded([this] { Cmd_Sair_Click(); }));

    auto* grade = new QGridLayout(this);
    int linha = 0;
    for (auto [legenda, valor] : {std::pair{Label_Item, Label_Item_Descricao},
                                  {Label_Inclusao, Label_Inclusao_Data},
                                  {Label_Garcom, Label_Garcom_Nome},
                                  {Label_Observacao, Label_Observacao_Descricao}}) {
        QFont negrito = legenda->font();
        negrito.setBold(true);
        legenda->setFont(negrito);
        grade->addWidget(legenda, linha, 0, Qt::AlignTop);
        grade->addWidget(valor, linha++, 1);
    }
    grade->addWidget(Cmd_Sair, linha, 1, Qt::AlignRight);
    grade->setColumnStretch(1, 1);
    resize(460, 240);
    centerOnScreen();
}

void Frm_Detalhe::Cmd_Sair_Click() {
    Unload();
}
