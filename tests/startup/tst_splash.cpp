#include "access/Frm_Login.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/SingleInstance.h"
#include "startup/Frm_Splash.h"
#include "startup/atualizador.h"
#include "startup/rotinasInicializacao.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QTest>

namespace {
// The start as the program makes it: the screen loads, shows itself and runs its steps.
void iniciar() {
    try {
        Frm_Splash::instance().Show();
    } catch (const ProcessEnded&) {
    }
}

bool ampulheta() {
    return QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

QByteArray conteudo(const QString& caminho) {
    QFile arquivo(caminho);
    return arquivo.open(QIODevice::ReadOnly) ? arquivo.readAll() : QByteArray();
}

// An updater tool (a shell script under the platform's name for it) that, after a moment, appends
// its folder to the record: a line there once the check is back means that the start waited.
void escreverFerramenta(const QString& pasta, const QString& registro) {
    QFile ferramenta(pasta + QLatin1Char('/') + updaterExecutableName());
    QVERIFY(ferramenta.open(QIODevice::WriteOnly));
    ferramenta.write(
        QStringLiteral("#!/bin/sh\nsleep 0.2\necho \"$(dirname \"$0\")\" >> '%1'\n").arg(registro).toUtf8());
    ferramenta.setPermissions(ferramenta.permissions() | QFileDevice::ExeOwner);
}

QString modulo(const QString& ini, const char* chave) {
    return lerIni(ini, QStringLiteral("MODULO"), QString::fromLatin1(chave));
}
} // namespace

class TestSplash : public QObject {
    Q_OBJECT

private slots:
    void init() { m_env = std::make_unique<TestEnvironment>(); }
    void cleanup() {
        m_env.reset();
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
    }

    // The steps pass and the login opens in place of this screen, or the start ends at the user
    // control, with the hourglass left as it was.
    void ateOLogin_data() {
        QTest::addColumn<int>("conAcesso");
        QTest::newRow("controle de usuario ligado") << 1;
        QTest::newRow("controle de usuario desligado") << 0;
    }
    void ateOLogin() {
        QFETCH(int, conAcesso);
        const QString conexao = backOfficeDatabase(*m_env);
        gravarIni(arquivoServerIni(), QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO"),
                  databaseFileOf(conexao));
        // The back office has already let its staff in.
        executar(QStringLiteral("ALTER TABLE Tb_Colaborador ADD bZarvel bit NOT NULL DEFAULT 1"), conexao);
        executar(QStringLiteral("UPDATE Tb_Usuario SET conAcesso = %1").arg(conAcesso), conexao);
        iniciar();
        QCOMPARE(Form::isLoaded<Frm_Login>(), conAcesso == 1);
        QCOMPARE(Form::isLoaded<Frm_Splash>(), conAcesso == 0);
        QCOMPARE(processEnded(), conAcesso == 0);
        QCOMPARE(ampulheta(), conAcesso == 0);
        QCOMPARE(caixas(), conAcesso ? QStringList()
                                     : QStringList{atencao(QStringLiteral("Ative o controle de usuário"))});
    }

    // The folder must exist before the first start: without it the general handler's box comes up
    // over the screen, which stays with the hourglass, and nothing else happens.
    void pastaDaMaquinaAusenteDeixaATelaParada() {
        setMachineFolder(m_env->scratchPath(QStringLiteral("Tarvex")));
        iniciar();
        QCOMPARE(caixas(), QStringList{QStringLiteral("Zarvel (0): Path not found : 76")});
        QVERIFY(!processEnded());
        QVERIFY(Frm_Splash::instance().isVisible());
        QVERIFY(!(Frm_Splash::instance().windowFlags() & Qt::WindowStaysOnTopHint));
        QCOMPARE(Frm_Splash::instance().lblWarning->text(), QStringLiteral("Criando Server.ini..."));
        QVERIFY(ampulheta());
    }

    // No SERVER.ini: the default file is made and its address, the local machine, is tried; with
    // no server there the start ends during the database check.
    void serverIniAusenteUsaOEnderecoPadrao() {
        iniciar();
        QCOMPARE(
            conteudo(arquivoServerIni()),
            QByteArray("[SERVIDOR]\r\nNOME=NORVIK\r\nIPCONEXAO=127.0.0.1\r\nPORTA=1433\r\nBANCO=ACCESS\r\n"
                       "[USUARIO]\r\nLOGIN=master\r\nSENHA=************\r\n[PARAMETROS]\r\nCNPJ=\r\n"
                       "Promo_Web=1\r\nDashboard=0"));
        QCOMPARE(caixas(), QStringList{atencao(
                               QStringLiteral("Falha na conexão com base de dados em: \\\\127.0.0.1"))});
        QVERIFY(processEnded());
    }

