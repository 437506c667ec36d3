#include "diagnostic/platform/Object.h"

namespace wifi_profile {
namespace {

class NullPlaceholder final : public Object {};

}  // namespace

ObjectRef nullPlaceholder() {
  static const ObjectRef placeholder = std::make_shared<const NullPlaceholder>();
  return placeholder;
}

bool isNullPlaceholder(const ObjectRef& object) { return object == nullPlaceholder(); }

}  // namespace wifi_profile
