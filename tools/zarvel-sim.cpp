// zarvel-sim --server <IPCONEXAO> [--terminals N] [--seconds S] [--seed K] [--password P]
//
// Many terminals on one database, as a bar puts them there: N processes, each with its own
// connection, each running the real map and table screens on the offscreen platform. The map ticks
// every second; a waiter opens tables behind the password prompt, rings items by code and sends
// them, at random moments drawn from the seed. At the end it reports every error with its text,
// the items rung against the items the store holds, and the p50/p99 of the map's tick and of the
// keyboard path (a code typed and Enter, to the item on the list).
//
// The database must exist (zarvel-demo makes one, on a file or on a PostgreSQL server). A terminal
// is the same program started with --terminal <i>; it writes its measures on its standard output.

#include "access/Frm_Acesso.h"
#include "backoffice/BackOffice.h"
#include "map/Frm_Principal.h"
#include "platform/Application.h"
#include "platform/Connection.h"
#include "platform/MsgBox.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Profile.h"
#include "platform/RuntimeError.h"
#include "platform/Timer.h"
#include "settlement/Frm_Cancelamento.h"
#include "settlement/Frm_Recebimento.h"
#include "startup/rotinasInicializacao.h"
#include "startup/variaveisGlobais.h"
#include "store/Comanda.h"
#include "table/Frm_Mesa.h"
#include "transfer/Frm_Transferir.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

struct Options {
    QString server;
    int terminals = 4;
    int seconds = 60;
    quint32 seed = 1;
    QString password = QStringLiteral("1234");
    int terminal = -1; // >= 0: this process is that terminal
};

// Codes the demo bar sells; a terminal rings from these.
const int kCodes[] = {101, 102, 103, 105, 107, 113, 115, 117, 201, 202,
                      203, 204, 205, 208, 214, 301, 303, 305, 309, 313};

void report(char kind, const QString& text) {
    std::printf("%c %s\n", kind, qPrintable(text));
    std::fflush(stdout);
}

// Runs action on the next modal screen of type T that comes up within a few seconds, from the
// event loop, so that the caller can go on into the routine that shows it. The watch ends with
// the returned timer: a screen that never came must not catch the next visit's.
template <class T> QTimer* onNextModal(std::function<void(T*)> action) {
    auto* poll = new QTimer(qApp);
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    QObject::connect(poll, &QTimer::timeout, poll, [poll, waited, action] {
        if (auto* screen = qobject_cast<T*>(QApplication::activeModalWidget())) {
            poll->stop();
            poll->deleteLater();
            action(screen);
        } else if (waited->elapsed() > 5000) {
            report('E', QStringLiteral("no %1 came up").arg(QLatin1String(T::staticMetaObject.className())));
            poll->stop();
            poll->deleteLater();
        }
    });
    poll->start(5);
    return poll;
}

// One terminal: the map up, its tick timed, and a waiter at the keyboard.
class Terminal : public QObject {
public:
    Terminal(const Options& options)
        : m_options(options), m_random(options.seed * 7919u + options.terminal) {}

    void start() {
        Frm_Principal& mapa = Frm_Principal::instance();
        mapa.Show();
        // Keys reach a screen's handlers through the active window, as at a real terminal.
        mapa.activateWindow();
        if (!QTest::qWaitForWindowActive(&mapa))
            report('E', QStringLiteral("the map never became the active window"));
        // The map's own timer gives way to one that times each tick; the handler is the same.
        mapa.Timer->setEnabled(false);
        m_tick = new ::Timer(QStringLiteral("simTick"), 1000, this);
        connect(m_tick, &::Timer::Tick, this, [this] {
            if (!Form::isLoaded<Frm_Principal>())
                return;
            QElapsedTimer clock;
            clock.start();
            Frm_Principal::instance().Timer_Timer();
            report('T', QString::number(clock.nsecsElapsed() / 1e6, 'f', 3));
        });
        m_tick->setEnabled(true);
        m_deadline.start();
        // A terminal left on a screen the waiter cannot leave is a finding, not a hang of the run.
        QTimer::singleShot((m_options.seconds + 20) * 1000, this, [] {
            QWidget* modal = QApplication::activeModalWidget();
            report('E', QStringLiteral("still on %1 after the run")
                            .arg(QLatin1String(modal ? modal->metaObject()->className() : "the map")));
            std::_Exit(4);
        });
        QTimer::singleShot(pause(), this, [this] { waiter(); });
    }

private:
    int pause() { return 300 + int(m_random.bounded(1200)); }

