#include "printing/rotinasImpressao.h"

// The department printers and the conference printer are reached through the report engine,
// which is not here yet: until then nothing is printed, and pending items stay pending in the
// store (impresso 0), so the first run with the engine sends them.
void imprimirPedidos() {}

void imprimirConferencia() {}
