#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "BrenvikUIKit/text/BKUKSimpleXMLParser.h"
#include "BrenvikUIKit/text/RangeFinder.h"

namespace bkuk {
namespace {

/// Writes down what it hears: text in quotes, + and - with the names of tags, ! for a failure.
struct Scribe : BKUKSimpleXMLParserDelegate {
  std::string heard;
  void foundCharacters(std::u16string_view text) override {
    heard += '\'' + NSString(std::u16string(text)).utf8() + '\'';
  }
  void didStartElement(const NSString& name) override { heard += '+' + name.utf8() + ' '; }
  void didEndElement(const NSString& name) override { heard += '-' + name.utf8() + ' '; }
};

std::string heard(const NSString& text, const std::vector<NSString>& names) {
  const auto scribe = make<Scribe>();
  const bool succeeded = BKUKSimpleXMLParser(scribe.get()).parse(text, names);
  return scribe->heard + (succeeded ? "" : "!");
}

TEST(BKUKSimpleXMLParser, TellsTextAndTagsInOrder) {
  EXPECT_EQ(heard("", {"b"}), "");
  EXPECT_EQ(heard("Hello [b]world[/b]", {"b"}), "'Hello '+b 'world'-b ");
  EXPECT_EQ(heard("[b][i]x[/i]y[/b]", {"b", "i"}), "+b +i 'x'-i 'y'-b ");
  EXPECT_EQ(heard("[]x[/]", {""}), "+ 'x'- ");
}

TEST(BKUKSimpleXMLParser, WhatIsNoTagIsText) {
  for (const char* text : {"[x]a[/x]", "[", "]", "[]", "[b", "[B]", "[ b]", "&amp;[b/]", "[/b ]"}) {
    EXPECT_EQ(heard(text, {"b"}), "'" + std::string(text) + "'");
  }
  EXPECT_EQ(heard("[b]", {}), "'[b]'");
  EXPECT_EQ(heard("[[b][[/b]", {"b"}), "'['+b '['-b ");
  EXPECT_EQ(heard("[b]\xED\xA0\x80[/b]", {"b"}), "+b '\uFFFD\uFFFD\uFFFD'-b ");
  EXPECT_EQ(heard(NSString(std::u16string(u"[b]\0\x202E[/b]", 9)), {"b"}).size(), 3u + 6u + 3u);
}

TEST(BKUKSimpleXMLParser, MalformedTextIsToldUpToItsFault) {
  EXPECT_EQ(heard("a[b]x[i]y[/b]z[/i]", {"b", "i"}), "'a'+b 'x'+i 'y'!");
  EXPECT_EQ(heard("a[/b]c", {"b"}), "'a'!");
  EXPECT_EQ(heard("a[b]c", {"b"}), "'a'+b !") << "the rest of an unclosed text is not told";
}

TEST(BKUKSimpleXMLParser, AMarkBehindABracketMakesItText) {
  // Combining acute, variation selector, zero width joiner, a mark and a selector beyond the first plane.
  for (const char* mark : {"\u0301", "\uFE0F", "\u200D", "\U0001E8D0", "\U000E0101"}) {
    const std::string behind = "[b]" + std::string(mark);
    EXPECT_EQ(heard(NSString(behind), {"b"}), "'" + behind + "'");
    const std::string inside = "[" + std::string(mark) + "b]";
    EXPECT_EQ(heard(NSString(inside), {NSString(std::string(mark) + "b")}), "'" + inside + "'");
  }
  EXPECT_EQ(heard(NSString(std::u16string{'[', 'b', ']', 0xDB40}), {"b"}), "+b !")
      << "half a pair is no mark";
}

TEST(BKUKSimpleXMLParser, TheFirstTagOfTheListWins) {
  EXPECT_EQ(heard("[a][b]", {"a", "a][b"}), "+a !");
  EXPECT_EQ(heard("[a][b]x[/a][b]", {"a][b", "a"}), "+a][b 'x'-a][b ");
  EXPECT_EQ(heard("[/b]x[//b]", {"/b", "b"}), "+/b 'x'-/b ")
      << "opening before the closing tag of a later name";
  EXPECT_EQ(heard("[/b]", {"b", "/b"}), "!");
  EXPECT_EQ(heard("[a][b]\u0301[/a]", {"a][b", "a"}), "+a '[b]\u0301'-a ")
      << "where the first is refused the next may fit";
}

TEST(BKUKSimpleXMLParser, HostileTextTakesBoundedTime) {
  const auto start = std::chrono::steady_clock::now();
  std::u16string deep;
  for (int i = 0; i < 100'000; ++i) deep += u"[b]";
  EXPECT_FALSE(BKUKSimpleXMLParser(nullptr).parse(NSString(deep), std::vector<NSString>{"b"}));
  for (int i = 0; i < 100'000; ++i) deep += u"[/b]";
  EXPECT_TRUE(BKUKSimpleXMLParser(nullptr).parse(NSString(deep), std::vector<NSString>{"b"}));
  const NSString brackets(std::u16string(10'000'000, u'['));
  EXPECT_TRUE(BKUKSimpleXMLParser(nullptr).parse(
      brackets, std::vector<NSString>{"b", NSString(std::string(1000, 'x'))}));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(RangeFinder, AnswersPlacesInThePlainText) {
  const auto ranges = [](const char* text) {
    return RangeFinder::ranges(text, std::vector<NSString>{"link", "b"});
  };
  EXPECT_EQ(*ranges("Read [link]terms[/link]."), (RangeFinder::Ranges{{"link", {5, 5}}}));
  EXPECT_EQ(*ranges("\U0001F600[link]a[b]b[/b][/link]"),
            (RangeFinder::Ranges{{"b", {3, 1}}, {"link", {2, 2}}}));
  EXPECT_EQ(*ranges("[b]a[/b] [b]bc[/b]"), (RangeFinder::Ranges{{"b", {2, 2}}})) << "the last of two";
  EXPECT_EQ(ranges("[b]a"), std::nullopt);
  EXPECT_TRUE(ranges("")->empty());
}

}  // namespace
}  // namespace bkuk
