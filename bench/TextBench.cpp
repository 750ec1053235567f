#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/CGContext.h"
#include "platform/coretext/CTLine.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr auto leftToRight = host::TextDirection::leftToRight;
constexpr std::u16string_view twentyCharacters = u"Choose the new place";

std::shared_ptr<const host::Font> inter(double size = 13) {
  auto& fonts = host::current().drawing().fonts();
  auto font = fonts.font("Inter-Regular", size);
  return font ? font : fonts.systemFont(size, 400);
}

std::shared_ptr<const host::TextParagraph> shape(const host::Font& font, std::u16string_view text) {
  const host::TextRun run{text.size(), &font};
  return host::current().drawing().fonts().shape(text, {&run, 1}, leftToRight);
}

std::u16string numbered(std::u16string text, std::size_t number) {
  text.push_back(u' ');
  for (const char digit : std::to_string(number)) text.push_back(static_cast<char16_t>(digit));
  return text;
}

void widthOfTextSeenBefore(benchmark::State& state) {
  const VirtualHostScope host;
  const auto font = inter();
  for (auto _ : state) benchmark::DoNotOptimize(shape(*font, twentyCharacters)->width());
}
BENCHMARK(widthOfTextSeenBefore);

// Five words of 32 in ever new orders, about 20 characters.
void widthOfTextOfKnownWords(benchmark::State& state) {
  const VirtualHostScope host;
  const auto font = inter();
  const char16_t* const words[] = {u"Use", u"the", u"new", u"file", u"or", u"open", u"it", u"all"};
  std::size_t count = 0;
  std::vector<std::u16string> texts(1 << 15);
  for (auto& text : texts) {
    for (std::size_t i = 0, n = count++; i < 5; ++i, n /= 8)
      text += std::u16string(i ? u" " : u"") + words[n % 8];
  }
  for (const auto& text : texts) (void)shape(*font, text);
  // More texts than are remembered, so that each is new again.
  for (auto _ : state) benchmark::DoNotOptimize(shape(*font, texts[count++ % texts.size()])->width());
}
BENCHMARK(widthOfTextOfKnownWords);

// Four words of four letters that have not been seen before, with spaces 19 characters.
void widthOfNewWords(benchmark::State& state) {
  const VirtualHostScope host;
  const auto font = inter();
  std::uint32_t seed = 1;
  std::u16string text;
  for (auto _ : state) {
    text.clear();
    for (int i = 0; i < 19; ++i) {
      seed = seed * 1664525 + 1013904223;
      text.push_back(i % 5 == 4 ? u' ' : static_cast<char16_t>(u'a' + (seed >> 16) % 26));
    }
    benchmark::DoNotOptimize(shape(*font, text)->width());
  }
}
BENCHMARK(widthOfNewWords);

void lineOfTextSeenBefore(benchmark::State& state) {
  const VirtualHostScope host;
  const auto font = inter();
  const auto paragraph = shape(*font, twentyCharacters);
  for (auto _ : state) benchmark::DoNotOptimize(paragraph->line(0, 12)->units().size());
}
BENCHMARK(lineOfTextSeenBefore);

void mixedDirections(benchmark::State& state) {
  const VirtualHostScope host;
  const auto font = inter();
  std::size_t count = 0;
  for (auto _ : state) {
    const auto text = numbered(u"Open \u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD now", ++count);
    benchmark::DoNotOptimize(shape(*font, text)->width());
  }
}
BENCHMARK(mixedDirections);

void drawLabels(benchmark::State& state) {
  const VirtualHostScope host;
  host::Bitmap bitmap({1000, 1000});
  const auto context = make<CGContext>(bitmap, CGAffineTransform{1, 0, 0, -1, 0, 1000});
  const auto font = CTFont::font("Inter-Regular", 13);
  const auto face = font ? font : CTFont::systemFont(13);
  std::vector<Ref<CTLine>> lines;
  for (std::size_t i = 0; i < 2000; ++i) {
    lines.push_back(make<CTLine>(NSString(numbered(u"Label", i)), face));
  }
  for (auto _ : state) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      lines[i]->draw(*context, {static_cast<CGFloat>(i % 10) * 100, static_cast<CGFloat>(i / 10) * 5},
                     *CGColor::black());
    }
  }
  state.SetItemsProcessed(state.iterations() * 2000);
}
BENCHMARK(drawLabels)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bkuk
