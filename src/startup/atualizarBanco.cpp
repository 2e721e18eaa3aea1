#include "startup/atualizarBanco.h"

#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "platform/Printers.h"
#include "platform/RuntimeError.h"
#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"
#include "store/tabelas.h"

#include <functional>

namespace {
QString aspas(const QString& nome) {
    return QLatin1Char('\'') + nome + QLatin1Char('\'');
}

// PostgreSQL's catalogue holds the names as the unquoted statements made them: in lower case, in
// the schema the search path finds first (dbo is SQL Server's).
QString minusculas(const QString& nome) {
    return QStringLiteral("lower(") + aspas(nome) + QLatin1Char(')');
}

Equivalente testeDeColuna(const QString& tabela, const QString& coluna) {
    return {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = ") +
                aspas(tabela) + QStringLiteral(" AND COLUMN_NAME = ") + aspas(coluna),
            QStringLiteral("SELECT COUNT(*) FROM pragma_table_info(") + aspas(tabela) +
                QStringLiteral(") WHERE name = ") + aspas(coluna) + QStringLiteral(" COLLATE NOCASE"),
            QStringLiteral(
                "SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_SCHEMA = current_schema() "
                "AND TABLE_NAME = ") +
                minusculas(tabela) + QStringLiteral(" AND COLUMN_NAME = ") + minusculas(coluna)};
}

Equivalente testeDeTabela(const QString& tabela) {
    return {
        QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                       "TABLE_NAME = ") +
            aspas(tabela),
        QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type IN ('table', 'view') AND name = ") +
            aspas(tabela) + QStringLiteral(" COLLATE NOCASE"),
        QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = current_schema() "
                       "AND TABLE_NAME = ") +
            minusculas(tabela)};
}

QString testeDeIndiceSqlite(const QString& tabela, const QString& indice) {
    return QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE type = 'index' AND tbl_name = ") +
           aspas(tabela) + QStringLiteral(" COLLATE NOCASE AND name = ") + aspas(indice) +
           QStringLiteral(" COLLATE NOCASE");
}

// SQLite can't add a key to an existing table: the nearest thing the same test finds by the key's
// name is a unique index of that name.
Equivalente testeDeChave(const QString& tabela, const QString& chave) {
    return {
        QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE TABLE_NAME = ") +
            aspas(tabela) + QStringLiteral(" AND CONSTRAINT_NAME = ") + aspas(chave),
        testeDeIndiceSqlite(tabela, chave),
        QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE TABLE_SCHEMA = "
                       "current_schema() AND TABLE_NAME = ") +
            minusculas(tabela) + QStringLiteral(" AND CONSTRAINT_NAME = ") + minusculas(chave)};
}

// An index of the tab tables, by its name on its table.
Equivalente testeDeIndice(const QString& tabela, const QString& indice) {
    return {QStringLiteral("SELECT COUNT(*) FROM sys.indexes WHERE object_id = OBJECT_ID(") +
                aspas(QStringLiteral("dbo.") + tabela) + QStringLiteral(") AND name = ") + aspas(indice),
            testeDeIndiceSqlite(tabela, indice),
            QStringLiteral(
                "SELECT COUNT(*) FROM pg_indexes WHERE schemaname = current_schema() AND tablename = ") +
                minusculas(tabela) + QStringLiteral(" AND indexname = ") + minusculas(indice)};
}

// PostgreSQL's own bit is a bit string, and it has no tinyint: the back office there declares the
// domain bit_flag (a smallint of 0 or 1).
QString tipoNoPostgres(const QString& tipo) {
    if (tipo == QLatin1String("bit"))
        return QStringLiteral("bit_flag");
    if (tipo == QLatin1String("tinyint"))
        return QStringLiteral("smallint");
    return tipo;
}

QString adicionarColuna(const QString& tabela, const QString& nome, const QString& tipo) {
    return QStringLiteral("ALTER TABLE ") + tabela + QStringLiteral(" ADD ") + nome + QLatin1Char(' ') +
           tipo + QStringLiteral(" NOT NULL DEFAULT 0");
}

