#include "platform/DataControl.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Clientes.h"
#include "table/Frm_Mesa.h"
#include "table/Frm_Produtos.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

namespace {
QStringList linhas(const DataGrid* grade, int coluna) {
    QStringList textos;
    for (int i = 0; i < grade->model()->rowCount(); ++i)
        textos << grade->model()->index(i, coluna).data().toString();
    return textos;
}
} // namespace

class TestConsultas : public TesteNaMesa {
    Q_OBJECT

private slots:
    // What the filter leaves in the grid, and what Enter then adds with the quantity typed before F1.
    void produtos_data() {
        QTest::addColumn<bool>("contem");
        QTest::addColumn<QString>("filtro");
        QTest::addColumn<QStringList>("grade");
        QTest::addColumn<QString>("incluido");
        const QStringList todos{"X-SALADA", "CERVEJA LATA", "PORÇÃO DE FRITAS"};
        QTest::newRow("começo") << false << "cer" << QStringList{"CERVEJA LATA"} << "CERVEJA LATA";
        QTest::newRow("meio sem buscaInicio") << false << "SALADA" << todos << "X-SALADA";
        QTest::newRow("meio com buscaInicio")
            << true << "LATA" << QStringList{"CERVEJA LATA"} << "CERVEJA LATA";
        QTest::newRow("apóstrofo") << false << "x-'sal" << QStringList{"X-SALADA"} << "X-SALADA";
        QTest::newRow("código inteiro")
            << false << "3" << QStringList{"PORÇÃO DE FRITAS"} << "PORÇÃO DE FRITAS";
        QTest::newRow("parte do código") << false << "00" << todos << "X-SALADA";
    }
    void produtos() {
        QFETCH(bool, contem);
        QFETCH(QString, filtro);
        QFETCH(QStringList, grade);
        QFETCH(QString, incluido);
        buscaInicio = contem;
        QStringList vistos;
        naMesa(2, [&](Frm_Mesa& f) {
            QTest::keyClicks(f.Text_Codigo, QStringLiteral("2*"));
            onNextModal<Frm_Produtos>([&](Frm_Produtos* p) {
                QCOMPARE(linhas(p->Dtg_Produtos, 1).size(), 3);
                // The grid bound when shown: the first row selected, the columns at their widths.
                QCOMPARE(p->Dtg_Produtos->currentIndex().row(), 0);
                QCOMPARE(p->Dtg_Produtos->horizontalHeader()->sectionSize(1), 360);
                QTest::keyClicks(p->Text_filtro, filtro);
                QCOMPARE(p->Text_filtro->text(), filtro.toUpper());
                vistos = linhas(p->Dtg_Produtos, 1);
                QTest::keyClick(p->Text_filtro, Qt::Key_Down);
                QCOMPARE(QApplication::focusWidget(), p->Dtg_Produtos);
                QTest::keyClick(p->Dtg_Produtos, Qt::Key_Return);
            });
            QTest::keyClick(&f, Qt::Key_F1);
            QVERIFY(!Form::isLoaded<Frm_Produtos>());
            QCOMPARE(f.Text_Quantidade->text(), QStringLiteral("1,000"));
            QTRY_COMPARE(QApplication::focusWidget(), f.Text_Codigo);
        });
        QCOMPARE(vistos, grade);
        QCOMPARE(consultar(QStringLiteral("SELECT descricao FROM Tb_Comandas_Itens")).toString(), incluido);
        QCOMPARE(consultar(QStringLiteral("SELECT quantidade FROM Tb_Comandas_Itens")).toDouble(), 2.0);
    }

