#include "platform/appkit/NSEventMonitor.h"

#include <vector>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

std::vector<Ref<NSEventMonitor>>& installed() {
  static auto& monitors = *new std::vector<Ref<NSEventMonitor>>;
  return monitors;
}

}  // namespace

Ref<NSEventMonitor> NSEventMonitor::addLocalMonitorForEvents(NSEventMask mask, Handler handler) {
  required(handler, "NSEventMonitor: no handler; give addLocalMonitorForEvents one");
  auto monitor = make<NSEventMonitor>(mask, std::move(handler));
  installed().push_back(monitor);
  return monitor;
}

void NSEventMonitor::removeMonitor(const Ref<NSEventMonitor>& monitor) {
  if (!monitor) return;
  monitor->removed_ = true;
  std::erase(installed(), monitor);
}

Ref<NSEvent> NSEventMonitor::filter(Ref<NSEvent> event) {
  if (installed().empty()) return event;
  const auto snapshot = installed();
  for (const auto& monitor : snapshot) {
    if (!event) break;
    if (monitor->removed_ || !(monitor->mask_ & NSEventMaskFromType(event->type()))) continue;
    event = monitor->handler_(*event);
  }
  return event;
}

}  // namespace bkuk
