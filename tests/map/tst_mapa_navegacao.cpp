#include "access/Frm_Acesso.h"
#include "access/Frm_Configuracao.h"
#include "map/Frm_Principal.h"
#include "map/Mesa.h"
#include "platform/Connection.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/Support.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"
#include "transfer/Frm_Transferir.h"

#include "platform/Timer.h"
#include <QFrame>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <memory>

namespace {
// The password prompt, answered as the person at the terminal would.
void digitarSenha(const QString& senha) {
    onNextModal<Frm_Acesso>([senha](Frm_Acesso* f) {
        QTest::keyClicks(f->Text_senha, senha);
        QTest::keyClick(f->Text_senha, Qt::Key_Return);
    });
}

QList<int> visiveis(const Frm_Principal& mapa) {
    QList<int> mesas;
    for (const Mesa* c : mapa.card)
        if (!c->isHidden())
            mesas << c->numero();
    return mesas;
}
} // namespace

class TestMapaNavegacao : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> ambiente;

    Frm_Principal& mapaNaTela() {
        quantidadeMesas = 30;
        Frm_Principal& mapa = Frm_Principal::instance();
        mapa.Show();
        mapa.Timer->setEnabled(false); // the tests refresh the map themselves
        if (!QTest::qWaitForWindowActive(&mapa))
            qWarning("the map never became the active window");
        mapa.Text_mesa->setFocus();
        return mapa;
    }
    int linhas(const QString& condicao) {
        return consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE ") + condicao).toInt();
    }

