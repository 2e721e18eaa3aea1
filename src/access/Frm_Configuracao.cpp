#include "access/Frm_Configuracao.h"

#include "access/telaDeOperacao.h"
#include "map/Frm_Principal.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Printers.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/UpDown.h"
#include "platform/VbText.h"
#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"
#include "table/rotinasGerais.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

std::function<QStringList()> impressorasDoSistema = printerNames;

namespace {
// A number box the up-down drives: read-only, centred, narrow.
QLineEdit* caixaDoUpDown(QWidget* pai, const char* nome) {
    auto* t = named(new QLineEdit(QStringLiteral("1"), pai), nome);
    t->setReadOnly(true);
    t->setAlignment(Qt::AlignCenter);
    t->setFixedWidth(48);
    return t;
}

UpDown* upDown(QWidget* pai, const char* nome, QLineEdit* buddy, int maximo) {
    auto* u = named(new UpDown(pai), nome);
    u->setRange(1, maximo);
    u->setBuddyControl(buddy);
    return u;
}

// The text of a drop-down list, as the original's list took it: an entry of the list (matched as a
// list box matches, regardless of case) is selected; any other text is refused with error 383 and
// the list is left as it was.
void definirTexto(QComboBox& lista, const QString& texto) {
    const int indice = lista.findText(texto, Qt::MatchFixedString);
    if (indice < 0)
        raiseError(vbErr::TextReadOnly);
    lista.setCurrentIndex(indice);
}

// A row of a box: the caption on the left, the controls after it.
void linha(QGridLayout* grade, int r, QLabel* legenda, std::initializer_list<QWidget*> controles) {
    grade->addWidget(legenda, r, 0);
    auto* campos = new QHBoxLayout;
    campos->setSpacing(4);
    for (QWidget* w : controles)
        campos->addWidget(w);
    campos->addStretch(1);
    grade->addLayout(campos, r, 1);
}
} // namespace

