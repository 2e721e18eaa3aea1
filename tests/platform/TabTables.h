#pragma once

#include "platform/Connection.h"

// The three tab tables on SQLite, for the data layer's own tests: keys, identities, bit, datetime
// and float columns and foreign keys to the back office, as the program's schema upgrade makes them.
inline void createTabTables(const QString& connectionString) {
    Connection connection;
    connection.Open(connectionString);
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
    connection.Execute(QStringLiteral(
        "CREATE TABLE Tb_Comandas_Itens (id_comanda_item INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, "
        "id_comanda int "
        "NOT NULL REFERENCES Tb_Comandas (id_comanda), n_item int NOT NULL, codigo float NOT NULL, descricao "
        "nvarchar(30) NOT NULL, quantidade float NOT NULL, valor_unitario float NOT NULL, valor_desconto "
        "float NOT "
        "NULL, valor_acrescimo float NOT NULL, quem_incluiu numeric(10,0) NOT NULL REFERENCES Tb_Colaborador "
        "(ID_Colaborador), data_inclusao datetime NOT NULL, quem_excluiu numeric(10,0) NULL REFERENCES "
        "Tb_Colaborador (ID_Colaborador), data_exclusao datetime NULL, status tinyint NOT NULL, valor_total "
        "float "
        "NOT NULL, observacao nvarchar(255) NULL, impresso bit NOT NULL DEFAULT 0, reimpressao bit NOT NULL "
        "DEFAULT "
        "0, id_comanda_origem int NOT NULL REFERENCES Tb_Comandas (id_comanda))"));
    connection.Execute(QStringLiteral(
        "CREATE TABLE Tb_Comandas_Recebimentos (id_comanda_recebimento INTEGER PRIMARY KEY AUTOINCREMENT NOT "
        "NULL, "
        "id_comanda int NOT NULL REFERENCES Tb_Comandas (id_comanda), id_colaborador numeric(10,0) NOT NULL "
        "REFERENCES Tb_Colaborador (ID_Colaborador), finalizadora nvarchar(50) NOT NULL, valor_recebimento "
        "float NOT "
        "NULL DEFAULT 0, data datetime NOT NULL, observacao nvarchar(255) NULL, quem_excluiu numeric(10,0) "
        "NULL "
        "REFERENCES Tb_Colaborador (ID_Colaborador), data_exclusao datetime NULL, status tinyint NOT NULL)"));
}
