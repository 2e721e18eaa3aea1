#include "access/telaDeOperacao.h"

#include "platform/Form.h"

#include <QHBoxLayout>
#include <QLabel>

QHBoxLayout* montarTelaDeOperacao(Form& tela, const char* nome, const QString& operacao,
                                  QStyle::StandardPixmap figura, QLabel*& Label_Operacao, QLabel*& Image1) {
    tela.setObjectName(QLatin1String(nome));
    tela.setWindowTitle(operacao);
    tela.setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    tela.KeyPreview = true;
    QFont fonte(QStringLiteral("Segoe UI"));
    fonte.setPointSizeF(9.75);
    tela.setFont(fonte);

    Label_Operacao = new QLabel(operacao, &tela);
    Label_Operacao->setObjectName(QStringLiteral("Label_Operacao"));
    QFont titulo = fonte;
    titulo.setPointSizeF(18);
    titulo.setBold(true);
    Label_Operacao->setFont(titulo);
    Image1 = new QLabel(&tela);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(tela.style()->standardIcon(figura).pixmap(48, 48));

    auto* cabecalho = new QHBoxLayout;
    cabecalho->addWidget(Image1);
    cabecalho->addWidget(Label_Operacao, 1);
    return cabecalho;
}
