#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "host/Canvas.h"
#include "platform/coregraphics/PaintRecord.h"

namespace bkuk {

/// What applies to one thing painted. Clips and transforms are not among it.
struct PaintSettings {
  double alpha = 1;
  host::BlendMode blendMode = host::BlendMode::normal;
  bool antialias = true;
  bool operator==(const PaintSettings&) const = default;
};

/// A canvas in device space that is made when something is painted, and tells its host only what changes.
///
/// Saves, clips and groups that come before are kept and made up for then; those that are undone before
/// leave no trace.
class CanvasTarget {
 public:
  using BitmapProvider = std::function<host::Bitmap*()>;

  /// `origin` is the place in device space of the bitmap's first pixel. The provider is called at most once;
  /// it may answer null, which drops everything painted.
  CanvasTarget(BitmapProvider provider, host::PixelRect area);
  ~CanvasTarget();
  CanvasTarget(const CanvasTarget&) = delete;
  CanvasTarget& operator=(const CanvasTarget&) = delete;

  /// The part of device space that the bitmap shows.
  [[nodiscard]] host::PixelRect area() const { return area_; }
  [[nodiscard]] bool wasRequested() const { return requested_; }

  /// The canvas with these settings in force, null when there is no bitmap.
  [[nodiscard]] host::Canvas* canvas(const PaintSettings& settings);

  /// From now on, as long as no canvas is asked for, what can be recorded need not be painted. For an area
  /// that starts at zero.
  void startRecord();
  /// Where to record what is painted next; null when it must be painted.
  [[nodiscard]] PaintRecord* record();
  /// Drops what is painted from now on. Answers what was recorded and is in no bitmap.
  std::vector<PaintedPiece> finish();

  void save();
  void restore();
  void clip(host::Path path, host::FillRule rule, bool antialias);
  /// A save and what follows it, up to `endGroup`, as one image.
  void beginGroup(const PaintSettings& settings);
  void endGroup();

 private:
  struct Save {};
  struct Clip {
    std::vector<host::PathElement> path;
    host::FillRule rule;
    bool antialias;
  };
  struct Group {
    PaintSettings settings;
  };
  using Step = std::variant<Save, Clip, Group>;

  void request();
  void replay(const Step& step);
  void apply(const PaintSettings& settings);

  BitmapProvider provider_;
  host::PixelRect area_;
  bool requested_ = false;
  std::unique_ptr<host::Canvas> canvas_;
  PaintSettings applied_;
  std::vector<PaintSettings> saved_;
  std::vector<Step> steps_;  // only before the canvas is made
  std::optional<PaintRecord> record_;
};

}  // namespace bkuk
