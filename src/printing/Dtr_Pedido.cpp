#include "printing/Dtr_Pedido.h"

#include <memory>

namespace {
using K = ReportControlKind;
constexpr Qt::Alignment esquerda = Qt::AlignLeft;
constexpr Qt::Alignment centro = Qt::AlignHCenter;
constexpr Qt::Alignment direita = Qt::AlignRight;
} // namespace

Dtr_Pedido::Dtr_Pedido() : DataReport(QStringLiteral("Dtr_Pedido")) {
    ReportWidth = 4007;

    ReportSection& topo = addSection(QStringLiteral("Section4"), 1905);
    topo.add(K::Label, QStringLiteral("Label_Mesa"), {2, 1170, 4005, 435}, QStringLiteral("Mesa"), centro,
             20.25, true);
    topo.add(K::Label, QStringLiteral("Label_Reimpressao"), {2, 570, 4005, 300},
             QStringLiteral("=============REIMPRESSÃO============="), esquerda, 9, true)
        .Visible = false;
    topo.add(K::Label, QStringLiteral("Label1"), {2, 870, 4005, 300}, QString(41, QLatin1Char('=')), esquerda,
             9, true);
    topo.add(K::Label, QStringLiteral("Label2"), {2, 1605, 4005, 300}, QString(37, QLatin1Char('=')),
             esquerda, 9, true);

    ReportSection& cabecalho = addSection(QStringLiteral("Section2"), 1260);
    cabecalho.add(K::Label, QStringLiteral("Label_Garçom"), {0, 240, 1500, 240},
                  QStringLiteral("Quem lançou:"), esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Atendente"), {1629, 240, 2268, 240}, QString(), direita,
                  9.75, true);
    cabecalho.add(K::Label, QStringLiteral("Label_Departamento"), {0, 480, 1500, 240},
                  QStringLiteral("Setor:"), esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Destino"), {1629, 480, 2268, 240}, QString(), direita, 9.75,
                  true);
    cabecalho.add(K::Label, QStringLiteral("Label_Impressao"), {0, 0, 1500, 240},
                  QStringLiteral("Impresso em:"), esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Hora_Impressao"), {1629, 0, 2268, 240}, QString(), direita,
                  9.75, true);
    cabecalho.add(K::Label, QStringLiteral("Label_Quantidade"), {0, 1020, 500, 240}, QStringLiteral("QD"),
                  direita, 8.25, true);
    cabecalho.add(K::Label, QStringLiteral("Label_Descricao"), {803, 1020, 3100, 240},
                  QStringLiteral("DESCRIÇÃO"), esquerda, 8.25, true);
    cabecalho.add(K::Label, QStringLiteral("Label3"), {2, 720, 4005, 300}, QString(39, QLatin1Char('=')),
                  esquerda, 9, true);

    ReportSection& item = addSection(QStringLiteral("Section1"), 765, true);
    item.add(K::TextBox, QStringLiteral("Text2"), {0, 0, 500, 240}, QStringLiteral("quantidade"), direita,
             8.25, true);
    item.add(K::TextBox, QStringLiteral("Text3"), {803, 0, 3100, 240}, QStringLiteral("descricao"), esquerda,
             8.25, true)
        .CanGrow = true;
    item.add(K::Label, QStringLiteral("Label"), {500, 0, 303, 240}, QStringLiteral("X"), centro, 8.25, true);
    ReportControl& nota = item.add(K::TextBox, QStringLiteral("Text1"), {803, 240, 3100, 250},
                                   QStringLiteral("observacao"), esquerda, 8.25);
    nota.FontName = QStringLiteral("Segoe UI");
    nota.FontItalic = true;
    nota.CanGrow = true;

    addSection(QStringLiteral("Section3"), 0);
    addSection(QStringLiteral("Section5"), 0);
}

Dtr_Pedido& Dtr_Pedido::instance() {
    static std::unique_ptr<Dtr_Pedido> relatorio;
    if (!relatorio)
        relatorio = std::make_unique<Dtr_Pedido>();
    return *relatorio;
}