    // One visit to a table, then the next after a pause, until the time is up.
    void waiter() {
        if (m_deadline.elapsed() >= m_options.seconds * 1000LL) {
            m_tick->setEnabled(false);
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
            return;
        }
        try {
            visit();
        } catch (const RuntimeError& error) {
            report('E', describe(error));
        } catch (const ProcessEnded&) {
            report('E', QStringLiteral("the process ended"));
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
            return;
        }
        QTimer::singleShot(pause(), this, [this] { waiter(); });
    }

    void visit() {
        Frm_Principal& mapa = Frm_Principal::instance();
        const int mesa = 1 + int(m_random.bounded(quint32(qMax<qint16>(1, quantidadeMesas))));
        const int itens = 1 + int(m_random.bounded(4u));
        QVector<int> codigos;
        for (int i = 0; i < itens; ++i)
            codigos << kCodes[m_random.bounded(quint32(std::size(kCodes)))];
        const QString senha = m_options.password;
        QList<QPointer<QTimer>> vigias;
        vigias << onNextModal<Frm_Acesso>([senha](Frm_Acesso* f) {
            f->activateWindow();
            if (!QTest::qWaitForWindowActive(f))
                report('E', QStringLiteral("the password prompt never became the active window"));
            QTest::keyClicks(f->Text_senha, senha);
            QTest::keyClick(f->Text_senha, Qt::Key_Return);
        });
        vigias << onNextModal<Frm_Mesa>([this, codigos](Frm_Mesa* f) { ring(*f, codigos); });
        // What a number and Enter in the quick access field run.
        mapa.activateWindow();
        mapa.card_Click(qint16(mesa - 1));
        for (const QPointer<QTimer>& vigia : std::as_const(vigias))
            delete vigia.data();
    }

    // Codes typed and Enter, each timed to its row on the list; then Escape sends and leaves.
    void ring(Frm_Mesa& f, const QVector<int>& codigos) {
        f.activateWindow();
        if (!QTest::qWaitForWindowActive(&f))
            report('E', QStringLiteral("the table screen never became the active window"));
        QPointer<Frm_Mesa> tela(&f);
        for (int codigo : codigos) {
            if (!tela || !f.Text_Codigo->isEnabled())
                break;
            const int antes = f.List_Itens->topLevelItemCount();
            QElapsedTimer clock;
            clock.start();
            QTest::keyClicks(f.Text_Codigo, QString::number(codigo));
            QTest::keyClick(f.Text_Codigo, Qt::Key_Return);
            if (!tela)
                break;
            const int depois = f.List_Itens->topLevelItemCount();
            report('K', QString::number(clock.nsecsElapsed() / 1e6, 'f', 3));
            if (depois == antes + 1)
                report('R', QString::number(codigo));
        }
        if (tela)
            fechar(*tela);
    }

