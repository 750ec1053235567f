#pragma once

#include <cstddef>

#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/Weak.h"

namespace bkuk {

class NSLayoutManager;

/// The rectangle that a layout manager fills with lines. Its space has y running down from its upper left
/// corner; lengths are in points. A change lays the text out again when it is next asked for.
class NSTextContainer final : public NSObject {
 public:
  /// An extent from which on nothing is thought to be in the way.
  static constexpr CGFloat unlimited = 1e7;

  explicit NSTextContainer(NSSize size = {unlimited, unlimited}) : size_(size) {}

  /// 0 or less in an axis means no limit along it.
  [[nodiscard]] NSSize size() const { return size_; }
  void setSize(NSSize size);
  /// Left free at both ends of each line.
  [[nodiscard]] CGFloat lineFragmentPadding() const { return padding_; }
  void setLineFragmentPadding(CGFloat padding);
  /// What does not fit into so many lines is not set. 0 means no limit.
  [[nodiscard]] std::size_t maximumNumberOfLines() const { return maximumNumberOfLines_; }
  void setMaximumNumberOfLines(std::size_t count);
  /// What becomes of the text that does not fit into `maximumNumberOfLines`: a truncating mode ends the last
  /// line with an ellipsis.
  [[nodiscard]] NSLineBreakMode lineBreakMode() const { return lineBreakMode_; }
  void setLineBreakMode(NSLineBreakMode mode);

  [[nodiscard]] Ref<NSLayoutManager> layoutManager() const;

  [[nodiscard]] std::string className() const override { return "NSTextContainer"; }

 private:
  friend class NSLayoutManager;

  template <typename T>
  void change(T& field, T value);

  NSSize size_;
  CGFloat padding_ = 5;
  std::size_t maximumNumberOfLines_ = 0;
  NSLineBreakMode lineBreakMode_ = NSLineBreakMode::wordWrapping;
  Weak<NSLayoutManager> layoutManager_;
};

}  // namespace bkuk
