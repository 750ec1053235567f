#include "testing/VirtualHost.h"

namespace bkuk {

VirtualHost::VirtualHost() : loop_(host::EventSources({&settings_.events(), &desktop_.events()})) {}

void VirtualHost::setAppearance(const host::Appearance& appearance) {
  settings_.announceAppearance(appearance);
  settle();
}

}  // namespace bkuk
