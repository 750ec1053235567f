#include "platform/coregraphics/PathDasher.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace bkuk {

namespace {

// Draws connected pieces of segments into a path, neighbouring pieces of one segment as one.
class PieceWriter {
 public:
  PieceWriter(CGMutablePath& target, const PathSpans& spans) : target_(target), spans_(spans) {}

  void draw(std::size_t segment, CGFloat from, CGFloat to) {
    if (isDown_ && segment == segment_ && from == to_) {
      to_ = to;
      return;
    }
    if (isDown_) {
      flush();
    } else {
      target_.move(spans_.segments()[segment].point(from));
    }
    isDown_ = true;
    segment_ = segment;
    from_ = from;
    to_ = to;
  }

  void lift() {
    if (isDown_) flush();
    isDown_ = false;
  }

 private:
  void flush() {
    const CubicCurve piece = spans_.segments()[segment_].portion(from_, to_);
    if (piece.isLine) return target_.addLine(piece.end);
    target_.addCurve(piece.end, piece.control1, piece.control2);
  }

  CGMutablePath& target_;
  const PathSpans& spans_;
  bool isDown_ = false;
  std::size_t segment_ = 0;
  CGFloat from_ = 0;
  CGFloat to_ = 0;
};

CGFloat parameterAt(const PathSpans& spans, const PathSpans::Span& span, CGFloat distance) {
  if (distance <= 0) return span.from;
  if (distance >= span.length) return span.to;
  return spans.segments()[span.segment].parameter(distance, span.from, span.to);
}

// A place in a pattern that travels along with the path.
class DashCursor {
 public:
  explicit DashCursor(const DashPattern& pattern) : pattern_(pattern), remaining_(pattern.lengths()[0]) {
    skip(pattern.phase());
  }

  [[nodiscard]] bool isDash() const { return index_ % 2 == 0; }
  /// To the end of the present dash or gap.
  [[nodiscard]] CGFloat remaining() const { return remaining_; }

  void advance(CGFloat distance) {
    remaining_ -= distance;
    if (remaining_ <= 0) next();
  }

  /// As `advance`, over any number of dashes and gaps.
  void skip(CGFloat distance) {
    if (std::isfinite(pattern_.period())) distance = std::fmod(distance, pattern_.period());
    while (distance >= remaining_) {
      distance -= remaining_;
      next();
    }
    remaining_ -= distance;
  }

 private:
  void next() {
    index_ = (index_ + 1) % pattern_.lengths().size();
    remaining_ = pattern_.lengths()[index_];
  }

  const DashPattern& pattern_;
  std::size_t index_ = 0;
  CGFloat remaining_;
};

class Dasher {
 public:
  Dasher(CGMutablePath& target, const PathSpans& spans, const DashPattern& pattern)
      : writer_(target, spans), spans_(spans), pattern_(pattern) {}

  void dash(const PathSpans::Subpath& subpath) {
    DashCursor cursor(pattern_);
    left_ = subpath.length;
    // A dash that only rounding begins at the very end is none.
    negligible_ = subpath.length * 1e-9;
    for (const auto& span : spans_.spans(subpath)) {
      if (span.isVisible) {
        follow(span, cursor);
      } else {
        writer_.lift();
        cursor.skip(span.length);
        left_ -= span.length;
      }
    }
    writer_.lift();
  }

 private:
  void follow(const PathSpans::Span& span, DashCursor& cursor) {
    CGFloat position = 0;
    CGFloat parameter = span.from;
    while (position < span.length && left_ > negligible_) {
      const CGFloat step = std::min(cursor.remaining(), span.length - position);
      position = step < cursor.remaining() ? span.length : position + step;
      left_ -= step;
      const CGFloat next = parameterAt(spans_, span, position);
      if (cursor.isDash()) {
        writer_.draw(span.segment, parameter, next);
        if (step == cursor.remaining()) writer_.lift();
      }
      parameter = next;
      cursor.advance(step);
    }
  }

