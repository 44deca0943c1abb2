#pragma once

#include "Core/Object.h"
#include "Core/String.h"
#include "Drawing/GradientBrush.h"
#include "PS/Export.h"

#include <cstdint>
#include <utility>

namespace Drawing::PS {

/// One use of a gradient brush: what the prolog needs to define its shading (PLRM 4.9.3).
class PS_API PSGradient : public Core::Object {
public:
    static constexpr std::uint64_t kAxial = 2;
    static constexpr std::uint64_t kRadial = 3;

    /// `coordsText` is the shading's /Coords array; `type` is `kAxial` or `kRadial`.
    PSGradient(Core::String coordsText, std::uint64_t type, Core::Vector<StopPoint> stopPoints);
    ~PSGradient() override;

    /// Empty until the gradient is registered with a document.
    [[nodiscard]] const Core::String& getName() const { return name; }
    void setName(Core::String newName) { name = std::move(newName); }
    [[nodiscard]] const Core::String& getCoords() const { return coords; }
    [[nodiscard]] std::uint64_t getShadingType() const { return shadingType; }
    [[nodiscard]] Core::Vector<StopPoint> getStops() const { return stops; }

private:
    Core::String name;
    Core::String coords;
    std::uint64_t shadingType;
    Core::Vector<StopPoint> stops;
};

}  // namespace Drawing::PS
