#include "Values.h"

#include "testing/VirtualHost.h"

using namespace bkuk;

// Values named by what differs from their defaults, each with one member, so that a compiler speaks of every
// other that has no initialiser.

namespace {

template <typename... Value>
std::size_t count(const Value&...) {
  return sizeof...(Value);
}

std::size_t kitValues() {
  return count(BKUKGradient{.colors = {NSColor::red()}}, BKUKLinearGradientSettings{.opacity = 0.5F},
               BKUKShadowSettings{.radius = 1}, BKUKLineStyle{.width = 2},
               BKUKLanguageIdentifier{.language = "de"}, BKUKParagraphAttributes{.lineHeight = 20},
               BKUKTextAttributes{.letterSpacing = 1}, BKUKFontChanges{.size = 12},
               BKUKLabelDrawingOptions{.fontSmoothing = false}, BKUKFillView::Look{.borderWidth = 1},
               BKUKStatefulColors::Changes{.hover = NSColor::red()}, NSEvent::Fields{.clickCount = 1},
               NSEdgeInsets{.top = 1}, NSScreen{.frame = {0, 0, 1, 1}});
}

std::size_t hostValues() {
  return count(host::Appearance{.scheme = host::ColorScheme::dark}, host::Stroke{.width = 1},
               host::Modifiers{.shift = true}, host::PointerEvent{.clickCount = 1},
               host::WheelEvent{.deltaY = 1}, host::KeyEvent{.isRepeat = true}, host::Screen{.frame = {}},
               host::WindowOptions{.frame = {}}, host::AccessibilityElement{.name = "name"},
               host::FontMetrics{.ascent = 1});
}

}  // namespace

std::size_t countValues() { return kitValues() + hostValues(); }

bool componentsTakeBraces() {
  const auto view = make<BKUKFillView>({.background = NSColor::red(), .borderWidth = 2});
  const auto monitor = make<BKUKKeyMonitor>();
  monitor->setAction({36, 76}, [](NSEvent&) { return true; });
  return view->privateStyle()->borderWidth() == 2 && monitor->action(36) && monitor->action(76);
}

bool applicationsNeedNoOtherHeader() {
  NSUserDefaults::standard().set(NSUserDefaults::Value(std::int64_t{1}), "answer");
  const auto bytes = NSKeyedArchiver::archivedData(*NSColor::red());
  bool ran = false;
  BKUKDontAnimate(true, [&] { ran = CATransaction::disableActions(); });
  const auto animation = make<CABasicAnimation>("opacity");
  NSRunLoop::main().run(NSDefaultRunLoopMode, [&] { return !ran; });
  return ran && animation && !bytes.empty();
}
