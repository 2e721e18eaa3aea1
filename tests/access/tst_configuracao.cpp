#include "access/Frm_Configuracao.h"
#include "platform/Connection.h"
#include "platform/Printers.h"
#include "platform/UpDown.h"
#include "platform/VbText.h"
#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TestMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {
// Shows the screen, lets mexer change it, leaves with Escape; gives whether the process ended.
bool ajustar(const std::function<void(Frm_Configuracao&)>& mexer) {
    onNextModal<Frm_Configuracao>([mexer](Frm_Configuracao* f) {
        mexer(*f);
        QTest::keyClick(f, Qt::Key_Escape);
        if (processEnded())
            Form::unloadAll();
    });
    Frm_Configuracao::instance().ShowModal();
    return processEnded();
}

QVariantList globais() {
    return {multiplosAtendentes, exibirObservacao, cobrarServico, buscaInicio, bloquearAposConferencia,
            imprimirItens,       quantidadeMesas,  tempoParaOcio, taxaServico};
}

QString linhaDeVendas() {
    Connection cn;
    cn.Open(conexaoLocal);
    Recordset rs = cn.Execute(QStringLiteral("SELECT * FROM Tb_ConVendas"));
    QStringList valores;
    for (int i = 0; i < rs.FieldCount(); ++i)
        valores << rs.Fields(i).Value().toString();
    return valores.join(QLatin1Char('|'));
}

// The mask posts keys to its own field: let them arrive before the next one.
void escoarTeclas() {
    for (int i = 0; i < 10; ++i)
        QCoreApplication::sendPostedEvents();
}

void digitarTaxa(Frm_Configuracao& f, const QString& teclas, const QString& esperado) {
    f.Text_Aliquota_Servico->setFocus();
    f.Text_Aliquota_Servico->selectAll();
    QTest::keyClick(f.Text_Aliquota_Servico, Qt::Key_Backspace);
    escoarTeclas();
    QCOMPARE(f.Text_Aliquota_Servico->text(), QStringLiteral("0,00"));
    for (const QChar c : teclas) {
        QTest::keyClick(f.Text_Aliquota_Servico, c.toLatin1());
        escoarTeclas();
    }
    QCOMPARE(f.Text_Aliquota_Servico->text(), esperado);
}
} // namespace

