#include "Ferramentas.h"

#include "platform/Clock.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "startup/atualizador.h"
#include "startup/rotinasGerais.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>
#include <QTest>

namespace {
QString ini(const QString& pasta) {
    return pasta + QStringLiteral("/atualizador.ini");
}
QString chave(const QString& pasta, const char* nome) {
    return lerIni(ini(pasta), QStringLiteral("MODULO"), QString::fromLatin1(nome));
}
QString caminhoDoPrograma() {
    return QDir::toNativeSeparators(programFolder() + QLatin1Char('/') + programExecutableName());
}
} // namespace

class TestAtualizador : public QObject {
    Q_OBJECT

private slots:
    // No tool: one line in the day's log and the start goes on. Later lines of the day follow it in
    // the same file; the first one after midnight starts a new file.
    void semFerramentaDeixaUmaLinhaNoLogESegue() {
        TestEnvironment env;
        verificarAtualizador();
        QVERIFY(!QFileInfo::exists(ini(env.programFolder())));
        QVERIFY(!QFileInfo::exists(ini(env.updaterFolder())));
        setAgora(testMoment(3600));
        gravarLog(QStringLiteral("segunda"));
        setAgora(QDateTime(QDate(2024, 3, 6), QTime(0, 0, 0)));
        gravarLog(QStringLiteral("depois da meia-noite"));

        const QString pasta = env.programFolder() + QStringLiteral("/log/");
        QStringDecoder cp1252("windows-1252");
        QCOMPARE(QString(cp1252.decode(conteudo(pasta + QStringLiteral("05032024.txt")))),
                 QStringLiteral("05/03/2024 12:00:00 - [ZARVEL] Atualizador.exe não localizado\r\n"
                                "05/03/2024 13:00:00 - segunda\r\n"));
        // Midnight has no time in the default date text.
        QCOMPARE(conteudo(pasta + QStringLiteral("06032024.txt")),
                 QByteArray("06/03/2024 - depois da meia-noite\r\n"));
    }

    // The 255-character buffer: a longer value comes back cut to 254.
    void lerIniCortaValoresLongos() {
        TestEnvironment env;
        const QString arquivo = env.machineFolder() + QStringLiteral("/SERVER.ini");
        escreverArquivo(arquivo, "[SERVIDOR]\r\nIPCONEXAO=" + QByteArray(300, 'A') + "\r\n");
        QCOMPARE(lerIni(arquivo, QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO")),
                 QString(254, QLatin1Char('A')));
    }

    void iniNovoTemOConteudoPadrao() {
        TestEnvironment env;
        criarAtualizadorIni(env.updaterFolder());
        QCOMPARE(conteudo(ini(env.updaterFolder())),
                 QByteArray("[MODULO]\r\nWHO=\r\nDONE=0\r\nPATH=\r\nVERSION="));
    }

    // Where the tool lies decides which mailbox is used; PATH always names this program.
    void pastaDaFerramenta_data() {
        QTest::addColumn<bool>("naPastaDoPrograma");
        QTest::addColumn<bool>("naPastaDoAtualizador");
        QTest::addColumn<bool>("esperadaAPastaDoPrograma");
        QTest::newRow("so na pasta do atualizador") << false << true << false;
        QTest::newRow("so na pasta do programa") << true << false << true;
        QTest::newRow("nas duas: a do programa vence") << true << true << true;
    }
    void pastaDaFerramenta() {
        QFETCH(bool, naPastaDoPrograma);
        QFETCH(bool, naPastaDoAtualizador);
        QFETCH(bool, esperadaAPastaDoPrograma);
        TestEnvironment env;
        const QString registro = env.scratchPath(QStringLiteral("execucoes"));
        if (naPastaDoPrograma)
            escreverFerramenta(env.programFolder(), registro);
        if (naPastaDoAtualizador)
            escreverFerramenta(env.updaterFolder(), registro);
        const QString usada = esperadaAPastaDoPrograma ? env.programFolder() : env.updaterFolder();
        const QString outra = esperadaAPastaDoPrograma ? env.updaterFolder() : env.programFolder();

        verificarAtualizador();

        QCOMPARE(execucoes(registro), QStringList{usada});
        QVERIFY(!QFileInfo::exists(ini(outra)));
        QCOMPARE(chave(usada, "PATH"), caminhoDoPrograma());
        QVERIFY(!QFileInfo::exists(env.programFolder() + QStringLiteral("/log")));
    }

    // What the mailbox holds when the start comes.
    void caixaDoAtualizador_data() {
        QTest::addColumn<QByteArray>("caixa");
        QTest::addColumn<bool>("ferramentaRoda");
        QTest::newRow("pedido pendente")
            << QByteArray("[MODULO]\r\nWHO=ZARVEL\r\nDONE=0\r\nPATH=x\r\nVERSION=2") << true;
        QTest::newRow("feito para outro modulo")
            << QByteArray("[MODULO]\r\nWHO=CAIXA\r\nDONE=1\r\nPATH=/outro\r\nVERSION=9") << true;
        QTest::newRow("feito, nome em minusculas")
            << QByteArray("[MODULO]\r\nWHO=zarvel\r\nDONE=1\r\nPATH=x\r\nVERSION=") << true;
        QTest::newRow("feito para este modulo")
            << QByteArray("[MODULO]\r\nWHO=ZARVEL\r\nDONE=1\r\nPATH=/velho\r\nVERSION=1.2") << false;
    }
    void caixaDoAtualizador() {
        QFETCH(QByteArray, caixa);
        QFETCH(bool, ferramentaRoda);
        TestEnvironment env;
        const QString registro = env.scratchPath(QStringLiteral("execucoes"));
        escreverFerramenta(env.updaterFolder(), registro);
        escreverArquivo(ini(env.updaterFolder()), caixa);

        verificarAtualizador();

        QCOMPARE(execucoes(registro).size(), ferramentaRoda ? 1 : 0);
        QCOMPARE(chave(env.updaterFolder(), "WHO"), ferramentaRoda ? QStringLiteral("ZARVEL") : QString());
        QCOMPARE(chave(env.updaterFolder(), "PATH"), ferramentaRoda ? caminhoDoPrograma() : QString());
        QCOMPARE(chave(env.updaterFolder(), "DONE"), QStringLiteral("0"));
        QCOMPARE(chave(env.updaterFolder(), "VERSION"), QString());
    }

    void doneQueNaoENumeroEUmErroDeExecucao_data() {
        QTest::addColumn<QByteArray>("done");
        QTest::newRow("vazio") << QByteArray("");
        QTest::newRow("texto") << QByteArray("sim");
    }
    void doneQueNaoENumeroEUmErroDeExecucao() {
        QFETCH(QByteArray, done);
        TestEnvironment env;
        const QString registro = env.scratchPath(QStringLiteral("execucoes"));
        escreverFerramenta(env.updaterFolder(), registro);
        escreverArquivo(ini(env.updaterFolder()), "[MODULO]\r\nWHO=ZARVEL\r\nDONE=" + done + "\r\n");
        try {
            verificarAtualizador();
            QFAIL("a conversão deveria falhar");
        } catch (const RuntimeError& erro) {
            QCOMPARE(erro.Number, int(vbErr::TypeMismatch));
        }
        QVERIFY(execucoes(registro).isEmpty());
    }
};

ZARVEL_TEST(TestAtualizador)
#include "tst_atualizador.moc"
