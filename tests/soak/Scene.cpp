#include "tests/soak/Scene.h"

#include <string>
#include <thread>

#include "BrenvikUIKit/animation/BKUKAnimate.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/text/NSFont.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk::soak {

namespace {

constexpr int rows = 24;
constexpr int stepsPerRound = 30;
constexpr CGFloat rowHeight = 20;
constexpr CGFloat width = 400;
constexpr CGFloat height = rows * rowHeight;

// Few enough that caches of texts are full soon.
constexpr int lastText = 99;

NSRect rowFrame(int row, CGFloat x) { return {x, row * rowHeight, width / 2 - 4, rowHeight - 2}; }

}  // namespace

void Scene::playRound() {
  open();
  for (int step = 0; step < stepsPerRound; ++step) playStep();
  close();
}

void Scene::open() {
  window_ = make<BKUKWindow>(NSRect(10, 10, width, height));
  for (int row = 0; row < rows; ++row) {
    const auto label = make<BKUKLabel>(rowFrame(row, 0));
    label->setFont(NSFont::systemFont(13));
    label->setTextColor(NSColor::black());
    labels_.push_back(label);
    const auto control = make<BKUKTriggerView>(rowFrame(row, width / 2));
    control->setActionBlock([this](BKUKTriggerView&) { ++presses_; });
    controls_.push_back(control);
    window_->contentView()->addSubview(label);
    window_->contentView()->addSubview(control);
  }
  changeTexts();
  timer_ = NSTimer::scheduledTimer(0.05, true, [this](NSTimer&) { changeTexts(); });
  window_->makeKeyAndOrderFront();
  host_->settle();
}

void Scene::playStep() {
  switch (upTo(4)) {
    case 0:
      animate();
      break;
    case 1:
      pressSomething();
      break;
    case 2:
      tellUnderFreshName();
      break;
    case 3:
      changeAppearance();
      break;
    default:
      letGoElsewhere();
      break;
  }
  host_->advance(0.03);
}

void Scene::changeTexts() {
  for (const auto& label : labels_) label->setStringValue("Row " + std::to_string(upTo(lastText)));
}

void Scene::animate() {
  const auto& control = controls_[static_cast<std::size_t>(upTo(rows - 1))];
  BKUKAnimate(0.1, make<CAMediaTimingFunction>(0.4, 0, 0.6, 1), [&] {
    control->layer()->setOpacity(upTo(1) == 0 ? 0.5F : 1);
    control->setFrame(rowFrame(upTo(rows - 1), width / 2));
  });
}

void Scene::pressSomething() {
  auto& desktop = *host_->windows().front();
  desktop.click({double(upTo(int(width))), double(upTo(int(height)))});
  desktop.typeKey(48, "\t");
  desktop.typeKey(49, " ");
  const VirtualScreenReader reader(*host_);
  static_cast<void>(reader.children(reader.window()));
  window_->setTitle(std::to_string(upTo(lastText)));
}

void Scene::tellUnderFreshName() {
  auto& center = NSNotificationCenter::default_();
  const NSNotificationName name("soak." + std::to_string(++names_));
  const auto token = center.addObserver(name, nullptr, nullptr, [this](NSNotification&) { ++presses_; });
  center.addObserver(controls_.front().get(), "unheard",
                     NSNotificationName("soak.removed." + std::to_string(names_)));
  center.post(name);
  center.removeObserver(token.get());
}

void Scene::changeAppearance() {
  using host::ColorScheme;
  host_->setAppearance({.scheme = upTo(1) == 0 ? ColorScheme::light : ColorScheme::dark});
}

void Scene::letGoElsewhere() {
  auto view = make<NSView>(NSRect(0, 0, 10, 10));
  window_->contentView()->addSubview(view);
  host_->settle();
  view->removeFromSuperview();
  std::thread([last = std::move(view)]() mutable { last = nullptr; }).join();
}

void Scene::close() {
  std::exchange(timer_, nullptr)->invalidate();
  NSNotificationCenter::default_().removeObserver(controls_.front().get());
  window_->close();
  window_ = nullptr;
  labels_.clear();
  controls_.clear();
  host_->advance(1);
}

}  // namespace bkuk::soak
