#include "map/Frm_Principal.h"

#include "map/Mesa.h"
#include "map/SmoothScrollBar.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/RuntimeError.h"
#include "platform/Timer.h"
#include "platform/Twips.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>
#include <QTreeWidget>

namespace {
QFont fonte(const QString& family, double points) {
    QFont f(family);
    f.setPointSizeF(points);
    return f;
}

template <class T> T* controle(T* w, const char* name, double left, double top, double width, double height) {
    w->setObjectName(QLatin1String(name));
    setTwipsGeometry(w, left, top, width, height);
    return w;
}
} // namespace

Frm_Principal::Frm_Principal() {
    setObjectName(QStringLiteral("Frm_Principal"));
    setWindowTitle(QStringLiteral("Mapa das mesas"));
    KeyPreview = true;
    setFont(fonte(QStringLiteral("Segoe UI"), 12));
    resize(twipsToPixelsX(15240), twipsToPixelsY(10455));
    setWindowState(Qt::WindowMaximized);

    Text_mesa = controle(new QLineEdit(QStringLiteral("0000"), this), "Text_mesa", 120, 435, 1875, 675);
    Text_mesa->setAlignment(Qt::AlignCenter);
    QFont semibold = fonte(QStringLiteral("Segoe UI Semibold"), 20.25);
    semibold.setWeight(QFont::DemiBold);
    Text_mesa->setFont(semibold);

    Lbl_acesso_rapido =
        controle(new QLabel(QStringLiteral("Mesa"), this), "Lbl_acesso_rapido", 120, 60, 555, 315);
    Lbl_acesso_rapido->setFont(font());

    Frame_Filtros =
        controle(new QGroupBox(QStringLiteral("Filtros"), this), "Frame_Filtros", 120, 2535, 1875, 3375);
    Frame_Filtros->setFont(font());

    // The legend, one row per state: the swatch (whose index is the state code) and its label.
    struct Linha {
        int indice;
        double swatchTop;
        QLabel** label;
        const char* nome;
        double labelTop, labelWidth;
        const char* legenda;
    };
    const Linha legenda[] = {
        {5, 360, &Label_Todas, "Label_Todas", 420, 465, "Todas"},
        {0, 840, &Label_Disponivel, "Label_Disponivel", 900, 1080, "Disponível (0)"},
        {1, 1335, &Label_Ocupada, "Label_Ocupada", 1395, 975, "Ocupada (0)"},
        {2, 1830, &Label_Edicao, "Label_Edicao", 1890, 780, "Edição (0)"},
        {3, 2325, &Label_Conferencia, "Label_Conferencia", 2385, 1215, "Conferência (0)"},
        {4, 2820, &Label_Ociosa, "Label_Ociosa", 2880, 795, "Ociosa (0)"},
    };
    for (const Linha& l : legenda) {
        QFrame* swatch = controle(new QFrame(Frame_Filtros), "Frame", 120, l.swatchTop, 375, 375);
        swatch->setProperty("Index", l.indice);
        swatch->setFrameShape(QFrame::Box);
        swatch->setFont(font());
        swatch->setAutoFillBackground(true);
        QPalette cores = swatch->palette();
        cores.setColor(QPalette::Window, l.indice == 5 ? QColor(0, 0, 0) : Mesa::corDoStatus(l.indice));
        swatch->setPalette(cores);
        swatch->setCursor(Qt::PointingHandCursor);
        swatch->installEventFilter(this);
        Frame[l.indice] = swatch;

        QLabel* label = controle(new QLabel(QString::fromUtf8(l.legenda), Frame_Filtros), l.nome, 555,
                                 l.labelTop, l.labelWidth, 225);
        label->setFont(fonte(QStringLiteral("Segoe UI"), 9));
        *l.label = label;
    }

    List_Menu = controle(new QTreeWidget(this), "List_Menu", 120, 7395, 1935, 2955);
    List_Menu->setFont(font());
    List_Menu->setHeaderHidden(true);
    List_Menu->setRootIsDecorated(false);
    List_Menu->setIconSize(QSize(32, 32));
    List_Menu->setFocusPolicy(Qt::StrongFocus);
    connect(List_Menu, &QTreeWidget::itemClicked, this, guarded([this](QTreeWidgetItem* item) {
                List_Menu_ItemClick(List_Menu->indexOfTopLevelItem(item) + 1);
            }));

    card.append(new Mesa(this, 0));
    card[0]->setLeft(4039);
    card[0]->setTop(1289);
    card[0]->setWidth(1335);
    card[0]->setHeight(1215);
    card[0]->setFont(font());

    scrollBar = controle(new SmoothScrollBar(this), "scrollBar", 9780, 180, 255, 615);
    scrollBar->hide();
    scrollBar->WheelChange = 10;
    connect(scrollBar, &SmoothScrollBar::Change, this, guarded([this] { scrollBar_Change(); }));

    Timer = new ::Timer(QStringLiteral("Timer"), 1000, this);
    connect(Timer, &::Timer::Tick, this, guarded([this] { Timer_Timer(); }));

    Ado_Refresh = new DataControl(QStringLiteral("Ado_Refresh"), this);
    Ado_Mesas = new DataControl(QStringLiteral("Ado_Mesas"), this);
    Ado_Geral = new DataControl(QStringLiteral("Ado_Geral"), this);
    Ado_Geral->Error = [this](int number, bool& cancel) { Ado_Geral_Error(number, cancel); };

    onKeyPress(Text_mesa, &Frm_Principal::Text_mesa_KeyPress);
    onKeyUp(Text_mesa, &Frm_Principal::Text_mesa_KeyUp);
    onGotFocus(Text_mesa, &Frm_Principal::Text_mesa_GotFocus);
    onLostFocus(Text_mesa, &Frm_Principal::Text_mesa_LostFocus);
    onGotFocus(List_Menu, &Frm_Principal::List_Menu_GotFocus);

    setTabOrder(Text_mesa, List_Menu);
    Text_mesa->setFocus();
}

