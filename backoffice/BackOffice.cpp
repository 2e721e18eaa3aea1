#include "backoffice/BackOffice.h"

#include "platform/RuntimeError.h"

#include <QFile>
#include <QRegularExpression>

QStringList backOfficeSchema(Dialect dialect) {
    if (dialect == Dialect::PostgreSQL) {
        return {
            QStringLiteral("CREATE DOMAIN bit_flag AS smallint CHECK (VALUE IN (0, 1))"),
            QStringLiteral("CREATE TABLE Tb_Departamento (ID_Departamento integer NOT NULL CONSTRAINT "
                           "PK_Tb_Departamento PRIMARY KEY, Dep_Descricao varchar(50) NOT NULL)"),
            QStringLiteral(
                "CREATE TABLE PRODUTOS (CODIGO numeric(14, 0) NOT NULL CONSTRAINT PK_PRODUTOS PRIMARY "
                "KEY, DESCRICAO varchar(60) NOT NULL, PRECO float NOT NULL DEFAULT 0, UN varchar(3) "
                "NULL, DEP integer NULL)"),
            QStringLiteral("CREATE TABLE TB_ESTOQUE (CODIGO numeric(14, 0) NOT NULL CONSTRAINT PK_TB_ESTOQUE "
                           "PRIMARY KEY, QD float NOT NULL DEFAULT 0)"),
            QStringLiteral(
                "CREATE TABLE Tb_Colaborador (ID_Colaborador numeric(10, 0) NOT NULL, Nome varchar(50) "
                "NOT NULL, Senha varchar(20) NULL)"),
            QStringLiteral(
                "CREATE TABLE CLIENTES (ID_CODIGO numeric(10, 0) NOT NULL, NOME varchar(60) NOT NULL, "
                "CPF varchar(14) NULL, IE varchar(20) NULL, TELEFONE varchar(20) NULL, ENDERECO "
                "varchar(100) NULL)"),
            QStringLiteral("CREATE TABLE Tb_ConVendas (Fantasia varchar(60) NULL, bServico bit_flag NOT NULL "
                           "DEFAULT 0, bProdutos bit_flag NULL, iTaxa float NOT NULL DEFAULT 0)"),
            QStringLiteral("CREATE TABLE Tb_Usuario (CNPJ varchar(18) NULL, RS varchar(60) NULL, conAcesso "
                           "bit_flag NOT NULL DEFAULT 0)"),
        };
    }
    if (dialect == Dialect::SQLite) {
        return {
            QStringLiteral("CREATE TABLE Tb_Departamento (ID_Departamento INTEGER PRIMARY KEY NOT NULL, "
                           "Dep_Descricao nvarchar(50) NOT NULL)"),
            QStringLiteral(
                "CREATE TABLE PRODUTOS (CODIGO numeric(14,0) PRIMARY KEY NOT NULL, DESCRICAO nvarchar(60) "
                "NOT NULL, PRECO float NOT NULL DEFAULT 0, UN nvarchar(3) NULL, DEP int NULL)"),
            QStringLiteral(
                "CREATE TABLE TB_ESTOQUE (CODIGO numeric(14,0) PRIMARY KEY NOT NULL, QD float NOT NULL "
                "DEFAULT 0)"),
            QStringLiteral(
                "CREATE TABLE Tb_Colaborador (ID_Colaborador INTEGER UNIQUE NOT NULL, Nome nvarchar(50) "
                "NOT NULL, Senha nvarchar(20) NULL)"),
            QStringLiteral(
                "CREATE TABLE CLIENTES (ID_CODIGO INTEGER UNIQUE NOT NULL, NOME nvarchar(60) NOT NULL, "
                "CPF nvarchar(14) NULL, IE nvarchar(20) NULL, TELEFONE nvarchar(20) NULL, "
                "ENDERECO nvarchar(100) NULL)"),
            QStringLiteral(
                "CREATE TABLE Tb_ConVendas (Fantasia nvarchar(60) NULL, bServico bit NOT NULL DEFAULT 0, "
                "bProdutos bit NULL, iTaxa float NOT NULL DEFAULT 0)"),
            QStringLiteral(
                "CREATE TABLE Tb_Usuario (CNPJ nvarchar(18) NULL, RS nvarchar(60) NULL, conAcesso bit NOT "
                "NULL DEFAULT 0)"),
        };
    }
    return {
        QStringLiteral("CREATE TABLE [dbo].[Tb_Departamento]([ID_Departamento] [int] NOT NULL CONSTRAINT "
                       "[PK_Tb_Departamento] PRIMARY KEY,[Dep_Descricao] [nvarchar](50) NOT NULL)"),
        QStringLiteral(
            "CREATE TABLE [dbo].[PRODUTOS]([CODIGO] [numeric](14, 0) NOT NULL CONSTRAINT [PK_PRODUTOS] "
            "PRIMARY KEY,[DESCRICAO] [nvarchar](60) NOT NULL,[PRECO] [float] NOT NULL DEFAULT 0,"
            "[UN] [nvarchar](3) NULL,[DEP] [int] NULL)"),
        QStringLiteral(
            "CREATE TABLE [dbo].[TB_ESTOQUE]([CODIGO] [numeric](14, 0) NOT NULL CONSTRAINT [PK_TB_ESTOQUE] "
            "PRIMARY KEY,[QD] [float] NOT NULL DEFAULT 0)"),
        QStringLiteral("CREATE TABLE [dbo].[Tb_Colaborador]([ID_Colaborador] [numeric](10, 0) NOT NULL,"
                       "[Nome] [nvarchar](50) NOT NULL,[Senha] [nvarchar](20) NULL)"),
        QStringLiteral(
            "CREATE TABLE [dbo].[CLIENTES]([ID_CODIGO] [numeric](10, 0) NOT NULL,[NOME] [nvarchar](60) NOT "
            "NULL,[CPF] [nvarchar](14) NULL,[IE] [nvarchar](20) NULL,[TELEFONE] [nvarchar](20) NULL,"
            "[ENDERECO] [nvarchar](100) NULL)"),
        QStringLiteral(
            "CREATE TABLE [dbo].[Tb_ConVendas]([Fantasia] [nvarchar](60) NULL,[bServico] [bit] NOT NULL "
            "DEFAULT 0,[bProdutos] [bit] NULL,[iTaxa] [float] NOT NULL DEFAULT 0)"),
        QStringLiteral("CREATE TABLE [dbo].[Tb_Usuario]([CNPJ] [nvarchar](18) NULL,[RS] [nvarchar](60) NULL,"
                       "[conAcesso] [bit] NOT NULL DEFAULT 0)"),
    };
}

