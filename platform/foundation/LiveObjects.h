#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace bkuk {

class NSObject;

/// Knows the living objects, so that tests can count them. Off at first; an object then pays for one look at
/// a flag.
class LiveObjects {
 public:
  /// Knows all objects that are made from now on.
  static void startCounting();

  /// How many there are of each class, by its plain name. To be asked while no other thread makes objects.
  [[nodiscard]] static std::map<std::string, std::size_t> byClass();

  /// Objects made by this thread during its life are not counted: they are made to stay for good.
  class Pause {
   public:
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
  };

 private:
  friend class NSObject;
  static void add(const NSObject& object);
  static void remove(const NSObject& object);
};

}  // namespace bkuk
