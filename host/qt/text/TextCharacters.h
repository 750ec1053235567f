#pragma once

#include <QtCore/QString>
#include <optional>
#include <string_view>

#include "host/Text.h"

namespace bkuk::host {

/// What is shaped in the place of a code unit: a space for breaks and tabs, nothing visible for other
/// controls and for those that steer direction, which has been settled before.
[[nodiscard]] QChar visibleForm(QChar unit);

/// Puts the replacement character for halves of surrogate pairs that stand alone.
void replaceLoneSurrogates(QString& text);

/// Whether the code unit belongs to the character before it: a mark, a joiner, the second half of a pair.
[[nodiscard]] bool continuesCharacter(std::u16string_view text, std::size_t index);

[[nodiscard]] bool isSpace(char16_t unit);

/// Whether any character could run from right to left or steer direction.
[[nodiscard]] bool mayRunRightToLeft(std::u16string_view text);

/// The direction of the first letter that has one, those inside of isolates left out.
[[nodiscard]] std::optional<TextDirection> strongDirection(std::u16string_view text);

/// Where the word ends that begins at `from`: before and after a stretch of spaces, after each ideograph, and
/// where it grows too long to shape at once.
[[nodiscard]] std::size_t endOfWord(std::u16string_view text, std::size_t from);

}  // namespace bkuk::host
