#include "platform/Connection.h"
#include "platform/DataGrid.h"
#include "settlement/Frm_Recebimento.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TelaDaMesa.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTest>

namespace {
// F5 on table mesa, acao on the payment screen, then out with Escape if it is still there.
void receber(int mesa, const std::function<void(Frm_Recebimento&)>& acao) {
    naMesa(mesa, [&](Frm_Mesa& f) {
        onNextModal<Frm_Recebimento>([&](Frm_Recebimento* r) {
            acao(*r);
            if (Form::isLoaded<Frm_Recebimento>())
                QTest::keyClick(r->Text_Valor, Qt::Key_Escape);
        });
        QTest::keyClick(&f, Qt::Key_F5);
        QVERIFY(!Form::isLoaded<Frm_Recebimento>());
    });
}

// Pago, aberto and troco as the labels show them, then the value field, joined by '|'.
QString totais(const Frm_Recebimento& r) {
    return QStringList{r.Label_Valor_Pago->text(), r.Label_Valor_Aberto->text(), r.Label_Valor_Troco->text(),
                       r.Text_Valor->text()}
        .join(u'|');
}

// "finalizadora valor" of the payments that meet condicao, in their order, joined by '|'.
QString pagamentos(const QString& condicao) {
    QStringList linhas;
    Connection cn;
    cn.Open(conexaoLocal);
    for (Recordset rs = cn.Execute(QStringLiteral("SELECT finalizadora, valor_recebimento FROM "
                                                  "Tb_Comandas_Recebimentos WHERE ") +
                                   condicao + QStringLiteral(" ORDER BY id_comanda_recebimento"));
         !rs.Eof(); rs.MoveNext())
        linhas << rs.Fields(0).Value().toString() + u' ' + QString::number(rs.Fields(1).Value().toDouble());
    return linhas.join(u'|');
}

void pagamentoNoBanco(int idComanda, const char* finalizadora, double valor) {
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas_Recebimentos (id_comanda, id_colaborador, finalizadora, "
                       "valor_recebimento, data, status) VALUES (%1, 1, '%2', %3, '2024-03-05 11:30:00', 1)")
            .arg(idComanda)
            .arg(QString::fromUtf8(finalizadora))
            .arg(valor),
        secondTerminal(conexaoLocal));
}
} // namespace

