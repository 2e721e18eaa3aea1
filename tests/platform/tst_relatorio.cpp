#include "platform/DataControl.h"
#include "platform/DataReport.h"
#include "platform/Printers.h"
#include "platform/VbText.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTest>

namespace {
using K = ReportControlKind;

// The products of the test back office: a title, a hidden label, a detail band whose name can grow
// over a label below it, and a footer with the sum of the prices and a rule.
struct Produtos : DataReport {
    DataControl ado{QStringLiteral("Ado")};
    Produtos() : DataReport(QStringLiteral("Produtos")) {
        ReportWidth = 4005;
        ReportSection& topo = addSection(QStringLiteral("Topo"), 300);
        topo.add(K::Label, QStringLiteral("Titulo"), {0, 0, 4005, 240}, QStringLiteral("PRODUTOS"),
                 Qt::AlignHCenter, 9, true);
        topo.add(K::Label, QStringLiteral("Oculto"), {0, 0, 900, 240}, QStringLiteral("X"), Qt::AlignLeft, 9)
            .Visible = false;
        ReportSection& linha = addSection(QStringLiteral("Linha"), 500, true);
        linha
            .add(K::TextBox, QStringLiteral("Nome"), {0, 0, 2000, 240}, QStringLiteral("DESCRICAO"),
                 Qt::AlignLeft, 8.25)
            .CanGrow = true;
        linha
            .add(K::TextBox, QStringLiteral("Preco"), {2100, 0, 900, 240}, QStringLiteral("PRECO"),
                 Qt::AlignRight, 8.25)
            .DataFormat = QStringLiteral("#0.00");
        linha.add(K::TextBox, QStringLiteral("Dep"), {3100, 0, 300, 240}, QStringLiteral("DEP"),
                  Qt::AlignRight, 8.25);
        linha.add(K::Label, QStringLiteral("Abaixo"), {0, 250, 2000, 240}, QStringLiteral("-"), Qt::AlignLeft,
                  8.25);
        ReportSection& fim = addSection(QStringLiteral("Fim"), 300);
        fim.add(K::Function, QStringLiteral("Soma"), {1600, 0, 900, 240}, QStringLiteral("PRECO"),
                Qt::AlignRight, 9)
            .DataFormat = QStringLiteral("#0.00");
        fim.add(K::Line, QStringLiteral("Regra"), {1600, 260, 900, 0}, QString(), Qt::AlignLeft, 9);
        ado.ConnectionString = conexaoLocal;
        ado.RecordSource = QStringLiteral("SELECT * FROM PRODUTOS ORDER BY CODIGO");
        ado.Refresh();
        DataSource = &ado;
    }
};
} // namespace

class TestRelatorio : public QObject {
    Q_OBJECT

private slots:
    void init() {
        env = std::make_unique<TestEnvironment>();
        bancoDeTeste(*env);
    }
    void cleanup() { env.reset(); }

    // A long name wraps and grows its field; what lies below it in the band moves down by as much,
    // and so do the rows after it and the page's end. The hidden label is never drawn.
    void bandas_data() {
        QTest::addColumn<QString>("descricao");
        QTest::addColumn<bool>("cresce");
        QTest::newRow("cabe") << "X-SALADA" << false;
        QTest::newRow("quebra em linhas") << "X-SALADA COM BACON OVO E QUEIJO DUPLO" << true;
    }
    void bandas() {
        QFETCH(QString, descricao);
        QFETCH(bool, cresce);
        executar(QStringLiteral("UPDATE PRODUTOS SET DESCRICAO = '%1' WHERE CODIGO = 1").arg(descricao));
        Produtos relatorio;
        const ReportLayout desenho = relatorio.layout();
        QCOMPARE(desenho.texts(QStringLiteral("Nome")),
                 QStringList({descricao, "CERVEJA LATA", "PORÇÃO DE FRITAS", "ÁGUA MINERAL"}));
        QCOMPARE(desenho.texts(QStringLiteral("Preco")), QStringList({"18,50", "7,00", "25,90", "4,50"}));
        QCOMPARE(desenho.texts(QStringLiteral("Dep")), QStringList({"1", "2", "1", "2"}));
        QCOMPARE(desenho.texts(QStringLiteral("Soma")), QStringList{QStringLiteral("55,90")});
        QVERIFY(!desenho.find(QStringLiteral("Oculto")));

        const QRectF nome = desenho.find(QStringLiteral("Nome"))->rect;
        const double crescimento = nome.height() - 240;
        QCOMPARE(crescimento > 0, cresce);
        QCOMPARE(desenho.find(QStringLiteral("Abaixo"))->rect.top(), nome.top() + 250 + crescimento);
        QCOMPARE(desenho.find(QStringLiteral("Titulo"))->rect, QRectF(180, 180, 4005, 240));
        QCOMPARE(desenho.items.at(5).rect.top(), 180 + 300 + 500 + crescimento); // the second row
        QCOMPARE(desenho.page, QSizeF(180 + 4005 + 180, 180 + 300 + 4 * 500 + crescimento + 300 + 180));
    }

