#include <utility>

#include "gallery/chrome/Direction.h"
#include "gallery/pages/markup/MarkupCards.h"

namespace bkuk::gallery {

namespace {

constexpr CGFloat gap = 12;
constexpr CGFloat buttonGap = 8;

constexpr std::pair<const char*, const char*> samples[] = {
    {"Styled",
     "A letter can be [b]bold[/b], [i]light[/i] or [big]big[/big], a stretch [mark]marked[/mark], and a word "
     "a [link]link[/link]."},
    {"Nested", "[big]Only the [b]innermost tag[/b] counts:[/big] nothing of those around it shows."},
    {"Unclosed", "This [b]is never closed, so that everything shows as it was typed."},
    {"Crossed", "Tags [b]have to [i]nest[/b] and these[/i] do not."},
    {"Unknown tag", "An [u]unknown tag[/u] is text like any other, as are [ and ]."},
};

}  // namespace

MarkupSourceCard::MarkupSourceCard(MarkupEditor::Handler changed)
    : Card("Markup", "Type here, or take a sample"), changed_(std::move(changed)) {}

void MarkupSourceCard::didInit() {
  Card::didInit();
  editor_ = make<MarkupEditor>([this](const std::string& markup) {
    heightDidChange();
    changed_(markup);
  });
  addSubview(editor_);
  for (const auto& [name, markup] : samples) addSample(name, markup);
  editor_->setText(samples[0].second);
}

void MarkupSourceCard::addSample(const char* name, const char* markup) {
  const auto button = make<Button>(name);
  button->setActionBlock([editor = Weak<MarkupEditor>(editor_), markup](BKUKStatefulView&) {
    if (const auto shown = editor.lock()) shown->setText(markup);
  });
  samples_.push_back(button);
  addSubview(button);
}

std::vector<NSView*> MarkupSourceCard::keyViews() const {
  std::vector<NSView*> views{editor_.get()};
  for (const auto& sample : samples_) views.push_back(sample.get());
  return views;
}

std::vector<NSRect> MarkupSourceCard::buttonFrames(CGFloat width) const {
  std::vector<NSRect> frames;
  NSPoint place;
  for (const auto& sample : samples_) {
    const NSSize size = sample->fittingSize();
    if (place.x > 0 && place.x + size.width > width) place = {0, place.y + size.height + buttonGap};
    frames.push_back({place, size});
    place.x += size.width + buttonGap;
  }
  return frames;
}

CGFloat MarkupSourceCard::contentHeight(CGFloat width) const {
  return editor_->heightForWidth(width) + gap + buttonFrames(width).back().maxY();
}

void MarkupSourceCard::layoutContent(NSRect content) {
  const CGFloat editorHeight = editor_->heightForWidth(content.width());
  editor_->setFrame({content.origin, {content.width(), editorHeight}});
  const auto frames = buttonFrames(content.width());
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const NSRect frame = frames[i].offsetBy(content.minX(), content.minY() + editorHeight + gap);
    samples_[i]->setFrame(fromLeading(*this, frame));
  }
}

}  // namespace bkuk::gallery
