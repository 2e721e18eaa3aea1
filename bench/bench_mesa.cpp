// The keyboard path of the table screen on a SQLite file like the demo's: one Enter in Text_Codigo
// with a known code (the product search, the item stored, its row listed, the totals written and
// shown) against the same statements run bare through QtSql; and the time from the map's
// card_Click to the table screen ready for a code. On an empty tab and on a tab of 200 items.
// MOSTRAR_SQL=1 prints what one Enter sends, which the bare run repeats.
#include "BancoDeBench.h"
#include "BenchMain.h"
#include "MesaPeloMapa.h"
#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/Connection.h"
#include "platform/Form.h"
#include "platform/MsgBox.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <map>

namespace {
void fatal(const QSqlQuery& q) {
    qFatal("%s: %s", qPrintable(q.lastQuery()), qPrintable(q.lastError().text()));
}

void configurar(const QString& conexao) {
    Form::unloadAll();
    comandaAtual.reset();
    conexaoLocal = conexao;
    quantidadeMesas = 20;
    taxaServico = 10;
    imprimirItens = true;
    exibirObservacao = false;
    idColaborador = 1;
}

void enter(QWidget* w) {
    tecla(w, Qt::Key_Return, QStringLiteral("\r"));
}

// What an Enter adds is deleted again between iterations, so the tab and the table keep their
// size, and the events it posted (the hidden picker's deletion among them) are handled, as the
// event loop would between two keys.
void desfazerItem(Frm_Mesa& tela, QSqlQuery& q) {
    if (!q.exec(QStringLiteral("DELETE FROM Tb_Comandas_Itens WHERE id_comanda_item = "
                               "(SELECT MAX(id_comanda_item) FROM Tb_Comandas_Itens)")))
        fatal(q);
    delete tela.List_Itens->takeTopLevelItem(tela.List_Itens->topLevelItemCount() - 1);
}

QSqlDatabase bruta(const QString& conexao, const QString& nome) {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nome);
    db.setDatabaseName(databaseFileOf(conexao));
    db.open();
    return db;
}

void BM_enterNoCodigo(benchmark::State& state) {
    const QString conexao = demoComItens(static_cast<int>(state.range(0)));
    configurar(conexao);
    comandaAtual = std::make_unique<Comanda>();
    comandaAtual->apelido(5);
    Frm_Mesa& tela = Frm_Mesa::instance();
    {
        QSqlDatabase db = bruta(conexao, QStringLiteral("bench-desfazer"));
        QSqlQuery q(db);
        if (qEnvironmentVariableIsSet("MOSTRAR_SQL"))
            setStatementObserver([](const QString& sql) { qInfo("%s", qPrintable(sql)); });
        for (auto _ : state) {
            tela.Text_Codigo->setText(QStringLiteral("101"));
            enter(tela.Text_Codigo);
            state.PauseTiming();
            if (tela.List_Itens->topLevelItemCount() != state.range(0) + 1)
                qFatal("the item did not reach the list");
            desfazerItem(tela, q);
            QCoreApplication::processEvents();
            state.ResumeTiming();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-desfazer"));
}

// The statements of one Enter, in the order the screen sends them, straight through QtSql on one
// connection, every row of every SELECT read.
void BM_enterComandosNus(benchmark::State& state) {
    const QString conexao = demoComItens(static_cast<int>(state.range(0)));
    {
        QSqlDatabase db = bruta(conexao, QStringLiteral("bench-nua"));
        QSqlQuery q(db);
        q.exec(QStringLiteral("SELECT id_comanda FROM Tb_Comandas WHERE mesa = 5 AND status <> 0"));
        q.next();
        const QString id = q.value(0).toString();
        const auto ler = [&q](const QString& sql) {
            if (!q.exec(sql))
                fatal(q);
            const int colunas = q.record().count();
            while (q.next())
                for (int c = 0; c < colunas; ++c)
                    benchmark::DoNotOptimize(q.value(c));
        };
        const auto escrever = [&q](const QString& sql, const QVariantList& valores) {
            q.prepare(sql);
            for (const QVariant& v : valores)
                q.addBindValue(v);
            if (!q.exec())
                fatal(q);
        };
        const QString itens =
            QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE (id_comanda = %1) AND (STATUS = 1)")
                .arg(id);
        const QString aba = QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 5 AND status <> 0");
        const QString agora = QStringLiteral("2024-03-05 12:00:00");
        for (auto _ : state) {
            ler(QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P INNER JOIN "
                               "TB_ESTOQUE E ON E.CODIGO = P.CODIGO"));
            ler(itens);
            escrever(
                QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, "
                               "quantidade, valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, "
                               "status, data_inclusao, valor_total, observacao, impresso, id_comanda_origem) "
                               "VALUES (?, ?, ?, ?, ?, ?, 0, 0, 1, 1, ?, ?, '', 0, ?)"),
                {id, qlonglong(state.range(0) + 1), 101, QStringLiteral("X-SALADA"), 1.0, 18.5, agora, 18.5,
                 id});
            ler(QStringLiteral("SELECT * FROM Tb_Comandas_Itens WHERE id_comanda_item = %1")
                    .arg(q.lastInsertId().toInt()));
            ler(itens);
            // The tab's moment, products, service and total, each written and read back.
            for (const char* coluna : {"data_ultima_movimentacao", "valor_servico", "valor_total"}) {
                escrever(QStringLiteral("UPDATE Tb_Comandas SET %1 = ? WHERE id_comanda = ? AND %1 = ?")
                             .arg(QLatin1String(coluna)),
                         {coluna[0] == 'd' ? QVariant(agora) : QVariant(7.15), id, 0});
                ler(aba);
                if (coluna[0] == 'd')
                    ler(QStringLiteral(
                            "SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = %1 AND "
                            "status = 1")
                            .arg(id));
            }
            state.PauseTiming();
            escrever(QStringLiteral("DELETE FROM Tb_Comandas_Itens WHERE id_comanda_item = "
                                    "(SELECT MAX(id_comanda_item) FROM Tb_Comandas_Itens)"),
                     {});
            state.ResumeTiming();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-nua"));
}

// From the map's card_Click (prompt answered) to the table screen up with its items listed,
// left again with Escape; the tab goes back to occupied each time.
void BM_abrirMesa(benchmark::State& state) {
    configurar(demoComItens(static_cast<int>(state.range(0))));
    Frm_Principal::instance(); // the map is up before the clock starts
    setMsgBoxHook([](const MsgBoxRecord&) { return vbYes; });
    for (auto _ : state)
        abrirMesaPeloMapa(state, 4);
    setMsgBoxHook(nullptr);
}
} // namespace

BENCHMARK(BM_enterComandosNus)->Arg(0)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_enterNoCodigo)->Arg(0)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_abrirMesa)->Arg(0)->Arg(200)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
