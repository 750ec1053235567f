#pragma once

#include <string>

#include "gallery/chrome/TextLabel.h"

namespace bkuk::gallery {

// The kinds of text that explain what the gallery shows. The colours are those for the page itself unless the
// text lies upon something else.

/// The title of a card, or the line above a group of things.
[[nodiscard]] Ref<TextLabel> makeHeading(std::string text,
                                         Color color = role(BKUKThemeColorRole::onBackground));
/// The name of one thing, or a number that a control sets.
[[nodiscard]] Ref<TextLabel> makeCaption(std::string text,
                                         Color color = role(BKUKThemeColorRole::onBackground),
                                         TextLabel::Alignment alignment = TextLabel::Alignment::leading);
/// What is to be said about the thing above.
[[nodiscard]] Ref<TextLabel> makeRemark(std::string text,
                                        Color color = role(BKUKThemeColorRole::onBackgroundSecondary));

}  // namespace bkuk::gallery
