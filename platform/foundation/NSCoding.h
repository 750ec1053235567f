#pragma once

#include <functional>
#include <string_view>

#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSCoder;

/// Added to the bases of a class whose objects can be archived. The archive names the class by `className()`;
/// to be read back the class registers that name, in its own source:
///
///     static const NSCodingRegistration registration("Dial", &Dial::decoded);
class NSCoding {
 public:
  virtual ~NSCoding() = default;
  /// Writes the object's fields under their keys. Called by an archiver, once for each object.
  virtual void encode(NSCoder& coder) const = 0;
};

/// Registers how objects of one archived class are made from a coder, for the rest of the process's life.
struct NSCodingRegistration {
  /// An empty result means that what the archive holds is not a valid object of the class.
  using Factory = std::function<Ref<NSObject>(NSCoder& coder)>;
  NSCodingRegistration(std::string_view className, Factory factory);

  /// An empty function when no class of that name is registered.
  [[nodiscard]] static Factory find(std::string_view className);
};

}  // namespace bkuk
