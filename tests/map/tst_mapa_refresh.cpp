#include "map/Frm_Principal.h"
#include "map/Mesa.h"
#include "map/SmoothScrollBar.h"
#include "platform/Clock.h"
#include "platform/Connection.h"
#include "platform/Twips.h"
#include "startup/variaveisGlobais.h"
#include "support/BancoDeTeste.h"
#include "support/Support.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>
#include <memory>

namespace {
QStringList legendas(const Frm_Principal& mapa) {
    return {mapa.Label_Disponivel->text(), mapa.Label_Ocupada->text(), mapa.Label_Edicao->text(),
            mapa.Label_Conferencia->text(), mapa.Label_Ociosa->text()};
}

// The map loaded for the given number of tables (Form_Load runs), not shown.
Frm_Principal& carregarMapa(int mesas) {
    quantidadeMesas = static_cast<qint16>(mesas);
    return Frm_Principal::instance();
}

int statusDaLinha(int id) {
    return consultar(QStringLiteral("SELECT status FROM Tb_Comandas WHERE id_comanda = %1").arg(id)).toInt();
}
} // namespace

class TestMapaRefresh : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnvironment> ambiente;

private slots:
    void init() {
        ambiente = std::make_unique<TestEnvironment>();
        bancoDeTeste(*ambiente);
        tempoParaOcio = 10;
    }
    void cleanup() {
        setStatementObserver(nullptr);
        ambiente.reset();
    }

    void contadoresELegendas() {
        Frm_Principal& mapa = carregarMapa(30);
        QCOMPARE(legendas(mapa), QStringList({QStringLiteral("Disponível (0)"), QStringLiteral("Ocupada (0)"),
                                              QStringLiteral("Edição (0)"), QStringLiteral("Conferência (0)"),
                                              QStringLiteral("Ociosa (0)")}));

        mapa.mesasRefresh();
        QCOMPARE(legendas(mapa),
                 QStringList({QStringLiteral("Disponível (30)"), QStringLiteral("Ocupada (0)"),
                              QStringLiteral("Edição (0)"), QStringLiteral("Conferência (0)"),
                              QStringLiteral("Ociosa (0)")}));

        const int id = abrirComanda(2, 1, 12.5);
        abrirComanda(3, 2, 7);
        abrirComanda(4, 3, 33.33);
        abrirComanda(30, 4, 100);
        mapa.mesasRefresh();
        QCOMPARE(legendas(mapa),
                 QStringList({QStringLiteral("Disponível (26)"), QStringLiteral("Ocupada (1)"),
                              QStringLiteral("Edição (1)"), QStringLiteral("Conferência (1)"),
                              QStringLiteral("Ociosa (1)")}));
        QCOMPARE(mapa.card[0]->status(), qint16(0));
        QCOMPARE(mapa.card[1]->status(), qint16(1));
        QCOMPARE(mapa.card[1]->valor(), QStringLiteral("12,5"));
        QCOMPARE(mapa.card[3]->valor(), QStringLiteral("33,33"));
        QCOMPARE(mapa.card[29]->status(), qint16(4));

        // A closed tab is no longer fetched, and every tick starts from free cards.
        executar(QStringLiteral("UPDATE Tb_Comandas SET status = 0 WHERE id_comanda = %1").arg(id));
        mapa.mesasRefresh();
        QCOMPARE(mapa.card[1]->status(), qint16(0));
        QCOMPARE(mapa.card[1]->valor(), QStringLiteral("0"));
        QCOMPARE(mapa.Label_Disponivel->text(), QStringLiteral("Disponível (27)"));
    }

    void regraDoOcio_data() {
        QTest::addColumn<int>("tempo");
        QTest::addColumn<int>("status");
        QTest::addColumn<QDateTime>("movimento");
        QTest::addColumn<QDateTime>("agora");
        QTest::addColumn<int>("esperado");
        QTest::addColumn<bool>("gravada");
        const QDateTime meioDia = testMoment();
        QTest::newRow("limite: 12:00:59 a 12:10:00")
            << 10 << 1 << meioDia.addSecs(59) << meioDia.addSecs(600) << 4 << true;
        QTest::newRow("9 minutos contados")
            << 10 << 1 << meioDia.addSecs(59) << meioDia.addSecs(599) << 1 << false;
        QTest::newRow("edição nunca") << 0 << 2 << meioDia << meioDia.addSecs(3600) << 2 << false;
        QTest::newRow("conferência nunca") << 10 << 3 << meioDia << meioDia.addSecs(3600) << 3 << false;
        QTest::newRow("movimento no futuro") << 0 << 1 << meioDia.addSecs(300) << meioDia << 1 << false;
        QTest::newRow("tempo zero") << 0 << 1 << meioDia << meioDia << 4 << true;
        // An idle row is written again on every tick for as long as it stays idle.
        QTest::newRow("ociosa gravada de novo") << 10 << 4 << meioDia << meioDia.addSecs(3600) << 4 << true;
        QTest::newRow("ociosa recém-movida") << 10 << 4 << meioDia << meioDia.addSecs(60) << 4 << false;
    }
    void regraDoOcio() {
        QFETCH(int, tempo);
        QFETCH(int, status);
        QFETCH(QDateTime, movimento);
        QFETCH(QDateTime, agora);
        QFETCH(int, esperado);
        QFETCH(bool, gravada);
        tempoParaOcio = static_cast<qint16>(tempo);
        const int id = abrirComanda(5, status, 10, movimento);
        setAgora(agora);
        Frm_Principal& mapa = carregarMapa(30);
        int escritas = 0;
        setStatementObserver([&escritas](const QString& sql) {
            escritas += sql.startsWith(QLatin1String("UPDATE"), Qt::CaseInsensitive);
        });
        mapa.mesasRefresh();
        QCOMPARE(mapa.card[4]->status(), qint16(esperado));
        QCOMPARE(statusDaLinha(id), esperado);
        QCOMPARE(escritas, gravada ? 1 : 0);
    }

    // Terminals learn of each other only through the rows, at the next tick of their timer.
    void outroTerminalVeAMudancaNoTickSeguinte() {
        setAgora(QDateTime()); // the timer runs on the real clock
        Frm_Principal& mapa = carregarMapa(30);
        mapa.Show();
        QVERIFY(mapa.Timer->isActive());
        QCOMPARE(mapa.Timer->interval(), 1000);
        QTest::qWait(0);

        const int id = abrirComanda(3, 2, 0, agora());
        QTRY_COMPARE_WITH_TIMEOUT(mapa.card[2]->status(), qint16(2), 1500);
        QCOMPARE(mapa.Label_Edicao->text(), QStringLiteral("Edição (1)"));

        // And the other way round: the map marks an idle row, and the other terminal reads it.
        tempoParaOcio = 0;
        executar(QStringLiteral("UPDATE Tb_Comandas SET status = 1 WHERE id_comanda = %1").arg(id),
                 secondTerminal(conexaoLocal));
        QTRY_COMPARE_WITH_TIMEOUT(statusDaLinha(id), 4, 1500);
        QCOMPARE(mapa.card[2]->status(), qint16(4));
    }

    void posicoesDosCartoes_data() {
        QTest::addColumn<int>("mesas");
        QTest::addColumn<int>("coluna");
        QTest::addColumn<int>("linha");
        QTest::newRow("1") << 1 << 0 << 0;
        QTest::newRow("5: uma linha cheia") << 5 << 4 << 0;
        QTest::newRow("6: a sexta abre a segunda linha") << 6 << 0 << 1;
        QTest::newRow("26: a sexta linha com um cartão") << 26 << 0 << 5;
    }
    void posicoesDosCartoes() {
        QFETCH(int, mesas);
        QFETCH(int, coluna);
        QFETCH(int, linha);
        Frm_Principal& mapa = carregarMapa(mesas);
        QCOMPARE(mapa.card.size(), mesas);
        // Laid out on the design (1335 wide + 127 apart, 1215 high + 113 apart), then scaled once.
        const double largo = std::floor(screenWidthTwips() / twipsPerPixelX()) / 1024;
        const double alto = std::floor(screenHeightTwips() / twipsPerPixelY()) / 768;
        const Mesa* ultimo = mapa.card.last();
        QCOMPARE(ultimo->numero(), qint16(mesas));
        QCOMPARE(ultimo->Left(), (4039 + coluna * 1462) * largo);
        QCOMPARE(ultimo->Top(), (1289 + linha * 1328) * alto);
        QCOMPARE(ultimo->Width(), 1335 * largo);
        QVERIFY(!ultimo->isHidden());
        QCOMPARE(mesasForaDaTela, qint16(0));

        mapa.mesasRefresh();
        QCOMPARE(mapa.Label_Disponivel->text(), QStringLiteral("Disponível (%1)").arg(mesas));
    }

    // The wheel over the map moves the cards one step of a card's height + 90 per change, however far
    // the value jumped, and only within the bounds the screen set.
    void rodaDoMouseMoveOsCartoes() {
        Frm_Principal& mapa = carregarMapa(30);
        mapa.Show();
        QCOMPARE(mapa.scrollBar->Max(), 0);
        const double topo = mapa.card[0]->Top(), passo = mapa.card[0]->Height() + 90;
        const auto girar = [&](int angulo) {
            const QPointF ponto(5, 5);
            QWheelEvent roda(ponto, mapa.mapToGlobal(ponto), QPoint(), QPoint(0, angulo), Qt::NoButton,
                             Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&mapa, &roda);
        };
        girar(-120);
        QCOMPARE(mapa.card[0]->Top(), topo);

        mapa.scrollBar->setMax(3);
        girar(-120);
        QCOMPARE(mapa.scrollBar->Value(), 3);
        QCOMPARE(mapa.card[0]->Top(), topo - passo);
        QCOMPARE(mapa.card[29]->Top(), mapa.card[25]->Top());
        girar(-120);
        QCOMPARE(mapa.card[0]->Top(), topo - passo);
        girar(120);
        QCOMPARE(mapa.scrollBar->Value(), 0);
        QCOMPARE(mapa.card[0]->Top(), topo);
        QVERIFY(mapa.Timer->isActive());
    }

    // A row whose table has no card is a failure the map doesn't handle: the process ends.
    void mesaSemCartaoEncerra_data() {
        QTest::addColumn<int>("mesa");
        QTest::newRow("acima") << 31;
        QTest::newRow("zero") << 0;
    }
    void mesaSemCartaoEncerra() {
        QFETCH(int, mesa);
        Frm_Principal& mapa = carregarMapa(30);
        abrirComanda(mesa, 1);
        mapa.Show();
        QTRY_VERIFY_WITH_TIMEOUT(processEnded(), 1500);
        mapa.Timer->stop();
        QVERIFY(!boxes().isEmpty());
        QVERIFY(boxes().first().prompt.startsWith(QStringLiteral("Run-time error '340':")));
    }
};

ZARVEL_TEST(TestMapaRefresh)
#include "tst_mapa_refresh.moc"
