#include "platform/Connection.h"
#include "platform/Printers.h"
#include "platform/RuntimeError.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QTest>

namespace {
// What one run of the upgrade sends to the database.
QStringList executarAtualizacao() {
    QStringList enviados;
    setStatementObserver([&](const QString& sql) { enviados << sql; });
    atualizarBanco();
    setStatementObserver(nullptr);
    return enviados;
}

// The upgrade as the SQL Server receives it, one line per statement in the order sent: each test
// with the count that lets its step run, the statements of a step inside another indented.
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
} // namespace

class TestAtualizarBanco : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        conexaoLocal = backOfficeDatabase(*m_env);
    }
    void cleanup() { m_env.reset(); }

    void bancoNovoRecebeTudoEASegundaPartidaSoConsulta() {
        executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        // The added columns, NOT NULL DEFAULT 0 like the back office's own bServico and iTaxa.
        QCOMPARE(consultar(QStringLiteral("SELECT group_concat(c.name, ' ') FROM sqlite_master m, "
                                          "pragma_table_info(m.name) c WHERE m.name IN ('Tb_ConVendas', "
                                          "'Tb_Colaborador') AND c.\"notnull\" AND c.dflt_value = '0'")),
                 QStringLiteral("bZarvel bTransferirItem bTransferirMesa bReimprimir bConfiguracoes bTaxa "
                                "bCancelar bExcluir bServico iTaxa bImprimirItens bBloquearAposConferencia "
                                "iQuantidadeMesa iTempoParaOcio bExibirObservacao bMultiplosAtendentes"));
        QCOMPARE(consultar(QStringLiteral("SELECT dflt_value FROM pragma_table_info('Tb_Departamento') WHERE "
                                          "name = 'Impressora' AND type = 'nvarchar(255)' AND \"notnull\"")),
                 QStringLiteral("'%1'").arg(defaultPrinterName()));
        QCOMPARE(consultar(QStringLiteral("SELECT group_concat(name) FROM (SELECT name FROM sqlite_master "
                                          "WHERE name LIKE 'PK%' ORDER BY name)")),
                 QStringLiteral("PK_CLIENTES,PK_Tb_Colaborador"));
        QCOMPARE(
            consultar(QStringLiteral(
                "SELECT group_concat(k, ' ') FROM (SELECT substr(m.name, 13) || '.' || f.\"from\" || '>' "
                "|| f.\"table\" AS k FROM sqlite_master m, pragma_foreign_key_list(m.name) f ORDER BY k)")),
            QStringLiteral(".id_cliente>CLIENTES .id_colaborador>Tb_Colaborador "
                           ".quem_cancelou>Tb_Colaborador Itens.id_comanda>Tb_Comandas "
                           "Itens.id_comanda_origem>Tb_Comandas Itens.quem_excluiu>Tb_Colaborador "
                           "Itens.quem_incluiu>Tb_Colaborador Recebimentos.id_colaborador>Tb_Colaborador "
                           "Recebimentos.id_comanda>Tb_Comandas Recebimentos.quem_excluiu>Tb_Colaborador"));

        // Up to date: one catalogue test per step, two for the department printer, and nothing else.
        const QString esquema = QStringLiteral("SELECT group_concat(sql, ';') FROM sqlite_master");
        const QVariant antes = consultar(esquema);
        const QStringList segunda = executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QCOMPARE(consultar(esquema), antes);
        QCOMPARE(segunda.filter(QStringLiteral("SELECT COUNT(*) FROM ")).size(), 24);
        QCOMPARE(segunda.size(), 24);
    }

    // A store from before the indexes gains each one once, and its hot query then reads through it
    // rather than the whole history.
    void indiceDaConsultaQuente_data() {
        QTest::addColumn<QString>("indice");
        QTest::addColumn<QString>("consulta");
        QTest::addColumn<QString>("plano");
        QTest::newRow("mapa") << QStringLiteral("IX_Tb_Comandas_abertas")
                              << QStringLiteral("SELECT * FROM Tb_Comandas WHERE status <> 0")
                              << QStringLiteral("SCAN Tb_Comandas USING INDEX IX_Tb_Comandas_abertas");
        QTest::newRow("mesa") << QStringLiteral("IX_Tb_Comandas_abertas")
                              << QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 5 AND status <> 0")
                              << QStringLiteral(
                                     "SEARCH Tb_Comandas USING INDEX IX_Tb_Comandas_abertas (mesa=?)");
        QTest::newRow("itens") << QStringLiteral("IX_Tb_Comandas_Itens_id_comanda")
                               << QStringLiteral(
                                      "SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda "
                                      "= 7 AND status = 1")
                               << QStringLiteral("SEARCH Tb_Comandas_Itens USING INDEX "
                                                 "IX_Tb_Comandas_Itens_id_comanda (id_comanda=?)");
        QTest::newRow("recebimentos")
            << QStringLiteral("IX_Tb_Comandas_Recebimentos_id_comanda")
            << QStringLiteral(
                   "SELECT * FROM Tb_Comandas_Recebimentos WHERE (id_comanda = 7) AND (status = 1)")
            << QStringLiteral("SEARCH Tb_Comandas_Recebimentos USING INDEX "
                              "IX_Tb_Comandas_Recebimentos_id_comanda (id_comanda=?)");
    }
    void indiceDaConsultaQuente() {
        QFETCH(QString, indice);
        QFETCH(QString, consulta);
        QFETCH(QString, plano);
        executarAtualizacao();
        executar(QStringLiteral("DROP INDEX [%1]").arg(indice));
        const QString explicar = QStringLiteral("EXPLAIN QUERY PLAN ") + consulta;
        QVERIFY(!consultar(explicar, 3).toString().contains(indice));

        QCOMPARE(executarAtualizacao().filter(QStringLiteral("CREATE INDEX [%1]").arg(indice)).size(), 1);
        QVERIFY(boxes().isEmpty());
        QCOMPARE(consultar(explicar, 3).toString(), plano);
        QVERIFY(executarAtualizacao().filter(QStringLiteral("CREATE")).isEmpty());
    }

    // A back office that differs: the key already there under its name, or no departments, which
    // skips the printer column's test. Nothing is said, and the rest goes on.
    void passoDispensado_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<QString>("naoEnviado");
        QTest::newRow("PK_CLIENTES presente")
            << QStringLiteral("CREATE UNIQUE INDEX PK_CLIENTES ON CLIENTES (ID_CODIGO)")
            << QStringLiteral("[PK_CLIENTES]");
        QTest::newRow("sem Tb_Departamento")
            << QStringLiteral("DROP TABLE Tb_Departamento") << QStringLiteral("Impressora");
    }
    void passoDispensado() {
        QFETCH(QString, preparo);
        QFETCH(QString, naoEnviado);
        executar(preparo);
        const QStringList enviados = executarAtualizacao();
        QVERIFY(boxes().isEmpty());
        QVERIFY(enviados.filter(naoEnviado).isEmpty());
        QCOMPARE(enviados.filter(QStringLiteral("[PK_Tb_Colaborador]")).size(), 1);
    }

    // Departments that can't take the column: one box, and the tab tables still come.
    void alterRecusadoCustaUmaCaixaESegue() {
        executar(QStringLiteral("DROP TABLE Tb_Departamento"));
        executar(QStringLiteral("CREATE VIEW Tb_Departamento AS SELECT 1 AS ID_Departamento"));
        executarAtualizacao();
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().prompt.endsWith(QStringLiteral(" : %1").arg(vbErr::SyntaxError)),
                 qPrintable(boxes().first().prompt));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QVERIFY(!processEnded());
        QCOMPARE(
            consultar(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name LIKE 'Tb_Comandas%'"))
                .toInt(),
            3);
    }

    // The server receives these 70 lines character for character; no test here runs
    // them, so their digest guards every blank and bracket. The printer's name goes into the
    // department column as it stands, apostrophe and all.
    void sqlServerRecebeOsTextosDeSempre() {
        const QStringList linhas = textosSqlServer(passosDoBanco(QStringLiteral("EPSON D'AVILA")));
        QCOMPARE(linhas.size(), 70);
        // The indexes' lines, written out: a filtered index needs the server's own spelling.
        QCOMPARE(linhas.at(65), QStringLiteral("CREATE NONCLUSTERED INDEX [IX_Tb_Comandas_abertas] ON "
                                               "[dbo].[Tb_Comandas] ([mesa] ASC) WHERE [status] <> 0"));
        QCOMPARE(linhas.at(68), QStringLiteral("SELECT COUNT(*) FROM sys.indexes WHERE object_id = "
                                               "OBJECT_ID('dbo.Tb_Comandas_Recebimentos') AND name = "
                                               "'IX_Tb_Comandas_Recebimentos_id_comanda' = 0"));
        QCOMPARE(linhas.at(34),
                 QStringLiteral("  ALTER TABLE Tb_Departamento ADD Impressora nvarchar(255) NOT "
                                "NULL DEFAULT 'EPSON D'AVILA'"));
        const QByteArray texto = linhas.join(QLatin1Char('\n')).toUtf8();
        QVERIFY2(QCryptographicHash::hash(texto, QCryptographicHash::Sha1).toHex() ==
                     "fa22687e8932de09ad7e155b39c502c06c4549ec",
                 texto.constData());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestAtualizarBanco)
#include "tst_atualizarBanco.moc"
