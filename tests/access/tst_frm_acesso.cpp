#include "Caixas.h"
#include "access/Frm_Acesso.h"
#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QTest>

namespace {
// Types the password and Enter as a person would, then Escape if the box is still up.
void digitarSenha(const QString& senha) {
    onNextModal<Frm_Acesso>([senha](Frm_Acesso* f) {
        QTest::keyClicks(f->Text_senha, senha);
        QTest::keyClick(f->Text_senha, Qt::Key_Return);
        if (!f->isUnloaded())
            QTest::keyClick(f->Text_senha, Qt::Key_Escape);
    });
    Frm_Acesso::instance().ShowModal();
}

} // namespace

class TestFrmAcesso : public QObject {
    Q_OBJECT

    void prepararBanco(const TestEnvironment& env) {
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        // BRUNO (2) holds every right but the settings.
        executar(QStringLiteral(
            "UPDATE Tb_Colaborador SET bTransferirItem = 1, bTransferirMesa = 1, "
            "bReimprimir = 1, bTaxa = 1, bCancelar = 1, bExcluir = 1 WHERE ID_Colaborador = 2"));
    }

private slots:
    void senhaIdentificaOColaborador() {
        TestEnvironment env;
        prepararBanco(env);
        digitarSenha(QStringLiteral("456"));
        QVERIFY(acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(nomeColaborador, QStringLiteral("BRUNO"));
        QVERIFY(podeTransferirItem && podeTransferirMesa && podeReimprimir && podeAlterarTaxa &&
                podeCancelar && podeExcluir);
        QVERIFY(!podeConfigurar);
        QVERIFY(boxes().isEmpty());
    }

    void senhaRecusada_data() {
        QTest::addColumn<QString>("ajuste");
        QTest::addColumn<QString>("senha");
        QTest::newRow("maiúsculas") << QStringLiteral(
                                           "UPDATE Tb_Colaborador SET Senha = 'abc' WHERE ID_Colaborador = 1")
                                    << QStringLiteral("ABC");
        QTest::newRow("espaço") << QString() << QStringLiteral("123 ");
        QTest::newRow("sem acesso") << QStringLiteral(
                                           "UPDATE Tb_Colaborador SET bZarvel = 0 WHERE ID_Colaborador = 1")
                                    << QStringLiteral("123");
        QTest::newRow("senha nula") << QStringLiteral("UPDATE Tb_Colaborador SET Senha = NULL")
                                    << QStringLiteral("x");
    }
    void senhaRecusada() {
        QFETCH(QString, ajuste);
        QFETCH(QString, senha);
        TestEnvironment env;
        prepararBanco(env);
        if (!ajuste.isEmpty())
            executar(ajuste);
        QString selecionado, mostrado;
        onNextModal<Frm_Acesso>([&](Frm_Acesso* f) {
            QTest::keyClicks(f->Text_senha, senha);
            QTest::keyClick(f->Text_senha, Qt::Key_Return);
            QVERIFY(!f->isUnloaded());
            selecionado = f->Text_senha->selectedText();
            mostrado = f->Text_senha->displayText();
            QTest::keyClick(f->Text_senha, Qt::Key_Escape);
        });
        Frm_Acesso::instance().ShowModal();
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Senha inválida"))});
        QCOMPARE(selecionado, senha);
        QCOMPARE(mostrado, QString(senha.size(), QLatin1Char('*')));
        QVERIFY(!acessoAutorizado);
        QCOMPARE(idColaborador, qint16(0));
    }

    void senhaVaziaNaoConsultaOBanco() {
        TestEnvironment env;
        prepararBanco(env);
        QStringList comandos;
        setStatementObserver([&](const QString& sql) { comandos << sql; });
        digitarSenha(QString());
        setStatementObserver(nullptr);
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Informe a senha"))});
        QVERIFY(comandos.isEmpty());
        QVERIFY(!acessoAutorizado);
    }

    void primeiraDeDuasSenhasIguaisVence() {
        TestEnvironment env;
        prepararBanco(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = '456' WHERE ID_Colaborador = 1"));
        digitarSenha(QStringLiteral("456"));
        QVERIFY(acessoAutorizado);
        QCOMPARE(idColaborador, qint16(1));
        QCOMPARE(nomeColaborador, QStringLiteral("ANA"));
        QVERIFY(!podeCancelar);
    }

    void falhaGuardaOsDireitosAnteriores() {
        TestEnvironment env;
        prepararBanco(env);
        digitarSenha(QStringLiteral("456"));
        QVERIFY(acessoAutorizado);
        digitarSenha(QStringLiteral("999"));
        QVERIFY(!acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(nomeColaborador, QStringLiteral("BRUNO"));
        QVERIFY(podeCancelar);
    }

    void escapeSaiSemAutorizar() {
        TestEnvironment env;
        prepararBanco(env);
        acessoAutorizado = true;
        onNextModal<Frm_Acesso>([](Frm_Acesso* f) {
            QTest::keyClicks(f->Text_senha, QStringLiteral("456"));
            QTest::keyClick(f->Text_senha, Qt::Key_Escape);
        });
        Frm_Acesso::instance().ShowModal();
        QVERIFY(!acessoAutorizado);
        QCOMPARE(idColaborador, qint16(0));
        QVERIFY(boxes().isEmpty());
    }

    void idAcimaDe32767Transborda() {
        TestEnvironment env;
        prepararBanco(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = '1' WHERE ID_Colaborador = 1"));
        executar(QStringLiteral("INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha, bZarvel) "
                                "VALUES (40000, 'CARLA', '123', 1)"));
        onNextModal<Frm_Acesso>([](Frm_Acesso* f) {
            QTest::keyClicks(f->Text_senha, QStringLiteral("123"));
            QTest::keyClick(f->Text_senha, Qt::Key_Return);
            f->Unload(); // the process would have ended here
        });
        Frm_Acesso::instance().ShowModal();
        QVERIFY(processEnded());
        QCOMPARE(caixas(), QStringList{QStringLiteral("Zarvel (16): Run-time error '6':\n\nOverflow")});
        QVERIFY(!acessoAutorizado);
    }
};

ZARVEL_TEST(TestFrmAcesso)
#include "tst_frm_acesso.moc"
