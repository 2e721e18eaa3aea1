#include "printing/rotinasImpressao.h"

#include "map/Frm_Principal.h"
#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Printers.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "printing/Dtr_Conferencia.h"
#include "printing/Dtr_Pedido.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"

#include <QTreeWidget>
#include <functional>

namespace {
// An element of a string array: one never allocated has no element at all.
const QString& elemento(const QStringList& vetor, int indice) {
    if (indice < 0 || indice >= vetor.size())
        raiseError(vbErr::SubscriptOutOfRange);
    return vetor.at(indice);
}

Recordset& consultarGeral(const QString& sql) {
    DataControl& geral = *Frm_Principal::instance().Ado_Geral;
    geral.RecordSource = sql;
    geral.Refresh();
    return geral.Recordset();
}

// Ado_itens of the table screen on the tab's items that match the condition.
DataControl& itensDaComanda(const QString& condicao) {
    DataControl& itens = *Frm_Mesa::instance().Ado_itens;
    itens.ConnectionString = conexaoLocal;
    itens.RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = ") +
                         CStr(comandaAtual->id()) + QStringLiteral(") AND ") + condicao;
    itens.Refresh();
    return itens;
}

QString dinheiro(double valor) {
    return FormatNumber(valor, 2, -1);
}
} // namespace

void imprimirPedidos() {
    Frm_Mesa& mesa = Frm_Mesa::instance();
    DataControl& itens = itensDaComanda(QStringLiteral("(status = 1) AND (impresso = 0 or reimpressao = 1)"));
    Dtr_Pedido& pedido = Dtr_Pedido::instance();
    pedido.DataSource = &itens;
    ReportSection& topo = pedido.Sections(QStringLiteral("Section4"));
    ReportSection& cabecalho = pedido.Sections(QStringLiteral("Section2"));

    // The count is read once: each turn works on the first row of a fresh query, since the row
    // just printed no longer matches it.
    const int pendentes = itens.Recordset().RecordCount();
    for (int i = 0; i < pendentes; ++i) {
        Recordset& rs = itens.Recordset();
        const QString id = CStr(rs.Fields(QStringLiteral("id_comanda_item")).Value());
        const bool reimpressao = CBool(rs.Fields(QStringLiteral("reimpressao")).Value());
        // Whoever sends the table, not whoever rang the item.
        const QString garcom = nomeDoColaborador(idColaborador);
        QString codigo = CStr(rs.Fields(QStringLiteral("codigo")).Value());
        const QStringList destino = destinoDoProduto(codigo);

        QTreeWidgetItem* linha = mesa.FindItem(id);
        if (!linha)
            raiseError(vbErr::ObjectNotSet);
        mesa.List_Itens->setCurrentItem(linha);
        mesa.setSmallIcon(linha, 1);

        rs.Fields(QStringLiteral("impresso")).setValue(1);
        rs.Fields(QStringLiteral("reimpressao")).setValue(0);
        rs.setFilter(QStringLiteral("id_comanda_item = ") + id);
        rs.Update();

        topo.Controls(QStringLiteral("Label_Reimpressao")).Visible = reimpressao;
        topo.Controls(QStringLiteral("Label_Mesa")).Caption =
            QStringLiteral("Mesa #") + Format(comandaAtual->apelido(), QStringLiteral("0000"));
        cabecalho.Controls(QStringLiteral("Label_Atendente")).Caption = UCase(garcom);
        cabecalho.Controls(QStringLiteral("Label_Destino")).Caption = UCase(elemento(destino, 1));
        cabecalho.Controls(QStringLiteral("Label_Hora_Impressao")).Caption = CStr(agora());
        imprimirRelatorio(elemento(destino, 2), pedido);

        itens.Refresh();
    }
}

QStringList destinoDoProduto(QString& codigo) {
    if (codigo.isEmpty())
        return {};
    Recordset& produto = consultarGeral(QStringLiteral("SELECT * FROM PRODUTOS WHERE CODIGO = '") + codigo +
                                        QLatin1Char('\''));
    if (produto.RecordCount() != 1)
        return {};
    const QString departamento = CStr(produto.Fields(QStringLiteral("DEP")).Value());
    Recordset& setor = consultarGeral(
        QStringLiteral("SELECT * FROM Tb_Departamento WHERE ID_Departamento = ") + departamento);
    if (setor.RecordCount() != 1)
        return {};
    const QVariant impressora = setor.Fields(QStringLiteral("Impressora")).Value();
    return {departamento, CStr(setor.Fields(QStringLiteral("Dep_Descricao")).Value()),
            IsNull(impressora) ? defaultPrinterName() : CStr(impressora)};
}

