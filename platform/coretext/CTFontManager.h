#pragma once

#include <cstdint>
#include <string_view>

namespace bkuk {

/// How far a registration reaches. There is none beyond the process.
enum class CTFontManagerScope : std::uint8_t { process = 1 };
constexpr auto kCTFontManagerScopeProcess = CTFontManagerScope::process;

/// Why a file was not registered.
enum class CTFontManagerError : std::uint8_t {
  fileNotFound = 101,
  unrecognizedFormat = 103,
  alreadyRegistered = 105,
};

/// Makes every face of a font file known to this process by its PostScript name, until the process ends;
/// nothing is written to the system's font store. Of faces with one name the first that was registered
/// counts, before an installed one.
///
/// `fontURL` is a path or a "file:" URL. False, with `*error` set when there is one, for a missing file, one
/// that is broken or no font, and one whose faces are all registered. Fonts that are in use keep their
/// face.
bool CTFontManagerRegisterFontsForURL(std::string_view fontURL, CTFontManagerScope scope,
                                      CTFontManagerError* error = nullptr);

}  // namespace bkuk
