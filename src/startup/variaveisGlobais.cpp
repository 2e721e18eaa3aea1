#include "startup/variaveisGlobais.h"

#include "store/Comanda.h"

QString servidorLocal;
QString conexaoLocal;
QString nomeFantasia;
QString razaoSocial;
QString cnpjEmpresa;
QString impressoraConferencia;

bool multiplosAtendentes = false;
bool exibirObservacao = false;
bool cobrarServico = false;
bool buscaInicio = false;
bool bloquearAposConferencia = false;
bool imprimirItens = false;
qint16 quantidadeMesas = 0;
qint16 tempoParaOcio = 0;
double taxaServico = 0;
bool controleUsuario = false;

bool acessoAutorizado = false;
qint16 idColaborador = 0;
QString nomeColaborador;
bool podeTransferirItem = false;
bool podeTransferirMesa = false;
bool podeReimprimir = false;
bool podeConfigurar = false;
bool podeAlterarTaxa = false;
bool podeCancelar = false;
bool podeExcluir = false;

std::unique_ptr<Comanda> comandaAtual;

QString itemCodigo;
QString itemDescricao;
double itemQuantidade = 0;
double itemValorUnitario = 0;
double itemValorTotal = 0;
QString itemObservacao;
bool itemImpresso = false;
qint16 itemId = 0;

qint16 mesasForaDaTela = 0;

void limparVariaveisGlobais() {
    servidorLocal.clear();
    conexaoLocal.clear();
    nomeFantasia.clear();
    razaoSocial.clear();
    cnpjEmpresa.clear();
    impressoraConferencia.clear();
    multiplosAtendentes = exibirObservacao = cobrarServico = buscaInicio = false;
    bloquearAposConferencia = imprimirItens = controleUsuario = false;
    quantidadeMesas = tempoParaOcio = 0;
    taxaServico = 0;
    acessoAutorizado = false;
    idColaborador = 0;
    nomeColaborador.clear();
    podeTransferirItem = podeTransferirMesa = podeReimprimir = podeConfigurar = false;
    podeAlterarTaxa = podeCancelar = podeExcluir = false;
    comandaAtual.reset();
    itemCodigo.clear();
    itemDescricao.clear();
    itemQuantidade = itemValorUnitario = itemValorTotal = 0;
    itemObservacao.clear();
    itemImpresso = false;
    itemId = 0;
    mesasForaDaTela = 0;
}
