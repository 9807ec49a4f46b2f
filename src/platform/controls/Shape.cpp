#include "platform/controls/Shape.h"

namespace pixorra {

Shape::Shape(Container& container, const std::string& name)
    : Control(&container, Kind::Shape, std::make_shared<Identity>(Identity{name, {}}), 0) {}

void Shape::SetBorder(Colour colour, int width) {
  borderColor_ = colour;
  borderWidth_ = width;
  Changed(Change::Look);
}

void Shape::SetFill(Colour colour) {
  filled_ = true;
  fillColor_ = colour;
  Changed(Change::Look);
}

}  // namespace pixorra
