#include "PS/PSGraphicsState.h"

namespace Drawing::PS {

namespace {

constexpr std::uint8_t kWhite = 255;

}  // namespace

PSGraphicsState::PSGraphicsState(const SizeF& size)
    : stroke(Core::makeObject<Stroke>()),
      fill(Core::makeObject<SolidColorBrush>(Core::makeObject<GrayScaleColor>(kWhite))),
      pageSize(size) {
    resetClip();
}

PSGraphicsState::~PSGraphicsState() = default;

void PSGraphicsState::resetClip() {
    clipPaths = {PathCommand::rectangle(0, 0, pageSize.width, pageSize.height, 0, 0)};
}

}  // namespace Drawing::PS
