#include "platform/appkit/NSEvent.h"

#include <array>
#include <new>

#include "platform/appkit/NSWindow.h"
#include "platform/foundation/NSThread.h"

namespace bkuk {

namespace {

// As many as are alive at once when a handler's event leads to others.
struct SparePlaces {
  std::array<void*, 8> places{};
  std::size_t count = 0;
};

SparePlaces& sparePlaces() {
  static SparePlaces spare;
  return spare;
}

}  // namespace

NSEvent::NSEvent(Fields fields) : fields_(std::move(fields)) {}

NSEvent::~NSEvent() = default;

void* NSEvent::operator new(std::size_t size) {
  auto& spare = sparePlaces();
  if (size != sizeof(NSEvent) || spare.count == 0 || !NSThread::isMainThread()) return ::operator new(size);
  return spare.places[--spare.count];
}

void NSEvent::operator delete(void* place, std::size_t size) noexcept {
  auto& spare = sparePlaces();
  if (size != sizeof(NSEvent) || spare.count == spare.places.size()) return ::operator delete(place);
  spare.places[spare.count++] = place;
}

}  // namespace bkuk
