#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>

// The write-through mirror of one open tab: the open row of Tb_Comandas for one table.
// A read gives the field in memory and never touches the database; a write changes the field and
// at once the same column of the current row of the map's Ado_Mesas, saves the row and re-runs the
// query. The object keeps no recordset of its own, so only one may be live: comandaAtual.
//
// Writing apelido is what loads (or opens) the row, so it is the first thing done to a new object.
// Every other write assumes Ado_Mesas is positioned on this tab's row.
class Comanda {
public:
    Comanda() = default;
    // Re-runs Ado_Mesas' query and closes its recordset.
    ~Comanda();
    Comanda(const Comanda&) = delete;
    Comanda& operator=(const Comanda&) = delete;

    // Sums the active items on a connection of its own and writes valorProdutos, valorServico and
    // valorTotal.
    void totalizaMesa();
    // Inserts a new open row for apelido; sets no field in memory.
    void abrirMesa();
    // Loads the open row of apelido, opening one when there is none.
    void carregar();

    void motivo_cancelamento(const QString& value);
    QString motivo_cancelamento() const { return m_motivo_cancelamento; }
    void data_cancelamento(const QDateTime& value);
    QDateTime data_cancelamento() const { return m_data_cancelamento; }
    void quem_cancelou(qint16 value);
    qint16 quem_cancelou() const { return m_quem_cancelou; }
    void cancelada(bool value);
    bool cancelada() const { return m_cancelada; }
    void bloqueada(bool value);
    bool bloqueada() const { return m_bloqueada; }
    void dataCriacao(const QDateTime& value);
    QDateTime dataCriacao() const { return m_dataCriacao; }
    void dataUltimaMovimentacao(const QDateTime& value);
    QDateTime dataUltimaMovimentacao() const { return m_dataUltimaMovimentacao; }
    void ocupantes(qint16 value);
    qint16 ocupantes() const { return m_ocupantes; }
    void valorTotal(double value);
    double valorTotal() const { return m_valorTotal; }
    // Memory only: the sum of the active items, good after totalizaMesa.
    void valorProdutos(double value) { m_valorProdutos = value; }
    double valorProdutos() const { return m_valorProdutos; }
    void valorServico(double value);
    double valorServico() const { return m_valorServico; }
    void servico(bool value);
    bool servico() const { return m_servico; }
    // "" is written as Null.
    void identificacao(const QString& value);
    QString identificacao() const { return m_identificacao; }
    // 0 is written as 0, not Null.
    void cliente(qint16 value);
    qint16 cliente() const { return m_cliente; }
    void colaborador(qint16 value);
    qint16 colaborador() const { return m_colaborador; }
    // Points the object at table value: loads its open row (opening one), then writes mesa.
    void apelido(qint16 value);
    qint16 apelido() const { return m_apelido; }
    void status(qint16 value);
    qint16 status() const { return m_status; }
    // Memory only.
    void id(qint16 value) { m_id = value; }
    qint16 id() const { return m_id; }

private:
    // Sets the column on Ado_Mesas' current row, saves the row and re-runs the query.
    static void gravar(const QString& coluna, const QVariant& valor);

    qint16 m_id = 0;
    qint16 m_status = 0;
    qint16 m_apelido = 0;
    qint16 m_colaborador = 0;
    qint16 m_cliente = 0;
    QString m_identificacao;
    bool m_servico = false;
    double m_valorServico = 0;
    double m_valorTotal = 0;
    double m_valorProdutos = 0;
    qint16 m_ocupantes = 0;
    QDateTime m_dataUltimaMovimentacao;
    QDateTime m_dataCriacao;
    bool m_bloqueada = false;
    bool m_cancelada = false;
    qint16 m_quem_cancelou = 0;
    QDateTime m_data_cancelamento;
    QString m_motivo_cancelamento;
};