Frm_Configuracao::Frm_Configuracao() {
    QHBoxLayout* cabecalho = montarTelaDeOperacao(*this, "Frm_Configuracao", QStringLiteral("Ajustes"),
                                                  QStyle::SP_FileDialogDetailedView, Label_Operacao, Image1);

    Frame1 = named(new QGroupBox(QStringLiteral("Conexão"), this), "Frame1");
    Label1 = namedLabel(Frame1, "Label1", QStringLiteral("Servidor"));
    Text_Servidor = named(new QLineEdit(QStringLiteral("127.0.0.1"), Frame1), "Text_Servidor");
    auto* conexao = new QHBoxLayout(Frame1);
    conexao->addWidget(Label1);
    conexao->addWidget(Text_Servidor, 1);

    Frame_Busca = named(new QGroupBox(QStringLiteral("Tipo de busca *"), this), "Frame_Busca");
    Opt_Qualquer_Ocorrencia = named(new QRadioButton(QStringLiteral("Qualquer ocorrência"), Frame_Busca),
                                    "Opt_Qualquer_Ocorrencia");
    Opt_Qualquer_Ocorrencia->setChecked(true);
    Opt_Inicio = named(new QRadioButton(QStringLiteral("Início da sentença"), Frame_Busca), "Opt_Inicio");
    auto* busca = new QHBoxLayout(Frame_Busca);
    busca->addWidget(Opt_Qualquer_Ocorrencia);
    busca->addWidget(Opt_Inicio);
    busca->addStretch(1);

    Frame_Personalizacao =
        named(new QGroupBox(QStringLiteral("Personalização"), this), "Frame_Personalizacao");
    QWidget* p = Frame_Personalizacao;
    Chk_Imprimir_Itens = named(new QCheckBox(QStringLiteral("Imprimir itens"), p), "Chk_Imprimir_Itens");
    Chk_Multiplos_Atendentes =
        named(new QCheckBox(QStringLiteral("Permitir movimentação de mesa por vários atendentes *"), p),
              "Chk_Multiplos_Atendentes");
    Chk_Bloquear_Apos_Conferencia =
        named(new QCheckBox(QStringLiteral("Bloquear mesa após impressão de conferência *"), p),
              "Chk_Bloquear_Apos_Conferencia");
    Chk_Observacao =
        named(new QCheckBox(QStringLiteral("Abrir observação ao incluir item *"), p), "Chk_Observacao");
    Chk_Aliquota_Servico =
        named(new QCheckBox(QStringLiteral("Cobra taxa de serviço por padrão *"), p), "Chk_Aliquota_Servico");

    Label_Impressora_Conferencia =
        namedLabel(p, "Label_Impressora_Conferencia", QStringLiteral("Impressora para conferência"));
    Cmb_Impressora_Conferencia = named(new QComboBox(p), "Cmb_Impressora_Conferencia");
    Cmb_Impressora_Conferencia->setEditable(false);
    Cmb_Impressora_Conferencia->setMinimumWidth(240);

    Label_Mesas = namedLabel(p, "Label_Mesas", QStringLiteral("Quantidade de mesas utilizadas"));
    Text_Quantidade_Mesas = caixaDoUpDown(p, "Text_Quantidade_Mesas");
    UpDown_Quantidade_Mesas = upDown(p, "UpDown_Quantidade_Mesas", Text_Quantidade_Mesas, 30);
    Label_Quantidade_Mesas = namedLabel(p, "Label_Quantidade_Mesas", QStringLiteral("mesas *"));

    Label_Mesa_Ocio =
        namedLabel(p, "Label_Mesa_Ocio", QStringLiteral("Tempo para mesa ser definida como ociosa"));
    Text_Tempo_Ocio = caixaDoUpDown(p, "Text_Tempo_Ocio");
    UpDown_Tempo_Ocio = upDown(p, "UpDown_Tempo_Ocio", Text_Tempo_Ocio, 60);
    Label_Tempo_Ocio = namedLabel(p, "Label_Tempo_Ocio", QStringLiteral("minutos *"));

    Label_Taxa_Servico = namedLabel(p, "Label_Taxa_Servico", QStringLiteral("Aliquota da taxa de serviço"));
    Text_Aliquota_Servico = named(new QLineEdit(QStringLiteral("0,00"), p), "Text_Aliquota_Servico");
    Text_Aliquota_Servico->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Text_Aliquota_Servico->setFixedWidth(72);
    Label_Aliquota_Servico = namedLabel(p, "Label_Aliquota_Servico", QStringLiteral("(%) *"));

    auto* personalizacao = new QGridLayout(Frame_Personalizacao);
    personalizacao->setVerticalSpacing(6);
    int r = 0;
    for (QCheckBox* c : {Chk_Imprimir_Itens, Chk_Multiplos_Atendentes, Chk_Bloquear_Apos_Conferencia,
                         Chk_Observacao, Chk_Aliquota_Servico})
        personalizacao->addWidget(c, r++, 0, 1, 2);
    linha(personalizacao, r++, Label_Impressora_Conferencia, {Cmb_Impressora_Conferencia});
    linha(personalizacao, r++, Label_Mesas,
          {Text_Quantidade_Mesas, UpDown_Quantidade_Mesas, Label_Quantidade_Mesas});
    linha(personalizacao, r++, Label_Mesa_Ocio, {Text_Tempo_Ocio, UpDown_Tempo_Ocio, Label_Tempo_Ocio});
    linha(personalizacao, r++, Label_Taxa_Servico, {Text_Aliquota_Servico, Label_Aliquota_Servico});
    personalizacao->setColumnStretch(1, 1);

    Label2 = namedLabel(this, "Label2", QStringLiteral("* Configurações globais"));

    auto* tela = new QVBoxLayout(this);
    tela->setContentsMargins(18, 12, 18, 14);
    tela->addLayout(cabecalho);
    tela->addWidget(Frame1);
    tela->addWidget(Frame_Busca);
    tela->addWidget(Frame_Personalizacao);
    tela->addWidget(Label2);
    adjustSize();
    centerOnScreen();

    onKeyUp(Text_Aliquota_Servico, &Frm_Configuracao::Text_Aliquota_Servico_KeyUp);
    onGotFocus(Text_Servidor, &Frm_Configuracao::Text_Servidor_GotFocus);
}

Frm_Configuracao::~Frm_Configuracao() = default;

void Frm_Configuracao::Form_Load() {
    try {
        carregaImpressoras();

        Chk_Multiplos_Atendentes->setChecked(multiplosAtendentes);
        Chk_Aliquota_Servico->setChecked(cobrarServico);
        Chk_Observacao->setChecked(exibirObservacao);
        if (buscaInicio)
            Opt_Inicio->setChecked(true);
        Chk_Bloquear_Apos_Conferencia->setChecked(bloquearAposConferencia);
        Chk_Imprimir_Itens->setChecked(imprimirItens);

        Text_Quantidade_Mesas->setText(CStr(quantidadeMesas));
        Text_Aliquota_Servico->setText(Format(taxaServico, QStringLiteral("#0.00")));
        Text_Tempo_Ocio->setText(CStr(tempoParaOcio));
        Text_Servidor->setText(servidorLocal);

        try {
            definirTexto(*Cmb_Impressora_Conferencia, impressoraConferencia);
        } catch (const RuntimeError& e) {
            // A printer that is no longer installed: the list stays without a selection.
            if (e.Description != QLatin1String("'Text' property is read-only"))
                throw;
        }
    } catch (const RuntimeError& e) {
        MsgBox(describe(e), vbOKOnly, programTitle());
    }
}

void Frm_Configuracao::carregaImpressoras() {
    for (const QString& nome : impressorasDoSistema())
        Cmb_Impressora_Conferencia->addItem(nome);
    // Filled, the list still has no selection, as the original's lists had.
    Cmb_Impressora_Conferencia->setCurrentIndex(-1);
}

void Frm_Configuracao::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 27)
        Unload();
}

void Frm_Configuracao::Form_Unload(int& Cancel) {
    gravaDados();
    if (reiniciar)
        endProcess();
}