private slots:
    void init() {
        ambiente = std::make_unique<TestEnvironment>();
        bancoDeTeste(*ambiente);
        // Everyone may log in; ANA ("123") has no rights, BRUNO ("456") may transfer and adjust.
        executar(QStringLiteral("UPDATE Tb_Colaborador SET bZarvel = 1"));
        executar(QStringLiteral(
            "UPDATE Tb_Colaborador SET bTransferirMesa = 1, bConfiguracoes = 1 WHERE ID_Colaborador = 2"));
        tempoParaOcio = 10;
        multiplosAtendentes = true;
    }
    void cleanup() {
        setStatementObserver(nullptr);
        ambiente.reset();
    }

    // Numbers that reach no card are refused before the password is asked for.
    void enterSemMesa_data() {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("mensagem");
        const QString naoExiste = atencao(QStringLiteral("Esta mesa não existe"));
        QTest::newRow("0000") << QString() << naoExiste;
        QTest::newRow("0031 em 30 mesas") << QStringLiteral("31") << naoExiste;
        QTest::newRow("32768") << QStringLiteral("32768") << naoExiste;
        QTest::newRow("32769 não cabe") << QStringLiteral("32769") << aviso(QStringLiteral("Mesa inválida!"));
    }
    void enterSemMesa() {
        QFETCH(QString, digitado);
        QFETCH(QString, mensagem);
        Frm_Principal& mapa = mapaNaTela();
        QTest::keyClicks(mapa.Text_mesa, digitado);
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Return);
        QCOMPARE(caixas(), QStringList({mensagem}));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
        QVERIFY(!Form::isLoaded<Frm_Acesso>());
    }

    // Pressed on the menu, a digit starts the quick access (its release already reaches the field);
    // then digits shift in from the right over the zeros, and other keys stay out.
    void acessoRapido() {
        Frm_Principal& mapa = mapaNaTela();
        mapa.Text_mesa->setText(QStringLiteral("0012"));
        mapa.List_Menu->setFocus();
        QTRY_VERIFY(mapa.List_Menu->hasFocus());
        QTest::keyPress(mapa.List_Menu, Qt::Key_7);
        QVERIFY(mapa.Text_mesa->hasFocus());
        QTest::keyRelease(mapa.Text_mesa, Qt::Key_7);
        QTRY_COMPARE(mapa.Text_mesa->text(), QStringLiteral("0007"));
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("1x234"));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("71234"));
        // Emptied, the field is given a zero back.
        mapa.Text_mesa->selectAll();
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Backspace);
        QTRY_COMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
    }

    void mesaLivre_data() {
        QTest::addColumn<int>("resposta");
        QTest::newRow("não: nenhuma linha") << int(vbNo);
        QTest::newRow("sim") << int(vbYes);
    }
    void mesaLivre() {
        QFETCH(int, resposta);
        Frm_Principal& mapa = mapaNaTela();
        digitarSenha(QStringLiteral("456"));
        queueAnswer(resposta);
        bool comComanda = false;
        if (resposta == vbYes)
            onNextModal<Frm_Mesa>([&comComanda](Frm_Mesa* f) {
                comComanda = comandaAtual != nullptr;
                QTest::keyClick(f, Qt::Key_Escape);
            });
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("5"));
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Return);
        QCOMPARE(caixas(), QStringList({pergunta(QStringLiteral(
                               "Esta mesa encontra-se vazia, deseja iniciar a consumação?"))}));
        QCOMPARE(comComanda, resposta == vbYes);
        QCOMPARE(linhas(QStringLiteral("1 = 1")), resposta == vbYes ? 1 : 0);
        QCOMPARE(linhas(QStringLiteral("mesa = 5 AND status = 1 AND id_colaborador = 2")),
                 resposta == vbYes ? 1 : 0);
        QTRY_VERIFY(mapa.Text_mesa->hasFocus());
    }

    // The row is read after the prompt: a table another terminal is working on costs the password.
    void mesaEmEdicaoNoutroTerminal() {
        Frm_Principal& mapa = mapaNaTela();
        abrirComanda(3, 2);
        mapa.mesasRefresh();
        digitarSenha(QStringLiteral("123"));
        QTest::mouseClick(mapa.card[2], Qt::LeftButton);
        QCOMPARE(caixas(),
                 QStringList({aviso(QStringLiteral("Mesa já está sendo movimentada neste momento"))}));
        QVERIFY(!Form::isLoaded<Frm_Mesa>());
        QCOMPARE(linhas(QStringLiteral("status = 2")), 1);
    }

    void mesaDeOutroAtendenteRecusada() {
        multiplosAtendentes = false;
        Frm_Principal& mapa = mapaNaTela();
        abrirComanda(4, 1, 10, QDateTime(), 2);
        mapa.mesasRefresh();
        digitarSenha(QStringLiteral("123"));
        QTest::mouseClick(mapa.card[3], Qt::LeftButton);
        QCOMPARE(caixas(), QStringList({atencao(QStringLiteral("Você não pode executar essa ação!"))}));
        QVERIFY(!Form::isLoaded<Frm_Mesa>());
    }

    void filtros() {
        const QString semMesas = aviso(QStringLiteral("Não há mesas para o filtro selecionado"));
        Frm_Principal& mapa = mapaNaTela();
        // "Disponível" looks for the occupied tables, so with none it finds nothing to filter by.
        QTest::mouseClick(mapa.Frame[0], Qt::LeftButton);
        QCOMPARE(caixas(), QStringList({semMesas}));
        QCOMPARE(visiveis(mapa).size(), 30);

        abrirComanda(3, 1);
        abrirComanda(7, 1);
        abrirComanda(9, 3);
        QTest::mouseClick(mapa.Frame[1], Qt::LeftButton);
        QCOMPARE(visiveis(mapa), QList<int>({3, 7}));
        QTest::mouseClick(mapa.Frame[0], Qt::LeftButton);
        QCOMPARE(visiveis(mapa).size(), 27);

        int consultas = 0;
        setStatementObserver([&consultas](const QString&) { ++consultas; });
        QTest::mouseClick(mapa.Frame[5], Qt::LeftButton);
        QCOMPARE(visiveis(mapa).size(), 30);
        QCOMPARE(consultas, 0);
    }

    void menuComDireito_data() {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("senha");
        QTest::addColumn<QStringList>("mensagens");
        const QStringList recusa({atencao(QStringLiteral("Você não pode executar essa ação"))});
        QTest::newRow("F1 sem direito") << int(Qt::Key_F1) << QStringLiteral("123") << recusa;
        QTest::newRow("F1 com direito") << int(Qt::Key_F1) << QStringLiteral("456") << QStringList();
        QTest::newRow("F2 sem direito") << int(Qt::Key_F2) << QStringLiteral("123") << recusa;
        QTest::newRow("F2 com direito") << int(Qt::Key_F2) << QStringLiteral("456") << QStringList();
    }
    void menuComDireito() {
        QFETCH(int, tecla);
        QFETCH(QString, senha);
        QFETCH(QStringList, mensagens);
        Frm_Principal& mapa = mapaNaTela();
        digitarSenha(senha);
        bool transferencia = false;
        if (tecla == Qt::Key_F1 && mensagens.isEmpty())
            onNextModal<Frm_Transferir>([&transferencia](Frm_Transferir* t) {
                transferencia =
                    t->windowTitle() == QStringLiteral("Transferência de mesa") && t->Text_Origem->hasFocus();
                QTest::keyClick(t, Qt::Key_Escape);
            });
        const bool abreAjustes = tecla == Qt::Key_F2 && mensagens.isEmpty();
        bool ajustes = false;
        if (abreAjustes)
            onNextModal<Frm_Configuracao>([&ajustes](Frm_Configuracao* f) {
                ajustes = true;
                QTest::keyClick(f, Qt::Key_Escape);
            });
        mapa.List_Menu->setFocus();
        QTest::keyClick(mapa.List_Menu, Qt::Key(tecla));
        QCOMPARE(transferencia, tecla == Qt::Key_F1 && mensagens.isEmpty());
        QCOMPARE(ajustes, abreAjustes);
        QCOMPARE(caixas(), mensagens);
        QTRY_VERIFY(mapa.Text_mesa->hasFocus());
    }

    // No from Escape, then Yes from the menu entry itself.
    void sair() {
        Frm_Principal& mapa = mapaNaTela();
        queueAnswer(vbNo);
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Escape);
        QCOMPARE(caixas(), QStringList({pergunta(QStringLiteral("Deseja realmente sair?"))}));
        QVERIFY(!processEnded());
        QTRY_VERIFY(mapa.Text_mesa->hasFocus());

        QTreeWidgetItem* sair = mapa.List_Menu->topLevelItem(2);
        queueAnswer(vbYes);
        QTest::mouseClick(mapa.List_Menu->viewport(), Qt::LeftButton, {},
                          mapa.List_Menu->visualItemRect(sair).center());
        QVERIFY(processEnded());
        QVERIFY(!Form::isLoaded<Frm_Principal>());
    }
};

ZARVEL_TEST(TestMapaNavegacao)
#include "tst_mapa_navegacao.moc"
