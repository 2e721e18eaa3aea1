#include "startup/atualizarBanco.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
// The upgrade as the SQL Server receives it, one line per statement in the order sent: each test
// with the count that lets its step run, and the statements of a step inside another indented.
QStringList textosSqlServer(const std::vector<PassoDoBanco>& passos, const QString& recuo = QString()) {
    QStringList linhas;
    for (const PassoDoBanco& passo : passos) {
        linhas << recuo + passo.teste.sqlServer + QStringLiteral(" = %1").arg(passo.esperado);
        for (const Equivalente& comando : passo.comandos)
            linhas << recuo + comando.sqlServer;
        linhas << textosSqlServer(passo.dentro, recuo + QStringLiteral("  "));
    }
    return linhas;
}

QString testeDeColuna(const QString& tabela, const QString& coluna) {
    return QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = '%1' AND "
                          "COLUMN_NAME = '%2' = 0")
        .arg(tabela, coluna);
}

QString testeDeTabela(const QString& tabela, int esperado) {
    return QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                          "TABLE_NAME = '%1' = %2")
        .arg(tabela)
        .arg(esperado);
}

QStringList colunas(const QString& tabela, const QStringList& nomesETipos) {
    QStringList linhas;
    for (const QString& nomeETipo : nomesETipos) {
        const QString nome = nomeETipo.section(QLatin1Char(' '), 0, 0);
        linhas << testeDeColuna(tabela, nome)
               << QStringLiteral("ALTER TABLE %1 ADD %2 NOT NULL DEFAULT 0").arg(tabela, nomeETipo);
    }
    return linhas;
}

const QStringList tabelasDaComanda = {
    QStringLiteral(
        "CREATE TABLE [dbo].[Tb_Comandas]([id_comanda] [int] IDENTITY(1,1) NOT NULL,[data_criacao] "
        "[datetime] NOT NULL,[status] [tinyint] NOT NULL DEFAULT 0,[mesa] [int] NOT NULL,[id_colaborador] "
        "[numeric](10, 0) NOT NULL,[id_cliente] [numeric](10, 0) NULL,[identificacao] [nvarchar](255) "
        "NULL,[servico] [bit] NOT NULL,[valor_servico] [float] NOT NULL,[valor_total] [float] NOT "
        "NULL,[ocupantes] [tinyint] NOT NULL DEFAULT 1,[data_ultima_movimentacao] [datetime] NOT "
        "NULL,[bloqueada] [bit] NOT NULL DEFAULT 0,[cancelada] [bit] NOT NULL DEFAULT 0, [quem_cancelou] "
        "[numeric](10, 0) NULL,[data_cancelamento] [datetime] NULL,[motivo_cancelamento] [nvarchar](255) "
        "NULL,[faturada][bit] NOT NULL DEFAULT 0,[documento_faturado][NVARCHAR](255) "
        "NULL,[data_faturamento][datetime] NULL)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] ADD CONSTRAINT [PK_Tb_Comandas] PRIMARY KEY CLUSTERED "
                   "([id_comanda] Asc)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_CLIENTES] "
                   "FOREIGN KEY([id_cliente]) REFERENCES [dbo].[CLIENTES] ([ID_CODIGO])"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador] FOREIGN "
        "KEY([id_colaborador]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1] FOREIGN "
        "KEY([quem_cancelou]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_CLIENTES]"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador]"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1]"),
    QStringLiteral(
        "CREATE TABLE [dbo].[Tb_Comandas_Itens]([id_comanda_item] [int] IDENTITY(1,1) NOT NULL,[id_comanda] "
        "[int] NOT NULL,[n_item] [int] NOT NULL,[codigo] [float] NOT NULL,[descricao] [nvarchar](30) NOT "
        "NULL,[quantidade] [float] NOT NULL,[valor_unitario] [float] NOT NULL,[valor_desconto] [float] NOT "
        "NULL,[valor_acrescimo] [float] NOT NULL,[quem_incluiu] [numeric](10, 0) NOT NULL,[data_inclusao] "
        "[datetime] NOT NULL,[quem_excluiu] [numeric](10, 0) NULL,[data_exclusao] [datetime] NULL,[status] "
        "[tinyint] NOT NULL,[valor_total] [float] NOT NULL,[observacao] [nvarchar](255) NULL,[impresso] "
        "[bit] NOT NULL DEFAULT 0,[reimpressao] [bit] NOT NULL DEFAULT 0,[id_comanda_origem] [int] NOT "
        "NULL)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] ADD CONSTRAINT [PK_Tb_Comandas_Itens] PRIMARY KEY "
                   "CLUSTERED ([id_comanda_item] Asc)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Itens_Tb_Colaborador] FOREIGN KEY([quem_incluiu]) REFERENCES "
                   "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Itens_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) REFERENCES "
                   "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas] "
        "FOREIGN KEY([id_comanda]) REFERENCES [dbo].[Tb_Comandas] ([id_comanda])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Itens_Tb_Comandas1] FOREIGN KEY([id_comanda_origem]) REFERENCES "
                   "[dbo].[Tb_Comandas] ([id_comanda])"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador]"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador1]"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas]"),
    QStringLiteral(
        "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas1]"),
    QStringLiteral("CREATE TABLE [dbo].[Tb_Comandas_Recebimentos]([id_comanda_recebimento] [int] "
                   "IDENTITY(1,1) NOT NULL,[id_comanda] [int] NOT NULL,[id_colaborador] [numeric](10, 0) NOT "
                   "NULL,[finalizadora] [nvarchar](50) NOT NULL,[valor_recebimento] [float] NOT NULL DEFAULT "
                   "0,[data] [datetime] NOT NULL,[observacao] [nvarchar](255) NULL,[quem_excluiu] "
                   "[numeric](10, 0) NULL,[data_exclusao] [datetime] NULL,[status] [tinyint] NOT NULL)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] ADD CONSTRAINT "
                   "[PK_Tb_Comandas_Recebimentos] PRIMARY KEY CLUSTERED ([id_comanda_recebimento] Asc)"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador] FOREIGN KEY([id_colaborador]) REFERENCES "
                   "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) REFERENCES "
                   "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Comandas] FOREIGN KEY([id_comanda]) REFERENCES "
                   "[dbo].[Tb_Comandas] ([id_comanda])"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador]"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1]"),
    QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                   "[FK_Tb_Comandas_Recebimentos_Tb_Comandas]"),
};
} // namespace

