// The map's refresh reads every open tab once a second on every terminal, and each tab write is an
// Update of one field: both against a store whose closed tabs are never deleted.

#include "backoffice/BackOffice.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"

#include <QApplication>
#include <QMap>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>

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
    conexaoLocal = db; // the tab tables as the program's start makes them
    atualizarBanco();
    Connection connection;
    connection.Open(db);
    connection.Execute(
        QStringLiteral("INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha) VALUES (1, 'ANA', '123')"));
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
    // The upgrade asks for the default printer and may report on the start-up screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    setMsgBoxHook([](const MsgBoxRecord& box) {
        std::fprintf(stderr, "%s\n", qPrintable(box.prompt));
        return vbOK;
    });
    QTemporaryDir dir;
    s_dir = &dir;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    closePooledDatabases();
    return 0;
}
