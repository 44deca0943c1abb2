#include "Drawing/SpotColor.h"

namespace Drawing {

namespace {

constexpr std::uint8_t kNoByte = 0;
constexpr double kNoInk = 0;

}  // namespace

ColorSubstitute::~ColorSubstitute() = default;
SpotColor::~SpotColor() = default;

std::uint8_t ColorSubstitute::getR() const {
    return rgb_ ? rgb_->getR() : kNoByte;
}

std::uint8_t ColorSubstitute::getG() const {
    return rgb_ ? rgb_->getG() : kNoByte;
}

std::uint8_t ColorSubstitute::getB() const {
    return rgb_ ? rgb_->getB() : kNoByte;
}

double ColorSubstitute::getC() const {
    return cmyk_ ? cmyk_->getC() : kNoInk;
}

double ColorSubstitute::getM() const {
    return cmyk_ ? cmyk_->getM() : kNoInk;
}

double ColorSubstitute::getY() const {
    return cmyk_ ? cmyk_->getY() : kNoInk;
}

double ColorSubstitute::getK() const {
    return cmyk_ ? cmyk_->getK() : kNoInk;
}

}  // namespace Drawing
