// What the user does on the map: reaching a table, quick access by number, the filters and the menu.
#include "map/Frm_Principal.h"

#include "access/Frm_Acesso.h"
#include "access/Frm_Configuracao.h"
#include "map/Mesa.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"
#include "transfer/Frm_Transferir.h"

#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

void Frm_Principal::Form_KeyDown(int& KeyCode, int Shift) {
    QChar tecla;
    switch (KeyCode) {
    case 112:
        List_Menu_ItemClick(1);
        return;
    case 113:
        List_Menu_ItemClick(2);
        return;
    case 27:
        List_Menu_ItemClick(3);
        return;
    case 8:
        tecla = QChar(8);
        break;
    default:
        if (KeyCode >= 48 && KeyCode <= 57)
            tecla = QChar(KeyCode);
        else if (KeyCode >= 96 && KeyCode <= 105)
            tecla = QChar(KeyCode - 48);
        else
            return;
    }
    // Typing a number anywhere but in a text box starts the quick access.
    if (qobject_cast<QLineEdit*>(focusWidget()))
        return;
    Text_mesa->setText(QStringLiteral("000") + tecla);
    Text_mesa->setFocus();
}

void Frm_Principal::limparAcessoRapido() {
    Text_mesa->setText(QStringLiteral("0000"));
    Text_mesa->setFocus();
}

void Frm_Principal::Text_mesa_GotFocus() {
    Text_mesa->setCursorPosition(Text_mesa->text().size());
}

void Frm_Principal::Text_mesa_KeyPress(int& KeyAscii) {
    try {
        if ((KeyAscii >= 47 && KeyAscii <= 57) || KeyAscii == 8)
            return; // the slash passes too; the key-up takes it back
        if (KeyAscii == 13) {
            card_Click(CInt(CDbl(Text_mesa->text()) - 1));
            return;
        }
        KeyAscii = 0;
    } catch (const RuntimeError& e) {
        if (e.Description == QLatin1String("Overflow")) {
            MsgBox(QStringLiteral("Mesa inválida!"), vbOKOnly | vbInformation, QStringLiteral("Aviso"));
            limparAcessoRapido();
        } else {
            MsgBox(describe(e), vbOKOnly | vbCritical, QStringLiteral("Atenção"));
        }
    }
}

void Frm_Principal::Text_mesa_KeyUp(int& KeyCode, int Shift) {
    // The field is a shifting counter: each digit typed on "0000" pushes the others to the left.
    numeroDeMesaKeyUp(*Text_mesa, KeyCode);
}

void Frm_Principal::Text_mesa_LostFocus() {
    Text_mesa->setText(Format(Text_mesa->text(), QStringLiteral("0000")));
}

void Frm_Principal::List_Menu_GotFocus() {
    for (int i = 0; i < List_Menu->topLevelItemCount(); ++i)
        List_Menu->topLevelItem(i)->setSelected(false);
}

// The guarded entries: the prompt, then the right as the prompt has just loaded it.
void Frm_Principal::opcaoProtegida(const bool& direito, const std::function<void()>& abrir) {
    Frm_Acesso::instance().ShowModal();
    if (acessoAutorizado) {
        if (direito)
            abrir();
        else
            MsgBox(QStringLiteral("Você não pode executar essa ação"), vbOKOnly | vbCritical,
                   QStringLiteral("Atenção"));
    }
    Text_mesa->setFocus();
}

void Frm_Principal::List_Menu_ItemClick(int item) {
    try {
        switch (item) {
        case 1:
            opcaoProtegida(podeTransferirMesa, [this] { transferirMesa(); });
            break;
        case 2:
            opcaoProtegida(podeConfigurar, [] { Frm_Configuracao::instance().ShowModal(); });
            break;
        case 3:
            if (MsgBox(QStringLiteral("Deseja realmente sair?"), vbYesNo | vbQuestion,
                       QStringLiteral("Pergunta")) == vbYes) {
                Unload();
                endProcess();
            } else {
                Text_mesa->setFocus();
            }
            break;
        default:
            break;
        }
    } catch (const RuntimeError& e) {
        MsgBox(QStringLiteral("Menu de opções\r\n") + describe(e), vbOKOnly);
    }
}

