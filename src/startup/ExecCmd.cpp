#include "startup/ExecCmd.h"

#include "platform/Process.h"

void ExecCmd(const QString& linhaDeComando) {
    startAndWait(linhaDeComando);
}
