#include "bench/peer/common/StyledText.h"

#include <random>
#include <vector>

#include "bench/peer/common/Phrases.h"

namespace peer {

namespace {

class Writer {
 public:
  explicit Writer(const MarkupForms& forms) : forms_(forms) {}

  std::string write(int pieces) {
    text_ = forms_.begin;
    for (int piece = 1; piece < pieces; ++piece) {
      writeLetters();
      if (piece % 40 == 0) {
        endParagraph();
      } else {
        openOrClose();
      }
    }
    writeLetters();
    closeAll();
    return text_ + forms_.end;
  }

 private:
  unsigned random(unsigned below) { return static_cast<unsigned>(random_()) % below; }

  void writeLetters() {
    std::string letters;
    const auto count = 9 + random(7);
    while (letters.size() < count) letters.append(word(random(16))).append(1, ' ');
    text_ += letters.substr(0, count);
  }
  void openOrClose() {
    const bool opens = open_.empty() || (open_.size() < 4 && random(2) == 0);
    if (!opens) return close();
    const auto kind = random(MarkupForms::plainTags + 1);
    const bool isColor = kind == MarkupForms::plainTags;
    open_.push_back(isColor ? kind + random(MarkupForms::colors.size()) : kind);
    text_ += forms_.open[open_.back()];
  }
  void close() {
    text_ += forms_.close[open_.back()];
    open_.pop_back();
  }
  void closeAll() {
    while (!open_.empty()) close();
  }
  void endParagraph() {
    closeAll();
    text_ += forms_.betweenParagraphs;
  }

  const MarkupForms& forms_;
  std::string text_;
  std::vector<std::size_t> open_;
  std::minstd_rand random_;  // the same sequence everywhere
};

}  // namespace

std::string styledText(const MarkupForms& forms, int pieces) { return Writer(forms).write(pieces); }

}  // namespace peer