void imprimirRelatorio(const QString& impressora, DataReport& relatorio) {
    if (impressora.isEmpty()) {
        MsgBox(
            QStringLiteral("Não foi definida impressora padrão para este tipo de relatório nos parâmetros do "
                           "sistema."),
            vbCritical, QStringLiteral("Atenção"));
        return;
    }
    // Each step under the handler: the report's or printer's exception ends the routine where it
    // stands, any other failure is shown and the next step runs.
    const auto passo = [&](const std::function<void()>& instrucao) {
        try {
            instrucao();
        } catch (const RuntimeError& erro) {
            if (erro.Number == vbErr::AutomationException) {
                MsgBox(QStringLiteral("Houve uma falha ao processar a impressão em: ") + impressora,
                       vbCritical, QStringLiteral("Atenção"));
                return false;
            }
            MsgBox(describe(erro), vbOKOnly);
        }
        return true;
    };
    QString anterior;
    if (!passo([&] {
            if (defaultPrinterName() != impressora) {
                anterior = defaultPrinterName();
                SetDefaultPrinter(impressora);
            }
        }))
        return;
    if (!passo([&] { relatorio.PrintReport(); }))
        return;
    passo([&] {
        if (!anterior.isEmpty())
            SetDefaultPrinter(anterior);
    });
}

void imprimirConferencia() {
    Comanda& comanda = *comandaAtual;
    const QVariant soma = consultarGeral(QStringLiteral("SELECT sum(valor_recebimento) FROM "
                                                        "Tb_Comandas_Recebimentos WHERE (id_comanda = ") +
                                         CStr(comanda.id()) + QStringLiteral(") AND (status = 1)"))
                              .Fields(0)
                              .Value();
    const double pago = IsNull(soma) ? 0 : CDbl(soma);

    // In the store's order: the slip lists the items as they were rung.
    DataControl& itens = itensDaComanda(QStringLiteral("(status = 1)"));
    Dtr_Conferencia& conferencia = Dtr_Conferencia::instance();
    conferencia.DataSource = &itens;

    ReportSection& cabecalho = conferencia.Sections(QStringLiteral("Section2"));
    cabecalho.Controls(QStringLiteral("Label_Nome_Fantasia")).Caption = nomeFantasia;
    cabecalho.Controls(QStringLiteral("Label_Mesa")).Caption =
        Format(comanda.apelido(), QStringLiteral("0000"));
    // The tab's waiter, not whoever is at the terminal.
    cabecalho.Controls(QStringLiteral("Label_Atendente")).Caption =
        UCase(nomeDoColaborador(comanda.colaborador()));
    cabecalho.Controls(QStringLiteral("Label_Hora")).Caption = CStr(comanda.dataCriacao());

    // The legend shows the rate whether the tab pays service or not.
    ReportSection& fim = conferencia.Sections(QStringLiteral("Section5"));
    fim.Controls(QStringLiteral("Label_Legenda_Servico")).Caption =
        QStringLiteral("SERVIÇO (") + CStr(taxaServico) + QStringLiteral("%)");
    const double total = comanda.valorTotal() - pago;
    fim.Controls(QStringLiteral("Label_Servico")).Caption =
        dinheiro(comanda.servico() ? comanda.valorServico() : 0);
    fim.Controls(QStringLiteral("Label_Pago")).Caption = dinheiro(pago);
    fim.Controls(QStringLiteral("Label_Total")).Caption = dinheiro(total);
    fim.Controls(QStringLiteral("Label_Ocupantes")).Caption =
        Format(comanda.ocupantes(), QStringLiteral("#00"));
    // The share per person is cut, never rounded, and goes out as the number's plain text: a whole
    // share has no decimals, unlike every other amount on the slip.
    fim.Controls(QStringLiteral("Label_Total_Ocupantes")).Caption =
        CStr(comanda.ocupantes() == 1 ? total : truncaDecimais(Divide(total, comanda.ocupantes()), 2));
    fim.Controls(QStringLiteral("Label_Tempo_Permanencia")).Caption = tempoDecorrido(comanda.dataCriacao());

    imprimirRelatorio(impressoraConferencia, conferencia);
}
