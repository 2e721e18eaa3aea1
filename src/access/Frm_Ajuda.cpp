#include "access/Frm_Ajuda.h"

#include "access/telaDeOperacao.h"
#include "table/Frm_Mesa.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

namespace {
struct Linha {
    const char* tecla;
    const char* funcao;
};

const Linha teclas[] = {
    {"F1", "Incluir Produto"},
    {"F2", "Incluir Cliente"},
    {"F3", "Transferir itens selecionados*"},
    {"F4", "Imprimir Conferência"},
    {"F5", "Lançar Recebimentos"},
    {"F6", "Cancelar consumação da mesa*"},
    {"F7", "Exibir Ajuda"},
    {"F8", "Exibir detalhes do item selecionado"},
    {"F9", "Exibir/Incluir observação ao item selecionado"},
    {"F10", "Solicitar reimpressão do item selecionado*"},
    {"ESC", "Enviar pedido"},
    {"DEL", "Excluir item selecionado*"},
};

const Linha combinacoes[] = {
    {"Ctrl +", "Aumenta o numero de ocupantes"},
    {"Ctrl -", "Reduz o numero de ocupantes"},
    {"Ctrl i", "Direciona foco para inserir identificação"},
    {"Ctrl C", "Direciona foco para inserir código do produto"},
    {"Ctrl Q", "Direciona foco para inserir quantidade"},
    {"Ctrl S", "ATIVA ou DESATIVA a incidência da taxa de serviço*"},
};

QLabel* negrito(QLabel* l) {
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

// One list under its heading: the key on the left in bold, its function beside it. The labels of a
// list share their name and carry their place as Index, as the original's control arrays did.
QGridLayout* lista(QWidget* pai, QLabel* titulo, const Linha* linhas, int n, const char* nomeDaTecla,
                   QList<QLabel*>& rotulosDaTecla, const char* nomeDaFuncao,
                   QList<QLabel*>& rotulosDaFuncao) {
    auto* grade = new QGridLayout;
    grade->setHorizontalSpacing(14);
    grade->setVerticalSpacing(3);
    grade->addWidget(negrito(titulo), 0, 0, 1, 2);
    for (int i = 0; i < n; ++i) {
        QLabel* tecla = negrito(namedLabel(pai, nomeDaTecla, QString::fromUtf8(linhas[i].tecla)));
        QLabel* funcao = namedLabel(pai, nomeDaFuncao, QString::fromUtf8(linhas[i].funcao));
        tecla->setProperty("Index", i);
        funcao->setProperty("Index", i);
        rotulosDaTecla.append(tecla);
        rotulosDaFuncao.append(funcao);
        grade->addWidget(tecla, i + 1, 0);
        grade->addWidget(funcao, i + 1, 1);
    }
    grade->setColumnStretch(1, 1);
    grade->setRowStretch(n + 1, 1);
    return grade;
}
} // namespace

Frm_Ajuda::Frm_Ajuda() {
    QHBoxLayout* cabecalho = montarTelaDeOperacao(*this, "Frm_Ajuda", QStringLiteral("Ajuda"),
                                                  QStyle::SP_DialogHelpButton, Label_Operacao, Image1);

    Label_Teclas = namedLabel(this, "Label_Teclas", QStringLiteral("Teclas e Funções"));
    QGridLayout* listaDeTeclas = lista(this, Label_Teclas, teclas, int(std::size(teclas)), "Label_Tecla",
                                       Label_Tecla, "Label_Funcao_Tecla", Label_Funcao_Tecla);
    Label_Combinacoes = namedLabel(this, "Label_Combinacoes", QStringLiteral("Combinações e Funções"));
    QGridLayout* listaDeCombinacoes =
        lista(this, Label_Combinacoes, combinacoes, int(std::size(combinacoes)), "Label_Combinacao",
              Label_Combinacao, "Label_Funcao_Combinacao", Label_Funcao_Combinacao);

    // The legend: the very marks the item list draws.
    Image2 = namedLabel(this, "Image2");
    Image2->setPixmap(marcaDoItem(true).pixmap(16, 16));
    Label_Impresso = namedLabel(this, "Label_Impresso", QStringLiteral("Item já foi impresso"));
    Image3 = namedLabel(this, "Image3");
    Image3->setPixmap(marcaDoItem(false).pixmap(16, 16));
    Label_Pendente = namedLabel(this, "Label_Pendente",
                                QStringLiteral("Item pendente impressão ou reimpressão solicitada"));
    Label_Nota = namedLabel(
        this, "Label_Nota",
        QStringLiteral("Os usuários precisam de permissão prévia para executar as ações marcadas com *"));
    Label_Nota->setWordWrap(true);
    Label_Nota->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* legenda = new QGridLayout;
    legenda->addWidget(Image2, 0, 0);
    legenda->addWidget(Label_Impresso, 0, 1);
    legenda->addWidget(Image3, 1, 0);
    legenda->addWidget(Label_Pendente, 1, 1);
    legenda->setColumnStretch(1, 1);

    auto* divisoria = new QFrame(this);
    divisoria->setFrameShape(QFrame::VLine);
    divisoria->setFrameShadow(QFrame::Sunken);

    auto* listas = new QGridLayout;
    listas->setHorizontalSpacing(24);
    listas->addLayout(listaDeTeclas, 0, 0);
    listas->addWidget(divisoria, 0, 1);
    listas->addLayout(listaDeCombinacoes, 0, 2);
    listas->addLayout(legenda, 1, 0);
    listas->addWidget(Label_Nota, 1, 2);

    auto* tela = new QVBoxLayout(this);
    tela->setContentsMargins(18, 12, 18, 18);
    tela->addLayout(cabecalho);
    tela->addSpacing(6);
    tela->addLayout(listas, 1);
    adjustSize();
    centerOnScreen();
}

Frm_Ajuda::~Frm_Ajuda() = default;

void Frm_Ajuda::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27)
        Unload();
}
