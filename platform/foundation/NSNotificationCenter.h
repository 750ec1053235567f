#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>

#include "platform/foundation/NSNotification.h"
#include "platform/foundation/NSNotificationName.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class DispatchQueue;

/// Passes notifications from those who post to those who observe, synchronously and in order of registration.
///
/// Observers that are added during a post are not called for it; those removed before their turn are not
/// called either. Belongs to the main thread.
class NSNotificationCenter final : public NSObject {
 public:
  using Block = std::function<void(NSNotification& notification)>;

  NSNotificationCenter();
  ~NSNotificationCenter() override;
  /// The process's centre.
  [[nodiscard]] static NSNotificationCenter& default_();

  /// Performs `selector` with the notification on the observer, which is held weakly and drops out when it
  /// dies. An absent name or object means any; objects are compared by identity and not held.
  void addObserver(NSObject* observer, Selector selector, NSNotificationName name = {},
                   NSObject* object = nullptr);
  /// Calls `block`, on `queue` when one is given, else inside the post. The centre holds the token that is
  /// returned until `removeObserver` is called with it.
  Ref<NSObject> addObserver(NSNotificationName name, NSObject* object, DispatchQueue* queue, Block block);

  /// Takes back all registrations of the observer, or that of a token. An unknown one is ignored.
  void removeObserver(NSObject* observer);

  /// Calls the observers of that name and object before it returns. Without an object only those that
  /// registered for any object hear of it.
  void post(NSNotificationName name, NSObject* object = nullptr, NSObject* userInfo = nullptr);
  void post(NSNotification& notification);

 private:
  class Registration;
  class Bucket;
  class Walk;

  /// None when nobody has registered for that name.
  [[nodiscard]] Bucket* find(const NSNotificationName& name);
  void add(Ref<Registration> registration);
  void remove(const Registration& token);
  void removeSpent();
  void forgetEmptyBuckets();

  static constexpr std::size_t smallestSweep = 32;
  std::unordered_map<NSNotificationName, Bucket> buckets_;  // by name; the absent name holds those for any
  /// Of each observer that performs a selector, the registration that it made last; those before hang on it.
  std::unordered_map<const NSObject*, Registration*> lastOf_;
  std::uint64_t lastOrder_ = 0;
  int walks_ = 0;
  bool hasEmptyBuckets_ = false;
  std::size_t bucketsToSweep_ = smallestSweep;
};

}  // namespace bkuk