// 26 tables, 10 % service, printer CAIXA among three, server SERVIDOR-A; the database as the upgrade
// leaves it (0 tables, 0 minutes to idle).
class TestConfiguracao : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> m_env;

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*m_env);
        impressorasDoSistema = [] { return QStringList{"BALCAO", "CAIXA", "COZINHA"}; };
        servidorLocal = QStringLiteral("SERVIDOR-A");
        gravarIni(arquivoServerIni(), QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO"), servidorLocal);
        impressoraConferencia = QStringLiteral("CAIXA");
        cobrarServico = buscaInicio = bloquearAposConferencia = true;
        taxaServico = 10;
        quantidadeMesas = 26;
        tempoParaOcio = 0;
    }
    void cleanup() {
        impressorasDoSistema = printerNames;
        m_env.reset();
    }

    // A refusal or a No saves nothing at all; a Yes saves, writes the new address, gives notice and
    // ends the process; a connection lost on the save ends it before SERVER.ini is touched.
    void perguntas_data() {
        QTest::addColumn<int>("mesas");
        QTest::addColumn<QString>("servidor");
        QTest::addColumn<int>("resposta");
        QTest::addColumn<bool>("conexaoCai");
        QTest::addColumn<QStringList>("mensagens");
        const QString reiniciar = pergunta(
            QStringLiteral("Algumas alterações exigem que o software seja reiniciado. Deseja prosseguir?"));
        const QString fechar = aviso(QStringLiteral("O sistema será fechado, execute-o novamente."));
        const QString ip = QStringLiteral("10.0.0.9"), nenhum;
        const QStringList nao{reiniciar}, sim{reiniciar, fechar};
        QTest::newRow("mesa 25 ocupada, 20 mesas")
            << 20 << nenhum << int(vbNo) << false
            << QStringList{atencao(QStringLiteral(
                   "Não é possível utilizar apenas 20 mesas enquanto a mesa 0025 estiver ocupada!"))};
        QTest::newRow("mais mesas, não") << 28 << nenhum << int(vbNo) << false << nao;
        QTest::newRow("outro servidor, não") << 26 << ip << int(vbNo) << false << nao;
        QTest::newRow("mais mesas, sim") << 30 << nenhum << int(vbYes) << false << sim;
        QTest::newRow("outro servidor, sim") << 26 << ip << int(vbYes) << false << sim;
        QTest::newRow("outro servidor, conexão perdida")
            << 26 << ip << int(vbYes) << true
            << QStringList{reiniciar,
                           atencao(QStringLiteral("Falha na conexão com base de dados em: \\\\10.0.0.9"))};
    }
    void perguntas() {
        QFETCH(int, mesas);
        QFETCH(QString, servidor);
        QFETCH(int, resposta);
        QFETCH(bool, conexaoCai);
        QFETCH(QStringList, mensagens);
        abrirComanda(25, 1);
        abrirComanda(3, 0); // closed
        const QString antes = linhaDeVendas();
        if (conexaoCai)
            setStatementObserver([](const QString& sql) {
                if (sql.contains(QLatin1String("Tb_Convendas")))
                    raiseError(vbErr::ConnectionFailure, QStringLiteral("TCP Provider: connection reset"));
            });
        queueAnswer(resposta);
        const bool terminou = ajustar([&](Frm_Configuracao& f) {
            f.UpDown_Quantidade_Mesas->stepBy(mesas - 26);
            if (!servidor.isEmpty())
                f.Text_Servidor->setText(servidor);
            f.Chk_Multiplos_Atendentes->setChecked(true);
            f.Cmb_Impressora_Conferencia->setCurrentIndex(0);
            digitarTaxa(f, "1", "0,01");
        });
        setStatementObserver(nullptr);
        const bool gravou = terminou && !conexaoCai;
        QCOMPARE(caixas(), mensagens);
        QCOMPARE(terminou, resposta == vbYes);
        QVERIFY(!Form::isLoaded<Frm_Configuracao>());
        QCOMPARE(linhaDeVendas() == antes, !gravou);
        QCOMPARE(consultar("SELECT iQuantidadeMesa FROM Tb_ConVendas").toInt(), gravou ? mesas : 0);
        QCOMPARE(multiplosAtendentes, gravou);
        QCOMPARE(QFile::exists(arquivoConfigIni()), gravou);
        QCOMPARE(quantidadeMesas, qint16(terminou ? mesas : 26));
        QCOMPARE(servidorLocal, terminou && !servidor.isEmpty() ? servidor : QStringLiteral("SERVIDOR-A"));
        QCOMPARE(lerIni(arquivoServerIni(), "SERVIDOR", "IPCONEXAO"),
                 gravou && !servidor.isEmpty() ? servidor : QStringLiteral("SERVIDOR-A"));
    }

    // No restart needed: no question, everything written and live at once, and read back on the next start.
    void gravaAoFechar_data() {
        QTest::addColumn<QString>("impressoraAntes");
        QTest::addColumn<int>("ocio"); // arrows pressed, and the minutes they give
        QTest::addColumn<QString>("taxaDigitada");
        QTest::addColumn<double>("taxa");
        QTest::addColumn<QString>("impressoraDepois");
        QTest::newRow("nada mudou") << "CAIXA" << 0 << "" << 10.0 << "CAIXA";
        QTest::newRow("só a taxa, letra recusada") << "CAIXA" << 0 << "12a5x0" << 12.5 << "CAIXA";
        QTest::newRow("ócio abaixo do mínimo, uma seta") << "CAIXA" << 1 << "" << 10.0 << "CAIXA";
        QTest::newRow("impressora desinstalada") << "ANTIGA" << 0 << "" << 10.0 << "";
        QTest::newRow("impressora em minúsculas") << "cozinha" << 0 << "" << 10.0 << "COZINHA";
    }
    void gravaAoFechar() {
        QFETCH(QString, impressoraAntes);
        QFETCH(int, ocio);
        QFETCH(QString, taxaDigitada);
        QFETCH(double, taxa);
        QFETCH(QString, impressoraDepois);
        impressoraConferencia = impressoraAntes;
        const bool terminou = ajustar([&](Frm_Configuracao& f) {
            if (!taxaDigitada.isEmpty())
                digitarTaxa(f, taxaDigitada, Format(taxa, QStringLiteral("#0.00")));
            f.UpDown_Tempo_Ocio->stepBy(ocio);
        });
        QVERIFY(!terminou);
        QVERIFY(boxes().isEmpty());
        QCOMPARE(impressoraConferencia, impressoraDepois);
        QCOMPARE(lerIni(arquivoConfigIni(), "PRINTERS", "CONFERENCIA"), impressoraDepois);

        const QVariantList esperado{false, false, true, true, true, false, qint16(26), qint16(ocio), taxa};
        QCOMPARE(globais(), esperado);
        const QString conexao = conexaoLocal;
        limparVariaveisGlobais();
        conexaoLocal = conexao;
        QVERIFY(lerDadosLocais());
        QCOMPARE(globais(), esperado);
    }
};

ZARVEL_TEST(TestConfiguracao)
#include "tst_configuracao.moc"
