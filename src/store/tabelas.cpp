#include "store/tabelas.h"

// The tab tables. On SQLite the keys are made with the table; what is left of each ALTER that
// follows is the check of the rows against the keys, which fails as the ALTER would when the table
// or a referenced key is missing.
std::vector<Equivalente> comandosTbComandas() {
    return {
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
         QStringLiteral(
             "CREATE TABLE [Tb_Comandas]([id_comanda] INTEGER NOT NULL CONSTRAINT [PK_Tb_Comandas] PRIMARY "
             "KEY AUTOINCREMENT,[data_criacao] datetime NOT NULL,[status] tinyint NOT NULL DEFAULT 0,[mesa] "
             "int NOT NULL,[id_colaborador] numeric(10, 0) NOT NULL,[id_cliente] numeric(10, 0) "
             "NULL,[identificacao] nvarchar(255) NULL,[servico] bit NOT NULL,[valor_servico] float NOT "
             "NULL,[valor_total] float NOT NULL,[ocupantes] tinyint NOT NULL DEFAULT "
             "1,[data_ultima_movimentacao] datetime NOT NULL,[bloqueada] bit NOT NULL DEFAULT 0,[cancelada] "
             "bit NOT NULL DEFAULT 0,[quem_cancelou] numeric(10, 0) NULL,[data_cancelamento] datetime "
             "NULL,[motivo_cancelamento] nvarchar(255) NULL,[faturada] bit NOT NULL DEFAULT "
             "0,[documento_faturado] NVARCHAR(255) NULL,[data_faturamento] datetime NULL,CONSTRAINT "
             "[FK_Tb_Comandas_CLIENTES] FOREIGN KEY ([id_cliente]) REFERENCES [CLIENTES] "
             "([ID_CODIGO]),CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador] FOREIGN KEY ([id_colaborador]) "
             "REFERENCES [Tb_Colaborador] ([ID_Colaborador]),CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1] "
             "FOREIGN KEY ([quem_cancelou]) REFERENCES [Tb_Colaborador] ([ID_Colaborador]))")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] ADD CONSTRAINT [PK_Tb_Comandas] PRIMARY KEY "
                        "CLUSTERED ([id_comanda] Asc)"),
         QStringLiteral("SELECT [id_comanda] FROM [Tb_Comandas] WHERE 0 = 1")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_CLIENTES] "
                        "FOREIGN KEY([id_cliente]) REFERENCES [dbo].[CLIENTES] ([ID_CODIGO])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador] "
             "FOREIGN KEY([id_colaborador]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas] WITH CHECK ADD CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1] "
             "FOREIGN KEY([quem_cancelou]) REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_CLIENTES]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas] CHECK CONSTRAINT [FK_Tb_Comandas_Tb_Colaborador1]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas])")},
    };
}

std::vector<Equivalente> comandosTbComandasItens() {
    return {
        {QStringLiteral(
             "CREATE TABLE [dbo].[Tb_Comandas_Itens]([id_comanda_item] [int] IDENTITY(1,1) NOT "
             "NULL,[id_comanda] [int] NOT NULL,[n_item] [int] NOT NULL,[codigo] [float] NOT NULL,[descricao] "
             "[nvarchar](30) NOT NULL,[quantidade] [float] NOT NULL,[valor_unitario] [float] NOT "
             "NULL,[valor_desconto] [float] NOT NULL,[valor_acrescimo] [float] NOT NULL,[quem_incluiu] "
             "[numeric](10, 0) NOT NULL,[data_inclusao] [datetime] NOT NULL,[quem_excluiu] [numeric](10, 0) "
             "NULL,[data_exclusao] [datetime] NULL,[status] [tinyint] NOT NULL,[valor_total] [float] NOT "
             "NULL,[observacao] [nvarchar](255) NULL,[impresso] [bit] NOT NULL DEFAULT 0,[reimpressao] [bit] "
             "NOT NULL DEFAULT 0,[id_comanda_origem] [int] NOT NULL)"),
         QStringLiteral(
             "CREATE TABLE [Tb_Comandas_Itens]([id_comanda_item] INTEGER NOT NULL CONSTRAINT "
             "[PK_Tb_Comandas_Itens] PRIMARY KEY AUTOINCREMENT,[id_comanda] int NOT NULL,[n_item] int NOT "
             "NULL,[codigo] float NOT NULL,[descricao] nvarchar(30) NOT NULL,[quantidade] float NOT "
             "NULL,[valor_unitario] float NOT NULL,[valor_desconto] float NOT NULL,[valor_acrescimo] float "
             "NOT NULL,[quem_incluiu] numeric(10, 0) NOT NULL,[data_inclusao] datetime NOT "
             "NULL,[quem_excluiu] numeric(10, 0) NULL,[data_exclusao] datetime NULL,[status] tinyint NOT "
             "NULL,[valor_total] float NOT NULL,[observacao] nvarchar(255) NULL,[impresso] bit NOT NULL "
             "DEFAULT 0,[reimpressao] bit NOT NULL DEFAULT 0,[id_comanda_origem] int NOT NULL,CONSTRAINT "
             "[FK_Tb_Comandas_Itens_Tb_Colaborador] FOREIGN KEY ([quem_incluiu]) REFERENCES [Tb_Colaborador] "
             "([ID_Colaborador]),CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador1] FOREIGN KEY "
             "([quem_excluiu]) REFERENCES [Tb_Colaborador] ([ID_Colaborador]),CONSTRAINT "
             "[FK_Tb_Comandas_Itens_Tb_Comandas] FOREIGN KEY ([id_comanda]) REFERENCES [Tb_Comandas] "
             "([id_comanda]),CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas1] FOREIGN KEY "
             "([id_comanda_origem]) REFERENCES [Tb_Comandas] ([id_comanda]))")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] ADD CONSTRAINT [PK_Tb_Comandas_Itens] PRIMARY "
                        "KEY CLUSTERED ([id_comanda_item] Asc)"),
         QStringLiteral("SELECT [id_comanda_item] FROM [Tb_Comandas_Itens] WHERE 0 = 1")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Itens_Tb_Colaborador] FOREIGN KEY([quem_incluiu]) REFERENCES "
                        "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Itens_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) REFERENCES "
                        "[dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Itens_Tb_Comandas] FOREIGN KEY([id_comanda]) REFERENCES "
                        "[dbo].[Tb_Comandas] ([id_comanda])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Itens] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Itens_Tb_Comandas1] FOREIGN KEY([id_comanda_origem]) REFERENCES "
                        "[dbo].[Tb_Comandas] ([id_comanda])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Colaborador1]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
        {QStringLiteral(
             "ALTER TABLE [dbo].[Tb_Comandas_Itens] CHECK CONSTRAINT [FK_Tb_Comandas_Itens_Tb_Comandas1]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Itens])")},
    };
}

