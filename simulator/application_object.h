// Photoshop's Application object: type id conversions, executeActionGet and executeAction, and the object
// model's entry points.
#pragma once

#include <memory>

#include "simulator/session.h"

namespace ostrel::sim {

class ApplicationObject : public SimObjectOf<ApplicationObject> {
 public:
  explicit ApplicationObject(std::shared_ptr<Session> session);
  static std::span<const Member<ApplicationObject>> Members();
};

}  // namespace ostrel::sim
