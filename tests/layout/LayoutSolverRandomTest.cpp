#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <vector>

#include "platform/layout/LayoutSolver.h"

namespace bkuk {
namespace {

constexpr std::size_t unknowns = 3;
using Point = std::array<double, unknowns>;

struct Line {
  std::array<int, unknowns> factors{};
  int constant = 0;
  LayoutRelation relation = LayoutRelation::equal;
  double priority = requiredLayoutPriority;
  LayoutConstraintId id = 0;

  [[nodiscard]] double sum(const Point& point) const {
    double total = constant;
    for (std::size_t i = 0; i < unknowns; ++i) total += factors[i] * point[i];
    return total;
  }
  [[nodiscard]] double violation(const Point& point) const {
    const double off = sum(point);
    if (relation == LayoutRelation::equal) return std::abs(off);
    return std::max(0.0, relation == LayoutRelation::lessThanOrEqual ? off : -off);
  }
};

/// By how much the constraints of each priority are broken, the highest first.
using Damage = std::map<double, double, std::greater<>>;

Damage damageAt(const std::vector<Line>& lines, const Point& point) {
  Damage damage;
  for (const auto& line : lines) damage[line.priority] += line.violation(point);
  return damage;
}

bool isBetter(const Damage& a, const Damage& b) {
  for (const auto& [priority, amount] : a) {
    const double other = b.at(priority);
    if (std::abs(amount - other) > 1e-6) return amount < other;
  }
  return false;
}

/// Where three planes meet, by Cramer's rule.
std::optional<Point> crossing(const Line& a, const Line& b, const Line& c) {
  const auto determinant = [](const Point& x, const Point& y, const Point& z) {
    return x[0] * (y[1] * z[2] - y[2] * z[1]) - x[1] * (y[0] * z[2] - y[2] * z[0]) +
           x[2] * (y[0] * z[1] - y[1] * z[0]);
  };
  const auto withColumn = [](const Line& line, std::size_t column) {
    Point row{};
    for (std::size_t i = 0; i < unknowns; ++i) row[i] = i == column ? -line.constant : line.factors[i];
    return row;
  };
  const double whole = determinant(withColumn(a, unknowns), withColumn(b, unknowns), withColumn(c, unknowns));
  if (std::abs(whole) < 1e-9) return std::nullopt;
  Point point{};
  for (std::size_t i = 0; i < unknowns; ++i) {
    point[i] = determinant(withColumn(a, i), withColumn(b, i), withColumn(c, i)) / whole;
  }
  return point;
}

/// The least damage there is. Every unknown has a constraint of its own, so that the best place is where
/// three of the planes meet; all of these are tried.
Damage leastDamage(const std::vector<Line>& lines) {
  std::optional<Damage> best;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (std::size_t j = i + 1; j < lines.size(); ++j) {
      for (std::size_t k = j + 1; k < lines.size(); ++k) {
        const auto point = crossing(lines[i], lines[j], lines[k]);
        if (!point) continue;
        const Damage damage = damageAt(lines, *point);
        if (!best || isBetter(damage, *best)) best = damage;
      }
    }
  }
  return *best;
}

/// Constraints of which the required ones hold at a hidden point, in a solver and in a list.
class RandomSystem {
 public:
  explicit RandomSystem(unsigned seed) : random_(seed) {
    for (auto& variable : variables_) variable = solver_.makeVariable();
    for (auto& each : hidden_) each = pick(-20, 20);
    for (std::size_t i = 0; i < unknowns; ++i) {
      Line stay;
      stay.factors[i] = 1;
      stay.constant = pick(-20, 20);
      stay.priority = 1;
      add(stay);
    }
  }

  void change() {
    const bool isFull = lines_.size() > 12;
    switch (pick(0, 5)) {
      case 0:
        return removeOne();
      case 1:
        return moveOne();
      case 2:
        return weighOne();
      default:
        return isFull ? removeOne() : add(randomLine());
    }
  }

  void check() {
    solver_.solve();
    ASSERT_TRUE(solver_.dropped().empty());
    Point found{};
    for (std::size_t i = 0; i < unknowns; ++i) found[i] = solver_.value(variables_[i]);
    const Damage damage = damageAt(lines_, found);
    if (const auto required = damage.find(requiredLayoutPriority); required != damage.end()) {
      ASSERT_NEAR(required->second, 0, 1e-6);
    }
    ASSERT_FALSE(isBetter(leastDamage(lines_), damage));
  }

 private:
  int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(random_); }

  // A required one is moved until it holds at the hidden point.
  void fit(Line& line) {
    const double off = line.sum(hidden_);
    const int room = line.relation == LayoutRelation::equal ? 0 : pick(0, 10);
    const int wanted = line.relation == LayoutRelation::lessThanOrEqual ? -room : room;
    line.constant += wanted - static_cast<int>(off);
  }

  Line randomLine() {
    Line line;
    for (auto& factor : line.factors) factor = pick(-2, 2);
    if (std::ranges::all_of(line.factors, [](int factor) { return factor == 0; })) line.factors[0] = 1;
    line.constant = pick(-30, 30);
    line.relation = static_cast<LayoutRelation>(pick(-1, 1));
    constexpr double priorities[] = {250, 500, 750, requiredLayoutPriority};
    line.priority = priorities[pick(0, 3)];
    if (line.priority == requiredLayoutPriority) fit(line);
    return line;
  }

  void add(Line line) {
    LayoutExpression expression;
    for (std::size_t i = 0; i < unknowns; ++i) expression.add(variables_[i], line.factors[i]);
    expression.addConstant(line.constant);
    line.id = solver_.add(expression, line.relation, line.priority);
    lines_.push_back(line);
  }

  // Of those beyond the unknowns' own.
  std::optional<std::size_t> pickLine() {
    if (lines_.size() <= unknowns) return std::nullopt;
    return static_cast<std::size_t>(pick(unknowns, static_cast<int>(lines_.size()) - 1));
  }
  void removeOne() {
    const auto index = pickLine();
    if (!index) return;
    solver_.remove(lines_[*index].id);
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*index));
  }
  void moveOne() {
    const auto index = pickLine();
    if (!index) return;
    Line& line = lines_[*index];
    line.constant = pick(-30, 30);
    if (line.priority == requiredLayoutPriority) fit(line);
    solver_.setConstant(line.id, line.constant);
  }
  void weighOne() {
    const auto index = pickLine();
    if (!index || lines_[*index].priority == requiredLayoutPriority) return;
    lines_[*index].priority = pick(1, 999);
    solver_.setPriority(lines_[*index].id, lines_[*index].priority);
  }

  std::mt19937 random_;
  LayoutSolver solver_;
  std::array<LayoutVariable, unknowns> variables_;
  Point hidden_{};
  std::vector<Line> lines_;
};

TEST(LayoutSolverRandom, RequiredOnesHoldAndNoOthersCouldBeBrokenLess) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    RandomSystem system(seed);
    for (int step = 0; step < 60; ++step) {
      SCOPED_TRACE(step);
      system.change();
      if (step % 3 == 0) system.check();
      if (testing::Test::HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace bkuk
