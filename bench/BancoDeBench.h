#pragma once

#include "backoffice/BackOffice.h"
#include "backoffice/Demo.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>
#include <map>

// The database files of the benchmarks: one folder for the whole run.
inline QTemporaryDir& pastaDosBancos() {
    static QTemporaryDir dir;
    return dir;
}

// A statement straight through QtSql; a failure ends the run with the driver's text.
inline void executarOuParar(QSqlQuery& q, const QString& sql) {
    if (!q.exec(sql))
        qFatal("%s: %s", qPrintable(sql), qPrintable(q.lastError().text()));
}

// A demo database whose table 5 has an open tab with `itens` printed items (the tab's id is 1), and
// each of `outrasMesas` an empty open tab after it; made once for each such set. Returns its
// connection string.
inline QString demoComItens(int itens, const QVector<int>& outrasMesas = {}) {
    static std::map<std::pair<int, QVector<int>>, QString> feitos;
    const auto chave = std::make_pair(itens, outrasMesas);
    if (auto it = feitos.find(chave); it != feitos.end())
        return it->second;
    QStringList nome{QStringLiteral("demo-%1").arg(itens)};
    for (int mesa : outrasMesas)
        nome << QString::number(mesa);
    const QString arquivo = pastaDosBancos().filePath(nome.join(QLatin1Char('-')) + QStringLiteral(".db"));
    const QString conexao = adoConnectionString(arquivo);
    createDemoDatabase(conexao);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench-setup"));
        db.setDatabaseName(arquivo);
        db.open();
        QSqlQuery q(db);
        QVector<int> mesas{5};
        mesas += outrasMesas;
        for (int mesa : mesas)
            executarOuParar(q,
                            QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, "
                                           "id_colaborador, servico, valor_servico, valor_total, ocupantes, "
                                           "data_ultima_movimentacao) VALUES ('2024-03-05 11:00:00', 1, "
                                           "%1, 1, 1, 0, 0, 1, '2024-03-05 11:00:00')")
                                .arg(mesa));
        db.transaction();
        q.prepare(QStringLiteral(
            "INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, quantidade, "
            "valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, data_inclusao, "
            "status, valor_total, id_comanda_origem, impresso) VALUES (1, ?, 101, 'X-SALADA', "
            "1, 18.5, 0, 0, 1, '2024-03-05 11:10:00', 1, 18.5, 1, 1)"));
        for (int n = 1; n <= itens; ++n) {
            q.addBindValue(n);
            if (!q.exec())
                qFatal("%s", qPrintable(q.lastError().text()));
        }
        db.commit();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-setup"));
    feitos[chave] = conexao;
    return conexao;
}
