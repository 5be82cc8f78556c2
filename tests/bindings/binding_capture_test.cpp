#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QTest>
#include <QTimer>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>

#include "audio_input/virtual_pad.h"
#include "bindings/stored_bindings.h"

namespace velmora::test {
namespace {

// Made before main has an application.
InputBindings madeTooEarly;

// The ticks of a capture's timer, as they pass through the application.
class Ticks : public QObject {
public:
    Ticks() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        seen += event->type() == QEvent::Timer && qobject_cast<QTimer*>(watched);
        return false;
    }
    // Waits for two of them, the first of which may have begun before, or for the capture's end.
    bool waitForTwo(const InputBindings& bindings) {
        const int enough = seen + 2;
        return QTest::qWaitFor([&] { return seen >= enough || !bindings.listening(); });
    }
    int seen = 0;
};

// Something of the page that has the keyboard.
class Widget : public QObject {
public:
    // Whether the key came through to the page.
    bool press(int key, bool repeat = false, QEvent::Type type = QEvent::KeyPress) {
        arrived = false;
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        QCoreApplication::sendEvent(this, &event);
        return arrived;
    }
    bool event(QEvent* /*event*/) override {
        arrived = true;
        return true;
    }

private:
    bool arrived = false;
};

class BindingCaptureTest : public testing::Test {
protected:
    void SetUp() override {
        bindingStore().clear();
        bindings.setSystemId("snes");
        emitted.take();
    }

    // What a capture for the button stores; empty when it goes on.
    std::string captured(const VirtualPad& pad, std::initializer_list<int> held) {
        bindingStore().clear();
        pad.hold(held);
        bindings.listen(8);
        EXPECT_TRUE(ticks.waitForTwo(bindings));
        bindings.cancelListen();
        return stored("controls/gamepad/snes/8");
    }

    InputBindings bindings;
    Signals emitted{bindings};
    Widget widget;
    Ticks ticks;
};

TEST_F(BindingCaptureTest, StoresTheKeysOfTheTable) {
    QMap<int, int> scancodes{{Qt::Key_Return, 40}, {Qt::Key_Enter, 40}, {Qt::Key_Backspace, 42},
                             {Qt::Key_Tab, 43},    {Qt::Key_Right, 79}, {Qt::Key_Left, 80},
                             {Qt::Key_Down, 81},   {Qt::Key_Up, 82},    {Qt::Key_Control, 224},
                             {Qt::Key_Shift, 225}, {Qt::Key_Alt, 226}};
    const std::pair<int, std::string> runs[] = {
        {4, "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"}, {44, " -=[]\\"}, {51, ";'"}, {54, ",./"}};
    for (auto [scancode, keys] : runs)
        for (const char key : keys)
            scancodes[key] = scancode++;
    for (int i = 0; i < 12; ++i)
        scancodes[Qt::Key_F1 + i] = 58 + i;
    // From Latin letters on to the keys that only Qt numbers, Escape alone left out.
    for (int key = 0; key < Qt::Key_Direction_L; key = key == 255 ? Qt::Key_Tab : key + 1) {
        const bool bound = scancodes.contains(key);
        bindings.listen(102);
        emitted.take();
        EXPECT_FALSE(widget.press(key)) << key << " went on to the page";
        EXPECT_EQ(bindings.listening(), !bound) << key;
        EXPECT_EQ(emitted.take(), bound ? "LM" : "") << key;
        const std::string value = stored("controls/keyboard/special/102");
        EXPECT_TRUE(!bound || value == "key:" + std::to_string(scancodes[key])) << key << value;
    }
}

TEST_F(BindingCaptureTest, KeysPassWhileNoCaptureRuns) {
    EXPECT_TRUE(widget.press(Qt::Key_A));
    bindings.listen(8);
    EXPECT_TRUE(widget.press(Qt::Key_A, false, QEvent::KeyRelease));
    EXPECT_TRUE(bindings.listening());
    bindings.cancelListen();
    EXPECT_TRUE(widget.press(Qt::Key_A));
    EXPECT_TRUE(bindingStore().allKeys().isEmpty());
}

TEST_F(BindingCaptureTest, MovesToTheButtonNamedLast) {
    EXPECT_EQ(bindings.listeningId(), -1);
    EXPECT_EQ(bindings.listeningName(), "");
    bindings.listen(8);
    bindings.listen(102);
    EXPECT_EQ(bindings.listeningId(), 102);
    EXPECT_EQ(bindings.listeningName(), "Quick Save");
    bindings.cancelListen();
    EXPECT_EQ(bindings.listeningId(), -1);
    bindings.cancelListen();
    EXPECT_EQ(emitted.take(), "LLL");
}

TEST_F(BindingCaptureTest, EscapeEndsItOnEitherDeviceUnlessItIsHeldFromBefore) {
    for (const char* device : {"keyboard", "gamepad"}) {
        bindings.setDevice(device);
        bindings.listen(8);
        EXPECT_FALSE(widget.press(Qt::Key_Escape, true));
        EXPECT_FALSE(widget.press(Qt::Key_A, true));
        EXPECT_TRUE(bindings.listening()) << device;
        EXPECT_FALSE(widget.press(Qt::Key_Escape));
        EXPECT_FALSE(bindings.listening()) << device;
    }
    EXPECT_TRUE(bindingStore().allKeys().isEmpty());
}

TEST_F(BindingCaptureTest, AChangeOfWhatIsEditedEndsIt) {
    bindings.listen(8);
    bindings.setSystemId("snes");
    bindings.setDevice("any other word");
    bindings.beginEdit();
    bindings.commitEdit();
    EXPECT_EQ(emitted.take(), "L");
    bindings.setSystemId("gba");
    EXPECT_EQ(emitted.take(), "LM");
    bindings.listen(8);
    bindings.setDevice("gamepad");
    EXPECT_EQ(emitted.take(), "LLM");
    bindings.setDevice("Gamepad");
    EXPECT_EQ(bindings.device(), "keyboard");
}

TEST_F(BindingCaptureTest, StoresTheLowestPadButtonThatIsDown) {
    const VirtualPad first("First");
    const VirtualPad second("Second");
    bindings.setDevice("gamepad");
    EXPECT_EQ(captured(second, {3}), "") << "only the first pad is read";
    EXPECT_EQ(captured(first, {}), "");
    EXPECT_EQ(emitted.take(), "MLNLLL");
    for (int button = SDL_GAMEPAD_BUTTON_COUNT - 1; button >= 0; --button)
        EXPECT_EQ(captured(first, {button, 25}), "pad:" + std::to_string(button));
    EXPECT_FALSE(SDL_GetGamepadFromID(first.id)) << "open for a look only";
}

TEST_F(BindingCaptureTest, TakesNothingFromTheOtherDevice) {
    const VirtualPad pad;
    bindings.prepare();
    pad.hold({5});
    bindings.listen(100);
    EXPECT_TRUE(ticks.waitForTwo(bindings));
    EXPECT_TRUE(bindings.listening()) << "a pad's button is no key";
    pad.hold({});
    bindings.setDevice("gamepad");
    bindings.listen(100);
    emitted.take();
    EXPECT_FALSE(widget.press(Qt::Key_A));
    EXPECT_TRUE(bindings.listening()) << "a key is no pad's button";
    pad.hold({5});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !bindings.listening(); }));
    EXPECT_EQ(emitted.take(), "LM");
    EXPECT_EQ(stored("controls/gamepad/special/100"), "pad:5");
}

