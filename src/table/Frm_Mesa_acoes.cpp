// What the user does on the table screen: the keys, the action strip, the service, the item menu
// and the code and quantity entry.
#include "table/Frm_Mesa.h"

#include "access/Frm_Ajuda.h"
#include "items/rotinasItens.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/RuntimeError.h"
#include "platform/Twips.h"
#include "platform/VbText.h"
#include "printing/rotinasImpressao.h"
#include "settlement/Frm_Cancelamento.h"
#include "settlement/Frm_Recebimento.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Clientes.h"
#include "table/Frm_Produtos.h"
#include "table/rotinasGerais.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeWidget>

namespace {
void recusar(const QString& texto) {
    MsgBox(texto, vbOKOnly | vbCritical, QStringLiteral("Atenção"));
}
const QString semDireito = QStringLiteral("Você não pode executar essa ação");
} // namespace

void Frm_Mesa::acao(const QString& chave) {
    if (QTreeWidgetItem* entrada = entradaDoMenu(chave))
        List_Menu_ItemClick(entrada);
}

// The first row that matches acts; whether the tab is blocked is read again for each row.
void Frm_Mesa::Form_KeyDown(int& KeyCode, int Shift) {
    const auto livre = [] { return !comandaAtual->bloqueada(); };
    const bool ctrl = Shift == 2;
    if (KeyCode == 112 && livre()) {
        acao(QStringLiteral("Produtos"));
    } else if (KeyCode == 113 && livre()) {
        acao(QStringLiteral("Clientes"));
    } else if (KeyCode == 114 && livre()) {
        acao(QStringLiteral("Transferir"));
    } else if (KeyCode == 115 && livre()) {
        acao(QStringLiteral("Conferência"));
    } else if (KeyCode == 116) {
        acao(QStringLiteral("Receber"));
    } else if (KeyCode == 117 && livre()) {
        acao(QStringLiteral("Cancelar"));
    } else if (KeyCode == 118) {
        acao(QStringLiteral("Ajuda"));
    } else if (KeyCode == 27) {
        acao(QStringLiteral("Enviar"));
    } else if (KeyCode == 119 && !livre()) {
        acao(QStringLiteral("Desbloquear"));
    } else if (KeyCode == 40 && livre()) {
        List_Itens->setFocus();
    } else if (KeyCode == 107 && ctrl && livre()) {
        Text_Ocupantes->setText(CStr(CDbl(Text_Ocupantes->text()) + 1));
    } else if (KeyCode == 109 && ctrl && livre()) {
        const double menos = CDbl(Text_Ocupantes->text()) - 1;
        Text_Ocupantes->setText(CStr(menos > 0 ? menos : 1));
    } else if (KeyCode == 73 && ctrl && livre()) {
        Text_Identificacao->setFocus();
    } else if (KeyCode == 67 && ctrl && livre()) {
        Text_Codigo->setFocus();
    } else if (KeyCode == 81 && ctrl && livre()) {
        Text_Quantidade->setFocus();
    } else if (KeyCode == 83 && ctrl && livre()) {
        if (!podeAlterarTaxa)
            recusar(semDireito);
        else
            Chk_Servico->setChecked(Chk_Servico->checkState() == Qt::Unchecked);
    }
}

