#include "host/qt/desktop/QtKeyCodes.h"

#include <algorithm>
#include <iterator>

#include "host/Events.h"
#include "host/KeyCodes.h"

namespace bkuk::host {

namespace {

struct KeyCode {
  std::uint32_t evdev;
  std::uint16_t apple;
};

// Sorted by the first column.
constexpr KeyCode keyCodes[] = {
    {1, keyCode::escape},
    {2, 18},   // 1
    {3, 19},   // 2
    {4, 20},   // 3
    {5, 21},   // 4
    {6, 23},   // 5
    {7, 22},   // 6
    {8, 26},   // 7
    {9, 28},   // 8
    {10, 25},  // 9
    {11, 29},  // 0
    {12, 27},  // minus
    {13, 24},  // equal
    {14, keyCode::backspace},
    {15, keyCode::tab},
    {16, 12},  // Q
    {17, 13},  // W
    {18, 14},  // E
    {19, 15},  // R
    {20, 17},  // T
    {21, 16},  // Y
    {22, 32},  // U
    {23, 34},  // I
    {24, 31},  // O
    {25, 35},  // P
    {26, 33},  // left bracket
    {27, 30},  // right bracket
    {28, keyCode::enter},
    {29, 59},  // left Control
    {30, 0},   // A
    {31, 1},   // S
    {32, 2},   // D
    {33, 3},   // F
    {34, 5},   // G
    {35, 4},   // H
    {36, 38},  // J
    {37, 40},  // K
    {38, 37},  // L
    {39, 41},  // semicolon
    {40, 39},  // apostrophe
    {41, 50},  // grave accent
    {42, 56},  // left Shift
    {43, 42},  // backslash
    {44, 6},   // Z
    {45, 7},   // X
    {46, 8},   // C
    {47, 9},   // V
    {48, 11},  // B
    {49, 45},  // N
    {50, 46},  // M
    {51, 43},  // comma
    {52, 47},  // full stop
    {53, 44},  // slash
    {54, 60},  // right Shift
    {55, 67},  // keypad multiply
    {56, 58},  // left Alt
    {57, keyCode::space},
    {58, 57},   // Caps Lock
    {59, 122},  // F1
    {60, 120},  // F2
    {61, 99},   // F3
    {62, 118},  // F4
    {63, 96},   // F5
    {64, 97},   // F6
    {65, 98},   // F7
    {66, 100},  // F8
    {67, 101},  // F9
    {68, 109},  // F10
    {69, 71},   // Num Lock, where Apple has Clear
    {70, 107},  // Scroll Lock, where Apple has F14
    {71, 89},   // keypad 7
    {72, 91},   // keypad 8
    {73, 92},   // keypad 9
    {74, 78},   // keypad minus
    {75, 86},   // keypad 4
    {76, 87},   // keypad 5
    {77, 88},   // keypad 6
    {78, 69},   // keypad plus
    {79, 83},   // keypad 1
    {80, 84},   // keypad 2
    {81, 85},   // keypad 3
    {82, 82},   // keypad 0
    {83, 65},   // keypad decimal
    {86, 10},   // the key beside left Shift on ISO keyboards
    {87, 103},  // F11
    {88, 111},  // F12
    {89, 94},   // Ro
    {92, 104},  // Henkan, where Apple has Kana
    {93, 104},  // Katakana/Hiragana
    {94, 102},  // Muhenkan, where Apple has Eisu
    {95, 95},   // keypad comma, Japanese
    {96, keyCode::keypadEnter},
    {97, 62},   // right Control
    {98, 75},   // keypad divide
    {99, 105},  // Print Screen, where Apple has F13
    {100, 61},  // right Alt
    {102, keyCode::home},
    {103, keyCode::up},
    {104, keyCode::pageUp},
    {105, keyCode::left},
    {106, keyCode::right},
    {107, keyCode::end},
    {108, keyCode::down},
    {109, keyCode::pageDown},
    {110, 114},  // Insert, where Apple has Help
    {111, 117},  // forward Delete
    {113, 74},   // Mute
    {114, 73},   // Volume Down
    {115, 72},   // Volume Up
    {117, 81},   // keypad equal
    {119, 113},  // Pause, where Apple has F15
    {121, 95},   // keypad comma
    {122, 104},  // Hangul, where Apple has Kana
    {123, 102},  // Hanja, where Apple has Eisu
    {124, 93},   // Yen
    {125, 55},   // left Super
    {126, 54},   // right Super
    {127, 110},  // Menu
    {138, 114},  // Help
    {183, 105},  // F13
    {184, 107},  // F14
    {185, 113},  // F15
    {186, 106},  // F16
    {187, 64},   // F17
    {188, 79},   // F18
    {189, 80},   // F19
    {190, 90},   // F20
};
static_assert(std::ranges::is_sorted(keyCodes, {}, &KeyCode::evdev));

}  // namespace

std::uint16_t appleKeyCode(std::uint32_t evdevCode) {
  const auto* found = std::ranges::lower_bound(keyCodes, evdevCode, {}, &KeyCode::evdev);
  return found != std::end(keyCodes) && found->evdev == evdevCode ? found->apple : unknownKeyCode;
}

}  // namespace bkuk::host
