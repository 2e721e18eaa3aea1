#pragma once

#include "platform/Equivalente.h"

#include <vector>

// The definitions of the tab store's three tables: the CREATE TABLE and the keys of each, in the
// order the schema upgrade runs them.
std::vector<Equivalente> comandosTbComandas();
std::vector<Equivalente> comandosTbComandasItens();
std::vector<Equivalente> comandosTbComandasRecebimentos();