void Frm_Mesa::List_Menu_ItemClick(QTreeWidgetItem* Item) {
    Comanda& comanda = *comandaAtual;
    comanda.identificacao(UCase(Trim(Text_Identificacao->text())));
    comanda.ocupantes(CInt(Text_Ocupantes->text()));
    comanda.servico(Chk_Servico->checkState() != Qt::Unchecked);
    Item->setSelected(false);

    const QString chave = Item->data(0, Qt::UserRole).toString();
    if (chave == QLatin1String("Produtos")) {
        Frm_Produtos::instance().ShowModal();
        Text_Codigo->setFocus();
    } else if (chave == QLatin1String("Clientes")) {
        Frm_Clientes::instance().ShowModal();
        Text_Codigo->setFocus();
    } else if (chave == QLatin1String("Transferir")) {
        transferirItens();
        Text_Codigo->setFocus();
    } else if (chave == QStringLiteral("Conferência")) {
        if (!(comanda.valorTotal() > 0))
            return;
        imprimirPedidos();
        imprimirConferencia();
        comanda.status(3);
        if (bloquearAposConferencia)
            comanda.bloqueada(true);
        Unload();
    } else if (chave == QLatin1String("Receber")) {
        Frm_Recebimento::instance().ShowModal();
        if (!comanda.bloqueada())
            Text_Codigo->setFocus();
    } else if (chave == QLatin1String("Cancelar")) {
        if (!podeCancelar) {
            recusar(semDireito);
            return;
        }
        Frm_Cancelamento::instance().ShowModal();
        if (comanda.cancelada()) {
            comanda.status(0);
            Unload();
        }
    } else if (chave == QLatin1String("Ajuda")) {
        Frm_Ajuda::instance().ShowModal();
        Text_Codigo->setFocus();
    } else if (chave == QLatin1String("Enviar")) {
        // Save, print, release, close: the header is saved above and the items are in the store.
        imprimirPedidos();
        comanda.status(comanda.bloqueada() ? 3 : 1);
        Unload();
    } else if (chave == QLatin1String("Desbloquear")) {
        comanda.bloqueada(false);
        mesaLiberada();
        Text_Codigo->setFocus();
    }
}

void Frm_Mesa::List_Menu_GotFocus() {
    for (int i = 0; i < List_Menu->topLevelItemCount(); ++i)
        List_Menu->topLevelItem(i)->setSelected(false);
}

void Frm_Mesa::comecarCodigo(int KeyCode) {
    if (KeyCode >= 48 && KeyCode <= 57)
        Text_Codigo->setText(QChar(KeyCode));
    else if (KeyCode == 8)
        Text_Codigo->setText(QChar(8));
    else if (KeyCode >= 96 && KeyCode <= 105)
        Text_Codigo->setText(QChar(KeyCode - 48));
    else
        return;
    Text_Codigo->setFocus();
}

void Frm_Mesa::List_Menu_KeyDown(int& KeyCode, int Shift) {
    comecarCodigo(KeyCode);
}

void Frm_Mesa::Chk_Servico_Click() {
    const bool marcado = Chk_Servico->checkState() != Qt::Unchecked;
    riscar(Chk_Servico, !marcado);
    riscar(Label_Servico, !marcado);
    comandaAtual->servico(marcado);
    comandaAtual->totalizaMesa();
    exibirTotais();
}

// The refusal's box takes the mouse, so no click follows and the box keeps its state. The access
// key and the space bar on the box are not refused: that is how it has always been.
void Frm_Mesa::Chk_Servico_MouseDown(int Button, int Shift, double X, double Y) {
    if (!podeAlterarTaxa)
        recusar(semDireito);
}

void Frm_Mesa::Text_Identificacao_KeyPress(int& KeyAscii) {
    KeyAscii = UCase(QString(QChar(KeyAscii))).at(0).unicode();
}

// --- The item menu ---

void Frm_Mesa::mnu_mesa_detalhe_Click() {
    detalharItem();
}

void Frm_Mesa::mnu_mesa_observacao_Click() {
    abrirObservacao();
}

void Frm_Mesa::mnu_mesa_transferir_Click() {
    transferirItens();
}

void Frm_Mesa::mnu_mesa_excluir_Click() {
    try {
        if (!podeExcluir) {
            recusar(semDireito);
            return;
        }
        const QVector<qint16> ids = itensSelecionados();
        if (ids.isEmpty()) {
            recusar(QStringLiteral("Não há itens selecionados!"));
            return;
        }
        if (MsgBox(QStringLiteral("Deseja realmente excluir os itens selecionados?"),
                   vbYesNo | vbQuestion | vbDefaultButton2, QStringLiteral("Pergunta")) == vbYes)
            excluirItem(ids);
    } catch (const RuntimeError& e) {
        recusar(QStringLiteral("mnu_mesa_excluir_Click()\r\n") + describe(e));
    }
}

