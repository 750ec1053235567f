#pragma once

#include <utility>

#include "platform/appkit/NSView.h"

namespace bkuk {

/// Where views of a random run report that they are told, or asked for, something: the run may do anything
/// then, also destroy the view.
class LivelyViewListener {
 public:
  virtual ~LivelyViewListener() = default;
  virtual void isCalled(NSView& view) = 0;

  inline static LivelyViewListener* current = nullptr;
};

/// A view that reports each call which an application may override.
template <typename Base>
class LivelyView : public Base {
 public:
  using Base::Base;

  void viewWillMoveToWindow(NSWindow* window) override {
    Base::viewWillMoveToWindow(window);
    report();
  }
  void viewDidMoveToWindow() override {
    call([this] { Base::viewDidMoveToWindow(); });
  }
  void viewDidMoveToSuperview() override {
    call([this] { Base::viewDidMoveToSuperview(); });
  }
  void viewDidChangeEffectiveAppearance() override {
    call([this] { Base::viewDidChangeEffectiveAppearance(); });
  }
  void viewDidChangeBackingProperties() override {
    call([this] { Base::viewDidChangeBackingProperties(); });
  }
  void setFrame(NSRect frame) override {
    call([&] { Base::setFrame(frame); });
  }
  void setHidden(bool hidden) override {
    call([&] { Base::setHidden(hidden); });
  }
  void layout() override {
    call([this] { Base::layout(); });
  }
  void updateTrackingAreas() override {
    call([this] { Base::updateTrackingAreas(); });
  }
  void mouseDown(NSEvent& event) override {
    call([&] { Base::mouseDown(event); });
  }
  void mouseUp(NSEvent& event) override {
    call([&] { Base::mouseUp(event); });
  }
  void mouseDragged(NSEvent& event) override {
    call([&] { Base::mouseDragged(event); });
  }
  void mouseEntered(NSEvent& event) override {
    call([&] { Base::mouseEntered(event); });
  }
  void mouseExited(NSEvent& event) override {
    call([&] { Base::mouseExited(event); });
  }
  void scrollWheel(NSEvent& event) override {
    call([&] { Base::scrollWheel(event); });
  }
  void keyDown(NSEvent& event) override {
    call([&] { Base::keyDown(event); });
  }
  void keyUp(NSEvent& event) override {
    call([&] { Base::keyUp(event); });
  }
  bool becomeFirstResponder() override {
    return answer([this] { return Base::becomeFirstResponder(); });
  }
  bool resignFirstResponder() override {
    return answer([this] { return Base::resignFirstResponder(); });
  }
  NSSize intrinsicContentSize() const override {
    const auto size = Base::intrinsicContentSize();
    const_cast<LivelyView&>(*this).report();
    return size;
  }

 private:
  void report() {
    const Ref<LivelyView> self(this);
    if (auto* listener = LivelyViewListener::current) listener->isCalled(*this);
  }
  template <typename Call>
  void call(const Call& base) {
    const Ref<LivelyView> self(this);
    base();
    report();
  }
  template <typename Call>
  bool answer(const Call& base) {
    const Ref<LivelyView> self(this);
    const bool isYes = base();
    report();
    return isYes;
  }
};

}  // namespace bkuk
