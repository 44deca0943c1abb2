#pragma once

#include "psrender/svg/values/Length.h"

#include <optional>
#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Reads lengths from attributes; what is no length counts as missing, with a warning.
class LengthReader {
public:
    LengthReader(pugi::xml_node element, const Measures& measures, Warnings& warnings)
        : element_(element), measures_(measures), warnings_(warnings) {}

    [[nodiscard]] std::optional<double> find(const char* name, Axis axis) const;
    /// The same for lengths that cannot be below 0.
    [[nodiscard]] std::optional<double> findSize(const char* name, Axis axis) const;
    [[nodiscard]] double get(const char* name, Axis axis) const {
        return find(name, axis).value_or(0);
    }

private:
    pugi::xml_node element_;
    const Measures& measures_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
