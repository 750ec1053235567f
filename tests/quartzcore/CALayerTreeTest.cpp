#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/quartzcore/LayerWindow.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

Ref<CALayer> named(std::string name) {
  auto layer = make<CALayer>();
  layer->setName(std::move(name));
  return layer;
}

std::vector<std::string> namesIn(const CALayer& layer) {
  std::vector<std::string> names;
  for (const auto& sublayer : layer.sublayers()) names.push_back(sublayer->name());
  return names;
}

struct CALayerTree : testing::Test {
  Ref<CALayer> top = named("top");
  Ref<CALayer> a = named("a");
  Ref<CALayer> b = named("b");
  Ref<CALayer> c = named("c");
};

TEST_F(CALayerTree, AddingMovesALayerFromWhereItWas) {
  const auto other = named("other");
  other->addSublayer(a);
  top->addSublayer(a);
  EXPECT_EQ(a->superlayer(), top);
  EXPECT_TRUE(other->sublayers().empty());
  top->addSublayer(b);
  top->addSublayer(a);
  EXPECT_THAT(namesIn(*top), ElementsAre("b", "a"));
}

TEST_F(CALayerTree, PlacesAreNamedByIndexAndBySiblings) {
  top->addSublayer(a);
  top->insertSublayer(b, 0);
  top->insertSublayer(c, 99);
  EXPECT_THAT(namesIn(*top), ElementsAre("b", "a", "c"));
  top->insertSublayerBelow(c, *a);
  EXPECT_THAT(namesIn(*top), ElementsAre("b", "c", "a"));
  top->insertSublayerAbove(b, *a);
  EXPECT_THAT(namesIn(*top), ElementsAre("c", "a", "b"));
  const auto stranger = named("stranger");
  top->insertSublayerBelow(a, *stranger);
  top->insertSublayerAbove(c, *stranger);
  EXPECT_THAT(namesIn(*top), ElementsAre("a", "b", "c"));
}

TEST_F(CALayerTree, ReplacingTakesThePlaceOfTheOld) {
  top->setSublayers({a, b});
  top->replaceSublayer(*a, c);
  EXPECT_THAT(namesIn(*top), ElementsAre("c", "b"));
  EXPECT_EQ(a->superlayer(), nullptr);
  top->replaceSublayer(*a, b);
  EXPECT_THAT(namesIn(*top), ElementsAre("c", "b")) << "what is no sublayer is not replaced";
}

TEST_F(CALayerTree, SublayersOutliveTheirSuperlayer) {
  top->addSublayer(a);
  top = nullptr;
  EXPECT_EQ(a->superlayer(), nullptr);
  a->setOpacity(0.5);
}

TEST_F(CALayerTree, NoLayerMayHoldItself) {
  a->addSublayer(b);
  EXPECT_TRUE(stopLine([&] { b->addSublayer(a); }));
  EXPECT_TRUE(stopLine([&] { a->addSublayer(a); }));
  EXPECT_TRUE(stopLine([&] { b->setMask(a); }));
  EXPECT_TRUE(stopLine([&] { a->setMask(b); })) << "a mask has no superlayer";
}

TEST_F(CALayerTree, AMaskIsOwnedButNoSublayer) {
  a->setMask(b);
  EXPECT_TRUE(a->sublayers().empty());
  EXPECT_EQ(b->superlayer(), nullptr);
  b->removeFromSuperlayer();
  EXPECT_EQ(a->mask(), b);
  top->addSublayer(b);
  EXPECT_EQ(a->mask(), nullptr) << "it has moved";
  a->setMask(c);
  top->setMask(c);
  EXPECT_EQ(a->mask(), nullptr);
}

TEST_F(CALayerTree, TenThousandNestedLayersAreDestroyedWithoutDepth) {
  Weak<CALayer> deepest;
  {
    auto layer = top;
    for (int i = 0; i < 10'000; ++i) {
      const auto next = make<CALayer>();
      layer->addSublayer(next);
      layer = next;
    }
    deepest = layer;
  }
  EXPECT_TRUE(deepest.isAlive());
  top = nullptr;
  EXPECT_FALSE(deepest.isAlive());
}

}  // namespace
}  // namespace bkuk
