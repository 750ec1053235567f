#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// One of several named options, chosen by a click or, with the keyboard on it, by the arrow keys. The
/// options stand beside each other as segments or below each other as a list.
class Choice : public Box {
 public:
  enum class Arrangement { segments, list };
  using Handler = std::function<void(std::size_t index)>;

  Choice(Arrangement arrangement, std::vector<std::string> options, std::size_t selected, Handler chosen);

  [[nodiscard]] std::size_t selected() const { return selected_; }
  /// Shows another option as chosen without calling the handler.
  void setSelected(std::size_t index);

  /// What the options need, in points.
  [[nodiscard]] NSSize fittingSize() const;

  /// The options are parts of this view, not views to be pressed themselves.
  [[nodiscard]] Ref<NSView> hitTest(NSPoint point) override;
  [[nodiscard]] bool acceptsFirstResponder() const override { return true; }
  [[nodiscard]] bool acceptsFirstMouse(NSEvent&) const override { return true; }
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  void mouseDown(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  void layout() override;

 protected:
  void didInit() override;

 private:
  void choose(std::size_t index);
  void showFocus(bool focused);
  void showSelection();
  [[nodiscard]] NSRect optionFrame(std::size_t index) const;
  [[nodiscard]] CGFloat segmentWidth() const;
  [[nodiscard]] int stepForKey(std::uint16_t keyCode) const;

  Arrangement arrangement_;
  std::vector<std::string> options_;
  std::size_t selected_;
  Handler chosen_;
  bool focused_ = false;
  Ref<Box> marker_;
  std::vector<Ref<TextLabel>> labels_;
};

}  // namespace bkuk::gallery
