#include "platform/foundation/NSBundle.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>

#include "platform/foundation/ClassName.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

namespace fs = std::filesystem;

struct Registry {
  std::map<std::string, Ref<NSBundle>, std::less<>> bundles;  // by resource directory
  std::map<std::string, NSBundle*, std::less<>> libraries;    // by how the names of their classes begin
  NSBundle* main = nullptr;
};

Registry& registry() {
  static auto& bundles = *new Registry;
  return bundles;
}

std::string applicationResources() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  const fs::path directory = error ? fs::current_path(error) : executable.parent_path();
  const fs::path shared = directory.parent_path() / "share" / executable.filename();
  for (const auto& candidate : {directory / "Resources", shared}) {
    if (fs::is_directory(candidate, error)) return candidate.string();
  }
  return directory.string();
}

/// One spelling for each directory, also for those that do not exist.
std::string normalized(std::string_view path) {
  std::error_code error;
  const fs::path resolved = fs::weakly_canonical(fs::path(path), error);
  return error ? std::string(path) : resolved.string();
}

bool hasType(const fs::path& file, std::string_view type) {
  if (type.empty()) return true;
  const auto extension = file.extension().string();
  return !extension.empty() && std::string_view(extension).substr(1) == type;
}

}  // namespace

NSBundle& NSBundle::main() {
  auto& main = registry().main;
  if (!main) main = &bundle(applicationResources());
  return *main;
}

void NSBundle::setMain(std::string_view resourcePath) { registry().main = &bundle(resourcePath); }

NSBundle& NSBundle::bundle(std::string_view resourcePath) {
  const auto path = normalized(resourcePath);
  auto& bundle = registry().bundles[path];
  if (!bundle) bundle = permanentObject<NSBundle>(path);
  return *bundle;
}

NSBundle& NSBundle::bundle(const std::type_info& forClass) {
  const auto name = qualifiedClassName(forClass);
  const auto& libraries = registry().libraries;
  // The longest beginning that fits sorts last.
  const auto found = std::find_if(libraries.rbegin(), libraries.rend(),
                                  [&](const auto& library) { return name.starts_with(library.first); });
  return found != libraries.rend() ? *found->second : main();
}

void NSBundle::registerLibrary(std::string_view classes, std::string_view resourcePath) {
  registry().libraries.insert_or_assign(std::string(classes), &bundle(resourcePath));
}

std::vector<std::string> NSBundle::paths(std::optional<std::string_view> ofType,
                                         std::optional<std::string_view> inDirectory) const {
  std::vector<std::string> found;
  std::error_code error;
  const fs::path directory = fs::path(resourcePath_) / inDirectory.value_or("");
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unreadable;
    if (entry->is_regular_file(unreadable) && hasType(entry->path(), ofType.value_or(""))) {
      found.push_back(entry->path().string());
    }
  }
  std::ranges::sort(found);
  return found;
}

}  // namespace bkuk
