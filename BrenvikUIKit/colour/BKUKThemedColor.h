#pragma once

#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// A colour with a value for the dark appearance and one for any other. It answers every question with the
/// value that belongs to the application's effective appearance at that moment, whatever the appearance of
/// the view that draws, so a style keeps it across changes and only redraws.
///
/// Alpha variants stay themed. Conversions, highlights, shadows and blends are snapshots of the appearance in
/// force when they are made.
class BKUKThemedColor : public NSColor {
 public:
  /// Without a dark value `any` serves both appearances. Either may be a themed colour itself.
  explicit BKUKThemedColor(Ref<NSColor> any, Ref<NSColor> dark = nullptr);
  /// A colour with the two values of `source` exchanged.
  [[nodiscard]] static Ref<BKUKThemedColor> bySwapping(const BKUKThemedColor& source);
  /// A colour from what `encode` wrote; absent when one of the values is missing or is no colour.
  [[nodiscard]] static Ref<BKUKThemedColor> decoded(NSCoder& coder);

  // Not supported: they stop the process.
  [[noreturn]] static Ref<BKUKThemedColor> init();
  [[noreturn]] static Ref<BKUKThemedColor> init(const Ref<NSObject>& pasteboardPropertyList,
                                                std::string_view ofType);

  [[nodiscard]] const Ref<NSColor>& anyColor() const { return anyColor_; }
  [[nodiscard]] const Ref<NSColor>& darkColor() const { return darkColor_; }

  /// A themed colour of the receiver's own class whose two values carry that alpha.
  [[nodiscard]] Ref<NSColor> withAlphaComponent(CGFloat alpha) const override;

  /// Equal to a themed colour whose two values are equal to these; never to a plain colour.
  [[nodiscard]] bool isEqual(const NSObject* other) const override;
  [[nodiscard]] std::size_t hash() const override;

  void encode(NSCoder& coder) const override;

  // All that follows is answered by the value for the application's appearance.

  [[nodiscard]] Ref<CGColor> cgColor() const override { return current().cgColor(); }
  void set() const override { current().set(); }
  void setFill() const override { current().setFill(); }
  void setStroke() const override { current().setStroke(); }

  [[nodiscard]] Ref<CGColorSpace> colorSpace() const override { return current().colorSpace(); }
  [[nodiscard]] std::string colorSpaceName() const override { return current().colorSpaceName(); }
  [[nodiscard]] std::size_t numberOfComponents() const override { return current().numberOfComponents(); }
  void getComponents(std::span<CGFloat> components) const override { current().getComponents(components); }
  [[nodiscard]] CGFloat alphaComponent() const override { return current().alphaComponent(); }

  [[nodiscard]] Ref<NSColor> usingColorSpace(const Ref<CGColorSpace>& space) const override {
    return current().usingColorSpace(space);
  }
  [[nodiscard]] Ref<NSColor> usingColorSpaceName(std::string_view name,
                                                 const NSObject* device) const override {
    return current().usingColorSpaceName(name, device);
  }

  [[nodiscard]] CGFloat redComponent() const override { return current().redComponent(); }
  [[nodiscard]] CGFloat greenComponent() const override { return current().greenComponent(); }
  [[nodiscard]] CGFloat blueComponent() const override { return current().blueComponent(); }
  void getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const override {
    current().getRed(red, green, blue, alpha);
  }

  [[nodiscard]] CGFloat hueComponent() const override { return current().hueComponent(); }
  [[nodiscard]] CGFloat saturationComponent() const override { return current().saturationComponent(); }
  [[nodiscard]] CGFloat brightnessComponent() const override { return current().brightnessComponent(); }
  void getHue(CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const override {
    current().getHue(hue, saturation, brightness, alpha);
  }

  [[nodiscard]] CGFloat whiteComponent() const override { return current().whiteComponent(); }
  void getWhite(CGFloat* white, CGFloat* alpha) const override { current().getWhite(white, alpha); }

  [[nodiscard]] CGFloat cyanComponent() const override { return current().cyanComponent(); }
  [[nodiscard]] CGFloat magentaComponent() const override { return current().magentaComponent(); }
  [[nodiscard]] CGFloat yellowComponent() const override { return current().yellowComponent(); }
  [[nodiscard]] CGFloat blackComponent() const override { return current().blackComponent(); }
  void getCyan(CGFloat* cyan, CGFloat* magenta, CGFloat* yellow, CGFloat* black,
               CGFloat* alpha) const override {
    current().getCyan(cyan, magenta, yellow, black, alpha);
  }

  [[nodiscard]] std::string catalogNameComponent() const override { return current().catalogNameComponent(); }
  [[nodiscard]] std::string colorNameComponent() const override { return current().colorNameComponent(); }
  [[nodiscard]] std::string localizedCatalogNameComponent() const override {
    return current().localizedCatalogNameComponent();
  }
  [[nodiscard]] std::string localizedColorNameComponent() const override {
    return current().localizedColorNameComponent();
  }

  [[nodiscard]] Ref<NSColor> highlight(CGFloat level) const override { return current().highlight(level); }
  [[nodiscard]] Ref<NSColor> shadow(CGFloat level) const override { return current().shadow(level); }
  [[nodiscard]] Ref<NSColor> blended(CGFloat fraction, const Ref<NSColor>& other) const override {
    return current().blended(fraction, other);
  }

 protected:
  /// For a subclass that leaves the values absent, which stops the process at their first use.
  BKUKThemedColor() = default;

  /// Makes the variants of this colour. A subclass overrides it, so that its variants are of its own class.
  [[nodiscard]] virtual Ref<BKUKThemedColor> makeOfSameClass(const Ref<NSColor>& any,
                                                             const Ref<NSColor>& dark) const;

 private:
  [[nodiscard]] const NSColor& current() const;

  Ref<NSColor> anyColor_;
  Ref<NSColor> darkColor_;
};

}  // namespace bkuk
