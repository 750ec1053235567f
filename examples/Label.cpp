// A label with a link, in the desktop's own face: click it, or press Tab and the space key.

#include <BrenvikUIKit/BrenvikUIKit.h>
#include <cstdio>

using namespace bkuk;

int main() {
  const std::string face = NSFont::systemFont(15)->fontName();
  BKUKFontLoader::shared().registerFont({{BKUKFontType::regular, face}, {BKUKFontType::bold, face}});

  const BKUKFontSettings plain(NSColor::black(), 15, BKUKFontType::regular, NSTextAlignment::natural);
  const auto strong = plain.with({.size = 22, .type = BKUKFontType::bold});
  auto label = make<BKUKInteractiveLabel>(NSRect(20, 20, 280, 120));
  label->setVerticalAlignment(BKUKLabelVerticalAlignment::top);
  label->setMarkup("[title]Terms[/title]\nRead the [terms]terms of use[/terms] before you go on.",
                   {{"title", strong}}, plain,
                   {{"terms", [](const std::string& name) { std::puts(name.c_str()); }}});

  auto window = make<BKUKWindow>(NSRect(0, 0, 320, 160));
  window->setBackgroundColor(NSColor::white());
  window->contentView()->addSubview(label);
  window->center();
  window->makeKeyAndOrderFront();
  NSApplication::shared().run();
}
