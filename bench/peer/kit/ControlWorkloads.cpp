#include <array>
#include <stdexcept>
#include <vector>

#include "bench/peer/common/Memory.h"
#include "bench/peer/kit/ProgressBar.h"
#include "bench/peer/kit/PushButton.h"
#include "bench/peer/kit/Scenes.h"
#include "bench/peer/kit/Text.h"
#include "bench/peer/kit/TitledMark.h"
#include "bench/peer/kit/Workloads.h"
#include "bench/peer/qt/Display.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSLayoutAnchor.h"
#include "platform/appkit/NSLayoutConstraint.h"

namespace bkuk::bench {

namespace {

// In a window that is not shown.
Result createPlaced(PartPlacement placement) {
  const Stage stage;
  auto& parent = stage.content();
  const auto add = [&](const std::string& title) {
    parent.addSubview(make<TitledMark>(MarkShape::box, title, placement));
  };
  add("what all of them share");
  const auto titles = peer::checkBoxTitles();
  const auto before = peer::residentBytes();
  const auto cost = peer::costOf([&] {
    for (const auto& title : titles) add(title);
  });
  return {peer::createdCount, {cost}, double(peer::residentBytes() - before) / peer::createdCount};
}

Result repaint(Stage& stage, Stage::Redraw redraw) {
  stage.showFirstFrame();
  Stage::settle();
  return {1, peer::costsOf(40, [&] { stage.paintAgain(redraw); })};
}

void requireState(NSView& view, BKUKInteractionState state) {
  const auto* control = dynamic_cast<TitledMark*>(&view);
  if (control && control->state() != state) throw std::runtime_error("the pointer did not arrive");
}

}  // namespace

Result create() { return createPlaced(PartPlacement::constraints); }
Result createWithoutConstraints() { return createPlaced(PartPlacement::arithmetic); }

Result showControls() {
  std::unique_ptr<Stage> stage;
  const auto cost = peer::costOf([&] {
    stage = makeControls();
    stage->showFirstFrame();
  });
  return {1, {cost}};
}

Result repaintControls() { return repaint(*makeControls(), Stage::Redraw::views); }
Result composeControls() { return repaint(*makeControls(), Stage::Redraw::nothing); }

Result hover() {
  const auto stage = makeControls();
  stage->showFirstFrame();
  Stage::settle();
  peer::Pointer pointer(Stage::turnUntil);
  const auto rest = [&] { pointer.move(1, 1); };
  const auto enter = [&](const NSView& view) {
    const auto frame = view.frame();
    pointer.move(static_cast<int>(frame.minX()) + 10, static_cast<int>(peer::windowHeight - frame.midY()));
  };
  pointer.move(2, 2);
  rest();
  const auto& controls = stage->content().subviews();
  for (const auto& control : controls) {
    enter(*control);
    requireState(*control, BKUKInteractionState::hover);
    rest();
    requireState(*control, BKUKInteractionState::normal);
  }
  const auto cost = peer::costOf([&] {
    for (const auto& control : controls) {
      enter(*control);
      rest();
    }
  });
  return {2 * peer::controlGrid.count(), {cost}};
}

Result changeAppearance() {
  const auto appearances = std::to_array(
      {NSAppearance::named(NSAppearanceNameDarkAqua), NSAppearance::named(NSAppearanceNameAqua)});
  auto& application = NSApplication::shared();
  application.setAppearance(appearances.back());
  const auto stage = makeControls();
  stage->showFirstFrame();
  Stage::settle();
  std::size_t changes = 0;
  return {1, peer::costsOf(10, [&] {
            const auto before = stage->backgroundPixel();
            application.setAppearance(appearances[changes++ % appearances.size()]);
            Stage::turnUntil([&] { return stage->backgroundPixel() != before; });
            peer::waitForDisplay();
          })};
}

void start() {
  Stage stage({400, 200});
  const std::array<Ref<NSView>, 5> controls{
      make<TitledMark>(MarkShape::box, "Check box"), make<TitledMark>(MarkShape::circle, "Radio button"),
      make<ProgressBar>(0.4), makeLabel("Label"), make<PushButton>("Button")};
  auto& content = stage.content();
  std::vector<Ref<NSLayoutConstraint>> constraints;
  auto above = content.topAnchor();
  for (const auto& control : controls) {
    content.addSubview(control);
    constraints.push_back(control->leadingAnchor()->constraintEqualTo(content.leadingAnchor(), 11));
    constraints.push_back(control->trailingAnchor()->constraintEqualTo(content.trailingAnchor(), -11));
    constraints.push_back(control->topAnchor()->constraintEqualTo(above, 11));
    above = control->bottomAnchor();
  }
  NSLayoutConstraint::activateConstraints(constraints);
  stage.showFirstFrame();
  peer::exitAtFirstFrame();
}

}  // namespace bkuk::bench
