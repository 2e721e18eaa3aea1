#include "settlement/Frm_Recebimento.h"

#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/DataGrid.h"
#include "platform/MsgBox.h"
#include "platform/Twips.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/rotinasGerais.h"

#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
// The tenders in their order: the name goes into the payment's finalizadora. F1 is the first.
const char* const finalizadoras[] = {"DINHEIRO", "OUTROS", "CRÉDITO", "DÉBITO", "PIX"};

// Only these never give change: each takes at most what is still open.
QStringList limitadas() {
    return {QStringLiteral("CRÉDITO"), QStringLiteral("DÉBITO"), QStringLiteral("PIX")};
}

const QString moeda = QStringLiteral("#0.00");

// The tenders' images: a banknote, a purse, two cards (credit blue, debit orange) and PIX's
// diamond.
QIcon imagemDaFinalizadora(int imagem) {
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const QPen contorno(QColor(40, 40, 40), 2);
    QFont fonte = p.font();
    fonte.setBold(true);
    fonte.setPixelSize(16);
    p.setFont(fonte);
    switch (imagem) {
    case 1:
        p.setPen(contorno);
        p.setBrush(QColor(120, 190, 110));
        p.drawRoundedRect(QRectF(3, 12, 42, 24), 3, 3);
        p.drawEllipse(QRectF(16, 16, 16, 16));
        p.drawText(QRectF(16, 16, 16, 16), Qt::AlignCenter, QStringLiteral("$"));
        break;
    case 2:
        p.setPen(contorno);
        p.setBrush(QColor(170, 120, 80));
        p.drawRoundedRect(QRectF(5, 14, 38, 26), 5, 5);
        p.setBrush(QColor(120, 80, 50));
        p.drawRoundedRect(QRectF(27, 21, 16, 12), 3, 3);
        p.setBrush(Qt::white);
        p.drawEllipse(QRectF(33, 25, 4, 4));
        break;
    case 3:
    case 4:
        p.setPen(contorno);
        p.setBrush(imagem == 3 ? QColor(60, 110, 200) : QColor(235, 140, 40));
        p.drawRoundedRect(QRectF(3, 10, 42, 28), 4, 4);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(40, 40, 40));
        p.drawRect(QRectF(4, 15, 40, 6));
        p.setBrush(QColor(240, 210, 90));
        p.drawRoundedRect(QRectF(9, 25, 10, 8), 2, 2);
        break;
    default: {
        QPainterPath losango;
        losango.moveTo(24, 4);
        losango.lineTo(44, 24);
        losango.lineTo(24, 44);
        losango.lineTo(4, 24);
        losango.closeSubpath();
        p.setPen(contorno);
        p.setBrush(QColor(50, 180, 165));
        p.drawPath(losango);
        p.setPen(Qt::white);
        p.drawText(QRectF(4, 4, 40, 40), Qt::AlignCenter, QStringLiteral("PIX"));
        break;
    }
    }
    return QIcon(pixmap);
}

} // namespace

