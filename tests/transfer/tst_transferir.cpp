#include "map/Frm_Principal.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"
#include "table/Frm_Observacao.h"
#include "transfer/Frm_Transferir.h"
#include <QLabel>

#include <QDeadlineTimer>
#include <QDir>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

namespace {
// A column of a tab row, as a number.
double daComanda(const char* coluna, int id) {
    return CDbl(consultar(QStringLiteral("SELECT %1 FROM Tb_Comandas WHERE id_comanda = %2")
                              .arg(QLatin1String(coluna))
                              .arg(id)));
}

// n_item, status and impresso of a tab's rows in their order: "8:1:0 9:0:1".
QString linhas(int idComanda) {
    return consultar(QStringLiteral("SELECT group_concat(n_item || ':' || status || ':' || impresso, ' ') "
                                    "FROM (SELECT * FROM Tb_Comandas_Itens WHERE id_comanda = %1 ORDER BY "
                                    "n_item, id_comanda_item)")
                         .arg(idComanda))
        .toString();
}

// What a refusal left selected in the destination field; "-" when the field was left without the
// focus.
QString selecaoDeixada;

// Types the two numbers on the transfer screen once it is up and clicks "Transferir"; whatever is
// left open is closed with Escape.
void digitarNaTransferencia(const QString& origem, const QString& destino) {
    selecaoDeixada.clear();
    onNextModal<Frm_Transferir>([origem, destino](Frm_Transferir* f) {
        if (f->Text_Origem->isEnabled()) {
            QTest::keyClicks(f->Text_Origem, origem);
            f->Text_Destino->setFocus();
        }
        // A letter typed in the destination never reaches it.
        QTest::keyClicks(f->Text_Destino, destino + QLatin1Char('x'));
        QTest::mouseClick(f->Cmd_Transferir, Qt::LeftButton);
        if (Form::isLoaded<Frm_Transferir>()) {
            selecaoDeixada =
                f->Text_Destino->hasFocus() ? f->Text_Destino->selectedText() : QStringLiteral("-");
            QTest::keyClick(f, Qt::Key_Escape);
        }
    });
}
} // namespace

// Tables of 20: 3 and 8 are BRUNO's (the staff member at the terminal), 12 is ANA's, 6 is BRUNO's
// but blocked after its conference, 5 is free. 3 holds items 1, 2 (excluded) and 3, pending or
// printed; 8 holds items up to 7, the 7 excluded.
class TestTransferir : public TesteNaMesa {
    Q_OBJECT

    int m3 = 0, m8 = 0, m12 = 0;

private slots:
    void init() {
        TesteNaMesa::init();
        quantidadeMesas = 20;
        taxaServico = 10;
        multiplosAtendentes = false;
        podeTransferirItem = true;
        m3 = abrirComanda(3, 1, 0, QDateTime(), 2);
        m8 = abrirComanda(8, 4, 0, QDateTime(), 2);
        m12 = abrirComanda(12, 1, 0, QDateTime(), 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = 1 WHERE id_comanda = %1")
                     .arg(abrirComanda(6, 3, 0, QDateTime(), 2)));
        itemNoBanco(m3, 1, 10);
        itemNoBanco(m3, 2, 20, 0);
        itemNoBanco(m3, 3, 30);
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = 1 WHERE n_item = 3"));
        itemNoBanco(m8, 4, 5);
        itemNoBanco(m8, 7, 1, 0);
        itemNoBanco(m12, 1, 2);
    }

    // The tests in their order: the first refusal wins, and a refusal leaves the screen open on the
    // destination, every row where it was.
    void validar_data() {
        QTest::addColumn<QString>("origem");
        QTest::addColumn<QString>("destino");
        QTest::addColumn<bool>("multiplos");
        QTest::addColumn<QString>("mensagem");
        const char* igual = "A mesa de destino é igual a mesa de origem!";
        const char* naoExiste = "A mesa de destino não existe!";
        const char* semDireito = "Você não pode executar essa ação!";
        const char* origem = "Mesa de origem BLOQUEADA ou FECHADA!";
        const char* destino = "Mesa de destino BLOQUEADA ou FECHADA!";
        const char* casos[][4] = {
            {"igual, mesa que não existe", "99", "99", igual},
            {"além das mesas", "3", "21", naoExiste},
            {"destino 0000", "3", "0", naoExiste},
            {"origem de outro", "12", "6", semDireito},
            {"destino de outro", "3", "12", semDireito},
            {"origem 0000", "0", "8", origem},
            {"origem livre", "5", "8", origem},
            {"origem bloqueada", "6", "8", origem},
            {"destino livre", "3", "5", destino},
            {"destino bloqueado", "3", "6", destino},
            {"destino de 17 bits", "3", "40000", "Mesa inválida"},
            {"origem de 17 bits", "99999", "8", "Mesa inválida"},
        };
        for (const auto& c : casos)
            QTest::newRow(c[0]) << c[1] << c[2] << false << atencao(QString::fromUtf8(c[3]));
        QTest::newRow("vários atendentes")
            << "12"
            << "8" << true << aviso(QStringLiteral("Tranferência realizada com sucesso!"));
    }
    void validar() {
        QFETCH(QString, origem);
        QFETCH(QString, destino);
        QFETCH(bool, multiplos);
        QFETCH(QString, mensagem);
        multiplosAtendentes = multiplos;
        digitarNaTransferencia(origem, destino);
        Frm_Principal::instance().transferirMesa();
        QCOMPARE(caixas(), QStringList{mensagem});
        // The handler of a number past 16 bits leaves the focus on the button.
        QCOMPARE(selecaoDeixada, multiplos ? QString()
                                 : mensagem.contains(QStringLiteral("inválida"))
                                     ? QStringLiteral("-")
                                     : Format(destino, QStringLiteral("0000")));
        QCOMPARE(linhas(m12), multiplos ? QString() : QStringLiteral("1:1:0"));
        QCOMPARE(linhas(m8), multiplos ? QStringLiteral("4:1:0 7:0:0 8:1:0") : QStringLiteral("4:1:0 7:0:0"));
    }

