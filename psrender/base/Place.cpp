#include "psrender/base/Place.h"

namespace psrender {

std::string messageAt(const Place& place, const std::string& sentence) {
    std::string text = place.file;
    if (place.line != 0)
        text += ":" + std::to_string(place.line);
    if (place.line != 0 && place.column != 0)
        text += ":" + std::to_string(place.column);
    if (!place.element.empty())
        text += ": " + place.element;
    return text + ": " + sentence;
}

}  // namespace psrender
