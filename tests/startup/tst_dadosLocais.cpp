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

#include <QFileInfo>
#include <QLabel>
#include <QTest>

namespace {
void executar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    cn.Execute(sql);
}

QString mensagemDeParametros() {
    return QStringLiteral("Parâmetros não configurados!\r\nServidor: \\\\") + servidorLocal;
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
        QCOMPARE(boxes().first().prompt, mensagemDeParametros());
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QCOMPARE(nomeFantasia, fantasia);
        QVERIFY(!processEnded());
    }

    void doisUsuariosValeOPrimeiro() {
        executar(QStringLiteral("INSERT INTO Tb_Usuario (CNPJ, RS, conAcesso) VALUES ('99', 'SEGUNDA', 0)"));
        QVERIFY(lerDadosLocais());
        QCOMPARE(razaoSocial, QStringLiteral("BAR DO TESTE LTDA"));
        QVERIFY(controleUsuario);
    }

    // Only bProdutos reads a Null as false; a Null anywhere else is the run time's conversion error.
    void nulos_data() {
        QTest::addColumn<QString>("coluna");
        QTest::addColumn<bool>("lido");
        QTest::newRow("bProdutos") << QStringLiteral("bProdutos") << true;
        QTest::newRow("bServico") << QStringLiteral("bServico") << false;
        QTest::newRow("Fantasia") << QStringLiteral("Fantasia") << false;
    }
    void nulos() {
        QFETCH(QString, coluna);
        QFETCH(bool, lido);
        // The back office's own definition of bServico doesn't allow a Null: make it as an older one did.
        executar(QStringLiteral("ALTER TABLE Tb_ConVendas RENAME TO Tb_ConVendas_Antiga"));
        executar(QStringLiteral("CREATE TABLE Tb_ConVendas AS SELECT * FROM Tb_ConVendas_Antiga"));
        executar(QStringLiteral("UPDATE Tb_ConVendas SET bProdutos = 1, %1 = NULL").arg(coluna));
        QCOMPARE(lerDadosLocais(), lido);
        if (lido) {
            QVERIFY(boxes().isEmpty());
            QVERIFY(!buscaInicio);
            return;
        }
        const QString mensagem = QStringLiteral("Invalid use of Null : 94");
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, mensagem);
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QCOMPARE(Frm_Splash::instance().lblWarning->text(), mensagem + QStringLiteral("..."));
        QVERIFY(!processEnded());
    }

    void colunaAusenteEUmErroComum() {
        executar(QStringLiteral("ALTER TABLE Tb_Usuario DROP COLUMN conAcesso"));
        QVERIFY(!lerDadosLocais());
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().prompt.endsWith(QStringLiteral(" : %1").arg(vbErr::ItemNotFound)),
                 qPrintable(boxes().first().prompt));
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

    // Only a failed connection keeps the data control quiet (above); any other failure of its query
    // shows the control's own box before the routine's.
    void tabelaAusenteMostraAsDuasCaixas() {
        executar(QStringLiteral("DROP TABLE Tb_Usuario"));
        QVERIFY(!lerDadosLocais());
        QCOMPARE(boxes().size(), 2);
        QCOMPARE(boxes().at(1).prompt,
                 boxes().at(0).prompt + QStringLiteral(" : %1").arg(vbErr::SyntaxError));
        QVERIFY(!processEnded());
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestDadosLocais)
#include "tst_dadosLocais.moc"