// A column that SQL Server and SQLite add with the same statement.
PassoDoBanco coluna(const QString& tabela, const QString& nome, const QString& tipo) {
    const QString alter = adicionarColuna(tabela, nome, tipo);
    return {testeDeColuna(tabela, nome),
            0,
            {{alter, alter, adicionarColuna(tabela, nome, tipoNoPostgres(tipo))}},
            {}};
}

} // namespace

std::vector<PassoDoBanco> passosDoBanco(const QString& impressoraPadrao) {
    const QString vendas = QStringLiteral("Tb_ConVendas");
    const QString colaborador = QStringLiteral("Tb_Colaborador");
    const QString departamento = QStringLiteral("Tb_Departamento");
    const QString bit = QStringLiteral("bit");
    const QString tinyint = QStringLiteral("tinyint");
    const QString impressora =
        QStringLiteral("ALTER TABLE Tb_Departamento ADD Impressora nvarchar(255) NOT NULL "
                       "DEFAULT '") +
        impressoraPadrao + QLatin1Char('\'');
    const QString impressoraNoPostgres =
        QStringLiteral("ALTER TABLE Tb_Departamento ADD Impressora varchar(255) NOT NULL DEFAULT '") +
        impressoraPadrao + QLatin1Char('\'');
    return {
        coluna(vendas, QStringLiteral("bImprimirItens"), bit),
        coluna(vendas, QStringLiteral("bBloquearAposConferencia"), bit),
        coluna(vendas, QStringLiteral("iQuantidadeMesa"), tinyint),
        coluna(vendas, QStringLiteral("iTempoParaOcio"), tinyint),
        coluna(vendas, QStringLiteral("bExibirObservacao"), bit),
        coluna(vendas, QStringLiteral("bMultiplosAtendentes"), bit),
        {testeDeChave(QStringLiteral("CLIENTES"), QStringLiteral("PK_CLIENTES")),
         0,
         {{QStringLiteral(
               "ALTER TABLE CLIENTES ADD CONSTRAINT [PK_CLIENTES] PRIMARY KEY CLUSTERED ([ID_CODIGO] Asc)"),
           QStringLiteral("CREATE UNIQUE INDEX [PK_CLIENTES] ON [CLIENTES] ([ID_CODIGO] ASC)"),
           QStringLiteral("ALTER TABLE CLIENTES ADD CONSTRAINT PK_CLIENTES PRIMARY KEY (ID_CODIGO)")}},
         {}},
        {testeDeChave(colaborador, QStringLiteral("PK_Tb_Colaborador")),
         0,
         {{QStringLiteral("ALTER TABLE Tb_Colaborador ADD CONSTRAINT [PK_Tb_Colaborador] PRIMARY KEY "
                          "CLUSTERED([ID_Colaborador] ASC)"),
           QStringLiteral(
               "CREATE UNIQUE INDEX [PK_Tb_Colaborador] ON [Tb_Colaborador] ([ID_Colaborador] ASC)"),
           QStringLiteral(
               "ALTER TABLE Tb_Colaborador ADD CONSTRAINT PK_Tb_Colaborador PRIMARY KEY (ID_Colaborador)")}},
         {}},
        coluna(colaborador, QStringLiteral("bZarvel"), bit),
        coluna(colaborador, QStringLiteral("bTransferirItem"), bit),
        coluna(colaborador, QStringLiteral("bTransferirMesa"), bit),
        coluna(colaborador, QStringLiteral("bReimprimir"), bit),
        coluna(colaborador, QStringLiteral("bConfiguracoes"), bit),
        coluna(colaborador, QStringLiteral("bTaxa"), bit),
        coluna(colaborador, QStringLiteral("bCancelar"), bit),
        coluna(colaborador, QStringLiteral("bExcluir"), bit),
        // The department printer: the column test runs only where the back office has departments.
        {testeDeTabela(departamento),
         1,
         {},
         {{testeDeColuna(departamento, QStringLiteral("Impressora")),
           0,
           {{impressora, impressora, impressoraNoPostgres}},
           {}}}},
        {testeDeTabela(QStringLiteral("Tb_Comandas")), 0, comandosTbComandas(), {}},
        {testeDeTabela(QStringLiteral("Tb_Comandas_Itens")), 0, comandosTbComandasItens(), {}},
        {testeDeTabela(QStringLiteral("Tb_Comandas_Recebimentos")), 0, comandosTbComandasRecebimentos(), {}},
        // The hot queries of the tab tables: the open tabs (the map's tick, a table's own tab), a
        // few among the whole history, and the items and payments of one tab. The statements stay
        // as they are; only the engine's plan changes.
        {testeDeIndice(QStringLiteral("Tb_Comandas"), QStringLiteral("IX_Tb_Comandas_abertas")),
         0,
         {{QStringLiteral("CREATE NONCLUSTERED INDEX [IX_Tb_Comandas_abertas] ON [dbo].[Tb_Comandas] ([mesa] "
                          "ASC) WHERE [status] <> 0"),
           QStringLiteral(
               "CREATE INDEX [IX_Tb_Comandas_abertas] ON [Tb_Comandas] ([mesa] ASC) WHERE [status] <> 0"),
           QStringLiteral("CREATE INDEX IX_Tb_Comandas_abertas ON Tb_Comandas (mesa) WHERE status <> 0")}},
         {}},
        {testeDeIndice(QStringLiteral("Tb_Comandas_Itens"),
                       QStringLiteral("IX_Tb_Comandas_Itens_id_comanda")),
         0,
         {{QStringLiteral("CREATE NONCLUSTERED INDEX [IX_Tb_Comandas_Itens_id_comanda] ON "
                          "[dbo].[Tb_Comandas_Itens] ([id_comanda] ASC)"),
           QStringLiteral(
               "CREATE INDEX [IX_Tb_Comandas_Itens_id_comanda] ON [Tb_Comandas_Itens] ([id_comanda] ASC)"),
           QStringLiteral("CREATE INDEX IX_Tb_Comandas_Itens_id_comanda ON Tb_Comandas_Itens (id_comanda)")}},
         {}},
        {testeDeIndice(QStringLiteral("Tb_Comandas_Recebimentos"),
                       QStringLiteral("IX_Tb_Comandas_Recebimentos_id_comanda")),
         0,
         {{QStringLiteral("CREATE NONCLUSTERED INDEX [IX_Tb_Comandas_Recebimentos_id_comanda] ON "
                          "[dbo].[Tb_Comandas_Recebimentos] ([id_comanda] ASC)"),
           QStringLiteral(
               "CREATE INDEX [IX_Tb_Comandas_Recebimentos_id_comanda] ON [Tb_Comandas_Recebimentos] "
               "([id_comanda] ASC)"),
           QStringLiteral("CREATE INDEX IX_Tb_Comandas_Recebimentos_id_comanda ON Tb_Comandas_Recebimentos "
                          "(id_comanda)")}},
         {}},
    };
}

