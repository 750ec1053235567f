#pragma once

#include <QtGui/QFont>
#include <QtGui/QRawFont>
#include <cstdint>
#include <string>

#include "host/support/FontTables.h"

namespace bkuk::host {

/// One face at all sizes. Qt rounds sizes, advances and heights to whole pixels, so faces are measured and
/// text is shaped very large, and what comes out is counted in ems.
class QtFace {
 public:
  /// Pixels to the em in which faces are measured: enough that rounding to 1/64 of one does not show. For
  /// larger sizes the font engine would load each glyph anew each time it is asked for its width.
  static constexpr int layoutSize = 256;

  /// `font` says which face; its size is ignored. `family` is what people know the face by when that is not
  /// what it calls itself to Qt.
  explicit QtFace(QFont font, std::string family = {});

  /// Unlike that of any other face of the process.
  [[nodiscard]] std::uint32_t id() const { return id_; }
  [[nodiscard]] const QFont& layoutFont(bool usesPairKerning) const {
    return usesPairKerning ? layoutFont_ : unkernedFont_;
  }
  [[nodiscard]] const QRawFont& rawFont() const { return rawFont_; }
  [[nodiscard]] const FaceMetrics& metrics() const { return metrics_; }
  [[nodiscard]] FontMetrics metrics(double size) const { return metrics_.at(size); }
  [[nodiscard]] const std::string& postScriptName() const { return postScriptName_; }
  [[nodiscard]] const std::string& familyName() const { return familyName_; }

  /// The PostScript name of the face that Qt finds for a font; empty when it has none.
  [[nodiscard]] static std::string postScriptNameOf(const QFont& font);

 private:
  std::uint32_t id_;
  QFont layoutFont_;
  QFont unkernedFont_;
  QRawFont rawFont_;
  FaceMetrics metrics_;
  std::string postScriptName_;
  std::string familyName_;
};

}  // namespace bkuk::host
