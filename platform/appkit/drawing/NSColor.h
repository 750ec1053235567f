#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/coregraphics/CGColor.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

inline constexpr std::string_view NSCalibratedRGBColorSpace = "NSCalibratedRGBColorSpace";
inline constexpr std::string_view NSDeviceRGBColorSpace = "NSDeviceRGBColorSpace";
inline constexpr std::string_view NSCalibratedWhiteColorSpace = "NSCalibratedWhiteColorSpace";
inline constexpr std::string_view NSDeviceWhiteColorSpace = "NSDeviceWhiteColorSpace";
inline constexpr std::string_view NSDeviceCMYKColorSpace = "NSDeviceCMYKColorSpace";
/// Of every space that has no name of its own here, sRGB among them.
inline constexpr std::string_view NSCustomColorSpace = "NSCustomColorSpace";

/// A colour. Immutable as an object, so it is shared freely; what it answers may still depend on the moment.
///
/// The factories make colours that consist of components in a colour space. A subclass has to answer
/// `cgColor`, from which every other member takes its answer unless it is overridden as well. Code that takes
/// a colour uses only these members, so that a subclass works wherever a colour does.
///
/// Asking for a component that the colour's space does not have is a fatal error: convert the colour first.
/// Everything but the making of colours belongs to the main thread.
class NSColor : public NSObject, public NSCoding {
 public:
  /// Named colours of whoever builds upon the platform, who also defines the type.
  struct bkuk;

  // Components are kept as given, also outside 0 to 1.
  [[nodiscard]] static Ref<NSColor> srgbRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> calibratedRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> deviceRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> calibratedWhite(CGFloat white, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> deviceWhite(CGFloat white, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> genericGamma22White(CGFloat white, CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> deviceCyan(CGFloat cyan, CGFloat magenta, CGFloat yellow, CGFloat black,
                                               CGFloat alpha);
  [[nodiscard]] static Ref<NSColor> withCGColor(const Ref<CGColor>& color);

  // One object each: clear, black, white and gray in the generic gray space, the others in sRGB.
  [[nodiscard]] static const Ref<NSColor>& clear();
  [[nodiscard]] static const Ref<NSColor>& black();
  [[nodiscard]] static const Ref<NSColor>& white();
  [[nodiscard]] static const Ref<NSColor>& gray();
  [[nodiscard]] static const Ref<NSColor>& red();
  [[nodiscard]] static const Ref<NSColor>& green();
  [[nodiscard]] static const Ref<NSColor>& blue();
  /// What `highlight` and `shadow` move towards: white and black.
  [[nodiscard]] static const Ref<NSColor>& highlightColor();
  [[nodiscard]] static const Ref<NSColor>& shadowColor();
  /// The ring around the view that has the keyboard: asked whenever a ring is drawn. Assign a function to
  /// give it the application's own colour.
  static std::function<Ref<NSColor>()>& keyboardFocusIndicatorColor;

  /// What the colour is at this moment, in its own space.
  [[nodiscard]] virtual Ref<CGColor> cgColor() const = 0;

  /// Makes this the fill and the stroke colour of the current graphics context; without one, nothing happens.
  virtual void set() const;
  virtual void setFill() const;
  virtual void setStroke() const;

  [[nodiscard]] virtual Ref<CGColorSpace> colorSpace() const;
  [[nodiscard]] virtual std::string colorSpaceName() const;
  /// Counts alpha.
  [[nodiscard]] virtual std::size_t numberOfComponents() const;
  /// Writes all components, alpha last, to the front of `components`, which must have room for them.
  virtual void getComponents(std::span<CGFloat> components) const;
  [[nodiscard]] virtual CGFloat alphaComponent() const;

  /// This object when it is in that space already, else its conversion; absent when there is none.
  [[nodiscard]] virtual Ref<NSColor> usingColorSpace(const Ref<CGColorSpace>& space) const;
  /// The same by name; absent for names that stand for no single space. `device` describes the output and may
  /// be absent: the conversions do not depend on it.
  [[nodiscard]] virtual Ref<NSColor> usingColorSpaceName(std::string_view name, const NSObject* device) const;

  // Of colours in an RGB space. Pointers may be null where an answer is not wanted, here and below.
  [[nodiscard]] virtual CGFloat redComponent() const;
  [[nodiscard]] virtual CGFloat greenComponent() const;
  [[nodiscard]] virtual CGFloat blueComponent() const;
  virtual void getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const;

  // Of colours in an RGB space, 0 to 1. The hue is 0 where the saturation is, the saturation 0 where the
  // brightness is.
  [[nodiscard]] virtual CGFloat hueComponent() const;
  [[nodiscard]] virtual CGFloat saturationComponent() const;
  [[nodiscard]] virtual CGFloat brightnessComponent() const;
  virtual void getHue(CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) const;

  // Of colours in a gray space.
  [[nodiscard]] virtual CGFloat whiteComponent() const;
  virtual void getWhite(CGFloat* white, CGFloat* alpha) const;

  // Of colours in the CMYK space.
  [[nodiscard]] virtual CGFloat cyanComponent() const;
  [[nodiscard]] virtual CGFloat magentaComponent() const;
  [[nodiscard]] virtual CGFloat yellowComponent() const;
  [[nodiscard]] virtual CGFloat blackComponent() const;
  virtual void getCyan(CGFloat* cyan, CGFloat* magenta, CGFloat* yellow, CGFloat* black,
                       CGFloat* alpha) const;

  // Of colours that come from a catalogue, which a subclass may be; a fatal error for all others.
  [[nodiscard]] virtual std::string catalogNameComponent() const;
  [[nodiscard]] virtual std::string colorNameComponent() const;
  [[nodiscard]] virtual std::string localizedCatalogNameComponent() const;
  [[nodiscard]] virtual std::string localizedColorNameComponent() const;

  /// The same colour with its alpha replaced by `alpha`, cut to 0…1.
  [[nodiscard]] virtual Ref<NSColor> withAlphaComponent(CGFloat alpha) const;

  /// (1 − fraction) of this and `fraction`, cut to 0…1, of the other, for each of red, green, blue and alpha;
  /// not premultiplied. Always a new colour in calibrated RGB; absent when one of the two has no conversion
  /// to it.
  [[nodiscard]] virtual Ref<NSColor> blended(CGFloat fraction, const Ref<NSColor>& other) const;
  [[nodiscard]] virtual Ref<NSColor> highlight(CGFloat level) const;
  [[nodiscard]] virtual Ref<NSColor> shadow(CGFloat level) const;

  /// Writes the space and the components of this moment. A subclass that is to come back as one of its own
  /// class overrides this and registers its class.
  void encode(NSCoder& coder) const override;
  /// A plain colour from what `encode` wrote; absent when that is incomplete.
  [[nodiscard]] static Ref<NSColor> decoded(NSCoder& coder);

 private:
  [[nodiscard]] CGFloat component(CGColorSpaceModel model, std::size_t index, std::string_view member) const;
};

}  // namespace bkuk
