#include "table/Frm_Mesa.h"

#include "items/rotinasItens.h"
#include "platform/Application.h"
#include "platform/DataControl.h"
#include "platform/Twips.h"
#include "platform/UpDown.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/rotinasGerais.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The action strip's images. The style decodes its pictures each time it is asked, which would cost
// every opening of a table milliseconds: they are made once, and dropped with the application.
const QList<QIcon>& imagensDoMenu(const QStyle* estilo) {
    static QList<QIcon>* imagens = nullptr;
    if (!imagens) {
        imagens = new QList<QIcon>;
        for (QStyle::StandardPixmap imagem :
             {QStyle::SP_FileDialogContentsView, QStyle::SP_DirHomeIcon, QStyle::SP_ArrowRight,
              QStyle::SP_FileDialogDetailedView, QStyle::SP_DialogApplyButton, QStyle::SP_DialogCancelButton,
              QStyle::SP_DialogHelpButton, QStyle::SP_DialogSaveButton, QStyle::SP_DialogOpenButton})
            imagens->append(estilo->standardIcon(imagem));
        qAddPostRoutine([] {
            delete imagens;
            imagens = nullptr;
        });
    }
    return *imagens;
}
QLineEdit* somenteLeitura(const char* name, QWidget* parent) {
    auto* t = named(new QLineEdit(parent), name);
    t->setReadOnly(true);
    t->setFocusPolicy(Qt::ClickFocus); // no tab stop
    return t;
}

} // namespace

// A green tick for a printed item, an amber clock for one waiting for the printer.
QIcon marcaDoItem(bool impresso) {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(impresso ? QColor(0, 150, 60) : QColor(235, 140, 0));
    p.drawEllipse(QRectF(1, 1, 14, 14));
    p.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (impresso) {
        p.drawPolyline(QPolygonF({QPointF(4.5, 8.5), QPointF(7, 11), QPointF(11.5, 5)}));
    } else {
        p.drawLine(QPointF(8, 4), QPointF(8, 8.5));
        p.drawLine(QPointF(8, 8.5), QPointF(11, 10));
    }
    return QIcon(pixmap);
}

namespace {

// The strip's entries: key (also the text), image of ImageListMenu, tool tip.
struct Entrada {
    const char* chave;
    int imagem;
    const char* dica;
};
const Entrada entradasLiberada[] = {
    {"Produtos", 1, "Produtos - F1"},     {"Clientes", 2, "Clientes - F2"},
    {"Transferir", 3, "Transferir - F3"}, {"Conferência", 4, "Conferência - F4"},
    {"Receber", 5, "Receber - F5"},       {"Cancelar", 6, "Cancelar - F6"},
    {"Ajuda", 7, "Ajuda - F7"},           {"Enviar", 8, "Enviar - ESC"},
};
// "Receber - F2" stands as the users have always seen it, though F5 is the key that works.
const Entrada entradasBloqueada[] = {
    {"Desbloquear", 9, "Desbloquear - F8"},
    {"Receber", 5, "Receber - F2"},
    {"Ajuda", 7, "Ajuda - F7"},
    {"Enviar", 8, "Enviar - ESC"},
};
} // namespace

