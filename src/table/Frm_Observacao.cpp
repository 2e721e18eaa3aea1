#include "table/Frm_Observacao.h"

#include "platform/DataControl.h"
#include "table/Frm_Mesa.h"

#include <QPlainTextEdit>

Frm_Observacao::Frm_Observacao()
    : Frm_Texto("Frm_Observacao", QStringLiteral("Observação"), QString(), "Text_Observacao",
                QStringLiteral("Insira aqui uma observação para o item")) {
    Text_Observacao = m_texto;
    onKeyPress(Text_Observacao, &Frm_Observacao::Text_Observacao_KeyPress);
}

void Frm_Observacao::Text_Observacao_KeyPress(int& KeyAscii) {
    digitado(KeyAscii);
}

// The note as it stands, also empty; impresso is left alone, so the item is not sent again.
void Frm_Observacao::Cmd_Gravar_Click() {
    DataControl& ado = *Frm_Mesa::instance().Ado_itens;
    ado.Recordset().Fields(QStringLiteral("Observacao")).setValue(Text_Observacao->toPlainText());
    ado.Recordset().Update();
    ado.Refresh();
    Unload();
}
