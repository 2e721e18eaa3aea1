#include "startup/atualizarBanco.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
struct TextoDoPasso {
    QString teste;
    QStringList comandos;
};

// The statements as the SQL Server has always received them, character for character.
const std::vector<TextoDoPasso>& textosSqlServer() {
    static const std::vector<TextoDoPasso> textos = {
        // 1
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'bImprimirItens'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD bImprimirItens bit NOT NULL DEFAULT 0")}},
        // 2
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'bBloquearAposConferencia'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD bBloquearAposConferencia bit NOT NULL DEFAULT 0")}},
        // 3
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'iQuantidadeMesa'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD iQuantidadeMesa tinyint NOT NULL DEFAULT 0")}},
        // 4
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'iTempoParaOcio'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD iTempoParaOcio tinyint NOT NULL DEFAULT 0")}},
        // 5
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'bExibirObservacao'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD bExibirObservacao bit NOT NULL DEFAULT 0")}},
        // 6
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_ConVendas' "
                        "AND COLUMN_NAME = 'bMultiplosAtendentes'"),
         {QStringLiteral("ALTER TABLE Tb_ConVendas ADD bMultiplosAtendentes bit NOT NULL DEFAULT 0")}},
        // 7
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE TABLE_NAME = "
                        "'CLIENTES' AND CONSTRAINT_NAME = 'PK_CLIENTES'"),
         {QStringLiteral(
             "ALTER TABLE CLIENTES ADD CONSTRAINT [PK_CLIENTES] PRIMARY KEY CLUSTERED ([ID_CODIGO] Asc)")}},
        // 8
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.CONSTRAINT_TABLE_USAGE WHERE TABLE_NAME = "
                        "'Tb_Colaborador' AND CONSTRAINT_NAME = 'PK_Tb_Colaborador'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD CONSTRAINT [PK_Tb_Colaborador] PRIMARY KEY "
                         "CLUSTERED([ID_Colaborador] ASC)")}},
        // 9
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bZarvel'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bZarvel bit NOT NULL DEFAULT 0")}},
        // 10
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bTransferirItem'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bTransferirItem bit NOT NULL DEFAULT 0")}},
        // 11
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bTransferirMesa'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bTransferirMesa bit NOT NULL DEFAULT 0")}},
        // 12
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bReimprimir'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bReimprimir bit NOT NULL DEFAULT 0")}},
        // 13
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bConfiguracoes'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bConfiguracoes bit NOT NULL DEFAULT 0")}},
        // 14
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bTaxa'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bTaxa bit NOT NULL DEFAULT 0")}},
        // 15
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bCancelar'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bCancelar bit NOT NULL DEFAULT 0")}},
        // 16
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = 'Tb_Colaborador' "
                        "AND COLUMN_NAME = 'bExcluir'"),
         {QStringLiteral("ALTER TABLE Tb_Colaborador ADD bExcluir bit NOT NULL DEFAULT 0")}},
        // 17
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                        "TABLE_NAME = 'Tb_Departamento'"),
         {}},
        // 18
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                        "TABLE_NAME = 'Tb_Comandas'"),
         {QStringLiteral("CREATE TABLE [dbo].[Tb_Comandas]([id_comanda] [int] IDENTITY(1,1) NOT "
                         "NULL,[data_criacao] [datetime] NOT NULL,[status] [tinyint] NOT NULL DEFAULT "
                         "0,[mesa] [int] NOT NULL,[id_colaborador] [numeric](10, 0) NOT NULL,[id_cliente] "
                         "[numeric](10, 0) NULL,[identificacao] [nvarchar](255) NULL,[servico] [bit] NOT "
                         "NULL,[valor_servico] [float] NOT NULL,[valor_total] [float] NOT NULL,[ocupantes] "
                         "[tinyint] NOT NULL DEFAULT 1,[data_ultima_movimentacao] [datetime] NOT "
                         "NULL,[bloqueada] [bit] NOT NULL DEFAULT 0,[cancelada] [bit] NOT NULL DEFAULT 0, "
                         "[quem_cancelou] [numeric](10, 0) NULL,[data_cancelamento] [datetime] "
                         "NULL,[motivo_cancelamento] [nvarchar](255) NULL,[faturada][bit] NOT NULL DEFAULT "
                         "0,[documento_faturado][NVARCHAR](255) NULL,[data_faturamento][datetime] NULL)"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] ADD CONSTRAINT [PK_Tb_Comandas] PRIMARY KEY "
                         "CLUSTERED ([id_comanda] Asc)"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_CLIENTES] FOREIGN "
              "KEY([id_cliente]) REFERENCES [dbo].[CLIENTES] ([ID_CODIGO])"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador] "
              "FOREIGN KEY([id_colaborador]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1] "
              "FOREIGN KEY([quem_cancelou]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_CLIENTES]"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador]"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1]")}},
        // 19
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                        "TABLE_NAME = 'Tb_Comandas_Itens'"),
         {QStringLiteral(
              "CREATE TABLE [dbo].[Tb_Comandas_Itens]([id_comanda_item] [int] IDENTITY(1,1) NOT "
              "NULL,[id_comanda] [int] NOT NULL,[n_item] [int] NOT NULL,[codigo] [float] NOT "
              "NULL,[descricao] [nvarchar](30) NOT NULL,[quantidade] [float] NOT NULL,[valor_unitario] "
              "[float] NOT NULL,[valor_desconto] [float] NOT NULL,[valor_acrescimo] [float] NOT "
              "NULL,[quem_incluiu] [numeric](10, 0) NOT NULL,[data_inclusao] [datetime] NOT "
              "NULL,[quem_excluiu] [numeric](10, 0) NULL,[data_exclusao] [datetime] NULL,[status] [tinyint] "
              "NOT NULL,[valor_total] [float] NOT NULL,[observacao] [nvarchar](255) NULL,[impresso] [bit] "
              "NOT NULL DEFAULT 0,[reimpressao] [bit] NOT NULL DEFAULT 0,[id_comanda_origem] [int] NOT "
              "NULL)"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] ADD CONSTRAINT [PK_Tb_Comandas_Itens] "
                         "PRIMARY KEY CLUSTERED ([id_comanda_item] Asc)"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Itens_Tb_Colaborador] FOREIGN KEY([quem_incluiu]) REFERENCES "
                         "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Itens_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) REFERENCES "
                         "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Itens_Tb_Comandas] FOREIGN KEY([id_comanda]) REFERENCES "
                         "[dbo].[Tb_Comandas] ([id_comanda])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Itens_Tb_Comandas1] FOREIGN KEY([id_comanda_origem]) REFERENCES "
                         "[dbo].[Tb_Comandas] ([id_comanda])"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador]"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT "
                         "[FK_Tb_Comandas_Itens_Tb_Colaborador1]"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas]"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas1]")}},
        // 20
        {QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = 'dbo' AND  "
                        "TABLE_NAME = 'Tb_Comandas_Recebimentos'"),
         {QStringLiteral(
              "CREATE TABLE [dbo].[Tb_Comandas_Recebimentos]([id_comanda_recebimento] [int] IDENTITY(1,1) "
              "NOT NULL,[id_comanda] [int] NOT NULL,[id_colaborador] [numeric](10, 0) NOT "
              "NULL,[finalizadora] [nvarchar](50) NOT NULL,[valor_recebimento] [float] NOT NULL DEFAULT "
              "0,[data] [datetime] NOT NULL,[observacao] [nvarchar](255) NULL,[quem_excluiu] [numeric](10, "
              "0) NULL,[data_exclusao] [datetime] NULL,[status] [tinyint] NOT NULL)"),
          QStringLiteral(
              "ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] ADD CONSTRAINT [PK_Tb_Comandas_Recebimentos] "
              "PRIMARY KEY CLUSTERED ([id_comanda_recebimento] Asc)"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador] FOREIGN KEY([id_colaborador]) "
                         "REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) "
                         "REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Comandas] FOREIGN KEY([id_comanda]) REFERENCES "
                         "[dbo].[Tb_Comandas] ([id_comanda])"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador]"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1]"),
          QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                         "[FK_Tb_Comandas_Recebimentos_Tb_Comandas]")}},
    };
    return textos;
}

