#pragma once

#include <QtGui/QFont>
#include <QtGui/QRawFont>

#include "host/Text.h"

namespace bkuk::host {

/// A face at a size. Qt rounds sizes, advances and heights to whole pixels, so text is laid out many times
/// larger and scaled down; what is drawn is set at the exact size.
class QtFont final : public Font {
 public:
  /// `face` says which face; its size is ignored. A size that is not finite or not above 0 is taken
  /// as 1, one above 10000 as that.
  QtFont(const QFont& face, double size);

  [[nodiscard]] FontMetrics metrics() const override { return metrics_; }
  [[nodiscard]] std::string postScriptName() const override;
  [[nodiscard]] std::shared_ptr<const TextLine> shape(std::u16string_view text,
                                                      TextDirection direction) const override;

 private:
  double size_;
  QFont layoutFont_;
  QRawFont rawFont_;
  FontMetrics metrics_;
};

}  // namespace bkuk::host