Frm_Mesa::Frm_Mesa() {
    setObjectName(QStringLiteral("Frm_Mesa"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    KeyPreview = true;
    QFont fonte(QStringLiteral("Segoe UI"));
    fonte.setPointSizeF(10);
    setFont(fonte);
    setAutoFillBackground(true);

    // Header: the table number and the tab's data.
    Label_Mesa = namedLabel(this, "Label_Mesa", QStringLiteral("0000"));
    QFont grande = font();
    grande.setPointSizeF(28);
    grande.setBold(true);
    Label_Mesa->setFont(grande);
    Label_Mesa->setAlignment(Qt::AlignCenter);
    Label_Mesa->setMinimumWidth(160);

    Frame_Mesa = named(new QGroupBox(QStringLiteral("Dados da mesa"), this), "Frame_Mesa");
    Label_Atendente = namedLabel(Frame_Mesa, "Label_Atendente", QStringLiteral("Atendente:"));
    Text_Atendente = somenteLeitura("Text_Atendente", Frame_Mesa);
    Label_Cliente = namedLabel(Frame_Mesa, "Label_Cliente", QStringLiteral("Cliente:"));
    Text_Cliente = somenteLeitura("Text_Cliente", Frame_Mesa);
    Label_Identificacao = namedLabel(Frame_Mesa, "Label_Identificacao", QStringLiteral("&Identificação:"));
    Text_Identificacao = named(new QLineEdit(Frame_Mesa), "Text_Identificacao");
    Text_Identificacao->setMaxLength(255); // the column's size
    Label_Identificacao->setBuddy(Text_Identificacao);
    Label_Ocupantes = namedLabel(Frame_Mesa, "Label_Ocupantes", QStringLiteral("Ocupantes:"));
    Text_Ocupantes = named(new QLineEdit(QStringLiteral("1"), Frame_Mesa), "Text_Ocupantes");
    Text_Ocupantes->setReadOnly(true);
    Text_Ocupantes->setAlignment(Qt::AlignCenter);
    Text_Ocupantes->setMaximumWidth(60);
    auto* upDown = named(new UpDown(Frame_Mesa), "UpDown_Ocupantes");
    upDown->setRange(1, 100);
    upDown->setBuddyControl(Text_Ocupantes);
    UpDown_Ocupantes = upDown;
    Label_Tempo = namedLabel(Frame_Mesa, "Label_Tempo", QStringLiteral("Consumindo à:"));
    Text_Tempo = somenteLeitura("Text_Tempo", Frame_Mesa);
    Text_Tempo->setText(QStringLiteral("00h:00m"));
    Text_Tempo->setMaximumWidth(100);

    auto* dados = new QGridLayout(Frame_Mesa);
    dados->addWidget(Label_Atendente, 0, 0);
    dados->addWidget(Text_Atendente, 0, 1, 1, 3);
    dados->addWidget(Label_Cliente, 0, 4);
    dados->addWidget(Text_Cliente, 0, 5, 1, 2);
    dados->addWidget(Label_Identificacao, 1, 0);
    dados->addWidget(Text_Identificacao, 1, 1);
    dados->addWidget(Label_Ocupantes, 1, 2);
    auto* ocupantes = new QHBoxLayout;
    ocupantes->setSpacing(0);
    ocupantes->addWidget(Text_Ocupantes);
    ocupantes->addWidget(UpDown_Ocupantes);
    dados->addLayout(ocupantes, 1, 3);
    dados->addWidget(Label_Tempo, 1, 4);
    dados->addWidget(Text_Tempo, 1, 5);
    dados->setColumnStretch(1, 3);
    dados->setColumnStretch(5, 2);

    // Entry.
    Label_Codigo = namedLabel(this, "Label_Codigo", QStringLiteral("&Código"));
    Text_Codigo = named(new QLineEdit(this), "Text_Codigo");
    Text_Codigo->setMaxLength(13);
    Text_Codigo->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label_Codigo->setBuddy(Text_Codigo);
    Label_Quantidade = namedLabel(this, "Label_Quantidade", QStringLiteral("&Qtd"));
    Text_Quantidade = named(new QLineEdit(QStringLiteral("1,000"), this), "Text_Quantidade");
    Text_Quantidade->setMaxLength(13);
    Text_Quantidade->setAlignment(Qt::AlignCenter);
    Text_Quantidade->setMaximumWidth(140);
    Text_Quantidade->installEventFilter(this);
    Label_Quantidade->setBuddy(Text_Quantidade);
    QFont entrada = font();
    entrada.setPointSizeF(14);
    for (QLineEdit* t : {Text_Codigo, Text_Quantidade})
        t->setFont(entrada);

    // The items: report view, several rows selectable.
    ImageListItens = {marcaDoItem(true), marcaDoItem(false)};
    List_Itens = named(new QTreeWidget(this), "List_Itens");
    List_Itens->setRootIsDecorated(false);
    List_Itens->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List_Itens->setAllColumnsShowFocus(true);
    List_Itens->setUniformRowHeights(true);
    List_Itens->setColumnCount(0);

    // The action strip.
    ImageListMenu = imagensDoMenu(style());
    List_Menu = named(new QTreeWidget(this), "List_Menu");
    List_Menu->setHeaderHidden(true);
    List_Menu->setRootIsDecorated(false);
    List_Menu->setIconSize(QSize(32, 32));
    List_Menu->setFixedWidth(190);
    connect(List_Menu, &QTreeWidget::itemClicked, this,
            guarded([this](QTreeWidgetItem* item) { List_Menu_ItemClick(item); }));

    // Totals.
    Chk_Servico = named(new QCheckBox(QStringLiteral("&Serviço"), this), "Chk_Servico");
    Label_Servico = namedLabel(this, "Label_Servico", QStringLiteral("0,00"));
    Label_Legenda_Produtos = namedLabel(this, "Label_Legenda_Produtos", QStringLiteral("Produtos"));
    Label_Produtos = namedLabel(this, "Label_Produtos", QStringLiteral("0,00"));
    Label_Leganda_Total = namedLabel(this, "Label_Leganda_Total", QStringLiteral("Total"));
    Label_Total = namedLabel(this, "Label_Total", QStringLiteral("0,00"));
    QFont valor = font();
    valor.setPointSizeF(16);
    valor.setBold(true);
    for (QLabel* l : {Label_Servico, Label_Produtos, Label_Total}) {
        l->setFont(valor);
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        l->setMinimumWidth(130);
    }
    // Struck through at design: a tab without service shows so from the start.
    riscar(Chk_Servico, true);
    riscar(Label_Servico, true);
    connect(Chk_Servico, &QCheckBox::stateChanged, this, guarded([this] { Chk_Servico_Click(); }));

    Ado_itens = new DataControl(QStringLiteral("Ado_itens"), this);

    mnu_mesa = named(new QMenu(QStringLiteral("Mesa"), this), "mnu_mesa");
    const auto entradaDoMenuMesa = [this](const QString& texto, const char* nome, void (Frm_Mesa::*acao)()) {
        QAction* a = mnu_mesa->addAction(texto);
        a->setObjectName(QLatin1String(nome));
        connect(a, &QAction::triggered, this, guarded([this, acao] { (this->*acao)(); }));
        return a;
    };
    mnu_mesa_detalhe =
        entradaDoMenuMesa(QStringLiteral("Detalhes"), "mnu_mesa_detalhe", &Frm_Mesa::mnu_mesa_detalhe_Click);
    mnu_mesa_observacao = entradaDoMenuMesa(QStringLiteral("Observação"), "mnu_mesa_observacao",
                                            &Frm_Mesa::mnu_mesa_observacao_Click);
    mnu_mesa_excluir =
        entradaDoMenuMesa(QStringLiteral("Excluir"), "mnu_mesa_excluir", &Frm_Mesa::mnu_mesa_excluir_Click);
    mnu_mesa_reimpressao = entradaDoMenuMesa(QStringLiteral("Solicitar reimpressão"), "mnu_mesa_reimpressao",
                                             &Frm_Mesa::mnu_mesa_reimpressao_Click);
    mnu_mesa_transferir = entradaDoMenuMesa(QStringLiteral("Transferir item"), "mnu_mesa_transferir",
                                            &Frm_Mesa::mnu_mesa_transferir_Click);

    // Layout: header on top, entry and items on the left, the strip on the right, totals below.
    auto* topo = new QHBoxLayout;
    topo->addWidget(Label_Mesa);
    topo->addWidget(Frame_Mesa, 1);
    auto* linhaEntrada = new QHBoxLayout;
    linhaEntrada->addWidget(Label_Codigo);
    linhaEntrada->addWidget(Text_Codigo, 1);
    linhaEntrada->addSpacing(12);
    linhaEntrada->addWidget(Label_Quantidade);
    linhaEntrada->addWidget(Text_Quantidade);
    auto* totais = new QHBoxLayout;
    totais->addWidget(Chk_Servico);
    totais->addWidget(Label_Servico);
    totais->addStretch(1);
    totais->addWidget(Label_Legenda_Produtos);
    totais->addWidget(Label_Produtos);
    totais->addSpacing(24);
    totais->addWidget(Label_Leganda_Total);
    totais->addWidget(Label_Total);
    auto* esquerda = new QVBoxLayout;
    esquerda->addLayout(linhaEntrada);
    esquerda->addWidget(List_Itens, 1);
    esquerda->addLayout(totais);
    auto* meio = new QHBoxLayout;
    meio->addLayout(esquerda, 1);
    meio->addWidget(List_Menu);
    auto* tela = new QVBoxLayout(this);
    tela->addLayout(topo);
    tela->addLayout(meio, 1);

    // The whole working area, as the map: there is no title bar to move or size it by.
    resize(1024, 720);
    setWindowState(Qt::WindowMaximized);

    // Tab order: code, quantity, identification, occupants, ..., the service box last.
    setTabOrder(Text_Codigo, Text_Quantidade);
    setTabOrder(Text_Quantidade, Text_Identificacao);
    setTabOrder(Text_Identificacao, Text_Ocupantes);
    setTabOrder(Text_Ocupantes, List_Itens);
    setTabOrder(List_Itens, List_Menu);
    setTabOrder(List_Menu, Chk_Servico);

    onGotFocus(List_Menu, &Frm_Mesa::List_Menu_GotFocus);
    onKeyDown(List_Menu, &Frm_Mesa::List_Menu_KeyDown);
    onMouseDown(Chk_Servico, &Frm_Mesa::Chk_Servico_MouseDown);
    onKeyPress(Text_Identificacao, &Frm_Mesa::Text_Identificacao_KeyPress);
    onGotFocus(Text_Codigo, &Frm_Mesa::Text_Codigo_GotFocus);
    onKeyPress(Text_Codigo, &Frm_Mesa::Text_Codigo_KeyPress);
    onGotFocus(Text_Quantidade, &Frm_Mesa::Text_Quantidade_GotFocus);
    onKeyUp(Text_Quantidade, &Frm_Mesa::Text_Quantidade_KeyUp);
    onKeyDown(List_Itens, &Frm_Mesa::List_Itens_KeyDown);
    onMouseDown(List_Itens, &Frm_Mesa::List_Itens_MouseDown);

    Text_Codigo->setFocus();
}

Frm_Mesa::~Frm_Mesa() = default;

void riscar(QWidget* w, bool riscado) {
    QFont f = w->font();
    f.setStrikeOut(riscado);
    w->setFont(f);
}

void Frm_Mesa::Form_Load() {
    Comanda& comanda = *comandaAtual;
    comanda.status(2);

    const QString mesa = Format(comanda.apelido(), QStringLiteral("0000"));
    setWindowTitle(QStringLiteral("Mesa ") + mesa);
    Label_Mesa->setText(mesa);

    Text_Atendente->setText(nomeDoColaborador(comanda.colaborador()));
    Text_Cliente->setText(nomeDoCliente(comanda.cliente()));
    Text_Ocupantes->setText(CStr(comanda.ocupantes()));
    Text_Tempo->setText(tempoDecorrido(comanda.dataCriacao()));
    Text_Identificacao->setText(comanda.identificacao());

    exibirTotais();

    if (comanda.servico())
        Chk_Servico->setChecked(true);

    // The columns' widths are the design's measurements in twips, written with a decimal comma.
    struct Coluna {
        const char* titulo;
        const char* largura;
        Qt::Alignment alinhamento;
    };
    const Coluna colunas[] = {
        {"ITEM", "1265,853", Qt::AlignLeft},      {"CÓDIGO", "2370,695", Qt::AlignLeft},
        {"DESCRIÇÃO", "4581,053", Qt::AlignLeft}, {"UNIT.", "1275,284", Qt::AlignRight},
        {"QD", "1275,284", Qt::AlignRight},       {"TOTAL", "1275,284", Qt::AlignRight},
    };
    List_Itens->setColumnCount(int(std::size(colunas)));
    auto* cabecalho = new QTreeWidgetItem;
    for (int i = 0; i < int(std::size(colunas)); ++i) {
        cabecalho->setText(i, QString::fromUtf8(colunas[i].titulo));
        cabecalho->setTextAlignment(i, colunas[i].alinhamento | Qt::AlignVCenter);
    }
    List_Itens->setHeaderItem(cabecalho);
    for (int i = 0; i < int(std::size(colunas)); ++i)
        List_Itens->header()->resizeSection(i, twipsToPixelsX(CDbl(QString::fromLatin1(colunas[i].largura))));
    List_Itens->header()->setStretchLastSection(false);

    List_Menu->setFrameShape(QFrame::NoFrame);
    List_Menu->setColumnCount(1);
    List_Menu->setColumnWidth(0, List_Menu->width());

    if (comanda.bloqueada())
        mesaBloqueada();
    else
        mesaLiberada();

    listarItens();
}

void Frm_Mesa::Form_Activate() {
    comandaAtual->totalizaMesa();
    exibirTotais();
    List_Menu->setColumnWidth(0, List_Menu->width());
}

void Frm_Mesa::exibirTotais() {
    Label_Produtos->setText(Format(comandaAtual->valorProdutos(), QStringLiteral("#0.00")));
    Label_Servico->setText(Format(comandaAtual->valorServico(), QStringLiteral("#0.00")));
    Label_Total->setText(Format(comandaAtual->valorTotal(), QStringLiteral("#0.00")));
}

void Frm_Mesa::mesaBloqueada() {
    montarMenu(true);
}

void Frm_Mesa::mesaLiberada() {
    montarMenu(false);
}

void Frm_Mesa::montarMenu(bool bloqueada) {
    for (QWidget* w : {static_cast<QWidget*>(Text_Codigo), static_cast<QWidget*>(Text_Quantidade),
                       static_cast<QWidget*>(Text_Identificacao), static_cast<QWidget*>(Chk_Servico),
                       static_cast<QWidget*>(Text_Ocupantes), static_cast<QWidget*>(UpDown_Ocupantes),
                       static_cast<QWidget*>(List_Itens)})
        w->setEnabled(!bloqueada);
    List_Menu->clear();
    const auto adicionar = [this](const Entrada& e) {
        const QString chave = QString::fromUtf8(e.chave);
        auto* item = new QTreeWidgetItem(List_Menu, QStringList(chave));
        item->setData(0, Qt::UserRole, chave);
        item->setIcon(0, ImageListMenu.at(e.imagem - 1));
        item->setToolTip(0, QString::fromUtf8(e.dica));
        item->setSelected(false);
    };
    if (bloqueada)
        for (const Entrada& e : entradasBloqueada)
            adicionar(e);
    else
        for (const Entrada& e : entradasLiberada)
            adicionar(e);
}

QTreeWidgetItem* Frm_Mesa::entradaDoMenu(const QString& chave) const {
    for (int i = 0; i < List_Menu->topLevelItemCount(); ++i)
        if (List_Menu->topLevelItem(i)->data(0, Qt::UserRole).toString() == chave)
            return List_Menu->topLevelItem(i);
    return nullptr;
}

QTreeWidgetItem* Frm_Mesa::SelectedItem() const {
    for (int i = 0; i < List_Itens->topLevelItemCount(); ++i)
        if (List_Itens->topLevelItem(i)->isSelected())
            return List_Itens->topLevelItem(i);
    return nullptr;
}

QTreeWidgetItem* Frm_Mesa::FindItem(const QString& tag) const {
    for (int i = 0; i < List_Itens->topLevelItemCount(); ++i)
        if (Tag(List_Itens->topLevelItem(i)) == tag)
            return List_Itens->topLevelItem(i);
    return nullptr;
}

QString Frm_Mesa::Tag(const QTreeWidgetItem* item) {
    return item->data(0, Qt::UserRole).toString();
}

int Frm_Mesa::SmallIcon(const QTreeWidgetItem* item) {
    return item->data(0, Qt::UserRole + 1).toInt();
}

void Frm_Mesa::setSmallIcon(QTreeWidgetItem* item, int icon) {
    item->setData(0, Qt::UserRole + 1, icon);
    item->setIcon(0, ImageListItens.at(icon - 1));
}

// A click that brings the focus to the quantity keeps the whole text selected, so that the digit
// typed next replaces it: the press would otherwise drop the selection made on the focus.
bool Frm_Mesa::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Text_Quantidade && event->type() == QEvent::MouseButtonRelease && m_selecionarAoSoltar) {
        m_selecionarAoSoltar = false;
        Text_Quantidade->selectAll();
    }
    return Form::eventFilter(watched, event);
}
