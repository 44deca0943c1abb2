#include "tests/psrender/svg/Drawings.h"

#include "psrender/svg/SvgReader.h"

#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>

namespace psrender::svg {

using scene::Paint;
using scene::Shape;

namespace {

constexpr double pixelsPerPoint = 4.0 / 3;

std::string number(double value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    const double rounded = std::round(value * 1000) / 1000;
    out << std::setprecision(10) << (rounded == 0 ? 0 : rounded);
    return out.str();
}

std::string describe(const Paint& paint) {
    const scene::Color* color = paint.color();
    if (color == nullptr)
        return "none";
    std::ostringstream out;
    out << '#' << std::hex << std::setfill('0');
    for (const int component : {color->red, color->green, color->blue})
        out << std::setw(2) << component;
    return paint.opacity == 1 ? out.str() : out.str() + "/" + number(paint.opacity);
}

std::string describe(const scene::StrokeStyle& stroke) {
    constexpr const char* caps[] = {"", " round-cap", " square-cap"};
    constexpr const char* joins[] = {"", " round-join", " bevel-join"};
    std::string text = " width=" + number(stroke.width);
    text += caps[static_cast<int>(stroke.cap)];
    text += joins[static_cast<int>(stroke.join)];
    if (stroke.miterLimit != 4)
        text += " limit=" + number(stroke.miterLimit);
    for (std::size_t i = 0; i < stroke.dashes.size(); ++i)
        text += (i == 0 ? " dashes=" : ",") + number(stroke.dashes[i]);
    if (stroke.dashOffset != 0)
        text += " offset=" + number(stroke.dashOffset);
    return text;
}

std::string describe(const Shape& shape) {
    const auto toPixels = scene::Affine::scaling(pixelsPerPoint, pixelsPerPoint);
    std::string text = "fill=" + describe(shape.fill);
    if (shape.fillRule == scene::FillRule::evenOdd)
        text += " evenodd";
    if (isPainted(shape.stroke))
        text += " stroke=" + describe(shape.stroke) + describe(shape.strokeStyle);
    return text + " " + toText(shape.outline->transformed(toPixels * shape.transform));
}

/// Where the origin of a symbol comes to lie, and which way its x axis points.
std::string describe(const scene::Placement& placement) {
    const scene::Affine& map = placement.transform;
    return "symbol at " + number(map.e * pixelsPerPoint) + "," + number(map.f * pixelsPerPoint) +
           " along " + number(map.a * pixelsPerPoint) + "," + number(map.b * pixelsPerPoint);
}

/// A run at the place of its first glyph.
std::string describe(const scene::Text& text) {
    const scene::TextRun& run = *text.run;
    const scene::Point at = text.transform.apply(run.glyphs.front().origin);
    return (run.isPlain ? "text \"" : "shapes \"") + run.text.toUtf8() + "\" in " +
           run.program->getMetrics().postScriptName.toUtf8() + " " + number(run.size) + " at " +
           number(at.x * pixelsPerPoint) + "," + number(at.y * pixelsPerPoint);
}

std::string describe(const scene::Item& item) {
    if (const auto* text = std::get_if<scene::Text>(&item))
        return describe(*text);
    if (const auto* placement = std::get_if<scene::Placement>(&item))
        return describe(*placement);
    if (const auto* group = std::get_if<scene::BeginGroup>(&item))
        return "begin " + number(group->opacity);
    const auto* shape = std::get_if<Shape>(&item);
    return shape == nullptr ? "end" : describe(*shape);
}

}  // namespace

std::string toText(const scene::Outline& outline) {
    constexpr std::string_view letters = "MLCZ";
    constexpr int counts[] = {1, 1, 3, 0};
    std::string text;
    auto point = outline.points().begin();
    for (const auto verb : outline.verbs()) {
        text += text.empty() ? "" : " ";
        text += letters[static_cast<std::size_t>(verb)];
        for (int i = 0; i < counts[static_cast<int>(verb)]; ++i, ++point)
            text += (i == 0 ? "" : " ") + number(point->x) + "," + number(point->y);
    }
    return text;
}

Reading read(std::string_view document) {
    Warnings warnings;
    Reading reading;
    reading.page = readSvg(document, "test.svg", warnings);
    for (const scene::Item& item : reading.page.items)
        reading.items.push_back(describe(item));
    reading.warnings = warnings.sentences();
    return reading;
}

Reading readBody(std::string_view body) {
    return read(R"(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">)" +
                std::string(body) + "</svg>");
}

std::vector<std::string> drawn(std::string_view body) {
    return readBody(body).items;
}

std::string fillOf(std::string_view body) {
    const Reading reading = readBody(body);
    return reading.items.size() == 1 ? describe(std::get<Shape>(reading.page.items[0]).fill)
                                     : std::to_string(reading.items.size()) + " items";
}

std::string refusal(std::string_view document) {
    try {
        read(document);
    } catch (const InputError& error) {
        return error.what();
    }
    return {};
}

}  // namespace psrender::svg
