#pragma once

// Sends every pending item of comandaAtual (and every requested reprint) as a ticket to its
// department's printer.
void imprimirPedidos();

// Prints the conference slip of comandaAtual on this terminal's conference printer.
void imprimirConferencia();
