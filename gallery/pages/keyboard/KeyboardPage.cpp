#include "gallery/pages/keyboard/KeyboardPage.h"

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "gallery/cards/Grid.h"
#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Preset = BKUKKeyFocusController::Preset;

constexpr CGFloat margin = 28;
constexpr CGFloat topMargin = 4;
constexpr CGFloat headingHeight = 20;
constexpr CGFloat gap = 12;
constexpr CGFloat sectionGap = 28;
constexpr CGFloat widestCard = 440;
constexpr CGFloat shownHeight = 44;
constexpr std::size_t logLines = 14;

CGFloat heightOfCards(std::size_t count) {
  return static_cast<CGFloat>(count) * (MonitorCard::height + gap) - gap;
}

CGFloat cardWidth(CGFloat width) { return std::min(widestCard, (width - 20) * 0.58); }

Grid grid(CGFloat width) {
  return {.width = width,
          .narrowest = 200,
          .cellHeight = shownHeight + Specimen::captionHeight,
          .gap = 20,
          .maxColumns = 3};
}

}  // namespace

void KeyboardPage::didInit() {
  GalleryPage::didInit();
  stackHeading_ = makeHeading("Key monitors: the upper one hears first");
  addSubview(stackHeading_);
  makeMonitors();
  log_ = make<LogCard>(logLines, "Press Return or Escape.");
  addSubview(log_);
  presetsHeading_ = makeHeading("Focus controller: who is reached by Tab");
  addSubview(presetsHeading_);
  makePresets();
}

// Monitors

BKUKKeyMonitor::Action KeyboardPage::heard(std::string who, std::string key, bool consumes) {
  return [page = Weak<KeyboardPage>(this),
          line = key + ": " + who + (consumes ? " consumes it" : " lets it go"), consumes](NSEvent&) {
    if (const auto self = page.lock()) self->log_->add(line);
    return consumes;
  };
}

void KeyboardPage::makeMonitors() {
  using Options = BKUKKeyMonitor::Options;
  const auto sheet = make<BKUKKeyMonitor>();
  sheet->setSubmit(heard("Sheet", "Return", true));
  sheet->setOptions(Options::passWhenNoAction);
  const auto dialog = make<BKUKKeyMonitor>();
  dialog->setCancel(heard("Dialog", "Escape", false));
  dialog->setSubmit(heard("Dialog", "Return", true));
  dialog->setOptions(Options::passWhenNotConsumed);
  const auto window = make<BKUKKeyMonitor>();
  window->setCancel(heard("Window", "Escape", true));
  monitors_ = {make<MonitorCard>("Sheet", "Consumes Return", sheet),
               make<MonitorCard>("Dialog", "Consumes Return, looks at Escape", dialog),
               make<MonitorCard>("Window", "Consumes Escape", window)};
  for (const auto& card : monitors_) addSubview(card);
}

void KeyboardPage::viewDidMoveToWindow() {
  GalleryPage::viewDidMoveToWindow();
  const auto window = as<BKUKWindow>(this->window());
  for (auto card = monitors_.rbegin(); card != monitors_.rend(); ++card) {
    (*card)->monitor()->deactivate();
    if (window) (*card)->monitor()->activate(*window);
  }
}

// Presets

void KeyboardPage::makePresets() {
  addPreset("Text field", "Always", Preset::textField);
  addPreset("Button", "With full keyboard access", Preset::button);
  addPreset("Inactive", "Never", Preset::inactive);
}

void KeyboardPage::addPreset(std::string name, std::string remark, Preset preset) {
  const auto button = make<Button>(name);
  button->setFocus(make<BKUKKeyFocusController>(button.get(), preset));
  presets_.push_back({make<Specimen>(button, std::move(name), std::move(remark)), button});
  addSubview(presets_.back().specimen);
}

std::vector<NSView*> KeyboardPage::keyViews() const {
  std::vector<NSView*> views;
  for (const auto& card : monitors_) {
    const auto ofCard = card->keyViews();
    views.insert(views.end(), ofCard.begin(), ofCard.end());
  }
  for (const auto& preset : presets_) views.push_back(preset.button.get());
  return views;
}

// Layout

CGFloat KeyboardPage::heightForWidth(CGFloat width) const {
  return topMargin + headingHeight + gap + heightOfCards(monitors_.size()) + sectionGap + headingHeight +
         gap + grid(width - 2 * margin).heightOf(presets_.size()) + margin;
}

void KeyboardPage::layout() {
  const CGFloat width = bounds().width() - 2 * margin;
  CGFloat top = topMargin;
  stackHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  const CGFloat cards = cardWidth(width);
  const CGFloat logStart = margin + cards + 20;
  const CGFloat cardsHeight = heightOfCards(monitors_.size());
  log_->setFrame(fromLeading(*this, {logStart, top, margin + width - logStart, cardsHeight}));
  for (const auto& card : monitors_) {
    card->setFrame(fromLeading(*this, {margin, top, cards, MonitorCard::height}));
    top += MonitorCard::height + gap;
  }
  top += sectionGap - gap;
  presetsHeading_->setFrame({margin, top, width, headingHeight});
  top += headingHeight + gap;
  for (std::size_t i = 0; i < presets_.size(); ++i) {
    NSRect cell = grid(width).cell(i);
    cell.origin.x += margin;
    cell.origin.y += top;
    presets_[i].specimen->setFrame(fromLeading(*this, cell));
  }
}

}  // namespace bkuk::gallery
