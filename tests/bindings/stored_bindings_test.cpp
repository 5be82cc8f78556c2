#include "bindings/stored_bindings.h"

#include <algorithm>
#include <climits>
#include <memory>

#include <SDL3/SDL.h>
#include <gtest/gtest.h>

#include "audio_input/virtual_pad.h"

namespace velmora::test {
namespace {

class StoredBindingsTest : public testing::Test {
protected:
    void SetUp() override { bindingStore().clear(); }

    InputBindings bindings;
};

QList<int> idsOf(const QVariantList& rows) {
    QList<int> ids;
    for (const QVariant& row : rows)
        ids += row.toMap()["id"].toInt();
    return ids;
}

TEST_F(StoredBindingsTest, ShowsTheButtonsOfTheSystem) {
    const QList<int> eight{4, 5, 6, 7, 0, 8, 2, 3};
    const QList<int> ten{4, 5, 6, 7, 1, 0, 8, 3, 10, 11};
    const QList<int> twelve{4, 5, 6, 7, 0, 8, 1, 9, 10, 11, 2, 3};
    const QList<int> fourteen = twelve + QList<int>{12, 13};
    const struct {
        const char* system;
        const char* style;
        QList<int> ids;
    } cases[] = {{"fds", "nes", eight},      {"pcfx", "pce", eight},  {"coleco", "stick", eight},
                 {"segacd", "genesis", ten}, {"gba", "gba", twelve},  {"psx", "psx", fourteen},
                 {"snes", "snes", twelve},   {"NES", "snes", twelve}, {"", "snes", twelve}};
    for (const auto& [system, style, ids] : cases) {
        bindings.setSystemId(system);
        EXPECT_EQ(bindings.padStyle(), style) << system;
        EXPECT_EQ(idsOf(bindings.buttons()), ids) << system;
    }
    EXPECT_EQ(idsOf(bindings.specials()),
              QList<int>({100, 101, 102, 103, 104, 105, 106, 107, 108, 109}));
    EXPECT_EQ(bindings.buttons()[4], QVariantMap({{"id", 0}, {"name", "B"}, {"binding", "Z"}}));
    EXPECT_EQ(bindings.specials()[0],
              QVariantMap({{"id", 100}, {"name", "Pause"}, {"binding", "P"}}));
}

// A page and a game agree on these before anybody has bound anything.
TEST_F(StoredBindingsTest, AFreshStoreHasTheDefaults) {
    const struct {
        int id;
        const char *name, *key, *pad;
    } cases[] = {
        // clang-format off
        {0, "B", "29 Z", "0 A / Cross"},           {1, "Y", "4 A", "2 X / Square"},
        {2, "Select", "229 Right Shift", "4 Back / Select"}, {3, "Start", "40 Return", "6 Start"},
        {4, "Up", "82 Up", "11 D-Pad Up"},         {5, "Down", "81 Down", "12 D-Pad Down"},
        {6, "Left", "80 Left", "13 D-Pad Left"},   {7, "Right", "79 Right", "14 D-Pad Right"},
        {8, "A", "27 X", "1 B / Circle"},          {9, "X", "22 S", "3 Y / Triangle"},
        {10, "L / Z", "20 Q", "9 Left Shoulder"},  {11, "R", "26 W", "10 Right Shoulder"},
        {12, "L2 / C-Left", "30 1", "9 Left Shoulder"},
        {13, "R2 / C-Right", "31 2", "10 Right Shoulder"},
        {14, "Button", "0 None", "-1 None"},       {99, "Button", "0 None", "-1 None"},
        {100, "Pause", "19 P", "5 Guide"},         {101, "Reset", "58 F1", "-1 None"},
        {102, "Quick Save", "62 F5", "-1 None"},   {103, "Quick Load", "65 F8", "-1 None"},
        {104, "Screenshot", "69 F12", "-1 None"},  {105, "Fullscreen", "68 F11", "-1 None"},
        {106, "Mute", "16 M", "-1 None"},          {107, "Volume Down", "45 -", "-1 None"},
        {108, "Volume Up", "46 =", "-1 None"},     {109, "Fast Forward", "43 Tab", "-1 None"},
        {-1, "Button", "0 None", "-1 None"},       {INT_MAX, "Button", "0 None", "-1 None"},
        // clang-format on
    };
    for (const auto& [id, name, key, pad] : cases) {
        bindings.listen(id);
        EXPECT_EQ(bindings.listeningName(), name) << id;
        const auto told = [&, id = id](const char* device, int code) {
            bindings.setDevice(device);
            const QString label = bindings.bindingLabel(id);
            EXPECT_EQ(bindings.bindingCaption(id).isEmpty(), label == "None") << id << device;
            return QString::number(code) + ' ' + label;
        };
        EXPECT_EQ(told("keyboard", bindings.keyboardScancode("nes", id)), key) << id;
        EXPECT_EQ(told("gamepad", bindings.padButton("nes", id)), pad) << id;
    }
}

TEST_F(StoredBindingsTest, CaptionsAreShort) {
    const std::pair<const char*, const char*> cases[] = {
        {"key:229", "RShift"}, {"key:225", "LShift"}, {"key:228", "RCtrl"}, {"key:224", "LCtrl"},
        {"key:230", "RAlt"},   {"key:226", "LAlt"},   {"key:42", "Bksp"},   {"key:40", "Enter"},
        {"key:88", "Enter"},   {"key:44", "Space"},   {"pad:0", "A"},       {"pad:1", "B"},
        {"pad:2", "X"},        {"pad:3", "Y"},        {"pad:4", "Select"},  {"pad:5", "Guide"},
        {"pad:6", "Start"},    {"pad:7", "LS"},       {"pad:8", "RS"},      {"pad:9", "LB"},
        {"pad:10", "RB"},      {"pad:11", "Up"},      {"pad:12", "Down"},   {"pad:13", "Left"},
        {"pad:14", "Right"},
    };
    for (const auto& [value, caption] : cases) {
        put("controls/keyboard/nes/8", value);
        EXPECT_EQ(bindings.bindingCaption(8), caption) << value;
    }
}

TEST_F(StoredBindingsTest, ReadsWhateverTheStoreHolds) {
    const struct {
        QVariant value;
        int key, pad; // of the button A
        const char *label, *caption;
    } cases[] = {
        // clang-format off
        {"key:29", 29, 1, "Z", "Z"},           {"key:40", 40, 1, "Return", "Enter"},
        {"key:228", 228, 1, "Right Ctrl", "RCtrl"}, {"key:99999999999", 0, 1, "Key 0", "Key 0"},
        {"key:-5", -5, 1, "Key -5", "Key -5"}, {"key:512", 512, 1, "Key 512", "Key 512"},
        {"pad:0", 27, 0, "A / Cross", "A"},    {"pad:14", 27, 14, "D-Pad Right", "Right"},
        {"pad:7", 27, 7, "Left Stick", "LS"},  {"pad:8", 27, 8, "Right Stick", "RS"},
        {"x:7", 27, 1, "None", ""},
        {"pad:15", 27, 15, "Button 15", "Button 15"}, {"pad:-7", 27, -7, "Button -7", "Button -7"},
        {"none:junk", 0, -1, "None", ""},      {"a:b:7", 27, 1, "None", ""},
        {":5", 27, 1, "X", "X"},               {"key", 27, 1, "X", "X"},
        {"", 27, 1, "X", "X"},                 {QStringList{"key:29", "key:30"}, 27, 1, "X", "X"},
        // clang-format on
    };
    bindings.setSystemId("snes");
    for (const auto& [value, key, pad, label, caption] : cases) {
        SCOPED_TRACE(value.toString().toStdString());
        put("controls/keyboard/snes/8", value);
        put("controls/gamepad/snes/8", value);
        EXPECT_EQ(bindings.keyboardScancode("snes", 8), key);
        EXPECT_EQ(bindings.padButton("snes", 8), pad);
        EXPECT_EQ(bindings.bindingLabel(8), label);
        EXPECT_EQ(bindings.bindingCaption(8), caption);
    }
}

TEST_F(StoredBindingsTest, HeldIsReadWithinTheKeysOnly) {
    // One more than SDL's array has: a read beside that would count as held.
    const auto keys = std::make_unique<bool[]>(SDL_SCANCODE_COUNT + 1);
    std::fill_n(keys.get(), SDL_SCANCODE_COUNT + 1, true);
    for (const char* value :
         {"key:1", "key:511", "key:512", "key:0", "key:-1", "key:2147483647", "none:0"}) {
        const bool held = QString(value) == "key:1" || QString(value) == "key:511";
        put("controls/keyboard/snes/8", value);
        put("controls/keyboard/special/104", value);
        EXPECT_EQ(bindings.keyboardHeld("snes", 8, keys.get()), held) << value;
        EXPECT_EQ(bindings.specialHeld(104, keys.get(), nullptr), held) << value;
    }
    EXPECT_FALSE(bindings.keyboardHeld("snes", 0, nullptr));
    EXPECT_FALSE(bindings.padHeld("snes", 0, nullptr));
}

TEST_F(StoredBindingsTest, HeldIsReadFromThePadsOwnButtonsOnly) {
    const VirtualPad virtualPad;
    SDL_Gamepad* const pad = SDL_OpenGamepad(virtualPad.id);
    virtualPad.hold({0, 5});
    SDL_PumpEvents();
    for (const char* value : {"pad:0", "pad:5", "pad:1", "pad:26", "pad:-7"}) {
        const bool held = QString(value) == "pad:0" || QString(value) == "pad:5";
        put("controls/gamepad/snes/8", value);
        put("controls/gamepad/special/100", value);
        EXPECT_EQ(bindings.padHeld("snes", 8, pad), held) << value;
        EXPECT_EQ(bindings.specialHeld(100, nullptr, pad), held) << value;
    }
    SDL_CloseGamepad(pad);
}

TEST_F(StoredBindingsTest, ResetTakesOneSystemAndTheSpecialsOfOneDevice) {
    const QStringList others{"controls/gamepad/gb/8", "controls/gamepad/special/104",
                             "controls/keyboard/gba/8", "window/width"};
    for (const QString& key : others + QStringList{"controls/keyboard/special/104"})
        put(key, "key:5");
    Signals emitted(bindings);
    bindings.setSystemId("gb");
    bindings.clearButton(8);
    EXPECT_EQ(stored("controls/keyboard/gb/8"), "none:0");
    EXPECT_EQ(bindings.bindingLabel(8), "None");
    EXPECT_EQ(bindings.bindingLabel(104), "B") << "a special holds for every system";
    bindings.listen(8);
    bindings.clearButton(9);
    EXPECT_EQ(emitted.take(), "MMLM");
    bindings.resetSystem();
    EXPECT_EQ(emitted.take(), "LM");
    EXPECT_EQ(bindingStore().allKeys(), others);
    EXPECT_EQ(bindings.bindingLabel(8), "X");
}

TEST_F(StoredBindingsTest, AnEditIsUndoneAcrossSystemsAndDevices) {
    put("controls/keyboard/snes/8", "key:4");
    put("controls/gamepad/gba/0", QStringList{"not", "ours"});
    put("window/width", 640);
    const QStringList before = bindingStore().allKeys();
    Signals emitted(bindings);
    bindings.revertEdit();
    bindings.commitEdit();
    bindings.beginEdit();
    EXPECT_EQ(emitted.take(), "");
    for (const char* system : {"snes", "gba"}) {
        bindings.setSystemId(system);
        bindings.clearButton(8);
        bindings.setDevice("gamepad");
        bindings.clearButton(100);
    }
    EXPECT_EQ(emitted.take(), "MMMMMMM");
    EXPECT_EQ(stored("controls/keyboard/snes/8"), "none:0") << "edits go straight to the store";
    bindings.listen(3);
    bindings.revertEdit();
    EXPECT_EQ(emitted.take(), "LLM");
    EXPECT_EQ(bindingStore().allKeys(), before);
    EXPECT_EQ(stored("controls/keyboard/snes/8"), "key:4");
    EXPECT_EQ(bindingStore().value("controls/gamepad/gba/0"), QStringList({"not", "ours"}));
    bindings.clearButton(1);
    bindings.revertEdit();
    EXPECT_EQ(emitted.take(), "M") << "no edit is open any more";
}

TEST_F(StoredBindingsTest, ANewEditMovesThePointOfReturn) {
    bindings.beginEdit();
    bindings.clearButton(2);
    bindings.beginEdit();
    bindings.clearButton(3);
    bindings.revertEdit();
    EXPECT_EQ(bindingStore().allKeys(), QStringList("controls/keyboard/nes/2"));
}

TEST_F(StoredBindingsTest, WhatWasDoneStaysAfterACommitAndAfterTheObject) {
    bindings.beginEdit();
    bindings.clearButton(3);
    bindings.commitEdit();
    bindings.revertEdit();
    EXPECT_EQ(stored("controls/keyboard/nes/3"), "none:0");
    {
        InputBindings page;
        page.beginEdit();
        page.clearButton(4);
    }
    EXPECT_EQ(stored("controls/keyboard/nes/4"), "none:0");
}

TEST_F(StoredBindingsTest, TakesAnySystemId) {
    for (const char* system : {"日本 50%3", "a/b", ""}) {
        bindings.setSystemId(system);
        bindings.clearButton(8);
        EXPECT_EQ(bindings.keyboardScancode(system, 8), 0) << system;
        EXPECT_EQ(stored(QString("controls/keyboard/%1/8").arg(system)), "none:0") << system;
    }
}

} // namespace
} // namespace velmora::test
