// SPDX-License-Identifier: MIT
#pragma once

#include "base/keys.h"

#include <array>
#include <cstdint>

namespace pimloft {

/// One position of the keyboard in the words of both systems. Data; any thread.
struct KeyPosition {
    KeyCode key;
    const char *name;     ///< what X calls the position, whatever the layout prints on it
    std::uint8_t kernel;  ///< the kernel's number; X servers that use the kernel's add 8
    char letter;          ///< the letter of an American keyboard, 0 for other keys
};

/// Every key code that a Linux keyboard can produce, in the order of the key codes.
inline constexpr std::array<KeyPosition, 115> keyPositions{{
    {KeyCode{0}, "AC01", 30, 'a'},  {KeyCode{1}, "AC02", 31, 's'},  {KeyCode{2}, "AC03", 32, 'd'},
    {KeyCode{3}, "AC04", 33, 'f'},  {KeyCode{4}, "AC06", 35, 'h'},  {KeyCode{5}, "AC05", 34, 'g'},
    {KeyCode{6}, "AB01", 44, 'z'},  {KeyCode{7}, "AB02", 45, 'x'},  {KeyCode{8}, "AB03", 46, 'c'},
    {KeyCode{9}, "AB04", 47, 'v'},  {KeyCode{10}, "LSGT", 86, 0},   {KeyCode{11}, "AB05", 48, 'b'},
    {KeyCode{12}, "AD01", 16, 'q'}, {KeyCode{13}, "AD02", 17, 'w'}, {KeyCode{14}, "AD03", 18, 'e'},
    {KeyCode{15}, "AD04", 19, 'r'}, {KeyCode{16}, "AD06", 21, 'y'}, {KeyCode{17}, "AD05", 20, 't'},
    {KeyCode{18}, "AE01", 2, 0},    {KeyCode{19}, "AE02", 3, 0},    {KeyCode{20}, "AE03", 4, 0},
    {KeyCode{21}, "AE04", 5, 0},    {KeyCode{22}, "AE06", 7, 0},    {KeyCode{23}, "AE05", 6, 0},
    {KeyCode{24}, "AE12", 13, 0},   {KeyCode{25}, "AE09", 10, 0},   {KeyCode{26}, "AE07", 8, 0},
    {KeyCode{27}, "AE11", 12, 0},   {KeyCode{28}, "AE08", 9, 0},    {KeyCode{29}, "AE10", 11, 0},
    {KeyCode{30}, "AD12", 27, 0},   {KeyCode{31}, "AD09", 24, 'o'}, {KeyCode{32}, "AD07", 22, 'u'},
    {KeyCode{33}, "AD11", 26, 0},   {KeyCode{34}, "AD08", 23, 'i'}, {KeyCode{35}, "AD10", 25, 'p'},
    {KeyCode{36}, "RTRN", 28, 0},   {KeyCode{37}, "AC09", 38, 'l'}, {KeyCode{38}, "AC07", 36, 'j'},
    {KeyCode{39}, "AC11", 40, 0},   {KeyCode{40}, "AC08", 37, 'k'}, {KeyCode{41}, "AC10", 39, 0},
    {KeyCode{42}, "BKSL", 43, 0},   {KeyCode{43}, "AB08", 51, 0},   {KeyCode{44}, "AB10", 53, 0},
    {KeyCode{45}, "AB06", 49, 'n'}, {KeyCode{46}, "AB07", 50, 'm'}, {KeyCode{47}, "AB09", 52, 0},
    {KeyCode{48}, "TAB", 15, 0},    {KeyCode{49}, "SPCE", 57, 0},   {KeyCode{50}, "TLDE", 41, 0},
    {KeyCode{51}, "BKSP", 14, 0},   {KeyCode{53}, "ESC", 1, 0},     {KeyCode{54}, "RWIN", 126, 0},
    {KeyCode{55}, "LWIN", 125, 0},  {KeyCode{56}, "LFSH", 42, 0},   {KeyCode{57}, "CAPS", 58, 0},
    {KeyCode{58}, "LALT", 56, 0},   {KeyCode{59}, "LCTL", 29, 0},   {KeyCode{60}, "RTSH", 54, 0},
    {KeyCode{61}, "RALT", 100, 0},  {KeyCode{62}, "RCTL", 97, 0},   {KeyCode{64}, "FK17", 187, 0},
    {KeyCode{65}, "KPDL", 83, 0},   {KeyCode{67}, "KPMU", 55, 0},   {KeyCode{69}, "KPAD", 78, 0},
    {KeyCode{71}, "NMLK", 69, 0},   {KeyCode{72}, "VOL+", 115, 0},  {KeyCode{73}, "VOL-", 114, 0},
    {KeyCode{74}, "MUTE", 113, 0},  {KeyCode{75}, "KPDV", 98, 0},   {KeyCode{76}, "KPEN", 96, 0},
    {KeyCode{78}, "KPSU", 74, 0},   {KeyCode{79}, "FK18", 188, 0},  {KeyCode{80}, "FK19", 189, 0},
    {KeyCode{81}, "KPEQ", 117, 0},  {KeyCode{82}, "KP0", 82, 0},    {KeyCode{83}, "KP1", 79, 0},
    {KeyCode{84}, "KP2", 80, 0},    {KeyCode{85}, "KP3", 81, 0},    {KeyCode{86}, "KP4", 75, 0},
    {KeyCode{87}, "KP5", 76, 0},    {KeyCode{88}, "KP6", 77, 0},    {KeyCode{89}, "KP7", 71, 0},
    {KeyCode{90}, "FK20", 190, 0},  {KeyCode{91}, "KP8", 72, 0},    {KeyCode{92}, "KP9", 73, 0},
    {KeyCode{93}, "AE13", 124, 0},  {KeyCode{94}, "AB11", 89, 0},   {KeyCode{96}, "FK05", 63, 0},
    {KeyCode{97}, "FK06", 64, 0},   {KeyCode{98}, "FK07", 65, 0},   {KeyCode{99}, "FK03", 61, 0},
    {KeyCode{100}, "FK08", 66, 0},  {KeyCode{101}, "FK09", 67, 0},  {KeyCode{103}, "FK11", 87, 0},
    {KeyCode{105}, "FK13", 183, 0}, {KeyCode{106}, "FK16", 186, 0}, {KeyCode{107}, "FK14", 184, 0},
    {KeyCode{109}, "FK10", 68, 0},  {KeyCode{111}, "FK12", 88, 0},  {KeyCode{113}, "FK15", 185, 0},
    {KeyCode{114}, "INS", 110, 0},  {KeyCode{115}, "HOME", 102, 0}, {KeyCode{116}, "PGUP", 104, 0},
    {KeyCode{117}, "DELE", 111, 0}, {KeyCode{118}, "FK04", 62, 0},  {KeyCode{119}, "END", 107, 0},
    {KeyCode{120}, "FK02", 60, 0},  {KeyCode{121}, "PGDN", 109, 0}, {KeyCode{122}, "FK01", 59, 0},
    {KeyCode{123}, "LEFT", 105, 0}, {KeyCode{124}, "RGHT", 106, 0}, {KeyCode{125}, "DOWN", 108, 0},
    {KeyCode{126}, "UP", 103, 0},
}};

}  // namespace pimloft