    // The slip's rules are 37 characters of Courier New 9 bold in 4005 twips: with the metrics of
    // the original's font they fill the line; a proportional stand-in would overflow it.
    void courierNewTemAsMedidasDoOriginal() {
        ReportControl regua;
        regua.FontSize = 9;
        regua.FontBold = true;
        const QFont fonte = DataReport::fontOf(regua);
        QVERIFY(QFontInfo(fonte).fixedPitch());
        const double largura = QFontMetricsF(fonte).horizontalAdvance(QString(37, QLatin1Char('=')));
        QVERIFY2(largura > 3950 && largura <= 4005, qPrintable(QString::number(largura)));
    }

    // Every sub-folder is a printer; the default moves only to one that exists, and each document
    // is the next numbered PDF of the default's folder.
    void pastaDeImpressorasPdf() {
        QCOMPARE(printerNames(), QStringList({"BAR", "CONFERENCIA", "COZINHA", "PADRAO"}));
        QCOMPARE(defaultPrinterName(), QStringLiteral("PADRAO"));
        QCOMPARE(raisedBy([] { SetDefaultPrinter(QStringLiteral("SUMIU")); }).Number,
                 vbErr::AutomationException);
        QCOMPARE(defaultPrinterName(), QStringLiteral("PADRAO"));
        SetDefaultPrinter(QStringLiteral("BAR"));
        Produtos relatorio;
        relatorio.PrintReport();
        relatorio.PrintReport();
        const QDir bar(env->printerFolder() + QStringLiteral("/BAR"));
        QCOMPARE(bar.entryList(QDir::Files), QStringList({"0001 Produtos.pdf", "0002 Produtos.pdf"}));
        QFile pdf(bar.filePath(QStringLiteral("0002 Produtos.pdf")));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        QCOMPARE(impressos().size(), 2);
        QCOMPARE(impressos().last().printer, QStringLiteral("BAR"));
        QCOMPARE(impressos().last().file, pdf.fileName());
    }

    // Whatever fails inside the report reaches its caller as the report's own exception, and
    // nothing is left in the printer's folder.
    void falhasDoRelatorio_data() {
        QTest::addColumn<QString>("falha");
        QTest::newRow("sem fonte de dados") << "fonte";
        QTest::newRow("sem impressora padrão") << "padrao";
        QTest::newRow("consulta fechada") << "fechada"; // 3704 inside, the report's exception outside
    }
    void falhasDoRelatorio() {
        QFETCH(QString, falha);
        Produtos relatorio;
        if (falha == QLatin1String("fonte"))
            relatorio.DataSource = nullptr;
        else if (falha == QLatin1String("padrao"))
            QFile::remove(env->printerFolder() + QStringLiteral("/.default"));
        else
            relatorio.ado.Recordset().Close();
        QCOMPARE(raisedBy([&] { relatorio.PrintReport(); }).Number, vbErr::AutomationException);
        QVERIFY(impressos().isEmpty());
        QVERIFY(QDir(env->printerFolder() + QStringLiteral("/PADRAO")).isEmpty());
    }

    // The default moves to its destination's line and keeps its options; the old one goes back to
    // a plain destination.
    void lpoptions_data() {
        QTest::addColumn<QString>("antes");
        QTest::addColumn<QString>("depois");
        QTest::newRow("sem arquivo") << ""
                                     << "Default BAR\n";
        QTest::newRow("troca") << "Default COZINHA\nDest BAR copies=2\n"
                               << "Dest COZINHA\nDefault BAR copies=2\n";
        QTest::newRow("destino sem opções") << "Dest BAR\n"
                                            << "Default BAR\n";
        QTest::newRow("novo") << "Default COZINHA sides=two\n"
                              << "Default BAR\nDest COZINHA sides=two\n";
        QTest::newRow("nome parecido") << "Dest BARRA\n"
                                       << "Default BAR\nDest BARRA\n";
    }
    void lpoptions() {
        QFETCH(QString, antes);
        QFETCH(QString, depois);
        QCOMPARE(lpoptionsWithDefault(antes, QStringLiteral("BAR")), depois);
    }

    // The / of the original: 0 / 0 overflows, anything else over 0 is a division by zero.
    void divisaoPorZero() {
        QCOMPARE(raisedBy([] { Divide(-0.01, 0); }).Number, vbErr::DivisionByZero);
        QCOMPARE(raisedBy([] { Divide(0, 0); }).Number, vbErr::Overflow);
    }

private:
    std::unique_ptr<TestEnvironment> env;
};

ZARVEL_TEST(TestRelatorio)
#include "tst_relatorio.moc"
