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
// Total and status of a tab: "45 4".
QString valores(int id) {
    const QString sql =
        QStringLiteral("SELECT valor_total, status FROM Tb_Comandas WHERE id_comanda = %1").arg(id);
    return QStringLiteral("%1 %2").arg(CDbl(consultar(sql))).arg(CDbl(consultar(sql, 1)));
}

// n_item, status and impresso of a tab's rows in their order: "8:1:0 9:0:1".
QString linhas(int idComanda) {
    return consultar(QStringLiteral("SELECT group_concat(n_item || ':' || status || ':' || impresso, ' ') "
                                    "FROM (SELECT * FROM Tb_Comandas_Itens WHERE id_comanda = %1 ORDER BY "
                                    "n_item, id_comanda_item)")
                         .arg(idComanda))
        .toString();
}

// What a refusal left selected in the destination field; "-" when it lost the focus.
QString selecaoDeixada;

// Types the two numbers on the transfer screen and clicks "Transferir"; what stays open gets Escape.
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

// Tables of 20: 3 and 8 are BRUNO's (at the terminal), 12 is ANA's, 6 is BRUNO's but blocked, 5 is
// free. 3 holds items 1, 2 (excluded) and 3 (printed); 8 holds items 4 and 7 (excluded).
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

    // The checks in their order: the first refusal wins, and a refusal leaves the screen open on the
    // destination (selecao: what is left selected there; "-" without the focus), every row where it was.
    // depois: the rows of tables 3, 12 and 8; totais: total and status of 3, then of 8.
    void validar_data() {
        QTest::addColumn<QString>("origem");
        QTest::addColumn<QString>("destino");
        QTest::addColumn<bool>("multiplos");
        for (const char* coluna : {"mensagem", "selecao", "depois", "totais"})
            QTest::addColumn<QString>(coluna);
        const QString igual = atencao(QStringLiteral("A mesa de destino é igual a mesa de origem!")),
                      naoExiste = atencao(QStringLiteral("A mesa de destino não existe!")),
                      semDireito = atencao(QStringLiteral("Você não pode executar essa ação!")),
                      origem = atencao(QStringLiteral("Mesa de origem BLOQUEADA ou FECHADA!")),
                      destino = atencao(QStringLiteral("Mesa de destino BLOQUEADA ou FECHADA!")),
                      invalida = atencao(QStringLiteral("Mesa inválida")),
                      feito = aviso(QStringLiteral("Tranferência realizada com sucesso!")),
                      r = QStringLiteral("1:1:0 2:0:0 3:1:1|1:1:0|4:1:0 7:0:0"),
                      v = QStringLiteral("0 1 0 4");
        const QString casos[][8] = {
            {"igual, mesa que não existe", "99", "99", "", igual, "0099", r, v},
            {"além das mesas", "3", "21", "", naoExiste, "0021", r, v},
            {"destino 0000", "3", "0", "", naoExiste, "0000", r, v},
            {"origem de outro", "12", "6", "", semDireito, "0006", r, v},
            {"destino de outro", "3", "12", "", semDireito, "0012", r, v},
            {"origem 0000", "0", "8", "", origem, "0008", r, v},
            {"origem livre", "5", "8", "", origem, "0008", r, v},
            {"origem bloqueada", "6", "8", "", origem, "0008", r, v},
            {"destino livre", "3", "5", "", destino, "0005", r, v},
            {"destino bloqueado", "3", "6", "", destino, "0006", r, v},
            // The handler of a number past 16 bits leaves the focus on the button.
            {"destino de 17 bits", "3", "40000", "", invalida, "-", r, v},
            {"origem de 17 bits", "99999", "8", "", invalida, "-", r, v},
            {"vários atendentes", "12", "8", "sim", feito, "", "1:1:0 2:0:0 3:1:1||4:1:0 7:0:0 8:1:0",
             "0 1 7 4"},
            // A whole table: the excluded rows move too, numbered after the highest number of the
            // destination, excluded rows counted; each keeps its state and its tab of origin.
            {"mesa inteira", "3", "8", "", feito, "", "|1:1:0|4:1:0 7:0:0 8:1:0 9:0:0 10:1:1", "0 1 45 4"},
        };
        for (const auto& c : casos)
            QTest::newRow(c[0].toUtf8().constData())
                << c[1] << c[2] << !c[3].isEmpty() << c[4] << c[5] << c[6] << c[7];
    }
    void validar() {
        QFETCH(QString, origem);
        QFETCH(QString, destino);
        QFETCH(bool, multiplos);
        QFETCH(QString, mensagem);
        QFETCH(QString, selecao);
        QFETCH(QString, depois);
        QFETCH(QString, totais);
        multiplosAtendentes = multiplos;
        digitarNaTransferencia(origem, destino);
        Frm_Principal::instance().transferirMesa();
        QCOMPARE(caixas(), QStringList{mensagem});
        QCOMPARE(selecaoDeixada, selecao);
        QCOMPARE(linhas(m3) + u'|' + linhas(m12) + u'|' + linhas(m8), depois);
        QCOMPARE(valores(m3) + u' ' + valores(m8), totais);
        QCOMPARE(consultar(QStringLiteral("SELECT SUM(id_comanda_origem) FROM Tb_Comandas_Itens")).toInt(),
                 3 * m3 + 2 * m8 + m12);
    }

    // From the table screen (F3): the selected rows go, the list and the total show what stayed, and
    // the note prompt does not open for the rows listed again. Left on table 3, a pending item is sent
    // when the screen closes; moved, it stays pending. Without a key the screen is refused.
    void itensPelaMesa_data() {
        QTest::addColumn<bool>("direito");
        QTest::addColumn<int>("mesa");
        QTest::addColumn<bool>("selecionar");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("caixa");
        QTest::addColumn<QString>("tela");   // the list, then the total
        QTest::addColumn<QString>("depois"); // the rows of 3 and 8, total and status of 8
        const auto linha = [](const char* nome, bool direito, int mesa, bool selecionar, int tecla,
                              const QString& caixa, const char* tela, const char* depois) {
            QTest::newRow(nome) << direito << mesa << selecionar << tecla << caixa << QString::fromUtf8(tela)
                                << QString::fromUtf8(depois);
        };
        const char* ficou = "0001 0003 40,00";
        const char* intactas = "1:1:1 2:0:0 3:1:1|4:1:0 7:0:0|0 4";
        linha("transferidos", true, 3, true, Qt::Key_Return,
              aviso(QStringLiteral("Tranferência realizada com sucesso!")), "0003 30,00",
              "2:0:0 3:1:1|4:1:0 7:0:0 8:1:0|15 4");
        linha("ESC", true, 3, true, Qt::Key_Escape, "", ficou, intactas);
        linha("sem direito", false, 3, true, 0, atencao(QStringLiteral("Você não pode executar essa ação")),
              ficou, intactas);
        linha("sem itens", true, 5, false, 0,
              atencao(QStringLiteral("Não há itens para serem transferidos!")), "0,00",
              "1:1:0 2:0:0 3:1:1|4:1:0 7:0:0|0 4");
        linha("sem seleção", true, 3, false, 0, atencao(QStringLiteral("Não há itens selecionados!")), ficou,
              intactas);
    }
    void itensPelaMesa() {
        QFETCH(bool, direito);
        QFETCH(int, mesa);
        QFETCH(bool, selecionar);
        QFETCH(int, tecla);
        QFETCH(QString, caixa);
        QFETCH(QString, tela);
        QFETCH(QString, depois);
        podeTransferirItem = direito;
        exibirObservacao = true;
        bool nota = false;
        QTimer vigia;
        connect(&vigia, &QTimer::timeout, [&nota] {
            if (auto* o = qobject_cast<Frm_Observacao*>(QApplication::activeModalWidget())) {
                nota = true;
                o->Unload();
            }
        });
        vigia.start(5);
        QStringList vista;
        naMesa(mesa, [&](Frm_Mesa& f) {
            if (selecionar)
                f.List_Itens->topLevelItem(0)->setSelected(true);
            if (tecla)
                onNextModal<Frm_Transferir>([&](Frm_Transferir* t) {
                    QCOMPARE(t->Text_Origem->text(), QStringLiteral("0003"));
                    QVERIFY(!t->Text_Origem->isEnabled() && t->Text_Destino->hasFocus());
                    QTest::keyClicks(t->Text_Destino, QStringLiteral("8"));
                    QTest::keyClick(t->Text_Destino, Qt::Key(tecla));
                });
            QTest::keyClick(&f, Qt::Key_F3);
            QVERIFY(!Form::isLoaded<Frm_Transferir>());
            for (int i = 0; i < f.List_Itens->topLevelItemCount(); ++i)
                vista << f.List_Itens->topLevelItem(i)->text(0);
            vista << f.Label_Total->text();
        });
        QVERIFY(!nota);
        QCOMPARE(caixas(), caixa.isEmpty() ? QStringList() : QStringList{caixa});
        QCOMPARE(vista.join(u' '), tela);
        QCOMPARE(linhas(m3) + u'|' + linhas(m8) + u'|' + valores(m8), depois);
    }

    // Unprepared: items with none selected close it; an unknown mode is refused twice and moves nothing.
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

    // Two terminals empty a table each into 8 at once: every row arrives, though numbers may repeat.
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
        QCOMPARE(linhas(m8).split(u' ').size(), 2 + 153 + 150);
    }
};

// Only as the second process above: the other terminal moves table 4 into 8 as the first one starts.
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
