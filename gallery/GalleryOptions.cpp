#include "gallery/GalleryOptions.h"

#include <algorithm>
#include <string_view>

#include "gallery/GalleryPage.h"

namespace bkuk::gallery {

namespace {

using Outcome = std::optional<std::string>;  // what is wrong, or nothing

template <typename T>
struct Named {
  std::string_view name;
  T value;
};

constexpr Named<AppearanceChoice> appearances[] = {{"light", AppearanceChoice::light},
                                                   {"dark", AppearanceChoice::dark}};
constexpr Named<DirectionChoice> directions[] = {{"ltr", DirectionChoice::leftToRight},
                                                 {"rtl", DirectionChoice::rightToLeft}};
constexpr Named<double> scales[] = {{"1", 1.0}, {"1.25", 1.25}, {"1.5", 1.5}, {"1.75", 1.75}, {"2", 2.0}};

template <typename T, typename Target>
Outcome choose(std::string_view option, std::string_view value, std::span<const Named<T>> choices,
               Target& target) {
  std::string known;
  for (const auto& choice : choices) {
    if (choice.name == value) {
      target = choice.value;
      return std::nullopt;
    }
    known.append(known.empty() ? "" : ", ").append(choice.name);
  }
  return std::string(option) + " takes one of " + known + ", not \"" + std::string(value) + "\"";
}

Outcome choosePage(std::string_view value, std::string& page) {
  const auto isNamed = [value](const GalleryPageEntry& entry) {
    return entry.slug == value || entry.name == value;
  };
  const auto pages = galleryPages();
  const auto found = std::ranges::find_if(pages, isNamed);
  if (found == pages.end()) return "there is no page \"" + std::string(value) + "\"; --list names them";
  page = found->slug;
  return std::nullopt;
}

Outcome applyValue(GalleryOptions& options, std::string_view option, std::string_view value) {
  if (option == "--appearance")
    return choose<AppearanceChoice>(option, value, appearances, options.appearance);
  if (option == "--direction") return choose<DirectionChoice>(option, value, directions, options.direction);
  if (option == "--scale") return choose<double>(option, value, scales, options.scale);
  if (option == "--page") return choosePage(value, options.page);
  options.snapshotDirectory = value;
  return std::nullopt;
}

bool applyFlag(GalleryOptions& options, std::string_view option) {
  if (option == "--list") return options.listPages = true;
  if (option == "--help") return options.showHelp = true;
  if (option == "--exit-after-first-frame") return options.exitAfterFirstFrame = true;
  return false;
}

bool takesValue(std::string_view option) {
  constexpr std::string_view known[] = {"--snapshot", "--appearance", "--direction", "--scale", "--page"};
  return std::ranges::find(known, option) != std::end(known);
}

}  // namespace

std::variant<GalleryOptions, std::string> parseOptions(std::span<const char* const> arguments) {
  GalleryOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view option = arguments[i];
    if (applyFlag(options, option)) continue;
    if (!takesValue(option)) return "unknown option \"" + std::string(option) + "\"";
    if (++i == arguments.size()) return std::string(option) + " needs a value";
    if (auto wrong = applyValue(options, option, arguments[i])) return *wrong;
  }
  return options;
}

std::string usageText() {
  return "bkuk-gallery [options]\n"
         "  --page NAME                 open this page\n"
         "  --list                      list the pages\n"
         "  --appearance light|dark     instead of the desktop's\n"
         "  --direction ltr|rtl         instead of the desktop's\n"
         "  --snapshot DIR              write each page to a PNG file in DIR instead of opening a window\n"
         "  --scale 1|1.25|1.5|1.75|2   device pixels per point of snapshots\n"
         "  --exit-after-first-frame    leave once the window was presented\n"
         "  --help                      this text\n";
}

}  // namespace bkuk::gallery