Frm_Principal::~Frm_Principal() = default;

void Frm_Principal::Form_Load() {
    Ado_Mesas->ConnectionString = conexaoLocal;
    Ado_Geral->ConnectionString = conexaoLocal;
    Ado_Refresh->ConnectionString = conexaoLocal;

    montaMesas(quantidadeMesas);
    ajustaTela(*this);
    scrollBar->attachWindow(this);

    List_Menu->setFrameShape(QFrame::NoFrame);
    List_Menu->setColumnCount(1);
    List_Menu->setColumnWidth(0, List_Menu->width());
    struct Entrada {
        const char* texto;
        const char* dica;
        QStyle::StandardPixmap imagem;
    };
    const Entrada entradas[] = {
        {"Transferir", "Transferir mesa", QStyle::SP_ArrowRight},
        {"Ajustes", "Ajustes", QStyle::SP_FileDialogDetailedView},
        {"Sair", "Sair", QStyle::SP_DialogCloseButton},
    };
    for (const Entrada& e : entradas) {
        auto* item = new QTreeWidgetItem(List_Menu, QStringList(QString::fromUtf8(e.texto)));
        item->setIcon(0, style()->standardIcon(e.imagem));
        item->setToolTip(0, QString::fromUtf8(e.dica));
        item->setSelected(false);
    }
}

void Frm_Principal::Form_Activate() {
    List_Menu->setColumnWidth(0, List_Menu->width());
    scrollBar->setMin(0);
    scrollBar->setMax(mesasForaDaTela / 10);
    Timer->setEnabled(true);
}

void Frm_Principal::montaMesas(qint16 quantidade) {
    card[0]->setNumero(1);
    const double alturaDaTela = height() * twipsPerPixelY();
    for (int i = 1; i <= quantidade - 1; ++i) {
        const Mesa* anterior = card.last();
        const int indice = card.size();
        Mesa* nova = card[0]->carregarNova(indice);
        card.append(nova);
        nova->setVisible(true);
        nova->setNumero(static_cast<qint16>(indice + 1));
        nova->setTop(anterior->Top());
        nova->setLeft(nova->Width() + anterior->Left() + 127);
        if (nova->Left() + nova->Width() > 11222) {
            nova->setTop(anterior->Top() + nova->Height() + 113);
            nova->setLeft(card[0]->Left());
        }
        if (nova->Top() + nova->Height() > alturaDaTela)
            ++mesasForaDaTela;
    }
    for (Mesa* c : std::as_const(card))
        connect(c, &Mesa::Click, this,
                guarded([this](int index) { card_Click(static_cast<qint16>(index)); }));
}

