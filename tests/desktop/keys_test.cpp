// Which messages the keys of different keyboards and layouts make.
#include "platform/common/keys.h"

#include <gtest/gtest.h>

#include <set>

using namespace tarvik;

namespace {

// Places on the keyboard, by their US names.
constexpr int PLACE_A = 0x04;
constexpr int PLACE_M = 0x10;
constexpr int PLACE_Q = 0x14;
constexpr int PLACE_W = 0x1A;
constexpr int PLACE_1 = 0x1E;
constexpr int PLACE_LEFT_BRACKET = 0x2F;
constexpr int PLACE_RIGHT_BRACKET = 0x30;
constexpr int PLACE_SEMICOLON = 0x33;
constexpr int PLACE_F4 = 0x3D;
constexpr int PLACE_KEYPAD_4 = 0x5C;
constexpr int PLACE_VOLUME_UP = 0x80;
constexpr int PLACE_LEFT_ALT = 0xE2;

int plain_key(int place, std::uint32_t character) {
    return virtual_key_of(place, character, false);
}

UINT message_of(const KeyChange& change) {
    Message message{};
    return key_message(change, message) ? message.message : 0;
}

} // namespace

TEST(Keys, LettersGoByCharacterDigitsAndBracketsByPosition) {
    EXPECT_EQ(plain_key(PLACE_A, 'a'), 'A');
    // A French keyboard.
    EXPECT_EQ(plain_key(PLACE_Q, 'a'), 'A');
    EXPECT_EQ(plain_key(PLACE_W, 'z'), 'Z');
    EXPECT_EQ(plain_key(PLACE_A, 'q'), 'Q');
    EXPECT_EQ(plain_key(PLACE_SEMICOLON, 'm'), 'M');
    EXPECT_EQ(plain_key(PLACE_M, ','), 0);
    EXPECT_EQ(plain_key(PLACE_1, '&'), '1');
    EXPECT_EQ(plain_key(PLACE_LEFT_BRACKET, 0xFE52), VK_OEM_4);
    EXPECT_EQ(plain_key(PLACE_RIGHT_BRACKET, '$'), VK_OEM_6);
}

TEST(Keys, OtherAlphabetsKeepTheUsLetterPositions) {
    EXPECT_EQ(plain_key(PLACE_A, 0x444), 'A');
    EXPECT_EQ(plain_key(PLACE_LEFT_BRACKET, 0x445), VK_OEM_4);
}

TEST(Keys, BrowserNamesLeadToTheSamePositions) {
    EXPECT_EQ(place_of_web_code("KeyA"), PLACE_A);
    EXPECT_EQ(place_of_web_code("Digit1"), PLACE_1);
    EXPECT_EQ(place_of_web_code("BracketRight"), PLACE_RIGHT_BRACKET);
    EXPECT_EQ(place_of_web_code("F4"), PLACE_F4);
    EXPECT_EQ(place_of_web_code("Numpad4"), PLACE_KEYPAD_4);
    EXPECT_EQ(place_of_web_code("AltLeft"), PLACE_LEFT_ALT);
    EXPECT_EQ(place_of_web_code("AudioVolumeUp"), 0);
    EXPECT_EQ(place_of_web_code(""), 0);
    std::set<std::string_view> names;
    for (const Key& key : all_keys()) {
        names.insert(key.web_code);
    }
    EXPECT_EQ(names.size(), all_keys().size());
}

TEST(Keys, TheKeypadSteersWhileNumLockIsOff) {
    EXPECT_EQ(virtual_key_of(PLACE_KEYPAD_4, 0, false), VK_LEFT);
    EXPECT_EQ(virtual_key_of(PLACE_KEYPAD_4, '4', true), 0);
}

TEST(Keys, AKeyWithoutACodeMakesNoMessage) {
    EXPECT_EQ(message_of({.place = PLACE_VOLUME_UP, .down = true}), 0U);
    EXPECT_EQ(message_of({.place = PLACE_M, .character = ',', .down = true}), 0U);
}

TEST(Keys, KeysUnderAltAreSystemKeystrokes) {
    EXPECT_EQ(message_of({.place = PLACE_A, .character = 'a', .down = true}), WM_KEYDOWN);
    EXPECT_EQ(message_of({.place = PLACE_A, .character = 'a', .was_down = true}), WM_KEYUP);
    EXPECT_EQ(message_of({.place = PLACE_F4, .down = true, .alt = true}), WM_SYSKEYDOWN);
    EXPECT_EQ(message_of({.place = PLACE_F4, .was_down = true, .alt = true}), WM_SYSKEYUP);
    EXPECT_EQ(message_of({.place = PLACE_LEFT_ALT, .down = true}), WM_SYSKEYDOWN);
    EXPECT_EQ(plain_key(PLACE_LEFT_ALT, 0), VK_MENU);
    // Ctrl with Alt types characters on many keyboards.
    EXPECT_EQ(message_of({.place = PLACE_F4, .down = true, .alt = true, .control = true}),
              WM_KEYDOWN);
}

TEST(Keys, TheMessageTellsPressRepeatAndReleaseApart) {
    Message message{};
    ASSERT_TRUE(key_message({.place = PLACE_A, .character = 'a', .down = true}, message));
    EXPECT_EQ(message.wparam, WPARAM{'A'});
    EXPECT_EQ(message.lparam, 1);
    ASSERT_TRUE(
        key_message({.place = PLACE_A, .character = 'a', .down = true, .was_down = true}, message));
    EXPECT_EQ(message.lparam, 1 | KEY_WAS_DOWN);
    ASSERT_TRUE(key_message({.place = PLACE_A, .character = 'a', .was_down = true}, message));
    EXPECT_EQ(message.lparam, 1 | KEY_WAS_DOWN | KEY_RELEASED);
}

TEST(Keys, NoPositionHasTwoCodes) {
    std::set<int> places;
    for (const Key& key : all_keys()) {
        EXPECT_TRUE(places.insert(key.place).second) << "place " << int{key.place};
    }
}
