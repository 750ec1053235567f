#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "testing/VirtualHostScope.h"

namespace bkuk {

/// Each case has a desktop of its own, whose clock starts at 1000.
class LoopTest : public testing::Test {
 protected:
  using Log = std::vector<std::string>;

  std::function<void()> note(std::string what) {
    return [this, what] { log.push_back(what); };
  }

  VirtualHostScope host;
  Log log;  // what happened, in order
};

}  // namespace bkuk
