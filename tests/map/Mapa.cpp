#include "Mapa.h"

#include "map/Frm_Principal.h"
#include "startup/variaveisGlobais.h"
#include "support/Support.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

namespace {
int s_terminais = 0;

const char* const kTabelas[] = {
    "CREATE TABLE Tb_Colaborador (ID_Colaborador NUMERIC(10,0) PRIMARY KEY, Nome NVARCHAR(50), "
    "Senha NVARCHAR(20), bZarvel BIT NOT NULL DEFAULT 0, bTransferirItem BIT NOT NULL DEFAULT 0, "
    "bTransferirMesa BIT NOT NULL DEFAULT 0, bReimprimir BIT NOT NULL DEFAULT 0, "
    "bConfiguracoes BIT NOT NULL DEFAULT 0, bTaxa BIT NOT NULL DEFAULT 0, bCancelar BIT NOT NULL DEFAULT 0, "
    "bExcluir BIT NOT NULL DEFAULT 0)",
    "INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha, bZarvel) VALUES (1, 'ANA', '111', 1)",
    "INSERT INTO Tb_Colaborador (ID_Colaborador, Nome, Senha, bZarvel, bTransferirMesa, bConfiguracoes) "
    "VALUES (2, 'BETO', '222', 1, 1, 1)",
    "CREATE TABLE Tb_Comandas (id_comanda INTEGER PRIMARY KEY AUTOINCREMENT, data_criacao DATETIME NOT NULL, "
    "status TINYINT NOT NULL DEFAULT 0, mesa INT NOT NULL, id_colaborador NUMERIC(10,0) NOT NULL, "
    "id_cliente NUMERIC(10,0) NULL, identificacao NVARCHAR(255) NULL, servico BIT NOT NULL, "
    "valor_servico FLOAT NOT NULL, valor_total FLOAT NOT NULL, ocupantes TINYINT NOT NULL DEFAULT 1, "
    "data_ultima_movimentacao DATETIME NOT NULL, bloqueada BIT NOT NULL DEFAULT 0, "
    "cancelada BIT NOT NULL DEFAULT 0, quem_cancelou NUMERIC(10,0) NULL, data_cancelamento DATETIME NULL, "
    "motivo_cancelamento NVARCHAR(255) NULL, faturada BIT NOT NULL DEFAULT 0, "
    "documento_faturado NVARCHAR(255) NULL, data_faturamento DATETIME NULL)",
};

QString textoDaData(const QDateTime& momento) {
    return momento.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}
} // namespace

OutroTerminal::OutroTerminal(const TestEnvironment& ambiente)
    : m_conexao(QStringLiteral("outro-terminal-%1").arg(++s_terminais)) {
    const QString arquivo = ambiente.scratchPath(QStringLiteral("norvik.db"));
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_conexao);
    db.setDatabaseName(arquivo);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    if (!db.open())
        qFatal("no test database: %s", qPrintable(db.lastError().text()));
    for (const char* ddl : kTabelas)
        executar(QString::fromLatin1(ddl));
    conexaoLocal = QStringLiteral("Provider=SQLNCLI;Server=%1;Database=Norvik;Uid=sa;Pwd=;").arg(arquivo);
}

OutroTerminal::~OutroTerminal() {
    QSqlDatabase::database(m_conexao).close();
    QSqlDatabase::removeDatabase(m_conexao);
}

int OutroTerminal::abrirMesa(int mesa, int status, double valorTotal, const QDateTime& movimento,
                             int colaborador) {
    const QDateTime quando = movimento.isValid() ? movimento : testMoment();
    executar(
        QStringLiteral("INSERT INTO Tb_Comandas (data_criacao, status, mesa, id_colaborador, identificacao, "
                       "servico, valor_servico, valor_total, ocupantes, data_ultima_movimentacao) "
                       "VALUES (?, ?, ?, ?, ?, 0, 0, ?, 1, ?)"),
        {textoDaData(quando), status, mesa, colaborador, QStringLiteral("MESA: %1").arg(mesa), valorTotal,
         textoDaData(quando)});
    return consultar(QStringLiteral("SELECT MAX(id_comanda) FROM Tb_Comandas")).toInt();
}

void OutroTerminal::executar(const QString& sql, const QVariantList& valores) {
    QSqlQuery q(QSqlDatabase::database(m_conexao));
    q.prepare(sql);
    for (const QVariant& v : valores)
        q.addBindValue(v);
    if (!q.exec())
        qFatal("%s: %s", qPrintable(sql), qPrintable(q.lastError().text()));
}

QVariant OutroTerminal::consultar(const QString& sql, const QVariantList& valores) {
    QSqlQuery q(QSqlDatabase::database(m_conexao));
    q.prepare(sql);
    for (const QVariant& v : valores)
        q.addBindValue(v);
    if (!q.exec())
        qFatal("%s: %s", qPrintable(sql), qPrintable(q.lastError().text()));
    return q.next() ? q.value(0) : QVariant();
}

Frm_Principal& carregarMapa(int mesas) {
    quantidadeMesas = static_cast<qint16>(mesas);
    return Frm_Principal::instance();
}
