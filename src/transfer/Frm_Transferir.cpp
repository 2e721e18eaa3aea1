#include "transfer/Frm_Transferir.h"

#include "items/rotinasItens.h"
#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>

namespace {
QLineEdit* campoDeMesa(const char* name, QWidget* parent) {
    auto* t = named(new QLineEdit(QStringLiteral("0000"), parent), name);
    t->setAlignment(Qt::AlignCenter);
    QFont f = t->font();
    f.setPointSizeF(18);
    f.setWeight(QFont::DemiBold);
    t->setFont(f);
    t->setMinimumWidth(140);
    return t;
}

// Two tables and the arrow from one to the other.
QPixmap figuraDaTransferencia() {
    QPixmap pixmap(72, 72);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(60, 60, 60), 2));
    p.setBrush(QColor(200, 120, 40));
    p.drawRoundedRect(QRectF(4, 6, 26, 18), 3, 3);
    p.setBrush(QColor(40, 140, 70));
    p.drawRoundedRect(QRectF(42, 48, 26, 18), 3, 3);
    p.setPen(QPen(QColor(30, 90, 170), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawLine(QPointF(20, 30), QPointF(48, 40));
    p.drawPolyline(QPolygonF({QPointF(38, 44), QPointF(49, 40.5), QPointF(42, 31)}));
    return pixmap;
}

QString deItens(qint16 idComanda) {
    return QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE id_comanda = ") + CStr(idComanda);
}

// A tab pointed at its table, stamped and totalled again after its rows changed.
void atualizarComanda(Comanda& comanda, qint16 mesa) {
    comanda.apelido(mesa);
    comanda.dataUltimaMovimentacao(agora());
    comanda.totalizaMesa();
}
} // namespace

Frm_Transferir::Frm_Transferir() {
    setObjectName(QStringLiteral("Frm_Transferir"));
    setWindowTitle(QStringLiteral("Transferência"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    KeyPreview = true;

    Label_Operacao = named(new QLabel(QStringLiteral("Transferência"), this), "Label_Operacao");
    QFont titulo = Label_Operacao->font();
    titulo.setPointSizeF(14);
    titulo.setBold(true);
    Label_Operacao->setFont(titulo);
    Label_Origem = named(new QLabel(QStringLiteral("Mesa de origem"), this), "Label_Origem");
    Text_Origem = campoDeMesa("Text_Origem", this);
    Text_Origem->setEnabled(false);
    Label_Destino = named(new QLabel(QStringLiteral("Mesa de destino"), this), "Label_Destino");
    Text_Destino = campoDeMesa("Text_Destino", this);
    Cmd_Transferir = named(new QPushButton(QStringLiteral("Transferir"), this), "Cmd_Transferir");
    Cmd_Transferir->setMinimumHeight(36);
    Image1 = named(new QLabel(this), "Image1");
    Image1->setPixmap(figuraDaTransferencia());

    connect(Cmd_Transferir, &QPushButton::clicked, this, guarded([this] { Cmd_Transferir_Click(); }));
    onGotFocus(Text_Origem, &Frm_Transferir::Text_Origem_GotFocus);
    onKeyUp(Text_Origem, &Frm_Transferir::Text_Origem_KeyUp);
    onGotFocus(Text_Destino, &Frm_Transferir::Text_Destino_GotFocus);
    onKeyPress(Text_Destino, &Frm_Transferir::Text_Destino_KeyPress);
    onKeyUp(Text_Destino, &Frm_Transferir::Text_Destino_KeyUp);

    auto* grade = new QGridLayout(this);
    grade->setContentsMargins(18, 14, 18, 18);
    grade->setHorizontalSpacing(14);
    grade->addWidget(Label_Operacao, 0, 0, 1, 3);
    grade->addWidget(Image1, 1, 0, 4, 1, Qt::AlignTop);
    grade->addWidget(Label_Origem, 1, 1);
    grade->addWidget(Label_Destino, 1, 2);
    grade->addWidget(Text_Origem, 2, 1);
    grade->addWidget(Text_Destino, 2, 2);
    grade->setRowMinimumHeight(3, 10);
    grade->addWidget(Cmd_Transferir, 4, 1, 1, 2);
    setTabOrder(Text_Origem, Text_Destino);
    setTabOrder(Text_Destino, Cmd_Transferir);
    setFixedSize(sizeHint().expandedTo(QSize(420, 190)));
    centerOnScreen();
}

// The first enabled field takes the focus, as the lowest tab index did.
void Frm_Transferir::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    (Text_Origem->isEnabled() ? Text_Origem : Text_Destino)->setFocus();
}

void Frm_Transferir::Form_Activate() {
    try {
        if (tipo == 0) {
            itens = itensSelecionados();
            // The bounds of an unallocated array are out of range: nothing was selected.
            if (itens.isEmpty())
                raiseError(vbErr::SubscriptOutOfRange);
        } else if (tipo != 1) {
            MsgBox(QStringLiteral("Tipo de tranferência inválida!"), vbCritical, QStringLiteral("Atenção"));
        }
    } catch (const RuntimeError& e) {
        if (e.Description == QLatin1String("Subscript out of range")) {
            MsgBox(QStringLiteral("Não há itens selecionados"), vbInformation, QStringLiteral("Aviso"));
            Unload();
        }
        // Any other failure here is passed over.
    }
}

void Frm_Transferir::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27)
        Unload();
}

