#include "platform/foundation/NSCoding.h"

#include <map>
#include <string>
#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

std::map<std::string, NSCodingRegistration::Factory, std::less<>>& factories() {
  static auto& byClassName = *new std::map<std::string, NSCodingRegistration::Factory, std::less<>>;
  return byClassName;
}

}  // namespace

NSCodingRegistration::NSCodingRegistration(std::string_view className, Factory factory) {
  required(factory, "NSCodingRegistration: no factory; give one that decodes the class");
  factories().insert_or_assign(std::string(className), std::move(factory));
}

NSCodingRegistration::Factory NSCodingRegistration::find(std::string_view className) {
  const auto found = factories().find(className);
  return found != factories().end() ? found->second : Factory();
}

}  // namespace bkuk
