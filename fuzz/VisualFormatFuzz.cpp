#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSView.h"
#include "platform/appkit/constraints/VisualFormat.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr std::size_t mostElements = 64;  // more would only show that solving takes time
constexpr double farthest = 1e6;

void lowerPriority(const VisualFormat::Predicate& predicate, bool& isValid) {
  const auto isFar = [](double number) { return number > farthest || number < -farthest; };
  if (isFar(predicate.object.number)) isValid = false;
  if (!predicate.priority || !predicate.priority->name.empty()) return;
  const double priority = predicate.priority->number;
  if (!(static_cast<float>(priority) > 0 && static_cast<float>(priority) <= 1000)) isValid = false;
}

/// Every name is a view, and a metric where only that fits, so that what can be read can be laid out.
void layOut(std::string_view text, const VisualFormat& format) {
  const auto root = make<NSView>(NSRect(0, 0, 300, 200));
  std::map<std::string, NSLayoutItem*> views;
  std::map<std::string, CGFloat> metrics;
  bool isValid = format.elements.size() <= mostElements;
  const auto name = [&](const VisualFormat::Predicate& predicate) {
    metrics[predicate.object.name] = 12;
    if (predicate.priority) metrics[predicate.priority->name] = 500;
    lowerPriority(predicate, isValid);
  };
  for (const auto& element : format.elements) {
    for (const auto& predicate : element.size) name(predicate);
    if (element.isSuperview() || views.contains(element.name)) continue;
    const auto view = make<NSView>();
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    root->addSubview(view);
    views[element.name] = view.get();
  }
  for (const auto& gap : format.gaps) {
    for (const auto& predicate : gap.distance) name(predicate);
  }
  if (!isValid) return;
  const auto constraints = NSLayoutConstraint::constraintsWithVisualFormat(text, 0, metrics, views);
  NSLayoutConstraint::activateConstraints(constraints);
  root->layoutSubtreeIfNeeded();
}

}  // namespace
}  // namespace bkuk

/// What can be read can be made into constraints and laid out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace bkuk;
  static const auto& host = *new VirtualHostScope;
  (void)host;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto parsed = VisualFormat::parse(text);
  if (const auto* format = std::get_if<VisualFormat>(&parsed)) layOut(text, *format);
  return 0;
}
