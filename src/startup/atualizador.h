#pragma once

#include <QString>

// The hand-off to the updater tool, through its mailbox atualizador.ini, and the system's one log.

// Fills in the mailbox for this module and runs the tool, waiting for it; after a finished update
// of this module it clears the mailbox instead.
void verificarAtualizador();

// Writes the empty mailbox in the folder.
void criarAtualizadorIni(const QString& pasta);

// Appends "date time - message" to the day's file under log in the program folder.
void gravarLog(const QString& mensagem);
