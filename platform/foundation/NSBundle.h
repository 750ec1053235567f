#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSImage;

/// A directory with the resources of an application or a library. There is one object for each directory,
/// which lives until the process ends.
class NSBundle final : public NSObject {
 public:
  /// The application's resources: the directory given to `setMain`, else beside the executable in `Resources`
  /// or
  /// `../share/<name of the executable>`, whichever is there, else the executable's own directory.
  [[nodiscard]] static NSBundle& main();
  static void setMain(std::string_view resourcePath);

  /// The bundle of that resource directory, which need not exist.
  [[nodiscard]] static NSBundle& bundle(std::string_view resourcePath);

  /// The bundle of the library that holds the class; the main bundle for classes of no registered library.
  [[nodiscard]] static NSBundle& bundle(const std::type_info& forClass);
  template <typename T>
  [[nodiscard]] static NSBundle& bundleForClass() {
    return bundle(typeid(T));
  }
  /// Says where the library keeps its resources that holds the classes whose qualified names begin with
  /// `classes`
  /// ("bkuk::"). Called by each library before its resources are asked for; a later call replaces.
  static void registerLibrary(std::string_view classes, std::string_view resourcePath);

  [[nodiscard]] const std::string& resourcePath() const { return resourcePath_; }

  /// The files of the directory itself, not deeper, in byte order of their names. An absent or empty
  /// extension (given without dot) means every file, an absent directory the resource directory. A missing
  /// directory gives none.
  [[nodiscard]] std::vector<std::string> paths(std::optional<std::string_view> ofType = {},
                                               std::optional<std::string_view> inDirectory = {}) const;

  /// The image file of that name, with or without its type, in the resource directory: the drawing if there
  /// is one that can be read, else the file with the most pixels for a point, which "@2x" or "@3x" after the
  /// name says. A new object each time; absent when there is none. Part of the application kit.
  [[nodiscard]] Ref<NSImage> image(std::string_view forResource) const;

 private:
  template <typename T, typename... Args>
  friend Ref<T> make(Args&&... args);
  explicit NSBundle(std::string_view resourcePath) : resourcePath_(resourcePath) {}

  std::string resourcePath_;
};

}  // namespace bkuk
