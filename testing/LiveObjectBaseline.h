#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace bkuk {

/// How many objects of each class live when it is made, to be compared with later: whatever a test, or a
/// scene that comes and goes, has made should be gone after it. Objects count from the first baseline on,
/// without those that are made once to stay for good, such as shared constants.
///
///     const LiveObjectBaseline baseline;
///     ... show a window, use it, close it, let it go ...
///     EXPECT_EQ(baseline.growth(), "");
class LiveObjectBaseline {
 public:
  LiveObjectBaseline();

  /// The classes of which there are more now, as in "CALayer +2, NSView +2"; empty when there are none.
  [[nodiscard]] std::string growth() const;

 private:
  std::map<std::string, std::size_t> before_;
};

}  // namespace bkuk