void Frm_Configuracao::Text_Servidor_GotFocus() {
    Text_Servidor->selectAll();
}

// The rate fills from the right with its two decimals in place: 0,01, 0,12, 1,25.
void Frm_Configuracao::Text_Aliquota_Servico_KeyUp(int& KeyCode, int Shift) {
    preencherDaDireita(Text_Aliquota_Servico, KeyCode, 2, 100);
}

qint16 Frm_Configuracao::maiorMesaOcupada() {
    return primeiroValor(QStringLiteral("SELECT MAX(mesa) FROM Tb_Comandas WHERE status <> 0"));
}

void Frm_Configuracao::gravaDados() {
    try {
        const QString mesas = Text_Quantidade_Mesas->text();
        const qint16 maiorOcupada = maiorMesaOcupada();
        if (CInt(mesas) < maiorOcupada) {
            MsgBox(QStringLiteral("Não é possível utilizar apenas ") + mesas +
                       QStringLiteral(" mesas enquanto a mesa ") +
                       Format(maiorOcupada, QStringLiteral("0000")) + QStringLiteral(" estiver ocupada!"),
                   vbOKOnly | vbCritical, QStringLiteral("Atenção"));
            return;
        }

        // The connection string and the map's cards are made once, at the start.
        if (Text_Servidor->text() != servidorLocal || CInt(mesas) != quantidadeMesas) {
            if (MsgBox(QStringLiteral(
                           "Algumas alterações exigem que o software seja reiniciado. Deseja prosseguir?"),
                       vbYesNo | vbQuestion, QStringLiteral("Pergunta")) == vbNo)
                return;
            servidorLocal = Text_Servidor->text();
            quantidadeMesas = CInt(mesas);
            reiniciar = true;
        }

        // Still the server of this run's connection, even when the address has just changed.
        DataControl& ado = *Frm_Principal::instance().Ado_Geral;
        ado.ConnectionTimeout = 5;
        ado.ConnectionString = conexaoLocal;
        ado.RecordSource = QStringLiteral("SELECT * FROM Tb_Convendas");
        ado.Refresh();

        Recordset& rs = ado.Recordset();
        if (rs.RecordCount() == 1) {
            // No selection writes the key empty: the next start takes the default printer.
            gravarIni(arquivoConfigIni(), QStringLiteral("PRINTERS"), QStringLiteral("CONFERENCIA"),
                      Cmb_Impressora_Conferencia->currentText());

            impressoraConferencia = Cmb_Impressora_Conferencia->currentText();
            multiplosAtendentes = Chk_Multiplos_Atendentes->checkState() != Qt::Unchecked;
            exibirObservacao = Chk_Observacao->checkState() != Qt::Unchecked;
            cobrarServico = Chk_Aliquota_Servico->checkState() != Qt::Unchecked;
            buscaInicio = Opt_Inicio->isChecked();
            bloquearAposConferencia = Chk_Bloquear_Apos_Conferencia->checkState() != Qt::Unchecked;
            imprimirItens = Chk_Imprimir_Itens->checkState() != Qt::Unchecked;
            quantidadeMesas = CInt(Text_Quantidade_Mesas->text());
            tempoParaOcio = CInt(Text_Tempo_Ocio->text());
            taxaServico = CDbl(Text_Aliquota_Servico->text());

            rs.Fields(QStringLiteral("bMultiplosAtendentes")).setValue(multiplosAtendentes);
            rs.Fields(QStringLiteral("bExibirObservacao")).setValue(exibirObservacao);
            rs.Fields(QStringLiteral("bServico")).setValue(cobrarServico ? 1 : 0);
            rs.Fields(QStringLiteral("bProdutos")).setValue(buscaInicio ? 1 : 0);
            rs.Fields(QStringLiteral("bBloquearAposConferencia")).setValue(bloquearAposConferencia);
            rs.Fields(QStringLiteral("bImprimirItens")).setValue(imprimirItens);
            rs.Fields(QStringLiteral("iQuantidadeMesa")).setValue(quantidadeMesas);
            rs.Fields(QStringLiteral("iTempoParaOcio")).setValue(tempoParaOcio);
            rs.Fields(QStringLiteral("iTaxa")).setValue(taxaServico);
            rs.Update();
            ado.Refresh();
        }

        // The new address goes to the machine only now that the database has taken the rest.
        if (reiniciar) {
            gravarIni(arquivoServerIni(), QStringLiteral("SERVIDOR"), QStringLiteral("IPCONEXAO"),
                      servidorLocal);
            MsgBox(QStringLiteral("O sistema será fechado, execute-o novamente."), vbOKOnly | vbInformation,
                   QStringLiteral("Aviso"));
        }
    } catch (const RuntimeError& e) {
        if (e.Number == vbErr::ConnectionFailure)
            encerrarPorFalhaDeConexao();
        MsgBox(describe(e), vbOKOnly | vbCritical, QStringLiteral("Atenção"));
    }
}
