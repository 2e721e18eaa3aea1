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

// Title, a hidden label, a detail band whose name can grow over a label below it, a footer sum.
struct Produtos : DataReport {
    DataControl ado{QStringLiteral("Ado")};
    ReportControl& campo(ReportSection& s, K k, const char* nome, QRectF r, const char* fonte,
                         Qt::Alignment a = Qt::AlignLeft, double tamanho = 8.25, bool negrito = false) {
        return s.add(k, QLatin1String(nome), r, QString::fromUtf8(fonte), a, tamanho, negrito);
    }
    Produtos() : DataReport(QStringLiteral("Produtos")) {
        ReportWidth = 4005;
        ReportSection& topo = addSection(QStringLiteral("Topo"), 300);
        campo(topo, K::Label, "Titulo", {0, 0, 4005, 240}, "PRODUTOS", Qt::AlignHCenter, 9, true);
        campo(topo, K::Label, "Oculto", {0, 0, 900, 240}, "X", Qt::AlignLeft, 9).Visible = false;
        ReportSection& linha = addSection(QStringLiteral("Linha"), 500, true);
        campo(linha, K::TextBox, "Nome", {0, 0, 2000, 240}, "DESCRICAO").CanGrow = true;
        campo(linha, K::TextBox, "Preco", {2100, 0, 900, 240}, "PRECO", Qt::AlignRight).DataFormat = "#0.00";
        campo(linha, K::TextBox, "Dep", {3100, 0, 300, 240}, "DEP", Qt::AlignRight);
        campo(linha, K::Label, "Abaixo", {0, 250, 2000, 240}, "-");
        ReportSection& fim = addSection(QStringLiteral("Fim"), 300);
        campo(fim, K::Function, "Soma", {1600, 0, 900, 240}, "PRECO", Qt::AlignRight, 9).DataFormat = "#0.00";
        campo(fim, K::Line, "Regra", {1600, 260, 900, 0}, "", Qt::AlignLeft, 9);
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

    // A wrapped name pushes down what lies below it, the later rows and the page's end.
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
        const ReportLayout desenho = Produtos().layout();
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
        QCOMPARE(desenho.items.at(5).rect.top(), 180 + 300 + 500 + crescimento); // the second row
        QCOMPARE(desenho.page, QSizeF(180 + 4005 + 180, 180 + 300 + 4 * 500 + crescimento + 300 + 180));
    }

    // 37 '=' of Courier New 9 bold fill the slip's 4005 twips without overflowing them.
    void courierNewTemAsMedidasDoOriginal() {
        ReportControl regua;
        regua.FontSize = 9;
        regua.FontBold = true;
        const QFont fonte = DataReport::fontOf(regua);
        QVERIFY(QFontInfo(fonte).fixedPitch());
        const double largura = QFontMetricsF(fonte).horizontalAdvance(QString(37, QLatin1Char('=')));
        QVERIFY2(largura > 3950 && largura <= 4005, qPrintable(QString::number(largura)));
    }

    // Sub-folders are printers; the default moves only to one that exists; PDFs are numbered.
    void pastaDeImpressorasPdf() {
        QCOMPARE(printerNames(), QStringList({"BAR", "CONFERENCIA", "COZINHA", "PADRAO"}));
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

    // Any failure inside reaches the caller as the report's exception and leaves no file.
    void falhasDoRelatorio_data() {
        QTest::addColumn<QString>("falha");
        for (const char* falha : {"fonte", "padrao", "fechada"})
            QTest::newRow(falha) << QString::fromLatin1(falha);
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

    // The default takes its destination's line and options; the old one becomes a plain Dest.
    void lpoptions_data() {
        QTest::addColumn<QString>("antes");
        QTest::addColumn<QString>("depois");
        const char* casos[][3] = {
            {"sem arquivo", "", "Default BAR\n"},
            {"troca", "Default COZINHA\nDest BAR copies=2\n", "Dest COZINHA\nDefault BAR copies=2\n"},
            {"destino sem opções", "Dest BAR\n", "Default BAR\n"},
            {"novo", "Default COZINHA sides=two\n", "Default BAR\nDest COZINHA sides=two\n"},
            {"nome parecido", "Dest BARRA\n", "Default BAR\nDest BARRA\n"}};
        for (const auto& c : casos)
            QTest::newRow(c[0]) << QString::fromUtf8(c[1]) << QString::fromUtf8(c[2]);
    }
    void lpoptions() {
        QFETCH(QString, antes);
        QFETCH(QString, depois);
        QCOMPARE(lpoptionsWithDefault(antes, QStringLiteral("BAR")), depois);
    }

    // 0 / 0 overflows; anything else over 0 is a division by zero.
    void divisaoPorZero() {
        QCOMPARE(raisedBy([] { Divide(-0.01, 0); }).Number, vbErr::DivisionByZero);
        QCOMPARE(raisedBy([] { Divide(0, 0); }).Number, vbErr::Overflow);
    }

private:
    std::unique_ptr<TestEnvironment> env;
};

ZARVEL_TEST(TestRelatorio)
#include "tst_relatorio.moc"