QString adoConnectionString(const QString& server) {
    return QStringLiteral("Provider=SQLNCLI;Server=") + server +
           QStringLiteral(";Database=Norvik;Uid=sa;Pwd=@vzqrmlkd#318");
}

QString withDatabase(const QString& connectionString, const QString& database) {
    static const QRegularExpression keyword(QStringLiteral("(^|;)\\s*(Database|Initial Catalog)\\s*=[^;]*"),
                                            QRegularExpression::CaseInsensitiveOption);
    if (!keyword.match(connectionString).hasMatch())
        return connectionString + QStringLiteral(";Database=") + database;
    QString changed = connectionString;
    changed.replace(keyword, QStringLiteral("\\1Database=") + database);
    return changed;
}

void createBackOffice(const QString& connectionString) {
    const Dialect dialect = dialectOf(connectionString);
    if (dialect == Dialect::SQLite) {
        // SQLite is never asked to create a file (see pooledDatabase): an empty file is an empty database.
        QFile file(databaseFileOf(connectionString));
        if (!file.open(QIODevice::NewOnly))
            raiseError(vbErr::PathNotFound, file.errorString() + QStringLiteral(": ") + file.fileName());
    } else if (dialect == Dialect::PostgreSQL) {
        // The database itself, made from the server's maintenance database; its name keeps its case.
        QString name = databaseOf(connectionString);
        Connection maintenance;
        maintenance.Open(withDatabase(connectionString, QStringLiteral("postgres")));
        maintenance.Execute(QStringLiteral("CREATE DATABASE \"") +
                            name.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"'));
    }
    Connection connection;
    connection.Open(connectionString);
    const QStringList statements = backOfficeSchema(dialect);
    for (const QString& statement : statements)
        connection.Execute(statement);
}
