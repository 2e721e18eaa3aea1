#include "items/rotinasItens.h"

#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Detalhe.h"
#include "table/Frm_Mesa.h"
#include "table/Frm_Observacao.h"
#include "table/rotinasGerais.h"
#include "transfer/Frm_Transferir.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>

namespace {
// Ado_itens of the table screen on the query given; nothing survives the next routine's query.
Recordset& consultarItens(const QString& sql) {
    DataControl& ado = *Frm_Mesa::instance().Ado_itens;
    ado.ConnectionString = conexaoLocal;
    ado.RecordSource = sql;
    ado.Refresh();
    return ado.Recordset();
}

QString doItem(const QString& idItem) {
    return QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = ") + CStr(comandaAtual->id()) +
           QStringLiteral(") AND (id_comanda_item = ") + idItem + QStringLiteral(")");
}

// The selected row's item; none selected is the original's "object not set".
Recordset& itemSelecionado() {
    QTreeWidgetItem* item = Frm_Mesa::instance().SelectedItem();
    if (!item)
        raiseError(vbErr::ObjectNotSet);
    return consultarItens(doItem(Frm_Mesa::Tag(item)));
}

void totalizarEExibir() {
    comandaAtual->dataUltimaMovimentacao(agora());
    comandaAtual->totalizaMesa();
    Frm_Mesa::instance().exibirTotais();
}

void esvaziarItem() {
    itemCodigo.clear();
    itemDescricao.clear();
    itemQuantidade = 0;
    itemValorUnitario = 0;
    itemValorTotal = 0;
    itemObservacao.clear();
    itemId = 0;
    itemImpresso = false;
}
} // namespace

void incluirItem() {
    itemValorTotal = itemQuantidade * itemValorUnitario;
    const qint16 id = comandaAtual->id();
    Recordset& rs = consultarItens(QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = ") +
                                   CStr(id) + QStringLiteral(") AND (STATUS = 1)"));
    rs.AddNew();
    const auto campo = [&rs](const char* nome, const QVariant& valor) {
        rs.Fields(QLatin1String(nome)).setValue(valor);
    };
    campo("id_comanda", id);
    campo("n_item", rs.RecordCount());
    campo("codigo", itemCodigo);
    campo("descricao", UCase(Trim(itemDescricao.left(30))));
    campo("quantidade", itemQuantidade);
    campo("valor_unitario", itemValorUnitario);
    campo("valor_desconto", 0);
    campo("valor_acrescimo", 0);
    campo("quem_incluiu", idColaborador);
    campo("status", 1);
    campo("data_inclusao", agora());
    campo("data_exclusao", QVariant());
    campo("valor_total", itemValorTotal);
    campo("observacao", itemObservacao);
    campo("impresso", !imprimirItens);
    campo("id_comanda_origem", id);
    rs.Update();

    Frm_Mesa::instance().Ado_itens->Refresh();
    Recordset& lido = Frm_Mesa::instance().Ado_itens->Recordset();
    lido.MoveLast();
    itemId = CInt(lido.Fields(QStringLiteral("id_comanda_item")).Value());
    const qint16 nItem = CInt(lido.Fields(QStringLiteral("n_item")).Value());
    adicionarItemLista(nItem);

    totalizarEExibir();
    esvaziarItem();
}

void excluirItem(const QVector<qint16>& ids) {
    try {
        if (ids.isEmpty())
            raiseError(vbErr::SubscriptOutOfRange);
        Frm_Mesa& tela = Frm_Mesa::instance();
        for (qint16 id : ids) {
            Recordset& rs = consultarItens(doItem(CStr(id)));
            rs.Fields(QStringLiteral("status")).setValue(0);
            rs.Fields(QStringLiteral("data_exclusao")).setValue(agora());
            rs.Fields(QStringLiteral("quem_excluiu")).setValue(idColaborador);
            rs.Update();
            tela.Ado_itens->Refresh();
            QTreeWidgetItem* linha = tela.FindItem(CStr(id));
            if (!linha)
                raiseError(vbErr::ObjectNotSet);
            delete tela.List_Itens->takeTopLevelItem(tela.List_Itens->indexOfTopLevelItem(linha));
        }
        totalizarEExibir();
    } catch (const RuntimeError& e) {
        MsgBox(QStringLiteral("excluirItem()\r\n") + describe(e), vbCritical, QStringLiteral("Atenção"));
    }
}

void detalharItem() {
    Recordset& rs = itemSelecionado();
    Frm_Detalhe& tela = Frm_Detalhe::instance();
    tela.Label_Item_Descricao->setText(CStr(rs.Fields(QStringLiteral("descricao")).Value()));
    tela.Label_Inclusao_Data->setText(CStr(rs.Fields(QStringLiteral("data_inclusao")).Value()));
    tela.Label_Garcom_Nome->setText(
        nomeDoColaborador(CInt(rs.Fields(QStringLiteral("quem_incluiu")).Value())));
    const QVariant observacao = rs.Fields(QStringLiteral("observacao")).Value();
    tela.Label_Observacao_Descricao->setText(IsNull(observacao) ? QString() : CStr(observacao));
    tela.ShowModal();
}

