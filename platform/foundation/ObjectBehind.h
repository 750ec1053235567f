#pragma once

#include <string>
#include <typeinfo>

#include "platform/foundation/ClassName.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// The object that implements a delegate or listener of an interface that knows of no object, so that it can
/// be held weakly; null for an absent one. A class that does not derive from `NSObject` as well is a fatal
/// error: nothing would tell when it is gone.
template <typename Interface>
NSObject* objectBehind(Interface* listener) {
  auto* object = dynamic_cast<NSObject*>(listener);
  if (!listener || object) return object;
  fatal(plainClassName(typeid(*listener)) + " has to derive from NSObject to be a delegate or listener",
        "platform/foundation/ObjectBehind");
}

}  // namespace bkuk
