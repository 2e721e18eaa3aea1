// The map's refresh reads every open tab once a second on every terminal, and each tab write is an
// Update of one field: both against a store whose closed tabs are never deleted.

#include "backoffice/BackOffice.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"

#include <QCoreApplication>
#include <QMap>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
QTemporaryDir* s_dir;

// A store with 30 open tabs among closed ones; made once per size. No index on status: the
// schema has none.
QString storeWithClosedTabs(int closed) {
    static QMap<int, QString> stores;
    if (stores.contains(closed))
        return stores.value(closed);
    const QString db = adoConnectionString(s_dir->filePath(QStringLiteral("store-%1.db").arg(closed)));
    createBackOffice(db);
    Connection connection;
    connection.Open(db);
    connection.Execute(QStringLiteral("INSERT INTO Tb_Colaborador VALUES (1, 'ANA', '123')"));
    connection.Execute(QStringLiteral(
        "CREATE TABLE Tb_Comandas (id_comanda INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, data_criacao "
        "datetime NOT "
        "NULL, status tinyint NOT NULL DEFAULT 0, mesa int NOT NULL, id_colaborador numeric(10,0) NOT NULL "
        "REFERENCES Tb_Colaborador (ID_Colaborador), id_cliente numeric(10,0) NULL REFERENCES CLIENTES "
        "(ID_CODIGO), "
        "identificacao nvarchar(255) NULL, servico bit NOT NULL, valor_servico float NOT NULL, valor_total "
        "float NOT "
        "NULL, ocupantes tinyint NOT NULL DEFAULT 1, data_ultima_movimentacao datetime NOT NULL, bloqueada "
        "bit NOT "
        "NULL DEFAULT 0, cancelada bit NOT NULL DEFAULT 0, quem_cancelou numeric(10,0) NULL REFERENCES "
        "Tb_Colaborador (ID_Colaborador), data_cancelamento datetime NULL, motivo_cancelamento nvarchar(255) "
        "NULL, "
        "faturada bit NOT NULL DEFAULT 0, documento_faturado nvarchar(255) NULL, data_faturamento datetime "
        "NULL)"));
    const QString tabs = QStringLiteral(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, identificacao, servico, "
        "valor_servico, "
        "valor_total, data_ultima_movimentacao) SELECT '2024-03-05 12:00:00', %2, i % 30 + 1, 1, "
        "'MESA: ' || (i % 30 + 1), 1, 1.5, 16.5, '2024-03-05 12:30:00' FROM n");
    if (closed > 0)
        connection.Execute(tabs.arg(closed).arg(0));
    connection.Execute(tabs.arg(30).arg(1));
    stores.insert(closed, db);
    return db;
}

void BM_RefreshOpenTabs(benchmark::State& state) {
    DataControl control(QStringLiteral("Ado_Refresh"));
    control.ConnectionString = storeWithClosedTabs(int(state.range(0)));
    control.RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0");
    for (auto _ : state) {
        control.Refresh();
        benchmark::DoNotOptimize(control.Recordset().RecordCount());
    }
    if (control.Recordset().RecordCount() != 30)
        state.SkipWithError("not 30 open tabs");
}
BENCHMARK(BM_RefreshOpenTabs)->Arg(0)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_UpdateOneField(benchmark::State& state) {
    DataControl control(QStringLiteral("Ado_Mesas"));
    control.ConnectionString = storeWithClosedTabs(int(state.range(0)));
    control.RecordSource = QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 7 AND status <> 0");
    control.Refresh();
    int status = 1;
    for (auto _ : state) {
        status = status == 1 ? 4 : 1;
        control.Recordset().Fields(QStringLiteral("status")).setValue(status);
        control.Recordset().Update();
    }
}
BENCHMARK(BM_UpdateOneField)->Arg(0)->Arg(1000000)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    s_dir = &dir;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    closePooledDatabases();
    return 0;
}
