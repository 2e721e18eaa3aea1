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

// Pago, aberto and troco as the labels show them, then the value field.
QStringList totais(const Frm_Recebimento& r) {
    return {r.Label_Valor_Pago->text(), r.Label_Valor_Aberto->text(), r.Label_Valor_Troco->text(),
            r.Text_Valor->text()};
}

QStringList pagamentos(const QString& condicao) {
    QStringList linhas;
    Connection cn;
    cn.Open(conexaoLocal);
    for (Recordset rs = cn.Execute(QStringLiteral("SELECT finalizadora, valor_recebimento FROM "
                                                  "Tb_Comandas_Recebimentos WHERE ") +
                                   condicao + QStringLiteral(" ORDER BY id_comanda_recebimento"));
         !rs.Eof(); rs.MoveNext())
        linhas << rs.Fields(0).Value().toString() + u' ' + QString::number(rs.Fields(1).Value().toDouble());
    return linhas;
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
    // Each step is a line of keys on the value field: F1 to F5, digits, Enter, ESC.
    void confirmar_data() {
        QTest::addColumn<double>("item");
        QTest::addColumn<bool>("servico");
        QTest::addColumn<QStringList>("passos");
        QTest::addColumn<QStringList>("gravados");
        QTest::addColumn<QStringList>("avisos");
        QTest::addColumn<QStringList>("depois"); // pago, aberto, troco, the value field
        const QString atingido = QStringLiteral("O valor total da conta já foi atingido");
        QTest::newRow("dinheiro com troco")
            << 30.0 << false << QStringList{"F1 5000 Enter"} << QStringList{"DINHEIRO 50"} << QStringList()
            << QStringList{"R$ 50,00", "R$ 0,00", "R$ 20,00", "0,00"};
        QTest::newRow("cartão acima do aberto") << 30.0 << false << QStringList{"F3 5000 Enter"}
                                                << QStringList() << QStringList{"O valor limite é: R$ 30,00"}
                                                << QStringList{"R$ 0,00", "R$ 30,00", "R$ 0,00", "30,00"};
        // 1,20 plus 10 % is a hair under 1,32 as a double: the open value must still pass whole.
        QTest::newRow("aberto exato no cartão")
            << 1.2 << true << QStringList{"F3 Enter"} << QStringList{"CRÉDITO 1.32"} << QStringList()
            << QStringList{"R$ 1,32", "R$ 0,00", "R$ 0,00", "0,00"};
        QTest::newRow("conta zerada")
            << 0.0 << false << QStringList{"F1 1000 Enter", "F4 500 Enter"} << QStringList()
            << QStringList{atingido, atingido} << QStringList{"R$ 0,00", "R$ 0,00", "R$ 0,00", "5,00"};
        QTest::newRow("troco uma vez só")
            << 30.0 << false << QStringList{"F1 5000 Enter", "F2 1000 Enter"} << QStringList{"DINHEIRO 50"}
            << QStringList{atingido} << QStringList{"R$ 50,00", "R$ 0,00", "R$ 20,00", "10,00"};
        QTest::newRow("zero não grava")
            << 30.0 << false << QStringList{"F2 0 Enter"} << QStringList() << QStringList()
            << QStringList{"R$ 0,00", "R$ 30,00", "R$ 0,00", "0,00"};
        QTest::newRow("três finalizadoras")
            << 41.5 << true << QStringList{"F5 1000 Enter", "F1 2000 Enter", "F4 Enter"}
            << QStringList{"PIX 10", "DINHEIRO 20", "DÉBITO 15.65"} << QStringList()
            << QStringList{"R$ 45,65", "R$ 0,00", "R$ 0,00", "0,00"};
        QTest::newRow("ESC sem rastro")
            << 30.0 << false << QStringList{"F2 1234 ESC"} << QStringList() << QStringList()
            << QStringList{"R$ 0,00", "R$ 30,00", "R$ 0,00", "12,34"};
    }
    void confirmar() {
        QFETCH(double, item);
        QFETCH(bool, servico);
        QFETCH(QStringList, passos);
        QFETCH(QStringList, gravados);
        QFETCH(QStringList, avisos);
        QFETCH(QStringList, depois);
        taxaServico = 10;
        const int id = abrirComanda(4, 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET servico = %1").arg(int(servico)));
        if (item > 0)
            itemNoBanco(id, 1, item);
        QStringList vistos;
        receber(4, [&](Frm_Recebimento& r) {
            for (const QString& passo : passos) {
                for (const QString& tecla : passo.split(u' ')) {
                    if (tecla.startsWith(u'F'))
                        QTest::keyClick(r.Text_Valor, Qt::Key(Qt::Key_F1 + tecla.mid(1).toInt() - 1));
                    else if (tecla == QLatin1String("Enter"))
                        QTest::keyClick(r.Text_Valor, Qt::Key_Return);
                    else if (tecla == QLatin1String("ESC"))
                        QTest::keyClick(r.Text_Valor, Qt::Key_Escape);
                    else
                        QTest::keyClicks(r.Text_Valor, tecla);
                    if (Form::isLoaded<Frm_Recebimento>())
                        vistos = totais(r);
                }
            }
        });
        QCOMPARE(
            pagamentos(QStringLiteral("status = 1 AND id_colaborador = 2 AND data = '2024-03-05 12:00:00' "
                                      "AND observacao = '' AND id_comanda = %1")
                           .arg(id)),
            gravados);
        QStringList esperadas;
        for (const QString& a : avisos)
            esperadas << aviso(a);
        QCOMPARE(caixas(), esperadas);
        QCOMPARE(vistos, depois);
    }

    // A payment excluded from the grid's menu stays in the store; the figures read then also take
    // in what another terminal has recorded meanwhile.
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
            QCOMPARE(totais(r), QStringList({"R$ 17,00", "R$ 13,00", "R$ 0,00", "13,00"}));
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
            QCOMPARE(totais(r), QStringList({"R$ 10,00", "R$ 20,00", "R$ 0,00", "13,00"}));
            QVERIFY(r.Dtg_Recebimentos->isEnabled());
        });
        QCOMPARE(pagamentos(QStringLiteral("status = 1")), QStringList{"DINHEIRO 10"});
        QCOMPARE(pagamentos(QStringLiteral("status = 0 AND quem_excluiu = 2 AND data_exclusao = '2024-03-05 "
                                           "12:00:00'")),
                 QStringList({"CRÉDITO 7", "PIX 5"}));
    }
};

ZARVEL_TEST(TestRecebimento)
#include "tst_recebimento.moc"
