#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TestMain.h"

#include <QTest>

class TestDadosLocais : public QObject {
    Q_OBJECT

private slots:
    // A back-office database after this system's upgrade.
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*m_env);
    }
    void cleanup() { m_env.reset(); }

    void leOsValoresDoBanco() {
        executar(
            QStringLiteral("UPDATE Tb_ConVendas SET Fantasia = '  BAR  ', bMultiplosAtendentes = 1, "
                           "bProdutos = 1, bImprimirItens = 1, iQuantidadeMesa = 12, iTempoParaOcio = 15, "
                           "iTaxa = 12.5"));
        gravarIni(arquivoConfigIni(), QStringLiteral("PRINTERS"), QStringLiteral("CONFERENCIA"),
                  QStringLiteral("CAIXA 2"));
        QVERIFY(lerDadosLocais());
        QVERIFY(boxes().isEmpty());
        QCOMPARE(
            (QVariantList{nomeFantasia, impressoraConferencia, multiplosAtendentes, exibirObservacao,
                          cobrarServico, buscaInicio, bloquearAposConferencia, imprimirItens, quantidadeMesas,
                          tempoParaOcio, taxaServico, cnpjEmpresa, razaoSocial, controleUsuario}),
            (QVariantList{QStringLiteral("BAR"), QStringLiteral("CAIXA 2"), true, false, true, true, false,
                          true, qint16(12), qint16(15), 12.5, QStringLiteral("12.345.678/0001-90"),
                          QStringLiteral("BAR DO TESTE LTDA"), true}));
    }

    // The column's default of 0 after the upgrade, or too many tables, read as the full map.
    void quantidadeDeMesas_data() {
        QTest::addColumn<int>("coluna");
        QTest::newRow("0") << 0;
        QTest::newRow("31") << 31;
        QTest::newRow("200") << 200;
    }
    void quantidadeDeMesas() {
        QFETCH(int, coluna);
        executar(QStringLiteral("UPDATE Tb_ConVendas SET iQuantidadeMesa = %1").arg(coluna));
        QVERIFY(lerDadosLocais());
        QCOMPARE(quantidadeMesas, qint16(30));
    }

    // The reading fails with one box: the parameters message, or a run-time error. Only bProdutos
    // reads a Null, as false.
    void leituraRecusada_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<QString>("caixa"); // empty: read
        const QString parametros =
            atencao(QStringLiteral("Parâmetros não configurados!\r\nServidor: \\\\NORVIK"));
        QTest::newRow("sem vendas") << QStringLiteral("DELETE FROM Tb_ConVendas") << parametros;
        QTest::newRow("duas vendas") << QStringLiteral("INSERT INTO Tb_ConVendas (Fantasia) VALUES ('OUTRO')")
                                     << parametros;
        QTest::newRow("bServico nulo") << QStringLiteral("UPDATE Tb_ConVendas SET bServico = NULL")
                                       << atencao(QStringLiteral("Invalid use of Null : 94"));
        QTest::newRow("bProdutos nulo")
            << QStringLiteral("UPDATE Tb_ConVendas SET bProdutos = NULL") << QString();
    }
    void leituraRecusada() {
        QFETCH(QString, preparo);
        QFETCH(QString, caixa);
        // The back office's own definitions don't allow a Null: make the table as an older one did.
        executar(QStringLiteral("ALTER TABLE Tb_ConVendas RENAME TO Tb_ConVendas_Antiga"));
        executar(QStringLiteral("CREATE TABLE Tb_ConVendas AS SELECT * FROM Tb_ConVendas_Antiga"));
        executar(preparo);
        servidorLocal = QStringLiteral("NORVIK");
        buscaInicio = true;
        QCOMPARE(lerDadosLocais(), caixa.isEmpty());
        QCOMPARE(caixas(), caixa.isEmpty() ? QStringList() : QStringList{caixa});
        QCOMPARE(buscaInicio, !caixa.isEmpty());
        QVERIFY(!processEnded());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestDadosLocais)
#include "tst_dadosLocais.moc"
