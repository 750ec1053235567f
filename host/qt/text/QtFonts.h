#pragma once

#include <QtGui/QFont>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "host/Text.h"
#include "host/qt/text/QtFace.h"
#include "host/qt/text/QtRegisteredFaces.h"
#include "host/qt/text/QtTextShaper.h"
#include "host/qt/text/TextCharacters.h"

namespace bkuk::host {

/// The registered and the installed faces, and the shaping of text in them. Makes an application object
/// without windows when the process has none.
class QtFonts final : public Fonts {
 public:
  [[nodiscard]] std::shared_ptr<const Font> systemFont(double size, FontWeight weight) override;
  [[nodiscard]] std::shared_ptr<const Font> font(std::string_view postScriptName, double size) override;
  [[nodiscard]] std::shared_ptr<const Font> fontInFamily(std::string_view family, double size,
                                                         FontWeight weight) override;
  [[nodiscard]] std::shared_ptr<const Font> fontForLanguage(std::string_view language, double size,
                                                            FontWeight weight) override;
  FontRegistration registerFile(const std::string& path) override;
  [[nodiscard]] std::shared_ptr<const TextParagraph> shape(std::u16string_view text,
                                                           std::span<const TextRun> runs,
                                                           TextDirection direction) override;
  [[nodiscard]] std::optional<TextDirection> strongDirection(std::u16string_view text) const override {
    return host::strongDirection(text);
  }

  /// How many words have been shaped so far, rather than remembered.
  [[nodiscard]] std::size_t shapedWordCount() const { return shaper_->shapedWordCount(); }

 private:
  using Face = std::shared_ptr<const QtFace>;

  [[nodiscard]] Face face(const std::string& postScriptName);
  [[nodiscard]] Face installedFace(std::string_view family, FontWeight weight);
  [[nodiscard]] Face standIn(std::string_view postScriptName);
  [[nodiscard]] Face faceOf(const QFont& font);
  [[nodiscard]] std::shared_ptr<const Font> made(const Face& face, double size) const;
  void indexFamily(const QString& family);
  void indexFamiliesLike(std::string_view postScriptName);
  void indexEverything();

  std::shared_ptr<QtTextShaper> shaper_ = std::make_shared<QtTextShaper>();
  QtRegisteredFaces registered_;
  // Reading the name of every installed face takes long, so families are read when a name asks for them.
  std::map<std::string, QFont, std::less<>> installed_;
  std::set<QString> indexed_;
  bool indexedEverything_ = false;
  // The faces in use: by what they are called, and by what Qt asks for.
  std::map<std::string, Face, std::less<>> faces_;
  std::map<QString, Face> facesOfFonts_;
};

}  // namespace bkuk::host
