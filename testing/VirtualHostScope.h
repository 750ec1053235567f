#pragma once

#include <memory>

#include "testing/VirtualHost.h"

namespace bkuk {

/// Makes a virtual host the process's host for as long as the scope lives, then puts back the one before.
/// No window may outlive it.
class VirtualHostScope {
 public:
  VirtualHostScope();
  ~VirtualHostScope();
  VirtualHostScope(const VirtualHostScope&) = delete;
  VirtualHostScope& operator=(const VirtualHostScope&) = delete;

  [[nodiscard]] VirtualHost& operator*() const { return host_; }
  [[nodiscard]] VirtualHost* operator->() const { return &host_; }

 private:
  std::unique_ptr<host::Host> previous_;
  VirtualHost& host_;
};

}  // namespace bkuk
