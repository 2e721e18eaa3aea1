#include "store/Comanda.h"

#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "table/rotinasGerais.h"

namespace {
DataControl& adoMesas() {
    return *Frm_Principal::instance().Ado_Mesas;
}
} // namespace

Comanda::~Comanda() {
    // At the end of the process the map may be gone already; there is nothing left to refresh.
    if (!Form::isLoaded<Frm_Principal>())
        return;
    try {
        adoMesas().Refresh();
        adoMesas().Recordset().Close();
    } catch (const RuntimeError& error) {
        // Nothing can leave a destructor: the failure gets the run time's report here.
        try {
            reportUnhandledError(error);
        } catch (const ProcessEnded&) {
        }
    }
}

void Comanda::gravar(const QString& coluna, const QVariant& valor) {
    DataControl& ado = adoMesas();
    ado.Recordset().Fields(coluna).setValue(valor);
    ado.Recordset().Update();
    ado.Refresh();
}

void Comanda::totalizaMesa() {
    Connection cn;
    cn.Open(conexaoLocal);
    Recordset rs =
        cn.Execute(QStringLiteral("SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = ") +
                   QString::number(m_id) + QStringLiteral(" AND status = 1"));
    const QVariant soma = rs.Fields(0).Value();
    // The products are rounded through their text; the charge is cut.
    const double produtos = IsNull(soma) ? 0 : CDbl(Format(soma, QStringLiteral("#0.00")));
    const double taxa =
        truncaDecimais(CDbl(Format(produtos, QStringLiteral("#0.00"))) * taxaServico / 100, 2);
    const double total = m_servico ? produtos + taxa : produtos;
    valorProdutos(produtos);
    valorServico(taxa);
    valorTotal(total);
}

void Comanda::abrirMesa() {
    DataControl& ado = adoMesas();
    ado.RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas");
    ado.Refresh();
    Recordset& rs = ado.Recordset();
    rs.AddNew();
    rs.Fields(QStringLiteral("data_criacao")).setValue(agora());
    rs.Fields(QStringLiteral("status")).setValue(1);
    rs.Fields(QStringLiteral("mesa")).setValue(m_apelido);
    rs.Fields(QStringLiteral("id_colaborador")).setValue(idColaborador);
    rs.Fields(QStringLiteral("id_cliente")).setValue(QVariant());
    rs.Fields(QStringLiteral("identificacao"))
        .setValue(QStringLiteral("MESA: ") + Format(m_apelido, QStringLiteral("00")));
    rs.Fields(QStringLiteral("servico")).setValue(cobrarServico);
    rs.Fields(QStringLiteral("valor_servico")).setValue(0);
    rs.Fields(QStringLiteral("valor_total")).setValue(0);
    rs.Fields(QStringLiteral("ocupantes")).setValue(1);
    rs.Fields(QStringLiteral("data_ultima_movimentacao")).setValue(agora());
    rs.Fields(QStringLiteral("bloqueada")).setValue(0);
    rs.Fields(QStringLiteral("cancelada")).setValue(0);
    rs.Fields(QStringLiteral("quem_cancelou")).setValue(QVariant());
    rs.Fields(QStringLiteral("data_cancelamento")).setValue(QVariant());
    rs.Fields(QStringLiteral("motivo_cancelamento")).setValue(QVariant());
    rs.Fields(QStringLiteral("faturada")).setValue(0);
    rs.Fields(QStringLiteral("documento_faturado")).setValue(QVariant());
    rs.Fields(QStringLiteral("data_faturamento")).setValue(QVariant());
    rs.Update();
    ado.Refresh();
}