void Frm_Transferir::Text_Origem_GotFocus() {
    Text_Origem->selectAll();
}

void Frm_Transferir::Text_Destino_GotFocus() {
    Text_Destino->selectAll();
}

void Frm_Transferir::Text_Destino_KeyPress(int& KeyAscii) {
    if ((KeyAscii >= 48 && KeyAscii <= 57) || KeyAscii == 8)
        return;
    if (KeyAscii == 13) {
        Cmd_Transferir_Click();
        return;
    }
    KeyAscii = 0;
}

// The source field takes any key: what is not a number is taken back as it is released.
void Frm_Transferir::Text_Origem_KeyUp(int& KeyCode, int Shift) {
    numeroDeMesaKeyUp(*Text_Origem, KeyCode);
}

void Frm_Transferir::Text_Destino_KeyUp(int& KeyCode, int Shift) {
    numeroDeMesaKeyUp(*Text_Destino, KeyCode);
}

bool Frm_Transferir::recusar(const QString& mensagem) {
    MsgBox(mensagem, vbCritical, QStringLiteral("Atenção"));
    Text_Destino->selectAll();
    Text_Destino->setFocus();
    return false;
}

bool Frm_Transferir::validar() {
    try {
        const qint16 origem = CInt(Text_Origem->text());
        const qint16 destino = CInt(Text_Destino->text());
        // The numbers as card indexes: the source is only checked by its tab, below.
        if (destino - 1 == origem - 1)
            return recusar(QStringLiteral("A mesa de destino é igual a mesa de origem!"));
        if (destino - 1 < 0 || destino - 1 > Frm_Principal::instance().card.size() - 1)
            return recusar(QStringLiteral("A mesa de destino não existe!"));
        if (!multiplosAtendentes && !podeMovimentarMesa(origem))
            return recusar(QStringLiteral("Você não pode executar essa ação!"));
        if (!multiplosAtendentes && !podeMovimentarMesa(destino))
            return recusar(QStringLiteral("Você não pode executar essa ação!"));
        // A blocked tab counts as none: it can neither give nor take.
        idOrigem = idComandaDaMesa(origem);
        if (idOrigem == 0)
            return recusar(QStringLiteral("Mesa de origem BLOQUEADA ou FECHADA!"));
        idDestino = idComandaDaMesa(destino);
        if (idDestino == 0)
            return recusar(QStringLiteral("Mesa de destino BLOQUEADA ou FECHADA!"));
        return true;
    } catch (const RuntimeError& e) {
        if (e.Description == QLatin1String("Overflow"))
            MsgBox(QStringLiteral("Mesa inválida"), vbCritical, QStringLiteral("Atenção"));
        else
            MsgBox(describe(e));
        return false;
    }
}

void Frm_Transferir::transferir(qint16& tipo) {
    DataControl& ado = *Frm_Principal::instance().Ado_Geral;
    // Each row goes after the destination's highest number, excluded rows counted, asked anew for
    // every row: two terminals moving into one tab at once may give the same number.
    const auto mover = [this](Recordset& rs) {
        rs.Fields(QStringLiteral("n_item")).setValue(CInt(ultimoItemDaComanda(idDestino) + 1));
        rs.Fields(QStringLiteral("id_comanda")).setValue(idDestino);
        rs.Update();
    };
    if (tipo == 0) {
        ado.RecordSource = deItens(comandaAtual->id());
        ado.Refresh();
        if (itens.isEmpty())
            raiseError(vbErr::SubscriptOutOfRange);
        Recordset& rs = ado.Recordset();
        Recordset::Field id = rs.Fields(QStringLiteral("id_comanda_item"));
        for (qint16 item : std::as_const(itens)) {
            rs.MoveFirst();
            while (!rs.Eof()) {
                // Compared as numbers: an id past 16 bits simply matches no entry.
                if (CDbl(id.Value()) == item)
                    mover(rs);
                rs.MoveNext();
            }
        }
        ado.Refresh();
    } else if (tipo == 1) {
        ado.RecordSource = deItens(idOrigem);
        ado.Refresh();
        Recordset& rs = ado.Recordset();
        while (!rs.Eof()) {
            mover(rs);
            rs.MoveNext();
        }
        ado.Refresh();
    } else {
        MsgBox(QStringLiteral("Tipo de tranferência inválida!"), vbCritical, QStringLiteral("Atenção"));
    }
}

void Frm_Transferir::Cmd_Transferir_Click() {
    if (!validar())
        return;
    transferir(tipo);
    if (tipo == 0) {
        {
            Comanda destino;
            atualizarComanda(destino, CInt(Text_Destino->text()));
        }
        // The shared Ado_Mesas is back on the current tab before it is written again.
        comandaAtual->carregar();
        comandaAtual->dataUltimaMovimentacao(agora());
        comandaAtual->totalizaMesa();
        Frm_Mesa::instance().List_Itens->clear();
        listarItens();
    } else if (tipo == 1) {
        Comanda comanda;
        atualizarComanda(comanda, CInt(Text_Origem->text()));
        atualizarComanda(comanda, CInt(Text_Destino->text()));
    }
    MsgBox(QStringLiteral("Tranferência realizada com sucesso!"), vbInformation, QStringLiteral("Aviso"));
    Unload();
}
