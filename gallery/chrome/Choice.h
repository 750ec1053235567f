#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/ChoiceOption.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// One of several named options, chosen by a click or, with the keyboard on it, by the arrow keys. The
/// options stand beside each other as segments or below each other as a list.
class Choice : public Box {
 public:
  enum class Arrangement { segments, list };
  using Handler = std::function<void(std::size_t index)>;

  Choice(Arrangement arrangement, std::vector<std::string> options, std::size_t selected, Handler chosen);

  [[nodiscard]] Arrangement arrangement() const { return arrangement_; }
  [[nodiscard]] std::size_t selected() const { return selected_; }
  /// Shows another option as chosen without calling the handler.
  void setSelected(std::size_t index);
  /// As the user does, with a call of the handler for another option than the chosen one.
  void choose(std::size_t index);

  /// Scrolls so that the chosen option can be seen.
  void revealSelected();

  /// What the options need, in points.
  [[nodiscard]] NSSize fittingSize() const override;

  /// The options are parts of this view, not views to be pressed themselves.
  [[nodiscard]] Ref<NSView> hitTest(NSPoint point) override;
  [[nodiscard]] bool acceptsFirstResponder() const override { return true; }
  [[nodiscard]] bool acceptsFirstMouse(NSEvent&) const override { return true; }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  void mouseEntered(NSEvent& event) override;
  void mouseMoved(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void mouseDown(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  /// The options may have moved below a pointer that rests.
  void updateTrackingAreas() override;
  void layout() override;

  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] NSAccessibilityRole accessibilityRole() const override;
  /// The keyboard is on the chosen option.
  [[nodiscard]] Ref<NSAccessibility> accessibilityFocusedUIElement() const override;

 protected:
  void didInit() override;

 private:
  void makeElements();
  void showFocus(bool focused);
  void showHover(std::optional<std::size_t> index);
  void showOptions();
  [[nodiscard]] bool isList() const { return arrangement_ == Arrangement::list; }
  [[nodiscard]] BKUKThemeColorRole labelRole(std::size_t index) const;
  [[nodiscard]] NSRect optionFrame(std::size_t index) const;
  [[nodiscard]] std::optional<std::size_t> optionAt(NSPoint locationInWindow) const;
  [[nodiscard]] CGFloat segmentWidth() const;
  /// The option that a key leads to; absent for a key that is none of the view's.
  [[nodiscard]] std::optional<std::size_t> optionForKey(std::uint16_t keyCode) const;

  Arrangement arrangement_;
  std::vector<std::string> options_;
  std::size_t selected_;
  Handler chosen_;
  bool focused_ = false;
  std::optional<std::size_t> hovered_;
  Ref<Box> hover_;
  Ref<Box> marker_;
  std::vector<Ref<TextLabel>> labels_;
  std::vector<Ref<ChoiceOption>> elements_;
};

}  // namespace bkuk::gallery
