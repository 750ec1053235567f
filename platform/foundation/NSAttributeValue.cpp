#include "platform/foundation/NSAttributeValue.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

NSAttributeValue::NSAttributeValue(Ref<NSObject> object) : value_(std::move(object)) {
  if (!std::get<Ref<NSObject>>(value_))
    trap("NSAttributeValue: an object that is absent; leave the attribute out instead");
}

std::optional<double> NSAttributeValue::number() const {
  if (const auto* number = std::get_if<double>(&value_)) return *number;
  if (const auto* number = std::get_if<float>(&value_)) return *number;
  if (const auto* number = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*number);
  return {};
}

std::optional<std::int64_t> NSAttributeValue::integer() const {
  if (const auto* number = std::get_if<std::int64_t>(&value_)) return *number;
  return {};
}

std::optional<bool> NSAttributeValue::boolean() const {
  if (const auto* flag = std::get_if<bool>(&value_)) return *flag;
  return {};
}

bool NSAttributeValue::operator==(const NSAttributeValue& other) const {
  const auto* object = std::get_if<Ref<NSObject>>(&value_);
  const auto* otherObject = std::get_if<Ref<NSObject>>(&other.value_);
  if (object && otherObject) return *object == *otherObject || (*object)->isEqual(otherObject->get());
  if (value_ == other.value_) return true;
  const auto mine = number();
  return mine && mine == other.number();
}

}  // namespace bkuk
