// Small scenes whose instructions are counted: `InstructionScenes SCENE` plays one, `InstructionScenes` lists
// them. What `measured` calls is counted, what comes before it is not. See bench/guard/guard.py.

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "BrenvikUIKit/animation/BKUKLinearAnimationContext.h"
#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKLabel.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/coregraphics/CGColor.h"
#include "testing/VirtualHostScope.h"

/// Known to Callgrind by this name.
extern "C" [[gnu::noinline]] void measured(const std::function<void()>& work) { work(); }

namespace bkuk {
namespace {

constexpr int columns = 20;
constexpr int rows = 50;
constexpr int controlCount = columns * rows;
constexpr NSSize cell{60, 20};

NSRect place(int index) {
  return {index % columns * cell.width, index / columns * cell.height, cell.width - 6, cell.height - 4};
}

Ref<BKUKLabel> makeLabel(const std::string& text) {
  auto label = BKUKLabel::label(text);
  label->setTextColor(NSColor::black());
  return label;
}

/// A rounded box that shows where the pointer is, with a title in its middle or at its leading edge.
class Control : public BKUKStatefulView {
 public:
  explicit Control(std::string title) : title_(std::move(title)) {}

  void updateLayer() override {
    BKUKStatefulView::updateLayer();
    static const auto& resting = *new Ref<CGColor>(CGColor::srgb(0.9, 0.9, 0.95));
    static const auto& hovered = *new Ref<CGColor>(CGColor::srgb(0.7, 0.8, 1));
    layer()->setCornerRadius(4);
    layer()->setBackgroundColor(state() == States::hover ? hovered : resting);
  }
  [[nodiscard]] BKUKLabel& label() const { return *label_; }

 protected:
  void didInit() override {
    BKUKStatefulView::didInit();
    label_ = makeLabel(title_);
    label_->setTranslatesAutoresizingMaskIntoConstraints(false);
    addSubview(label_);
    const std::array all{label_->leadingAnchor()->constraintEqualTo(leadingAnchor(), 4),
                         label_->trailingAnchor()->constraintEqualTo(trailingAnchor()),
                         label_->centerYAnchor()->constraintEqualTo(centerYAnchor())};
    NSLayoutConstraint::activateConstraints(all);
  }

 private:
  std::string title_;
  Ref<BKUKLabel> label_;
};

std::string title(int index) { return "Box " + std::to_string(index); }

/// A window full of controls.
struct Window {
  explicit Window(int count = controlCount) {
    for (int i = 0; i < count; ++i) add(i);
  }
  ~Window() {
    if (window) window->close();
  }

  void add(int index) {
    auto control = make<Control>(title(index));
    control->setTranslatesAutoresizingMaskIntoConstraints(true);
    control->setFrame(place(index));
    window->contentView()->addSubview(control);
    controls.push_back(std::move(control));
  }
  void show() {
    window->makeKeyAndOrderFront();
    host->settle();
  }
  [[nodiscard]] VirtualWindow& desktop() const { return *host->windows().front(); }

