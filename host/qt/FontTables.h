#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QRawFont>
#include <optional>
#include <string>

#include "host/Text.h"

namespace bkuk::host {

/// Reads what Qt rounds or does not tell from the tables of an OpenType face. Tables that are missing or
/// cut short answer nothing.
class FontTables {
 public:
  explicit FontTables(const QRawFont& font) : font_(font) {}

  /// Exact, at `size` points to the em. Absent for faces without the tables, such as bitmap fonts.
  [[nodiscard]] std::optional<FontMetrics> metrics(double size) const;
  /// Empty when the face has none.
  [[nodiscard]] std::string postScriptName() const;

 private:
  QRawFont font_;
};

}  // namespace bkuk::host
