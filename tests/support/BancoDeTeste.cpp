#include "support/BancoDeTeste.h"

#include "platform/Connection.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"
#include "support/TestDatabase.h"

QString bancoDeTeste(const TestEnvironment& env) {
    conexaoLocal = backOfficeDatabase(env);
    atualizarBanco();
    return conexaoLocal;
}

void executar(const QString& sql, const QString& conexao) {
    Connection cn;
    cn.Open(conexao.isEmpty() ? conexaoLocal : conexao);
    cn.Execute(sql);
}

QVariant consultar(const QString& sql) {
    Connection cn;
    cn.Open(conexaoLocal);
    return cn.Execute(sql).Fields(0).Value();
}
