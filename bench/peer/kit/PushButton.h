#pragma once

#include <string>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"

namespace bkuk::bench {

/// A rounded, bordered button with a title.
class PushButton : public BKUKStatefulView {
 public:
  explicit PushButton(std::string title) : title_(std::move(title)) {}

  void updateLayer() override;

 protected:
  void didInit() override;

 private:
  const std::string title_;
};

}  // namespace bkuk::bench