Frm_Recebimento::Frm_Recebimento() {
    setObjectName(QStringLiteral("Frm_Recebimento"));
    setWindowTitle(QStringLiteral("Recebimentos"));
    KeyPreview = true;

    for (int imagem = 1; imagem <= 5; ++imagem)
        ImageListFinalizadoras.append(imagemDaFinalizadora(imagem));
    List_Finalizadoras = named(new QListWidget(this), "List_Finalizadoras");
    List_Finalizadoras->setViewMode(QListView::IconMode);
    List_Finalizadoras->setFlow(QListView::LeftToRight);
    List_Finalizadoras->setMovement(QListView::Static);
    List_Finalizadoras->setWrapping(false);
    List_Finalizadoras->setIconSize(QSize(48, 48));
    List_Finalizadoras->setGridSize(QSize(120, 84));
    List_Finalizadoras->setSelectionMode(QAbstractItemView::NoSelection);
    List_Finalizadoras->setFocusPolicy(Qt::NoFocus);
    List_Finalizadoras->setFixedHeight(100);
    List_Finalizadoras->viewport()->installEventFilter(this);
    connect(List_Finalizadoras, &QListWidget::itemPressed, this,
            guarded([this](QListWidgetItem* item) { List_Finalizadoras_ItemClick(item); }));

    Label_Legendas =
        namedLabel(this, "Label_Legendas",
                   QStringLiteral("ATALHOS : [F1 - DINHEIRO, F2 - OUTROS, F3 - CRÉDITO, F4 - DÉBITO, "
                                  "F5 - PIX]"));

    Label_Finalizadora = namedLabel(this, "Label_Finalizadora", QStringLiteral("DINHEIRO"));
    QFont destaque = font();
    destaque.setPointSizeF(16);
    destaque.setBold(true);
    Label_Finalizadora->setFont(destaque);
    Text_Valor = named(new QLineEdit(QStringLiteral("0,00"), this), "Text_Valor");
    Text_Valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Text_Valor->setFont(destaque);
    Text_Valor->setMaxLength(18);
    Cmd_Gravar = named(new QPushButton(QStringLiteral("&Confirmar"), this), "Cmd_Gravar");
    connect(Cmd_Gravar, &QPushButton::clicked, this, guarded([this] { Cmd_Gravar_Click(); }));

    Label_SubTotal = namedLabel(this, "Label_SubTotal", QStringLiteral("Subtotal"));
    Label_Valor_Subtotal = namedLabel(this, "Label_Valor_Subtotal", QStringLiteral("R$ 0,00"));
    Label_Pago = namedLabel(this, "Label_Pago", QStringLiteral("Valor Pago"));
    Label_Valor_Pago = namedLabel(this, "Label_Valor_Pago", QStringLiteral("R$ 0,00"));
    Label_Aberto = namedLabel(this, "Label_Aberto", QStringLiteral("Valor em Aberto"));
    Label_Valor_Aberto = namedLabel(this, "Label_Valor_Aberto", QStringLiteral("R$ 0,00"));
    Label_Troco = namedLabel(this, "Label_Troco", QStringLiteral("Valor Troco"));
    Label_Valor_Troco = namedLabel(this, "Label_Valor_Troco", QStringLiteral("R$ 0,00"));
    QFont valor = font();
    valor.setPointSizeF(14);
    valor.setBold(true);
    for (QLabel* l : {Label_Valor_Subtotal, Label_Valor_Pago, Label_Valor_Aberto, Label_Valor_Troco}) {
        l->setFont(valor);
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        l->setMinimumWidth(150);
    }

    // Disabled until it has a payment to show.
    Dtg_Recebimentos = named(new DataGrid(this), "Dtg_Recebimentos");
    Dtg_Recebimentos->setColumns(
        {{QStringLiteral("FINALIZADORA"), QStringLiteral("finalizadora"), QString(), 200},
         {QStringLiteral("VALOR"), QStringLiteral("valor_recebimento"), QStringLiteral("\"R$\" #.##0,00"),
          160},
         {QStringLiteral("DATA"), QStringLiteral("data"), QString()}});
    Dtg_Recebimentos->setEnabled(false);
    Dtg_Recebimentos->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(Dtg_Recebimentos, &QWidget::customContextMenuRequested, this,
            guarded([this](const QPoint& ponto) { Dtg_Recebimentos_ContextMenu(ponto); }));
    Ado_Recebimento = new DataControl(QStringLiteral("Ado_Recebimento"), this);

    mnu_recebimentos = named(new QMenu(QStringLiteral("Recebimentos"), this), "mnu_recebimentos");
    mnu_recebimentos_excluir = mnu_recebimentos->addAction(QStringLiteral("Excluir"));
    mnu_recebimentos_excluir->setObjectName(QStringLiteral("mnu_recebimentos_excluir"));
    connect(mnu_recebimentos_excluir, &QAction::triggered, this,
            guarded([this] { mnu_recebimentos_excluir_Click(); }));

    // The tenders on top, the value and the totals side by side, the payments below.
    auto* entrada = new QVBoxLayout;
    entrada->addWidget(Label_Finalizadora);
    entrada->addWidget(Text_Valor);
    entrada->addWidget(Cmd_Gravar);
    entrada->addStretch(1);
    auto* totais = new QGridLayout;
    const std::pair<QLabel*, QLabel*> linhas[] = {{Label_SubTotal, Label_Valor_Subtotal},
                                                  {Label_Pago, Label_Valor_Pago},
                                                  {Label_Aberto, Label_Valor_Aberto},
                                                  {Label_Troco, Label_Valor_Troco}};
    for (int i = 0; i < int(std::size(linhas)); ++i) {
        totais->addWidget(linhas[i].first, i, 0);
        totais->addWidget(linhas[i].second, i, 1);
    }
    auto* meio = new QHBoxLayout;
    meio->addLayout(entrada, 1);
    meio->addSpacing(24);
    meio->addLayout(totais);
    auto* tela = new QVBoxLayout(this);
    tela->addWidget(List_Finalizadoras);
    tela->addWidget(Label_Legendas);
    tela->addLayout(meio);
    tela->addWidget(Dtg_Recebimentos, 1);
    resize(720, 560);
    centerOnScreen();

    setTabOrder(Text_Valor, Cmd_Gravar);
    setTabOrder(Cmd_Gravar, Dtg_Recebimentos);
    onGotFocus(Text_Valor, &Frm_Recebimento::Text_Valor_GotFocus);
    onKeyUp(Text_Valor, &Frm_Recebimento::Text_Valor_KeyUp);
    Text_Valor->setFocus();
}

