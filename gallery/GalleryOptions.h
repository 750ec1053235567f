#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace bkuk::gallery {

enum class AppearanceChoice { light, dark, followDesktop };
enum class DirectionChoice { leftToRight, rightToLeft };

/// What the command line asks for.
struct GalleryOptions {
  std::optional<std::string> snapshotDirectory;
  std::optional<AppearanceChoice> appearance;
  std::optional<DirectionChoice> direction;
  double scale = 1;
  std::string page;  ///< a slug; empty for the first page, or for all of them in snapshots
  bool listPages = false;
  bool showHelp = false;
  bool exitAfterFirstFrame = false;
};

/// The options, or a sentence that says what is wrong with the arguments. `arguments` come without the
/// program's name.
[[nodiscard]] std::variant<GalleryOptions, std::string> parseOptions(std::span<const char* const> arguments);

/// How the program is called.
[[nodiscard]] std::string usageText();

}  // namespace bkuk::gallery
