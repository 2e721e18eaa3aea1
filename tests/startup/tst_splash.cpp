#include "Ferramentas.h"

#include "access/Frm_Login.h"
#include "platform/Connection.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/SingleInstance.h"
#include "startup/Frm_Splash.h"
#include "startup/rotinasGerais.h"
#include "startup/variaveisGlobais.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {
const QByteArray serverIniPadrao = "[SERVIDOR]\r\nNOME=NORVIK\r\nIPCONEXAO=127.0.0.1\r\nPORTA=1433\r\n"
                                   "BANCO=ACCESS\r\n[USUARIO]\r\nLOGIN=master\r\nSENHA=************\r\n"
                                   "[PARAMETROS]\r\nCNPJ=\r\nPromo_Web=1\r\nDashboard=0";

// The start as the program makes it: the screen loads, shows itself and runs its steps.
void iniciar() {
    try {
        Frm_Splash::instance().Show();
    } catch (const ProcessEnded&) {
    }
}

// SERVER.ini naming the test's back-office database.
void apontarParaOBanco(const TestEnvironment& env, const QString& preparo = QString()) {
    const QString conexao = backOfficeDatabase(env);
    escreverArquivo(env.machineFolder() + QStringLiteral("/SERVER.ini"),
                    "[SERVIDOR]\r\nIPCONEXAO=" + databaseFileOf(conexao).toUtf8() + "\r\n");
    if (!preparo.isEmpty()) {
        Connection cn;
        cn.Open(conexao);
        cn.Execute(preparo);
    }
}

bool ampulheta() {
    return QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

void soltarPonteiro() {
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}
} // namespace