Frm_Recebimento::~Frm_Recebimento() = default;

void Frm_Recebimento::Form_Load() {
    for (int i = 0; i < int(std::size(finalizadoras)); ++i)
        new QListWidgetItem(ImageListFinalizadoras.at(i), QString::fromUtf8(finalizadoras[i]),
                            List_Finalizadoras);
    calculaTotais();
}

void Frm_Recebimento::Form_Activate() {
    List_Finalizadoras_ItemClick(List_Finalizadoras->item(0));
}

void Frm_Recebimento::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27) {
        Unload();
    } else if (KeyCode == 13) {
        Cmd_Gravar_Click();
    } else if (KeyCode >= 112 && KeyCode <= 116) {
        List_Finalizadoras_ItemClick(List_Finalizadoras->item(KeyCode - 112));
        Text_Valor->setFocus();
        Text_Valor_GotFocus();
    }
}

bool Frm_Recebimento::Ghosted(const QListWidgetItem* item) {
    return item->data(Qt::UserRole).toBool();
}

void Frm_Recebimento::setGhosted(QListWidgetItem* item, bool ghosted) {
    const QIcon& imagem = ImageListFinalizadoras.at(List_Finalizadoras->row(item));
    item->setData(Qt::UserRole, ghosted);
    item->setIcon(ghosted ? QIcon(imagem.pixmap(List_Finalizadoras->iconSize(), QIcon::Disabled)) : imagem);
    item->setForeground(
        List_Finalizadoras->palette().brush(ghosted ? QPalette::Disabled : QPalette::Active, QPalette::Text));
}

// The chosen tender alone stands out, and the value starts again from what is open.
void Frm_Recebimento::List_Finalizadoras_ItemClick(QListWidgetItem* Item) {
    Item->setSelected(false);
    setGhosted(Item, false);
    for (int i = 0; i < List_Finalizadoras->count(); ++i)
        if (List_Finalizadoras->item(i) != Item)
            setGhosted(List_Finalizadoras->item(i), true);
    Label_Finalizadora->setText(Item->text());
    Text_Valor->setText(Format(valorAberto, moeda));
    int semTecla = 0;
    Text_Valor_KeyUp(semTecla, 0);
}

void Frm_Recebimento::List_Finalizadoras_MouseUp(int Button, int Shift, double X, double Y) {
    Text_Valor->selectAll();
    Text_Valor->setFocus();
}

void Frm_Recebimento::Text_Valor_GotFocus() {
    Text_Valor->selectAll();
}

// Digits enter from the right: 1, 2, 3, 4 show 12,34.
void Frm_Recebimento::Text_Valor_KeyUp(int& KeyCode, int Shift) {
    preencherDaDireita(Text_Valor, KeyCode, 2, 100);
}

bool Frm_Recebimento::eventFilter(QObject* watched, QEvent* event) {
    if (watched == List_Finalizadoras->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto* solto = static_cast<QMouseEvent*>(event);
        const int botao = solto->button() == Qt::LeftButton ? 1 : solto->button() == Qt::RightButton ? 2 : 4;
        const QPointF ponto = solto->position();
        runGuarded([&] {
            List_Finalizadoras_MouseUp(botao, vbShift(solto), ponto.x() * twipsPerPixelX(),
                                       ponto.y() * twipsPerPixelY());
        });
    }
    return Form::eventFilter(watched, event);
}

// In this order: nothing for 0; the notice once the tab is paid, whatever the tender; the limit
// of the tenders that give no change, for the operator to confirm again; else the payment.
void Frm_Recebimento::Cmd_Gravar_Click() {
    const QString finalizadora = Label_Finalizadora->text();
    const double valor = CDbl(Text_Valor->text());
    const QStringList finalizadorasLimitadas = limitadas();

    if (valor == 0)
        return;
    if (!(valorPago < valorConta)) {
        MsgBox(QStringLiteral("O valor total da conta já foi atingido"), vbOKOnly | vbInformation,
               QStringLiteral("Aviso"));
        return;
    }
    // The limit goes through its text, so a tab total a hair off its cents still takes its open
    // value in full.
    const double limite = CDbl(valorLimiteFinalizadora(valor));
    const bool limitada = finalizadorasLimitadas.filter(finalizadora, Qt::CaseSensitive).size() == 1;
    if (limite < valor && limitada) {
        MsgBox(QStringLiteral("O valor limite é: ") + FormatCurrency(limite, 2), vbOKOnly | vbInformation,
               QStringLiteral("Aviso"));
        Text_Valor->setText(FormatNumber(limite, 2, -1));
        Text_Valor->selectAll();
        return;
    }
    gravarRecebimento(comandaAtual->id(), finalizadora, valor, QString());
    List_Finalizadoras_MouseUp(0, 0, 0, 0);
}

