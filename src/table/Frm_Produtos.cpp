#include "table/Frm_Produtos.h"

#include "platform/DataControl.h"
#include "startup/variaveisGlobais.h"

Frm_Produtos::Frm_Produtos() {
    setObjectName(QStringLiteral("Frm_Produtos"));
    setWindowTitle(QStringLiteral("Consulta de Produtos"));
    KeyPreview = true;
    Ado_Produtos = new DataControl(QStringLiteral("Ado_Produtos"), this);
}

// The whole list stays on the client: typing in a filter makes no round trip.
void Frm_Produtos::Form_Load() {
    Ado_Produtos->ConnectionString = conexaoLocal;
    Ado_Produtos->RecordSource =
        QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P "
                       "INNER JOIN TB_ESTOQUE E ON E.CODIGO = P.CODIGO");
    Ado_Produtos->Refresh();
}
