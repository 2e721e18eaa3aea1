// The hot paths of a waiter against the age of the store, on SQLite: the demo database with 0,
// 100,000 or 1,000,000 closed tabs of five items and one payment each, plus 30 open tabs (tables 1
// to 30, also of five items and one payment each). One map tick; card_Click to the table screen ready on
// a free table; one Enter in Text_Codigo; totalizaMesa; calculaTotais of the payment screen.
// Each store is made once per run, upgraded as a start would, in the run's temporary folder.
#include "BancoDeBench.h"
#include "BenchMain.h"
#include "MesaPeloMapa.h"
#include "map/Frm_Principal.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "settlement/Frm_Recebimento.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>
#include <memory>

namespace {
constexpr int kMesaLivre = 35;
constexpr int kMesaAberta = 5;

// The statements that fill a store, every table in one statement, in one transaction. The program
// holds tab and item ids as 16-bit numbers, so the history takes the negative ids: the open tabs
// (ids 1 to 30), their rows and whatever the waiter adds stay in range however old the store is.
QStringList historico(int fechadas) {
    const QString comandas = QStringLiteral(
        "INSERT INTO Tb_Comandas (id_comanda, data_criacao, status, mesa, id_colaborador, identificacao, "
        "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao) WITH RECURSIVE n(i) AS "
        "(SELECT 1 WHERE %1 > 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1) SELECT %2, %3, %4, %5, 1, "
        "'MESA: ' || substr('0' || %5, -2), 1, 9.25, 101.75, 2, %3 FROM n");
    const QString itens = QStringLiteral(
        "INSERT INTO Tb_Comandas_Itens (id_comanda_item, id_comanda, n_item, codigo, descricao, quantidade, "
        "valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, status, valor_total, "
        "id_comanda_origem, impresso) SELECT %1, c.id_comanda, k.n, 101, 'X-SALADA', 1, 18.5, 0, 0, 1, "
        "c.data_criacao, 1, 18.5, c.id_comanda, 1 FROM Tb_Comandas c, (SELECT 1 AS n UNION ALL SELECT 2 "
        "UNION ALL SELECT 3 UNION ALL SELECT 4 UNION ALL SELECT 5) k WHERE c.id_comanda %2 0 ORDER BY "
        "c.id_comanda DESC, k.n");
    const QString pagamentos = QStringLiteral(
        "INSERT INTO Tb_Comandas_Recebimentos (id_comanda_recebimento, id_comanda, id_colaborador, "
        "finalizadora, valor_recebimento, data, observacao, status) SELECT %1, id_comanda, 1, 'DINHEIRO', "
        "101.75, data_criacao, '', 1 FROM Tb_Comandas WHERE id_comanda %2 0 ORDER BY id_comanda DESC");
    return {comandas.arg(fechadas).arg(QStringLiteral("-i"), QStringLiteral("'2024-03-04 11:00:00'"),
                                       QStringLiteral("0"), QStringLiteral("(i % 40 + 1)")),
            comandas.arg(30).arg(QStringLiteral("i"), QStringLiteral("'2024-03-05 11:59:30'"),
                                 QStringLiteral("1"), QStringLiteral("i")),
            itens.arg(QStringLiteral("c.id_comanda * 5 - k.n + 1"), QStringLiteral("<")),
            itens.arg(QStringLiteral("NULL"), QStringLiteral(">")),
            pagamentos.arg(QStringLiteral("id_comanda"), QStringLiteral("<")),
            pagamentos.arg(QStringLiteral("NULL"), QStringLiteral(">"))};
}

// The demo database with its history; made once per size, returns its connection string.
QString loja(int fechadas) {
    static std::map<int, QString> feitas;
    if (auto it = feitas.find(fechadas); it != feitas.end())
        return it->second;
    const QString arquivo = pastaDosBancos().filePath(QStringLiteral("historico-%1.db").arg(fechadas));
    const QString conexao = adoConnectionString(arquivo);
    createDemoDatabase(conexao);
    closePooledDatabases();
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-setup"));
        db.setDatabaseName(arquivo);
        if (!db.open())
            qFatal("%s", qPrintable(db.lastError().text()));
        QSqlQuery q(db);
        db.transaction();
        for (const QString& sql : historico(fechadas))
            executarOuParar(q, sql);
        db.commit();
        executarOuParar(q, QStringLiteral("ANALYZE"));
        q.finish();
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-setup"));
    // A start on the filled store: the upgrade finds what an older database lacks.
    conexaoLocal = conexao;
    atualizarBanco();
    feitas[fechadas] = conexao;
    return conexao;
}

void configurar(int fechadas) {
    Form::unloadAll();
    comandaAtual.reset();
    conexaoLocal = loja(fechadas);
    quantidadeMesas = 40;
    taxaServico = 10;
    tempoParaOcio = 10;
    imprimirItens = true;
    exibirObservacao = false;
    multiplosAtendentes = true;
    idColaborador = 1;
    setAgora(QDateTime(QDate(2024, 3, 5), QTime(12, 0, 0)));
}

// A plain connection beside the program's, to put the store back between iterations.
class Bastidor {
public:
    explicit Bastidor(const QString& conexao) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kNome);
        db.setDatabaseName(databaseFileOf(conexao));
        db.open();
        m_q = std::make_unique<QSqlQuery>(db);
    }
    ~Bastidor() {
        m_q.reset();
        QSqlDatabase::removeDatabase(kNome);
    }
    void executar(const QString& sql) { executarOuParar(*m_q, sql); }
    qlonglong valor(const QString& sql) {
        executar(sql);
        m_q->next();
        const qlonglong v = m_q->value(0).toLongLong();
        m_q->finish();
        return v;
    }

