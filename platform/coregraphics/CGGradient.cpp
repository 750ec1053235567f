#include "platform/coregraphics/CGGradient.h"

#include <algorithm>

namespace bkuk {

namespace {

double evenLocation(std::size_t index, std::size_t count) {
  return count < 2 ? 0 : static_cast<double>(index) / static_cast<double>(count - 1);
}

// Also turns what is no number into 0.
double unit(CGFloat value) { return value > 0 ? std::min(value, 1.0) : 0; }

}  // namespace

Ref<CGGradient> CGGradient::create(const Ref<CGColorSpace>& space, std::span<const Ref<CGColor>> colors,
                                   const std::optional<std::vector<CGFloat>>& locations) {
  if (colors.empty()) return {};
  std::vector<host::GradientStop> stops;
  stops.reserve(colors.size());
  for (std::size_t index = 0; index < colors.size(); ++index) {
    const double location = !locations                  ? evenLocation(index, colors.size())
                            : index < locations->size() ? unit((*locations)[index])
                                                        : 1;
    stops.push_back({location, colors[index]->converted(space)->rgba()});
  }
  std::ranges::stable_sort(stops, {}, &host::GradientStop::location);
  return Ref<CGGradient>::adopt(new CGGradient(space, std::move(stops)));
}

}  // namespace bkuk
