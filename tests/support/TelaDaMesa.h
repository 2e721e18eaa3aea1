#pragma once

#include "support/Support.h"

#include <QObject>
#include <functional>
#include <memory>

class Frm_Mesa;

// Opens table mesa as the map does (a new comandaAtual pointed at it), shows Frm_Mesa modally and
// runs acao on it once it is up. Returns when the screen is gone: what acao leaves open is left
// with Escape. comandaAtual stays for the test to read.
void naMesa(int mesa, const std::function<void(Frm_Mesa&)>& acao);

// The fixture of the table screen's tests: a fresh store per test (bancoDeTeste), with BRUNO (2)
// as the staff member who passed the prompt.
class TesteNaMesa : public QObject {
    Q_OBJECT

protected slots:
    void init();
    void cleanup();

protected:
    const TestEnvironment& env() const { return *m_env; }

private:
    std::unique_ptr<TestEnvironment> m_env;
};
