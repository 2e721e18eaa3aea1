#include "startup/rotinasInicializacao.h"

#include "platform/Clock.h"
#include "platform/DataControl.h"
#include "platform/MsgBox.h"
#include "platform/Paths.h"
#include "platform/Printers.h"
#include "platform/Process.h"
#include "platform/Profile.h"
#include "platform/RuntimeError.h"
#include "platform/VbText.h"
#include "startup/Frm_Splash.h"
#include "startup/variaveisGlobais.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>

void exibirProgresso(const QString& texto) {
    Frm_Splash::instance().lblWarning->setText(texto + QStringLiteral("..."));
    esperar(500);
    DoEvents();
}

QString arquivoServerIni() {
    return machineFolder() + QStringLiteral("/SERVER.ini");
}

QString arquivoConfigIni() {
    return programFolder() + QStringLiteral("/config.ini");
}

void verificarArquivos() {
    if (!QFileInfo(arquivoServerIni()).isFile()) {
        exibirProgresso(QStringLiteral("Criando Server.ini"));
        criarServerIni();
    }
}

void criarServerIni() {
    // The machine folder is never made here: it has to exist before the first start.
    const QByteArray conteudo = "[SERVIDOR]\r\n"
                                "NOME=NORVIK\r\n"
                                "IPCONEXAO=127.0.0.1\r\n"
                                "PORTA=1433\r\n"
                                "BANCO=ACCESS\r\n"
                                "[USUARIO]\r\n"
                                "LOGIN=master\r\n"
                                "SENHA=************\r\n"
                                "[PARAMETROS]\r\n"
                                "CNPJ=\r\n"
                                "Promo_Web=1\r\n"
                                "Dashboard=0";
    gravarArquivoBinario(arquivoServerIni(), conteudo);
}

void gravarArquivoBinario(const QString& caminho, const QByteArray& conteudo) {
    const QFileInfo info(caminho);
    if (!info.absoluteDir().exists())
        raiseError(vbErr::PathNotFound);
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadWrite) || arquivo.write(conteudo) != conteudo.size())
        raiseError(vbErr::PathFileAccess);
}

QString lerIni(const QString& arquivo, const QString& secao, const QString& chave) {
    QString buffer(255, QLatin1Char(' '));
    const int n = GetPrivateProfileString(secao, chave, QString(), buffer, 255, arquivo);
    return buffer.left(n);
}

void gravarIni(const QString& arquivo, const QString& secao, const QString& chave, const QString& valor) {
    WritePrivateProfileString(secao, chave, valor, arquivo);
}

void encerrarPorFalhaDeConexao() {
    const QString mensagem = QStringLiteral("Falha na conexão com base de dados em: \\\\") + servidorLocal;
    exibirProgresso(mensagem);
    MsgBox(mensagem, vbCritical, QStringLiteral("Atenção"));
    endProcess();
}

void relatarFalha(const RuntimeError& erro) {
    if (erro.Number == vbErr::ConnectionFailure)
        encerrarPorFalhaDeConexao();
    const QString mensagem = describe(erro);
    exibirProgresso(mensagem);
    MsgBox(mensagem, vbCritical, QStringLiteral("Atenção"));
}

namespace {
void avisarParametros() {
    MsgBox(QStringLiteral("Parâmetros não configurados!\r\nServidor: \\\\") + servidorLocal, vbCritical,
           QStringLiteral("Atenção"));
}
} // namespace

bool lerDadosLocais() {
    try {
        DataControl& ado = *Frm_Splash::instance().Ado_Inicializacao;
        ado.ConnectionTimeout = 5;
        ado.ConnectionString = conexaoLocal;
        ado.RecordSource = QStringLiteral("SELECT * FROM Tb_Convendas");
        ado.Refresh();
        if (ado.Recordset().RecordCount() != 1) {
            avisarParametros();
            return false;
        }
        Recordset& vendas = ado.Recordset();
        nomeFantasia = Trim(CStr(vendas.Fields(QStringLiteral("Fantasia")).Value()));

        impressoraConferencia =
            lerIni(arquivoConfigIni(), QStringLiteral("PRINTERS"), QStringLiteral("CONFERENCIA"));
        if (impressoraConferencia.isEmpty())
            impressoraConferencia = defaultPrinterName();

        multiplosAtendentes = CBool(vendas.Fields(QStringLiteral("bMultiplosAtendentes")).Value());
        exibirObservacao = CBool(vendas.Fields(QStringLiteral("bExibirObservacao")).Value());
        cobrarServico = CBool(vendas.Fields(QStringLiteral("bServico")).Value());
        const QVariant produtos = vendas.Fields(QStringLiteral("bProdutos")).Value();
        buscaInicio = IsNull(produtos) ? false : CBool(produtos);
        bloquearAposConferencia = CBool(vendas.Fields(QStringLiteral("bBloquearAposConferencia")).Value());
        imprimirItens = CBool(vendas.Fields(QStringLiteral("bImprimirItens")).Value());

        quantidadeMesas = CInt(vendas.Fields(QStringLiteral("iQuantidadeMesa")).Value());
        // The column's default of 0 after an upgrade reads as the full map.
        if (quantidadeMesas < 1 || quantidadeMesas > 30)
            quantidadeMesas = 30;
        tempoParaOcio = CInt(vendas.Fields(QStringLiteral("iTempoParaOcio")).Value());
        taxaServico = CDbl(vendas.Fields(QStringLiteral("iTaxa")).Value());

        ado.RecordSource = QStringLiteral("SELECT * FROM Tb_Usuario");
        ado.Refresh();
        if (!(ado.Recordset().RecordCount() > 0)) {
            avisarParametros();
            return false;
        }
        Recordset& usuario = ado.Recordset();
        cnpjEmpresa = Trim(CStr(usuario.Fields(QStringLiteral("CNPJ")).Value()));
        razaoSocial = Trim(CStr(usuario.Fields(QStringLiteral("RS")).Value()));
        controleUsuario = CBool(usuario.Fields(QStringLiteral("conAcesso")).Value());
        return true;
    } catch (const RuntimeError& erro) {
        relatarFalha(erro);
        return false;
    }
}
