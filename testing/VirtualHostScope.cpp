#include "testing/VirtualHostScope.h"

namespace bkuk {

VirtualHostScope::VirtualHostScope()
    : previous_(host::install(std::make_unique<VirtualHost>())),
      host_(static_cast<VirtualHost&>(host::current())) {}

VirtualHostScope::~VirtualHostScope() { host::install(std::move(previous_)); }

}  // namespace bkuk
