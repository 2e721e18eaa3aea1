#pragma once

class RuntimeError;

#include <QByteArray>
#include <QString>

// Routines of the start-up that other screens share: the progress line of the start-up screen,
// the machine's configuration files and the reading of the settings into the run-time state.

// The text and "..." on the progress line of Frm_Splash (loading that screen if it is gone), then
// half a second, then the pending events.
void exibirProgresso(const QString& texto);

// The configuration files: SERVER.ini in the machine folder, config.ini in the program folder.
QString arquivoServerIni();
QString arquivoConfigIni();

// Makes the default SERVER.ini when none is there.
void verificarArquivos();
void criarServerIni();

// Private-profile values: the value cut to 254 characters, empty when file, section or key is
// missing. Writing reports nothing.
QString lerIni(const QString& arquivo, const QString& secao, const QString& chave);
void gravarIni(const QString& arquivo, const QString& secao, const QString& chave, const QString& valor);

// Writes the text in one piece at the start of the file, without truncating it, as a binary open
// and put did. A missing folder raises 76, any other refusal 75.
void gravarArquivoBinario(const QString& caminho, const QByteArray& conteudo);

// Reads the settings and the company values into the run-time state; false (after telling the
// user why) when they can't all be read.
bool lerDadosLocais();

// A lost or refused connection during start-up and settings: the message on the progress line and
// in a box, then the end of the process.
[[noreturn]] void encerrarPorFalhaDeConexao();

// The start-up's handler: a lost connection ends the process as above; any other error shows its
// description and number on the progress line and in a box.
void relatarFalha(const RuntimeError& erro);