namespace {
// Runs one statement under the routine's handler: a lost connection ends the process, any other
// error is one box and the upgrade goes on with the next statement.
bool tentar(const std::function<void()>& comando) {
    try {
        comando();
        return true;
    } catch (const RuntimeError& erro) {
        relatarFalha(erro);
        return false;
    }
}

struct Execucao {
    Connection cn;
    Recordset rs; // set again by each test; a failed test leaves the previous one
    bool temTeste = false;

    const QString& texto(const Equivalente& equivalente) const { return equivalente.texto(cn.dialect()); }

    void executar(const PassoDoBanco& passo) {
        tentar([&] {
            rs = cn.Execute(texto(passo.teste));
            temTeste = true;
        });
        // When the comparison itself fails, resuming at the next statement enters the step.
        bool cumpre = true;
        tentar([&] {
            if (!temTeste)
                raiseError(vbErr::ObjectNotSet);
            cumpre = rs.Fields(0).Value().toLongLong() == passo.esperado;
        });
        if (!cumpre)
            return;
        for (const Equivalente& comando : passo.comandos)
            tentar([&] { cn.Execute(texto(comando)); });
        for (const PassoDoBanco& interno : passo.dentro)
            executar(interno);
    }
};
} // namespace

void atualizarBanco() {
    Execucao execucao;
    tentar([&] {
        execucao.cn.ConnectionTimeout = 5;
        execucao.cn.Open(conexaoLocal);
    });
    for (const PassoDoBanco& passo : passosDoBanco(defaultPrinterName()))
        execucao.executar(passo);
}
