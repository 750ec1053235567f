#include "host/qt/text/TextCharacters.h"

#include "host/qt/text/QtWordShaper.h"

namespace bkuk::host {

namespace {

constexpr QChar zeroWidthSpace(0x200B);
constexpr char16_t zeroWidthJoiner = 0x200D;

bool steersDirection(char16_t c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool isIn(char16_t c, char16_t first, char16_t last) { return c >= first && c <= last; }

// Kana and ideographs, which have no spaces between words and do not lean on their neighbours.
bool isIdeograph(char16_t c) {
  return isIn(c, 0x3040, 0x30FF) || isIn(c, 0x3400, 0x4DBF) || isIn(c, 0x4E00, 0x9FFF);
}

// The code units whose characters may run from right to left, halves of pairs included.
bool isOfRightToLeftBlock(char16_t c) {
  return isIn(c, 0x0590, 0x08FF) || isIn(c, 0xFB1D, 0xFDFF) || isIn(c, 0xFE70, 0xFEFE) ||
         isIn(c, 0xD802, 0xD803) || isIn(c, 0xD83A, 0xD83B);
}

}  // namespace

QChar visibleForm(QChar unit) {
  const char16_t c = unit.unicode();
  if (c >= 0x20 && c < 0x7F) return unit;
  if (isSpace(c)) return c == 0x3000 || c == 0x1680 || isIn(c, 0x2000, 0x200A) || c == 0x205F ? unit : u' ';
  const bool isControl = c < 0x20 || isIn(c, 0x7F, 0x9F);
  return isControl || steersDirection(c) ? zeroWidthSpace : unit;
}

void replaceLoneSurrogates(QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!text[i].isSurrogate()) continue;
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      ++i;
    } else {
      text[i] = QChar::ReplacementCharacter;
    }
  }
}

bool continuesCharacter(std::u16string_view text, std::size_t index) {
  const QChar unit = text[index];
  if (unit.unicode() < 0x300 || index == 0) return false;
  if (unit.isLowSurrogate()) return QChar(text[index - 1]).isHighSurrogate();
  if (unit.unicode() == zeroWidthJoiner || text[index - 1] == zeroWidthJoiner) return true;
  if (!unit.isHighSurrogate() || index + 1 == text.size()) return unit.isMark();
  return QChar::isMark(QChar::surrogateToUcs4(unit, text[index + 1]));
}

bool isSpace(char16_t c) {
  if (c <= 0x20) return c == 0x20 || (c >= 0x09 && c <= 0x0D);
  return c == 0x85 || (c >= 0x1680 && c != 0x202F && QChar(c).isSpace());
}

bool mayRunRightToLeft(std::u16string_view text) {
  for (const char16_t c : text) {
    if (c >= 0x0590 && (isOfRightToLeftBlock(c) || steersDirection(c))) return true;
  }
  return false;
}

std::optional<TextDirection> strongDirection(std::u16string_view text) {
  std::size_t isolates = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const QChar unit = text[i];
    const bool isPair = unit.isHighSurrogate() && i + 1 < text.size() && QChar(text[i + 1]).isLowSurrogate();
    if (unit.isSurrogate() && !isPair) continue;
    const char32_t character = isPair ? QChar::surrogateToUcs4(unit, text[++i]) : unit.unicode();
    if (character >= 0x2066 && character <= 0x2068) ++isolates;
    if (character == 0x2069 && isolates > 0) --isolates;
    if (isolates > 0) continue;
    const auto kind = QChar::direction(character);
    if (kind == QChar::DirL) return TextDirection::leftToRight;
    if (kind == QChar::DirR || kind == QChar::DirAL) return TextDirection::rightToLeft;
  }
  return std::nullopt;
}

std::size_t endOfWord(std::u16string_view text, std::size_t from) {
  const bool isOfSpaces = isSpace(text[from]);
  std::size_t end = from + 1;
  while (end < text.size()) {
    const std::size_t length = end - from;
    const bool continues = continuesCharacter(text, end);
    if (length >= longestWord && (!continues || length >= 2 * longestWord)) break;
    const bool isBoundary =
        isSpace(text[end]) != isOfSpaces || isIdeograph(text[end - 1]) || isIdeograph(text[end]);
    if (isBoundary && !continues) break;
    ++end;
  }
  return end;
}

}  // namespace bkuk::host
