// Pictures by name; what draws knows what they look like.
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace wifi_profile::toolkit {

// How an image is coloured.
enum class Rendering {
  original,
  flatInTint,  // its shape alone, in the system's interaction tint colour
};

class Image;
using ImageRef = std::shared_ptr<const Image>;  // null: none

// Immutable.
class Image final {
 public:
  Image(std::string name, Rendering rendering) : name_(std::move(name)), rendering_(rendering) {}
  const std::string& name() const { return name_; }
  Rendering rendering() const { return rendering_; }

  // An image of the extension's own resources.
  static ImageRef named(std::string name) {
    return std::make_shared<const Image>(std::move(name), Rendering::original);
  }
  // The toolkit's own blue check mark.
  static ImageRef blueCheckMark() { return named("blueCheckMark"); }
  ImageRef redrawnFlatInTint() const {
    return std::make_shared<const Image>(name_, Rendering::flatInTint);
  }

 private:
  std::string name_;
  Rendering rendering_;
};

}  // namespace wifi_profile::toolkit
