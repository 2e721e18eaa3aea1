#include "access/Frm_Ajuda.h"
#include "support/BancoDeTeste.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

namespace {
QImage imagem(const QPixmap& p) {
    return p.toImage().convertToFormat(QImage::Format_ARGB32);
}

// The rows whose function stands level with its key and to its right, as "F3 ...".
QStringList linhasLadoALado(const QList<QLabel*>& teclas, const QList<QLabel*>& funcoes) {
    QStringList linhas;
    for (int i = 0; i < teclas.size(); ++i) {
        const QRect tecla = teclas[i]->geometry(), funcao = funcoes[i]->geometry();
        if (teclas[i]->isVisible() && funcoes[i]->isVisible() && funcao.left() > tecla.right() &&
            qAbs(funcao.center().y() - tecla.center().y()) <= 2)
            linhas << teclas[i]->text() + QLatin1Char(' ') + funcoes[i]->text();
    }
    return linhas;
}
} // namespace

// The sheet opens over the table, blocked or not, from F7 and the strip; Escape gives the table back.
class TestAjuda : public TesteNaMesa {
    Q_OBJECT

private slots:
    void abreDaMesa_data() {
        QTest::addColumn<bool>("bloqueada");
        QTest::addColumn<bool>("pelaFaixa");
        for (const bool bloqueada : {false, true})
            for (const bool faixa : {false, true})
                QTest::addRow("%s%s", bloqueada ? "bloqueada, " : "", faixa ? "entrada Ajuda" : "F7")
                    << bloqueada << faixa;
    }
    void abreDaMesa() {
        QFETCH(bool, bloqueada);
        QFETCH(bool, pelaFaixa);
        abrirComanda(8, 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = %1").arg(int(bloqueada)));
        QStringList linhas;
        bool mesmasMarcas = false;
        naMesa(8, [&](Frm_Mesa& f) {
            onNextModal<Frm_Ajuda>([&](Frm_Ajuda* a) {
                linhas = linhasLadoALado(a->Label_Tecla, a->Label_Funcao_Tecla) +
                         linhasLadoALado(a->Label_Combinacao, a->Label_Funcao_Combinacao);
                mesmasMarcas = imagem(a->Image2->pixmap()) == imagem(f.ImageListItens[0].pixmap(16, 16)) &&
                               imagem(a->Image3->pixmap()) == imagem(f.ImageListItens[1].pixmap(16, 16));
                QTest::keyClick(a->Label_Nota, Qt::Key_Escape);
            });
            if (pelaFaixa)
                QTest::mouseClick(
                    f.List_Menu->viewport(), Qt::LeftButton, {},
                    f.List_Menu->visualItemRect(f.entradaDoMenu(QStringLiteral("Ajuda"))).center());
            else
                QTest::keyClick(&f, Qt::Key_F7);
            QVERIFY(!Form::isLoaded<Frm_Ajuda>());
            QVERIFY(Form::isLoaded<Frm_Mesa>());
            if (!bloqueada)
                QTRY_COMPARE(QApplication::focusWidget(), f.Text_Codigo);
        });
        QCOMPARE(linhas.size(), 18);
        QCOMPARE(
            linhas.filter(QRegularExpression(QStringLiteral("\\*$"))),
            QStringList({"F3 Transferir itens selecionados*", "F6 Cancelar consumação da mesa*",
                         "F10 Solicitar reimpressão do item selecionado*", "DEL Excluir item selecionado*",
                         "Ctrl S ATIVA ou DESATIVA a incidência da taxa de serviço*"}));
        QVERIFY(mesmasMarcas);
        QVERIFY(boxes().isEmpty());
    }
};

ZARVEL_TEST(TestAjuda)
#include "tst_ajuda.moc"
