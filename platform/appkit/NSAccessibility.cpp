#include "platform/appkit/NSAccessibility.h"

#include <array>
#include <utility>

#include "platform/appkit/accessibility/AccessibilityRecord.h"
#include "platform/appkit/accessibility/AccessibilityTree.h"

namespace bkuk {

namespace {

using Record = AccessibilityRecord;

Record::Answer answer(bool value) { return value ? Record::Answer::yes : Record::Answer::no; }

// Of the few roles that a program uses, most are those of many elements.
const CountedText& countedRole(NSAccessibilityRole role) {
  static auto& recent = *new std::array<CountedText, 8>;
  static std::size_t next = 0;
  for (const auto& each : recent) {
    if (each && each.view() == role) return each;
  }
  return recent[next++ % recent.size()] = CountedText(role);
}

}  // namespace

NSAccessibility::NSAccessibility() = default;

NSAccessibility::~NSAccessibility() {
  if (record_ && record_->id != 0) AccessibilityTree::shared().forget(record_->id);
}

const Record& NSAccessibility::accessibilityRecord() const {
  static const Record& nothing = *new Record;
  return record_ ? *record_ : nothing;
}

Record& NSAccessibility::changedRecord() {
  if (!record_) record_ = std::make_unique<Record>();
  return *record_;
}

AccessibilityPlace& NSAccessibility::changedPlace() {
  auto& place = changedRecord().place;
  if (!place) place = std::make_unique<AccessibilityPlace>();
  return *place;
}

void NSAccessibility::postIfKnown(NSAccessibilityNotificationName name) {
  if (accessibilityRecord().id != 0) NSAccessibilityPostNotification(*this, name);
}

// What it is

NSAccessibilityRole NSAccessibility::accessibilityRole() const {
  const auto& role = accessibilityRecord().role;
  return role ? role.view() : NSAccessibilityUnknownRole;
}

void NSAccessibility::setAccessibilityRole(NSAccessibilityRole role) {
  changedRecord().role = countedRole(role);
}

std::string NSAccessibility::accessibilityLabel() const { return accessibilityRecord().label; }

void NSAccessibility::setAccessibilityLabel(std::string label) {
  if (label == accessibilityRecord().label) return;
  changedRecord().label = std::move(label);
  postIfKnown(NSAccessibilityTitleChangedNotification);
}

NSAccessibilityValue NSAccessibility::accessibilityValue() const {
  const auto& place = accessibilityRecord().place;
  return place ? place->value : NSAccessibilityValue();
}

void NSAccessibility::setAccessibilityValue(NSAccessibilityValue value) {
  const auto& place = accessibilityRecord().place;
  if (value == (place ? place->value : NSAccessibilityValue())) return;
  changedPlace().value = std::move(value);
  postIfKnown(NSAccessibilityValueChangedNotification);
}

std::string NSAccessibility::accessibilityHelp() const {
  const auto& place = accessibilityRecord().place;
  return place ? place->help : std::string();
}

void NSAccessibility::setAccessibilityHelp(std::string help) { changedPlace().help = std::move(help); }

std::string NSAccessibility::accessibilityIdentifier() const {
  const auto& place = accessibilityRecord().place;
  return place ? place->identifier : std::string();
}

void NSAccessibility::setAccessibilityIdentifier(std::string identifier) {
  changedPlace().identifier = std::move(identifier);
}

// How it stands

bool NSAccessibility::isAccessibilityElement() const {
  return Record::resolved(accessibilityRecord().isElement, false);
}

void NSAccessibility::setAccessibilityElement(bool isElement) {
  changedRecord().isElement = answer(isElement);
  AccessibilityTree::childrenOfParentDidChange(*this);
}

bool NSAccessibility::isAccessibilityEnabled() const {
  return Record::resolved(accessibilityRecord().isEnabled, true);
}

void NSAccessibility::setAccessibilityEnabled(bool isEnabled) {
  if (isEnabled == isAccessibilityEnabled()) return;
  changedRecord().isEnabled = answer(isEnabled);
  postIfKnown(NSAccessibilityStateChangedNotification);
}

bool NSAccessibility::isAccessibilitySelected() const {
  return Record::resolved(accessibilityRecord().isSelected, false);
}

void NSAccessibility::setAccessibilitySelected(bool isSelected) {
  if (isSelected == isAccessibilitySelected()) return;
  changedRecord().isSelected = answer(isSelected);
  postIfKnown(NSAccessibilityStateChangedNotification);
}

bool NSAccessibility::isAccessibilityHidden() const {
  return Record::resolved(accessibilityRecord().isHidden, false);
}

void NSAccessibility::setAccessibilityHidden(bool isHidden) {
  changedRecord().isHidden = answer(isHidden);
  AccessibilityTree::childrenOfParentDidChange(*this);
}

Ref<NSAccessibility> NSAccessibility::accessibilityFocusedUIElement() const {
  return const_cast<NSAccessibility*>(this);
}

// Where it is

std::vector<Ref<NSAccessibility>> NSAccessibility::accessibilityChildren() const {
  const auto& place = accessibilityRecord().place;
  return place && place->children ? *place->children : std::vector<Ref<NSAccessibility>>();
}

void NSAccessibility::setAccessibilityChildren(std::vector<Ref<NSAccessibility>> children) {
  for (const auto& child : children) {
    if (!child->accessibilityParent()) child->setAccessibilityParent(this);
  }
  changedPlace().children = std::move(children);
  AccessibilityTree::childrenDidChange(*this);
}

Ref<NSAccessibility> NSAccessibility::accessibilityParent() const {
  const auto& place = accessibilityRecord().place;
  return place ? place->parent.lock() : nullptr;
}

void NSAccessibility::setAccessibilityParent(NSAccessibility* parent) { changedPlace().parent = parent; }

NSRect NSAccessibility::accessibilityFrame() const {
  const auto& place = accessibilityRecord().place;
  return place && place->frame ? *place->frame : NSRect();
}

void NSAccessibility::setAccessibilityFrame(NSRect frame) { changedPlace().frame = frame; }

}  // namespace bkuk
