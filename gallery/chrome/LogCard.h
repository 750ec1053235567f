#pragma once

#include <string>
#include <vector>

#include "gallery/chrome/Box.h"
#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

/// The last lines of what happened, the newest on top.
class LogCard : public Box {
 public:
  /// `invitation` shows until the first line comes.
  LogCard(std::size_t lineCount, std::string invitation);

  void add(std::string line);

  /// The height that the lines need, in points.
  [[nodiscard]] CGFloat fittingHeight() const;

  void layout() override;

 protected:
  void didInit() override;

 private:
  [[nodiscard]] bool showsInvitation() const { return lines_.empty(); }
  void show();

  std::string invitation_;
  std::vector<std::string> lines_;
  std::vector<Ref<TextLabel>> labels_;
};

}  // namespace bkuk::gallery
