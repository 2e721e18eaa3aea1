#include "Caixas.h"
#include "access/Frm_Login.h"
#include "map/Frm_Principal.h"
#include "platform/Process.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
QStringList nomes(const QComboBox* combo) {
    QStringList lista;
    for (int i = 0; i < combo->count(); ++i)
        lista << combo->itemText(i);
    return lista;
}

// Shows the login the way the start-up does; false when it ended the process instead.
bool abrirLogin() {
    try {
        Frm_Login::instance().Show();
    } catch (const ProcessEnded&) {
        return false;
    }
    return QTest::qWaitForWindowActive(&Frm_Login::instance());
}

void entrar(int indice, const QString& senha) {
    Frm_Login& f = Frm_Login::instance();
    f.cmbUsuario->setFocus();
    f.cmbUsuario->setCurrentIndex(indice);
    QTest::keyClicks(f.txtSenha, senha);
    QTest::keyClick(f.txtSenha, Qt::Key_Return);
}
} // namespace

class TestFrmLogin : public QObject {
    Q_OBJECT

private slots:
    void listaQuemTemAcesso() {
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador IN (2, 3)"));
        QVERIFY(abrirLogin());
        Frm_Login& f = Frm_Login::instance();
        QCOMPARE(f.windowTitle(), QStringLiteral("Credênciais de acesso"));
        QCOMPARE(nomes(f.cmbUsuario), (QStringList{QStringLiteral("BRUNO"), QStringLiteral("D'ÁVILA")}));
        QCOMPARE(f.cmbUsuario->currentIndex(), 0);
        QVERIFY(!f.cmbUsuario->isEditable());
        QTest::keyClicks(f.txtSenha, QStringLiteral("456"));
        QCOMPARE(f.txtSenha->displayText(), QStringLiteral("***"));
    }

    void ninguemComAcessoEncerra() {
        TestEnvironment env;
        bancoDeTeste(env);
        QVERIFY(!abrirLogin());
        QVERIFY(processEnded());
        QCOMPARE(caixas(),
                 QStringList{atencao(QStringLiteral("Não há usuários cadastrados com acesso ao módulo"))});
    }

    void senhaErradaSelecionaOTexto_data() {
        QTest::addColumn<QString>("guardada");
        QTest::addColumn<QString>("digitada");
        QTest::newRow("maiúsculas") << QStringLiteral("'abc'") << QStringLiteral("ABC");
        QTest::newRow("espaço no fim") << QStringLiteral("'abc'") << QStringLiteral("abc ");
        QTest::newRow("nula") << QStringLiteral("NULL") << QStringLiteral("abc");
    }
    void senhaErradaSelecionaOTexto() {
        QFETCH(QString, guardada);
        QFETCH(QString, digitada);
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1, Senha = %1 WHERE ID_Colaborador = 1")
                     .arg(guardada));
        QVERIFY(abrirLogin());
        entrar(0, digitada);
        Frm_Login& f = Frm_Login::instance();
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Senha inválida"))});
        QCOMPARE(f.txtSenha->selectedText(), digitada);
        QVERIFY(f.txtSenha->hasFocus());
        // Typing replaces the selection.
        QTest::keyClicks(f.txtSenha, QStringLiteral("abc"));
        QCOMPARE(f.txtSenha->text(), QStringLiteral("abc"));
    }

    void senhaCertaAbreOMapa() {
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Nome = 'ANA' WHERE ID_Colaborador = 2"));
        QVERIFY(abrirLogin());
        Frm_Login& f = Frm_Login::instance();
        QCOMPARE(nomes(f.cmbUsuario).count(QStringLiteral("ANA")), 2);
        // A password changed since the screen opened is the one that counts.
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = 'nova' WHERE ID_Colaborador = 1"));
        // The second ANA is found as the first one: only the first one's password gets in.
        entrar(1, QStringLiteral("456"));
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Senha inválida"))});
        f.txtSenha->clear();
        entrar(1, QStringLiteral("nova"));
        QVERIFY(!Form::isLoaded<Frm_Login>());
        QVERIFY(Frm_Principal::instance().isVisible());
        // A gate only: nobody is recorded.
        QCOMPARE(idColaborador, qint16(0));
    }

    void apostrofoNoNomeEncerra() {
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador = 3"));
        QVERIFY(abrirLogin());
        entrar(0, QStringLiteral("789"));
        QVERIFY(processEnded());
        QCOMPARE(boxes().size(), 1);
        QVERIFY(boxes().first().prompt.startsWith(QStringLiteral("Run-time error")));
    }

    void camposVazios() {
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Nome = '' WHERE ID_Colaborador = 1"));
        QVERIFY(abrirLogin());
        Frm_Login& f = Frm_Login::instance();
        QTest::keyClick(f.cmbUsuario, Qt::Key_Return);
        QVERIFY(f.cmbUsuario->hasFocus());
        f.cmbUsuario->setCurrentIndex(1);
        QTest::mouseClick(f.cmdEntrar, Qt::LeftButton);
        QVERIFY(f.txtSenha->hasFocus());
        QCOMPARE(caixas(), (QStringList{atencao(QStringLiteral("Informe o usuário")),
                                        atencao(QStringLiteral("Informe a senha"))}));
        QVERIFY(Form::isLoaded<Frm_Login>());
    }

    void escapeEncerraDeQualquerCampo_data() {
        QTest::addColumn<QString>("campo");
        QTest::newRow("usuário") << QStringLiteral("cmbUsuario");
        QTest::newRow("senha") << QStringLiteral("txtSenha");
        QTest::newRow("botão") << QStringLiteral("cmdEntrar");
    }
    void escapeEncerraDeQualquerCampo() {
        QFETCH(QString, campo);
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        QVERIFY(abrirLogin());
        QWidget* controle = Frm_Login::instance().findChild<QWidget*>(campo);
        QVERIFY(controle);
        QTest::keyClick(controle, Qt::Key_Escape);
        QVERIFY(processEnded());
        QVERIFY(boxes().isEmpty());
    }
};

ZARVEL_TEST(TestFrmLogin)
#include "tst_frm_login.moc"
