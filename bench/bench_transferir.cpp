// A whole table moved to another open tab on a SQLite file like the demo's, as Cmd_Transferir_Click
// does it from the map: the two tests of the tabs, every row renumbered and saved on its own, both
// tabs totalled again. Tables of 10 and of 200 rows; the rows go back and forth between tables 5
// and 6, one move an iteration. "por_linha" is the time of one row.
#include "BancoDeBench.h"
#include "BenchMain.h"
#include "map/Frm_Principal.h"
#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "startup/variaveisGlobais.h"
#include "transfer/Frm_Transferir.h"

#include <QLineEdit>
#include <benchmark/benchmark.h>

namespace {
void BM_transferirMesaInteira(benchmark::State& state) {
    const int itens = static_cast<int>(state.range(0));
    Form::unloadAll();
    conexaoLocal = demoComItens(itens, {6});
    quantidadeMesas = 20;
    taxaServico = 10;
    multiplosAtendentes = true;
    setMsgBoxHook([](const MsgBoxRecord&) { return vbOK; });
    Frm_Principal::instance();
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-numeros"));
    db.setDatabaseName(databaseFileOf(conexaoLocal));
    db.open();
    {
        QSqlQuery q(db);
        bool daCinco = true;
        for (auto _ : state) {
            Frm_Transferir& tela = Frm_Transferir::instance();
            tela.tipo = 1;
            tela.Text_Origem->setText(daCinco ? QStringLiteral("0005") : QStringLiteral("0006"));
            tela.Text_Destino->setText(daCinco ? QStringLiteral("0006") : QStringLiteral("0005"));
            tela.Cmd_Transferir_Click();
            state.PauseTiming();
            QSqlQuery conta(db);
            executarOuParar(conta,
                            QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens WHERE id_comanda = %1")
                                .arg(daCinco ? 2 : 1));
            if (!conta.next() || conta.value(0).toInt() != itens)
                qFatal("the rows did not all arrive");
            // The numbers start again, so that they stay within 16 bits however long the run.
            executarOuParar(q, QStringLiteral("UPDATE Tb_Comandas_Itens SET n_item = 1"));
            daCinco = !daCinco;
            state.ResumeTiming();
        }
    }
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("bench-numeros"));
    setMsgBoxHook(nullptr);
    const double linhas = double(state.iterations()) * itens;
    state.counters["por_linha"] =
        benchmark::Counter(linhas, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_transferirMesaInteira)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
