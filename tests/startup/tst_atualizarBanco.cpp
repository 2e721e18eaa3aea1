#include "platform/Connection.h"
#include "platform/Printers.h"
#include "platform/RuntimeError.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

namespace {
// Runs a statement of the test's own, unseen by the statement record.
Recordset consultar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    return cn.Execute(sql);
}

QStringList coluna(Recordset rs, int indice = 0) {
    QStringList valores;
    for (; !rs.Eof(); rs.MoveNext())
        valores << rs.Fields(indice).Value().toString();
    return valores;
}

// Everything the catalogue says about the schema: each object with its definition.
QStringList esquema() {
    return coluna(consultar(QStringLiteral("SELECT type || ' ' || name || ' ' || IFNULL(sql, '') FROM "
                                           "sqlite_master ORDER BY type, name")));
}

// What one run of the upgrade sends to the database.
QStringList executarAtualizacao() {
    QStringList enviados;
    setStatementObserver([&](const QString& sql) { enviados << sql; });
    atualizarBanco();
    setStatementObserver(nullptr);
    return enviados;
}

QStringList colunasDe(const QString& tabela) {
    return coluna(consultar(
        QStringLiteral("SELECT name || ' ' || type || ' ' || \"notnull\" || ' ' || IFNULL(dflt_value, "
                       "'-') FROM pragma_table_info('%1')")
            .arg(tabela)));
}

QStringList chavesEstrangeirasDe(const QString& tabela) {
    return coluna(consultar(
        QStringLiteral(
            "SELECT \"from\" || ' ' || \"table\" || '.' || \"to\" FROM pragma_foreign_key_list('%1') "
            "ORDER BY \"from\"")
            .arg(tabela)));
}

