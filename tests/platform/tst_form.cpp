#include "platform/Form.h"
#include "platform/RuntimeError.h"
#include "platform/Timer.h"
#include "support/Support.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

namespace {
// A screen that records what it sees and can be told to swallow, change or fail.
class Frm_Teste : public Form {
    Q_OBJECT

public:
    Frm_Teste() {
        KeyPreview = true;
        Text_a = new QLineEdit(this);
        Text_a->setObjectName(QStringLiteral("Text_a"));
        onKeyDown(Text_a, &Frm_Teste::Text_a_KeyDown);
        onKeyPress(Text_a, &Frm_Teste::Text_a_KeyPress);
        onKeyUp(Text_a, &Frm_Teste::Text_a_KeyUp);
        onMouseDown(Text_a, &Frm_Teste::Text_a_MouseDown);
    }
    static Frm_Teste& instance() { return defaultInstance<Frm_Teste>(); }

    QLineEdit* Text_a;
    QStringList log;
    int swallowCode = -1;
    int changeFrom = 0, changeTo = 0;
    bool failOnKey = false;
    bool unloadOnEscape = false;
    bool cancelUnload = false;
    static inline bool failOnLoad = false;
    bool boxOnMouseDown = false;

protected:
    void Form_Load() override {
        log << QStringLiteral("Load");
        if (failOnLoad)
            raiseError(vbErr::Overflow);
    }
    void Form_Activate() override { log << QStringLiteral("Activate"); }
    void Form_Unload(int& Cancel) override {
        log << QStringLiteral("Unload");
        if (cancelUnload)
            Cancel = 1;
    }
    void Form_KeyDown(int& KeyCode, int Shift) override {
        log << QStringLiteral("KeyDown %1 %2").arg(KeyCode).arg(Shift);
        if (failOnKey)
            raiseError(vbErr::Overflow);
        if (KeyCode == swallowCode)
            KeyCode = 0;
        if (KeyCode == 27 && unloadOnEscape)
            Unload();
    }
    void Form_KeyPress(int& KeyAscii) override {
        log << QStringLiteral("KeyPress %1").arg(KeyAscii);
        if (KeyAscii == changeFrom)
            KeyAscii = changeTo;
    }
    void Text_a_KeyDown(int& KeyCode, int) { log << QStringLiteral("Text_a_KeyDown %1").arg(KeyCode); }
    void Text_a_KeyPress(int& KeyAscii) { log << QStringLiteral("Text_a_KeyPress %1").arg(KeyAscii); }
    void Text_a_KeyUp(int& KeyCode, int) { log << QStringLiteral("Text_a_KeyUp %1").arg(KeyCode); }
    void Text_a_MouseDown(int Button, int Shift, double, double) {
        log << QStringLiteral("Text_a_MouseDown %1 %2").arg(Button).arg(Shift);
        if (boxOnMouseDown)
            MsgBox(QStringLiteral("recusa"));
    }
};

class Frm_Filho : public Form {
    Q_OBJECT

public:
    static Frm_Filho& instance() { return defaultInstance<Frm_Filho>(); }
};
} // namespace

