#include "BrenvikUIKit/colour/BKUKTheme.h"

#include <utility>

#include "platform/foundation/Fatal.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

struct State {
  Ref<BKUKThemeColorsProvider> palette;
  BKUKTheme::GlobalOverride globalOverride;
  BKUKTheme::Overrides overrides;
};

State& state() {
  static auto& theme = *new State;
  return theme;
}

class ResolvedPalette final : public BKUKThemeColorsProvider {
 public:
  [[nodiscard]] Ref<NSColor> color(BKUKThemeColorRole role) const override { return BKUKTheme::color(role); }
};

// Callbacks are called as copies, because they may replace or erase the very entry they are kept in.

BKUKTheme::Producer globalProducer(BKUKThemeColorRole role) {
  if (!state().globalOverride) return nullptr;
  const auto override = state().globalOverride;
  return override(roleName(role));
}

BKUKTheme::Producer ownProducer(BKUKThemeColorRole role) {
  const auto& overrides = state().overrides;
  if (overrides.empty()) return nullptr;
  const auto found = overrides.find(roleName(role));
  return found == overrides.end() ? nullptr : found->second;
}

Ref<NSColor> answer(BKUKThemeColorRole role) {
  if (const auto producer = globalProducer(role)) return producer();
  if (const auto producer = ownProducer(role)) return producer();
  const auto palette = state().palette;
  if (!palette) trap("BKUKTheme: no palette; call BKUKTheme::setDefault before the first color is asked for");
  return palette->color(role);
}

}  // namespace

const Ref<BKUKThemeColorsProvider>& BKUKTheme::default_() { return state().palette; }

void BKUKTheme::setDefault(Ref<BKUKThemeColorsProvider> palette) { state().palette = std::move(palette); }

const BKUKTheme::GlobalOverride& BKUKTheme::globalOverride() { return state().globalOverride; }

void BKUKTheme::setGlobalOverride(GlobalOverride override) { state().globalOverride = std::move(override); }

BKUKTheme::Overrides& BKUKTheme::overrides() { return state().overrides; }

Ref<NSColor> BKUKTheme::color(BKUKThemeColorRole role) {
  auto color = answer(role);
  if (!color)
    trap("BKUKTheme: no color for the role " + std::string(roleName(role)) +
         "; let the palette or override answer one");
  return color;
}

const BKUKThemeColorsProvider& BKUKTheme::provider() {
  static const auto& resolved = permanent([] { return make<ResolvedPalette>(); });
  return *resolved;
}

}  // namespace bkuk