  PieceWriter writer_;
  const PathSpans& spans_;
  const DashPattern& pattern_;
  CGFloat left_ = 0;
  CGFloat negligible_ = 0;
};

// The whole multiple of the pattern that keeps the number of dashes within the limits.
CGFloat coarsening(const DashPattern& pattern, CGFloat length, const DashLimits& limits) {
  const std::size_t dashesPerPeriod = pattern.lengths().size() / 2;
  const CGFloat dashes = length / pattern.period() * static_cast<CGFloat>(dashesPerPeriod);
  const CGFloat allowed =
      std::min(static_cast<CGFloat>(limits.maxDashes), std::max(1.0, length * limits.dashesPerUnit));
  return std::max(1.0, std::ceil(dashes / allowed));
}

void appendWhole(CGMutablePath& target, std::span<const CGPathElement> path, const PathSpans& spans,
                 const PathSpans::Subpath& subpath) {
  const auto elements = path.subspan(subpath.firstElement, subpath.lastElement - subpath.firstElement);
  if (elements.front().type != CGPathElementType::moveToPoint) {
    target.move(spans.segments()[spans.spans(subpath).front().segment].start);
  }
  target.addElements(elements);
}

void appendPiece(PieceWriter& writer, const PathSpans& spans, const PathSpans::Subpath& subpath, CGFloat from,
                 CGFloat to) {
  CGFloat start = 0;
  for (const auto& span : spans.spans(subpath)) {
    const CGFloat first = std::clamp(from - start, 0.0, span.length);
    const CGFloat last = std::clamp(to - start, 0.0, span.length);
    if (first < last) {
      writer.draw(span.segment, parameterAt(spans, span, first), parameterAt(spans, span, last));
    }
    start += span.length;
  }
  writer.lift();
}

}  // namespace

std::optional<DashPattern> DashPattern::make(CGFloat phase, std::span<const CGFloat> lengths) {
  const CGFloat sum = std::accumulate(lengths.begin(), lengths.end(), 0.0);
  if (!(sum > 0)) return std::nullopt;
  DashPattern pattern;
  const auto notNegative = [](CGFloat length) { return std::max(length, 0.0); };
  for (std::size_t round = 0; round <= lengths.size() % 2; ++round) {
    std::ranges::transform(lengths, std::back_inserter(pattern.lengths_), notNegative);
  }
  pattern.period_ = std::accumulate(pattern.lengths_.begin(), pattern.lengths_.end(), 0.0);
  pattern.phase_ = std::isfinite(phase) ? std::fmod(phase, pattern.period_) : 0;
  if (pattern.phase_ < 0) pattern.phase_ += pattern.period_;
  // An infinite pattern has nothing before its beginning.
  if (!std::isfinite(pattern.phase_)) pattern.phase_ = 0;
  return pattern;
}

std::optional<DashPattern> DashPattern::scaled(CGFloat factor) const {
  auto scaled = lengths_;
  for (CGFloat& length : scaled) length *= factor;
  return make(phase_ * factor, scaled);
}

void DashPattern::openEmptyDashes(CGFloat length) {
  for (std::size_t index = 0; index < lengths_.size(); index += 2) {
    if (lengths_[index] > 0) continue;
    lengths_[index] = length;
    CGFloat& gap = lengths_[index + 1];
    if (gap > length) {
      gap -= length;
    } else {
      period_ += length;
    }
  }
}

void appendDashes(CGMutablePath& target, std::span<const CGPathElement> path, const DashPattern& pattern,
                  const DashLimits& limits) {
  const PathSpans spans(path, limits.visible);
  if (!std::isfinite(spans.length())) return target.addElements(path);
  auto fitting = pattern.scaled(coarsening(pattern, spans.visibleLength(), limits));
  if (!fitting) return target.addElements(path);
  fitting->openEmptyDashes(limits.emptyDashLength);
  Dasher dasher(target, spans, *fitting);
  for (const auto& subpath : spans.subpaths()) dasher.dash(subpath);
}

void appendPortion(CGMutablePath& target, std::span<const CGPathElement> path, const PathSpans& spans,
                   CGFloat from, CGFloat to) {
  PieceWriter writer(target, spans);
  CGFloat start = 0;
  for (const auto& subpath : spans.subpaths()) {
    if (from <= start && start + subpath.length <= to) {
      appendWhole(target, path, spans, subpath);
    } else {
      appendPiece(writer, spans, subpath, from - start, to - start);
    }
    start += subpath.length;
  }
}

}  // namespace bkuk
