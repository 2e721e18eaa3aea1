#include "platform/Connection.h"
#include "platform/VbText.h"
#include "settlement/Frm_Cancelamento.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

class TestCancelamento : public TesteNaMesa {
    Q_OBJECT

private slots:
    // The reason typed (or pasted) and F1 or ESC: the refusals on the trimmed text, the counter on
    // the text as typed, and an accepted reason closing the tab.
    void motivo_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("colado");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("contador");
        QTest::addColumn<QString>("recusa");
        QTest::addColumn<QString>("gravado");
        const int f1 = Qt::Key_F1;
        QTest::newRow("só brancos") << "   " << false << f1 << "Caracteres: 3"
                                    << "Informe o motivo do cancelamento!"
                                    << "";
        QTest::newRow("29 entre brancos")
            << "  " + QString(29, u'a') + "  " << false << f1 << "Caracteres: 33"
            << "O cancelamento deve possuir ao menos 30 letras!"
            << "";
        QTest::newRow("30 dígitos") << QString(30, u'7') << false << f1 << "Caracteres: 30"
                                    << "O motivo do cancelamento não pode ser um número!"
                                    << "";
        QTest::newRow("29 dígitos e letra") << QString(29, u'7') + "x" << false << f1 << "Caracteres: 30"
                                            << "" << QString(29, u'7') + "X";
        QTest::newRow("30 exatos") << " mesa aberta por engano hoje!!!" << false << f1 << "Caracteres: 31"
                                   << ""
                                   << "MESA ABERTA POR ENGANO HOJE!!!";
        QTest::newRow("colado em minúsculas")
            << "o cliente pediu para cancelar tudo" << true << f1 << "Caracteres: 0"
            << ""
            << "O CLIENTE PEDIU PARA CANCELAR TUDO";
        QTest::newRow("ESC") << "mesa aberta por engano hoje!!!" << false << int(Qt::Key_Escape)
                             << "Caracteres: 30"
                             << ""
                             << "";
    }
    void motivo() {
        QFETCH(QString, texto);
        QFETCH(bool, colado);
        QFETCH(int, tecla);
        QFETCH(QString, contador);
        QFETCH(QString, recusa);
        QFETCH(QString, gravado);
        podeCancelar = true;
        const int id = abrirComanda(8, 1);
        itemNoBanco(id, 1, 12);
        QString visto, digitado;
        bool mesaAberta = false;
        naMesa(8, [&](Frm_Mesa& f) {
            onNextModal<Frm_Cancelamento>([&](Frm_Cancelamento* c) {
                if (colado)
                    c->Text_Cancelamento->setPlainText(texto);
                else
                    QTest::keyClicks(c->Text_Cancelamento, texto);
                visto = c->Label_Caracteres->text();
                digitado = c->Text_Cancelamento->toPlainText();
                QTest::keyClick(c->Text_Cancelamento, Qt::Key(tecla));
                if (Form::isLoaded<Frm_Cancelamento>())
                    QTest::keyClick(c->Text_Cancelamento, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F6);
            mesaAberta = Form::isLoaded<Frm_Mesa>();
        });
        QCOMPARE(visto, contador);
        QCOMPARE(digitado, colado ? texto : texto.toUpper());
        QCOMPARE(caixas(), recusa.isEmpty() ? QStringList() : QStringList{atencao(recusa)});
        QCOMPARE(mesaAberta, gravado.isEmpty());
        Connection cn;
        cn.Open(conexaoLocal);
        Recordset rs = cn.Execute(
            QStringLiteral(
                "SELECT status, cancelada, quem_cancelou, data_cancelamento, motivo_cancelamento FROM "
                "Tb_Comandas WHERE id_comanda = %1")
                .arg(id));
        QStringList linha;
        for (int i = 0; i < 5; ++i)
            linha << (IsNull(rs.Fields(i).Value()) ? QString() : CStr(rs.Fields(i).Value()));
        QCOMPARE(linha, gravado.isEmpty() ? QStringList({"1", "False", "", "", ""})
                                          : QStringList({"0", "True", "2", "05/03/2024 12:00:00", gravado}));
        // The items stay as they were on the cancelled tab.
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas_Itens")).toInt(), 1);
    }
};

ZARVEL_TEST(TestCancelamento)
#include "tst_cancelamento.moc"
