#include "access/Frm_Ajuda.h"
#include "settlement/Frm_Recebimento.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"
#include "table/rotinasGerais.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidget>

class TestMesa : public TesteNaMesa {
    Q_OBJECT

private slots:
    void textos() {
        // A tab stamped by a terminal whose clock runs 30 s ahead.
        QCOMPARE(tempoDecorrido(testMoment(30)), QStringLiteral("-01h:59m"));
        // Each key moves the digits one place: a digit typed at the end, or one taken off.
        QCOMPARE(formataDecimal(QStringLiteral("1.234,5678"), 3, 1000), QStringLiteral("12.345,678"));
        QCOMPARE(formataDecimal(QStringLiteral("1.234,5"), 2, 100), QStringLiteral("123,45"));
    }

    void consultasDaMesa() {
        const int aberta = abrirComanda(2, 1, 0, QDateTime(), 2); // BRUNO's
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = 1 WHERE id_comanda = %1")
                     .arg(abrirComanda(3, 3, 0, QDateTime(), 2)));
        abrirComanda(4, 4, 0, QDateTime(), 1); // ANA's
        itemNoBanco(aberta, 1, 7);
        itemNoBanco(aberta, 2, 7, 0); // excluded, still counts
        QCOMPARE(idComandaDaMesa(1), qint16(0));
        QCOMPARE(idComandaDaMesa(2), qint16(aberta));
        QCOMPARE(idComandaDaMesa(3), qint16(0));
        QCOMPARE(ultimoItemDaComanda(aberta), qint16(2));
        QVERIFY(podeMovimentarMesa(2));
        QVERIFY(!podeMovimentarMesa(4));
        QCOMPARE(nomeDoColaborador(2), QStringLiteral("BRUNO"));
        QCOMPARE(nomeDoCliente(2), QStringLiteral("JOSÉ SOUZA"));
    }

    // Escape is "Enviar": the header is saved, the tab released (1, or 3 when blocked), the screen
    // closed. Every other key of a blocked table that needs it free does nothing.
    void teclasDaMesa_data() {
        QTest::addColumn<bool>("bloqueada");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<int>("modificadores");
        QTest::addColumn<bool>("cabecalhoGravado"); // the action ran: it writes the header first
        QTest::addColumn<int>("statusDepois");
        const int ctrl = Qt::ControlModifier, teclado = Qt::KeypadModifier;
        for (int f : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F6})
            QTest::addRow("bloqueada F%d", f - Qt::Key_F1 + 1) << true << f << 0 << false << 3;
        QTest::newRow("bloqueada F5") << true << int(Qt::Key_F5) << 0 << true << 3;
        QTest::newRow("bloqueada F7") << true << int(Qt::Key_F7) << 0 << true << 3;
        QTest::newRow("bloqueada Ctrl S") << true << int(Qt::Key_S) << ctrl << false << 3;
        QTest::newRow("bloqueada Ctrl +") << true << int(Qt::Key_Plus) << (ctrl | teclado) << false << 3;
        QTest::newRow("livre F8") << false << int(Qt::Key_F8) << 0 << false << 1;
        QTest::newRow("livre F4 sem total") << false << int(Qt::Key_F4) << 0 << true << 1;
        QTest::newRow("livre ESC") << false << int(Qt::Key_Escape) << 0 << true << 1;
    }
    void teclasDaMesa() {
        QFETCH(bool, bloqueada);
        QFETCH(int, tecla);
        QFETCH(int, modificadores);
        QFETCH(bool, cabecalhoGravado);
        QFETCH(int, statusDepois);
        podeAlterarTaxa = true;
        const int id = abrirComanda(12, 3);
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = %1").arg(int(bloqueada)));
        const QString identificacao =
            QStringLiteral("SELECT identificacao FROM Tb_Comandas WHERE id_comanda = %1").arg(id);
        QVariant durante, depoisDaTecla;
        bool aberta = false;
        naMesa(12, [&](Frm_Mesa& f) {
            durante =
                consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id));
            f.Text_Identificacao->setText(QStringLiteral("  janela "));
            if (tecla == Qt::Key_F5)
                onNextModal<Frm_Recebimento>([](Frm_Recebimento* r) { QTest::keyClick(r, Qt::Key_Escape); });
            else if (tecla == Qt::Key_F7)
                onNextModal<Frm_Ajuda>([](Frm_Ajuda* ajuda) { QTest::keyClick(ajuda, Qt::Key_Escape); });
            QTest::keyClick(&f, Qt::Key(tecla), Qt::KeyboardModifiers(modificadores));
            depoisDaTecla = consultar(identificacao);
            aberta = Form::isLoaded<Frm_Mesa>();
            if (aberta)
                QCOMPARE(f.Text_Ocupantes->text(), QStringLiteral("1"));
        });
        QCOMPARE(durante.toInt(), 2);
        QCOMPARE(depoisDaTecla.toString(),
                 cabecalhoGravado ? QStringLiteral("JANELA") : QStringLiteral("MESA: 12"));
        QCOMPARE(aberta, tecla != Qt::Key_Escape);
        QCOMPARE(
            consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id)).toInt(),
            statusDepois);
        QVERIFY(boxes().isEmpty());
    }

    void desbloquearLiberaOsControlesEManteAEdicao() {
        const int id = abrirComanda(3, 3);
        executar(QStringLiteral("UPDATE Tb_Comandas SET bloqueada = 1"));
        naMesa(3, [&](Frm_Mesa& f) {
            QVERIFY(!f.Text_Codigo->isEnabled());
            QCOMPARE(f.List_Menu->topLevelItemCount(), 4);
            QCOMPARE(f.entradaDoMenu(QStringLiteral("Receber"))->toolTip(0), QStringLiteral("Receber - F2"));
            QTest::keyClick(&f, Qt::Key_F8);
            QVERIFY(f.Text_Codigo->isEnabled() && f.List_Itens->isEnabled());
            QCOMPARE(f.List_Menu->topLevelItemCount(), 8);
            QCOMPARE(f.entradaDoMenu(QStringLiteral("Receber"))->toolTip(0), QStringLiteral("Receber - F5"));
            QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas")).toInt(), 2);
            QCOMPARE(consultar(QStringLiteral("SELECT bloqueada FROM Tb_Comandas")).toInt(), 0);
        });
        QCOMPARE(
            consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id)).toInt(),
            1);
    }

    void ocupantes_data() {
        QTest::addColumn<QString>("antes");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<int>("modificadores");
        QTest::addColumn<QString>("depois");
        const int ctrl = Qt::ControlModifier, teclado = Qt::KeypadModifier;
        QTest::newRow("menos em 1") << "1" << int(Qt::Key_Minus) << (ctrl | teclado) << "1";
        QTest::newRow("menos em 3") << "3" << int(Qt::Key_Minus) << (ctrl | teclado) << "2";
        QTest::newRow("mais passa de 100") << "100" << int(Qt::Key_Plus) << (ctrl | teclado) << "101";
        QTest::newRow("mais do teclado principal") << "4" << int(Qt::Key_Plus) << ctrl << "4";
        QTest::newRow("Ctrl Shift mais")
            << "4" << int(Qt::Key_Plus) << (ctrl | teclado | int(Qt::ShiftModifier)) << "4";
    }
    void ocupantes() {
        QFETCH(QString, antes);
        QFETCH(int, tecla);
        QFETCH(int, modificadores);
        QFETCH(QString, depois);
        naMesa(5, [&](Frm_Mesa& f) {
            f.Text_Ocupantes->setText(antes);
            QTest::keyClick(f.Text_Codigo, Qt::Key(tecla), Qt::KeyboardModifiers(modificadores));
            QCOMPARE(f.Text_Ocupantes->text(), depois);
            QCOMPARE(f.UpDown_Ocupantes->value(), std::min(depois.toInt(), 100));
        });
        QCOMPARE(consultar(QStringLiteral("SELECT ocupantes FROM Tb_Comandas")).toString(), depois);
    }

    // The quantity key takes what was typed as the quantity of the next code.
    void teclaDeQuantidade_data() {
        QTest::addColumn<QString>("digitado");
        QTest::addColumn<QString>("quantidade");
        QTest::addColumn<QString>("restante");
        const QStringList casos[] = {
            {"5* e 7*", "5*7x", "7,000", ""}, {"1,5*", "1,5*", "1,500", ""},
            {"0*", "0*", "1,000", "0"},       {"0,0X", "0,0X", "1,000", "0,0"},
            {"vazio", "*", "1,000", ""},      {"letras engolidas", "ab2c*", "2,000", ""},
        };
        for (const QStringList& c : casos)
            QTest::newRow(qPrintable(c[0])) << c[1] << c[2] << c[3];
    }
    void teclaDeQuantidade() {
        QFETCH(QString, digitado);
        QFETCH(QString, quantidade);
        QFETCH(QString, restante);
        const bool recusada = quantidade == QLatin1String("1,000");
        naMesa(5, [&](Frm_Mesa& f) {
            QTest::keyClicks(f.Text_Codigo, digitado);
            QCOMPARE(f.Text_Quantidade->text(), quantidade);
            QCOMPARE(f.Text_Codigo->text(), restante);
        });
        QCOMPARE(boxes().size(), int(recusada));
        if (recusada)
            QCOMPARE(boxes().first().prompt, QStringLiteral("Quantidade inválida!"));
    }

    // The field fills from the right: 0,002, 0,025, 0,250, 2,500; emptied it shows 0,000.
    void quantidadeDaDireita() {
        naMesa(5, [&](Frm_Mesa& f) {
            f.Text_Quantidade->setFocus();
            f.Text_Quantidade->setText(QStringLiteral("0,000"));
            f.Text_Quantidade->setCursorPosition(5);
            QTest::keyClicks(f.Text_Quantidade, QStringLiteral("2500"));
            QCOMPARE(f.Text_Quantidade->text(), QStringLiteral("2,500"));
            QTest::keyClick(f.Text_Quantidade, Qt::Key_A);
            QTRY_COMPARE(f.Text_Quantidade->text(), QStringLiteral("2,500"));
            f.Text_Quantidade->selectAll();
            QTest::keyClick(f.Text_Quantidade, Qt::Key_Backspace);
            QTRY_COMPARE(f.Text_Quantidade->text(), QStringLiteral("0,000"));
        });
    }

    // A digit on the list starts a new code; the identification is upper case as typed.
    void teclasDosCampos() {
        naMesa(5, [&](Frm_Mesa& f) {
            f.Text_Identificacao->clear();
            QTest::keyClicks(f.Text_Identificacao, QStringLiteral("varanda b"));
            QCOMPARE(f.Text_Identificacao->text(), QStringLiteral("VARANDA B"));
            f.Text_Codigo->setText(QStringLiteral("123"));
            f.List_Itens->setFocus();
            QTest::keyClick(f.List_Itens, Qt::Key_7, Qt::KeypadModifier);
            QCOMPARE(f.Text_Codigo->text(), QStringLiteral("7"));
            QCOMPARE(QApplication::focusWidget(), f.Text_Codigo);
        });
    }

    // Without the right the press is refused and the box keeps its state; Ctrl S with it switches
    // the service and the totals.
    void servico() {
        const int id = abrirComanda(6, 1);
        itemNoBanco(id, 1, 20);
        taxaServico = 10;
        naMesa(6, [&](Frm_Mesa& f) {
            QVERIFY(f.Chk_Servico->font().strikeOut());
            QCOMPARE(f.Label_Total->text(), QStringLiteral("20,00"));
            podeAlterarTaxa = false;
            QTest::mouseClick(f.Chk_Servico, Qt::LeftButton);
            QVERIFY(!f.Chk_Servico->isChecked());
            QCOMPARE(boxes().size(), 1);
            QCOMPARE(boxes().first().prompt, QStringLiteral("Você não pode executar essa ação"));
            podeAlterarTaxa = true;
            QTest::keyClick(f.Text_Codigo, Qt::Key_S, Qt::ControlModifier);
            QVERIFY(f.Chk_Servico->isChecked());
            QVERIFY(!f.Label_Servico->font().strikeOut());
            QCOMPARE(f.Label_Servico->text(), QStringLiteral("2,00"));
            QCOMPARE(f.Label_Total->text(), QStringLiteral("22,00"));
        });
        QCOMPARE(consultar(QStringLiteral("SELECT servico FROM Tb_Comandas")).toInt(), 1);
    }

    void reimpressao_data() {
        QTest::addColumn<bool>("imprimir");
        QTest::addColumn<bool>("direito");
        QTest::addColumn<QString>("mensagem");
        QTest::newRow("desativada") << false << true
                                    << "(Re)Impressão de itens desativada pelo administrador";
        QTest::newRow("sem direito") << true << false << "Você não pode executar esta ação";
        QTest::newRow("pedida") << true << true << "A reimpressão será realizada ao salvar a mesa!";
    }
    void reimpressao() {
        QFETCH(bool, imprimir);
        QFETCH(bool, direito);
        QFETCH(QString, mensagem);
        const int id = abrirComanda(7, 1);
        itemNoBanco(id, 1, 20);
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = 1"));
        imprimirItens = imprimir;
        podeReimprimir = direito;
        naMesa(7, [&](Frm_Mesa& f) {
            QTreeWidgetItem* linha = f.List_Itens->topLevelItem(0);
            QCOMPARE(Frm_Mesa::SmallIcon(linha), 1);
            linha->setSelected(true);
            QTest::keyClick(f.List_Itens, Qt::Key_F10);
            QCOMPARE(Frm_Mesa::SmallIcon(linha), imprimir && direito ? 2 : 1);
            QCOMPARE(consultar(QStringLiteral("SELECT reimpressao FROM Tb_Comandas_Itens")).toInt(),
                     int(imprimir && direito));
        });
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, mensagem);
        // The request is served as the table is left.
        QCOMPARE(impressos().size(), int(imprimir && direito));
        QCOMPARE(consultar(QStringLiteral("SELECT reimpressao FROM Tb_Comandas_Itens")).toInt(), 0);
    }

    // The right button on a row selects it and opens the item menu there; on an empty list nothing.
    void menuDoItem() {
        itemNoBanco(abrirComanda(7, 1), 1, 20);
        // Already sent: the list is emptied below, and leaving only sends what is pending.
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = 1"));
        naMesa(7, [&](Frm_Mesa& f) {
            QWidget* linhas = f.List_Itens->viewport();
            const QPoint ponto = f.List_Itens->visualItemRect(f.List_Itens->topLevelItem(0)).center();
            QTest::mouseClick(linhas, Qt::RightButton, {}, ponto);
            QVERIFY(f.List_Itens->topLevelItem(0)->isSelected());
            QTRY_COMPARE(QApplication::activePopupWidget(), f.mnu_mesa);
            f.mnu_mesa->close();
            f.List_Itens->clear();
            QTest::mouseClick(linhas, Qt::RightButton, {}, ponto);
            QVERIFY(!QApplication::activePopupWidget());
        });
        QVERIFY(boxes().isEmpty());
    }
};

ZARVEL_TEST(TestMesa)
#include "tst_mesa.moc"
