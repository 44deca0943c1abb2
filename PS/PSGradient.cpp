#include "PS/PSGradient.h"

namespace Drawing::PS {

PSGradient::PSGradient(Core::String coordsText, std::uint64_t type,
                       Core::Vector<StopPoint> stopPoints)
    : coords(std::move(coordsText)), shadingType(type), stops(std::move(stopPoints)) {}

PSGradient::~PSGradient() = default;

}  // namespace Drawing::PS
