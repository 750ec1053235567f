#pragma once

#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// Something to look at, with its name and a remark below it.
class Specimen : public NSView {
 public:
  static constexpr CGFloat captionHeight = 46;  ///< points, of the part below what is shown

  Specimen(Ref<NSView> shown, std::string name, std::string remark);

  void setRemark(std::string remark);

  [[nodiscard]] bool isFlipped() const override { return true; }
  void layout() override;

 protected:
  void didInit() override;

 private:
  Ref<NSView> shown_;
  Ref<TextLabel> name_;
  Ref<TextLabel> remark_;
};

}  // namespace bkuk::gallery
