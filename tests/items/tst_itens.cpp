#include "items/rotinasItens.h"
#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Detalhe.h"
#include "table/Frm_Mesa.h"
#include "table/Frm_Observacao.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTreeWidget>

namespace {
QStringList coluna(const Frm_Mesa& f, int c) {
    QStringList textos;
    for (int i = 0; i < f.List_Itens->topLevelItemCount(); ++i)
        textos << f.List_Itens->topLevelItem(i)->text(c);
    return textos;
}

void digitar(Frm_Mesa& f, const QString& texto) {
    f.Text_Codigo->setFocus();
    QTest::keyClicks(f.Text_Codigo, texto);
    QTest::keyClick(f.Text_Codigo, Qt::Key_Return);
}
} // namespace

class TestItens : public TesteNaMesa {
    Q_OBJECT

private slots:
    // A quantity, a code and Enter store the item as the ledger writes it, list it and total it;
    // the entry is ready for the next item.
    void incluirPeloTeclado_data() {
        QTest::addColumn<bool>("imprimir");
        QTest::newRow("impressão ligada") << true;
        QTest::newRow("impressão desligada") << false;
    }
    void incluirPeloTeclado() {
        QFETCH(bool, imprimir);
        imprimirItens = imprimir;
        executar(QStringLiteral("INSERT INTO PRODUTOS (CODIGO, DESCRICAO, UN, PRECO, DEP) VALUES "
                                "(77, '  batata rústica com cheddar e bacon extra', 'UN', 0.333, 1)"));
        executar(QStringLiteral("INSERT INTO TB_ESTOQUE (CODIGO, QD) VALUES (77, 1)"));
        naMesa(9, [&](Frm_Mesa& f) {
            digitar(f, QStringLiteral("3*77"));
            QCOMPARE(f.Text_Quantidade->text(), QStringLiteral("1,000"));
            QVERIFY(f.Text_Codigo->text().isEmpty());
            QCOMPARE(coluna(f, 1), QStringList{QStringLiteral("00000000000077")});
            QCOMPARE(coluna(f, 2), QStringList{QStringLiteral("  BATATA RÚSTICA COM CHEDDAR E")});
            QCOMPARE(coluna(f, 4), QStringList{QStringLiteral("3,000")});
            QCOMPARE(coluna(f, 5), QStringList{QStringLiteral("1,00")});
            QCOMPARE(Frm_Mesa::SmallIcon(f.List_Itens->topLevelItem(0)), imprimir ? 2 : 1);
            QCOMPARE(f.Label_Total->text(), QStringLiteral("1,00"));
            QCOMPARE(consultar(QStringLiteral("SELECT impresso FROM Tb_Comandas_Itens")).toBool(), !imprimir);
        });
        // Leaving the table sends what was pending: one ticket, and the item is printed.
        QCOMPARE(impressos().size(), int(imprimir));
        Connection cn;
        cn.Open(conexaoLocal);
        Recordset rs = cn.Execute(QStringLiteral("SELECT * FROM Tb_Comandas_Itens"));
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.Fields(QStringLiteral("descricao")).Value().toString(),
                 QStringLiteral("BATATA RÚSTICA COM CHEDDAR E"));
        QCOMPARE(rs.Fields(QStringLiteral("valor_total")).Value().toDouble(), 3 * 0.333);
        QCOMPARE(rs.Fields(QStringLiteral("n_item")).Value().toInt(), 1);
        QVERIFY(CBool(rs.Fields(QStringLiteral("impresso")).Value()));
        QCOMPARE(rs.Fields(QStringLiteral("quem_incluiu")).Value().toInt(), 2);
        QCOMPARE(rs.Fields(QStringLiteral("id_comanda_origem")).Value(),
                 rs.Fields(QStringLiteral("id_comanda")).Value());
        QVERIFY(itemCodigo.isEmpty() && itemQuantidade == 0);
    }

    void produtoNaoLocalizado_data() {
        QTest::addColumn<QString>("codigo");
        QTest::newRow("vazio") << "";
        QTest::newRow("desconhecido") << "999";
        QTest::newRow("sem estoque") << "10";
    }
    void produtoNaoLocalizado() {
        QFETCH(QString, codigo);
        naMesa(9, [&](Frm_Mesa& f) {
            digitar(f, QStringLiteral("2*") + codigo);
            QCOMPARE(f.Text_Quantidade->text(), QStringLiteral("1,000"));
            QVERIFY(f.Text_Codigo->text().isEmpty());
            QCOMPARE(f.List_Itens->topLevelItemCount(), 0);
        });
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, QStringLiteral("Produto não localizado"));
    }

    // Numbers count the live items, so they repeat after an exclusion: 1, 3, 3.
    void excluirENumerar() {
        podeExcluir = true;
        naMesa(4, [&](Frm_Mesa& f) {
            for (const char* codigo : {"1", "2", "3"})
                digitar(f, QLatin1String(codigo));
            f.List_Itens->topLevelItem(1)->setSelected(true);
            f.List_Itens->setFocus();
            QTest::keyClick(f.List_Itens, Qt::Key_Delete);
            QCOMPARE(coluna(f, 0), (QStringList{QStringLiteral("0001"), QStringLiteral("0003")}));
            QCOMPARE(f.Label_Total->text(), QStringLiteral("44,40"));
            digitar(f, QStringLiteral("2"));
            QCOMPARE(coluna(f, 0),
                     (QStringList{QStringLiteral("0001"), QStringLiteral("0003"), QStringLiteral("0003")}));
        });
        QCOMPARE(boxes().first().prompt, QStringLiteral("Deseja realmente excluir os itens selecionados?"));
        QCOMPARE(boxes().first().style, vbYesNo | vbQuestion | vbDefaultButton2);
        QCOMPARE(consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens WHERE status = 0 AND "
                                          "quem_excluiu = 2 AND data_exclusao IS NOT NULL"))
                     .toInt(),
                 1);
        QCOMPARE(consultar(QStringLiteral("SELECT valor_total FROM Tb_Comandas")).toDouble(), 51.4);
    }

    void exclusaoRecusada_data() {
        QTest::addColumn<bool>("direito");
        QTest::addColumn<bool>("selecionado");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("sem direito") << false << true << "Você não pode executar essa ação";
        QTest::newRow("nada selecionado") << true << false << "Não há itens selecionados!";
    }
    void exclusaoRecusada() {
        QFETCH(bool, direito);
        QFETCH(bool, selecionado);
        QFETCH(QString, mensagem);
        podeExcluir = direito;
        itemNoBanco(abrirComanda(4, 1), 1, 10);
        naMesa(4, [&](Frm_Mesa& f) {
            f.List_Itens->topLevelItem(0)->setSelected(selecionado);
            f.mnu_mesa_excluir_Click();
            QCOMPARE(f.List_Itens->topLevelItemCount(), 1);
        });
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, mensagem);
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas_Itens")).toInt(), 1);
    }

    // A failure stops the routine with its message; the ids before it stay excluded and off the list.
    void falhaNaExclusao() {
        const int id = abrirComanda(4, 1);
        itemNoBanco(id, 1, 10);
        itemNoBanco(id, 2, 20);
        naMesa(4, [&](Frm_Mesa& f) {
            const qint16 primeiro = CInt(Frm_Mesa::Tag(f.List_Itens->topLevelItem(0)));
            excluirItem({primeiro, 9999});
            QCOMPARE(f.List_Itens->topLevelItemCount(), 1);
            QCOMPARE(f.Label_Total->text(), QStringLiteral("30,00")); // not refreshed after a failure
            excluirItem({});
        });
        QCOMPARE(boxes().size(), 2);
        QVERIFY(boxes().at(0).prompt.startsWith(QStringLiteral("excluirItem()\r\n")));
        QCOMPARE(boxes().at(0).style, int(vbCritical));
        QCOMPARE(boxes().at(1).prompt, QStringLiteral("excluirItem()\r\nSubscript out of range : 9"));
        QCOMPARE(consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens WHERE status = 0")).toInt(),
                 1);
    }

    // With the prompt on, a new item stops at the note: F1 saves it in upper case, ESC keeps the old
    // one; a printed item stays printed; the detail shows the note with who added the item, and when.
    void observacao_data() {
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("gravada");
        QTest::newRow("F1 grava") << int(Qt::Key_F1) << "SEM CEBOLA";
        QTest::newRow("ESC não grava") << int(Qt::Key_Escape) << "";
    }
    void observacao() {
        QFETCH(int, tecla);
        QFETCH(QString, gravada);
        imprimirItens = false; // printed as it is stored
        exibirObservacao = true;
        QString detalhe;
        naMesa(3, [&](Frm_Mesa& f) {
            onNextModal<Frm_Observacao>([&](Frm_Observacao* o) {
                QCOMPARE(o->Label_Descricao_Item->text(), QStringLiteral("X-SALADA"));
                QTest::keyClicks(o->Text_Observacao, QStringLiteral("sem cebola"));
                QTest::keyClick(o, Qt::Key(tecla));
            });
            digitar(f, QStringLiteral("1"));
            QVERIFY(!Form::isLoaded<Frm_Observacao>());
            QVERIFY(f.List_Itens->topLevelItem(0)->isSelected());
            onNextModal<Frm_Detalhe>([&](Frm_Detalhe* d) {
                detalhe = QStringList{d->Label_Item_Descricao->text(), d->Label_Inclusao_Data->text(),
                                      d->Label_Garcom_Nome->text(), d->Label_Observacao_Descricao->text()}
                              .join(QLatin1Char('|'));
                QTest::keyClick(d, Qt::Key_Return);
            });
            QTest::keyClick(f.List_Itens, Qt::Key_F8);
        });
        QCOMPARE(detalhe, QStringLiteral("X-SALADA|05/03/2024 12:00:00|BRUNO|") + gravada);
        QCOMPARE(consultar(QStringLiteral("SELECT observacao FROM Tb_Comandas_Itens")).toString(), gravada);
        QCOMPARE(consultar(QStringLiteral("SELECT impresso FROM Tb_Comandas_Itens")).toInt(), 1);
    }

    void observacaoDe255() {
        itemNoBanco(abrirComanda(3, 1), 1, 10);
        naMesa(3, [&](Frm_Mesa& f) {
            f.List_Itens->topLevelItem(0)->setSelected(true);
            onNextModal<Frm_Observacao>([&](Frm_Observacao* o) {
                QVERIFY(o->Text_Observacao->toPlainText().isEmpty()); // Null in the store
                o->Text_Observacao->setPlainText(QString(254, QLatin1Char('A')));
                o->Text_Observacao->moveCursor(QTextCursor::End);
                QTest::keyClicks(o->Text_Observacao, QStringLiteral("bc"));
                QTest::keyClick(o, Qt::Key_F1);
            });
            QTest::keyClick(f.List_Itens, Qt::Key_F9);
        });
        QCOMPARE(consultar(QStringLiteral("SELECT observacao FROM Tb_Comandas_Itens")).toString(),
                 QString(254, QLatin1Char('A')) + QLatin1Char('B'));
    }

    // The list prices each item as unit price times quantity, whatever total was stored.
    void listarPeloPrecoVezesQuantidade() {
        const int id = abrirComanda(8, 1);
        itemNoBanco(id, 2, 10);
        itemNoBanco(id, 1, 5);
        itemNoBanco(id, 3, 99, 0);
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET quantidade = 2, valor_total = 1"));
        naMesa(8, [&](Frm_Mesa& f) {
            QCOMPARE(coluna(f, 0), (QStringList{QStringLiteral("0001"), QStringLiteral("0002")}));
            QCOMPARE(coluna(f, 5), (QStringList{QStringLiteral("10,00"), QStringLiteral("20,00")}));
        });
    }
};

ZARVEL_TEST(TestItens)
#include "tst_itens.moc"
