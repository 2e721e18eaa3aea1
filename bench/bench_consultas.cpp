// Typing in the product picker's filter with 5,000 products: from the filter's change to the grid
// drawn with its result, against the same filter alone on the recordset's client copy.
#include "BenchMain.h"
#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "startup/variaveisGlobais.h"
#include "table/Frm_Produtos.h"

#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

namespace {
const QString kProdutos = QStringLiteral("SELECT P.CODIGO, P.DESCRICAO, E.QD, P.UN, P.PRECO FROM PRODUTOS P "
                                         "INNER JOIN TB_ESTOQUE E ON E.CODIGO = P.CODIGO");
// What a waiter types, one key at a time, and takes back.
const QStringList kTeclas = {QStringLiteral("C"),    QStringLiteral("CE"),   QStringLiteral("CER"),
                             QStringLiteral("CERV"), QStringLiteral("CER"),  QStringLiteral("CE"),
                             QStringLiteral("C"),    QStringLiteral("1234"), QStringLiteral("")};

// The demo bar with 5,000 products in stock; made once.
QString loja() {
    static QTemporaryDir dir;
    static QString conexao;
    if (!conexao.isEmpty())
        return conexao;
    const QString arquivo = dir.filePath(QStringLiteral("produtos.db"));
    conexao = adoConnectionString(arquivo);
    createDemoDatabase(conexao);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-setup"));
        db.setDatabaseName(arquivo);
        db.open();
        QSqlQuery q(db);
        db.transaction();
        const QStringList nomes = {QStringLiteral("CERVEJA"),  QStringLiteral("CHOPP"),
                                   QStringLiteral("X-SALADA"), QStringLiteral("PORÇÃO"),
                                   QStringLiteral("SUCO"),     QStringLiteral("CAIPIRINHA")};
        q.exec(QStringLiteral("SELECT COUNT(*) FROM PRODUTOS"));
        q.next();
        const int existentes = q.value(0).toInt();
        for (int i = existentes; i < 5000; ++i) {
            const int codigo = 10000 + i;
            q.exec(QStringLiteral(
                       "INSERT INTO PRODUTOS (CODIGO, DESCRICAO, UN, PRECO, DEP) VALUES (%1, '%2 %1', "
                       "'UN', %3, 1)")
                       .arg(codigo)
                       .arg(nomes[i % nomes.size()])
                       .arg(5 + i % 50));
            if (!q.exec(QStringLiteral("INSERT INTO TB_ESTOQUE (CODIGO, QD) VALUES (%1, 10)").arg(codigo)))
                qFatal("%s", qPrintable(q.lastError().text()));
        }
        db.commit();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-setup"));
    return conexao;
}

void BM_teclaNoFiltro(benchmark::State& state) {
    Form::unloadAll();
    conexaoLocal = loja();
    buscaInicio = state.range(0) != 0;
    Frm_Produtos& tela = Frm_Produtos::instance();
    tela.Show();
    int i = 0;
    for (auto _ : state) {
        tela.Text_filtro->setText(kTeclas[i++ % kTeclas.size()]);
        tela.Dtg_Produtos->viewport()->repaint();
    }
    state.SetLabel(buscaInicio ? "contains" : "starts with");
    Form::unloadAll();
}

void BM_soOFiltro(benchmark::State& state) {
    DataControl ado(QStringLiteral("Ado_Produtos"));
    ado.ConnectionString = loja();
    ado.RecordSource = kProdutos;
    ado.Refresh();
    const QString forma =
        state.range(0) ? QStringLiteral("DESCRICAO LIKE '%%1%'") : QStringLiteral("DESCRICAO LIKE '%1%'");
    int i = 0;
    for (auto _ : state) {
        const QString tecla = kTeclas[i++ % kTeclas.size()];
        ado.Recordset().setFilter(tecla.isEmpty() ? QString() : forma.arg(tecla));
        benchmark::DoNotOptimize(ado.Recordset().RecordCount());
    }
}
} // namespace

BENCHMARK(BM_soOFiltro)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_teclaNoFiltro)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return rodarBenchmarks(argc, argv);
}
