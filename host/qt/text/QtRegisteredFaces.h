#pragma once

#include <QtGui/QFont>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Text.h"
#include "host/support/FontFile.h"

namespace bkuk::host {

/// The faces that the process has registered from files. Each gets a family of its own in Qt's list, so that
/// none takes the place of an installed face or hides behind one of the same family and style.
class QtRegisteredFaces {
 public:
  FontRegistration registerFile(const std::string& path);

  /// Absent for a name that is not registered and for a face that Qt refuses.
  [[nodiscard]] std::optional<QFont> font(std::string_view postScriptName);
  /// As the file has it; empty for a name that is not registered.
  [[nodiscard]] std::string familyName(std::string_view postScriptName) const;
  /// The PostScript name of the family's face next to that weight; absent when no face of it is registered.
  [[nodiscard]] std::optional<std::string> nearestInFamily(std::string_view family, FontWeight weight) const;

 private:
  struct Entry {
    std::shared_ptr<const std::vector<std::byte>> file;  // empty once the face has been handed to Qt
    FontFileFace face;
    FaceMetrics metrics;
    std::string family;
    std::optional<QFont> font;
  };

  static void handOver(Entry& entry);

  std::map<std::string, Entry, std::less<>> entries_;
};

}  // namespace bkuk::host
