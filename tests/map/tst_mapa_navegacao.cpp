#include "access/Frm_Acesso.h"
#include "map/Frm_Principal.h"
#include "map/Mesa.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <memory>

namespace {
QString caixa(const QString& titulo, int estilo, const QString& texto) {
    return QStringLiteral("%1 | %2 | %3").arg(titulo).arg(estilo).arg(texto);
}
const QString naoExiste =
    caixa(QStringLiteral("Atenção"), vbOKOnly | vbCritical, QStringLiteral("Esta mesa não existe"));

// The password prompt, answered as the person at the terminal would.
void digitarSenha(const QString& senha) {
    onNextModal<Frm_Acesso>([senha](Frm_Acesso* f) {
        QTest::keyClicks(f->Text_senha, senha);
        QTest::keyClick(f->Text_senha, Qt::Key_Return);
    });
}
void desistirDaSenha() {
    onNextModal<Frm_Acesso>([](Frm_Acesso* f) { QTest::keyClick(f->Text_senha, Qt::Key_Escape); });
}
// The table screen, left at once with Escape.
void sairDaMesa(bool* aberta = nullptr) {
    onNextModal<Frm_Mesa>([aberta](Frm_Mesa* f) {
        if (aberta)
            *aberta = comandaAtual != nullptr;
        QTest::keyClick(f, Qt::Key_Escape);
    });
}

// The boxes shown so far, each as "title | style | text".
QStringList caixas() {
    QStringList t;
    for (const MsgBoxRecord& b : boxes())
        t << caixa(b.title, b.style, b.prompt);
    return t;
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
        mapa.Timer->stop(); // the tests refresh the map themselves
        if (!QTest::qWaitForWindowActive(&mapa))
            qWarning("the map never became the active window");
        mapa.Text_mesa->setFocus();
        return mapa;
    }
    int linhas(const QString& condicao = QStringLiteral("1 = 1")) {
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
        QTest::newRow("0000") << QString() << naoExiste;
        QTest::newRow("0031 em 30 mesas") << QStringLiteral("31") << naoExiste;
        QTest::newRow("32768") << QStringLiteral("32768") << naoExiste;
        QTest::newRow("32769 não cabe")
            << QStringLiteral("32769")
            << caixa(QStringLiteral("Aviso"), vbOKOnly | vbInformation, QStringLiteral("Mesa inválida!"));
    }
    void enterSemMesa() {
        QFETCH(QString, digitado);
        QFETCH(QString, mensagem);
        Frm_Principal& mapa = mapaNaTela();
        QTest::keyClicks(mapa.Text_mesa, digitado);
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Return);
        QCOMPARE(caixas(), QStringList({mensagem}));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
        QVERIFY(mapa.Text_mesa->hasFocus());
        QVERIFY(!Form::isLoaded<Frm_Acesso>());
    }

    void acessoRapidoEUmContadorQueDesloca() {
        Frm_Principal& mapa = mapaNaTela();
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("1"));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0001"));
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("2"));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0012"));
        QCOMPARE(mapa.Text_mesa->cursorPosition(), 4);
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("x"));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0012"));
        // The slash gets in and the key-up takes it back with a backspace of its own.
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("/"));
        QTRY_COMPARE(mapa.Text_mesa->text(), QStringLiteral("0012"));
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("345"));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("12345"));
        // Emptied, the field is given a zero back.
        mapa.Text_mesa->selectAll();
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Backspace);
        QTRY_COMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
    }

    // Pressed with the focus elsewhere, the key starts the quick access; its release already reaches
    // the field, whose key-up tidies the text.
    void teclaForaDeUmaCaixaDeTexto_data() {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<int>("modificador");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("7") << int(Qt::Key_7) << int(Qt::NoModifier) << QStringLiteral("0007");
        QTest::newRow("teclado numérico 4")
            << int(Qt::Key_4) << int(Qt::KeypadModifier) << QStringLiteral("0004");
        QTest::newRow("backspace") << int(Qt::Key_Backspace) << int(Qt::NoModifier) << QStringLiteral("0000");
    }
    void teclaForaDeUmaCaixaDeTexto() {
        QFETCH(int, tecla);
        QFETCH(int, modificador);
        QFETCH(QString, esperado);
        Frm_Principal& mapa = mapaNaTela();
        mapa.Text_mesa->setText(QStringLiteral("0012"));
        mapa.List_Menu->setFocus();
        QTRY_VERIFY(mapa.List_Menu->hasFocus());
        QVERIFY(mapa.List_Menu->selectedItems().isEmpty());
        const auto mods = Qt::KeyboardModifiers(modificador);
        QTest::keyPress(mapa.List_Menu, Qt::Key(tecla), mods);
        QVERIFY(mapa.Text_mesa->hasFocus());
        QTest::keyRelease(mapa.Text_mesa, Qt::Key(tecla), mods);
        QTRY_COMPARE(mapa.Text_mesa->text(), esperado);
        QCOMPARE(mapa.Text_mesa->cursorPosition(), 4);
    }

    // A free table asks first; with one waiter per table it opens for whoever passes the prompt, as
    // there is no open tab to compare with.
    void mesaLivre_data() {
        QTest::addColumn<bool>("multiplos");
        QTest::addColumn<int>("resposta");
        QTest::newRow("não: nenhuma linha") << true << int(vbNo);
        QTest::newRow("sim") << true << int(vbYes);
        QTest::newRow("sim, um atendente por mesa") << false << int(vbYes);
    }
    void mesaLivre() {
        QFETCH(bool, multiplos);
        QFETCH(int, resposta);
        multiplosAtendentes = multiplos;
        Frm_Principal& mapa = mapaNaTela();
        digitarSenha(QStringLiteral("456"));
        queueAnswer(resposta);
        bool comComanda = false;
        if (resposta == vbYes)
            sairDaMesa(&comComanda);
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("5"));
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Return);
        QCOMPARE(caixas(), QStringList({caixa(QStringLiteral("Pergunta"), vbYesNo | vbQuestion,
                                              QStringLiteral("Esta mesa encontra-se vazia, deseja iniciar a "
                                                             "consumação?"))}));
        QCOMPARE(comComanda, resposta == vbYes);
        QVERIFY(!comandaAtual);
        QCOMPARE(linhas(), resposta == vbYes ? 1 : 0);
        QCOMPARE(linhas(QStringLiteral("mesa = 5 AND status = 1 AND id_colaborador = 2")), linhas());
        QCOMPARE(mapa.Text_mesa->text(), resposta == vbYes ? QStringLiteral("0000") : QStringLiteral("0005"));
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
                 QStringList({caixa(QStringLiteral("Aviso"), vbOKOnly | vbInformation,
                                    QStringLiteral("Mesa já está sendo movimentada neste momento"))}));
        QVERIFY(!Form::isLoaded<Frm_Mesa>());
        QCOMPARE(linhas(), 1);
        QCOMPARE(linhas(QStringLiteral("status = 2")), 1);
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
        QVERIFY(!comandaAtual);
    }

    void mesaDeOutroAtendente_data() {
        QTest::addColumn<bool>("multiplos");
        QTest::addColumn<bool>("entra");
        QTest::newRow("um atendente por mesa") << false << false;
        QTest::newRow("vários atendentes") << true << true;
    }
    void mesaDeOutroAtendente() {
        QFETCH(bool, multiplos);
        QFETCH(bool, entra);
        multiplosAtendentes = multiplos;
        Frm_Principal& mapa = mapaNaTela();
        abrirComanda(4, 1, 10, QDateTime(), 2);
        mapa.mesasRefresh();
        digitarSenha(QStringLiteral("123"));
        bool abriu = false;
        if (entra)
            sairDaMesa(&abriu);
        QTest::mouseClick(mapa.card[3], Qt::LeftButton);
        QCOMPARE(abriu, entra);
        if (!entra)
            QCOMPARE(caixas(), QStringList({caixa(QStringLiteral("Atenção"), vbOKOnly | vbCritical,
                                                  QStringLiteral("Você não pode executar essa ação!"))}));
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
    }

    void senhaDesistidaNaoDaMensagem() {
        Frm_Principal& mapa = mapaNaTela();
        desistirDaSenha();
        QTest::keyClicks(mapa.Text_mesa, QStringLiteral("8"));
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Return);
        QVERIFY(boxes().isEmpty());
        QCOMPARE(mapa.Text_mesa->text(), QStringLiteral("0000"));
        QCOMPARE(linhas(), 0);
    }

    void filtros() {
        const QString semMesas = caixa(QStringLiteral("Aviso"), vbOKOnly | vbInformation,
                                       QStringLiteral("Não há mesas para o filtro selecionado"));
        Frm_Principal& mapa = mapaNaTela();
        // "Disponível" looks for the occupied tables, so with none it finds nothing to filter by.
        QTest::mouseClick(mapa.Frame[0], Qt::LeftButton);
        QCOMPARE(caixas(), QStringList({semMesas}));
        QCOMPARE(visiveis(mapa).size(), 30);
        clearBoxes();

        abrirComanda(3, 1);
        abrirComanda(7, 1);
        abrirComanda(9, 3);
        QTest::mouseClick(mapa.Frame[1], Qt::LeftButton);
        QCOMPARE(visiveis(mapa), QList<int>({3, 7}));
        // No table in edition: the earlier filter stays.
        QTest::mouseClick(mapa.Frame[2], Qt::LeftButton);
        QCOMPARE(caixas(), QStringList({semMesas}));
        QCOMPARE(visiveis(mapa), QList<int>({3, 7}));

        QTest::mouseClick(mapa.Frame[0], Qt::LeftButton);
        QCOMPARE(visiveis(mapa).size(), 27);
        QVERIFY(!visiveis(mapa).contains(9));

        // Hidden cards are still refreshed and counted.
        mapa.mesasRefresh();
        QCOMPARE(mapa.Label_Ocupada->text(), QStringLiteral("Ocupada (2)"));

        int consultas = 0;
        setStatementObserver([&consultas](const QString&) { ++consultas; });
        QTest::mouseClick(mapa.Frame[5], Qt::LeftButton);
        QCOMPARE(visiveis(mapa).size(), 30);
        QCOMPARE(consultas, 0);
    }

    // A lost database is the one error the filter's data control keeps to itself; the failure still
    // ends the process, with the run time's report alone.
    void filtroSemBancoSoDaORelatorio() {
        Frm_Principal& mapa = mapaNaTela();
        QFile estragado(ambiente->scratchPath(QStringLiteral("estragado.db")));
        QVERIFY(estragado.open(QIODevice::WriteOnly));
        estragado.write(QByteArray(4096, 'x'));
        estragado.close();
        mapa.Ado_Geral->ConnectionString =
            QStringLiteral("Provider=SQLNCLI;Server=%1;Database=Norvik;Uid=sa;Pwd=;")
                .arg(estragado.fileName());
        QTest::mouseClick(mapa.Frame[1], Qt::LeftButton);
        QVERIFY(processEnded());
        QCOMPARE(boxes().size(), 1);
        QVERIFY(boxes().first().prompt.startsWith(QStringLiteral("Run-time error '-2147467259':")));
    }

    void menuComDireito_data() {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("senha");
        QTest::addColumn<QStringList>("mensagens");
        const QStringList recusa({caixa(QStringLiteral("Atenção"), vbOKOnly | vbCritical,
                                        QStringLiteral("Você não pode executar essa ação"))});
        QTest::newRow("F1 sem direito") << int(Qt::Key_F1) << QStringLiteral("123") << recusa;
        QTest::newRow("F1 com direito") << int(Qt::Key_F1) << QStringLiteral("456") << QStringList();
        QTest::newRow("F2 sem direito") << int(Qt::Key_F2) << QStringLiteral("123") << recusa;
        QTest::newRow("F2 com direito") << int(Qt::Key_F2) << QStringLiteral("456") << QStringList();
        QTest::newRow("F1 sem senha") << int(Qt::Key_F1) << QString() << QStringList();
    }
    void menuComDireito() {
        QFETCH(int, tecla);
        QFETCH(QString, senha);
        QFETCH(QStringList, mensagens);
        Frm_Principal& mapa = mapaNaTela();
        if (senha.isEmpty())
            desistirDaSenha();
        else
            digitarSenha(senha);
        mapa.List_Menu->setFocus();
        QTest::keyClick(mapa.List_Menu, Qt::Key(tecla));
        QCOMPARE(caixas(), mensagens);
        QTRY_VERIFY(mapa.Text_mesa->hasFocus());
    }

    void sair() {
        Frm_Principal& mapa = mapaNaTela();
        queueAnswer(vbNo);
        QTest::keyClick(mapa.Text_mesa, Qt::Key_Escape);
        QCOMPARE(caixas(), QStringList({caixa(QStringLiteral("Pergunta"), vbYesNo | vbQuestion,
                                              QStringLiteral("Deseja realmente sair?"))}));
        QVERIFY(!processEnded());
        QTRY_VERIFY(mapa.Text_mesa->hasFocus());

        // From the menu entry itself this time.
        QStringList entradas;
        for (int i = 0; i < mapa.List_Menu->topLevelItemCount(); ++i)
            entradas << mapa.List_Menu->topLevelItem(i)->text(0) + QLatin1Char('/') +
                            mapa.List_Menu->topLevelItem(i)->toolTip(0);
        QCOMPARE(entradas, QStringList({QStringLiteral("Transferir/Transferir mesa"),
                                        QStringLiteral("Ajustes/Ajustes"), QStringLiteral("Sair/Sair")}));
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
