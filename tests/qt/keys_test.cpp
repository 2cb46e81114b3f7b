// The character that a key bears, as a key filter sees it, and which keys only move.

#include "qt/keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

struct Pressed {
    const char* name;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* text;  ///< UTF-8, as the platform gives it
    std::optional<KeyCode> code;
};

std::ostream& operator<<(std::ostream& out, const Pressed& row) { return out << row.name; }

constexpr auto kNo = std::nullopt;

// clang-format off
const std::vector<Pressed> kRows = {
    {"Digit0",              Qt::Key_0,         Qt::NoModifier,      "0",      48},
    {"Digit9",              Qt::Key_9,         Qt::NoModifier,      "9",      57},
    {"Point",               Qt::Key_Period,    Qt::NoModifier,      ".",      46},
    {"Comma",               Qt::Key_Comma,     Qt::NoModifier,      ",",      44},
    {"Minus",               Qt::Key_Minus,     Qt::NoModifier,      "-",      45},
    {"Blank",               Qt::Key_Space,     Qt::NoModifier,      " ",      32},
    {"SmallLetter",         Qt::Key_A,         Qt::NoModifier,      "a",      97},
    {"CapitalLetter",       Qt::Key_A,         Qt::ShiftModifier,   "A",      65},
    {"Enye",                Qt::Key_Ntilde,    Qt::NoModifier,      "ñ",      0xF1},
    {"LetterByAltGr",       Qt::Key_At,        Qt::ControlModifier | Qt::AltModifier, "@", 64},
    {"LetterByLevel3",      Qt::Key_At,        Qt::GroupSwitchModifier, "@", 64},
    {"KeypadDigit",         Qt::Key_5,         Qt::KeypadModifier,  "5",      53},
    {"KeypadPoint",         Qt::Key_Period,    Qt::KeypadModifier,  ".",      46},
    {"KeypadComma",         Qt::Key_Comma,     Qt::KeypadModifier,  ",",      44},
    {"KeypadEnter",         Qt::Key_Enter,     Qt::KeypadModifier,  "\r",     13},
    {"Enter",               Qt::Key_Return,    Qt::NoModifier,      "\r",     13},
    {"Escape",              Qt::Key_Escape,    Qt::NoModifier,      "\x1b",   27},
    {"Backspace",           Qt::Key_Backspace, Qt::NoModifier,      "\b",     8},
    {"BackspaceByShift",    Qt::Key_Backspace, Qt::ShiftModifier,   "\b",     8},
    {"CtrlA",               Qt::Key_A,         Qt::ControlModifier, "\x01",   1},
    {"CtrlC",               Qt::Key_C,         Qt::ControlModifier, "\x03",   3},
    {"CtrlH",               Qt::Key_H,         Qt::ControlModifier, "\b",     8},
    {"CtrlK",               Qt::Key_K,         Qt::ControlModifier, "\v",     11},
    {"CtrlV",               Qt::Key_V,         Qt::ControlModifier, "\x16",   22},
    {"CtrlVWithoutText",    Qt::Key_V,         Qt::ControlModifier, "",       22},
    {"CtrlX",               Qt::Key_X,         Qt::ControlModifier, "\x18",   24},
    {"CtrlZ",               Qt::Key_Z,         Qt::ControlModifier, "\x1a",   26},
    {"CtrlShiftZ",          Qt::Key_Z,         Qt::ControlModifier | Qt::ShiftModifier, "\x1a", 26},
    {"CtrlBracket",         Qt::Key_BracketLeft, Qt::ControlModifier, "\x1b", 27},
    {"CtrlDigit",           Qt::Key_5,         Qt::ControlModifier, "5",      kNo},
    {"BackspaceByAlt",      Qt::Key_Backspace, Qt::AltModifier,     "\b",     kNo},
    {"EnterByAlt",          Qt::Key_Return,    Qt::AltModifier,     "\r",     kNo},
    {"AltLetter",           Qt::Key_A,         Qt::AltModifier,     "a",      kNo},
    {"AltDigit",            Qt::Key_5,         Qt::AltModifier,     "5",      kNo},
    {"Delete",              Qt::Key_Delete,    Qt::NoModifier,      "\x7f",   kNo},
    {"DeleteByShift",       Qt::Key_Delete,    Qt::ShiftModifier,   "\x7f",   kNo},
    {"KeypadDelete",        Qt::Key_Delete,    Qt::KeypadModifier,  "\x7f",   kNo},
    {"Insert",              Qt::Key_Insert,    Qt::NoModifier,      "",       kNo},
    {"InsertByShift",       Qt::Key_Insert,    Qt::ShiftModifier,   "",       kNo},
    {"Tab",                 Qt::Key_Tab,       Qt::NoModifier,      "\t",     kNo},
    {"Backtab",             Qt::Key_Backtab,   Qt::ShiftModifier,   "\t",     kNo},
    {"Left",                Qt::Key_Left,      Qt::NoModifier,      "",       kNo},
    {"Right",               Qt::Key_Right,     Qt::NoModifier,      "",       kNo},
    {"Up",                  Qt::Key_Up,        Qt::NoModifier,      "",       kNo},
    {"Down",                Qt::Key_Down,      Qt::NoModifier,      "",       kNo},
    {"Home",                Qt::Key_Home,      Qt::NoModifier,      "",       kNo},
    {"End",                 Qt::Key_End,       Qt::NoModifier,      "",       kNo},
    {"KeypadLeft",          Qt::Key_Left,      Qt::KeypadModifier,  "",       kNo},
    {"PageDown",            Qt::Key_PageDown,  Qt::NoModifier,      "",       kNo},
    {"F1",                  Qt::Key_F1,        Qt::NoModifier,      "",       kNo},
    {"ShiftAlone",          Qt::Key_Shift,     Qt::ShiftModifier,   "",       kNo},
    {"ControlAlone",        Qt::Key_Control,   Qt::ControlModifier, "",       kNo},
};
// clang-format on

class CharacterOfKeyTest : public ::testing::TestWithParam<Pressed> {};

TEST_P(CharacterOfKeyTest, IsThatOfTheTable) {
    const Pressed& row = GetParam();
    const QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, QString::fromUtf8(row.text));
    EXPECT_EQ(CharacterOf(event), row.code);
}

INSTANTIATE_TEST_SUITE_P(OfKeys, CharacterOfKeyTest, ::testing::ValuesIn(kRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(KeysTest, EveryControlLetterBearsItsPlaceInTheAlphabet) {
    for (int place = 1; place <= 26; ++place) {
        const QKeyEvent event(QEvent::KeyPress, Qt::Key_A + place - 1, Qt::ControlModifier,
                              QString(QChar(place)));
        EXPECT_EQ(CharacterOf(event), place);
    }
}

TEST(KeysTest, ArrowsToTheSidesHomeAndEndMoveAndNoOtherKeyDoes) {
    for (const Pressed& row : kRows) {
        const QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, {});
        const bool moves = row.key == Qt::Key_Left || row.key == Qt::Key_Right ||
                           row.key == Qt::Key_Home || row.key == Qt::Key_End;
        EXPECT_EQ(IsMovement(event), moves) << row.name;
    }
}

}  // namespace
}  // namespace velmora::test
