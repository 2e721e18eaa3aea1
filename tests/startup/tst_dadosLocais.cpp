#include "Ferramentas.h"

#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/Printers.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "startup/Frm_Splash.h"
#include "startup/atualizarBanco.h"
#include "startup/rotinasGerais.h"
#include "startup/variaveisGlobais.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QTest>

namespace {
void executar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    cn.Execute(sql);
}
} // namespace

class TestDadosLocais : public QObject {
    Q_OBJECT

private slots:
    // A back-office database after this system's upgrade.
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        conexaoLocal = backOfficeDatabase(*m_env);
        servidorLocal = databaseFileOf(conexaoLocal);
        atualizarBanco();
    }
    void cleanup() { m_env.reset(); }

    void leOsValoresDoBanco() {
        executar(
            QStringLiteral("UPDATE Tb_ConVendas SET Fantasia = '  BAR DO TESTE  ', bMultiplosAtendentes = 1, "
                           "bExibirObservacao = 1, bProdutos = 1, bImprimirItens = 1, iQuantidadeMesa = 12, "
                           "iTempoParaOcio = 15, iTaxa = 12.5"));
        // With two company rows the first one counts.
        executar(QStringLiteral("INSERT INTO Tb_Usuario (CNPJ, RS, conAcesso) VALUES ('99', 'SEGUNDA', 0)"));
        QVERIFY(lerDadosLocais());
        QVERIFY(boxes().isEmpty());
        QCOMPARE(nomeFantasia, QStringLiteral("BAR DO TESTE"));
        QVERIFY(multiplosAtendentes);
        QVERIFY(exibirObservacao);
        QVERIFY(cobrarServico);
        QVERIFY(buscaInicio);
        QVERIFY(!bloquearAposConferencia);
        QVERIFY(imprimirItens);
        QCOMPARE(quantidadeMesas, qint16(12));
        QCOMPARE(tempoParaOcio, qint16(15));
        QCOMPARE(taxaServico, 12.5);
        QCOMPARE(cnpjEmpresa, QStringLiteral("12.345.678/0001-90"));
        QCOMPARE(razaoSocial, QStringLiteral("BAR DO TESTE LTDA"));
        QVERIFY(controleUsuario);
        QCOMPARE(Frm_Splash::instance().Ado_Inicializacao->ConnectionTimeout, 5);
    }

    void quantidadeDeMesas_data() {
        QTest::addColumn<int>("coluna");
        QTest::addColumn<int>("mesas");
        QTest::newRow("0 depois da atualização") << 0 << 30;
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("30") << 30 << 30;
        QTest::newRow("31") << 31 << 30;
        QTest::newRow("200") << 200 << 30;
    }
    void quantidadeDeMesas() {
        QFETCH(int, coluna);
        QFETCH(int, mesas);
        executar(QStringLiteral("UPDATE Tb_ConVendas SET iQuantidadeMesa = %1").arg(coluna));
        QVERIFY(lerDadosLocais());
        QCOMPARE(quantidadeMesas, qint16(mesas));
    }

    // The conference printer: this terminal's config.ini, else the machine's default printer.
    void impressoraDaConferencia_data() {
        QTest::addColumn<QByteArray>("config");
        QTest::addColumn<QString>("impressora");
        QTest::newRow("sem arquivo") << QByteArray() << defaultPrinterName();
        QTest::newRow("sem a chave") << QByteArray("[PRINTERS]\r\nCOZINHA=EPSON\r\n") << defaultPrinterName();
        QTest::newRow("chave vazia") << QByteArray("[PRINTERS]\r\nCONFERENCIA=\r\n") << defaultPrinterName();
        QTest::newRow("com a chave") << QByteArray("[PRINTERS]\r\nCONFERENCIA=CAIXA 2\r\n")
                                     << QStringLiteral("CAIXA 2");
    }
    void impressoraDaConferencia() {
        QFETCH(QByteArray, config);
        QFETCH(QString, impressora);
        const QString arquivo = m_env->programFolder() + QStringLiteral("/config.ini");
        if (!config.isEmpty())
            escreverArquivo(arquivo, config);
        QVERIFY(lerDadosLocais());
        QCOMPARE(impressoraConferencia, impressora);
        QCOMPARE(conteudo(arquivo), config); // read, never written
    }

    // The parameter message; whatever was read before it stays.
    void parametrosNaoConfigurados_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<QString>("fantasia");
        QTest::newRow("sem vendas") << QStringLiteral("DELETE FROM Tb_ConVendas") << QString();
        QTest::newRow("duas vendas") << QStringLiteral("INSERT INTO Tb_ConVendas (Fantasia) VALUES ('OUTRO')")
                                     << QString();
        QTest::newRow("sem usuario") << QStringLiteral("DELETE FROM Tb_Usuario")
                                     << QStringLiteral("BAR DO TESTE");
    }
    void parametrosNaoConfigurados() {
        QFETCH(QString, preparo);
        QFETCH(QString, fantasia);
        executar(preparo);
        QVERIFY(!lerDadosLocais());
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt,
                 QStringLiteral("Parâmetros não configurados!\r\nServidor: \\\\") + servidorLocal);
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QCOMPARE(nomeFantasia, fantasia);
        QVERIFY(!processEnded());
    }

    // Only bProdutos reads a Null as false; a Null anywhere else, or a missing column, is a run-time
    // error that the routine reports on the progress line and in a box, and the reading fails. Only
    // a failed connection keeps the data control quiet: a failed query shows its own box first.
    void valoresQueNaoSeLeem_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<int>("erro"); // 0: read
        QTest::addColumn<int>("caixas");
        const int nulo = vbErr::InvalidUseOfNull;
        QTest::newRow("bProdutos nulo")
            << QStringLiteral("UPDATE Tb_ConVendas SET bProdutos = NULL") << 0 << 0;
        QTest::newRow("bServico nulo")
            << QStringLiteral("UPDATE Tb_ConVendas SET bServico = NULL") << nulo << 1;
        QTest::newRow("Fantasia nula")
            << QStringLiteral("UPDATE Tb_ConVendas SET Fantasia = NULL") << nulo << 1;
        QTest::newRow("sem conAcesso") << QStringLiteral("ALTER TABLE Tb_Usuario DROP COLUMN conAcesso")
                                       << int(vbErr::ItemNotFound) << 1;
        QTest::newRow("sem Tb_Usuario")
            << QStringLiteral("DROP TABLE Tb_Usuario") << int(vbErr::SyntaxError) << 2;
    }
    void valoresQueNaoSeLeem() {
        QFETCH(QString, preparo);
        QFETCH(int, erro);
        QFETCH(int, caixas);
        // The back office's own definitions don't allow a Null: make the table as an older one did.
        executar(QStringLiteral("ALTER TABLE Tb_ConVendas RENAME TO Tb_ConVendas_Antiga"));
        executar(QStringLiteral("CREATE TABLE Tb_ConVendas AS SELECT * FROM Tb_ConVendas_Antiga"));
        executar(preparo);
        buscaInicio = true;
        QCOMPARE(lerDadosLocais(), erro == 0);
        QVERIFY(!processEnded());
        if (erro == 0) {
            QVERIFY(boxes().isEmpty());
            QVERIFY(!buscaInicio);
            return;
        }
        QCOMPARE(boxes().size(), caixas);
        const QString mensagem = boxes().last().prompt;
        QVERIFY2(mensagem.endsWith(QStringLiteral(" : %1").arg(erro)), qPrintable(mensagem));
        QCOMPARE(boxes().last().style, int(vbCritical));
        QCOMPARE(boxes().last().title, QStringLiteral("Atenção"));
        QCOMPARE(Frm_Splash::instance().lblWarning->text(), mensagem + QStringLiteral("..."));
    }

    void bancoInalcancavelEncerra() {
        servidorLocal = m_env->scratchPath(QStringLiteral("sumiu.db"));
        conexaoLocal = QStringLiteral("Provider=SQLNCLI;Server=") + servidorLocal +
                       QStringLiteral(";Database=Norvik;Uid=sa;Pwd=@vzqrmlkd#318");
        try {
            lerDadosLocais();
            QFAIL("the process should have ended");
        } catch (const ProcessEnded&) {
        }
        const QString mensagem =
            QStringLiteral("Falha na conexão com base de dados em: \\\\") + servidorLocal;
        // One box: the data control keeps quiet about the failed connection.
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, mensagem);
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QCOMPARE(Frm_Splash::instance().lblWarning->text(), mensagem + QStringLiteral("..."));
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestDadosLocais)
#include "tst_dadosLocais.moc"
