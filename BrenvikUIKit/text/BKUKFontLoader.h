#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "BrenvikUIKit/text/BKUKFontType.h"
#include "platform/appkit/text/NSFont.h"
#include "platform/foundation/NSBundle.h"

namespace bkuk {

/// Says which face stands for each type. The application registers a family once, before it makes its first
/// component; fonts that are in use keep their face when it registers another, until
/// `BKUKFontManager::clearCache`.
///
/// For users whose first language is Japanese, Chinese or Korean a family of the system takes the place of
/// the application's. The language is read at each call and not followed afterwards. Main thread only.
class BKUKFontLoader final : public NSObject {
 public:
  /// PostScript names by type.
  using Identifiers = std::map<BKUKFontType, std::string>;
  /// How far text is moved in a font, in points.
  using Offset = std::function<double(const NSFont& font)>;

  [[nodiscard]] static BKUKFontLoader& shared();

  /// Absent until a family is registered.
  [[nodiscard]] const std::optional<Identifiers>& fontIdentifiersForType() const { return identifiers_; }

  /// Registers every file of the bundle in `subpath` with the extension `ext` (absent: any) for this process,
  /// then makes the given names the family. Files that cannot be registered are passed over. Answers the
  /// names.
  Identifiers registerFont(const NSBundle& bundle, std::optional<std::string_view> subpath,
                           std::optional<std::string_view> ext, const Identifiers& identifiersForTypes);
  /// For faces that are installed: registers no file.
  Identifiers registerFont(const Identifiers& identifiersForTypes);
  /// What applications call: for "ja", "zh" and "ko" the family of the language, and neither files nor names
  /// count; otherwise `registerFont`.
  Identifiers registerLocalizedFonts(const NSBundle& bundle, std::optional<std::string_view> subpath,
                                     std::optional<std::string_view> ext,
                                     const Identifiers& identifiersForTypes);

  /// Sets how far labels, respectively text fields, move their text: for "ja", "zh" and "ko" what suits the
  /// family of the language, otherwise what is given.
  void setLabelLocalizedOffsets(Offset top, Offset bottom);
  void setTextFieldLocalizedOffsets(Offset top, Offset bottom);

  /// The font of a type at a size in points. Stops the process when no family is registered, the type has no
  /// name in it, or the name no face: there is no font to fall back to. For `BKUKFontManager`.
  [[nodiscard]] Ref<NSFont> loadFont(BKUKFontType type, double size) const;

 private:
  std::optional<Identifiers> identifiers_;
};

}  // namespace bkuk
