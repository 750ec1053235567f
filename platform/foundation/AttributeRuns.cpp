#include "platform/foundation/AttributeRuns.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace bkuk {

namespace {

using Piece = AttributeRuns::Piece;

constexpr std::size_t chunkLimit = 128;
constexpr std::size_t chunkFill = chunkLimit / 2;  // of chunks that an edit writes anew

/// The index of the last element that starts at or before `index`.
template <typename Elements>
std::size_t lastStarting(const Elements& elements, std::size_t index) {
  const auto behind =
      std::upper_bound(elements.begin(), elements.end(), index,
                       [](std::size_t value, const auto& each) { return value < each.start; });
  return static_cast<std::size_t>(behind - elements.begin()) - 1;
}

template <typename Elements>
auto at(Elements& elements, std::size_t index) {
  return elements.begin() + static_cast<std::ptrdiff_t>(index);
}

void addJoined(std::vector<Piece>& pieces, std::size_t length, const NSAttributeDictionary& attributes) {
  if (length == 0) return;
  if (!pieces.empty() && pieces.back().attributes == attributes) {
    pieces.back().length += length;
  } else {
    pieces.push_back({length, attributes});
  }
}

/// Adds the part of `source` that lies in the range. Its runs differ from each other, so only the first may
/// join.
void addPart(std::vector<Piece>& pieces, std::span<const Piece> source, NSRange range) {
  const std::size_t size = pieces.size();
  std::size_t start = 0;
  for (const auto& each : source) {
    const std::size_t from = std::max(start, range.location);
    const std::size_t to = std::min(start + each.length, NSMaxRange(range));
    start += each.length;
    if (from >= to) continue;
    if (pieces.size() == size) {
      addJoined(pieces, to - from, each.attributes);
    } else {
      pieces.push_back({to - from, each.attributes});
    }
  }
}

}  // namespace

std::size_t AttributeRuns::chunkAt(std::size_t index) const { return lastStarting(chunks_, index); }

std::size_t AttributeRuns::endOf(std::size_t chunk) const {
  return chunk + 1 < chunks_.size() ? chunks_[chunk + 1].start : length_;
}

AttributeRuns::Found AttributeRuns::find(std::size_t index) const {
  const std::size_t number = chunkAt(index);
  const Chunk& chunk = chunks_[number];
  const std::size_t run = lastStarting(chunk.runs, index - chunk.start);
  const std::size_t start = chunk.start + chunk.runs[run].start;
  const std::size_t end =
      run + 1 < chunk.runs.size() ? chunk.start + chunk.runs[run + 1].start : endOf(number);
  return {{start, end - start}, chunk.runs[run].attributes};
}

std::vector<Piece> AttributeRuns::pieces(NSRange range) const {
  std::vector<Piece> result;
  const std::size_t end = NSMaxRange(range);
  for (std::size_t at = range.location; at < end;) {
    const Found found = find(at);
    const std::size_t next = std::min(end, NSMaxRange(found.range));
    result.push_back({next - at, found.attributes});
    at = next;
  }
  return result;
}

void AttributeRuns::append(std::size_t length, const NSAttributeDictionary& attributes) {
  if (length == 0) return;
  const std::size_t start = std::exchange(length_, length_ + length);
  if (!chunks_.empty() && chunks_.back().runs.back().attributes.shares(attributes)) return;
  if (chunks_.empty() || chunks_.back().runs.size() == chunkLimit) chunks_.push_back({start, {}});
  Chunk& last = chunks_.back();
  // Short texts take no more than they need; what has filled a chunk will fill another.
  if (last.runs.empty() && chunks_.size() > 1) last.runs.reserve(chunkLimit);
  last.runs.push_back({start - last.start, attributes});
}

void AttributeRuns::take(std::size_t chunk, std::vector<Piece>& into) const {
  const std::size_t length = endOf(chunk) - chunks_[chunk].start;
  const auto& runs = chunks_[chunk].runs;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const std::size_t end = i + 1 < runs.size() ? runs[i + 1].start : length;
    into.push_back({end - runs[i].start, runs[i].attributes});
  }
}

void AttributeRuns::replace(NSRange range, std::span<const Piece> pieces) {
  if (chunks_.empty()) {
    for (const auto& each : pieces) append(each.length, each.attributes);
    return;
  }
  // From the index before the range to the one behind it, so that runs join across the border of a chunk.
  const std::size_t end = NSMaxRange(range);
  const std::size_t first = chunkAt(range.location == 0 ? 0 : range.location - 1);
  const std::size_t last = chunkAt(std::min(end, length_ - 1));
  const std::size_t from = chunks_[first].start;
  const std::size_t oldLength = endOf(last) - from;

  std::vector<Piece> before;
  for (std::size_t chunk = first; chunk <= last; ++chunk) take(chunk, before);
  std::vector<Piece> after;
  after.reserve(before.size() + pieces.size() + 1);
  addPart(after, before, {0, range.location - from});
  for (const auto& each : pieces) addJoined(after, each.length, each.attributes);
  addPart(after, before, {end - from, oldLength - (end - from)});

  rewrite(first, last, after);
}

void AttributeRuns::rewrite(std::size_t first, std::size_t last, std::span<const Piece> pieces) {
  const std::size_t oldEnd = endOf(last);
  const std::size_t size = pieces.size() <= chunkLimit ? chunkLimit : chunkFill;
  std::vector<Chunk> rewritten;
  std::size_t end = chunks_[first].start;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i % size == 0) rewritten.push_back({end, {}});
    rewritten.back().runs.push_back({end - rewritten.back().start, pieces[i].attributes});
    end += pieces[i].length;
  }
  if (end != oldEnd) {
    for (std::size_t chunk = last + 1; chunk < chunks_.size(); ++chunk) {
      chunks_[chunk].start = chunks_[chunk].start - oldEnd + end;
    }
    length_ = length_ - oldEnd + end;
  }
  const std::size_t kept = std::min(last + 1 - first, rewritten.size());
  const auto keptEnd = std::ranges::move(rewritten.begin(), at(rewritten, kept), at(chunks_, first)).out;
  const auto rest = chunks_.erase(keptEnd, at(chunks_, last + 1));
  chunks_.insert(rest, std::make_move_iterator(at(rewritten, kept)),
                 std::make_move_iterator(rewritten.end()));
}

}  // namespace bkuk