class TestForm : public QObject {
    Q_OBJECT

private slots:
    void keyCodes_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("code");
        QTest::newRow("F1") << int(Qt::Key_F1) << 0 << 112;
        QTest::newRow("keypad Enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << 13;
        QTest::newRow("digit 7") << int(Qt::Key_7) << 0 << 55;
        QTest::newRow("keypad 7") << int(Qt::Key_7) << int(Qt::KeypadModifier) << 103;
        QTest::newRow("keypad plus") << int(Qt::Key_Plus) << int(Qt::KeypadModifier) << 107;
        // Every key that types a character has its code, so a KeyUp handler sees it.
        QTest::newRow("exclamation") << int(Qt::Key_Exclam) << int(Qt::ShiftModifier) << 49;
        QTest::newRow("Ã") << int(Qt::Key_Atilde) << 0 << 65;
        QTest::newRow("Ç") << int(Qt::Key_Ccedilla) << 0 << 67;
    }
    void keyCodes() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(int, code);
        QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(Form::vbKeyCode(&event), code);
    }

    void defaultInstanceIsLoadedOnceAndRenewedAfterUnload() {
        TestEnvironment env;
        QVERIFY(!Form::isLoaded<Frm_Teste>());
        Frm_Teste* first = &Frm_Teste::instance();
        QCOMPARE(first->log, QStringList{QStringLiteral("Load")});
        QCOMPARE(&Frm_Teste::instance(), first);
        first->cancelUnload = true;
        first->Unload();
        QVERIFY(Form::isLoaded<Frm_Teste>());
        first->cancelUnload = false;
        first->Unload();
        QVERIFY(!Form::isLoaded<Frm_Teste>());
        QVERIFY(&Frm_Teste::instance() != first);
    }

    void keyPreviewSeesTheKeyFirstAndCanSwallowOrChangeIt() {
        TestEnvironment env;
        Frm_Teste& f = Frm_Teste::instance();
        f.Show();
        f.Text_a->setFocus();
        f.log.clear();
        QTest::keyClick(f.Text_a, Qt::Key_5);
        QCOMPARE(f.Text_a->text(), QStringLiteral("5"));
        QCOMPARE(f.log, (QStringList{QStringLiteral("KeyDown 53 0"), QStringLiteral("Text_a_KeyDown 53"),
                                     QStringLiteral("KeyPress 53"), QStringLiteral("Text_a_KeyPress 53"),
                                     QStringLiteral("Text_a_KeyUp 53")}));
        // KeyCode = 0 stops the control's KeyDown only: the KeyPress comes and the digit is typed.
        f.log.clear();
        f.swallowCode = 54;
        QTest::keyClick(f.Text_a, Qt::Key_6);
        QCOMPARE(f.Text_a->text(), QStringLiteral("56"));
        QCOMPARE(f.log,
                 (QStringList{QStringLiteral("KeyDown 54 0"), QStringLiteral("KeyPress 54"),
                              QStringLiteral("Text_a_KeyPress 54"), QStringLiteral("Text_a_KeyUp 54")}));
        f.changeFrom = 'a';
        f.changeTo = 'A';
        QTest::keyClicks(f.Text_a, QStringLiteral("ab"));
        QCOMPARE(f.Text_a->text(), QStringLiteral("56Ab"));
        f.changeTo = 0;
        QTest::keyClick(f.Text_a, Qt::Key_A);
        QCOMPARE(f.Text_a->text(), QStringLiteral("56Ab"));
        // Escape leaves a screen only when its handler says so.
        QTest::keyClick(f.Text_a, Qt::Key_Escape);
        QVERIFY(f.isVisible());
        f.unloadOnEscape = true;
        QTest::keyClick(f.Text_a, Qt::Key_Escape);
        QVERIFY(!Form::isLoaded<Frm_Teste>());
    }

    void modalShowReturnsAfterUnloadAndReactivatesTheParent() {
        TestEnvironment env;
        Frm_Teste& parent = Frm_Teste::instance();
        parent.Show();
        QCOMPARE(parent.log, (QStringList{QStringLiteral("Load"), QStringLiteral("Activate")}));
        bool seen = false;
        onNextModal<Frm_Filho>([&](Frm_Filho* child) {
            seen = true;
            child->Unload();
        });
        Frm_Filho::instance().ShowModal();
        QVERIFY(seen);
        QCOMPARE(parent.log.last(), QStringLiteral("Activate"));
        QCOMPARE(parent.log.count(QStringLiteral("Activate")), 2);
    }

    void aFailedLoadLeavesNoInstanceAndTheNextTouchLoadsAgain() {
        TestEnvironment env;
        Frm_Teste::failOnLoad = true;
        QCOMPARE(raisedBy([] { Frm_Teste::instance().ShowModal(); }).Number, 6);
        QVERIFY(!Form::isLoaded<Frm_Teste>());
        Frm_Teste::failOnLoad = false;
        QCOMPARE(Frm_Teste::instance().log, QStringList{QStringLiteral("Load")});
    }

    // A box shown by the handler takes the press: the control never sees it.
    void aMouseDownThatShowsABoxTakesThePress_data() {
        QTest::addColumn<bool>("box");
        QTest::newRow("no box") << false;
        QTest::newRow("box") << true;
    }
    void aMouseDownThatShowsABoxTakesThePress() {
        QFETCH(bool, box);
        TestEnvironment env;
        Frm_Teste& f = Frm_Teste::instance();
        f.Show();
        f.Text_a->setText(QStringLiteral("abc"));
        f.Text_a->setCursorPosition(3);
        f.boxOnMouseDown = box;
        f.log.clear();
        QTest::mouseClick(f.Text_a, Qt::RightButton, Qt::ShiftModifier);
        QTest::mousePress(f.Text_a, Qt::LeftButton, {}, QPoint(2, f.Text_a->height() / 2));
        QCOMPARE(f.log, (QStringList{QStringLiteral("Text_a_MouseDown 2 1"),
                                     QStringLiteral("Text_a_MouseDown 1 0")}));
        QCOMPARE(f.Text_a->cursorPosition(), box ? 3 : 0);
        QTest::mouseRelease(f.Text_a, Qt::LeftButton);
    }

    // Maps started at different moments must not tick together: the idle rule's race depends on it.
    void timersEnabledAtDifferentMomentsTickAtDifferentMoments() {
        QElapsedTimer clock;
        clock.start();
        std::vector<std::unique_ptr<Timer>> timers;
        QList<qint64> firstTick(4, -1);
        for (int i = 0; i < 4; ++i) {
            if (i > 0)
                QTest::qWait(250);
            timers.push_back(std::make_unique<Timer>(QStringLiteral("Timer"), 1000, nullptr));
            const qint64 enabledAt = clock.elapsed();
            QObject::connect(timers.back().get(), &Timer::Tick, [&, i, enabledAt] {
                if (firstTick[i] < 0)
                    firstTick[i] = clock.elapsed() - enabledAt;
            });
            timers.back()->setEnabled(true);
        }
        QTRY_VERIFY_WITH_TIMEOUT(!firstTick.contains(-1), 3000);
        for (qint64 t : std::as_const(firstTick))
            QVERIFY2(t >= 1000 && t < 1100, qPrintable(QString::number(t)));
    }

    void aTickIsNotDeliveredAgainWhileItsHandlerRuns() {
        Timer timer(QStringLiteral("Timer"), 20, nullptr);
        int depth = 0, deepest = 0, ticks = 0;
        QObject::connect(&timer, &Timer::Tick, [&] {
            ++ticks;
            deepest = std::max(deepest, ++depth);
            if (ticks == 1)
                QTest::qWait(150); // a message box or DoEvents in the handler
            --depth;
        });
        timer.setEnabled(true);
        QTRY_VERIFY(ticks >= 3);
        QCOMPARE(deepest, 1);
    }

    // Also under a bare X server, where no window manager acts on the state.
    void aScreenThatStartsMaximizedCoversTheAvailableArea() {
        TestEnvironment env;
        Frm_Filho& f = Frm_Filho::instance();
        f.resize(300, 200);
        f.setWindowState(Qt::WindowMaximized);
        f.Show();
        QTRY_COMPARE(f.frameGeometry().size(), f.screen()->availableGeometry().size());
    }

    void errorInAKeyHandlerReachesTheReportAndEndsTheProcess() {
        TestEnvironment env;
        Frm_Teste& f = Frm_Teste::instance();
        f.Show();
        f.failOnKey = true;
        QTest::keyClick(f.Text_a, Qt::Key_1);
        QVERIFY(processEnded());
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().first().prompt, QStringLiteral("Run-time error '6':\n\nOverflow"));
        QCOMPARE(boxes().first().title, QStringLiteral("Zarvel"));
        QVERIFY(f.Text_a->text().isEmpty());
    }
};

ZARVEL_TEST(TestForm)
#include "tst_form.moc"