    // A failed search leaves the picker loaded and hidden; F1 then shows it without loading it again,
    // and ESC leaves it without touching the tab.
    void produtosEscondidoEEsc() {
        naMesa(2, [&](Frm_Mesa& f) {
            QTest::keyClicks(f.Text_Codigo, QStringLiteral("5*999"));
            QTest::keyClick(f.Text_Codigo, Qt::Key_Return);
            QVERIFY(Form::isLoaded<Frm_Produtos>());
            Frm_Produtos* carregado = &Frm_Produtos::instance();
            QVERIFY(!carregado->isVisible());
            QTest::keyClicks(f.Text_Codigo, QStringLiteral("3*"));
            onNextModal<Frm_Produtos>([&](Frm_Produtos* p) {
                QCOMPARE(p, carregado);
                QCOMPARE(linhas(p->Dtg_Produtos, 0).first(), QStringLiteral("0000000000001"));
                QTest::keyClick(p->Text_filtro, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F1);
            QVERIFY(!Form::isLoaded<Frm_Produtos>());
            QCOMPARE(f.Text_Quantidade->text(), QStringLiteral("3,000"));
        });
        QCOMPARE(consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens")).toInt(), 0);
    }

    void clientes_data() {
        QTest::addColumn<QString>("filtro");
        QTest::addColumn<int>("linhas");
        QTest::addColumn<QString>("cliente");
        QTest::newRow("nome") << "JOS" << 1 << "JOSÉ SOUZA";
        QTest::newRow("ninguém") << "ZZZ" << 0 << "";
        QTest::newRow("minúsculas ficam") << "jos" << 1 << "JOSÉ SOUZA";
        QTest::newRow("apóstrofo") << "MA'R" << 1 << "MARIA SILVA";
    }
    void clientes() {
        QFETCH(QString, filtro);
        QFETCH(int, linhas);
        QFETCH(QString, cliente);
        naMesa(2, [&](Frm_Mesa& f) {
            onNextModal<Frm_Clientes>([&](Frm_Clientes* c) {
                QTest::keyClicks(c->Text_filtro, filtro);
                QCOMPARE(c->Text_filtro->text(), filtro);
                QCOMPARE(c->Dtg_Clientes->model()->rowCount(), linhas);
                QTest::keyClick(c->Text_filtro, Qt::Key_Return);
                if (Form::isLoaded<Frm_Clientes>())
                    QTest::keyClick(c->Text_filtro, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F2);
            QCOMPARE(f.Text_Cliente->text(), cliente);
        });
        QCOMPARE(consultar(QStringLiteral("SELECT id_cliente FROM Tb_Comandas")).toInt(),
                 cliente.isEmpty()                      ? 0
                 : cliente.startsWith(QLatin1Char('J')) ? 2
                                                        : 1);
    }

    // The columns' formats in the locale's notation: money with its group point and decimal comma;
    // a text column keeps its text though it reads as a number.
    void formatosDasGrades() {
        executar(QStringLiteral("INSERT INTO PRODUTOS (CODIGO, DESCRICAO, UN, PRECO, DEP) VALUES "
                                "(20, 'VINHO', 'GF', 1234.5, 2)"));
        executar(QStringLiteral("INSERT INTO TB_ESTOQUE (CODIGO, QD) VALUES (20, 1)"));
        executar(QStringLiteral("UPDATE CLIENTES SET IE = '110.042.490.114' WHERE ID_CODIGO = 1"));
        QCOMPARE(linhas(Frm_Produtos::instance().Dtg_Produtos, 3),
                 QStringList({"R$ 18,50", "R$ 7,00", "R$ 25,90", "R$ 1.234,50"}));
        QCOMPARE(linhas(Frm_Clientes::instance().Dtg_Clientes, 3), QStringList({"110.042.490.114", ""}));
    }

    // Customer codes are 16-bit on the screen: one past that fails at confirmation.
    void clienteDeCodigoGrande() {
        executar(QStringLiteral("INSERT INTO CLIENTES (ID_CODIGO, NOME) VALUES (40000, 'ZECA')"));
        naMesa(2, [&](Frm_Mesa&) {
            Frm_Clientes& c = Frm_Clientes::instance();
            c.Text_filtro->setText(QStringLiteral("ZECA"));
            QCOMPARE(raisedBy([&] { c.Cmd_confirmar_Click(); }).Number, 6);
            c.Unload();
        });
    }
};

ZARVEL_TEST(TestConsultas)
#include "tst_consultas.moc"