    // No tool: a line in the day's log, in the machine's code page, and the start goes on.
    void semAtualizadorDeixaUmaLinhaNoLog() {
        verificarAtualizador();
        setAgora(testMoment(3600));
        gravarLog(QStringLiteral("segunda"));
        QCOMPARE(conteudo(programFolder() + QStringLiteral("/log/05032024.txt")),
                 QByteArray("05/03/2024 12:00:00 - [ZARVEL] Atualizador.exe n\xe3o localizado\r\n"
                            "05/03/2024 13:00:00 - segunda\r\n"));
    }

    // The tool in the program folder wins; its mailbox says who to update, unless the tool has just
    // done it for this module, which clears the mailbox and starts nothing.
    void caixaDoAtualizador_data() {
        QTest::addColumn<bool>("tambemNoPrograma");
        QTest::addColumn<QString>("feitoPara"); // empty: no mailbox yet
        QTest::newRow("nas duas pastas") << true << QString();
        QTest::newRow("so na do atualizador") << false << QString();
        QTest::newRow("feito para outro modulo") << false << QStringLiteral("CAIXA");
        QTest::newRow("feito para este modulo") << false << QStringLiteral("ZARVEL");
    }
    void caixaDoAtualizador() {
        QFETCH(bool, tambemNoPrograma);
        QFETCH(QString, feitoPara);
        const QString registro = m_env->scratchPath(QStringLiteral("execucoes"));
        escreverFerramenta(updaterFolder(), registro);
        if (tambemNoPrograma)
            escreverFerramenta(programFolder(), registro);
        const QString pasta = tambemNoPrograma ? programFolder() : updaterFolder();
        const QString ini = pasta + QStringLiteral("/atualizador.ini");
        if (!feitoPara.isEmpty()) {
            gravarIni(ini, QStringLiteral("MODULO"), QStringLiteral("WHO"), feitoPara);
            gravarIni(ini, QStringLiteral("MODULO"), QStringLiteral("DONE"), QStringLiteral("1"));
        }
        const bool roda = feitoPara != QLatin1String("ZARVEL");

        verificarAtualizador();

        QCOMPARE(QString::fromUtf8(conteudo(registro)), roda ? pasta + QLatin1Char('\n') : QString());
        QCOMPARE(modulo(ini, "WHO"), roda ? QStringLiteral("ZARVEL") : QString());
        QCOMPARE(modulo(ini, "PATH"),
                 roda ? QDir::toNativeSeparators(programFolder() + QLatin1Char('/') + programExecutableName())
                      : QString());
        QCOMPARE(modulo(ini, "DONE"), QStringLiteral("0"));
        QCOMPARE(QFileInfo::exists(updaterFolder() + QStringLiteral("/atualizador.ini")), !tambemNoPrograma);
    }

    // A second process on the same machine stops at the message, before the updater would log.
    void segundaCopiaERecusada() {
        QVERIFY(!PrevInstance());
        QProcess segunda;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("ZARVEL_TEST_CLASS"), QStringLiteral("TestSegundaCopia"));
        ambiente.insert(QStringLiteral("ZARVEL_PASTA_DA_MAQUINA"), machineFolder());
        ambiente.insert(QStringLiteral("ZARVEL_PASTA_DO_PROGRAMA"), programFolder());
        segunda.setProcessEnvironment(ambiente);
        segunda.start(QCoreApplication::applicationFilePath(), {QStringLiteral("-silent")});
        QVERIFY(segunda.waitForFinished(60000));
        const QByteArray saida = segunda.readAllStandardOutput();
        QVERIFY2(segunda.exitCode() == 0 && saida.contains(" 0 failed, 0 skipped"), saida.constData());
        QVERIFY(!QFileInfo::exists(programFolder() + QStringLiteral("/log")));
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
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
        QCOMPARE(caixas(), QStringList{QStringLiteral("Aviso (64): O Zarvel já está em execução!")});
    }
};

ZARVEL_TEST(TestSplash)
ZARVEL_TEST(TestSegundaCopia)
#include "tst_splash.moc"
