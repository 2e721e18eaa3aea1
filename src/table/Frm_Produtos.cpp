#include "table/Frm_Produtos.h"

#include "items/rotinasItens.h"
#include "platform/Application.h"
#include "platform/DataControl.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"

#include <QLineEdit>

Frm_Produtos::Frm_Produtos()
    : Frm_Consulta(
          "Frm_Produtos", QStringLiteral("Consulta de Produtos"), QStringLiteral("Código ou Descrição"),
          "Dtg_Produtos", "Ado_Produtos",
          QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN "
                         "TB_ESTOQUE E ON E.CODIGO = P.CODIGO"),
          {{QStringLiteral("CÓDIGO"), QStringLiteral("CODIGO"), QStringLiteral("#0000000000000"), 130},
           {QStringLiteral("DESCRIÇÃO"), QStringLiteral("DESCRICAO"), QString(), 360},
           {QStringLiteral("UN"), QStringLiteral("UN"), QString(), 50},
           {QStringLiteral("VALOR UNITÁRIO"), QStringLiteral("PRECO"), QStringLiteral("\"R$\" #.##0,00")}}) {
    Dtg_Produtos = m_grade;
    Ado_Produtos = m_ado;
    // A click on a column head reads it and does nothing: the rows are not sorted.
    onKeyPress(Text_filtro, &Frm_Produtos::Text_filtro_KeyPress);
    connect(Text_filtro, &QLineEdit::textChanged, this, guarded([this] { Text_filtro_Change(); }));
}

void Frm_Produtos::Text_filtro_KeyPress(int& KeyAscii) {
    KeyAscii = UCase(QString(QChar(KeyAscii))).at(0).unicode();
}

// The search with the picker visible only moves the filter and the selection.
void Frm_Produtos::Text_filtro_Change() {
    QString texto = Text_filtro->text();
    localizaProduto(texto);
}

void Frm_Produtos::Cmd_confirmar_Click() {
    Recordset& rs = Ado_Produtos->Recordset();
    if (rs.RecordCount() == 0)
        return;
    Frm_Mesa& mesa = Frm_Mesa::instance();
    itemCodigo = CStr(rs.Fields(QStringLiteral("CODIGO")).Value());
    itemQuantidade = CDbl(mesa.Text_Quantidade->text());
    itemDescricao = CStr(rs.Fields(QStringLiteral("DESCRICAO")).Value()).left(30);
    itemValorUnitario = CDbl(rs.Fields(QStringLiteral("PRECO")).Value());
    incluirItem();
    mesa.Text_Quantidade->setText(QStringLiteral("1,000"));
    mesa.Text_Codigo->clear();
    Unload();
}
