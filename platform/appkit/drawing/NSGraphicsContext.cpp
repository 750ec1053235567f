#include "platform/appkit/drawing/NSGraphicsContext.h"

#include <utility>
#include <vector>

namespace bkuk {

namespace {

thread_local Ref<NSGraphicsContext> currentContext;
thread_local std::vector<Ref<NSGraphicsContext>> savedContexts;

}  // namespace

CGBlendMode blendMode(NSCompositingOperation operation) {
  switch (operation) {
    case NSCompositingOperation::clear:
      return CGBlendMode::clear;
    case NSCompositingOperation::copy:
      return CGBlendMode::copy;
    case NSCompositingOperation::sourceOver:
      return CGBlendMode::normal;
    case NSCompositingOperation::sourceIn:
      return CGBlendMode::sourceIn;
    case NSCompositingOperation::sourceOut:
      return CGBlendMode::sourceOut;
    case NSCompositingOperation::sourceAtop:
      return CGBlendMode::sourceAtop;
    case NSCompositingOperation::destinationOver:
      return CGBlendMode::destinationOver;
    case NSCompositingOperation::destinationIn:
      return CGBlendMode::destinationIn;
    case NSCompositingOperation::destinationOut:
      return CGBlendMode::destinationOut;
    case NSCompositingOperation::destinationAtop:
      return CGBlendMode::destinationAtop;
    case NSCompositingOperation::XOR:
      return CGBlendMode::XOR;
  }
  return CGBlendMode::normal;
}

Ref<NSGraphicsContext> NSGraphicsContext::current() { return currentContext; }

void NSGraphicsContext::setCurrent(Ref<NSGraphicsContext> context) { currentContext = std::move(context); }

void NSGraphicsContext::saveGraphicsState() {
  savedContexts.push_back(currentContext);
  if (currentContext) currentContext->cgContext()->saveGState();
}

void NSGraphicsContext::restoreGraphicsState() {
  if (savedContexts.empty()) return;
  currentContext = std::move(savedContexts.back());
  savedContexts.pop_back();
  if (currentContext) currentContext->cgContext()->restoreGState();
}

void NSGraphicsContext::setCompositingOperation(NSCompositingOperation operation) {
  operation_ = operation;
  context_->setBlendMode(blendMode(operation));
}

void NSGraphicsContext::setShouldAntialias(bool antialias) {
  antialias_ = antialias;
  context_->setShouldAntialias(antialias);
}

NSGraphicsContextScope::NSGraphicsContextScope(Ref<NSGraphicsContext> context)
    : previous_(NSGraphicsContext::current()) {
  NSGraphicsContext::setCurrent(std::move(context));
}

NSGraphicsContextScope::~NSGraphicsContextScope() { NSGraphicsContext::setCurrent(std::move(previous_)); }

void NSRectFill(const CGRect& rect) { NSRectFillUsingOperation(rect, NSCompositingOperation::copy); }

void NSRectFillUsingOperation(const CGRect& rect, NSCompositingOperation operation) {
  const auto context = NSGraphicsContext::current();
  if (!context) return;
  const auto& canvas = context->cgContext();
  canvas->saveGState();
  canvas->setBlendMode(blendMode(operation));
  canvas->fill(rect);
  canvas->restoreGState();
}

}  // namespace bkuk
