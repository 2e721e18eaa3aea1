#pragma once

#include <QString>

// Starts the command and waits for it to end, without limit.
void ExecCmd(const QString& linhaDeComando);