QString Frm_Recebimento::valorLimiteFinalizadora(double valor) const {
    if (valorPago + valor > valorConta)
        return CStr(valorConta - valorPago);
    return CStr(valor);
}

QString Frm_Recebimento::daComanda(const char* sql) {
    return QString::fromLatin1(sql).arg(comandaAtual->id());
}

// The figures are read here and only here: a payment made on another terminal shows at the next
// call. The open value and the change are the only money rounded on this screen, to the cent.
void Frm_Recebimento::calculaTotais() {
    DataControl& ado = *Ado_Recebimento;
    ado.ConnectionString = conexaoLocal;
    const auto primeiroValor = [&ado](const char* sql) {
        ado.RecordSource = daComanda(sql);
        ado.Refresh();
        const QVariant valor = ado.Recordset().Fields(0).Value();
        return IsNull(valor) ? 0.0 : CDbl(valor);
    };
    valorPago =
        primeiroValor("SELECT SUM(valor_recebimento) FROM Tb_Comandas_Recebimentos WHERE (id_comanda = "
                      "%1) AND (status = 1)");
    valorConta =
        primeiroValor("SELECT valor_total FROM Tb_Comandas WHERE (id_comanda = %1) AND (status <> 0)");
    const auto emCentavos = [](double valor) { return CDbl(Format(valor, moeda)); };
    valorAberto = valorConta > valorPago ? emCentavos(valorConta - valorPago) : 0;
    valorTroco = valorPago > valorConta ? emCentavos(valorPago - valorConta) : 0;

    ado.RecordSource =
        daComanda("SELECT * FROM Tb_Comandas_Recebimentos WHERE (id_comanda = %1) AND (status = 1)");
    ado.Refresh();
    Dtg_Recebimentos->setDataSource(ado.Recordset());
    if (ado.Recordset().RecordCount() > 0)
        Dtg_Recebimentos->setEnabled(true);

    Label_Valor_Subtotal->setText(FormatCurrency(valorConta, 2));
    Label_Valor_Pago->setText(FormatCurrency(valorPago, 2));
    Label_Valor_Aberto->setText(FormatCurrency(valorAberto, 2));
    Label_Valor_Troco->setText(FormatCurrency(valorTroco, 2));
}

// The value typed goes in whole, change included. observacao is not written: the column gets an
// empty text.
void Frm_Recebimento::gravarRecebimento(qint16 idComanda, const QString& finalizadora, double valor,
                                        const QString& observacao) {
    Recordset& rs = Ado_Recebimento->Recordset();
    rs.AddNew();
    rs.Fields(QStringLiteral("id_comanda")).setValue(idComanda);
    rs.Fields(QStringLiteral("finalizadora")).setValue(finalizadora);
    rs.Fields(QStringLiteral("valor_recebimento")).setValue(valor);
    rs.Fields(QStringLiteral("data")).setValue(agora());
    rs.Fields(QStringLiteral("id_colaborador")).setValue(idColaborador);
    rs.Fields(QStringLiteral("status")).setValue(1);
    rs.Fields(QStringLiteral("observacao")).setValue(QStringLiteral(""));
    rs.Update();
    Ado_Recebimento->Refresh();
    calculaTotais();
    Text_Valor->setText(Format(valorAberto, moeda));
}

// The payment of the grid's current row stays in the store, excluded. No question and no right:
// whoever may receive may take a payment back.
void Frm_Recebimento::excluirRecebimento() {
    Recordset& rs = Ado_Recebimento->Recordset();
    rs.Fields(QStringLiteral("quem_excluiu")).setValue(idColaborador);
    rs.Fields(QStringLiteral("data_exclusao")).setValue(agora());
    rs.Fields(QStringLiteral("status")).setValue(0);
    rs.Update();
    Ado_Recebimento->Refresh();
    calculaTotais();
}

void Frm_Recebimento::mnu_recebimentos_excluir_Click() {
    excluirRecebimento();
}

void Frm_Recebimento::Dtg_Recebimentos_ContextMenu(const QPoint& Ignorado) {
    mnu_recebimentos->popup(QCursor::pos());
}