void Frm_Principal::transferirMesa() {
    Frm_Transferir& tela = Frm_Transferir::instance();
    tela.tipo = 1;
    tela.setWindowTitle(QStringLiteral("Transferência de mesa"));
    tela.Label_Operacao->setText(QStringLiteral("Transferência de mesa"));
    tela.Text_Origem->setEnabled(true);
    tela.Text_Origem->setText(QStringLiteral("0000"));
    tela.ShowModal();
}

void Frm_Principal::Frame_Click(int Index) {
    filtroMesas(Index);
}

void Frm_Principal::filtroMesas(int Index) {
    if (Index == 5) {
        for (Mesa* c : std::as_const(card))
            c->setVisible(true);
        return;
    }
    // "Disponível" asks for the occupied tables and shows the others, so with none occupied it
    // finds nothing to filter by.
    Ado_Geral->RecordSource =
        Index == 0 ? QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0")
                   : QStringLiteral("SELECT * FROM Tb_Comandas WHERE status = ") + QString::number(Index);
    Ado_Geral->Refresh();
    Recordset& rs = Ado_Geral->Recordset();
    if (rs.RecordCount() == 0) {
        MsgBox(QStringLiteral("Não há mesas para o filtro selecionado"), vbOKOnly | vbInformation,
               QStringLiteral("Aviso"));
        return;
    }
    for (int i = 0; i < card.size(); ++i) {
        rs.MoveFirst();
        rs.Find(QStringLiteral("mesa =") + QString::number(i + 1), 0, adSearchForward);
        const bool noResultado = !rs.Eof();
        card[i]->setVisible(Index == 0 ? !noResultado : noResultado);
    }
}

void Frm_Principal::validacoes(qint16 Index, bool& resultado) {
    resultado = false;
    if (Index < 0 || Index > card.size() - 1) {
        MsgBox(QStringLiteral("Esta mesa não existe"), vbOKOnly | vbCritical, QStringLiteral("Atenção"));
        limparAcessoRapido();
        return;
    }
    Frm_Acesso::instance().ShowModal();
    if (!acessoAutorizado) {
        limparAcessoRapido();
        return;
    }
    if (multiplosAtendentes) {
        resultado = true;
        return;
    }
    // Without several waiters a table belongs to whoever opened it.
    if (podeMovimentarMesa(static_cast<qint16>(Index + 1))) {
        resultado = true;
        return;
    }
    MsgBox(QStringLiteral("Você não pode executar essa ação!"), vbOKOnly | vbCritical,
           QStringLiteral("Atenção"));
    limparAcessoRapido();
}

void Frm_Principal::card_Click(qint16 Index) {
    bool resultado = false;
    validacoes(Index, resultado);
    if (!resultado)
        return;
    Text_mesa->setText(Format(Text_mesa->text(), QStringLiteral("0000")));

    if (card[Index]->status() <= 0 &&
        MsgBox(QStringLiteral("Esta mesa encontra-se vazia, deseja iniciar a consumação?"),
               vbYesNo | vbQuestion, QStringLiteral("Pergunta")) == vbNo)
        return;

    // Pointing the tab at the table loads its open row or opens one; from here the row decides.
    comandaAtual = std::make_unique<Comanda>();
    comandaAtual->apelido(static_cast<qint16>(Index + 1));
    switch (comandaAtual->status()) {
    case 0:
    case 1:
    case 3:
    case 4:
        Frm_Mesa::instance().ShowModal();
        break;
    case 2:
        MsgBox(QStringLiteral("Mesa já está sendo movimentada neste momento"), vbOKOnly | vbInformation,
               QStringLiteral("Aviso"));
        break;
    default:
        break;
    }
    limparAcessoRapido();
    comandaAtual.reset();
}
