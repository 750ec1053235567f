#include <algorithm>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "BrenvikUIKit/text/BKUKInteractiveLabel.h"
#include "bench/ResidentMemory.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr auto measuring = NSStringDrawingOptions::usesLineFragmentOrigin;

Ref<NSFont> inter(CGFloat size = 13) {
  auto font = NSFont::font("Inter-Regular", size);
  return font ? font : NSFont::systemFont(size);
}

NSAttributeDictionary look() {
  return {{NSFontAttributeName, inter()}, {NSParagraphStyleAttributeName, NSParagraphStyle::default_()}};
}

// Five words of 8 in ever new orders, about 20 characters.
std::vector<std::string> textsOfKnownWords(std::size_t count) {
  const char* const words[] = {"Use", "the", "new", "file", "or", "open", "it", "all"};
  std::vector<std::string> texts(count);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t word = 0, n = i; word < 5; ++word, n /= 8)
      texts[i] += std::string(word ? " " : "") + words[n % 8];
  }
  return texts;
}

/// What a label asks the layout for its intrinsic size.
void sizeOfTextSeenBefore(benchmark::State& state) {
  const VirtualHostScope host;
  const NSAttributedString text(NSString("Choose the new place"), look());
  for (auto _ : state) benchmark::DoNotOptimize(text.boundingRect({}, measuring).size);
}
BENCHMARK(sizeOfTextSeenBefore);

void sizeOfTextOfKnownWords(benchmark::State& state) {
  const VirtualHostScope host;
  std::vector<Ref<NSAttributedString>> texts;
  for (const auto& text : textsOfKnownWords(1 << 15))
    texts.push_back(make<NSAttributedString>(NSString(text), look()));
  for (const auto& text : texts) (void)text->size();
  std::size_t count = 0;
  // More texts than are remembered, so that each is new again.
  for (auto _ : state)
    benchmark::DoNotOptimize(texts[count++ % texts.size()]->boundingRect({}, measuring).size);
}
BENCHMARK(sizeOfTextOfKnownWords);

Ref<BKUKLabel> sizedLabel() {
  auto label = BKUKLabel::label("Choose the new place");
  label->setFont(inter());
  label->setTextColor(NSColor::black());
  return label;
}

void intrinsicSizeOfALabel(benchmark::State& state) {
  const VirtualHostScope host;
  const auto label = sizedLabel();
  for (auto _ : state) benchmark::DoNotOptimize(label->intrinsicContentSize());
}
BENCHMARK(intrinsicSizeOfALabel);

/// From the new text to the size, everything between included.
void labelTakesATextSeenBefore(benchmark::State& state) {
  const VirtualHostScope host;
  const auto label = sizedLabel();
  const char* const texts[] = {"Choose the new place", "Choose the old place"};
  std::size_t count = 0;
  for (auto _ : state) {
    label->setStringValue(texts[++count % 2]);
    benchmark::DoNotOptimize(label->intrinsicContentSize());
  }
}
BENCHMARK(labelTakesATextSeenBefore);

/// 2,000 labels drawn again, their texts as they were.
void drawLabels(benchmark::State& state) {
  const VirtualHostScope host;
  host::Bitmap bitmap({200, 40});
  const auto context = make<CGContext>(bitmap, CGAffineTransform{1, 0, 0, 1, 0, 0});
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, true));
  std::vector<Ref<BKUKLabel>> labels;
  for (std::size_t i = 0; i < 2000; ++i) {
    labels.push_back(sizedLabel());
    labels.back()->setStringValue("Label " + std::to_string(i));
    labels.back()->setFrame({0, 0, 200, 20});
    (void)labels.back()->intrinsicContentSize();
  }
  for (auto _ : state) {
    for (const auto& label : labels) label->draw({});
  }
  state.SetItemsProcessed(state.iterations() * 2000);
}
BENCHMARK(drawLabels)->Unit(benchmark::kMillisecond);

// A window full of 2,000 labels.
struct LabelWindow {
  LabelWindow() {
    window = make<NSWindow>(NSRect{0, 0, 1920, 1050}, NSWindowStyleMaskTitled);
    window->orderFront();
    host->settle();
    const double before = residentMegabytes();
    for (int i = 0; i < 2000; ++i) {
      labels.push_back(sizedLabel());
      labels.back()->setStringValue("Label " + std::to_string(i));
      labels.back()->setFrame({i % 40 * 48.0, i / 40 * 21.0, 48, 21});
      window->contentView()->addSubview(labels.back());
    }
    host->settle();
    megabytes = std::max(megabytes, residentMegabytes() - before);
  }
  ~LabelWindow() { window->close(); }

  // A frame in which everything is painted. Not inlined, so that a profiler can tell it from the rest.
  [[gnu::noinline]] void repaint() {
    isEven = !isEven;
    window->setBackgroundColor(isEven ? NSColor::white() : NSColor::clear());
    host->settle();
  }

  VirtualHostScope host;
  Ref<NSWindow> window;
  std::vector<Ref<BKUKLabel>> labels;
  // Of the first window: later ones live in what it left.
  inline static double megabytes = 0;
  bool isEven = false;
};

/// 2,000 labels drawn again, to the finished pixels; `MiB` is what they added to the process.
void repaintLabels(benchmark::State& state) {
  LabelWindow window;
  for (auto _ : state) {
    for (const auto& label : window.labels) label->setNeedsDisplay(true);
    window.repaint();
  }
  state.counters["MiB"] = window.megabytes;
}
BENCHMARK(repaintLabels)->Unit(benchmark::kMillisecond);

/// The same, from what they drew before.
void compositeLabels(benchmark::State& state) {
  LabelWindow window;
  for (auto _ : state) window.repaint();
}
BENCHMARK(compositeLabels)->Unit(benchmark::kMillisecond);

/// A paragraph of so many units, broken into lines of 300 points.
void layOutParagraph(benchmark::State& state) {
  const VirtualHostScope host;
  std::string words;
  const auto texts = textsOfKnownWords(512);
  for (std::size_t i = 0; words.size() < static_cast<std::size_t>(state.range(0)); ++i)
    words += texts[i % texts.size()] + ' ';
  const NSAttributedString text(NSString(words), look());
  for (auto _ : state) benchmark::DoNotOptimize(text.boundingRect({300, 0}, measuring).size);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(words.size()));
}
BENCHMARK(layOutParagraph)->RangeMultiplier(16)->Range(1 << 10, 1 << 18)->Unit(benchmark::kMicrosecond);

/// As many units, which change direction all the time.
void layOutChangingDirections(benchmark::State& state) {
  const VirtualHostScope host;
  std::u16string units;
  while (units.size() < static_cast<std::size_t>(state.range(0))) units += u"\u05D0 a";
  const NSAttributedString text(NSString(std::move(units)), look());
  for (auto _ : state) benchmark::DoNotOptimize(text.boundingRect({300, 0}, measuring).size);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(layOutChangingDirections)
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 16)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bkuk
