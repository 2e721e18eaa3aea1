#pragma once

#include "platform/Equivalente.h"

#include <QString>
#include <vector>

// The schema upgrade of every start: the columns this system keeps in back-office tables, the two
// back-office primary keys, the three tab tables and the indexes their hot queries need, each change
// behind a catalogue test.
void atualizarBanco();

// A test (a SELECT COUNT(*)), the count that lets the step run, its statements in order, and the
// steps that run inside it.
struct PassoDoBanco {
    Equivalente teste;
    int esperado;
    std::vector<Equivalente> comandos;
    std::vector<PassoDoBanco> dentro;
};

// The steps in their order; the default printer's name goes, as it stands, into the default of
// the department printer column.
std::vector<PassoDoBanco> passosDoBanco(const QString& impressoraPadrao);
