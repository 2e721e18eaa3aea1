#include "support/TestDatabase.h"

#include "backoffice/BackOffice.h"
#include "platform/Connection.h"

#include <QUuid>

QString testServer() {
    const QString postgres = qEnvironmentVariable("ZARVEL_TEST_POSTGRES");
    return postgres.isEmpty() ? QString() : QStringLiteral("pg:") + postgres;
}

QString backOfficeDatabase(const TestEnvironment& env, const QString& name) {
    const QString server = testServer();
    // On a server every database of every test run is a new one; the server is the test run's own.
    const QString connectionString =
        server.isEmpty() ? adoConnectionString(env.scratchPath(name))
                         : withDatabase(adoConnectionString(server),
                                        QStringLiteral("zt_") + QUuid::createUuid().toString(QUuid::Id128));
    createBackOffice(connectionString);
    Connection connection;
    connection.Open(connectionString);
    const char* rows[] = {
        "INSERT INTO Tb_Departamento VALUES (1, 'COZINHA'), (2, 'BAR')",
        "INSERT INTO PRODUTOS VALUES (1, 'X-SALADA', 18.5, 'UN', 1), (2, 'CERVEJA LATA', 7, 'UN', 2), "
        "(3, 'PORÇÃO DE FRITAS', 25.9, 'UN', 1), (10, 'ÁGUA MINERAL', 4.5, 'UN', 2)",
        "INSERT INTO TB_ESTOQUE VALUES (1, 10), (2, 48), (3, 5)",
        "INSERT INTO Tb_Colaborador VALUES (1, 'ANA', '123'), (2, 'BRUNO', '456'), (3, 'D''ÁVILA', '789')",
        "INSERT INTO CLIENTES VALUES (1, 'MARIA SILVA', '111.111.111-11', NULL, '(11) 1111-1111', 'RUA A, "
        "1'), "
        "(2, 'JOSÉ SOUZA', '222.222.222-22', NULL, NULL, NULL)",
        "INSERT INTO Tb_ConVendas VALUES ('BAR DO TESTE', 1, 0, 10)",
        "INSERT INTO Tb_Usuario VALUES ('12.345.678/0001-90', 'BAR DO TESTE LTDA', 1)",
    };
    for (const char* row : rows)
        connection.Execute(QString::fromUtf8(row));
    return connectionString;
}

QString secondTerminal(const QString& connectionString) {
    return connectionString + QStringLiteral(";Workstation ID=TERMINAL2");
}