void abrirObservacao() {
    Recordset& rs = itemSelecionado();
    Frm_Observacao& tela = Frm_Observacao::instance();
    tela.Label_Descricao_Item->setText(CStr(rs.Fields(QStringLiteral("descricao")).Value()));
    const QVariant observacao = rs.Fields(QStringLiteral("observacao")).Value();
    tela.Text_Observacao->setPlainText(IsNull(observacao) ? QString() : CStr(observacao));
    tela.Text_Observacao->moveCursor(QTextCursor::End);
    tela.ShowModal();
}

void adicionarItemLista(qint16 nItem) {
    Frm_Mesa& tela = Frm_Mesa::instance();
    auto* linha = new QTreeWidgetItem;
    linha->setText(0, Format(nItem, QStringLiteral("0000")));
    linha->setData(0, Qt::UserRole, CStr(itemId));
    linha->setText(1, Format(itemCodigo, QStringLiteral("00000000000000")));
    linha->setText(2, UCase(itemDescricao));
    linha->setText(3, Format(itemValorUnitario, QStringLiteral("#0.00")));
    linha->setText(4, Format(itemQuantidade, QStringLiteral("#0.000")));
    linha->setText(5, Format(itemValorTotal, QStringLiteral("#0.00")));
    for (int coluna = 3; coluna <= 5; ++coluna)
        linha->setTextAlignment(coluna, Qt::AlignRight | Qt::AlignVCenter);
    tela.List_Itens->addTopLevelItem(linha);
    tela.setSmallIcon(linha, !imprimirItens || itemImpresso ? 1 : 2);

    // Only for an item just typed in: the list is filled at load before the screen shows, and again
    // by a transfer while its screen is up.
    const bool emTransferencia = Form::isLoaded<Frm_Transferir>() && Frm_Transferir::instance().isVisible();
    if (!emTransferencia && tela.isVisible() && exibirObservacao) {
        linha->setSelected(true);
        abrirObservacao();
    } else {
        linha->setSelected(false);
    }
}

void listarItens() {
    Recordset& rs =
        consultarItens(QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = ") +
                       CStr(comandaAtual->id()) + QStringLiteral(") AND (status = 1) ORDER BY n_item"));
    Recordset::Field codigo = rs.Fields(QStringLiteral("codigo"));
    Recordset::Field descricao = rs.Fields(QStringLiteral("descricao"));
    Recordset::Field quantidade = rs.Fields(QStringLiteral("quantidade"));
    Recordset::Field unitario = rs.Fields(QStringLiteral("valor_unitario"));
    Recordset::Field impresso = rs.Fields(QStringLiteral("impresso"));
    Recordset::Field id = rs.Fields(QStringLiteral("id_comanda_item"));
    Recordset::Field nItem = rs.Fields(QStringLiteral("n_item"));
    while (!rs.Eof()) {
        itemCodigo = CStr(codigo.Value());
        itemDescricao = CStr(descricao.Value());
        itemQuantidade = CDbl(quantidade.Value());
        itemValorUnitario = CDbl(unitario.Value());
        itemValorTotal = itemValorUnitario * itemQuantidade;
        itemImpresso = CBool(impresso.Value());
        itemId = CInt(id.Value());
        adicionarItemLista(CInt(nItem.Value()));
        rs.MoveNext();
    }
    esvaziarItem();
}

void transferirItens() {
    const auto recusar = [](const QString& texto) { MsgBox(texto, vbCritical, QStringLiteral("Atenção")); };
    if (!podeTransferirItem) {
        recusar(QStringLiteral("Você não pode executar essa ação"));
        return;
    }
    Frm_Mesa& mesa = Frm_Mesa::instance();
    if (mesa.List_Itens->topLevelItemCount() == 0) {
        recusar(QStringLiteral("Não há itens para serem transferidos!"));
        return;
    }
    if (mesa.List_Itens->selectedItems().isEmpty()) {
        recusar(QStringLiteral("Não há itens selecionados!"));
        return;
    }
    Frm_Transferir& tela = Frm_Transferir::instance();
    tela.tipo = 0;
    tela.setWindowTitle(QStringLiteral("Transferência de itens"));
    tela.Label_Operacao->setText(QStringLiteral("Transferência de itens"));
    tela.Text_Origem->setText(Format(comandaAtual->apelido(), QStringLiteral("0000")));
    tela.ShowModal();
    // Moved or not, the labels show the tab as the object holds it now.
    mesa.exibirTotais();
}
