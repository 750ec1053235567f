// One window on the bare host, for the tests of the real desktop: paints itself in a colour that tells the
// appearance and says on standard output what happens to it, one line each.
//
//   host_window [--adopt] [--frame X,Y,WIDTH,HEIGHT] [--translucent] [--hide-on-press] [--ask-pointer]
//               [--identity NAME ID]
//
// --ask-pointer asks 200 times where the pointer is, as so many controls would, with each turn of the wheel.
// --identity tells the desktop a name and an id. --adopt makes an application object of its own first and
// lets its loop run. The process ends when the window is asked to close, or when standard input does.

#include <QtGui/QGuiApplication>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include "host/Desktop.h"
#include "host/Drawing.h"
#include "host/Host.h"
#include "host/Loop.h"
#include "host/Settings.h"

namespace bkuk::host {
namespace {

struct Options {
  bool adopts = false;
  bool hidesOnPress = false;
  bool asksPointer = false;
  ApplicationIdentity identity;
  WindowOptions window{.frame = {50, 40, 300, 200}};
};

void say(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vprintf(format, arguments);
  va_end(arguments);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

const char* name(ColorScheme scheme) {
  switch (scheme) {
    case ColorScheme::unknown:
      return "unknown";
    case ColorScheme::light:
      return "light";
    case ColorScheme::dark:
      return "dark";
  }
  return "";
}

Rgba colorOf(ColorScheme scheme) {
  switch (scheme) {
    case ColorScheme::unknown:
      return {0, 0, 1};
    case ColorScheme::light:
      return {1, 1, 1};
    case ColorScheme::dark:
      return {0.2, 0.2, 0.2};
  }
  return {};
}

class Program final : public WindowClient, public LoopClient {
 public:
  explicit Program(const Options& options) : options_(options), host_(current()) {
    host_.loop().setClient(this);
    host_.desktop().setIdentity(options.identity);
    tellAppearance();
    host_.settings().setAppearanceHandler([this] { tellAppearance(); });
    window_ = host_.desktop().makeWindow(options.window, *this);
    window_->setTitle("host window");
    say("display %d placing %d", host_.desktop().hasDisplay(), host_.desktop().canPlaceWindows());
    window_->show();
    window_->activate();
  }

  void runUntilDone() {
    while (!isDone_) {
      if (!host_.loop().dispatchEvent()) host_.loop().wait(std::nullopt);
      paintIfNeeded();
    }
  }

  void turn() override {
    host_.loop().dispatchEvent();
    paintIfNeeded();
    host_.loop().scheduleTurn(std::nullopt);
    if (isDone_) QCoreApplication::quit();
  }

  void handleEvent(const WindowEvent& event) override {
    std::visit([this](const auto& known) { handle(known); }, event);
  }

  void finish() {
    isDone_ = true;
    host_.loop().wake();
  }

 private:
  void handle(const PointerEvent& event) {
    static constexpr const char* kinds[] = {"move", "press", "release", "cancel", "enter", "leave"};
    say("%s %g,%g button %d clicks %d", kinds[static_cast<int>(event.kind)], event.position.x,
        event.position.y, static_cast<int>(event.button), event.clickCount);
    if (event.kind == PointerEvent::Kind::press && options_.hidesOnPress) window_->hide();
  }

  void handle(const WheelEvent& event) {
    Point pointer;
    for (int i = 0; i < 200 && options_.asksPointer; ++i) pointer = window_->pointerPosition();
    if (options_.asksPointer) say("pointer %g,%g", pointer.x, pointer.y);
    say("wheel %g %g", event.deltaX, event.deltaY);
  }

  void handle(const KeyEvent& event) {
    static constexpr const char* kinds[] = {"key", "keyup", "modifiers"};
    say("%s %d '%s' '%s' shift %d control %d", kinds[static_cast<int>(event.kind)], event.keyCode,
        event.characters.c_str(), event.unmodifiedCharacters.c_str(), event.modifiers.shift,
        event.modifiers.control);
  }

  void handle(const FocusEvent& event) { say("focus %d", event.focused); }

  void handle(const ExposeEvent& event) {
    say("expose %d", event.exposed);
    needsPaint_ = event.exposed;
  }

  void handle(const FrameEvent& event) {
    say("frame %g,%g,%g,%g", event.frame.x, event.frame.y, event.frame.width, event.frame.height);
    needsPaint_ = true;
  }

  void handle(const ScaleEvent& event) {
    say("scale %g", event.scale);
    needsPaint_ = true;
  }

  void handle(const CloseEvent&) {
    say("close");
    isDone_ = true;
  }

  void handle(const DismissEvent&) { say("dismiss"); }

  void tellAppearance() {
    const auto appearance = host_.settings().appearance();
    say("appearance %s contrast %d motion %d accent %s", name(appearance.scheme), appearance.highContrast,
        appearance.reducedMotion, appearance.accent ? "yes" : "no");
    needsPaint_ = true;
  }

  void paintIfNeeded() {
    if (!std::exchange(needsPaint_, false)) return;
    const auto size = window_->pixelSize();
    if (image_.size() != size) image_ = Bitmap(size);
    const PixelRect all{0, 0, size.width, size.height};
    const double width = size.width;
    const double height = size.height;
    using Kind = PathElement::Kind;
    const PathElement square[] = {{Kind::move, {{0, 0}}},
                                  {Kind::line, {{width, 0}}},
                                  {Kind::line, {{width, height}}},
                                  {Kind::line, {{0, height}}}};
    host_.drawing().makeCanvas(image_)->fill(square, FillRule::winding,
                                             colorOf(host_.settings().appearance().scheme));
    window_->present(image_, {&all, 1});
    say("presented %d,%d", size.width, size.height);
  }

  const Options options_;
  Host& host_;
  std::unique_ptr<Window> window_;
  Bitmap image_;
  bool needsPaint_ = false;
  bool isDone_ = false;
};

double currentTime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Options parse(int count, char** words) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    auto& frame = options.window.frame;
    if (word == "--adopt") options.adopts = true;
    if (word == "--translucent") options.window.translucent = true;
    if (word == "--hide-on-press") options.hidesOnPress = true;
    if (word == "--ask-pointer") options.asksPointer = true;
    if (word == "--identity" && i + 2 < count) {
      options.identity.name = words[++i];
      options.identity.desktopId = words[++i];
    }
    if (word == "--frame" && i + 1 < count) {
      std::sscanf(words[++i], "%lf,%lf,%lf,%lf", &frame.x, &frame.y, &frame.width, &frame.height);
    }
  }
  return options;
}

// Keeps the window until the process ends, as an application's static objects do: the adopted application
// object goes first.
int run(int count, char** words) {
  const auto options = parse(count, words);
  std::optional<QGuiApplication> application;
  if (options.adopts) application.emplace(count, words);
  const double start = currentTime();
  static auto& program = *new Program(options);
  say("opened after %.0f ms", 1000 * (currentTime() - start));
  std::thread([] {
    while (std::fgetc(stdin) != EOF) continue;
    program.finish();
  }).detach();
  if (options.adopts) {
    QGuiApplication::exec();
  } else {
    program.runUntilDone();
  }
  say("done");
  return 0;
}

}  // namespace
}  // namespace bkuk::host

int main(int count, char** words) { return bkuk::host::run(count, words); }