class TestTextosDoBanco : public QObject {
    Q_OBJECT

private slots:
    // Character for character what the server has always received; the printer's name goes into
    // the department column as it stands, apostrophe and all.
    void sqlServerRecebeOsTextosDeSempre() {
        QStringList esperado =
            colunas(QStringLiteral("Tb_ConVendas"),
                    {QStringLiteral("bImprimirItens bit"), QStringLiteral("bBloquearAposConferencia bit"),
                     QStringLiteral("iQuantidadeMesa tinyint"), QStringLiteral("iTempoParaOcio tinyint"),
                     QStringLiteral("bExibirObservacao bit"), QStringLiteral("bMultiplosAtendentes bit")});
        esperado << QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE "
                                   "TABLE_NAME = 'CLIENTES' AND CONSTRAINT_NAME = 'PK_CLIENTES' = 0")
                 << QStringLiteral("ALTER TABLE CLIENTES ADD CONSTRAINT [PK_CLIENTES] PRIMARY KEY CLUSTERED "
                                   "([ID_CODIGO] Asc)")
                 << QStringLiteral(
                        "SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE "
                        "TABLE_NAME = 'Tb_Colaborador' AND CONSTRAINT_NAME = 'PK_Tb_Colaborador' = 0")
                 << QStringLiteral(
                        "ALTER TABLE Tb_Colaborador ADD CONSTRAINT [PK_Tb_Colaborador] PRIMARY KEY "
                        "CLUSTERED([ID_Colaborador] ASC)");
        esperado << colunas(QStringLiteral("Tb_Colaborador"),
                            {QStringLiteral("bZarvel bit"), QStringLiteral("bTransferirItem bit"),
                             QStringLiteral("bTransferirMesa bit"), QStringLiteral("bReimprimir bit"),
                             QStringLiteral("bConfiguracoes bit"), QStringLiteral("bTaxa bit"),
                             QStringLiteral("bCancelar bit"), QStringLiteral("bExcluir bit")});
        esperado << testeDeTabela(QStringLiteral("Tb_Departamento"), 1)
                 << QStringLiteral("  ") +
                        testeDeColuna(QStringLiteral("Tb_Departamento"), QStringLiteral("Impressora"))
                 << QStringLiteral("  ALTER TABLE Tb_Departamento ADD Impressora nvarchar(255) NOT NULL "
                                   "DEFAULT 'EPSON D'AVILA'");
        const QStringList tabelas = {QStringLiteral("Tb_Comandas"), QStringLiteral("Tb_Comandas_Itens"),
                                     QStringLiteral("Tb_Comandas_Recebimentos")};
        const int comandos[] = {8, 10, 8};
        for (int t = 0, inicio = 0; t < 3; inicio += comandos[t++])
            esperado << testeDeTabela(tabelas[t], 0) << tabelasDaComanda.mid(inicio, comandos[t]);

        const QStringList enviados = textosSqlServer(passosDoBanco(QStringLiteral("EPSON D'AVILA")));
        for (int i = 0; i < qMax(enviados.size(), esperado.size()); ++i)
            QCOMPARE(enviados.value(i), esperado.value(i));
    }
};

ZARVEL_TEST(TestTextosDoBanco)
#include "tst_textosDoBanco.moc"
