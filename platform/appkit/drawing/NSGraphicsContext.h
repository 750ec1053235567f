#pragma once

#include "platform/coregraphics/CGContext.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// How painted pixels are composed with those that are there.
enum class NSCompositingOperation : std::uint8_t {
  clear = 0,
  copy = 1,
  sourceOver = 2,
  sourceIn = 3,
  sourceOut = 4,
  sourceAtop = 5,
  destinationOver = 6,
  destinationIn = 7,
  destinationOut = 8,
  destinationAtop = 9,
  XOR = 10,
};

/// The same operation as a context below names it.
[[nodiscard]] CGBlendMode blendMode(NSCompositingOperation operation);

/// The place that colours, paths and images of the platform draw to: a `CGContext` and whether its y
/// axis runs down. One is current per thread, and only while something is drawn.
class NSGraphicsContext : public NSObject {
 public:
  NSGraphicsContext(Ref<CGContext> context, bool isFlipped)
      : context_(std::move(context)), flipped_(isFlipped) {}

  /// Absent outside drawing.
  [[nodiscard]] static Ref<NSGraphicsContext> current();
  static void setCurrent(Ref<NSGraphicsContext> context);

  /// Saves the current context's state and which context is current; pairs nest.
  static void saveGraphicsState();
  static void restoreGraphicsState();

  [[nodiscard]] const Ref<CGContext>& cgContext() const { return context_; }
  [[nodiscard]] bool isFlipped() const { return flipped_; }

  [[nodiscard]] NSCompositingOperation compositingOperation() const { return operation_; }
  void setCompositingOperation(NSCompositingOperation operation);
  [[nodiscard]] bool shouldAntialias() const { return antialias_; }
  void setShouldAntialias(bool antialias);

 private:
  Ref<CGContext> context_;
  bool flipped_;
  bool antialias_ = true;
  NSCompositingOperation operation_ = NSCompositingOperation::sourceOver;
};

/// Makes a context current for the life of a scope.
class NSGraphicsContextScope {
 public:
  explicit NSGraphicsContextScope(Ref<NSGraphicsContext> context);
  ~NSGraphicsContextScope();
  NSGraphicsContextScope(const NSGraphicsContextScope&) = delete;
  NSGraphicsContextScope& operator=(const NSGraphicsContextScope&) = delete;

 private:
  Ref<NSGraphicsContext> previous_;
};

/// Fills with the current fill colour, replacing what is there.
void NSRectFill(const CGRect& rect);
/// Fills with the current fill colour and `operation`.
void NSRectFillUsingOperation(const CGRect& rect, NSCompositingOperation operation);

}  // namespace bkuk
