#include "backoffice/Demo.h"

#include "backoffice/BackOffice.h"
#include "startup/atualizarBanco.h"
#include "startup/variaveisGlobais.h"

namespace {
struct Product {
    int codigo;
    const char* descricao;
    double preco;
    const char* un;
    int dep;
    double estoque; // < 0: no stock row, the picker doesn't list it
};

const Product kProducts[] = {
    {101, "X-SALADA", 18.5, "UN", 1, 40},
    {102, "X-BURGUER", 16, "UN", 1, 40},
    {103, "X-BACON", 21, "UN", 1, 30},
    {104, "X-TUDO", 26, "UN", 1, 25},
    {105, "MISTO QUENTE", 9.5, "UN", 1, 50},
    {106, "BAURU", 14, "UN", 1, 20},
    {107, "PORÇÃO DE FRITAS", 25.9, "PC", 1, 30},
    {108, "PORÇÃO DE CALABRESA", 32, "PC", 1, 15},
    {109, "PORÇÃO DE FRANGO A PASSARINHO", 36, "PC", 1, 15},
    {110, "PORÇÃO DE MANDIOCA", 24, "PC", 1, 20},
    {111, "ISCA DE PEIXE", 42, "PC", 1, 10},
    {112, "BOLINHO DE BACALHAU 12 UNIDADES", 38, "PC", 1, 12},
    {113, "PASTEL DE CARNE", 8, "UN", 1, 60},
    {114, "PASTEL DE QUEIJO", 8, "UN", 1, 60},
    {115, "COXINHA", 7, "UN", 1, 80},
    {116, "FILÉ À PARMEGIANA", 58, "UN", 1, 10},
    {117, "PRATO FEITO", 29.9, "UN", 1, 30},
    {118, "OMELETE", 18, "UN", 1, 20},
    {119, "CALDO DE FEIJÃO", 12, "UN", 1, -1},
    {120, "SALADA DA CASA", 22, "UN", 1, -1},
    {201, "CERVEJA LATA", 7, "UN", 2, 240},
    {202, "CERVEJA 600ML", 14, "UN", 2, 120},
    {203, "CHOPP 300ML", 11, "UN", 2, 300},
    {204, "CHOPP 500ML", 16, "UN", 2, 200},
    {205, "CAIPIRINHA DE LIMÃO", 18, "UN", 2, 80},
    {206, "CAIPIROSKA", 22, "UN", 2, 60},
    {207, "CAIPIRINHA DE MORANGO", 20, "UN", 2, 40},
    {208, "DOSE DE CACHAÇA", 8, "DS", 2, 90},
    {209, "DOSE DE WHISKY", 24, "DS", 2, 40},
    {210, "GIN TÔNICA", 28, "UN", 2, 40},
    {211, "NEGRONI", 32, "UN", 2, 30},
    {212, "MOJITO", 26, "UN", 2, 30},
    {213, "APEROL SPRITZ", 30, "UN", 2, 30},
    {214, "VINHO TINTO TAÇA", 22, "TC", 2, 48},
    {215, "VINHO BRANCO TAÇA", 22, "TC", 2, 48},
    {216, "CERVEJA SEM ÁLCOOL", 9, "UN", 2, 48},
    {217, "BATIDA DE COCO", 16, "UN", 2, 30},
    {218, "DOSE DE VODKA", 12, "DS", 2, 60},
    {219, "LONG NECK", 12, "UN", 2, -1},
    {220, "CHOPP DE VINHO", 14, "UN", 2, 50},
    {301, "ÁGUA MINERAL", 4.5, "UN", 3, 200},
    {302, "ÁGUA COM GÁS", 5, "UN", 3, 120},
    {303, "REFRIGERANTE LATA", 6.5, "UN", 3, 240},
    {304, "REFRIGERANTE 600ML", 9, "UN", 3, 96},
    {305, "SUCO DE LARANJA", 10, "CP", 3, 50},
    {306, "SUCO DE LIMÃO", 9, "CP", 3, 50},
    {307, "SUCO DE ABACAXI", 10, "CP", 3, 50},
    {308, "SUCO DE MARACUJÁ", 10, "CP", 3, 50},
    {309, "CAFÉ EXPRESSO", 5, "UN", 3, 300},
    {310, "CAPUCCINO", 8, "UN", 3, 100},
    {311, "CHÁ GELADO", 7, "CP", 3, 60},
    {312, "ÁGUA DE COCO", 8, "UN", 3, 48},
    {313, "SORVETE 2 BOLAS", 12, "UN", 3, 40},
    {314, "PUDIM", 10, "UN", 3, 20},
    {315, "PETIT GATEAU", 22, "UN", 3, 15},
    {316, "SALADA DE FRUTAS", 11, "UN", 3, 20},
    {317, "AÇAÍ 300ML", 16, "UN", 3, 30},
    {318, "MILK SHAKE", 18, "UN", 3, 30},
    {319, "TÔNICA", 7, "UN", 3, 48},
    {320, "ENERGÉTICO", 14, "UN", 3, -1},
};

// The rows the back office would hold; the rights and settings come after the upgrade.
const char* kBackOfficeRows[] = {
    "INSERT INTO Tb_Departamento (ID_Departamento, Dep_Descricao) VALUES (1, 'COZINHA'), (2, 'BAR'), (3, "
    "'COPA')",
    "INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha) VALUES (1, 'ADMINISTRADOR', '1234'), "
    "(2, 'CARLA CAIXA', '2580'), (3, 'JOÃO GARÇOM', '1357'), (4, 'MARIA GARÇONETE', '2468')",
    "INSERT INTO CLIENTES (ID_CODIGO, NOME, CPF, IE, TELEFONE, ENDERECO) VALUES "
    "(1, 'ANTÔNIO PEREIRA', '123.456.789-09', NULL, '(11) 98765-4321', 'RUA DAS FLORES, 10'), "
    "(2, 'BEATRIZ SOUZA', '987.654.321-00', NULL, '(11) 91234-5678', 'AV. BRASIL, 1500'), "
    "(3, 'CONSTRUTORA ALVES LTDA', NULL, '110.042.490.114', '(11) 3333-4444', 'RUA XV DE NOVEMBRO, 200'), "
    "(4, 'DIEGO D''ÁVILA', '111.222.333-96', NULL, NULL, NULL), "
    "(5, 'ELISA MARTINS', '555.666.777-88', NULL, '(11) 95555-0000', 'RUA DO PORTO, 5')",
    "INSERT INTO Tb_ConVendas (Fantasia, bServico, bProdutos, iTaxa) VALUES ('BAR DO PORTO', 1, 0, 10)",
    "INSERT INTO Tb_Usuario (CNPJ, RS, conAcesso) VALUES ('12.345.678/0001-95', 'BAR DO PORTO COMÉRCIO DE "
    "BEBIDAS LTDA', 1)",
};

// What the back office sets once this system's columns exist.
const char* kRightsAndSettings[] = {
    "UPDATE Tb_Colaborador SET bZarvel = 1, bTransferirItem = 1, bTransferirMesa = 1, bReimprimir = 1, "
    "bConfiguracoes = 1, bTaxa = 1, bCancelar = 1, bExcluir = 1 WHERE ID_Colaborador = 1",
    "UPDATE Tb_Colaborador SET bZarvel = 1, bTransferirItem = 1, bTransferirMesa = 1, bReimprimir = 1, bTaxa "
    "= 1, "
    "bCancelar = 1 WHERE ID_Colaborador = 2",
    "UPDATE Tb_Colaborador SET bZarvel = 1, bReimprimir = 1, bExcluir = 1 WHERE ID_Colaborador = 3",
    "UPDATE Tb_Colaborador SET bZarvel = 1 WHERE ID_Colaborador = 4",
    "UPDATE Tb_ConVendas SET iQuantidadeMesa = 20, iTempoParaOcio = 10, bImprimirItens = 1",
    // Each department prints on a queue of its own name (scripts/run.sh makes them).
    "UPDATE Tb_Departamento SET Impressora = Dep_Descricao",
};

void execute(Connection& connection, const char* statement) {
    connection.Execute(QString::fromUtf8(statement));
}

} // namespace

void createDemoDatabase(const QString& connectionString) {
    createBackOffice(connectionString);
    Connection connection;
    connection.Open(connectionString);
    for (const char* statement : kBackOfficeRows)
        execute(connection, statement);
    for (const Product& p : kProducts) {
        connection.Execute(QStringLiteral("INSERT INTO PRODUTOS (CODIGO, DESCRICAO, PRECO, UN, DEP) VALUES "
                                          "(%1, '%2', %3, '%4', %5)")
                               .arg(p.codigo)
                               .arg(QString::fromUtf8(p.descricao))
                               .arg(p.preco, 0, 'f', 2)
                               .arg(QString::fromUtf8(p.un))
                               .arg(p.dep));
        if (p.estoque >= 0)
            connection.Execute(QStringLiteral("INSERT INTO TB_ESTOQUE (CODIGO, QD) VALUES (%1, %2)")
                                   .arg(p.codigo)
                                   .arg(p.estoque));
    }
    // The rights and settings columns, as the program's own first start adds them.
    conexaoLocal = connectionString;
    servidorLocal = databaseFileOf(connectionString);
    atualizarBanco();
    for (const char* statement : kRightsAndSettings)
        execute(connection, statement);
}