// The steps in their order, the inner step of the department printer after its outer one.
std::vector<const PassoDoBanco*> emOrdem(const std::vector<PassoDoBanco>& passos) {
    std::vector<const PassoDoBanco*> todos;
    for (const PassoDoBanco& passo : passos) {
        todos.push_back(&passo);
        for (const PassoDoBanco* interno : emOrdem(passo.dentro))
            todos.push_back(interno);
    }
    return todos;
}
} // namespace

class TestTextosDoBanco : public QObject {
    Q_OBJECT

private slots:
    void sqlServerRecebeOsTextosDeSempre() {
        const std::vector<PassoDoBanco> passos = passosDoBanco(QStringLiteral("EPSON TM-T20"));
        const std::vector<const PassoDoBanco*> todos = emOrdem(passos);
        QCOMPARE(passos.size(), size_t(20));
        QCOMPARE(todos.size(), size_t(21));
        for (size_t i = 0; i < textosSqlServer().size(); ++i) {
            // The inner column test of the department printer comes after the outer one.
            const PassoDoBanco& passo = *todos[i < 17 ? i : i + 1];
            const TextoDoPasso& esperado = textosSqlServer()[i];
            QCOMPARE(passo.teste.sqlServer, esperado.teste);
            QCOMPARE(int(passo.comandos.size()), int(esperado.comandos.size()));
            for (size_t c = 0; c < passo.comandos.size(); ++c)
                QCOMPARE(passo.comandos[c].sqlServer, esperado.comandos[int(c)]);
        }
        const PassoDoBanco& impressora = *todos[17];
        QCOMPARE(impressora.teste.sqlServer,
                 QStringLiteral("SELECT COUNT(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE TABLE_NAME = "
                                "'Tb_Departamento' AND COLUMN_NAME = 'Impressora'"));
        QCOMPARE(impressora.comandos.at(0).sqlServer,
                 QStringLiteral("ALTER TABLE Tb_Departamento ADD Impressora nvarchar(255) NOT NULL DEFAULT "
                                "'EPSON TM-T20'"));
    }
};

ZARVEL_TEST(TestTextosDoBanco)
#include "tst_textosDoBanco.moc"
