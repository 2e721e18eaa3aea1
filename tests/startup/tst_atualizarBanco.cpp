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
// Runs a statement of the test's own, unseen by the statement record; the first column of each row.
QStringList consultar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    QStringList valores;
    for (Recordset rs = cn.Execute(sql); !rs.Eof(); rs.MoveNext())
        valores << rs.Fields(0).Value().toString();
    return valores;
}

void executar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    cn.Execute(sql);
}

// What one run of the upgrade sends to the database.
QStringList executarAtualizacao() {
    QStringList enviados;
    setStatementObserver([&](const QString& sql) { enviados << sql; });
    atualizarBanco();
    setStatementObserver(nullptr);
    return enviados;
}

QStringList esquema() {
    return consultar(QStringLiteral("SELECT type || ' ' || name || ' ' || IFNULL(sql, '') FROM sqlite_master "
                                    "ORDER BY type, name"));
}

QString definicaoDe(const QString& tabela) {
    return consultar(QStringLiteral("SELECT sql FROM sqlite_master WHERE name = '%1'").arg(tabela)).value(0);
}

// Each column as "name type notnull default".
QStringList colunasDe(const QString& tabela) {
    return consultar(QStringLiteral("SELECT name || ' ' || type || ' ' || \"notnull\" || ' ' || "
                                    "IFNULL(dflt_value, '-') FROM pragma_table_info('%1')")
                         .arg(tabela));
}

