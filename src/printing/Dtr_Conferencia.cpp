#include "printing/Dtr_Conferencia.h"

#include <memory>

namespace {
using K = ReportControlKind;
constexpr Qt::Alignment esquerda = Qt::AlignLeft;
constexpr Qt::Alignment centro = Qt::AlignHCenter;
constexpr Qt::Alignment direita = Qt::AlignRight;
const QString regua = QString(37, QLatin1Char('='));
} // namespace

Dtr_Conferencia::Dtr_Conferencia() : DataReport(QStringLiteral("Dtr_Conferencia")) {
    ReportWidth = 4005;

    ReportSection& topo = addSection(QStringLiteral("Section4"), 1020);
    topo.add(K::Label, QStringLiteral("Label_Conferencia"), {0, 240, 4005, 285},
             QStringLiteral("CONFERÊNCIA DE MESA"), centro, 12, true);
    topo.add(K::Label, QStringLiteral("Label9"), {0, 765, 4005, 255},
             QStringLiteral("*CUPOM PARA SIMPLES CONFERÊNCIA*"), centro, 9.75, true);
    topo.add(K::Label, QStringLiteral("Label18"), {0, 0, 4005, 240}, regua, esquerda, 9, true);
    topo.add(K::Label, QStringLiteral("Label19"), {0, 525, 4005, 240}, regua, esquerda, 9, true);

    // The captions of Label_Departamento and Label_Impressao are the slip's; the names come from
    // the ticket, whose header this one was drawn from.
    ReportSection& cabecalho = addSection(QStringLiteral("Section2"), 1920);
    cabecalho.add(K::Label, QStringLiteral("Label_Garçom"), {0, 720, 1350, 240}, QStringLiteral("Atendente:"),
                  esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Atendente"), {1629, 720, 2268, 240}, QString(), direita,
                  9.75, true);
    cabecalho.add(K::Label, QStringLiteral("Label_Departamento"), {0, 960, 1350, 240},
                  QStringLiteral("Aberta em:"), esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Hora"), {1629, 960, 2268, 240}, QString(), direita, 9.75,
                  true);
    cabecalho.add(K::Label, QStringLiteral("Label_Impressao"), {0, 480, 1350, 240}, QStringLiteral("Mesa:"),
                  esquerda, 9.75);
    cabecalho.add(K::Label, QStringLiteral("Label_Mesa"), {1629, 480, 2268, 240}, QString(), direita, 9.75,
                  true);
    cabecalho.add(K::Label, QStringLiteral("Label1"), {0, 1440, 1650, 240}, QStringLiteral("PRODUTO"),
                  esquerda, 9);
    cabecalho.add(K::Label, QStringLiteral("Label2"), {1650, 1440, 438, 240}, QStringLiteral("QTDE"), centro,
                  9);
    cabecalho.add(K::Label, QStringLiteral("Label3"), {2088, 1440, 900, 240}, QStringLiteral("VALOR"),
                  direita, 9);
    cabecalho.add(K::Label, QStringLiteral("Label4"), {2997, 1440, 900, 240}, QStringLiteral("TOTAL"),
                  direita, 9);
    cabecalho.add(K::Label, QStringLiteral("Label5"), {0, 0, 4005, 240}, regua, esquerda, 9, true);
    cabecalho.add(K::Label, QStringLiteral("Label6"), {0, 1200, 4005, 240}, regua, esquerda, 9, true);
    cabecalho.add(K::Label, QStringLiteral("Label7"), {0, 1680, 4005, 240}, regua, esquerda, 9, true);
    cabecalho
        .add(K::Label, QStringLiteral("Label_Nome_Fantasia"), {0, 240, 4005, 240}, QString(), esquerda, 9.75,
             true)
        .CanGrow = true;

    ReportSection& item = addSection(QStringLiteral("Section1"), 285, true);
    item.add(K::TextBox, QStringLiteral("Text1"), {0, 0, 1650, 240}, QStringLiteral("descricao"), esquerda,
             8.25)
        .CanGrow = true;
    item.add(K::TextBox, QStringLiteral("Text2"), {1650, 0, 441, 240}, QStringLiteral("quantidade"), centro,
             8.25);
    item.add(K::TextBox, QStringLiteral("Text3"), {2091, 0, 900, 240}, QStringLiteral("valor_unitario"),
             direita, 8.25)
        .DataFormat = QStringLiteral("#0.00");
    item.add(K::TextBox, QStringLiteral("Text4"), {2997, 0, 900, 240}, QStringLiteral("valor_total"), direita,
             8.25)
        .DataFormat = QStringLiteral("#0.00");

    addSection(QStringLiteral("Section3"), 0);

    ReportSection& fim = addSection(QStringLiteral("Section5"), 2317);
    fim.add(K::Label, QStringLiteral("Label10"), {0, 150, 2145, 200}, QStringLiteral("SUBTOTAL"), esquerda,
            9);
    fim.add(K::Function, QStringLiteral("Function3"), {2325, 150, 1575, 200}, QStringLiteral("valor_total"),
            direita, 9)
        .DataFormat = QStringLiteral("#0.00");
    fim.add(K::Label, QStringLiteral("Label_Legenda_Servico"), {0, 350, 2145, 200}, QStringLiteral("SERVIÇO"),
            esquerda, 9);
    fim.add(K::Label, QStringLiteral("Label_Servico"), {2325, 350, 1575, 200}, QStringLiteral("0,00"),
            direita, 9);
    fim.add(K::Label, QStringLiteral("Label8"), {0, 550, 2145, 200}, QStringLiteral("PAGO"), esquerda, 9);
    fim.add(K::Label, QStringLiteral("Label_Pago"), {2325, 550, 1575, 200}, QStringLiteral("0,00"), direita,
            9);
    fim.add(K::Line, QStringLiteral("Line1"), {2100, 750, 1800, 0}, QString(), esquerda, 9);
    fim.add(K::Label, QStringLiteral("Label17"), {0, 750, 2145, 270}, QStringLiteral("TOTAL"), esquerda, 12,
            true);
    fim.add(K::Label, QStringLiteral("Label_Total"), {2325, 750, 1575, 270}, QStringLiteral("0,00"), direita,
            12, true);
    fim.add(K::Label, QStringLiteral("Label12"), {0, 1020, 4005, 200}, regua, esquerda, 9, true);
    fim.add(K::Label, QStringLiteral("Label16"), {0, 1220, 2139, 200}, QStringLiteral("N° de pessoas:"),
            esquerda, 9.75);
    fim.add(K::Label, QStringLiteral("Label_Ocupantes"), {2304, 1220, 1575, 200}, QStringLiteral("00"),
            direita, 9.75, true);
    fim.add(K::Label, QStringLiteral("Label13"), {0, 1420, 2139, 200}, QStringLiteral("Total p/ pessoa:"),
            esquerda, 9.75);
    fim.add(K::Label, QStringLiteral("Label_Total_Ocupantes"), {2304, 1420, 1575, 200},
            QStringLiteral("0,00"), direita, 9.75, true);
    fim.add(K::Label, QStringLiteral("Label14"), {0, 1620, 2139, 200}, QStringLiteral("Permanência:"),
            esquerda, 9.75);
    fim.add(K::Label, QStringLiteral("Label_Tempo_Permanencia"), {2304, 1620, 1575, 200},
            QStringLiteral("00:00:00"), direita, 9.75, true);
    ReportControl& marca = fim.add(K::Label, QStringLiteral("Label15"), {45, 2117, 3840, 200},
                                   QStringLiteral("Zarvel - Bares e Restaurantes"), direita, 6.75);
    marca.FontItalic = true;
}

Dtr_Conferencia& Dtr_Conferencia::instance() {
    static std::unique_ptr<Dtr_Conferencia> relatorio;
    if (!relatorio)
        relatorio = std::make_unique<Dtr_Conferencia>();
    return *relatorio;
}
