#include "psrender/svg/xml/LengthReader.h"

#include "psrender/base/Warnings.h"

#include <string_view>

namespace psrender::svg {

std::optional<double> LengthReader::find(const char* name, Axis axis) const {
    const pugi::xml_attribute attribute = element_.attribute(name);
    if (!attribute || std::string_view(attribute.value()) == "auto")
        return std::nullopt;
    const auto length = parseLength(attribute.value(), measures_.fontSize);
    if (!length) {
        warnings_.add("attributes that are no lengths are ignored");
        return std::nullopt;
    }
    return length->resolve(measures_, axis);
}

std::optional<double> LengthReader::findSize(const char* name, Axis axis) const {
    const auto size = find(name, axis);
    if (!size || *size >= 0)
        return size;
    warnings_.add("negative sizes are ignored");
    return std::nullopt;
}

}  // namespace psrender::svg
