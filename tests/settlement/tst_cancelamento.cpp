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
    // Refusals judge the trimmed text, the counter the text as typed; a row with neither leaves by ESC.
    void motivo_data() {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<bool>("colado");
        QTest::addColumn<int>("contador");
        QTest::addColumn<QString>("recusa");
        QTest::addColumn<QString>("gravado");
        const QString d29(29, u'7'), m = QStringLiteral("mesa aberta por engano hoje!!!");
        const auto linha = [](const char* nome, const QString& texto, bool colado, int contador,
                              const char* recusa, const QString& gravado) {
            QTest::newRow(nome) << texto << colado << contador << QString::fromUtf8(recusa) << gravado;
        };
        linha("só brancos", "   ", false, 3, "Informe o motivo do cancelamento!", "");
        linha("29 entre brancos", "  " + QString(29, u'a') + "  ", false, 33,
              "O cancelamento deve possuir ao menos 30 letras!", "");
        linha("30 dígitos", d29 + "7", false, 30, "O motivo do cancelamento não pode ser um número!", "");
        linha("29 dígitos e letra", d29 + "x", false, 30, "", d29 + "X");
        linha("30 exatos", " " + m, false, 31, "", m.toUpper());
        linha("colado", "o cliente pediu para cancelar tudo", true, 0, "",
              "O CLIENTE PEDIU PARA CANCELAR TUDO");
        linha("ESC", m, false, 30, "", "");
    }
    void motivo() {
        QFETCH(QString, texto);
        QFETCH(bool, colado);
        QFETCH(int, contador);
        QFETCH(QString, recusa);
        QFETCH(QString, gravado);
        podeCancelar = true;
        const int id = abrirComanda(8, 1);
        itemNoBanco(id, 1, 12);
        const bool esc = recusa.isEmpty() && gravado.isEmpty();
        QStringList visto;
        naMesa(8, [&](Frm_Mesa& f) {
            onNextModal<Frm_Cancelamento>([&](Frm_Cancelamento* c) {
                colado ? c->Text_Cancelamento->setPlainText(texto)
                       : QTest::keyClicks(c->Text_Cancelamento, texto);
                visto << c->Label_Caracteres->text() << c->Text_Cancelamento->toPlainText();
                QTest::keyClick(c->Text_Cancelamento, esc ? Qt::Key_Escape : Qt::Key_F1);
                if (Form::isLoaded<Frm_Cancelamento>())
                    QTest::keyClick(c->Text_Cancelamento, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F6);
            visto << QVariant(Form::isLoaded<Frm_Mesa>()).toString();
        });
        QCOMPARE(visto,
                 QStringList({QStringLiteral("Caracteres: %1").arg(contador),
                              colado ? texto : texto.toUpper(), QVariant(gravado.isEmpty()).toString()}));
        QCOMPARE(caixas(), recusa.isEmpty() ? QStringList() : QStringList{atencao(recusa)});
        const QString sql = QStringLiteral("SELECT status, cancelada, quem_cancelou, data_cancelamento, "
                                           "motivo_cancelamento FROM Tb_Comandas WHERE id_comanda = %1")
                                .arg(id);
        QStringList linha;
        for (int i = 0; i < 5; ++i)
            linha << (IsNull(consultar(sql, i)) ? QString() : CStr(consultar(sql, i)));
        QCOMPARE(linha, gravado.isEmpty() ? QStringList({"1", "False", "", "", ""})
                                          : QStringList({"0", "True", "2", "05/03/2024 12:00:00", gravado}));
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas_Itens")).toInt(), 1);
    }
};

ZARVEL_TEST(TestCancelamento)
#include "tst_cancelamento.moc"