  VirtualHostScope host;
  Ref<BKUKWindow> window = make<BKUKWindow>(NSRect{0, 0, columns* cell.width, rows* cell.height});
  std::vector<Ref<Control>> controls;
};

void create() {
  Window window(1);
  measured([&] {
    for (int i = 1; i <= 200; ++i) window.add(i);
  });
}

void firstFrame() {
  { Window(1).show(); }  // what a process does once
  Window window;
  measured([&] { window.show(); });
}

void destroy() {
  Window window;
  window.show();
  window.window->close();
  measured([&] {
    window.controls.clear();
    window.window = nullptr;
  });
}

void hover() {
  Window window;
  window.show();
  const auto move = [&](int step) {
    window.desktop().movePointer({5 + step % columns * cell.width, step % 2 ? 110.0 : 119.0});
  };
  for (int step = 0; step < 4; ++step) move(step);
  measured([&] {
    for (int step = 0; step < 40; ++step) move(step);
  });
}

void changedLabel() {
  Window window;
  window.show();
  const auto set = [&](int number) {
    window.controls[500]->label().setStringValue("No. " + std::to_string(number % 2));
    window.host->settle();
  };
  for (int i = 0; i < 4; ++i) set(i);
  measured([&] {
    for (int i = 0; i < 20; ++i) set(i);
  });
}

void changedConstant() {
  Window window;
  auto& content = *window.window->contentView();
  const auto view = make<BKUKStatefulView>();
  content.addSubview(view);
  const auto leading = view->leadingAnchor()->constraintEqualTo(content.leadingAnchor(), 10);
  const std::array all{leading, view->topAnchor()->constraintEqualTo(content.topAnchor(), 10),
                       view->widthAnchor()->constraintEqualToConstant(50),
                       view->heightAnchor()->constraintEqualToConstant(20)};
  NSLayoutConstraint::activateConstraints(all);
  window.show();
  measured([&] {
    for (int i = 0; i < 20; ++i) {
      leading->setConstant(10 + i % 2);
      window.host->settle();
    }
  });
}

void addedView() {
  Window window;
  window.show();
  measured([&] {
    for (int i = 0; i < 20; ++i) {
      window.add(100 + i);
      window.host->settle();
    }
  });
}

void redrawn() {
  Window window;
  window.show();
  measured([&] {
    window.window->setBackgroundColor(NSColor::white());
    for (const auto& control : window.controls) {
      control->setNeedsDisplay(true);
      control->label().setNeedsDisplay(true);
    }
    window.host->settle();
  });
}

void appearance() {
  Window window;
  window.show();
  window.host->setAppearance({.scheme = host::ColorScheme::dark});
  measured([&] { window.host->setAppearance({.scheme = host::ColorScheme::light}); });
}

void firstTab() {
  Window window;
  window.show();
  measured([&] { window.window->selectNextKeyView(); });
}

void measuredTexts() {
  const VirtualHostScope host;
  std::vector<Ref<BKUKLabel>> labels;
  for (int i = 0; i < 200; ++i) labels.push_back(makeLabel("Choose place " + std::to_string(i)));
  (void)makeLabel("Choose place 0123456789")->intrinsicContentSize();
  measured([&] {
    for (const auto& label : labels) (void)label->intrinsicContentSize();
  });
}

void markup() {
  std::string text;
  while (text.size() < 64 << 10) text += "some wor[b]that are[/b]and a[link]linked[/link]";
  const NSString markup(text);
  BKUKAttributedTextXMLConstructor::Styles styles;
  styles["b"] = {{NSKernAttributeName, 1}};
  styles["link"] = {{NSLinkAttributeName, "link"}};
  measured([&] { (void)BKUKAttributedTextXMLFactory::createAttributedText(markup, styles, {}); });
}

void animationTick() {
  const VirtualHostScope host;
  std::size_t calls = 0;
  std::vector<Ref<BKUKLinearAnimationContext>> contexts;
  for (int i = 0; i < 1000; ++i) {
    contexts.push_back(make<BKUKLinearAnimationContext>(std::nullopt, 0, 1));
    contexts.back()->setBlock([&calls] { ++calls; });
    contexts.back()->startAnimating();
  }
  auto& animator = BKUKLinearAnimator::sharedInstance();
  const Selector frame("onFrame");
  animator.perform(frame);
  measured([&] { animator.perform(frame); });
  contexts.clear();
  animator.perform(frame);
}

void shadows() {
  Window window(0);
  for (int i = 0; i < 100; ++i) {
    const auto view = make<NSView>(NSRect{i % 10 * 118.0 + 10, i / 10 * 98.0 + 10, 90, 70});
    view->setWantsLayer(true);
    window.window->contentView()->addSubview(view);
    view->layer()->setBackgroundColor(CGColor::white());
    view->layer()->setCornerRadius(8);
    view->layer()->setShadowOpacity(0.4);
    view->layer()->setShadowRadius(10);
  }
  window.show();
  measured([&] {
    window.window->setBackgroundColor(NSColor::white());
    window.host->settle();
  });
}

struct Scene {
  const char* name;
  void (*play)();
};

constexpr Scene scenes[] = {
    {"create", create},
    {"first-frame", firstFrame},
    {"destroy", destroy},
    {"hover", hover},
    {"changed-label", changedLabel},
    {"changed-constant", changedConstant},
    {"added-view", addedView},
    {"redrawn", redrawn},
    {"appearance", appearance},
    {"first-tab", firstTab},
    {"measured-texts", measuredTexts},
    {"markup", markup},
    {"animation-tick", animationTick},
    {"shadows", shadows},
};

}  // namespace
}  // namespace bkuk

int main(int argc, char** argv) {
  const std::string_view wanted = argc > 1 ? argv[1] : "";
  for (const auto& scene : bkuk::scenes) {
    if (wanted.empty()) std::puts(scene.name);
    if (wanted == scene.name) return scene.play(), 0;
  }
  return wanted.empty() ? 0 : 2;
}