void Comanda::carregar() {
    DataControl& ado = adoMesas();
    const QString consulta = QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = ") +
                             QString::number(m_apelido) + QStringLiteral(" AND status <> 0");
    ado.RecordSource = consulta;
    ado.Refresh();
    if (ado.Recordset().RecordCount() == 0) {
        abrirMesa();
        ado.RecordSource = consulta;
        ado.Refresh();
    }
    // With two open rows for the table the first one wins.
    Recordset& rs = ado.Recordset();
    m_id = CInt(rs.Fields(QStringLiteral("id_comanda")).Value());
    m_dataCriacao = CDate(rs.Fields(QStringLiteral("data_criacao")).Value());
    m_status = CInt(rs.Fields(QStringLiteral("status")).Value());
    m_colaborador = CInt(rs.Fields(QStringLiteral("id_colaborador")).Value());
    const QVariant cliente = rs.Fields(QStringLiteral("id_cliente")).Value();
    m_cliente = IsNull(cliente) ? 0 : CInt(cliente);
    const QVariant identificacao = rs.Fields(QStringLiteral("identificacao")).Value();
    m_identificacao = IsNull(identificacao) ? QString() : CStr(identificacao);
    m_servico = CBool(rs.Fields(QStringLiteral("servico")).Value());
    m_valorServico = CDbl(rs.Fields(QStringLiteral("valor_servico")).Value());
    m_valorTotal = CDbl(rs.Fields(QStringLiteral("valor_total")).Value());
    m_ocupantes = CInt(rs.Fields(QStringLiteral("ocupantes")).Value());
    // Read and dropped: the last movement is only ever written.
    CDate(rs.Fields(QStringLiteral("data_ultima_movimentacao")).Value());
    m_bloqueada = CBool(rs.Fields(QStringLiteral("bloqueada")).Value());
}

void Comanda::motivo_cancelamento(const QString& value) {
    m_motivo_cancelamento = value;
    gravar(QStringLiteral("motivo_cancelamento"), value);
}

void Comanda::data_cancelamento(const QDateTime& value) {
    m_data_cancelamento = value;
    gravar(QStringLiteral("data_cancelamento"), value);
}

void Comanda::quem_cancelou(qint16 value) {
    m_quem_cancelou = value;
    gravar(QStringLiteral("quem_cancelou"), value);
}

void Comanda::cancelada(bool value) {
    m_cancelada = value;
    gravar(QStringLiteral("cancelada"), value);
}

void Comanda::bloqueada(bool value) {
    m_bloqueada = value;
    gravar(QStringLiteral("bloqueada"), value);
}

void Comanda::dataCriacao(const QDateTime& value) {
    m_dataCriacao = value;
    gravar(QStringLiteral("data_criacao"), value);
}

void Comanda::dataUltimaMovimentacao(const QDateTime& value) {
    m_dataUltimaMovimentacao = value;
    gravar(QStringLiteral("data_ultima_movimentacao"), value);
}

void Comanda::ocupantes(qint16 value) {
    m_ocupantes = value;
    gravar(QStringLiteral("ocupantes"), value);
}

void Comanda::valorTotal(double value) {
    m_valorTotal = value;
    gravar(QStringLiteral("valor_total"), value);
}

void Comanda::valorServico(double value) {
    m_valorServico = value;
    gravar(QStringLiteral("valor_servico"), value);
}

void Comanda::servico(bool value) {
    m_servico = value;
    gravar(QStringLiteral("servico"), value);
}

void Comanda::identificacao(const QString& value) {
    m_identificacao = value;
    gravar(QStringLiteral("identificacao"), value == QLatin1String("") ? QVariant() : QVariant(value));
}

void Comanda::cliente(qint16 value) {
    m_cliente = value;
    gravar(QStringLiteral("id_cliente"), value);
}

void Comanda::colaborador(qint16 value) {
    m_colaborador = value;
    // The column gets this text and not the number; nothing calls it, and it stays so.
    gravar(QStringLiteral("id_colaborador"), QStringLiteral("mvarcolaborador"));
}

void Comanda::apelido(qint16 value) {
    m_apelido = value;
    carregar();
    gravar(QStringLiteral("mesa"), m_apelido);
}

void Comanda::status(qint16 value) {
    m_status = value;
    gravar(QStringLiteral("status"), value);
}
