#include "host/qt/text/QtTextOrder.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QTextLayout>
#include <algorithm>

#include "host/qt/text/TextCharacters.h"

namespace bkuk::host {

namespace {

// A code unit costs as much as its piece has changes of direction, and is long, so long paragraphs, and those
// that change direction all the time, are read in pieces.
constexpr std::size_t longestPiece = 2048;
constexpr std::size_t mostChanges = 128;
constexpr int pixelSize = 64;

/// Units that have one direction whatever is around them, and where they stand.
struct Group {
  std::size_t from = 0;
  std::size_t to = 0;
  TextDirection direction = TextDirection::leftToRight;
  double x = 0;
  std::size_t rank = 0;
};

bool isDirected(QChar::Direction kind) {
  return kind == QChar::DirL || kind == QChar::DirR || kind == QChar::DirAL || kind == QChar::DirEN ||
         kind == QChar::DirAN;
}

// Where a piece has as many code units, or changes of direction, as it may.
std::size_t limitOfPiece(std::u16string_view text, std::size_t from) {
  const std::size_t limit = std::min(text.size(), from + longestPiece);
  std::size_t changes = 0;
  auto before = QChar::DirON;
  for (std::size_t i = from; i < limit; ++i) {
    const auto kind = QChar(text[i]).direction();
    if (!isDirected(kind) || kind == before) continue;
    before = kind;
    if (++changes > mostChanges) return i;
  }
  return limit;
}

std::size_t endOfPiece(std::u16string_view text, std::size_t from) {
  std::size_t end = limitOfPiece(text, from);
  if (end == text.size()) return end;
  const std::size_t length = end - from;
  for (std::size_t i = end; i > from + length / 2; --i) {
    if (isSpace(text[i - 1])) return i;
  }
  while (end < text.size() && end < from + 2 * longestPiece && continuesCharacter(text, end)) ++end;
  return end;
}

QString plainLine(std::u16string_view text) {
  QString line = QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
  for (auto& c : line) {
    if (isSpace(c.unicode())) c = u' ';
  }
  replaceLoneSurrogates(line);
  return line;
}

void layOut(QTextLayout& layout, TextDirection direction) {
  QTextOption option;
  option.setWrapMode(QTextOption::NoWrap);
  option.setTextDirection(direction == TextDirection::leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setFlags(QTextOption::IncludeTrailingSpaces);
  layout.setTextOption(option);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
}

// Neighbours of one kind end up in one direction, all but brackets, which look for their partners.
bool isOneKind(QChar a, QChar b) {
  if (b.direction() == QChar::DirNSM || b.isLowSurrogate()) return true;
  return a.direction() == b.direction() && a.direction() != QChar::DirON && !a.isHighSurrogate() &&
         !b.isHighSurrogate();
}

std::vector<Group> groupsOf(const QString& text) {
  std::vector<Group> groups;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const auto at = static_cast<std::size_t>(i);
    if (i == 0 || !isOneKind(text[i - 1], text[i])) groups.push_back({at, at});
    groups.back().to = at + 1;
  }
  return groups;
}

// Reads off each group's direction and place. What has no glyphs goes with what is before it.
void place(std::vector<Group>& groups, const QTextLine& line, TextDirection direction) {
  Group before{0, 0, direction, direction == TextDirection::leftToRight ? -1.0 : 1e12};
  for (auto& group : groups) {
    const auto runs = line.glyphRuns(static_cast<int>(group.from), 1);
    if (runs.isEmpty() || runs.first().positions().isEmpty()) {
      group.direction = before.direction;
      group.x = before.x;
    } else {
      group.direction =
          runs.first().isRightToLeft() ? TextDirection::rightToLeft : TextDirection::leftToRight;
      group.x = runs.first().positions().first().x();
    }
    before = group;
  }
}

void rank(std::vector<Group>& groups) {
  std::vector<Group*> order;
  for (auto& group : groups) order.push_back(&group);
  std::ranges::sort(order, [](const Group* a, const Group* b) {
    if (a->x != b->x) return a->x < b->x;
    const bool isBefore = a->from < b->from;
    return a->direction == TextDirection::leftToRight ? isBefore : !isBefore && a != b;
  });
  for (std::size_t i = 0; i < order.size(); ++i) order[i]->rank = i;
}

// Groups that stand beside each other in their common direction make one span, so that words stay whole.
std::vector<DirectedSpan> joined(const std::vector<Group>& groups) {
  std::vector<DirectedSpan> spans;
  std::size_t lastRank = 0;
  for (const auto& group : groups) {
    const bool isRightToLeft = group.direction == TextDirection::rightToLeft;
    const bool goesOn = !spans.empty() && spans.back().direction == group.direction &&
                        (isRightToLeft ? group.rank + 1 == lastRank : lastRank + 1 == group.rank);
    if (!goesOn) spans.push_back({group.from, group.to, group.direction, group.rank});
    spans.back().to = group.to;
    spans.back().rank = std::min(spans.back().rank, group.rank);
    lastRank = group.rank;
  }
  return spans;
}

std::vector<DirectedSpan> spansOfPiece(std::u16string_view text, TextDirection direction, const QFont& font) {
  const QString line = plainLine(text);
  QTextLayout layout(line, font);
  layOut(layout, direction);
  auto groups = groupsOf(line);
  place(groups, layout.lineAt(0), direction);
  rank(groups);
  return joined(groups);
}

}  // namespace

std::vector<DirectedSpan> directedSpans(std::u16string_view text, TextDirection direction,
                                        const QFont& font) {
  QFont small = font;
  small.setPixelSize(pixelSize);
  std::vector<DirectedSpan> spans;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t to = endOfPiece(text, from);
    const auto piece = spansOfPiece(text.substr(from, to - from), direction, small);
    // Ranks of a piece are below its length. Where lines run leftwards, the first piece has the highest.
    const std::size_t base = direction == TextDirection::leftToRight ? from : text.size() - to;
    for (const auto& span : piece) {
      spans.push_back({span.from + from, span.to + from, span.direction, span.rank + base});
    }
    from = to;
  }
  return spans;
}

}  // namespace bkuk::host