    // A whole table: the excluded rows move too, numbered after the highest number of the
    // destination, excluded rows counted; each keeps its state and its tab of origin. The source
    // stays open at 0 with its status; both values are right for the map.
    void mesaInteiraPeloMapa() {
        digitarNaTransferencia(QStringLiteral("3"), QStringLiteral("8"));
        Frm_Principal::instance().transferirMesa();
        QCOMPARE(caixas(), QStringList{aviso(QStringLiteral("Tranferência realizada com sucesso!"))});
        QCOMPARE(linhas(m3), QString());
        QCOMPARE(linhas(m8), QStringLiteral("4:1:0 7:0:0 8:1:0 9:0:0 10:1:1"));
        QCOMPARE(consultar(QStringLiteral("SELECT SUM(id_comanda_origem) FROM Tb_Comandas_Itens")).toInt(),
                 3 * m3 + 2 * m8 + m12);
        QCOMPARE(daComanda("valor_total", m3), 0.0);
        QCOMPARE(daComanda("status", m3), 1.0);
        QCOMPARE(daComanda("valor_total", m8), 45.0);
        QCOMPARE(daComanda("status", m8), 4.0);
    }

    // From the table screen: the selected rows go, the list and the labels show what stayed, and
    // the note prompt does not open for the rows listed again.
    void itensPelaMesa_data() {
        QTest::addColumn<int>("tecla"); // Return transfers, Escape leaves
        QTest::newRow("transferidos") << int(Qt::Key_Return);
        QTest::newRow("ESC") << int(Qt::Key_Escape);
    }
    void itensPelaMesa() {
        QFETCH(int, tecla);
        exibirObservacao = true;
        const bool move = tecla == Qt::Key_Return;
        bool nota = false;
        QTimer vigia;
        connect(&vigia, &QTimer::timeout, [&nota] {
            if (auto* o = qobject_cast<Frm_Observacao*>(QApplication::activeModalWidget())) {
                nota = true;
                o->Unload();
            }
        });
        vigia.start(5);
        QStringList lista;
        QString total;
        naMesa(3, [&](Frm_Mesa& f) {
            f.List_Itens->topLevelItem(0)->setSelected(true);
            onNextModal<Frm_Transferir>([&](Frm_Transferir* t) {
                QCOMPARE(t->windowTitle(), QStringLiteral("Transferência de itens"));
                QCOMPARE(t->Text_Origem->text(), QStringLiteral("0003"));
                QVERIFY(!t->Text_Origem->isEnabled() && t->Text_Destino->hasFocus());
                QTest::keyClicks(t->Text_Destino, QStringLiteral("8"));
                QTest::keyClick(t->Text_Destino, Qt::Key(tecla));
            });
            QTest::keyClick(&f, Qt::Key_F3);
            for (int i = 0; i < f.List_Itens->topLevelItemCount(); ++i)
                lista << f.List_Itens->topLevelItem(i)->text(0);
            total = f.Label_Total->text();
        });
        QVERIFY(!nota);
        QCOMPARE(lista, move ? QStringList{QStringLiteral("0003")}
                             : QStringList({QStringLiteral("0001"), QStringLiteral("0003")}));
        QCOMPARE(total, move ? QStringLiteral("30,00") : QStringLiteral("40,00"));
        // The pending item stays pending on its new tab; left on table 3, it was sent when the
        // screen closed.
        QCOMPARE(linhas(m3), move ? QStringLiteral("2:0:0 3:1:1") : QStringLiteral("1:1:1 2:0:0 3:1:1"));
        QCOMPARE(linhas(m8), move ? QStringLiteral("4:1:0 7:0:0 8:1:0") : QStringLiteral("4:1:0 7:0:0"));
        QCOMPARE(daComanda("valor_total", m8), move ? 15.0 : 0.0);
    }