void Frm_Principal::Timer_Timer() {
    mesasRefresh();
}

void Frm_Principal::mesasRefresh() {
    Ado_Refresh->RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0");
    Ado_Refresh->Refresh();

    for (Mesa* c : std::as_const(card)) {
        c->setStatus(0);
        c->setValor(QStringLiteral("0"));
    }

    Recordset& rs = Ado_Refresh->Recordset();
    Recordset::Field mesa = rs.Fields(QStringLiteral("mesa"));
    Recordset::Field status = rs.Fields(QStringLiteral("status"));
    Recordset::Field movimento = rs.Fields(QStringLiteral("data_ultima_movimentacao"));
    Recordset::Field valorTotal = rs.Fields(QStringLiteral("valor_total"));
    const QDateTime agoraDoTerminal = agora();
    while (!rs.Eof()) {
        const qint16 i = CInt(CDbl(mesa.Value()) - 1);
        if (i < 0 || i >= card.size())
            raiseError(340, QStringLiteral("Control array element '%1' doesn't exist").arg(i));
        Mesa* c = card[i];
        // Minute boundaries crossed, not whole minutes: 12:00:59 to 12:10:00 counts 10.
        const qint64 m = DateDiff(QStringLiteral("n"), CDate(movimento.Value()), agoraDoTerminal);
        const qint16 codigo = CInt(status.Value());
        if (m < tempoParaOcio) {
            c->setStatus(codigo);
        } else if (codigo != 2 && codigo != 3) {
            // Whichever terminal sees it first marks the row idle; an idle row is written again.
            c->setStatus(4);
            status.setValue(4);
            rs.Update();
        } else {
            c->setStatus(codigo);
        }
        c->setValor(CStr(valorTotal.Value()));
        rs.MoveNext();
    }

    int contagem[5] = {0, 0, 0, 0, 0};
    for (const Mesa* c : std::as_const(card))
        if (c->status() >= 0 && c->status() <= 4)
            ++contagem[c->status()];

    setLegenda(Label_Disponivel, QStringLiteral("Disponível (%1)").arg(contagem[0]));
    setLegenda(Label_Conferencia, QStringLiteral("Conferência (%1)").arg(contagem[3]));
    setLegenda(Label_Edicao, QStringLiteral("Edição (%1)").arg(contagem[2]));
    setLegenda(Label_Ociosa, QStringLiteral("Ociosa (%1)").arg(contagem[4]));
    setLegenda(Label_Ocupada, QStringLiteral("Ocupada (%1)").arg(contagem[1]));
}

// The legend's labels keep their design width: a longer count is cut, as it always was.
void Frm_Principal::setLegenda(QLabel* label, const QString& caption) {
    if (label->text() != caption)
        label->setText(caption);
}

void Frm_Principal::scrollBar_Change() {
    Timer->setEnabled(false);
    const bool descer = scrollBar->Value() > scrollAnterior;
    for (int i = 0; i < card.size(); ++i) {
        Mesa* c = card[i];
        const double passo = c->Height() + 90;
        c->setTop(descer ? c->Top() - passo : c->Top() + passo);
        DoEvents();
    }
    Timer->setEnabled(true);
    scrollAnterior = static_cast<qint16>(scrollBar->Value());
}

bool Frm_Principal::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        for (int i = 0; i < static_cast<int>(Frame.size()); ++i) {
            if (watched != Frame[i])
                continue;
            const auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() == Qt::LeftButton && Frame[i]->rect().contains(mouse->position().toPoint()))
                runGuarded([this, i] { Frame_Click(i); });
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void Frm_Principal::Ado_Geral_Error(int ErrorNumber, bool& fCancelDisplay) {
    if (ErrorNumber == 16389)
        fCancelDisplay = true;
}
