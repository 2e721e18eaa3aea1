#include "map/Frm_Principal.h"
#include "platform/Connection.h"
#include "platform/DataControl.h"
#include "platform/RuntimeError.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QTest>

namespace {
int contar(const QString& condicao) {
    return consultar(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas WHERE ") + condicao).toInt();
}

// The statements sent while acao runs; a row write shows as "UPDATE column" or "INSERT".
QStringList comandos(const std::function<void()>& acao) {
    QStringList lista;
    setStatementObserver([&](const QString& sql) {
        static const QRegularExpression coluna(QStringLiteral("^UPDATE .* SET \\[(\\w+)\\]"));
        const QRegularExpressionMatch m = coluna.match(sql);
        lista << (m.hasMatch()                              ? QStringLiteral("UPDATE ") + m.captured(1)
                  : sql.startsWith(QLatin1String("INSERT")) ? QStringLiteral("INSERT")
                                                            : sql);
    });
    acao();
    setStatementObserver(nullptr);
    return lista;
}

template <class F> int erroDe(F acao) {
    try {
        acao();
    } catch (const RuntimeError& erro) {
        return erro.Number;
    }
    return 0;
}
} // namespace

class TestComanda : public QObject {
    Q_OBJECT

private slots:
    void mesaLivreAbreUmaLinha_data() {
        QTest::addColumn<int>("mesa");
        QTest::addColumn<QString>("identificacao");
        QTest::newRow("7") << 7 << QStringLiteral("MESA: 07");
        QTest::newRow("120") << 120 << QStringLiteral("MESA: 120");
    }
    void mesaLivreAbreUmaLinha() {
        QFETCH(int, mesa);
        QFETCH(QString, identificacao);
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 2;
        cobrarServico = true;
        const int fechada = abrirComanda(mesa, 0); // stays closed
        const QString aberta =
            QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = %1 AND status <> 0").arg(mesa);

        Comanda comanda;
        // Load, open, load again, then write the table number through the common write.
        QCOMPARE(comandos([&] { comanda.apelido(qint16(mesa)); }),
                 (QStringList{aberta, QStringLiteral("SELECT * FROM Tb_Comandas"), QStringLiteral("INSERT"),
                              QStringLiteral("SELECT * FROM Tb_Comandas"), aberta,
                              QStringLiteral("UPDATE mesa"), aberta}));

        QVERIFY(comanda.id() != fechada);
        QCOMPARE(
            contar(QStringLiteral("id_comanda = %1 AND mesa = %2 AND status = 1 AND id_colaborador = 2 AND "
                                  "identificacao = '%3' AND servico = 1 AND valor_servico = 0 AND "
                                  "valor_total = 0 AND ocupantes = 1 AND id_cliente IS NULL AND "
                                  "bloqueada = 0 AND cancelada = 0 AND quem_cancelou IS NULL AND "
                                  "data_cancelamento IS NULL AND motivo_cancelamento IS NULL AND "
                                  "faturada = 0 AND documento_faturado IS NULL AND data_faturamento IS NULL")
                       .arg(comanda.id())
                       .arg(mesa)
                       .arg(identificacao)),
            1);
        QCOMPARE(contar(QStringLiteral("status <> 0")), 1);
        QCOMPARE(comanda.status(), qint16(1));
        QCOMPARE(comanda.identificacao(), identificacao);
        QCOMPARE(comanda.dataCriacao(), testMoment());
    }

    void mesaOcupadaCarregaSemInserir() {
        TestEnvironment env;
        bancoDeTeste(env);
        const int id = abrirComanda(4, 2, 0, QDateTime(QDate(2024, 3, 5), QTime(11, 0)), 3);
        executar(
            QStringLiteral("UPDATE Tb_Comandas SET identificacao = 'JANELA', ocupantes = 3, servico = 1"));
        abrirComanda(4, 1); // a second open row is passed over

        Comanda comanda;
        comanda.apelido(4);

        QCOMPARE(contar(QStringLiteral("1 = 1")), 2);
        QCOMPARE(comanda.id(), qint16(id));
        QCOMPARE(comanda.status(), qint16(2));
        QCOMPARE(comanda.identificacao(), QStringLiteral("JANELA"));
        QCOMPARE(comanda.ocupantes(), qint16(3));
        QVERIFY(comanda.servico());
        QCOMPARE(comanda.cliente(), qint16(0));
        QCOMPARE(comanda.colaborador(), qint16(3));
        QCOMPARE(comanda.dataCriacao(), QDateTime(QDate(2024, 3, 5), QTime(11, 0)));
        // Only ever written.
        QVERIFY(!comanda.dataUltimaMovimentacao().isValid());
    }

