#include "gallery/chrome/LogCard.h"

#include "gallery/chrome/Palette.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat padding = 16;
constexpr CGFloat lineHeight = 22;

}  // namespace

LogCard::LogCard(std::size_t lineCount, std::string invitation)
    : Box({.fill = role(Role::surface), .border = role(Role::onSurfaceExtraLight), .cornerRadius = 14}),
      invitation_(std::move(invitation)),
      labels_(lineCount) {}

void LogCard::didInit() {
  Box::didInit();
  for (auto& label : labels_) {
    label = make<TextLabel>("", TextLabel::Style{.size = 12.5, .color = role(Role::onSurfaceSecondary)});
    addSubview(label);
  }
  show();
}

void LogCard::add(std::string line) {
  lines_.insert(lines_.begin(), std::move(line));
  if (lines_.size() > labels_.size()) lines_.pop_back();
  show();
}

void LogCard::show() {
  for (std::size_t i = 0; i < labels_.size(); ++i) labels_[i]->setText(i < lines_.size() ? lines_[i] : "");
  if (showsInvitation()) labels_.front()->setText(invitation_);
  labels_.front()->setColor(role(showsInvitation() ? Role::onSurfaceSecondary : Role::onSurface));
}

CGFloat LogCard::fittingHeight() const {
  return 2 * padding + static_cast<CGFloat>(labels_.size()) * lineHeight;
}

void LogCard::layout() {
  CGFloat top = padding;
  for (const auto& label : labels_) {
    label->setFrame({padding, top, bounds().width() - 2 * padding, lineHeight});
    top += lineHeight;
  }
}

}  // namespace bkuk::gallery
