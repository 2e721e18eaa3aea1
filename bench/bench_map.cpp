// One tick of the map (mesasRefresh) with 30 tables open among many closed tabs, against the bare
// query it runs, on SQLite.
#include "BancoDeBench.h"
#include "BenchMain.h"
#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/Form.h"
#include "startup/variaveisGlobais.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <map>

namespace {
const QString kConsulta = QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0");

// A store with `fechadas` closed tabs and 30 open ones (idle ones when `ociosas`), made once per
// size; returns its connection string.
QString loja(int fechadas, bool ociosas) {
    static std::map<std::pair<int, bool>, QString> feitas;
    const auto chave = std::make_pair(fechadas, ociosas);
    if (auto it = feitas.find(chave); it != feitas.end())
        return it->second;
    const QString arquivo =
        pastaDosBancos().filePath(QStringLiteral("loja-%1-%2.db").arg(fechadas).arg(ociosas));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-setup"));
        db.setDatabaseName(arquivo);
        if (!db.open())
            qFatal("%s", qPrintable(db.lastError().text()));
        QSqlQuery q(db);
        executarOuParar(
            q, QStringLiteral(
                   "CREATE TABLE Tb_Comandas (id_comanda INTEGER PRIMARY KEY AUTOINCREMENT, "
                   "data_criacao DATETIME NOT NULL, status TINYINT NOT NULL DEFAULT 0, mesa INT NOT NULL, "
                   "id_colaborador NUMERIC(10,0) NOT NULL, id_cliente NUMERIC(10,0) NULL, "
                   "identificacao NVARCHAR(255) NULL, servico BIT NOT NULL, valor_servico FLOAT NOT NULL, "
                   "valor_total FLOAT NOT NULL, ocupantes TINYINT NOT NULL DEFAULT 1, "
                   "data_ultima_movimentacao DATETIME NOT NULL, bloqueada BIT NOT NULL DEFAULT 0, "
                   "cancelada BIT NOT NULL DEFAULT 0, quem_cancelou NUMERIC(10,0) NULL, "
                   "data_cancelamento DATETIME NULL, motivo_cancelamento NVARCHAR(255) NULL, "
                   "faturada BIT NOT NULL DEFAULT 0, documento_faturado NVARCHAR(255) NULL, "
                   "data_faturamento DATETIME NULL)"));
        db.transaction();
        q.prepare(
            QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, "
                           "identificacao, servico, valor_servico, valor_total, data_ultima_movimentacao) "
                           "VALUES ('2024-03-05 11:00:00', ?, ?, 1, ?, 0, 0, ?, ?)"));
        const auto inserir = [&q](int status, int mesa, const QString& movimento) {
            q.addBindValue(status);
            q.addBindValue(mesa);
            q.addBindValue(QStringLiteral("MESA: %1").arg(mesa, 2, 10, QLatin1Char('0')));
            q.addBindValue(12.5 * mesa);
            q.addBindValue(movimento);
            if (!q.exec())
                qFatal("%s", qPrintable(q.lastError().text()));
        };
        for (int i = 0; i < fechadas; ++i)
            inserir(0, i % 30 + 1, QStringLiteral("2024-03-05 11:30:00"));
        // The open tabs: recent and in codes 1 to 3, or idle, which every tick writes again.
        for (int mesa = 1; mesa <= 30; ++mesa)
            inserir(ociosas ? 4 : mesa % 3 + 1, mesa,
                    ociosas ? QStringLiteral("2024-03-05 11:00:00") : QStringLiteral("2024-03-05 11:59:30"));
        db.commit();
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-setup"));
    const QString conexao =
        QStringLiteral("Provider=SQLNCLI;Server=%1;Database=Norvik;Uid=sa;Pwd=;").arg(arquivo);
    feitas[chave] = conexao;
    return conexao;
}

Frm_Principal& mapaSobre(const QString& conexao) {
    Form::unloadAll();
    conexaoLocal = conexao;
    quantidadeMesas = 30;
    tempoParaOcio = 10;
    setAgora(QDateTime(QDate(2024, 3, 5), QTime(12, 0, 0)));
    return Frm_Principal::instance();
}

void BM_tick(benchmark::State& state) {
    Frm_Principal& mapa = mapaSobre(loja(static_cast<int>(state.range(0)), state.range(1) != 0));
    for (auto _ : state)
        mapa.mesasRefresh();
    state.SetLabel(state.range(1) ? "30 idle, rewritten" : "30 open");
}

// The query alone, as the data layer runs it into a client-side copy.
void BM_consultaNaCamadaDeDados(benchmark::State& state) {
    const QString conexao = loja(static_cast<int>(state.range(0)), false);
    for (auto _ : state) {
        Recordset rs = executeStatement(conexao, kConsulta);
        benchmark::DoNotOptimize(rs.RecordCount());
    }
}

// The query alone on a plain QtSql connection, reading every column of every row.
void BM_consultaNua(benchmark::State& state) {
    const QString conexao = loja(static_cast<int>(state.range(0)), false);
    const QString arquivo = conexao.section(QStringLiteral("Server="), 1).section(QLatin1Char(';'), 0, 0);
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-nua"));
    db.setDatabaseName(arquivo);
    db.open();
    {
        QSqlQuery q(db);
        for (auto _ : state) {
            q.exec(kConsulta);
            int linhas = 0;
            while (q.next()) {
                for (int c = 0; c < 20; ++c)
                    benchmark::DoNotOptimize(q.value(c));
                ++linhas;
            }
            benchmark::DoNotOptimize(linhas);
        }
    }
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("bench-nua"));
}

const std::vector<int64_t> kFechadas = {0, 10000, 1000000};
} // namespace

BENCHMARK(BM_consultaNua)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_consultaNaCamadaDeDados)->ArgsProduct({kFechadas})->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_tick)->ArgsProduct({kFechadas, {0, 1}})->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
