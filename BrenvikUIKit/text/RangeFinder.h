#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "BrenvikUIKit/text/BKUKSimpleXMLParserDelegate.h"
#include "platform/foundation/NSRange.h"

namespace bkuk {

/// Finds where the text of each tag lies once the tags are gone.
class RangeFinder final : public BKUKSimpleXMLParserDelegate {
 public:
  /// By the name of the tag, in UTF-8. A tag that occurs more than once has the range that closed last.
  using Ranges = std::map<std::string, NSRange>;

  /// Absent when the markup is malformed. Names are tried in the order given.
  [[nodiscard]] static std::optional<Ranges> ranges(NSString text, std::span<const NSString> tagNames);

  [[nodiscard]] const Ranges& result() const { return result_; }
  /// The text without its tags.
  [[nodiscard]] const NSString& currentText() const { return currentText_; }

  void foundCharacters(std::u16string_view text) override;
  void didStartElement(const NSString& name) override;
  void didEndElement(const NSString& name) override;

 private:
  struct Open {
    NSString name;
    std::size_t start;
  };

  Ranges result_;
  std::vector<Open> stack_;
  NSString currentText_;
};

}  // namespace bkuk