class TestRecebimento : public TesteNaMesa {
    Q_OBJECT

private slots:
    // Keys on the value field (F1 to F5, digits, Enter, ESC); boxes, payments and figures joined by '|'.
    void confirmar_data() {
        QTest::addColumn<double>("item");
        QTest::addColumn<bool>("servico");
        QTest::addColumn<QString>("teclas");
        QTest::addColumn<QString>("gravados");
        QTest::addColumn<QString>("avisos");
        QTest::addColumn<QString>("depois"); // pago, aberto, troco, the value field
        const auto linha = [](const char* nome, double item, bool servico, const char* teclas,
                              const char* gravados, const char* avisos, const char* depois) {
            QTest::newRow(nome) << item << servico << QString::fromUtf8(teclas) << QString::fromUtf8(gravados)
                                << QString::fromUtf8(avisos) << QString::fromUtf8(depois);
        };
        linha("dinheiro com troco", 30, false, "F1 5000 Enter", "DINHEIRO 50", "",
              "R$ 50,00|R$ 0,00|R$ 20,00|0,00");
        linha("cartão acima do aberto", 30, false, "F3 5000 Enter", "", "O valor limite é: R$ 30,00",
              "R$ 0,00|R$ 30,00|R$ 0,00|30,00");
        // 1,20 plus 10 % is a hair under 1,32 as a double: the open value must still pass whole.
        linha("aberto exato no cartão", 1.2, true, "F3 Enter", "CRÉDITO 1.32", "",
              "R$ 1,32|R$ 0,00|R$ 0,00|0,00");
        linha("conta zerada", 0, false, "F1 1000 Enter F4 500 Enter", "",
              "O valor total da conta já foi atingido|O valor total da conta já foi atingido",
              "R$ 0,00|R$ 0,00|R$ 0,00|5,00");
        linha("troco uma vez só", 30, false, "F1 5000 Enter F2 1000 Enter", "DINHEIRO 50",
              "O valor total da conta já foi atingido", "R$ 50,00|R$ 0,00|R$ 20,00|10,00");
        linha("zero não grava", 30, false, "F2 0 Enter", "", "", "R$ 0,00|R$ 30,00|R$ 0,00|0,00");
        linha("três finalizadoras", 41.5, true, "F5 1000 Enter F1 2000 Enter F4 Enter",
              "PIX 10|DINHEIRO 20|DÉBITO 15.65", "", "R$ 45,65|R$ 0,00|R$ 0,00|0,00");
        linha("ESC sem rastro", 30, false, "F2 1234 ESC", "", "", "R$ 0,00|R$ 30,00|R$ 0,00|12,34");
    }
    void confirmar() {
        QFETCH(double, item);
        QFETCH(bool, servico);
        QFETCH(QString, teclas);
        QFETCH(QString, gravados);
        QFETCH(QString, avisos);
        QFETCH(QString, depois);
        taxaServico = 10;
        const int id = abrirComanda(4, 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET servico = %1").arg(int(servico)));
        if (item > 0)
            itemNoBanco(id, 1, item);
        QString vistos;
        receber(4, [&](Frm_Recebimento& r) {
            for (const QString& t : teclas.split(u' ')) {
                const int k = t == QLatin1String("Enter") ? Qt::Key_Return
                              : t == QLatin1String("ESC") ? Qt::Key_Escape
                              : t.startsWith(u'F')        ? Qt::Key_F1 + t.mid(1).toInt() - 1
                                                          : 0;
                k ? QTest::keyClick(r.Text_Valor, Qt::Key(k)) : QTest::keyClicks(r.Text_Valor, t);
                if (Form::isLoaded<Frm_Recebimento>())
                    vistos = totais(r);
            }
        });
        QCOMPARE(
            pagamentos(QStringLiteral("status = 1 AND id_colaborador = 2 AND data = '2024-03-05 12:00:00' "
                                      "AND observacao = '' AND id_comanda = %1")
                           .arg(id)),
            gravados);
        QStringList esperadas;
        for (const QString& a : avisos.split(u'|', Qt::SkipEmptyParts))
            esperadas << aviso(a);
        QCOMPARE(caixas(), esperadas);
        QCOMPARE(vistos, depois);
    }

    // Excluded from the grid's menu, a payment stays in the store; the figures then take in another
    // terminal's payments.
    void excluir() {
        const int id = abrirComanda(6, 1);
        itemNoBanco(id, 1, 30);
        pagamentoNoBanco(id, "DINHEIRO", 10);
        pagamentoNoBanco(id, "CRÉDITO", 7);
        receber(6, [&](Frm_Recebimento& r) {
            QTest::keyClick(r.Text_Valor, Qt::Key_F3);
            QCOMPARE(r.Label_Finalizadora->text(), QStringLiteral("CRÉDITO"));
            for (int i = 0; i < r.List_Finalizadoras->count(); ++i)
                QCOMPARE(Frm_Recebimento::Ghosted(r.List_Finalizadoras->item(i)), i != 2);
            QCOMPARE(totais(r), QStringLiteral("R$ 17,00|R$ 13,00|R$ 0,00|13,00"));
            QCOMPARE(r.Dtg_Recebimentos->model()->index(1, 1).data().toString(), QStringLiteral("R$ 7,00"));
            pagamentoNoBanco(id, "PIX", 5);
            for (const QString& antes : {QStringLiteral("R$ 17,00"), QStringLiteral("R$ 15,00")}) {
                QCOMPARE(r.Label_Valor_Pago->text(), antes);
                QWidget* linhas = r.Dtg_Recebimentos->viewport();
                const QPoint ponto =
                    r.Dtg_Recebimentos->visualRect(r.Dtg_Recebimentos->model()->index(1, 0)).center();
                QTest::mouseClick(linhas, Qt::RightButton, {}, ponto);
                QContextMenuEvent menu(QContextMenuEvent::Mouse, ponto, linhas->mapToGlobal(ponto));
                QApplication::sendEvent(linhas, &menu);
                QTRY_COMPARE(QApplication::activePopupWidget(), r.mnu_recebimentos);
                r.mnu_recebimentos->close();
                r.mnu_recebimentos_excluir->trigger();
            }
            QCOMPARE(totais(r), QStringLiteral("R$ 10,00|R$ 20,00|R$ 0,00|13,00"));
            QVERIFY(r.Dtg_Recebimentos->isEnabled());
        });
        QCOMPARE(pagamentos(QStringLiteral("status = 1")), QStringLiteral("DINHEIRO 10"));
        QCOMPARE(pagamentos(QStringLiteral("status = 0 AND quem_excluiu = 2 AND data_exclusao = '2024-03-05 "
                                           "12:00:00'")),
                 QStringLiteral("CRÉDITO 7|PIX 5"));
    }
};

ZARVEL_TEST(TestRecebimento)
#include "tst_recebimento.moc"
