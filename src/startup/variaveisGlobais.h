#pragma once

#include <QString>
#include <memory>

class Comanda;

// The run-time state of the process: one value each, read and written by every subsystem.

extern QString servidorLocal;
extern QString conexaoLocal;
extern QString nomeFantasia;
extern QString razaoSocial;
extern QString cnpjEmpresa;
extern QString impressoraConferencia;

extern bool multiplosAtendentes;
extern bool exibirObservacao;
extern bool cobrarServico;
extern bool buscaInicio;
extern bool bloquearAposConferencia;
extern bool imprimirItens;
extern qint16 quantidadeMesas;
extern qint16 tempoParaOcio;
extern double taxaServico;
extern bool controleUsuario;

// The staff member who last passed the guarded prompt, and the rights loaded with them.
extern bool acessoAutorizado;
extern qint16 idColaborador;
extern QString nomeColaborador;
extern bool podeTransferirItem;
extern bool podeTransferirMesa;
extern bool podeReimprimir;
extern bool podeConfigurar;
extern bool podeAlterarTaxa;
extern bool podeCancelar;
extern bool podeExcluir;

// The tab being worked on; dropping it ends the object.
extern std::unique_ptr<Comanda> comandaAtual;

// The item in hand, on its way into the tab.
extern QString itemCodigo;
extern QString itemDescricao;
extern double itemQuantidade;
extern double itemValorUnitario;
extern double itemValorTotal;
extern QString itemObservacao;
extern bool itemImpresso;
extern qint16 itemId;

// The map's count of cards below the screen.
extern qint16 mesasForaDaTela;

// Everything back to empty, false or zero, as at the start of the process.
void limparVariaveisGlobais();