TEST_F(BindingCaptureTest, PumpsEventsForAPadThatAGameHoldsOpen) {
    const VirtualPad pad;
    SDL_Gamepad* const games = SDL_OpenGamepad(pad.id);
    bindings.setDevice("gamepad");
    EXPECT_EQ(captured(pad, {7}), "pad:7");
    EXPECT_TRUE(SDL_GetGamepadButton(games, SDL_GAMEPAD_BUTTON_LEFT_STICK)) << "and leaves open";
    SDL_CloseGamepad(games);
}

TEST_F(BindingCaptureTest, BringsSdlUpForItself) {
    EXPECT_EQ(SDL_WasInit(0), 0U);
    bindings.prepare();
    EXPECT_EQ(SDL_WasInit(SDL_INIT_GAMEPAD | SDL_INIT_EVENTS), SDL_INIT_GAMEPAD | SDL_INIT_EVENTS);
    EXPECT_EQ(bindings.gamepadName(), "No gamepad connected");
    EXPECT_EQ(emitted.take(), "");
}

TEST_F(BindingCaptureTest, FollowsTheNameOfTheFirstPad) {
    const VirtualPad pad("Manette é ☂");
    bindings.prepare();
    bindings.prepare();
    EXPECT_EQ(bindings.gamepadName(), "Manette é ☂");
    EXPECT_EQ(emitted.take(), "N");
    bindings.listen(8);
    pad.unplug();
    EXPECT_TRUE(ticks.waitForTwo(bindings));
    EXPECT_EQ(bindings.gamepadName(), "No gamepad connected");
    EXPECT_EQ(emitted.take(), "LN");
    EXPECT_TRUE(bindings.listening());
    const VirtualPad nameless("");
    EXPECT_TRUE(ticks.waitForTwo(bindings));
    EXPECT_EQ(bindings.gamepadName(), "Gamepad");
}

TEST_F(BindingCaptureTest, TicksSixtyTimesASecondAndNotOnceItIsOver) {
    const QDeadlineTimer soon(20);
    bindings.listen(8);
    EXPECT_TRUE(ticks.waitForTwo(bindings));
    EXPECT_TRUE(soon.hasExpired()) << "as fast as the machine can";
    bindings.cancelListen();
    const int seen = ticks.seen;
    QTest::qWait(50);
    EXPECT_EQ(ticks.seen, seen);
}

TEST_F(BindingCaptureTest, WithoutAnApplicationOnlyPadsAreCaught) {
    const VirtualPad pad;
    madeTooEarly.listen(8);
    EXPECT_TRUE(widget.press(Qt::Key_A));
    EXPECT_TRUE(madeTooEarly.listening());
    madeTooEarly.setDevice("gamepad");
    madeTooEarly.listen(8);
    pad.hold({SDL_GAMEPAD_BUTTON_WEST});
    EXPECT_TRUE(QTest::qWaitFor([] { return !madeTooEarly.listening(); }));
    EXPECT_EQ(stored("controls/gamepad/nes/8"), "pad:2");
}

} // namespace
} // namespace velmora::test
