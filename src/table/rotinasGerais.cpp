#include "table/rotinasGerais.h"

#include "map/Frm_Principal.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/SendKeys.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "table/Frm_Mesa.h"
#include "table/Frm_Produtos.h"

#include <QLineEdit>
#include <QTreeWidget>
#include <cmath>

namespace {
// The map's shared control for small queries: the caller must be done with the previous result.
Recordset& consultarGeral(const QString& sql) {
    DataControl& ado = *Frm_Principal::instance().Ado_Geral;
    ado.RecordSource = sql;
    ado.Refresh();
    return ado.Recordset();
}
} // namespace

qint16 primeiroValor(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    Recordset rs = cn.Execute(sql);
    if (rs.Eof())
        return 0;
    const QVariant valor = rs.Fields(0).Value();
    return IsNull(valor) ? 0 : CInt(valor);
}

QString tempoDecorrido(const QDateTime& data) {
    const double segundos = double(DateDiff(QStringLiteral("s"), data, agora()));
    // Int rounds down: a moment a little ahead reads -01h:59m.
    const double horas = Int(segundos / 60 / 60);
    const double minutos = Int(segundos / 60 - horas * 60);
    return Format(horas, QStringLiteral("#00h")) + QStringLiteral(":") +
           Format(minutos, QStringLiteral("00m"));
}

QString formataDecimal(const QString& texto, qint16 casas, double divisor) {
    QString digitos = texto;
    // The previous result may carry the group separator too.
    digitos.remove(QLatin1Char('.'));
    digitos.remove(QLatin1Char(','));
    const double quociente = CDbl(digitos) / divisor;
    // Through its text, so that the 15 digits of the quotient are what gets rounded.
    return FormatNumber(CStr(quociente), casas, -1);
}

void preencherDaDireita(QLineEdit* campo, int& KeyCode, qint16 casas, double divisor) {
    if (!IsNumeric(campo->text())) {
        KeyCode = 0;
        SendKeys(QStringLiteral("{backspace}"));
    } else {
        const QString valor = formataDecimal(campo->text(), casas, divisor);
        if (valor != campo->text()) {
            campo->setText(valor);
            campo->setCursorPosition(int(valor.size()));
        }
    }
    if (campo->text().isEmpty())
        SendKeys(QStringLiteral("0"));
}

bool podeMovimentarMesa(qint16 mesa) {
    Recordset& rs = consultarGeral(QStringLiteral("SELECT * FROM Tb_Comandas WHERE (mesa = ") +
                                   QString::number(mesa) + QStringLiteral(") AND (status <> 0)"));
    if (rs.RecordCount() == 0)
        return true;
    return CDbl(rs.Fields(QStringLiteral("id_colaborador")).Value()) == idColaborador;
}

QString nomeDoColaborador(qint16 id) {
    if (id == 0)
        return QString();
    Recordset& rs = consultarGeral(QStringLiteral("SELECT * FROM Tb_Colaborador WHERE id_colaborador = ") +
                                   QString::number(id));
    return CStr(rs.Fields(QStringLiteral("nome")).Value());
}

QString nomeDoCliente(qint16 id) {
    if (id == 0)
        return QString();
    Recordset& rs =
        consultarGeral(QStringLiteral("SELECT * FROM CLIENTES WHERE id_codigo = ") + QString::number(id));
    return CStr(rs.Fields(QStringLiteral("nome")).Value());
}

double truncaDecimais(double valor, qint16 casas) {
    const double escala = std::pow(10.0, casas);
    const double escalado = escala * valor;
    // An overflow is a failure like any other here: 0.
    if (!std::isfinite(escalado))
        return 0;
    return Fix(escalado) / escala;
}

qint16 idComandaDaMesa(qint16 mesa) {
    return primeiroValor(QStringLiteral("SELECT id_comanda FROM Tb_Comandas WHERE (mesa = '") +
                         QString::number(mesa) + QStringLiteral("') AND (status <> 0) AND (bloqueada = 0)"));
}

qint16 ultimoItemDaComanda(qint16 idComanda) {
    return primeiroValor(QStringLiteral("SELECT MAX(n_item) FROM Tb_Comandas_Itens WHERE id_comanda = ") +
                         QString::number(idComanda));
}

QVector<qint16> itensSelecionados() {
    const QTreeWidget& lista = *Frm_Mesa::instance().List_Itens;
    QVector<qint16> itens;
    for (int i = 0; i < lista.topLevelItemCount(); ++i)
        if (lista.topLevelItem(i)->isSelected())
            itens.append(CInt(Frm_Mesa::Tag(lista.topLevelItem(i))));
    return itens;
}

void numeroDeMesaKeyUp(QLineEdit& campo, int& KeyCode) {
    if (!IsNumeric(campo.text())) {
        KeyCode = 0;
        SendKeys(QStringLiteral("{backspace}"));
    } else {
        campo.setText(Format(campo.text(), QStringLiteral("0000")));
        campo.setCursorPosition(campo.text().size());
    }
    if (campo.text().isEmpty())
        SendKeys(QStringLiteral("0"));
}

bool localizaProduto(QString& texto) {
    texto = Trim(QString(texto).remove(QLatin1Char('\'')));
    Frm_Produtos& produtos = Frm_Produtos::instance();
    DataControl& ado = *produtos.Ado_Produtos;
    if (texto.isEmpty()) {
        ado.Refresh();
        if (produtos.isVisible())
            produtos.Dtg_Produtos->setDataSource(ado.Recordset());
        return false;
    }
    Recordset& rs = ado.Recordset();
    if (IsNumeric(texto))
        rs.setFilter(QStringLiteral("CODIGO = '") + texto + QStringLiteral("'"));
    else if (buscaInicio)
        rs.setFilter(QStringLiteral("DESCRICAO LIKE '%") + texto + QStringLiteral("%'"));
    else
        rs.setFilter(QStringLiteral("DESCRICAO LIKE '") + texto + QStringLiteral("%'"));

    if (rs.RecordCount() > 0) {
        if (produtos.isVisible()) {
            produtos.Dtg_Produtos->setDataSource(rs);
            produtos.Dtg_Produtos->removeSelBookmark();
            produtos.Dtg_Produtos->addCurrentBookmark();
            return false;
        }
        itemCodigo = CStr(rs.Fields(QStringLiteral("CODIGO")).Value());
        itemQuantidade = CDbl(Frm_Mesa::instance().Text_Quantidade->text());
        itemDescricao = CStr(rs.Fields(QStringLiteral("DESCRICAO")).Value()).left(30);
        itemValorUnitario = CDbl(rs.Fields(QStringLiteral("PRECO")).Value());
        produtos.Unload();
        return true;
    }
    // No match: the whole list again, hidden or not.
    ado.Refresh();
    produtos.Dtg_Produtos->setDataSource(ado.Recordset());
    return false;
}