    void itensRecusados_data() {
        QTest::addColumn<bool>("direito");
        QTest::addColumn<int>("mesa");
        QTest::addColumn<bool>("selecao");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("sem direito") << false << 3 << true << "Você não pode executar essa ação";
        QTest::newRow("sem itens") << true << 5 << false << "Não há itens para serem transferidos!";
        QTest::newRow("sem seleção") << true << 3 << false << "Não há itens selecionados!";
    }
    void itensRecusados() {
        QFETCH(bool, direito);
        QFETCH(int, mesa);
        QFETCH(bool, selecao);
        QFETCH(QString, mensagem);
        podeTransferirItem = direito;
        naMesa(mesa, [&](Frm_Mesa& f) {
            if (selecao)
                f.List_Itens->topLevelItem(0)->setSelected(true);
            QTest::keyClick(&f, Qt::Key_F3);
            QVERIFY(!Form::isLoaded<Frm_Transferir>());
        });
        QCOMPARE(caixas(), QStringList{atencao(mensagem)});
    }

    // Shown without its caller's preparation: items with none selected close it at once; a mode it
    // does not know is refused on showing and on moving, and moves nothing.
    void tipoDaTransferencia() {
        naMesa(3, [](Frm_Mesa&) {
            Frm_Transferir::instance().ShowModal();
            Frm_Transferir::instance().tipo = 7;
            Frm_Transferir::instance().Text_Origem->setText(QStringLiteral("0003"));
            digitarNaTransferencia(QString(), QStringLiteral("8"));
            Frm_Transferir::instance().ShowModal();
        });
        const QString invalido = atencao(QStringLiteral("Tipo de tranferência inválida!"));
        QCOMPARE(caixas(),
                 QStringList({aviso(QStringLiteral("Não há itens selecionados")), invalido, invalido,
                              aviso(QStringLiteral("Tranferência realizada com sucesso!"))}));
        QCOMPARE(linhas(m8), QStringLiteral("4:1:0 7:0:0"));
    }

    // Two terminals empty a table each into table 8 at the same moment: every row arrives, though
    // numbers may repeat.
    void duasTransferenciasAoMesmoTempo() {
        const int m4 = abrirComanda(4, 1, 0, QDateTime(), 2);
        for (int n = 1; n <= 150; ++n) {
            itemNoBanco(m3, 3 + n, 1);
            itemNoBanco(m4, n, 1);
        }
        QTemporaryDir sinais;
        QProcess outro;
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert(QStringLiteral("ZARVEL_TEST_CLASS"), QStringLiteral("TestOutroTerminal"));
        ambiente.insert(QStringLiteral("ZARVEL_OUTRO_BANCO"), conexaoLocal);
        ambiente.insert(QStringLiteral("ZARVEL_OUTRO_SINAIS"), sinais.path());
        outro.setProcessEnvironment(ambiente);
        outro.start(QCoreApplication::applicationFilePath(), {QStringLiteral("-silent")});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(sinais.filePath(QStringLiteral("pronto"))), 30000);
        onNextModal<Frm_Transferir>([&sinais](Frm_Transferir* f) {
            QTest::keyClicks(f->Text_Origem, QStringLiteral("3"));
            f->Text_Destino->setText(QStringLiteral("0008"));
            QFile(sinais.filePath(QStringLiteral("ja"))).open(QIODevice::WriteOnly);
            QTest::keyClick(f->Text_Destino, Qt::Key_Return);
        });
        Frm_Principal::instance().transferirMesa();
        QVERIFY(outro.waitForFinished(60000));
        const QByteArray saida = outro.readAllStandardOutput();
        QVERIFY2(outro.exitCode() == 0 && saida.contains(" 0 failed, 0 skipped"), saida.constData());
        QCOMPARE(caixas(), QStringList{aviso(QStringLiteral("Tranferência realizada com sucesso!"))});
        QCOMPARE(
            consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens WHERE id_comanda = %1").arg(m8))
                .toInt(),
            2 + 153 + 150);
    }
};

// Runs only inside the second process started above: the other terminal moves the rows of table 4
// into table 8 as soon as the first one starts (the totals are the first terminal's to write).
class TestOutroTerminal : public QObject {
    Q_OBJECT

private slots:
    void moverMesa4() {
        if (qEnvironmentVariableIsEmpty("ZARVEL_OUTRO_BANCO"))
            QSKIP("only as the second process of TestTransferir");
        TestEnvironment env;
        conexaoLocal = qEnvironmentVariable("ZARVEL_OUTRO_BANCO");
        quantidadeMesas = 20;
        multiplosAtendentes = true;
        const QDir sinais(qEnvironmentVariable("ZARVEL_OUTRO_SINAIS"));
        Frm_Transferir& f = Frm_Transferir::instance();
        f.tipo = 1;
        f.Text_Origem->setText(QStringLiteral("0004"));
        f.Text_Destino->setText(QStringLiteral("0008"));
        Frm_Principal::instance();
        QFile(sinais.filePath(QStringLiteral("pronto"))).open(QIODevice::WriteOnly);
        QDeadlineTimer limite(30000);
        while (!sinais.exists(QStringLiteral("ja")) && !limite.hasExpired())
            QThread::msleep(1);
        QVERIFY(f.validar());
        f.transferir(f.tipo);
        QVERIFY(boxes().isEmpty());
    }
};

ZARVEL_TEST(TestTransferir)
ZARVEL_TEST(TestOutroTerminal)
#include "tst_transferir.moc"