std::vector<Equivalente> comandosTbComandasRecebimentos() {
    return {
        {QStringLiteral(
             "CREATE TABLE [dbo].[Tb_Comandas_Recebimentos]([id_comanda_recebimento] [int] IDENTITY(1,1) NOT "
             "NULL,[id_comanda] [int] NOT NULL,[id_colaborador] [numeric](10, 0) NOT NULL,[finalizadora] "
             "[nvarchar](50) NOT NULL,[valor_recebimento] [float] NOT NULL DEFAULT 0,[data] [datetime] NOT "
             "NULL,[observacao] [nvarchar](255) NULL,[quem_excluiu] [numeric](10, 0) NULL,[data_exclusao] "
             "[datetime] NULL,[status] [tinyint] NOT NULL)"),
         QStringLiteral(
             "CREATE TABLE [Tb_Comandas_Recebimentos]([id_comanda_recebimento] INTEGER NOT NULL CONSTRAINT "
             "[PK_Tb_Comandas_Recebimentos] PRIMARY KEY AUTOINCREMENT,[id_comanda] int NOT "
             "NULL,[id_colaborador] numeric(10, 0) NOT NULL,[finalizadora] nvarchar(50) NOT "
             "NULL,[valor_recebimento] float NOT NULL DEFAULT 0,[data] datetime NOT NULL,[observacao] "
             "nvarchar(255) NULL,[quem_excluiu] numeric(10, 0) NULL,[data_exclusao] datetime NULL,[status] "
             "tinyint NOT NULL,CONSTRAINT [FK_Tb_Comandas_Recebimentos_Tb_Colaborador] FOREIGN KEY "
             "([id_colaborador]) REFERENCES [Tb_Colaborador] ([ID_Colaborador]),CONSTRAINT "
             "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1] FOREIGN KEY ([quem_excluiu]) REFERENCES "
             "[Tb_Colaborador] ([ID_Colaborador]),CONSTRAINT [FK_Tb_Comandas_Recebimentos_Tb_Comandas] "
             "FOREIGN KEY ([id_comanda]) REFERENCES [Tb_Comandas] ([id_comanda]))")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] ADD CONSTRAINT "
                        "[PK_Tb_Comandas_Recebimentos] PRIMARY KEY CLUSTERED ([id_comanda_recebimento] Asc)"),
         QStringLiteral("SELECT [id_comanda_recebimento] FROM [Tb_Comandas_Recebimentos] WHERE 0 = 1")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador] FOREIGN KEY([id_colaborador]) "
                        "REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1] FOREIGN KEY([quem_excluiu]) "
                        "REFERENCES [dbo].[Tb_Colaborador] ([ID_Colaborador])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] WITH CHECK ADD  CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Comandas] FOREIGN KEY([id_comanda]) REFERENCES "
                        "[dbo].[Tb_Comandas] ([id_comanda])"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Colaborador1]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
        {QStringLiteral("ALTER TABLE [dbo].[Tb_Comandas_Recebimentos] CHECK CONSTRAINT "
                        "[FK_Tb_Comandas_Recebimentos_Tb_Comandas]"),
         QStringLiteral("PRAGMA foreign_key_check([Tb_Comandas_Recebimentos])")},
    };
}
