#include "testing/VirtualScreenReader.h"

#include <algorithm>
#include <cassert>

namespace bkuk {

VirtualScreenReader::VirtualScreenReader(VirtualHost& host) : host_(host) {
  assert(!host_.accessibility().reader());
  host_.accessibility().setReader(this);
}

VirtualScreenReader::~VirtualScreenReader() { host_.accessibility().setReader(nullptr); }

host::AccessibilityTree& VirtualScreenReader::tree() const {
  auto* tree = host_.accessibility().tree();
  assert(tree);
  return *tree;
}

// --- reading

VirtualScreenReader::Id VirtualScreenReader::window(std::size_t index) const {
  return host_.windows().at(index)->accessibilityElement();
}

std::vector<VirtualScreenReader::Id> VirtualScreenReader::children(Id id) const {
  return tree().children(id);
}

VirtualScreenReader::Id VirtualScreenReader::parent(Id id) const { return tree().parent(id); }

bool VirtualScreenReader::exists(Id id) const { return tree().element(id).has_value(); }

host::AccessibilityElement VirtualScreenReader::element(Id id) const {
  return tree().element(id).value_or(host::AccessibilityElement());
}

template <typename Fits>
VirtualScreenReader::Id VirtualScreenReader::findIf(Fits&& fits) const {
  std::vector<Id> waiting;
  for (auto place = host_.windows().size(); place-- > 0;) waiting.push_back(window(place));
  while (!waiting.empty()) {
    const Id id = waiting.back();
    waiting.pop_back();
    if (fits(element(id))) return id;
    const auto inside = children(id);
    waiting.insert(waiting.end(), inside.rbegin(), inside.rend());
  }
  return 0;
}

VirtualScreenReader::Id VirtualScreenReader::find(Role role, std::string_view name) const {
  return findIf([&](const auto& element) { return element.role == role && element.name == name; });
}

VirtualScreenReader::Id VirtualScreenReader::findIdentifier(std::string_view identifier) const {
  return findIf([&](const auto& element) { return element.identifier == identifier; });
}

VirtualScreenReader::Id VirtualScreenReader::focused(std::size_t index) const {
  return tree().focused(window(index));
}

// --- acting

bool VirtualScreenReader::perform(Id id, Action action) {
  const bool isDone = tree().perform(id, action);
  host_.settle();
  return isDone;
}

bool VirtualScreenReader::setValue(Id id, double value) {
  const bool isDone = tree().setValue(id, value);
  host_.settle();
  return isDone;
}

// --- what it was told

void VirtualScreenReader::note(const host::AccessibilityChange& change) {
  if (changes_.size() == mostChanges) changes_.erase(changes_.begin(), changes_.begin() + mostChanges / 2);
  changes_.push_back(change);
}

std::size_t VirtualScreenReader::count(Kind kind, Id id) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      changes_, [&](const auto& change) { return change.kind == kind && change.id == id; }));
}

}  // namespace bkuk
