#pragma once

#include <utility>

#include "platform/foundation/NSNotificationName.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// What an observer is told: that `name` happened to `object`, both as posted.
class NSNotification final : public NSObject {
 public:
  explicit NSNotification(NSNotificationName name, Ref<NSObject> object = {}, Ref<NSObject> userInfo = {})
      : name_(std::move(name)), object_(std::move(object)), userInfo_(std::move(userInfo)) {}

  [[nodiscard]] NSNotificationName name() const { return name_; }
  [[nodiscard]] NSObject* object() const { return object_.get(); }
  [[nodiscard]] NSObject* userInfo() const { return userInfo_.get(); }

 private:
  NSNotificationName name_;
  Ref<NSObject> object_;
  Ref<NSObject> userInfo_;
};

}  // namespace bkuk
