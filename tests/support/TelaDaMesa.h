#pragma once

#include <functional>

class Frm_Mesa;

// Opens table mesa as the map does (a new comandaAtual pointed at it), shows Frm_Mesa modally and
// runs acao on it once it is up. Returns when the screen is gone: what acao leaves open is left
// with Escape. comandaAtual stays for the test to read.
void naMesa(int mesa, const std::function<void(Frm_Mesa&)>& acao);