private:
    static inline const QString kNome = QStringLiteral("bench-bastidor");
    std::unique_ptr<QSqlQuery> m_q;
};

void BM_tick(benchmark::State& state) {
    configurar(static_cast<int>(state.range(0)));
    Frm_Principal& mapa = Frm_Principal::instance();
    for (auto _ : state)
        mapa.mesasRefresh();
}

// From card_Click on a free table (password and question answered) to the table screen up, left
// again with Escape; the new tab is taken away each time so that the table stays free.
void BM_abrirMesaLivre(benchmark::State& state) {
    configurar(static_cast<int>(state.range(0)));
    Frm_Principal& mapa = Frm_Principal::instance();
    Bastidor bastidor(conexaoLocal);
    const qlonglong ultima = bastidor.valor(QStringLiteral("SELECT MAX(id_comanda) FROM Tb_Comandas"));
    setMsgBoxHook([](const MsgBoxRecord&) { return vbYes; });
    for (auto _ : state) {
        abrirMesaPeloMapa(state, kMesaLivre - 1);
        state.PauseTiming();
        if (bastidor.valor(
                QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE id_comanda > %1 AND mesa = %2")
                    .arg(ultima)
                    .arg(kMesaLivre)) != 1)
            qFatal("no tab was opened");
        bastidor.executar(QStringLiteral("DELETE FROM Tb_Comandas WHERE id_comanda > %1").arg(ultima));
        mapa.mesasRefresh();
        state.ResumeTiming();
    }
    setMsgBoxHook(nullptr);
}

Comanda& comandaDaMesaAberta() {
    comandaAtual = std::make_unique<Comanda>();
    comandaAtual->apelido(kMesaAberta);
    return *comandaAtual;
}

// One code typed and Enter, the item taken away again so that the tab keeps its five.
void BM_enterNoCodigo(benchmark::State& state) {
    configurar(static_cast<int>(state.range(0)));
    comandaDaMesaAberta();
    Frm_Mesa& tela = Frm_Mesa::instance();
    Bastidor bastidor(conexaoLocal);
    for (auto _ : state) {
        tela.Text_Codigo->setText(QStringLiteral("101"));
        tecla(tela.Text_Codigo, Qt::Key_Return, QStringLiteral("\r"));
        state.PauseTiming();
        if (tela.List_Itens->topLevelItemCount() != 6)
            qFatal("the item did not reach the list");
        bastidor.executar(QStringLiteral(
            "DELETE FROM Tb_Comandas_Itens WHERE id_comanda_item = (SELECT MAX(id_comanda_item) FROM "
            "Tb_Comandas_Itens)"));
        delete tela.List_Itens->takeTopLevelItem(tela.List_Itens->topLevelItemCount() - 1);
        state.ResumeTiming();
    }
}

void BM_totalizaMesa(benchmark::State& state) {
    configurar(static_cast<int>(state.range(0)));
    Comanda& comanda = comandaDaMesaAberta();
    for (auto _ : state)
        comanda.totalizaMesa();
}

void BM_calculaTotais(benchmark::State& state) {
    configurar(static_cast<int>(state.range(0)));
    comandaDaMesaAberta();
    Frm_Recebimento& tela = Frm_Recebimento::instance();
    for (auto _ : state)
        tela.calculaTotais();
    tela.Unload();
}

const std::vector<int64_t> kFechadas = {0, 100000, 1000000};
} // namespace

BENCHMARK(BM_tick)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_abrirMesaLivre)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_enterNoCodigo)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_totalizaMesa)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_calculaTotais)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
