#include <QAnimationDriver>
#include <QVariantAnimation>
#include <memory>
#include <stdexcept>
#include <vector>

#include "bench/peer/common/Scene.h"
#include "bench/peer/qtwidgets/Stage.h"
#include "bench/peer/qtwidgets/Workloads.h"

namespace peer {

namespace {

/// Time that passes when it is told to.
class ManualDriver : public QAnimationDriver {
 public:
  void advance() override {
    elapsed_ += 16;
    advanceAnimation();
  }
  [[nodiscard]] qint64 elapsed() const override { return elapsed_; }

 private:
  qint64 elapsed_ = 0;
};

std::unique_ptr<QVariantAnimation> startAnimation(int& calls) {
  auto animation = std::make_unique<QVariantAnimation>();
  animation->setStartValue(0.0);
  animation->setEndValue(1.0);
  animation->setDuration(1000);
  animation->setLoopCount(-1);
  QObject::connect(animation.get(), &QVariantAnimation::valueChanged, [&calls] { ++calls; });
  animation->start();
  return animation;
}

}  // namespace

Result animate() {
  ManualDriver driver;
  driver.install();
  int calls = 0;
  std::vector<std::unique_ptr<QVariantAnimation>> animations;
  for (int i = 0; i < animationCount; ++i) animations.push_back(startAnimation(calls));
  Stage::settle();  // they start from events
  const auto costs = costsOf(5, [&] {
    calls = 0;
    for (int i = 0; i < animationTicks; ++i) driver.advance();
  });
  if (calls < animationCount * animationTicks * 9 / 10) throw std::runtime_error("animations missed frames");
  return {animationTicks, costs};
}

}  // namespace peer