QString definicaoDe(const QString& tabela) {
    return coluna(consultar(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = '%1'").arg(tabela)))
        .value(0);
}
} // namespace

class TestAtualizarBanco : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        conexaoLocal = backOfficeDatabase(*m_env);
        servidorLocal = databaseFileOf(conexaoLocal);
    }
    void cleanup() { m_env.reset(); }

    void bancoNovoRecebeTudoEASegundaPartidaSoConsulta() {
        executarAtualizacao();
        QVERIFY(boxes().isEmpty());

        const QStringList vendas = colunasDe(QStringLiteral("Tb_ConVendas"));
        for (const char* nome :
             {"bImprimirItens", "bBloquearAposConferencia", "bExibirObservacao", "bMultiplosAtendentes"})
            QVERIFY2(vendas.contains(QLatin1String(nome) + QStringLiteral(" bit 1 0")), nome);
        QVERIFY(vendas.contains(QStringLiteral("iQuantidadeMesa tinyint 1 0")));
        QVERIFY(vendas.contains(QStringLiteral("iTempoParaOcio tinyint 1 0")));
        const QStringList colaborador = colunasDe(QStringLiteral("Tb_Colaborador"));
        for (const char* nome : {"bZarvel", "bTransferirItem", "bTransferirMesa", "bReimprimir",
                                 "bConfiguracoes", "bTaxa", "bCancelar", "bExcluir"})
            QVERIFY2(colaborador.contains(QLatin1String(nome) + QStringLiteral(" bit 1 0")), nome);
        QVERIFY(colunasDe(QStringLiteral("Tb_Departamento"))
                    .contains(QStringLiteral("Impressora nvarchar(255) 1 '%1'").arg(defaultPrinterName())));

        const QStringList esquemaNovo = esquema();
        QVERIFY(esquemaNovo.contains(
            QStringLiteral("index PK_CLIENTES ") +
            QStringLiteral("CREATE UNIQUE INDEX [PK_CLIENTES] ON [CLIENTES] ([ID_CODIGO] ASC)")));
        QVERIFY(esquemaNovo.contains(
            QStringLiteral("index PK_Tb_Colaborador CREATE UNIQUE INDEX "
                           "[PK_Tb_Colaborador] ON [Tb_Colaborador] ([ID_Colaborador] ASC)")));

        // Each tab table with its named keys, pointing where they should.
        QVERIFY(definicaoDe(QStringLiteral("Tb_Comandas"))
                    .contains(QLatin1String("CONSTRAINT [PK_Tb_Comandas] PRIMARY KEY")));
        QVERIFY(definicaoDe(QStringLiteral("Tb_Comandas_Itens"))
                    .contains(QLatin1String("CONSTRAINT [PK_Tb_Comandas_Itens] PRIMARY KEY")));
        QVERIFY(definicaoDe(QStringLiteral("Tb_Comandas_Recebimentos"))
                    .contains(QLatin1String("CONSTRAINT [PK_Tb_Comandas_Recebimentos] PRIMARY KEY")));
        for (const char* chave :
             {"FK_Tb_Comandas_CLIENTES", "FK_Tb_Comandas_Tb_Colaborador", "FK_Tb_Comandas_Tb_Colaborador1"})
            QVERIFY2(definicaoDe(QStringLiteral("Tb_Comandas"))
                         .contains(QStringLiteral("CONSTRAINT [%1] FOREIGN KEY").arg(QLatin1String(chave))),
                     chave);
        for (const char* chave :
             {"FK_Tb_Comandas_Itens_Tb_Colaborador", "FK_Tb_Comandas_Itens_Tb_Colaborador1",
              "FK_Tb_Comandas_Itens_Tb_Comandas", "FK_Tb_Comandas_Itens_Tb_Comandas1"})
            QVERIFY2(definicaoDe(QStringLiteral("Tb_Comandas_Itens"))
                         .contains(QStringLiteral("CONSTRAINT [%1] FOREIGN KEY").arg(QLatin1String(chave))),
                     chave);
        for (const char* chave :
             {"FK_Tb_Comandas_Recebimentos_Tb_Colaborador", "FK_Tb_Comandas_Recebimentos_Tb_Colaborador1",
              "FK_Tb_Comandas_Recebimentos_Tb_Comandas"})
            QVERIFY2(definicaoDe(QStringLiteral("Tb_Comandas_Recebimentos"))
                         .contains(QStringLiteral("CONSTRAINT [%1] FOREIGN KEY").arg(QLatin1String(chave))),
                     chave);
        QCOMPARE(chavesEstrangeirasDe(QStringLiteral("Tb_Comandas")),
                 (QStringList{QStringLiteral("id_cliente CLIENTES.ID_CODIGO"),
                              QStringLiteral("id_colaborador Tb_Colaborador.ID_Colaborador"),
                              QStringLiteral("quem_cancelou Tb_Colaborador.ID_Colaborador")}));
        QCOMPARE(chavesEstrangeirasDe(QStringLiteral("Tb_Comandas_Itens")),
                 (QStringList{QStringLiteral("id_comanda Tb_Comandas.id_comanda"),
                              QStringLiteral("id_comanda_origem Tb_Comandas.id_comanda"),
                              QStringLiteral("quem_excluiu Tb_Colaborador.ID_Colaborador"),
                              QStringLiteral("quem_incluiu Tb_Colaborador.ID_Colaborador")}));
        QCOMPARE(chavesEstrangeirasDe(QStringLiteral("Tb_Comandas_Recebimentos")),
                 (QStringList{QStringLiteral("id_colaborador Tb_Colaborador.ID_Colaborador"),
                              QStringLiteral("id_comanda Tb_Comandas.id_comanda"),
                              QStringLiteral("quem_excluiu Tb_Colaborador.ID_Colaborador")}));

        // The store numbers its rows and refuses an item of a tab that isn't there.
        consultar(QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, mesa, id_colaborador, servico, "
                                 "valor_servico, valor_total, data_ultima_movimentacao) VALUES "
                                 "('2024-03-05 12:00:00', 4, 1, 0, 0, 0, '2024-03-05 12:00:00')"));
        QCOMPARE(coluna(consultar(QStringLiteral("SELECT id_comanda FROM Tb_Comandas"))),
                 QStringList{QStringLiteral("1")});
        try {
            consultar(
                QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, "
                               "quantidade, valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, "
                               "data_inclusao, status, valor_total, id_comanda_origem) VALUES (99, 1, 1, "
                               "'X', 1, 1, 0, 0, 1, '2024-03-05 12:00:00', 1, 1, 99)"));
            QFAIL("a tab that isn't there took an item");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, int(vbErr::IntegrityViolation));
        }

        const QStringList antes = esquema();
        const QStringList segunda = executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QCOMPARE(esquema(), antes);
        QCOMPARE(segunda.size(), 21);
        for (const QString& sql : segunda)
            QVERIFY2(sql.startsWith(QLatin1String("SELECT COUNT(*) FROM ")), qPrintable(sql));
    }

    // The key already there under its name: step 7 sends nothing.
    void pkClientesJaPresente() {
        consultar(QStringLiteral("CREATE UNIQUE INDEX PK_CLIENTES ON CLIENTES (ID_CODIGO)"));
        const QStringList enviados = executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        for (const QString& sql : enviados)
            QVERIFY2(!sql.contains(QLatin1String("[PK_CLIENTES]")), qPrintable(sql));
        QVERIFY(enviados.contains(QStringLiteral(
            "CREATE UNIQUE INDEX [PK_Tb_Colaborador] ON [Tb_Colaborador] ([ID_Colaborador] ASC)")));
    }

    // A refused statement costs one box; the upgrade carries on with the next one.
    void alterRecusadoCustaUmaCaixa() {
        consultar(QStringLiteral("DROP TABLE Tb_Departamento"));
        consultar(QStringLiteral(
            "CREATE VIEW Tb_Departamento AS SELECT 1 AS ID_Departamento, 'COZINHA' AS Dep_Descricao"));
        executarAtualizacao();
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().prompt.endsWith(QStringLiteral(" : %1").arg(vbErr::SyntaxError)),
                 qPrintable(boxes().first().prompt));
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QVERIFY(!processEnded());
        QVERIFY(!definicaoDe(QStringLiteral("Tb_Comandas_Recebimentos")).isEmpty());
    }

    // Without departments the printer step passes with no message and no column.
    void semTbDepartamentoPassaCalado() {
        consultar(QStringLiteral("DROP TABLE Tb_Departamento"));
        executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QCOMPARE(executarAtualizacao().size(), 20);
        QVERIFY(!definicaoDe(QStringLiteral("Tb_Comandas")).isEmpty());
    }

    // A tab table that exists keeps what it has: its keys belong to the branch that creates it. The
    // keys of the other tables that point at it are refused, each with its box, and the rest goes on.
    void tabelaExistenteFicaComoEsta() {
        consultar(QStringLiteral("CREATE TABLE Tb_Comandas (id_comanda INTEGER, mesa int)"));
        executarAtualizacao();
        QCOMPARE(definicaoDe(QStringLiteral("Tb_Comandas")),
                 QStringLiteral("CREATE TABLE Tb_Comandas (id_comanda INTEGER, mesa int)"));
        QVERIFY(!boxes().isEmpty());
        QVERIFY(!processEnded());
        QVERIFY(!definicaoDe(QStringLiteral("Tb_Comandas_Recebimentos")).isEmpty());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestAtualizarBanco)
#include "tst_atualizarBanco.moc"