// Where the foreign keys of a table point.
QString chavesDe(const QString& tabela) {
    return consultar(
               QStringLiteral("SELECT group_concat(ref, ', ') FROM (SELECT \"from\" || ' ' || \"table\" "
                              "|| '.' || \"to\" AS ref FROM pragma_foreign_key_list('%1') ORDER BY ref)")
                   .arg(tabela))
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
        for (const char* coluna :
             {"bImprimirItens bit", "bBloquearAposConferencia bit", "bExibirObservacao bit",
              "bMultiplosAtendentes bit", "iQuantidadeMesa tinyint", "iTempoParaOcio tinyint"})
            QVERIFY2(vendas.contains(QLatin1String(coluna) + QStringLiteral(" 1 0")), coluna);
        const QStringList colaborador = colunasDe(QStringLiteral("Tb_Colaborador"));
        for (const char* nome : {"bZarvel", "bTransferirItem", "bTransferirMesa", "bReimprimir",
                                 "bConfiguracoes", "bTaxa", "bCancelar", "bExcluir"})
            QVERIFY2(colaborador.contains(QLatin1String(nome) + QStringLiteral(" bit 1 0")), nome);
        QVERIFY(colunasDe(QStringLiteral("Tb_Departamento"))
                    .contains(QStringLiteral("Impressora nvarchar(255) 1 '%1'").arg(defaultPrinterName())));
        QCOMPARE(consultar(QStringLiteral("SELECT name || ' ' || tbl_name FROM sqlite_master WHERE name LIKE "
                                          "'PK%' ORDER BY name")),
                 (QStringList{QStringLiteral("PK_CLIENTES CLIENTES"),
                              QStringLiteral("PK_Tb_Colaborador Tb_Colaborador")}));

        QCOMPARE(
            chavesDe(QStringLiteral("Tb_Comandas")),
            QStringLiteral("id_cliente CLIENTES.ID_CODIGO, id_colaborador Tb_Colaborador.ID_Colaborador, "
                           "quem_cancelou Tb_Colaborador.ID_Colaborador"));
        QCOMPARE(
            chavesDe(QStringLiteral("Tb_Comandas_Itens")),
            QStringLiteral("id_comanda Tb_Comandas.id_comanda, id_comanda_origem Tb_Comandas.id_comanda, "
                           "quem_excluiu Tb_Colaborador.ID_Colaborador, "
                           "quem_incluiu Tb_Colaborador.ID_Colaborador"));
        QCOMPARE(
            chavesDe(QStringLiteral("Tb_Comandas_Recebimentos")),
            QStringLiteral("id_colaborador Tb_Colaborador.ID_Colaborador, id_comanda Tb_Comandas.id_comanda, "
                           "quem_excluiu Tb_Colaborador.ID_Colaborador"));

        // The store numbers its rows and refuses an item of a tab that isn't there.
        executar(QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, mesa, id_colaborador, servico, "
                                "valor_servico, valor_total, data_ultima_movimentacao) VALUES "
                                "('2024-03-05 12:00:00', 4, 1, 0, 0, 0, '2024-03-05 12:00:00')"));
        QCOMPARE(consultar(QStringLiteral("SELECT id_comanda FROM Tb_Comandas")),
                 QStringList{QStringLiteral("1")});
        try {
            executar(
                QStringLiteral("INSERT INTO Tb_Comandas_Itens (id_comanda, n_item, codigo, descricao, "
                               "quantidade, valor_unitario, valor_desconto, valor_acrescimo, quem_incluiu, "
                               "data_inclusao, status, valor_total, id_comanda_origem) VALUES (99, 1, 1, "
                               "'X', 1, 1, 0, 0, 1, '2024-03-05 12:00:00', 1, 1, 99)"));
            QFAIL("a tab that isn't there took an item");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, int(vbErr::IntegrityViolation));
        }

        // Up to date: one catalogue test per step, two for the department printer, and nothing else.
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
        executar(QStringLiteral("CREATE UNIQUE INDEX PK_CLIENTES ON CLIENTES (ID_CODIGO)"));
        const QStringList enviados = executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QVERIFY(enviados.filter(QStringLiteral("[PK_CLIENTES]")).isEmpty());
        QCOMPARE(enviados.filter(QStringLiteral("[PK_Tb_Colaborador]")).size(), 1);
    }

    // Without departments the printer step passes with no message and no column test.
    void semTbDepartamentoPassaCalado() {
        executar(QStringLiteral("DROP TABLE Tb_Departamento"));
        executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QCOMPARE(executarAtualizacao().size(), 20);
    }

    // A refused statement costs a box and the upgrade carries on: departments that can't take the
    // column, or a tab table that exists already, which keeps what it has, since its keys belong to
    // the branch that creates it, and refuses the keys of the tables that point at it.
    void recusaCustaUmaCaixaESegue_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<QString>("tabela");
        QTest::addColumn<int>("caixas"); // 0: one for each refused key
        QTest::newRow("departamentos numa visao")
            << QStringLiteral("CREATE VIEW Tb_Departamento AS SELECT 1 AS ID_Departamento")
            << QStringLiteral("Tb_Departamento") << 1;
        QTest::newRow("Tb_Comandas sem as chaves")
            << QStringLiteral("CREATE TABLE Tb_Comandas (id_comanda INTEGER, mesa int)")
            << QStringLiteral("Tb_Comandas") << 0;
    }
    void recusaCustaUmaCaixaESegue() {
        QFETCH(QString, preparo);
        QFETCH(QString, tabela);
        QFETCH(int, caixas);
        if (tabela == QLatin1String("Tb_Departamento"))
            executar(QStringLiteral("DROP TABLE Tb_Departamento"));
        executar(preparo);
        executarAtualizacao();
        QVERIFY(!boxes().isEmpty());
        if (caixas > 0)
            QCOMPARE(boxes().size(), caixas);
        QVERIFY2(boxes().first().prompt.endsWith(QStringLiteral(" : %1").arg(vbErr::SyntaxError)),
                 qPrintable(boxes().first().prompt));
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QVERIFY(!processEnded());
        QCOMPARE(definicaoDe(tabela), preparo);
        QVERIFY(!definicaoDe(QStringLiteral("Tb_Comandas_Recebimentos")).isEmpty());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestAtualizarBanco)
#include "tst_atualizarBanco.moc"
