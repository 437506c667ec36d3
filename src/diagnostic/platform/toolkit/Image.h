// Images by name. The drawing code knows what they look like.
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace wifi_profile::toolkit {

// How an image is coloured.
enum class Rendering {
  original,
  flatInTint,  // only its shape, in the interaction tint colour of the system
};

class Image;
using ImageRef = std::shared_ptr<const Image>;  // null: no image

// Immutable.
class Image final {
 public:
  Image(std::string name, Rendering rendering) : name_(std::move(name)), rendering_(rendering) {}
  const std::string& name() const { return name_; }
  Rendering rendering() const { return rendering_; }

  // Returns an image from the resources of the extension.
  static ImageRef named(std::string name) {
    return std::make_shared<const Image>(std::move(name), Rendering::original);
  }
  // Returns the blue check mark of the toolkit.
  static ImageRef blueCheckMark() { return named("blueCheckMark"); }
  ImageRef redrawnFlatInTint() const {
    return std::make_shared<const Image>(name_, Rendering::flatInTint);
  }

 private:
  std::string name_;
  Rendering rendering_;
};

}  // namespace wifi_profile::toolkit