    // How the waiter leaves the table: mostly sending, else the slip, a payment of what is open,
    // the first item moved to another table, or a cancellation; each by the screen's own keys.
    void fechar(Frm_Mesa& f) {
        QPointer<Frm_Mesa> tela(&f);
        const quint32 sorte = m_random.bounded(100u);
        if (sorte < 45) {
            QTest::keyClick(&f, Qt::Key_Escape); // Enviar
            return;
        }
        if (sorte < 60) {
            QTest::keyClick(&f, Qt::Key_F4); // Conferência: the slip, and the screen closes
        } else if (sorte < 78) {
            const QPointer<QTimer> vigia = onNextModal<Frm_Recebimento>([](Frm_Recebimento* r) {
                QTest::keyClick(r->Text_Valor, Qt::Key_F3); // what is open, on the card
                QTest::keyClick(r->Text_Valor, Qt::Key_Return);
                if (Form::isLoaded<Frm_Recebimento>())
                    QTest::keyClick(r->Text_Valor, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F5);
            delete vigia.data();
        } else if (sorte < 90) {
            // A destination that is free, blocked or another waiter's is refused with a box.
            const int destino = 1 + int(m_random.bounded(quint32(qMax<qint16>(1, quantidadeMesas))));
            if (QTreeWidgetItem* primeiro = f.List_Itens->topLevelItem(0))
                primeiro->setSelected(true);
            const QPointer<QTimer> vigia = onNextModal<Frm_Transferir>([destino](Frm_Transferir* t) {
                QTest::keyClicks(t->Text_Destino, QString::number(destino));
                QTest::keyClick(t->Text_Destino, Qt::Key_Return);
                if (Form::isLoaded<Frm_Transferir>())
                    QTest::keyClick(t->Text_Destino, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F3);
            delete vigia.data();
        } else {
            const QPointer<QTimer> vigia = onNextModal<Frm_Cancelamento>([](Frm_Cancelamento* c) {
                QTest::keyClicks(c->Text_Cancelamento, QStringLiteral("cliente desistiu do pedido na mesa"));
                QTest::keyClick(c->Text_Cancelamento, Qt::Key_F1);
                if (Form::isLoaded<Frm_Cancelamento>())
                    QTest::keyClick(c->Text_Cancelamento, Qt::Key_Escape);
            });
            QTest::keyClick(&f, Qt::Key_F6);
            delete vigia.data();
        }
        if (tela && Form::isLoaded<Frm_Mesa>())
            QTest::keyClick(tela.data(), Qt::Key_Escape);
    }

    Options m_options;
    QRandomGenerator m_random;
    ::Timer* m_tick = nullptr;
    QElapsedTimer m_deadline;
};

int runTerminal(const Options& options) {
    // A failure that ends the program ends this terminal too, as it would at the bar.
    setEndProcessHandler([](int code) {
        report('X', QString::number(code));
        std::_Exit(code == 0 ? 3 : code);
    });
    setMsgBoxHook([](const MsgBoxRecord& box) {
        // Questions are answered yes (a free table is started); every other box is reported, a
        // critical one as an error.
        if ((box.style & 0x7) == vbYesNo)
            return vbYes;
        QString text = box.prompt;
        text.replace(QLatin1Char('\n'), QLatin1Char(' '));
        report((box.style & vbCritical) == vbCritical ? 'E' : 'N', text.simplified());
        return vbOK;
    });
    // Each terminal is a machine of its own: its folders, and so its single-instance lock.
    QTemporaryDir machine;
    setProgramFolder(machine.path());
    setMachineFolder(machine.path());
    setUpdaterFolder(machine.path());
    // Its printers print into folders of that machine, as the demo's do without CUPS.
    const QString impressoras = machine.filePath(QStringLiteral("printers"));
    for (const char* fila : {"COZINHA", "BAR", "COPA", "CONFERENCIA"})
        QDir().mkpath(impressoras + QLatin1Char('/') + QLatin1String(fila));
    QFile padrao(impressoras + QStringLiteral("/.default"));
    if (padrao.open(QIODevice::WriteOnly))
        padrao.write("CONFERENCIA\n");
    padrao.close();
    WritePrivateProfileString(QStringLiteral("PRINTERS"), QStringLiteral("CONFERENCIA"),
                              QStringLiteral("CONFERENCIA"), machine.filePath(QStringLiteral("config.ini")));
    qputenv("ZARVEL_PDF_PRINTERS", impressoras.toLocal8Bit());
    conexaoLocal = adoConnectionString(options.server);
    servidorLocal = options.server;
    try {
        if (!lerDadosLocais())
            return 1;
        Terminal terminal(options);
        terminal.start();
        const int code = QApplication::exec();
        Form::unloadAll();
        closePooledDatabases();
        return code;
    } catch (const RuntimeError& error) {
        report('E', describe(error));
    } catch (const ProcessEnded&) {
        report('E', QStringLiteral("the process ended"));
    }
    return 1;
}

double percentile(QVector<double> values, double p) {
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    const int index = qBound(0, int(std::ceil(p * values.size())) - 1, int(values.size()) - 1);
    return values.at(index);
}

qlonglong itemsInStore(const QString& connectionString) {
    Connection cn;
    cn.Open(connectionString);
    return cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Tb_Comandas_Itens"))
        .Fields(0)
        .Value()
        .toLongLong();
}

// The measures of every terminal, from their outputs.
struct Totals {
    QVector<double> ticks;
    QVector<double> keys;
    qlonglong rung = 0;
    int ended = 0;              // terminals that a failure ended
    QMap<QString, int> errors;  // by text
    QMap<QString, int> notices; // boxes that are not failures
    void read(const QByteArray& output) {
        const QList<QByteArray> lines = output.split('\n');
        for (const QByteArray& line : lines) {
            if (line.size() < 2)
                continue;
            const QString text = QString::fromUtf8(line.mid(2));
            switch (line.at(0)) {
            case 'T':
                ticks << text.toDouble();
                break;
            case 'K':
                keys << text.toDouble();
                break;
            case 'R':
                ++rung;
                break;
            case 'E':
                ++errors[text];
                break;
            case 'N':
                ++notices[text];
                break;
            case 'X':
                ++ended;
                break;
            default:
                break;
            }
        }
    }
};

int runSimulation(const Options& options) {
    const QString connectionString = adoConnectionString(options.server);
    qlonglong before = 0;
    try {
        before = itemsInStore(connectionString);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "zarvel-sim: %s\n", qPrintable(describe(error)));
        return 1;
    }
    // A terminal that a failure ends is started again for the rest of the run, as the waiter
    // would start the till again; its new life draws other numbers.
    QElapsedTimer run;
    run.start();
    const auto startTerminal = [&](int i, int life) {
        const int left = options.seconds - int(run.elapsed() / 1000);
        auto* process = new QProcess(qApp);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QCoreApplication::applicationFilePath(),
                       {QStringLiteral("--server"), options.server, QStringLiteral("--seconds"),
                        QString::number(left), QStringLiteral("--seed"),
                        QString::number(options.seed + 7717u * quint32(life)), QStringLiteral("--password"),
                        options.password, QStringLiteral("--terminal"), QString::number(i)});
        return process;
    };
    QVector<QProcess*> processes(options.terminals);
    QVector<int> lives(options.terminals, 0);
    QVector<QByteArray> output(options.terminals);
    for (int i = 0; i < options.terminals; ++i)
        processes[i] = startTerminal(i, 0);
    Totals totals;
    int failed = 0;
    int restarts = 0;
    for (bool running = true; running;) {
        running = false;
        for (int i = 0; i < options.terminals; ++i) {
            QProcess*& process = processes[i];
            if (!process)
                continue;
            // Read as it comes, so that no terminal waits on a full pipe; a process that finished
            // while another was waited on is already NotRunning, which waitForFinished won't report.
            output[i] += process->readAllStandardOutput();
            if (process->state() != QProcess::NotRunning && !process->waitForFinished(50)) {
                running = true;
                continue;
            }
            output[i] += process->readAllStandardOutput();
            totals.read(output[i]);
            output[i].clear();
            const bool endedByFailure =
                process->exitStatus() == QProcess::NormalExit && process->exitCode() == 1;
            if (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
                ++failed;
            delete process;
            process = nullptr;
            if (endedByFailure && run.elapsed() < (options.seconds - 5) * 1000LL) {
                process = startTerminal(i, ++lives[i]);
                ++restarts;
                running = true;
            }
        }
    }
    const qlonglong found = itemsInStore(connectionString) - before;
    closePooledDatabases();

    std::printf("terminals %d, %d s, seed %u, server %s\n", options.terminals, options.seconds, options.seed,
                qPrintable(options.server));
    std::printf("items rung %lld, items found %lld, lost %lld\n", totals.rung, found, totals.rung - found);
    std::printf("map tick: %d ticks, p50 %.2f ms, p99 %.2f ms\n", int(totals.ticks.size()),
                percentile(totals.ticks, 0.5), percentile(totals.ticks, 0.99));
    std::printf("keyboard path: %d codes, p50 %.2f ms, p99 %.2f ms\n", int(totals.keys.size()),
                percentile(totals.keys, 0.5), percentile(totals.keys, 0.99));
    std::printf("terminals ended by a failure: %d (started again: %d), terminals that failed otherwise: %d\n",
                totals.ended, restarts, failed - totals.ended);
    for (auto it = totals.errors.cbegin(); it != totals.errors.cend(); ++it)
        std::printf("error x%d: %s\n", it.value(), qPrintable(it.key()));
    for (auto it = totals.notices.cbegin(); it != totals.notices.cend(); ++it)
        std::printf("notice x%d: %s\n", it.value(), qPrintable(it.key()));
    return totals.errors.isEmpty() && failed == 0 && totals.rung == found ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    // The offscreen platform's remark on every window shown says nothing about the run.
    static const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.contains(QLatin1String("propagateSizeHints")))
                previous(type, context, message);
        });
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application app(argc, argv); // the screens' key preview lives in the application
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Many terminals of the till on one database."));
    parser.addHelpOption();
    const QCommandLineOption server(QStringLiteral("server"), QStringLiteral("IPCONEXAO of the database"),
                                    QStringLiteral("address"));
    const QCommandLineOption terminals(QStringLiteral("terminals"), QStringLiteral("terminal processes"),
                                       QStringLiteral("n"), QStringLiteral("4"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("length of the run"),
                                     QStringLiteral("s"), QStringLiteral("60"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("random seed"), QStringLiteral("k"),
                                  QStringLiteral("1"));
    const QCommandLineOption password(QStringLiteral("password"), QStringLiteral("the waiters' password"),
                                      QStringLiteral("p"), QStringLiteral("1234"));
    const QCommandLineOption terminal(QStringLiteral("terminal"), QStringLiteral("run as terminal i"),
                                      QStringLiteral("i"));
    parser.addOptions({server, terminals, seconds, seed, password, terminal});
    parser.process(app);
    Options options;
    options.server = parser.value(server);
    options.terminals = qMax(1, parser.value(terminals).toInt());
    options.seconds = qMax(1, parser.value(seconds).toInt());
    options.seed = parser.value(seed).toUInt();
    options.password = parser.value(password);
    options.terminal = parser.isSet(terminal) ? parser.value(terminal).toInt() : -1;
    if (options.server.isEmpty()) {
        std::fprintf(stderr, "zarvel-sim: --server is required (a database file, or pg:host:port)\n");
        return 2;
    }
    return options.terminal >= 0 ? runTerminal(options) : runSimulation(options);
}
