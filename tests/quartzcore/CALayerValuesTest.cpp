#include <gtest/gtest.h>
#include <map>

#include "platform/quartzcore/CAGradientLayer.h"
#include "platform/quartzcore/CAShapeLayer.h"

namespace bkuk {
namespace {

// Every property by its name, with a value that differs from its default.
const std::map<std::string, CAValue>& someValues() {
  static const auto& values = *new std::map<std::string, CAValue>{
      {"bounds", CGRect(1, 2, 3, 4)},
      {"position", CGPoint{5, 6}},
      {"anchorPoint", CGPoint{0, 1}},
      {"transform", CATransform3DMakeScale(2, 3, 4)},
      {"zPosition", 7.0},
      {"geometryFlipped", true},
      {"autoresizingMask", 18.0},
      {"backgroundColor", Ref<NSObject>(CGColor::white())},
      {"cornerRadius", 8.0},
      {"maskedCorners", 3.0},
      {"borderWidth", 9.0},
      {"borderColor", Ref<NSObject>(CGColor::white())},
      {"opacity", 0.5},
      {"hidden", true},
      {"masksToBounds", true},
      {"opaque", true},
      {"shadowColor", Ref<NSObject>(CGColor::white())},
      {"shadowOpacity", 0.25},
      {"shadowOffset", CGSize{1, 1}},
      {"shadowRadius", 10.0},
      {"contentsScale", 2.0},
      {"shouldRasterize", true},
      {"rasterizationScale", 2.0},
      {"needsDisplayOnBoundsChange", true},
      {"name", std::string("layer")},
      {"anything else", std::vector<double>{1, 2}},
  };
  return values;
}

TEST(CALayerValues, EveryPropertyIsReadAndWrittenByItsName) {
  const auto layer = make<CALayer>();
  for (const auto& [key, value] : someValues()) {
    EXPECT_NE(layer->value(key), value) << key;
    layer->setValue(value, key);
    EXPECT_EQ(layer->value(key), value) << key;
  }
  EXPECT_EQ(layer->opacity(), 0.5);
  EXPECT_EQ(layer->autoresizingMask(), 18U);
}

TEST(CALayerValues, ValuesOfAnotherKindAreIgnored) {
  const auto layer = make<CALayer>();
  for (const auto& [key, value] : someValues()) {
    const bool isPlainKey = key == "anything else";
    const auto before = layer->value(key);
    layer->setValue(std::vector<Ref<NSObject>>{CGColor::white()}, key);
    EXPECT_EQ(layer->value(key) == before, !isPlainKey) << key;
  }
  layer->setValue(Ref<NSObject>(CGColor::white()), "shadowPath");
  EXPECT_EQ(layer->shadowPath(), nullptr);
  layer->setValue(-1.0, "maskedCorners");
  EXPECT_EQ(layer->maskedCorners(), 15U);
}

TEST(CALayerValues, AbsentObjectsReadAsNoValueAndAreWrittenAsSuch) {
  const auto layer = make<CALayer>();
  layer->setBackgroundColor(CGColor::white());
  layer->setValue(std::monostate(), "backgroundColor");
  EXPECT_EQ(layer->backgroundColor(), nullptr);
  EXPECT_EQ(layer->value("backgroundColor"), CAValue());
  EXPECT_EQ(layer->value("never set"), CAValue());
}

TEST(CALayerValues, SubclassesAnswerTheirOwnKeysToo) {
  const auto shape = make<CAShapeLayer>();
  EXPECT_EQ(shape->value("lineDashPattern"), CAValue());
  shape->setValue(std::vector<double>{}, "lineDashPattern");
  EXPECT_EQ(shape->value("lineDashPattern"), CAValue(std::vector<double>{})) << "empty is not absent";
  shape->setValue(std::string("round"), "lineCap");
  EXPECT_EQ(shape->lineCap(), kCALineCapRound);
  shape->setValue(3.0, "cornerRadius");
  EXPECT_EQ(shape->cornerRadius(), 3);
  const auto gradient = make<CAGradientLayer>();
  gradient->setValue(std::vector<Ref<NSObject>>{CGColor::white(), CGColor::black()}, "colors");
  EXPECT_EQ(gradient->colors().size(), 2U);
}

TEST(CALayerValues, OpacitiesAreKeptInSinglePrecision) {
  const auto layer = make<CALayer>();
  layer->setOpacity(0.1);
  EXPECT_EQ(layer->opacity(), static_cast<double>(0.1F));
}

}  // namespace
}  // namespace bkuk
