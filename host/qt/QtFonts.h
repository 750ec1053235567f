#pragma once

#include <QtGui/QFont>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "host/Text.h"

namespace bkuk::host {

/// The installed faces. Makes an application object without windows when the process has none.
class QtFonts final : public Fonts {
 public:
  [[nodiscard]] std::shared_ptr<const Font> systemFont(double size, FontWeight weight) override;
  [[nodiscard]] std::shared_ptr<const Font> font(std::string_view postScriptName, double size) override;

 private:
  [[nodiscard]] std::optional<QFont> face(const std::string& postScriptName);
  void indexFamily(const QString& family);
  void indexFamiliesLike(std::string_view postScriptName);
  void indexEverything();

  // Reading the name of every installed face takes long, so families are read when a name asks for them.
  std::map<std::string, QFont, std::less<>> faces_;
  std::set<QString> indexed_;
  bool indexedEverything_ = false;
};

}  // namespace bkuk::host
