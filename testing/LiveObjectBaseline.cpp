#include "testing/LiveObjectBaseline.h"

#include "platform/foundation/LiveObjects.h"

namespace bkuk {

LiveObjectBaseline::LiveObjectBaseline() {
  LiveObjects::startCounting();
  before_ = LiveObjects::byClass();
}

std::string LiveObjectBaseline::growth() const {
  std::string result;
  for (const auto& [name, count] : LiveObjects::byClass()) {
    const auto found = before_.find(name);
    const std::size_t before = found == before_.end() ? 0 : found->second;
    if (count <= before) continue;
    if (!result.empty()) result += ", ";
    result += name + " +" + std::to_string(count - before);
  }
  return result;
}

}  // namespace bkuk
