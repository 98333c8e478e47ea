#include "tests/support/fake_controls.h"

#include <sstream>

namespace tessarine::testing {

void FakeLayer::setBorderColor(FrameColor color) {
  const char* const names[] = {"accent", "clear", "light grey"};
  journal_.push_back(name_ + " border colour " + names[static_cast<int>(color)]);
}

void FakeLayer::setBorderWidth(double width) {
  std::ostringstream line;
  line << name_ << " border width " << width;
  journal_.push_back(line.str());
}

void FakeDropView::setWantsLayer(bool wanted) {
  journal_.push_back(wanted ? "view wants layer" : "view wants no layer");
}

void FakeDropView::registerForDraggedTypes(std::span<const std::string_view> types) {
  std::string line = "register";
  for (const std::string_view type : types) line.append(" ").append(type);
  journal_.push_back(line);
}

void FakeImageView::setWantsLayer(bool wanted) {
  journal_.push_back(wanted ? "well wants layer" : "well wants no layer");
}

void FakeImageView::setImage(const std::optional<Picture>& picture) {
  journal_.push_back(picture ? "well shows " + std::to_string(picture->points.width) + "x" +
                                   std::to_string(picture->points.height)
                             : "well shows nothing");
}

void FakeButton::setEnabled(bool enabled) {
  journal_.push_back((enabled ? "enable " : "disable ") + name_);
}

std::string FakeTextField::stringValue() {
  journal_.push_back("read " + name_);
  return text;
}

void FakeTextField::becomeFirstResponder() {
  journal_.push_back("focus " + name_);
}

bool FakeDrag::canReadObjects(std::span<const ReadableClass> asked, const ReadingOptions& options) {
  classes.assign(asked.begin(), asked.end());
  types = options.urlContentsConformToTypes;
  return readable;
}

std::optional<std::vector<DragItem>> FakeDrag::readObjects(std::span<const ReadableClass> asked,
                                                           const ReadingOptions& options) {
  canReadObjects(asked, options);
  return items;
}

}  // namespace tessarine::testing