void Frm_Mesa::mnu_mesa_reimpressao_Click() {
    if (!imprimirItens) {
        recusar(QStringLiteral("(Re)Impressão de itens desativada pelo administrador"));
        return;
    }
    if (!podeReimprimir) {
        recusar(QStringLiteral("Você não pode executar esta ação"));
        return;
    }
    QTreeWidgetItem* item = SelectedItem();
    if (!item)
        raiseError(vbErr::ObjectNotSet);
    setSmallIcon(item, 2);
    Ado_itens->RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = ") +
                              CStr(comandaAtual->id()) + QStringLiteral(") and (id_comanda_item = ") +
                              Tag(item) + QStringLiteral(") and (status = 1)");
    Ado_itens->Refresh();
    Ado_itens->Recordset().Fields(QStringLiteral("reimpressao")).setValue(1);
    Ado_itens->Recordset().Update();
    Ado_itens->Refresh();
    MsgBox(QStringLiteral("A reimpressão será realizada ao salvar a mesa!"), vbOKOnly | vbInformation,
           QStringLiteral("Aviso"));
}

// --- Code and quantity entry ---

void Frm_Mesa::Text_Codigo_GotFocus() {
    Text_Codigo->setCursorPosition(Text_Codigo->text().size());
}

void Frm_Mesa::Text_Codigo_KeyPress(int& KeyAscii) {
    if (KeyAscii == 'X' || KeyAscii == 'x' || KeyAscii == '*') {
        // The quantity key: what was typed so far is the quantity of the next code.
        KeyAscii = 0;
        const QString texto = Text_Codigo->text();
        if (texto.isEmpty() || CDbl(texto) == 0) {
            recusar(QStringLiteral("Quantidade inválida!"));
            return;
        }
        Text_Quantidade->setText(
            Format(QString(texto).replace(QLatin1Char('.'), QLatin1Char(',')), QStringLiteral("#0.000")));
        Text_Codigo->clear();
        Text_Codigo->setFocus();
        return;
    }
    if ((KeyAscii >= '0' && KeyAscii <= '9') || KeyAscii == 8 || KeyAscii == ',')
        return;
    if (KeyAscii == 13) {
        QString texto = Text_Codigo->text();
        if (localizaProduto(texto))
            incluirItem();
        else
            recusar(QStringLiteral("Produto não localizado"));
        Text_Quantidade->setText(QStringLiteral("1,000"));
        Text_Codigo->clear();
        return;
    }
    KeyAscii = 0; // letters are searched in the product picker
}

void Frm_Mesa::Text_Quantidade_GotFocus() {
    Text_Quantidade->selectAll();
    m_selecionarAoSoltar = QApplication::mouseButtons() != Qt::NoButton;
}

// The field fills from the right with its three decimals in place: 0,000, 0,002, 0,025, 0,250.
void Frm_Mesa::Text_Quantidade_KeyUp(int& KeyCode, int Shift) {
    preencherDaDireita(Text_Quantidade, KeyCode, 3, 1000);
}

void Frm_Mesa::List_Itens_KeyDown(int& KeyCode, int Shift) {
    switch (KeyCode) {
    case 46:
        mnu_mesa_excluir_Click();
        break;
    case 119:
        mnu_mesa_detalhe_Click();
        break;
    case 120:
        mnu_mesa_observacao_Click();
        break;
    case 121:
        mnu_mesa_reimpressao_Click();
        break;
    default:
        comecarCodigo(KeyCode);
        break;
    }
}

// The right button opens the item menu on the selected row; with no row selected the test fails
// with an error that the handler swallows, and no menu shows.
void Frm_Mesa::List_Itens_MouseDown(int Button, int Shift, double X, double Y) {
    try {
        if (Button != 2)
            return;
        // As on the list views of the original, the right button selects the row under it first.
        const QPoint ponto(int(X / twipsPerPixelX()), int(Y / twipsPerPixelY()));
        QTreeWidgetItem* sob = List_Itens->itemAt(List_Itens->viewport()->mapFrom(List_Itens, ponto));
        if (sob && !sob->isSelected()) {
            List_Itens->clearSelection();
            sob->setSelected(true);
        }
        if (List_Itens->topLevelItemCount() > 0) {
            QTreeWidgetItem* item = SelectedItem();
            if (!item)
                raiseError(vbErr::ObjectNotSet);
            if (List_Itens->indexOfTopLevelItem(item) + 1 >= 1)
                mnu_mesa->popup(List_Itens->mapToGlobal(ponto));
        }
    } catch (const RuntimeError&) {
    }
}
