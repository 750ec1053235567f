#include <benchmark/benchmark.h>
#include <string>

#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"

namespace bkuk {
namespace {

using Styles = BKUKAttributedTextXMLConstructor::Styles;

/// `count` styles, of which markup uses the two called b and link.
Styles styles(std::size_t count) {
  Styles result;
  for (const char* name : {"b", "link"})
    result[name] = {{NSKernAttributeName, 1}, {NSLinkAttributeName, name}};
  while (result.size() < count) {
    result["style" + std::to_string(result.size())] = {
        {NSKernAttributeName, static_cast<int>(result.size())}};
  }
  return result;
}

/// At least so many bytes of text with a tag every 12.
std::string markup(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "some wor[b]that are[/b]and a[link]linked[/link]";
  return text;
}

void reportBytes(benchmark::State& state, std::size_t size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

/// From UTF-8 to an attributed text. Arguments: the size of the markup and the number of styles.
void createAttributedText(benchmark::State& state) {
  const std::string text = markup(static_cast<std::size_t>(state.range(0)));
  const Styles tags = styles(static_cast<std::size_t>(state.range(1)));
  const NSAttributeDictionary plain = {{NSKernAttributeName, 0}};
  for (auto _ : state) {
    benchmark::DoNotOptimize(BKUKAttributedTextXMLFactory::createAttributedText(NSString(text), tags, plain));
  }
  reportBytes(state, text.size());
}
BENCHMARK(createAttributedText)->ArgsProduct({{64 << 10, 1 << 20}, {2, 20, 1000}});

/// The part of it that is the conversion of the text.
void convertToUnits(benchmark::State& state) {
  const std::string text = markup(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(NSString(text));
  reportBytes(state, text.size());
}
BENCHMARK(convertToUnits)->Arg(64 << 10)->Arg(1 << 20);

/// Nothing but opening brackets.
void readBrackets(benchmark::State& state) {
  const std::string text(static_cast<std::size_t>(state.range(0)), '[');
  const Styles tags = styles(20);
  for (auto _ : state) {
    benchmark::DoNotOptimize(BKUKAttributedTextXMLFactory::createAttributedText(NSString(text), tags, {}));
  }
  reportBytes(state, text.size());
}
BENCHMARK(readBrackets)->Arg(1 << 20)->Arg(10 << 20);

/// An attribute put on five units anywhere in a text of so many runs.
void addAttributeAnywhere(benchmark::State& state) {
  const auto runs = static_cast<std::size_t>(state.range(0));
  const auto text = make<NSMutableAttributedString>();
  for (std::size_t i = 0; i < runs; ++i) {
    text->append(u"0123456789", {{NSKernAttributeName, static_cast<int>(i)}});
  }
  std::size_t at = 0;
  for (auto _ : state) {
    at = (at + 7919 * 10) % (text->length() - 10);
    text->addAttribute(NSBaselineOffsetAttributeName, static_cast<int>(at % 3), {at, 5});
  }
}
BENCHMARK(addAttributeAnywhere)->RangeMultiplier(16)->Range(256, 256 << 10);

/// One unit put anywhere into a text of so many units in runs of ten.
void insertAnywhere(benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  const auto text = make<NSMutableAttributedString>();
  for (std::size_t i = 0; i < length / 10; ++i) {
    text->append(u"0123456789", {{NSKernAttributeName, static_cast<int>(i % 2)}});
  }
  std::size_t at = 0;
  for (auto _ : state) {
    at = (at + 79190) % text->length();
    text->replaceCharacters({at, 0}, NSString("x"));
    text->deleteCharacters({at, 1});
  }
}
BENCHMARK(insertAnywhere)->RangeMultiplier(16)->Range(4 << 10, 1 << 20);

}  // namespace
}  // namespace bkuk
