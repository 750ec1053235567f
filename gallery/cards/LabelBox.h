#pragma once

#include "gallery/chrome/Box.h"

namespace bkuk::gallery {

/// A label that fills a plate.
class LabelBox : public Box {
 public:
  explicit LabelBox(Ref<BKUKLabel> label);

  void layout() override;

 protected:
  void didInit() override;

 private:
  Ref<BKUKLabel> label_;
};

}  // namespace bkuk::gallery