class TestSplash : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { soltarPonteiro(); }

    // The five steps pass, then the login opens and the start-up screen is gone; or the start ends
    // there: settings that can't be read with the default pointer, user control off with the
    // hourglass left as it was.
    void cincoPassos_data() {
        QTest::addColumn<QString>("preparo");
        QTest::addColumn<QString>("mensagem"); // empty: the login opens
        QTest::addColumn<bool>("ampulhetaFica");
        // The back office has already let its staff in.
        QTest::newRow("ate o login") << QStringLiteral(
                                            "ALTER TABLE Tb_Colaborador ADD bZarvel bit NOT NULL DEFAULT 1")
                                     << QString() << false;
        QTest::newRow("sem parametros") << QStringLiteral("DELETE FROM Tb_ConVendas")
                                        << QStringLiteral("Parâmetros não configurados!") << false;
        QTest::newRow("controle de usuario desligado")
            << QStringLiteral("UPDATE Tb_Usuario SET conAcesso = 0")
            << QStringLiteral("Ative o controle de usuário") << true;
    }
    void cincoPassos() {
        QFETCH(QString, preparo);
        QFETCH(QString, mensagem);
        QFETCH(bool, ampulhetaFica);
        TestEnvironment env;
        apontarParaOBanco(env, preparo);
        LinhasDeProgresso progresso;
        iniciar();
        QCOMPARE(progresso.linhas(), (QStringList{QStringLiteral("Verificando arquivos de configuração..."),
                                                  QStringLiteral("Obtendo servidor local..."),
                                                  QStringLiteral("Definindo Conexão..."),
                                                  QStringLiteral("Verificando banco de dados..."),
                                                  QStringLiteral("Fazendo leitura dos dados locais...")}));
        QCOMPARE(ampulheta(), ampulhetaFica);
        QCOMPARE(processEnded(), !mensagem.isEmpty());
        QCOMPARE(Form::isLoaded<Frm_Login>(), mensagem.isEmpty());
        if (mensagem.isEmpty()) {
            QVERIFY(boxes().isEmpty());
            QVERIFY(!Form::isLoaded<Frm_Splash>());
            QVERIFY(Frm_Login::instance().isVisible());
            QVERIFY(!QApplication::overrideCursor());
            return;
        }
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().prompt.startsWith(mensagem), qPrintable(boxes().first().prompt));
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
    }

    // The folder must exist before the first start: without it the general handler's box stays
    // with the screen and the hourglass, and nothing else happens.
    void pastaDaMaquinaAusenteDeixaATelaParada() {
        TestEnvironment env;
        setMachineFolder(env.scratchPath(QStringLiteral("Tarvex")));
        LinhasDeProgresso progresso;
        iniciar();
        QCOMPARE(progresso.linhas(), (QStringList{QStringLiteral("Verificando arquivos de configuração..."),
                                                  QStringLiteral("Criando Server.ini...")}));
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, QStringLiteral("Path not found : 76"));
        QCOMPARE(boxes().first().style, int(vbOKOnly));
        QCOMPARE(boxes().first().title, QStringLiteral("Zarvel"));
        QVERIFY(!processEnded());
        QVERIFY(Form::isLoaded<Frm_Splash>());
        QVERIFY(Frm_Splash::instance().isVisible());
        // The box comes up over the screen that stays: a screen kept on top would hide it.
        QVERIFY(!(Frm_Splash::instance().windowFlags() & Qt::WindowStaysOnTopHint));
        QVERIFY(ampulheta());
        QVERIFY(servidorLocal.isEmpty());
    }

    // No SERVER.ini: the default file is made and its address, the local machine, is tried; with
    // no server there the start ends during the database check.
    void serverIniAusenteUsaOEnderecoPadrao() {
        TestEnvironment env;
        LinhasDeProgresso progresso;
        iniciar();
        QCOMPARE(conteudo(env.machineFolder() + QStringLiteral("/SERVER.ini")), serverIniPadrao);
        const QString falha = QStringLiteral("Falha na conexão com base de dados em: \\\\127.0.0.1");
        QCOMPARE(
            progresso.linhas(),
            (QStringList{QStringLiteral("Verificando arquivos de configuração..."),
                         QStringLiteral("Criando Server.ini..."), QStringLiteral("Obtendo servidor local..."),
                         QStringLiteral("Definindo Conexão..."),
                         QStringLiteral("Verificando banco de dados..."), falha + QStringLiteral("...")}));
        QCOMPARE(
            conexaoLocal,
            QStringLiteral("Provider=SQLNCLI;Server=127.0.0.1;Database=Norvik;Uid=sa;Pwd=@vzqrmlkd#318"));
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, falha);
        QCOMPARE(boxes().first().style, int(vbCritical));
        QCOMPARE(boxes().first().title, QStringLiteral("Atenção"));
        QVERIFY(processEnded());
        // The message stays on the progress line behind the box.
        QCOMPARE(Frm_Splash::instance().lblWarning->text(), falha + QStringLiteral("..."));
    }

    // The updater runs while the screen is still loading, and the screen waits for it.
    void telaEsperaOAtualizador() {
        TestEnvironment env;
        const QString registro = env.scratchPath(QStringLiteral("execucoes"));
        escreverFerramenta(env.programFolder(), registro,
                           QStringLiteral("sleep 0.3; echo fim >> '%1'").arg(registro));
        Frm_Splash& tela = Frm_Splash::instance();
        QCOMPARE(execucoes(registro), (QStringList{env.programFolder(), QStringLiteral("fim")}));
        QVERIFY(!tela.isVisible());
        QVERIFY(QRegularExpression(QStringLiteral("^Versão \\d+\\.\\d+\\.\\d+$"))
                    .match(tela.lblVersion->text())
                    .hasMatch());
    }

    // A second process on the same machine stops at the message, before the updater.
    void segundaCopiaERecusada() {
        TestEnvironment env;
        QVERIFY(!PrevInstance());
        const QString registro = env.scratchPath(QStringLiteral("execucoes"));
        escreverFerramenta(env.programFolder(), registro);

        QProcess segunda;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("ZARVEL_TEST_CLASS"), QStringLiteral("TestSegundaCopia"));
        ambiente.insert(QStringLiteral("ZARVEL_PASTA_DA_MAQUINA"), env.machineFolder());
        ambiente.insert(QStringLiteral("ZARVEL_PASTA_DO_PROGRAMA"), env.programFolder());
        segunda.setProcessEnvironment(ambiente);
        segunda.start(QCoreApplication::applicationFilePath(), {QStringLiteral("-silent")});
        QVERIFY(segunda.waitForFinished(60000));
        const QByteArray saida = segunda.readAllStandardOutput();
        QVERIFY2(segunda.exitCode() == 0 && saida.contains(" 0 failed, 0 skipped"), saida.constData());
        QVERIFY(execucoes(registro).isEmpty());
    }
};

// Runs only inside the second process started above.
class TestSegundaCopia : public QObject {
    Q_OBJECT

private slots:
    void mostraAMensagemETermina() {
        if (qEnvironmentVariableIsEmpty("ZARVEL_PASTA_DA_MAQUINA"))
            QSKIP("only as the second process of TestSplash");
        TestEnvironment env;
        setMachineFolder(qEnvironmentVariable("ZARVEL_PASTA_DA_MAQUINA"));
        setProgramFolder(qEnvironmentVariable("ZARVEL_PASTA_DO_PROGRAMA"));
        iniciar();
        QVERIFY(processEnded());
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, QStringLiteral("O Zarvel já está em execução!"));
        QCOMPARE(boxes().first().style, int(vbInformation));
        QCOMPARE(boxes().first().title, QStringLiteral("Aviso"));
    }
};

ZARVEL_TEST(TestSplash)
ZARVEL_TEST(TestSegundaCopia)
#include "tst_splash.moc"
