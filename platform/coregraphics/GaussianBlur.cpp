#include "platform/coregraphics/GaussianBlur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace bkuk {

namespace {

// A box filter of fractional length: `reach` whole pixels on either side of the middle one, and beyond them
// one more that counts for less. Three of them in a row approach a Gaussian of any standard deviation.
struct Box {
  int reach;
  float inner;
  float outer;

  explicit Box(double sigma) {
    const double variance = sigma * sigma / 3;
    reach = static_cast<int>(std::floor((std::sqrt(12 * variance + 1) - 1) / 2));
    const double whole = 2 * reach + 1;
    const double next = reach + 1;
    const double share = whole * (reach * next - 3 * variance) / (6 * (variance - next * next));
    inner = static_cast<float>(1 / (whole + 2 * share));
    outer = static_cast<float>(share / (whole + 2 * share));
  }
};

// So many neighbouring columns are filtered side by side, for the sake of vector units.
constexpr int lanes = 16;
using Row = std::array<float, lanes>;

// Filters `count` rows of columns in `rows`, which has `box.reach + 1` rows of zeros on either side.
void filter(const std::vector<Row>& rows, std::vector<Row>& result, int count, const Box& box) {
  Row sum{};
  const int margin = box.reach + 1;
  for (int index = 1; index < 2 * box.reach + 1; ++index) {
    for (int lane = 0; lane < lanes; ++lane) sum[lane] += rows[index][lane];
  }
  for (int index = 0; index < count; ++index) {
    const Row& before = rows[index];
    const Row& first = rows[index + 1];
    const Row& last = rows[index + 2 * box.reach + 1];
    const Row& after = rows[index + 2 * margin];
    Row& target = result[index + margin];
    for (int lane = 0; lane < lanes; ++lane) {
      sum[lane] += last[lane];
      target[lane] = sum[lane] * box.inner + (before[lane] + after[lane]) * box.outer;
      sum[lane] -= first[lane];
    }
  }
}

class ColumnBlur {
 public:
  ColumnBlur(int height, const Box& box)
      : height_(height), box_(box), rows_(height + 2 * margin()), other_(rows_.size()) {}

  // Columns `left` and the following ones, as many as there are lanes or columns left.
  void apply(std::span<std::uint8_t> plane, int width, int left) {
    const int columns = std::min(lanes, width - left);
    for (int y = 0; y < height_; ++y) {
      const auto row = plane.subspan(static_cast<std::size_t>(y) * width + left, columns);
      std::ranges::copy(row, rows_[y + margin()].begin());
    }
    filter(rows_, other_, height_, box_);
    filter(other_, rows_, height_, box_);
    filter(rows_, other_, height_, box_);
    constexpr float half = 0.5F;
    for (int y = 0; y < height_; ++y) {
      const auto row = plane.subspan(static_cast<std::size_t>(y) * width + left, columns);
      const Row& blurred = other_[y + margin()];
      std::transform(blurred.begin(), blurred.begin() + columns, row.begin(),
                     [](float value) { return static_cast<std::uint8_t>(value + half); });
    }
  }

 private:
  [[nodiscard]] int margin() const { return box_.reach + 1; }

  int height_;
  const Box& box_;
  std::vector<Row> rows_;
  std::vector<Row> other_;
};

void blurColumns(std::span<std::uint8_t> plane, int width, int height, const Box& box) {
  ColumnBlur blur(height, box);
  for (int left = 0; left < width; left += lanes) blur.apply(plane, width, left);
}

std::vector<std::uint8_t> transposed(std::span<const std::uint8_t> plane, int width, int height) {
  std::vector<std::uint8_t> result(plane.size());
  constexpr int tile = 32;
  for (int top = 0; top < height; top += tile) {
    for (int x = 0; x < width; ++x) {
      for (int y = top; y < std::min(top + tile, height); ++y) {
        result[static_cast<std::size_t>(x) * height + y] = plane[static_cast<std::size_t>(y) * width + x];
      }
    }
  }
  return result;
}

}  // namespace

int blurReach(double sigma) {
  if (!(sigma > 0)) return 0;
  return 3 * (Box(std::min(sigma, maxBlurSigma)).reach + 1);
}

void gaussianBlur(std::span<std::uint8_t> plane, int width, int height, double sigma) {
  if (!(sigma > 0) || width <= 0 || height <= 0) return;
  const Box box(std::min(sigma, maxBlurSigma));
  blurColumns(plane, width, height, box);
  auto turned = transposed(plane, width, height);
  blurColumns(turned, height, width, box);
  std::ranges::copy(transposed(turned, height, width), plane.begin());
}

}  // namespace bkuk
