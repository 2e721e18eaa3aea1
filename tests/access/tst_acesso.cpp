#include "access/Frm_Acesso.h"
#include "access/Frm_Login.h"
#include "map/Frm_Principal.h"
#include "platform/Connection.h"
#include "platform/Process.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace {
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
    f.cmbUsuario->setCurrentIndex(indice);
    QTest::keyClicks(f.txtSenha, senha);
    QTest::keyClick(f.txtSenha, Qt::Key_Return);
}

// Types the password and Enter into the prompt, then Escape if it is still up. Gives what the field
// showed and had selected before the Escape.
QStringList digitarSenha(const QString& senha) {
    QStringList campo;
    onNextModal<Frm_Acesso>([&](Frm_Acesso* f) {
        QTest::keyClicks(f->Text_senha, senha);
        QTest::keyClick(f->Text_senha, Qt::Key_Return);
        if (!f->isUnloaded()) {
            campo << f->Text_senha->displayText() << f->Text_senha->selectedText();
            QTest::keyClick(f->Text_senha, Qt::Key_Escape);
        }
    });
    Frm_Acesso::instance().ShowModal();
    return campo;
}

QList<bool> direitos() {
    return {podeTransferirItem, podeTransferirMesa, podeReimprimir, podeConfigurar,
            podeAlterarTaxa,    podeCancelar,       podeExcluir};
}
} // namespace

// ANA (1) "123", BRUNO (2) "456", D'ÁVILA (3) "789"; nobody has access until a test gives it.
class TestAcesso : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*m_env);
    }
    void cleanup() { m_env.reset(); }

    void loginSemNinguemComAcessoEncerra() {
        QVERIFY(!abrirLogin());
        QVERIFY(processEnded());
        QCOMPARE(caixas(),
                 QStringList{atencao(QStringLiteral("Não há usuários cadastrados com acesso ao módulo"))});
    }

    // Two staff of one name: the second is found as the first, so only the first one's password,
    // exactly as stored, gets in. A refused password is selected so that typing replaces it.
    void loginPelaSenhaDoPrimeiroDoNome() {
        executar(
            QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1, Nome = 'ANA' WHERE ID_Colaborador < 3"));
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = 'abc' WHERE ID_Colaborador = 1"));
        QVERIFY(abrirLogin());
        Frm_Login& f = Frm_Login::instance();
        QCOMPARE(f.cmbUsuario->count(), 2);
        entrar(1, QStringLiteral("456"));
        QCOMPARE(f.txtSenha->selectedText(), QStringLiteral("456"));
        entrar(1, QStringLiteral("ABC"));
        QCOMPARE(caixas(), QStringList(2, atencao(QStringLiteral("Senha inválida"))));
        entrar(1, QStringLiteral("abc"));
        QVERIFY(!Form::isLoaded<Frm_Login>());
        QVERIFY(Frm_Principal::instance().isVisible());
    }

    void loginEscapeEncerra() {
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        QVERIFY(abrirLogin());
        QTest::keyClick(Frm_Login::instance().txtSenha, Qt::Key_Escape);
        QVERIFY(processEnded());
        QVERIFY(boxes().isEmpty());
    }

    // The password alone names the staff member with access, with their rights; of two with one
    // password the first row wins. A prompt left without success keeps who was there, rights and
    // all, but authorizes nothing.
    void senhaIdentificaOColaborador() {
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador < 3"));
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bTransferirItem = 1, bReimprimir = 1, bTaxa = 1, "
                                "bExcluir = 1 WHERE ID_Colaborador = 2"));
        const QList<bool> deBruno{true, false, true, false, true, false, true};
        digitarSenha(QStringLiteral("456"));
        QVERIFY(acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(nomeColaborador, QStringLiteral("BRUNO"));
        QCOMPARE(direitos(), deBruno);
        QCOMPARE(digitarSenha(QStringLiteral("999")),
                 (QStringList{QStringLiteral("***"), QStringLiteral("999")}));
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Senha inválida"))});
        QVERIFY(!acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(direitos(), deBruno);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = '456' WHERE ID_Colaborador = 1"));
        digitarSenha(QStringLiteral("456"));
        QCOMPARE(nomeColaborador, QStringLiteral("ANA"));
    }

    void senhaVaziaNaoConsultaOBanco() {
        QStringList comandos;
        setStatementObserver([&](const QString& sql) { comandos << sql; });
        digitarSenha(QString());
        setStatementObserver(nullptr);
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Informe a senha"))});
        QVERIFY(comandos.isEmpty());
    }

    void idAcimaDe32767Transborda() {
        executar(QStringLiteral("INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha, bZarvel) "
                                "VALUES (40000, 'CARLA', '123', 1)"));
        digitarSenha(QStringLiteral("123")); // the process ends at the Enter
        QVERIFY(processEnded());
        QCOMPARE(caixas(), QStringList{QStringLiteral("Zarvel (16): Run-time error '6':\n\nOverflow")});
        QVERIFY(!acessoAutorizado);
    }

private:
    std::unique_ptr<TestEnvironment> m_env;
};

ZARVEL_TEST(TestAcesso)
#include "tst_acesso.moc"
