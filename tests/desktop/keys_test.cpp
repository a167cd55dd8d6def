// Which messages the keys of different keyboards and layouts make.
#include "platform/common/keys.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

// Places on the keyboard, by their US names.
constexpr int PLACE_A = 0x04;
constexpr int PLACE_M = 0x10;
constexpr int PLACE_LEFT_BRACKET = 0x2F;
constexpr int PLACE_SEMICOLON = 0x33;
constexpr int PLACE_F4 = 0x3D;
constexpr int PLACE_KEYPAD_4 = 0x5C;
constexpr int PLACE_VOLUME_UP = 0x80;
constexpr int PLACE_LEFT_ALT = 0xE2;

struct Case {
    const char* what = nullptr;
    KeyChange change;
    Message message = {}; ///< of no kind where no message is to come
};

constexpr LPARAM RELEASE = 1 | KEY_WAS_DOWN | KEY_RELEASED;
constexpr LPARAM ALT = 1 | KEY_ALT_HELD;

const Case CASES[] = {
    {"a press", {PLACE_A, 'a', true}, {WM_KEYDOWN, 'A', 1, 0}},
    {"its repeat", {PLACE_A, 'a', true, true}, {WM_KEYDOWN, 'A', 1 | KEY_WAS_DOWN, 0}},
    {"its release", {PLACE_A, 'a', false, true}, {WM_KEYUP, 'A', RELEASE, 0}},
    {"under Alt", {PLACE_F4, 0, true, false, true}, {WM_SYSKEYDOWN, VK_F4, ALT, 0}},
    {"its release",
     {PLACE_F4, 0, false, true, true},
     {WM_SYSKEYUP, VK_F4, RELEASE | KEY_ALT_HELD, 0}},
    {"Alt", {PLACE_LEFT_ALT, 0, true}, {WM_SYSKEYDOWN, VK_MENU, 1, 0}},
    {"AltGr, which types characters",
     {PLACE_F4, 0, true, false, true, true},
     {WM_KEYDOWN, VK_F4, ALT, 0}},
    {"French M", {PLACE_SEMICOLON, 'm', true}, {WM_KEYDOWN, 'M', 1, 0}},
    {"French comma", {PLACE_M, ',', true}, {}},
    {"French accent", {PLACE_LEFT_BRACKET, 0xFE52, true}, {WM_KEYDOWN, VK_OEM_4, 1, 0}},
    {"Cyrillic F", {PLACE_A, 0x444, true}, {WM_KEYDOWN, 'A', 1, 0}},
    {"the keypad", {PLACE_KEYPAD_4, 0, true}, {WM_KEYDOWN, VK_LEFT, 1, 0}},
    {"its digits", {.place = PLACE_KEYPAD_4, .character = '4', .down = true, .num_lock = true}, {}},
    {"a key of no use", {PLACE_VOLUME_UP, 0, true}, {}},
};

} // namespace

TEST(Keys, LettersGoByCharacterAllElseByPositionAndAltMakesSystemKeystrokes) {
    for (const auto& [what, change, expected] : CASES) {
        Message message{};
        EXPECT_EQ(key_message(change, message), expected.message != 0) << what;
        EXPECT_EQ(message, expected) << what;
    }
}

} // namespace tarvik
