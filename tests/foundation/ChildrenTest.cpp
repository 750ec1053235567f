// What objects with many children keep about them: held against asking every child.

#include <gtest/gtest.h>
#include <vector>

#include "platform/foundation/BoxTree.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/SiblingList.h"
#include "tests/support/RandomRun.h"

namespace bkuk {
namespace {

using Tree = BoxTree<double>;

Tree::Box randomBox(RandomRun& random) {
  if (random.once(20)) return {};
  const double x = random.below(50);
  const double y = random.below(50);
  return {x, y, x + random.below(6), y + random.below(6)};
}

std::vector<std::size_t> touching(const std::vector<Tree::Box>& boxes, const Tree::Box& area,
                                  std::size_t end) {
  std::vector<std::size_t> found;
  for (std::size_t i = end; i-- > 0;) {
    if (boxes[i].touches(area)) found.push_back(i);
  }
  return found;
}

std::vector<std::size_t> touching(const Tree& tree, const Tree::Box& area, std::size_t end) {
  std::vector<std::size_t> found;
  for (auto i = tree.lastTouching(area, end); i != Tree::none; i = tree.lastTouching(area, i))
    found.push_back(i);
  return found;
}

TEST(BoxTreeTest, findsWhatAskingAllFinds) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    RandomRun random(seed);
    Tree tree;
    std::vector<Tree::Box> boxes;
    for (int step = 0; step < 2000; ++step) {
      const auto kind = random.below(10);
      if (kind == 0 && !boxes.empty() && random.once(8)) {
        boxes.resize(static_cast<std::size_t>(random.below(static_cast<int>(boxes.size()) + 1)));
        tree.truncate(boxes.size());
      } else if (kind < 4 && !boxes.empty()) {
        const auto at = static_cast<std::size_t>(random.below(static_cast<int>(boxes.size())));
        tree.set(at, boxes[at] = randomBox(random));
      } else {
        boxes.push_back(randomBox(random));
        tree.append(boxes.back());
      }
      if (step % 10 != 0) continue;
      Tree::Box all;
      for (const auto& box : boxes) all.add(box);
      ASSERT_EQ(tree.bounds(), all) << seed;
      const auto area = randomBox(random);
      const auto end = static_cast<std::size_t>(random.below(static_cast<int>(boxes.size()) + 1));
      ASSERT_EQ(touching(tree, area, end), touching(boxes, area, end)) << seed;
    }
  }
}

class Child : public NSObject {
 public:
  std::uint32_t place = 0;
};

// More children than are searched for one, so that all ways of finding one are taken.
TEST(SiblingListTest, knowsEveryPlace) {
  for (unsigned seed = 1; seed <= 4; ++seed) {
    RandomRun random(seed);
    SiblingList<Child, &Child::place> list;
    std::vector<Ref<Child>> expected;
    const auto place = [&](std::size_t count) {
      return static_cast<std::size_t>(random.below(static_cast<int>(count)));
    };
    for (int step = 0; step < 8000; ++step) {
      if (random.once(3) && !expected.empty()) {
        const auto at = random.once(2) ? 0 : place(expected.size());
        ASSERT_EQ(list.erase(at), expected[at]);
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
      } else {
        const auto at = place(expected.size() + 1);
        const auto child = make<Child>();
        list.insert(child, at);
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), child);
      }
      if (expected.empty() || !random.once(4)) continue;
      const auto at = place(expected.size());
      ASSERT_EQ(list.indexOf(*expected[at]), at) << seed;
    }
    ASSERT_EQ(list.all(), expected);
  }
}

}  // namespace
}  // namespace bkuk
