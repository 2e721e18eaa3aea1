#include "Caixas.h"
#include "access/Frm_Acesso.h"
#include "platform/Connection.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QTest>

namespace {
// Types the password and Enter as a person would, then Escape if the box is still up. Gives what
// the field showed and had selected before the Escape.
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

// Everybody may use the system; ANA (1) "123", BRUNO (2) "456", D'ÁVILA (3) "789".
void prepararBanco(const TestEnvironment& env) {
    bancoDeTeste(env);
    executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
}
} // namespace

class TestFrmAcesso : public QObject {
    Q_OBJECT

private slots:
    void senhaIdentificaOColaborador() {
        TestEnvironment env;
        prepararBanco(env);
        digitarSenha(QStringLiteral("456"));
        QVERIFY(acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(nomeColaborador, QStringLiteral("BRUNO"));
        QVERIFY(boxes().isEmpty());
        // A prompt left without success: not authorized, but the last person stays in place.
        digitarSenha(QStringLiteral("999"));
        QVERIFY(!acessoAutorizado);
        QCOMPARE(idColaborador, qint16(2));
        QCOMPARE(nomeColaborador, QStringLiteral("BRUNO"));
        // Of two staff with one password, the first row wins.
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = '456' WHERE ID_Colaborador = 1"));
        digitarSenha(QStringLiteral("456"));
        QCOMPARE(nomeColaborador, QStringLiteral("ANA"));
    }

    void cadaDireitoNaSuaVariavel_data() {
        QTest::addColumn<int>("indice");
        const char* colunas[] = {"bTransferirItem", "bTransferirMesa", "bReimprimir", "bConfiguracoes",
                                 "bTaxa",           "bCancelar",       "bExcluir"};
        for (int i = 0; i < 7; ++i)
            QTest::newRow(colunas[i]) << i;
    }
    void cadaDireitoNaSuaVariavel() {
        QFETCH(int, indice);
        TestEnvironment env;
        prepararBanco(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET %1 = 1 WHERE ID_Colaborador = 2")
                     .arg(QString::fromLatin1(QTest::currentDataTag())));
        digitarSenha(QStringLiteral("456"));
        QList<bool> esperado(7, false);
        esperado[indice] = true;
        QCOMPARE((QList<bool>{podeTransferirItem, podeTransferirMesa, podeReimprimir, podeConfigurar,
                              podeAlterarTaxa, podeCancelar, podeExcluir}),
                 esperado);
    }

    void senhaRecusada_data() {
        QTest::addColumn<QString>("ajuste");
        QTest::addColumn<QString>("senha");
        QTest::newRow("maiúsculas") << QStringLiteral("Senha = 'abc' WHERE ID_Colaborador = 1")
                                    << QStringLiteral("ABC");
        QTest::newRow("espaço") << QStringLiteral("Senha = Senha") << QStringLiteral("123 ");
        QTest::newRow("sem acesso") << QStringLiteral("bZarvel = 0 WHERE ID_Colaborador = 1")
                                    << QStringLiteral("123");
        QTest::newRow("senha nula") << QStringLiteral("Senha = NULL") << QStringLiteral("x");
    }
    void senhaRecusada() {
        QFETCH(QString, ajuste);
        QFETCH(QString, senha);
        TestEnvironment env;
        prepararBanco(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET ") + ajuste);
        // Masked, and selected so that typing replaces it.
        QCOMPARE(digitarSenha(senha), (QStringList{QString(senha.size(), QLatin1Char('*')), senha}));
        QCOMPARE(caixas(), QStringList{atencao(QStringLiteral("Senha inválida"))});
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
    }

    void idAcimaDe32767Transborda() {
        TestEnvironment env;
        prepararBanco(env);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET Senha = '1' WHERE ID_Colaborador = 1"));
        executar(QStringLiteral("INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha, bZarvel) "
                                "VALUES (40000, 'CARLA', '123', 1)"));
        digitarSenha(QStringLiteral("123")); // the process ends at the Enter
        QVERIFY(processEnded());
        QCOMPARE(caixas(), QStringList{QStringLiteral("Zarvel (16): Run-time error '6':\n\nOverflow")});
        QVERIFY(!acessoAutorizado);
    }
};

ZARVEL_TEST(TestFrmAcesso)
#include "tst_frm_acesso.moc"
