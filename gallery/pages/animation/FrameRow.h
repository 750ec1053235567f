#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"
#include "gallery/pages/animation/FrameTrack.h"

namespace bkuk::gallery {

/// An animation of the frame clock as a card: its frames, its calls and its phases as they arrive.
class FrameRow : public Box {
 public:
  static constexpr CGFloat height = 76;  ///< points

  struct Settings {
    std::string name;
    std::string detail;
    std::optional<std::uint32_t> frames;
    std::uint32_t startingFrame = 0;
    std::uint32_t frameSpacing = 1;
  };
  using Handler = std::function<void()>;

  /// `finished` is called after the last frame, unless the row begins again.
  FrameRow(Settings settings, Handler finished);

  [[nodiscard]] bool isEndless() const { return !context_->animationFrames(); }
  /// Begins from the first frame; when `loops`, again and again.
  void start(bool loops);
  /// Leaves what it shows.
  void stop() { context_->stopAnimating(); }

  void layout() override;

 protected:
  void didInit() override;

 private:
  struct PhaseMark {
    Ref<Box> box;
    Ref<TextLabel> name;
  };

  void begin();
  void showFrame();
  void showPhase(BKUKAnimationPhases phase);
  static void light(const PhaseMark& mark, bool isLit);

  Ref<BKUKLinearAnimationContext> context_;
  Handler finished_;
  bool loops_ = false;
  std::uint32_t calls_ = 0;
  Ref<TextLabel> name_;
  Ref<TextLabel> detail_;
  Ref<FrameTrack> track_;
  Ref<TextLabel> count_;
  std::array<PhaseMark, 3> phases_;
};

}  // namespace bkuk::gallery
