#pragma once

#include <cstdint>

/// The codes by which events name keys, for the keys that something listens to: those of an Apple keyboard,
/// on every desktop.
namespace bkuk::host::keyCode {

inline constexpr std::uint16_t enter = 36;
inline constexpr std::uint16_t tab = 48;
inline constexpr std::uint16_t space = 49;
inline constexpr std::uint16_t backspace = 51;
inline constexpr std::uint16_t escape = 53;
inline constexpr std::uint16_t keypadEnter = 76;
inline constexpr std::uint16_t home = 115;
inline constexpr std::uint16_t pageUp = 116;
inline constexpr std::uint16_t end = 119;
inline constexpr std::uint16_t pageDown = 121;
inline constexpr std::uint16_t left = 123;
inline constexpr std::uint16_t right = 124;
inline constexpr std::uint16_t down = 125;
inline constexpr std::uint16_t up = 126;

}  // namespace bkuk::host::keyCode
