#include "platform/DataControl.h"
#include "platform/Printers.h"
#include "printing/rotinasImpressao.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Caixas.h"
#include "support/TelaDaMesa.h"
#include "support/TestMain.h"
#include "table/Frm_Mesa.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

namespace {
const QString semImpressora = QStringLiteral(
    "Não foi definida impressora padrão para este tipo de relatório nos parâmetros do sistema.");
QString falhaEm(const QString& impressora) {
    return atencao(QStringLiteral("Houve uma falha ao processar a impressão em: ") + impressora);
}

void tocar(Frm_Mesa& f, const QStringList& codigos) {
    for (const QString& codigo : codigos) {
        f.Text_Codigo->setFocus();
        QTest::keyClicks(f.Text_Codigo, codigo);
        QTest::keyClick(f.Text_Codigo, Qt::Key_Return);
    }
}

// The kitchen prints on COZINHA, the bar on what the test says (Null allowed).
void departamentos(const QString& impressoraDoBar) {
    executar(QStringLiteral("DROP TABLE Tb_Departamento"));
    executar(QStringLiteral("CREATE TABLE Tb_Departamento (ID_Departamento INTEGER PRIMARY KEY NOT NULL, "
                            "Dep_Descricao nvarchar(50) NOT NULL, Impressora nvarchar(255) NULL)"));
    executar(
        QStringLiteral("INSERT INTO Tb_Departamento VALUES (1, 'Cozinha quente', 'COZINHA'), (2, 'BAR', ") +
        impressoraDoBar + QLatin1Char(')'));
}

// What each named control drew, one entry per control.
QStringList textos(const ReportLayout& l, std::initializer_list<const char*> controles) {
    QStringList lidos;
    for (const char* c : controles)
        lidos << l.texts(QLatin1String(c)).join(QLatin1Char('+'));
    return lidos;
}
// One entry per report printed: what f reads of it.
QStringList deCada(const std::function<QString(const PrintedReport&)>& f) {
    QStringList todos;
    for (const PrintedReport& r : impressos())
        todos << f(r);
    return todos;
}

int pendentes() {
    return consultar(
               QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens WHERE impresso = 0 OR reimpressao = 1"))
        .toInt();
}
} // namespace

class TestImpressao : public TesteNaMesa {
    Q_OBJECT

private slots:
    // A reprint line and a note (which lengthens the ticket) never stick to the next ticket.
    void reimpressaoENota_data() {
        QTest::addColumn<bool>("reimpressao");
        QTest::addColumn<QString>("nota");
        QTest::newRow("novo") << false << "";
        QTest::newRow("reimpressão") << true << "";
        QTest::newRow("nota longa") << false << "SEM CEBOLA, SEM TOMATE, MOLHO À PARTE E BEM PASSADO";
    }
    void reimpressaoENota() {
        QFETCH(bool, reimpressao);
        QFETCH(QString, nota);
        const int id = abrirComanda(7, 1);
        itemNoBanco(id, 1, 18.5);
        itemNoBanco(id, 2, 18.5);
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = %1, reimpressao = %1, observacao = "
                                "NULLIF('%2', '') WHERE n_item = 1")
                     .arg(int(reimpressao))
                     .arg(nota));
        naMesa(7, [](Frm_Mesa&) {});
        QCOMPARE(impressos().size(), 2);
        const ReportLayout primeiro = impressos().at(0).layout;
        QCOMPARE(primeiro.texts(QStringLiteral("Label_Reimpressao")),
                 reimpressao ? QStringList{QStringLiteral("=============REIMPRESSÃO=============")}
                             : QStringList());
        QCOMPARE(primeiro.texts(QStringLiteral("Text1")), QStringList{nota});
        const double crescimento = primeiro.find(QStringLiteral("Text1"))->rect.height() - 250;
        QCOMPARE(crescimento > 0, !nota.isEmpty());
        QCOMPARE(primeiro.page.height(), 180 + 1905 + 1260 + 765 + crescimento + 180);
        const ReportLayout segundo = impressos().at(1).layout;
        QVERIFY(!segundo.find(QStringLiteral("Label_Reimpressao")));
        QCOMPARE(segundo.page.height(), 180 + 1905 + 1260 + 765 + 180);
        QCOMPARE(pendentes(), 0);
    }

    // One ticket per item, in the order rung, on its department's printer, named for the sender.
    // The bar's printer named, Null (the default), empty or gone: the item counts as printed either
    // way and the kitchen's still goes out.
    void impressoraDoSetor_data() {
        QTest::addColumn<QString>("impressora");
        QTest::addColumn<QString>("saiuEm");
        QTest::addColumn<QStringList>("mensagens");
        QTest::newRow("nomeada") << QString("'BAR'") << QString("BAR") << QStringList();
        QTest::newRow("nula") << QString("NULL") << QString("PADRAO") << QStringList();
        QTest::newRow("vazia") << QString("''") << QString() << QStringList{atencao(semImpressora)};
        QTest::newRow("inexistente") << QString("'SUMIU'") << QString() << QStringList{falhaEm("SUMIU")};
    }
    void impressoraDoSetor() {
        QFETCH(QString, impressora);
        QFETCH(QString, saiuEm);
        QFETCH(QStringList, mensagens);
        imprimirItens = true;
        departamentos(impressora);
        executar(QStringLiteral("UPDATE Tb_Colaborador SET nome = 'Ana Lima' WHERE id_colaborador = 1"));
        naMesa(7, [&](Frm_Mesa& f) {
            tocar(f, {"1", "2", "1"});
            idColaborador = 1;
            QTest::keyClick(&f, Qt::Key_Escape);
        });
        const QString quando = QStringLiteral("|Mesa #0007|05/03/2024 12:00:00|ANA LIMA|");
        const QString cozinha = "COZINHA|" + quando + "COZINHA QUENTE|1|X-SALADA|";
        QStringList esperados{cozinha, saiuEm + '|' + quando + "BAR|1|CERVEJA LATA|", cozinha};
        if (saiuEm.isEmpty())
            esperados.removeAt(1);
        QCOMPARE(
            deCada([](const PrintedReport& r) {
                return (QStringList{r.printer} +
                        textos(r.layout, {"Label_Reimpressao", "Label_Mesa", "Label_Hora_Impressao",
                                          "Label_Atendente", "Label_Destino", "Text2", "Text3", "Text1"}))
                    .join(QLatin1Char('|'));
            }),
            esperados);
        QCOMPARE(caixas(), mensagens);
        QCOMPARE(pendentes(), 0);
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas")).toInt(), 1);
        QCOMPARE(defaultPrinterName(), QStringLiteral("PADRAO"));
    }

    // The default printer's switch and the handler's ways out; a default file without its line end
    // was never rewritten.
    void imprimirRelatorio_data() {
        QTest::addColumn<QString>("impressora");
        QTest::addColumn<QString>("falha");
        QTest::addColumn<QStringList>("mensagens");
        QTest::addColumn<QString>("padraoDepois"); // it prints on impressora when no box shows
        using S = QString;
        const S nada;
        QTest::newRow("vazia") << nada << nada << QStringList{atencao(semImpressora)} << S("PADRAO");
        QTest::newRow("já é a padrão") << S("PADRAO") << nada << QStringList() << S("PADRAO");
        QTest::newRow("outra") << S("COZINHA") << nada << QStringList() << S("PADRAO\n");
        QTest::newRow("inexistente") << S("SUMIU") << nada << QStringList{falhaEm("SUMIU")} << S("PADRAO");
        QTest::newRow("relatório falha e a padrão fica")
            << S("COZINHA") << S("relatorio") << QStringList{falhaEm("COZINHA")} << S("COZINHA\n");
        QTest::newRow("outra falha segue adiante")
            << S("COZINHA") << S("padrao")
            << QStringList{caixa("Zarvel", vbOKOnly, "Path/File access error : 75"), falhaEm("COZINHA")}
            << nada;
    }
    void imprimirRelatorio() {
        QFETCH(QString, impressora);
        QFETCH(QString, falha);
        QFETCH(QStringList, mensagens);
        QFETCH(QString, padraoDepois);
        const QString arquivoPadrao = env().printerFolder() + QStringLiteral("/.default");
        QFile::remove(arquivoPadrao);
        if (falha == QLatin1String("padrao")) {
            QDir().mkpath(arquivoPadrao); // neither read nor written
        } else {
            QFile arquivo(arquivoPadrao);
            QVERIFY(arquivo.open(QIODevice::WriteOnly));
            arquivo.write("PADRAO");
        }
        DataControl setores(QStringLiteral("Ado"));
        setores.ConnectionString = conexaoLocal;
        setores.RecordSource = QStringLiteral("SELECT * FROM Tb_Departamento");
        setores.Refresh();
        DataReport relatorio(QStringLiteral("Setores"));
        relatorio.ReportWidth = 2000;
        relatorio.addSection(QStringLiteral("S"), 240, true)
            .add(ReportControlKind::TextBox, QStringLiteral("T"), {0, 0, 2000, 240},
                 QStringLiteral("Dep_Descricao"), Qt::AlignLeft, 9);
        relatorio.DataSource = falha == QLatin1String("relatorio") ? nullptr : &setores;

        ::imprimirRelatorio(impressora, relatorio);
        QCOMPARE(caixas(), mensagens);
        QCOMPARE(deCada([](const PrintedReport& r) { return r.printer; }),
                 mensagens.isEmpty() ? QStringList{impressora} : QStringList());
        QFile arquivo(arquivoPadrao);
        QCOMPARE(arquivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(arquivo.readAll()) : QString(),
                 padraoDepois);
    }

    // Paid (live payments only), service, what is left, the share per person cut (plain when exact);
    // the table goes to conference and, by setting, blocked.
    void conferencia_data() {
        QTest::addColumn<bool>("servico");
        QTest::addColumn<double>("consumo");
        QTest::addColumn<double>("pago");
        QTest::addColumn<int>("ocupantes");
        QTest::addColumn<bool>("bloquear");
        QTest::addColumn<QString>("figuras"); // service|paid|total|per person|persons|subtotal
        QTest::newRow("sem pagamento")
            << true << 100.0 << 0.0 << 3 << true << "10,00|0,00|110,00|36,66|03|100,00";
        QTest::newRow("pago a mais") << false << 20.0 << 50.0 << 1 << false
                                     << "0,00|50,00|-30,00|-30|01|20,00";
        QTest::newRow("corta sem arredondar")
            << false << 100.01 << 0.0 << 3 << false << "0,00|0,00|100,01|33,33|03|100,01";
        QTest::newRow("divisão exata")
            << false << 100.0 << 0.0 << 4 << false << "0,00|0,00|100,00|25|04|100,00";
        QTest::newRow("pago em parte")
            << true << 45.5 << 10.0 << 2 << false << "4,55|10,00|40,05|20,02|02|45,50";
    }
    void conferencia() {
        QFETCH(bool, servico);
        QFETCH(double, consumo);
        QFETCH(double, pago);
        QFETCH(int, ocupantes);
        QFETCH(bool, bloquear);
        QFETCH(QString, figuras);
        taxaServico = 10;
        nomeFantasia = QStringLiteral("BAR DO TESTE");
        impressoraConferencia = QStringLiteral("CONFERENCIA");
        bloquearAposConferencia = bloquear;
        const int id = abrirComanda(7, 1, 0, testMoment(-3700), 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET servico = %1, ocupantes = %2")
                     .arg(int(servico))
                     .arg(ocupantes));
        itemNoBanco(id, 1, consumo);
        executar(QStringLiteral("UPDATE Tb_Comandas_Itens SET impresso = 1"));
        // a live payment when pago > 0, and always a cancelled one that must not count
        executar(
            QStringLiteral("INSERT INTO Tb_Comandas_Recebimentos (id_comanda, id_colaborador, finalizadora, "
                           "valor_recebimento, data, status) SELECT %1, 1, 'DINHEIRO', v, '2024-03-05 "
                           "11:30:00', s FROM (SELECT %2 AS v, 1 AS s UNION ALL SELECT 999, 0) WHERE v > 0")
                .arg(id)
                .arg(pago));
        naMesa(7, [](Frm_Mesa& f) { QTest::keyClick(&f, Qt::Key_F4); });

        QCOMPARE(impressos().size(), 1);
        const PrintedReport slip = impressos().first();
        QCOMPARE(slip.printer, QStringLiteral("CONFERENCIA"));
        QCOMPARE(textos(slip.layout, {"Label_Servico", "Label_Pago", "Label_Total", "Label_Total_Ocupantes",
                                      "Label_Ocupantes", "Function3"})
                     .join(QLatin1Char('|')),
                 figuras);
        QCOMPARE(textos(slip.layout, {"Label_Nome_Fantasia", "Label_Mesa", "Label_Atendente", "Label_Hora",
                                      "Label_Legenda_Servico", "Label_Tempo_Permanencia", "Text1"}),
                 QStringList({"BAR DO TESTE", "0007", "ANA", "05/03/2024 10:58:20", "SERVIÇO (10%)",
                              "01h:01m", "X-SALADA"}));
        QCOMPARE(consultar(QStringLiteral("SELECT status FROM Tb_Comandas")).toInt(), 3);
        QCOMPARE(consultar(QStringLiteral("SELECT bloqueada FROM Tb_Comandas")).toBool(), bloquear);
        if (bloquear)
            naMesa(7, [](Frm_Mesa& f) { QCOMPARE(f.List_Menu->topLevelItemCount(), 4); });
    }

    // Unhandled failures end the process with the item stored as printed and the table short of
    // conference.
    void falhasSemTratamento_data() {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<int>("ocupantes");
        QTest::addColumn<QString>("relatorio");
        QTest::addColumn<QStringList>("documentos");
        QTest::newRow("produto sem setor")
            << "77" << int(Qt::Key_Escape) << 1 << "Run-time error '9':\n\nSubscript out of range"
            << QStringList();
        QTest::newRow("mesa sem ocupantes")
            << "1" << int(Qt::Key_F4) << 0 << "Run-time error '11':\n\nDivision by zero"
            << QStringList{QStringLiteral("Dtr_Pedido")};
    }
    void falhasSemTratamento() {
        QFETCH(QString, codigo);
        QFETCH(int, tecla);
        QFETCH(int, ocupantes);
        QFETCH(QString, relatorio);
        QFETCH(QStringList, documentos);
        imprimirItens = true;
        executar(
            QStringLiteral("INSERT INTO PRODUTOS (CODIGO, DESCRICAO, UN, PRECO, DEP) VALUES (77, 'PASTEL', "
                           "'UN', 8, 9)"));
        executar(QStringLiteral("INSERT INTO TB_ESTOQUE (CODIGO, QD) VALUES (77, 5)"));
        const int id = abrirComanda(9, 1);
        executar(QStringLiteral("UPDATE Tb_Comandas SET ocupantes = %1").arg(ocupantes));
        int status = 0;
        naMesa(9, [&](Frm_Mesa& f) {
            tocar(f, {codigo});
            QTest::keyClick(&f, Qt::Key(tecla));
            status = consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id))
                         .toInt();
        });
        QVERIFY(processEnded());
        QCOMPARE(boxes().first().prompt, relatorio);
        QCOMPARE(status, 2);
        QCOMPARE(pendentes(), 0);
        QCOMPARE(deCada([](const PrintedReport& r) { return r.document; }), documentos);
    }
};

ZARVEL_TEST(TestImpressao)
#include "tst_impressao.moc"
