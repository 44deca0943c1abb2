#include "psrender/base/InputError.h"

namespace psrender {

namespace {
std::string compose(const Place& place, const std::string& sentence) {
    std::string text = place.file;
    if (place.line != 0)
        text += ":" + std::to_string(place.line);
    if (place.line != 0 && place.column != 0)
        text += ":" + std::to_string(place.column);
    return text + ": " + sentence;
}
}  // namespace

InputError::InputError(const Place& place, const std::string& sentence)
    : std::runtime_error(compose(place, sentence)), place_(place) {}

}  // namespace psrender