    void totais_data() {
        QTest::addColumn<QList<double>>("ativos");
        QTest::addColumn<bool>("servico");
        QTest::addColumn<double>("produtos");
        QTest::addColumn<double>("taxa");
        QTest::addColumn<double>("total");
        QTest::newRow("com serviço") << QList<double>{11.11, 22.22} << true << 33.33 << 3.33 << 36.66;
        QTest::newRow("sem serviço") << QList<double>{11.11, 22.22} << false << 33.33 << 3.33 << 33.33;
        QTest::newRow("sem itens") << QList<double>{} << true << 0.0 << 0.0 << 0.0;
        // The products are rounded half up on their digits, the charge is cut.
        QTest::newRow("arredonda") << QList<double>{10.005} << true << 10.01 << 1.0 << 11.01;
        QTest::newRow("corta") << QList<double>{19.99} << true << 19.99 << 1.99 << 21.98;
    }
    void totais() {
        QFETCH(QList<double>, ativos);
        QFETCH(bool, servico);
        QFETCH(double, produtos);
        QFETCH(double, taxa);
        QFETCH(double, total);
        TestEnvironment env;
        bancoDeTeste(env);
        taxaServico = 10;
        const int id = abrirComanda(1, 1);
        int n = 0;
        for (double valor : std::as_const(ativos))
            itemNoBanco(id, ++n, valor);
        itemNoBanco(id, ++n, 100, 0); // excluded: counts for nothing
        itemNoBanco(abrirComanda(2, 1), 1, 50);

        Comanda comanda;
        comanda.apelido(1);
        comanda.servico(servico);
        const QString aberta = QStringLiteral("SELECT * FROM Tb_Comandas WHERE mesa = 1 AND status <> 0");
        QCOMPARE(
            comandos([&] { comanda.totalizaMesa(); }),
            (QStringList{QStringLiteral("SELECT SUM(valor_total) FROM Tb_Comandas_Itens WHERE id_comanda = "
                                        "%1 AND status = 1")
                             .arg(id),
                         QStringLiteral("UPDATE valor_servico"), aberta, QStringLiteral("UPDATE valor_total"),
                         aberta}));

        QCOMPARE(comanda.valorProdutos(), produtos);
        QCOMPARE(comanda.valorServico(), taxa);
        QCOMPARE(comanda.valorTotal(), total);
        const QString linha = QStringLiteral(" FROM Tb_Comandas WHERE id_comanda = %1").arg(id);
        QCOMPARE(consultar(QStringLiteral("SELECT valor_servico") + linha).toDouble(), taxa);
        QCOMPARE(consultar(QStringLiteral("SELECT valor_total") + linha).toDouble(), total);
    }

    void escritas() {
        TestEnvironment env;
        const QString conexao = bancoDeTeste(env);
        idColaborador = 1;
        {
            Comanda comanda;
            comanda.apelido(6);
            comanda.ocupantes(4);
            comanda.bloqueada(true);
            comanda.cliente(2);
            comanda.identificacao(QString());
            QCOMPARE(
                contar(QStringLiteral("mesa = 6 AND ocupantes = 4 AND bloqueada = 1 AND id_cliente = 2 AND "
                                      "identificacao IS NULL")),
                1);
            // The column is sent a text instead of the number, which the store refuses.
            QVERIFY(erroDe([&] { comanda.colaborador(2); }) != 0);
            QCOMPARE(comanda.colaborador(), qint16(2));
            // 0 goes in as 0, which no customer has.
            comanda.carregar();
            QVERIFY(erroDe([&] { comanda.cliente(0); }) != 0);
        }
        QCOMPARE(contar(QStringLiteral("mesa = 6 AND id_colaborador = 1")), 1);

        Comanda comanda;
        comanda.apelido(6);
        QCOMPARE(comanda.identificacao(), QString());
        // The write goes to the row as it was read: another terminal's change in between fails it.
        executar(QStringLiteral("UPDATE Tb_Comandas SET ocupantes = 6"), secondTerminal(conexao));
        QCOMPARE(erroDe([&] { comanda.ocupantes(2); }), vbErr::RowNotLocated);
        QCOMPARE(contar(QStringLiteral("ocupantes = 6")), 1);
        // A closed tab leaves the query empty: nothing more can be written.
        comanda.carregar();
        comanda.status(0);
        QCOMPARE(erroDe([&] { comanda.ocupantes(2); }), vbErr::NoCurrentRecord);
    }

    void idGrandeTransborda() {
        TestEnvironment env;
        bancoDeTeste(env);
        executar(QStringLiteral("UPDATE Tb_Comandas SET id_comanda = 40000 WHERE id_comanda = %1")
                     .arg(abrirComanda(8, 1)));
        Comanda comanda;
        QCOMPARE(erroDe([&] { comanda.apelido(8); }), vbErr::Overflow);
    }

    void fimDoObjetoFechaORecordset() {
        TestEnvironment env;
        bancoDeTeste(env);
        idColaborador = 1;
        comandaAtual = std::make_unique<Comanda>();
        comandaAtual->apelido(9);
        QVERIFY(Frm_Principal::instance().Ado_Mesas->Recordset().isOpen());
        comandaAtual.reset();
        QVERIFY(!Frm_Principal::instance().Ado_Mesas->Recordset().isOpen());
    }
};

ZARVEL_TEST(TestComanda)
#include "tst_comanda.moc"
