#include "Print/internal/Ink.h"

#include "Drawing/SpotColor.h"
#include "Print/PrintException.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Drawing::Print {

namespace {

constexpr int kComponentDecimals = 4;
constexpr double kByte = 255;

Components componentsOf(const RGBColor& color) {
    return {color.getR() / kByte, color.getG() / kByte, color.getB() / kByte, 0};
}

double checked(double component) {
    if (!(component >= 0 && component <= 1))
        throw PrintException("a colour component of " + std::to_string(component) +
                             " is not from 0 to 1");
    return component;
}

/// What stands in for an ink on devices without it; without any substitute its own strength of
/// black.
Ink substituteOf(const SpotColor& color) {
    Ink ink;
    const auto& substitute = color.getColorSubstitute();
    if (substitute && substitute->hasCMYKSubstitute()) {
        ink.space = ColorSpaceType::cmyk;
        ink.components = {checked(substitute->getC()), checked(substitute->getM()),
                          checked(substitute->getY()), checked(substitute->getK())};
    } else if (substitute && substitute->hasRGBSubstitute()) {
        ink.space = ColorSpaceType::rgb;
        ink.components = {substitute->getR() / kByte, substitute->getG() / kByte,
                          substitute->getB() / kByte, 0};
    }
    return ink;
}

Ink spotInk(const SpotColor& color) {
    Ink ink = substituteOf(color);
    ink.spot = color.getColorName().toUtf8();
    if (ink.spot.empty())
        throw PrintException("a spot colour has no name; its plate needs one");
    ink.tint = checked(color.getTint());
    return ink;
}

Ink deviceInk(const Color& color) {
    Ink ink;
    switch (color.getColorType()) {
        case ColorType::rgb:
            ink.space = ColorSpaceType::rgb;
            ink.components = componentsOf(static_cast<const RGBColor&>(color));
            return ink;
        case ColorType::gray:
            ink.components = {static_cast<const GrayScaleColor&>(color).getG() / kByte};
            return ink;
        case ColorType::cmyk: {
            const auto& cmyk = static_cast<const CMYKColor&>(color);
            ink.space = ColorSpaceType::cmyk;
            ink.components = {checked(cmyk.getC()), checked(cmyk.getM()), checked(cmyk.getY()),
                              checked(cmyk.getK())};
            return ink;
        }
        case ColorType::spot:
            return spotInk(static_cast<const SpotColor&>(color));
        default:
            throw PrintException("a colour of kind " +
                                 std::to_string(static_cast<int>(color.getColorType())) +
                                 " has no PostScript form; take RGB, grey, CMYK or a spot ink");
    }
}

/// Paper shows where there is no ink: light comes nearer to 1, ink to 0.
void dilute(Ink& ink, double opacity) {
    if (!ink.spot.empty()) {
        ink.tint *= opacity;
        return;
    }
    const bool isInk = ink.space == ColorSpaceType::cmyk;
    for (int i = 0; i < ink.componentCount(); ++i) {
        double& component = ink.components[static_cast<std::size_t>(i)];
        component = isInk ? component * opacity : 1 - (1 - component) * opacity;
    }
}

struct ByteText {
    std::array<char, 8> text{};
    std::uint8_t length = 0;
};

/// The texts of the 256 levels that byte components have, each with a blank in front.
const std::array<ByteText, 256>& byteTexts() {
    static const std::array<ByteText, 256> texts = [] {
        std::array<ByteText, 256> made;
        for (std::size_t level = 0; level < made.size(); ++level) {
            std::array<char, 128> number{};
            char* end =
                writeRounded(number.data(), static_cast<double>(level) / kByte, kComponentDecimals);
            made[level].length = static_cast<std::uint8_t>(end - number.data());
            std::copy(number.data(), end, made[level].text.begin());
        }
        return made;
    }();
    return texts;
}

}  // namespace

Ink inkOf(const Color& color, double opacity, const ColorConverter* converter) {
    Ink ink = deviceInk(color);
    if (opacity < 1)
        dilute(ink, opacity);
    if (converter) {
        ink.components = converter->convert(ink.space, ink.components);
        ink.space = converter->getTarget();
    }
    return ink;
}

void takeNeutralForGray(Ink& ink) {
    const Components& c = ink.components;
    if (ink.spot.empty() && ink.space == ColorSpaceType::rgb && c[0] == c[1] && c[1] == c[2]) {
        ink.space = ColorSpaceType::gray;
        ink.components = {c[0]};
    }
}

void writeComponent(double component, TextBuffer& out) {
    const double level = component * kByte;
    const auto whole = static_cast<int>(std::lround(level));
    if (std::abs(level - whole) > 1e-9 || whole < 0 || whole > 255) {
        out.number(component, kComponentDecimals);
        return;
    }
    const ByteText& known = byteTexts()[static_cast<std::size_t>(whole)];
    char* to = out.reserve(known.text.size() + 1);
    const char last = out.size() == 0 ? '\n' : to[-1];
    if (last != '\n' && last != '[' && last != ' ' && last != ']')
        *to++ = ' ';
    std::copy_n(known.text.begin(), known.text.size(), to);
    out.commit(to + known.length);
}

void writeInk(const Ink& ink, TextBuffer& out) {
    const Components& c = ink.components;
    if (!ink.spot.empty()) {
        out.number(ink.tint, kComponentDecimals);
        out << ' ';
        writeSpace(ink, out);
        out << "sp";
        return;
    }
    const int count = ink.componentCount();
    for (int i = 0; i < count; ++i)
        writeComponent(c[static_cast<std::size_t>(i)], out);
    out << (count == 1 ? " g" : count == 3 ? " rg" : " k");
}

void writeSpace(const Ink& ink, TextBuffer& out) {
    const int count = ink.componentCount();
    const std::string_view device = count == 1   ? "/DeviceGray"
                                    : count == 3 ? "/DeviceRGB"
                                                 : "/DeviceCMYK";
    if (ink.spot.empty()) {
        out << device;
        return;
    }
    out << "[/Separation ";
    writeLiteral(ink.spot, out);
    out << "cvn" << device << '{';
    for (int i = 0; i < count; ++i) {
        const double full = ink.components[static_cast<std::size_t>(i)];
        const double paper = ink.space == ColorSpaceType::cmyk ? 0 : 1;
        out << (i + 1 < count ? "dup" : "");
        out.number(full - paper, kComponentDecimals);
        out << " mul";
        if (paper != 0)
            out << " 1 add";
        out << (i + 1 < count ? " exch " : "");
    }
    out << "}]";
}

void writeLiteral(std::string_view text, TextBuffer& out) {
    out << '(';
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '(' || character == ')' || character == '\\') {
            out << '\\' << character;
        } else if (code >= 0x20 && code < 0x7F) {
            out << character;
        } else {
            const auto digit = [&](int shift) {
                return static_cast<char>('0' + (code >> shift & 7));
            };
            out << '\\' << digit(6) << digit(3) << digit(0);
        }
    }
    out << ')';
}

}  // namespace Drawing::Print
