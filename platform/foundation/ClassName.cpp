#include "platform/foundation/ClassName.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace bkuk {

std::string qualifiedClassName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> plain(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  return status == 0 ? plain.get() : type.name();
}

std::string plainClassName(const std::type_info& type) {
  const std::string name = qualifiedClassName(type);
  const auto scopeEnd = name.substr(0, name.find('<')).rfind("::");
  return scopeEnd == std::string::npos ? name : name.substr(scopeEnd + 2);
}

}  // namespace bkuk
