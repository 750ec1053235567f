#pragma once

#include <string>
#include <typeinfo>

namespace bkuk {

/// The class's name as it is written in the sources, namespaces included.
[[nodiscard]] std::string qualifiedClassName(const std::type_info& type);

/// The class's name without namespaces and enclosing classes.
[[nodiscard]] std::string plainClassName(const std::type_info& type);

}  // namespace bkuk
