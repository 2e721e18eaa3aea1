// "Enviar" of a table with 10 pending items of three departments, on the PDF printer folder: the
// whole of imprimirPedidos with its ten tickets; the same with every department's printer empty,
// so that only the store's work per item is left (each item still read, named, routed, marked and
// stored, its ticket refused with a message); and one ticket rendered and written, alone.
// The counter "por_bilhete" is the time per ticket (per item for the store alone).
#include "BenchMain.h"
#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Printers.h"
#include "printing/Dtr_Pedido.h"
#include "printing/rotinasImpressao.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
constexpr int kItens = 10;

QTemporaryDir& pasta() {
    static QTemporaryDir dir;
    return dir;
}

QString impressoras() {
    return pasta().filePath(QStringLiteral("impressoras"));
}

// The printer folders emptied, so that every run numbers its PDFs from the start.
void limparImpressoras() {
    QDir(impressoras()).removeRecursively();
    for (const char* nome : {"PADRAO", "COZINHA", "BAR", "COPA"})
        QDir().mkpath(impressoras() + QLatin1Char('/') + QLatin1String(nome));
    usePdfPrinterFolder(impressoras());
    SetDefaultPrinter(QStringLiteral("PADRAO"));
}

// The demo database with table 5 open and its ten items pending: kitchen, bar and pantry in turn.
QString demo() {
    static QString feito;
    if (!feito.isEmpty())
        return feito;
    limparImpressoras();
    feito = adoConnectionString(pasta().filePath(QStringLiteral("demo.db")));
    createDemoDatabase(feito);
    Connection cn;
    cn.Open(feito);
    cn.Execute(QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, servico, "
                              "valor_servico, valor_total, ocupantes, data_ultima_movimentacao) VALUES "
                              "('2024-03-05 11:00:00', 1, 5, 1, 1, 0, 0, 1, '2024-03-05 11:00:00')"));
    const int codigos[] = {101, 201, 301};
    for (int n = 1; n <= kItens; ++n)
        cn.Execute(
            QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, "
                           "quantidade, valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, "
                           "data_inclusao, status, valor_total, id_comanda_origem, impresso, observacao) "
                           "SELECT 1, %1, CODIGO, DESCRICAO, 1, PRECO, 0, 0, 1, '2024-03-05 11:10:00', 1, "
                           "PRECO, 1, 0, 'SEM GELO' FROM PRODUTOS WHERE CODIGO = %2")
                .arg(n)
                .arg(codigos[(n - 1) % 3]));
    return feito;
}

// The table screen up on table 5, as "Enviar" finds it.
Frm_Mesa& mesa(const QString& conexao) {
    Form::unloadAll();
    comandaAtual.reset();
    conexaoLocal = conexao;
    quantidadeMesas = 20;
    imprimirItens = true;
    idColaborador = 1;
    setMsgBoxHook([](const MsgBoxRecord&) { return vbOK; });
    comandaAtual = std::make_unique<Comanda>();
    comandaAtual->apelido(5);
    return Frm_Mesa::instance();
}

void pendentesDeNovo(Connection& cn) {
    cn.Execute(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = 0 WHERE id_comanda = 1"));
}

void enviar(benchmark::State& state, const QString& impressoraDosSetores) {
    const QString conexao = demo();
    Connection cn;
    cn.Open(conexao);
    cn.Execute(QStringLiteral("UPDATE Tb_Departamento SET Impressora = ") + impressoraDosSetores);
    mesa(conexao);
    for (auto _ : state) {
        state.PauseTiming();
        pendentesDeNovo(cn);
        limparImpressoras();
        state.ResumeTiming();
        imprimirPedidos();
    }
    state.counters["por_bilhete"] = benchmark::Counter(
        double(state.iterations()) * kItens, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    cn.Execute(QStringLiteral("UPDATE Tb_Departamento SET Impressora = Dep_Descricao"));
    setMsgBoxHook(nullptr);
}

void BM_enviar(benchmark::State& state) {
    enviar(state, QStringLiteral("Dep_Descricao"));
}

void BM_enviarSoLoja(benchmark::State& state) {
    enviar(state, QStringLiteral("''"));
}

// One ticket: the report laid out on one item and written as a PDF on the default printer.
void BM_umBilhete(benchmark::State& state) {
    Frm_Mesa& tela = mesa(demo());
    tela.Ado_itens->RecordSource =
        QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = 1) AND (n_item = 1)");
    tela.Ado_itens->Refresh();
    Dtr_Pedido& pedido = Dtr_Pedido::instance();
    pedido.DataSource = tela.Ado_itens;
    SetDefaultPrinter(QStringLiteral("COZINHA"));
    for (auto _ : state) {
        pedido.PrintReport();
        state.PauseTiming();
        limparImpressoras();
        SetDefaultPrinter(QStringLiteral("COZINHA"));
        state.ResumeTiming();
    }
    setMsgBoxHook(nullptr);
}
} // namespace

// Wall time: the waiter waits for the disk as much as for the processor.
BENCHMARK(BM_enviar)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_enviarSoLoja)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_umBilhete)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
