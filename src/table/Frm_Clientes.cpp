#include "table/Frm_Clientes.h"

#include "platform/Application.h"
#include "platform/DataControl.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"

#include <QHeaderView>
#include <QLineEdit>

Frm_Clientes::Frm_Clientes()
    : Frm_Consulta("Frm_Clientes", QStringLiteral("Consulta de Clientes"), QStringLiteral("Nome"),
                   "Dtg_Clientes", "Ado_Clientes",
                   QStringLiteral("SELECT ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO FROM CLIENTES"),
                   {{QStringLiteral("CÓDIGO"), QStringLiteral("ID_CODIGO"), QStringLiteral("000000")},
                    {QStringLiteral("NOME"), QStringLiteral("NOME"), QString()},
                    {QStringLiteral("DOCUMENTO"), QStringLiteral("CPF"), QString()},
                    // The money format on a text column has no effect on it; it stays as designed.
                    {QStringLiteral("IE"), QStringLiteral("IE"), QStringLiteral("\"R$\" #.##0,00")},
                    {QStringLiteral("TELEFONE"), QStringLiteral("TELEFONE"), QString()}}) {
    Dtg_Clientes = m_grade;
    Ado_Clientes = m_ado;
    Dtg_Clientes->horizontalHeader()->resizeSection(0, 80);
    Dtg_Clientes->horizontalHeader()->resizeSection(1, 260);
    connect(Text_filtro, &QLineEdit::textChanged, this, guarded([this] { Text_filtro_Change(); }));
}

void Frm_Clientes::Text_filtro_Change() {
    QString texto = Text_filtro->text();
    bool resultado = false;
    pegaCliente(texto, resultado);
}

// Unlike the products, a text that matches nobody leaves the grid empty.
void Frm_Clientes::pegaCliente(QString& texto, bool& resultado) {
    texto = Trim(QString(texto).remove(QLatin1Char('\'')));
    if (texto.isEmpty()) {
        Ado_Clientes->Refresh();
        Dtg_Clientes->setDataSource(Ado_Clientes->Recordset());
        return;
    }
    Recordset& rs = Ado_Clientes->Recordset();
    rs.setFilter(buscaInicio ? QStringLiteral("NOME LIKE '%") + texto + QStringLiteral("%'")
                             : QStringLiteral("NOME LIKE '") + texto + QStringLiteral("%'"));
    Dtg_Clientes->setDataSource(rs);
    if (rs.RecordCount() > 0) {
        Dtg_Clientes->removeSelBookmark();
        Dtg_Clientes->addCurrentBookmark();
    }
}

void Frm_Clientes::Cmd_confirmar_Click() {
    Recordset& rs = Ado_Clientes->Recordset();
    if (rs.RecordCount() == 0)
        return;
    Frm_Mesa::instance().Text_Cliente->setText(CStr(rs.Fields(QStringLiteral("Nome")).Value()));
    comandaAtual->cliente(CInt(rs.Fields(QStringLiteral("id_codigo")).Value()));
    Unload();
}
