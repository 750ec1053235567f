#include "platform/foundation/NSUserDefaults.h"

#include <algorithm>
#include <utility>

#include "host/Host.h"
#include "host/Settings.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

/// "de_AT.UTF-8@euro" as "de-AT". Empty for what names no language.
std::string languageTag(std::string_view name) {
  std::string tag(name.substr(0, name.find_first_of(".@")));
  std::ranges::replace(tag, '_', '-');
  return tag == "C" || tag == "POSIX" ? std::string() : tag;
}

std::optional<NSUserDefaults::Value> hostLanguages() {
  NSUserDefaults::Array tags;
  for (const auto& name : host::current().settings().languages()) {
    if (auto tag = languageTag(name); !tag.empty()) tags.emplace_back(std::move(tag));
  }
  if (tags.empty()) return {};
  return tags;
}

template <typename T>
std::optional<T> as(std::optional<NSUserDefaults::Value> value) {
  T* typed = value ? std::get_if<T>(&*value) : nullptr;
  return typed ? std::optional<T>(std::move(*typed)) : std::nullopt;
}

}  // namespace

NSUserDefaults& NSUserDefaults::standard() {
  static const auto& defaults = permanent([] { return make<NSUserDefaults>(); });
  return *defaults;
}

void NSUserDefaults::set(Value value, std::string_view forKey) {
  values_.insert_or_assign(std::string(forKey), std::move(value));
}

void NSUserDefaults::removeObject(std::string_view forKey) {
  const auto found = values_.find(forKey);
  if (found != values_.end()) values_.erase(found);
}

std::optional<NSUserDefaults::Value> NSUserDefaults::object(std::string_view forKey) const {
  const auto found = values_.find(forKey);
  if (found != values_.end()) return found->second;
  return forKey == "AppleLanguages" ? hostLanguages() : std::nullopt;
}

std::optional<NSUserDefaults::Array> NSUserDefaults::array(std::string_view forKey) const {
  return as<Array>(object(forKey));
}

std::optional<std::vector<std::string>> NSUserDefaults::stringArray(std::string_view forKey) const {
  const auto elements = array(forKey);
  if (!elements) return {};
  std::vector<std::string> strings;
  for (const auto& element : *elements) {
    const auto* text = std::get_if<std::string>(&element);
    if (!text) return {};
    strings.push_back(*text);
  }
  return strings;
}

std::optional<std::string> NSUserDefaults::string(std::string_view forKey) const {
  return as<std::string>(object(forKey));
}

std::optional<NSUserDefaults::Data> NSUserDefaults::data(std::string_view forKey) const {
  return as<Data>(object(forKey));
}

bool NSUserDefaults::bool_(std::string_view forKey) const { return as<bool>(object(forKey)).value_or(false); }

std::int64_t NSUserDefaults::integer(std::string_view forKey) const {
  return as<std::int64_t>(object(forKey)).value_or(0);
}

double NSUserDefaults::double_(std::string_view forKey) const {
  const auto value = object(forKey);
  const auto whole = as<std::int64_t>(value);
  return whole ? static_cast<double>(*whole) : as<double>(value).value_or(0);
}

}  // namespace bkuk
