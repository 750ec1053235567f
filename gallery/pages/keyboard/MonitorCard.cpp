#include "gallery/pages/keyboard/MonitorCard.h"

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;
using Options = BKUKKeyMonitor::Options;

constexpr CGFloat padding = 16;

}  // namespace

MonitorCard::MonitorCard(std::string name, std::string keys, Ref<BKUKKeyMonitor> monitor)
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}),
      monitor_(std::move(monitor)),
      name_(makeHeading(std::move(name), role(Role::onSurface))),
      keys_(makeRemark(std::move(keys), role(Role::onSurfaceSecondary))) {}

void MonitorCard::didInit() {
  Box::didInit();
  addSubview(name_);
  addSubview(keys_);
  switches_ = {makeSwitch("Pass other keys", Options::passWhenNoAction),
               makeSwitch("Pass what is not consumed", Options::passWhenNotConsumed)};
}

Ref<Button> MonitorCard::makeSwitch(std::string title, Options option) {
  const auto toggle = make<Button>(std::move(title), Button::Kind::toggle);
  toggle->setSelected(monitor_->options().contains(option));
  toggle->setActionBlock([monitor = monitor_, option](BKUKStatefulView& sender) {
    const auto rest = monitor->options().rawValue & ~option.rawValue;
    monitor->setOptions({sender.isSelected() ? rest | option.rawValue : rest});
  });
  addSubview(toggle);
  return toggle;
}

std::vector<NSView*> MonitorCard::keyViews() const { return {switches_[0].get(), switches_[1].get()}; }

void MonitorCard::layout() {
  const CGFloat width = bounds().width() - 2 * padding;
  name_->setFrame({padding, 12, width, 20});
  keys_->setFrame({padding, 33, width, 18});
  CGFloat start = padding;
  for (const auto& toggle : switches_) {
    const NSSize size = toggle->fittingSize();
    toggle->setFrame(fromLeading(*this, {{start, height - padding - size.height + 2}, size}));
    start += size.width + 8;
  }
}

}  // namespace bkuk::gallery
