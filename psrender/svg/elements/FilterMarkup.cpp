#include "psrender/svg/elements/FilterMarkup.h"

#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace psrender::svg {

using scene::Rect;

namespace {

/// A filter that refers to half a drawing is none that anybody needs.
constexpr std::size_t kMostTargets = 100;

struct Numbers {
    std::string_view primitive;
    const char* attribute;
    bool isPair;  ///< one number for both axes, or two
    bool isAlongY = false;
};
/// What counts in the box of the filtered if the filter says so.
constexpr std::array kNumbers{Numbers{"feGaussianBlur", "stdDeviation", true},
                              Numbers{"feDropShadow", "stdDeviation", true},
                              Numbers{"feDropShadow", "dx", false},
                              Numbers{"feDropShadow", "dy", false, true},
                              Numbers{"feOffset", "dx", false},
                              Numbers{"feOffset", "dy", false, true},
                              Numbers{"feMorphology", "radius", true},
                              Numbers{"feDisplacementMap", "scale", false}};

/// Of usual pictures of effects; it matters little if theirs have more or fewer.
constexpr double kPixelsAPoint = 300.0 / 72;
constexpr double kFarthestTurn = 9;
constexpr double kMostTurns = 20;

/// Two numbers, or one twice.
std::pair<double, double> numberPair(const char* text) {
    std::istringstream words(text);
    words.imbue(std::locale::classic());
    double first = 0;
    words >> first;
    double second = 0;
    if (!(words >> second))
        second = first;
    return {first, second};
}

void setPair(pugi::xml_node element, const char* name, double first, double second) {
    std::ostringstream pair;
    pair.imbue(std::locale::classic());
    pair << first << ' ' << second;
    element.attribute(name).set_value(pair.str().c_str());
}

/// They look at a pixel's neighbours.
constexpr std::array<std::string_view, 3> kByPixels{"feConvolveMatrix", "feDiffuseLighting",
                                                    "feSpecularLighting"};

bool isOfBox(pugi::xml_node filter, const char* units, std::string_view usual) {
    const pugi::xml_attribute attribute = filter.attribute(units);
    return (attribute ? std::string_view(attribute.value()) : usual) == "objectBoundingBox";
}

void set(pugi::xml_node element, const char* name, double value) {
    char text[32];
    *std::to_chars(text, text + sizeof text - 1, value).ptr = '\0';
    pugi::xml_attribute attribute = element.attribute(name);
    (attribute ? attribute : element.append_attribute(name)).set_value(text);
}

/// The nearest `color-interpolation-filters` around an element, which children inherit.
void inheritInterpolation(pugi::xml_node original, pugi::xml_node copy) {
    constexpr const char* kName = "color-interpolation-filters";
    for (pugi::xml_node node = original; node; node = node.parent())
        if (const pugi::xml_attribute value = node.attribute(kName)) {
            if (!copy.attribute(kName))
                copy.append_attribute(kName).set_value(value.value());
            return;
        }
}

/// Editors leave attributes of their own, whose namespaces the markup does not declare.
void dropForeignAttributes(pugi::xml_node element) {
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute;) {
        const pugi::xml_attribute next = attribute.next_attribute();
        const std::string_view name = attribute.name();
        if (name.ends_with(":href"))
            attribute.set_name("href");
        else if (name.find(':') != std::string_view::npos || name.starts_with("xmlns"))
            element.remove_attribute(attribute);
        attribute = next;
    }
    for (auto child = firstChildElement(element); child; child = nextElement(child))
        dropForeignAttributes(child);
}

}  // namespace

Rect FilterMarkup::add(pugi::xml_node filter) {
    const Rect region = regionOf(filter);
    pugi::xml_node copy = document_.append_copy(filter);
    dropForeignAttributes(copy);
    inheritInterpolation(filter, copy);
    const bool isPrimitiveOfBox = isOfBox(filter, "primitiveUnits", "userSpaceOnUse");
    for (auto child = firstChildElement(copy); child; child = nextElement(child)) {
        resolve(child, isPrimitiveOfBox);
        divide(child);
        goesByPixels_ =
            goesByPixels_ || std::ranges::find(kByPixels, child.name()) != kByPixels.end();
    }
    for (const char* units : {"filterUnits", "primitiveUnits"}) {
        copy.remove_attribute(units);
        copy.append_attribute(units).set_value("userSpaceOnUse");
    }
    set(copy, "x", region.x);
    set(copy, "y", region.y);
    set(copy, "width", region.width);
    set(copy, "height", region.height);
    addTargets(filter);
    return region;
}

Rect FilterMarkup::regionOf(pugi::xml_node filter) const {
    const bool isOfTheBox = isOfBox(filter, "filterUnits", "objectBoundingBox");
    const Measures measures =
        isOfTheBox ? Measures{1, 1, place_.measures.fontSize} : place_.measures;
    const LengthReader lengths(filter, measures, warnings_);
    const Rect region{lengths.find("x", Axis::horizontal).value_or(-0.1 * measures.width),
                      lengths.find("y", Axis::vertical).value_or(-0.1 * measures.height),
                      lengths.findSize("width", Axis::horizontal).value_or(1.2 * measures.width),
                      lengths.findSize("height", Axis::vertical).value_or(1.2 * measures.height)};
    if (!isOfTheBox)
        return region;
    const Rect& box = place_.box;
    return {box.x + region.x * box.width, box.y + region.y * box.height, region.width * box.width,
            region.height * box.height};
}

/// Percentages and units become numbers. The source's own measures are no longer known where the
/// markup is used.
void FilterMarkup::resolve(pugi::xml_node primitive, bool isOfTheBox) const {
    const Measures measures =
        isOfTheBox ? Measures{1, 1, place_.measures.fontSize} : place_.measures;
    const LengthReader lengths(primitive, measures, warnings_);
    const Rect unit{0, 0, 1, 1};
    const Rect& frame = isOfTheBox ? place_.box : unit;
    if (const auto x = lengths.find("x", Axis::horizontal))
        set(primitive, "x", frame.x + *x * frame.width);
    if (const auto y = lengths.find("y", Axis::vertical))
        set(primitive, "y", frame.y + *y * frame.height);
    if (const auto width = lengths.find("width", Axis::horizontal))
        set(primitive, "width", *width * frame.width);
    if (const auto height = lengths.find("height", Axis::vertical))
        set(primitive, "height", *height * frame.height);
    if (isOfTheBox)
        scaleNumbers(primitive);
}

void FilterMarkup::scaleNumbers(pugi::xml_node primitive) const {
    for (const Numbers& numbers : kNumbers) {
        const pugi::xml_attribute attribute = primitive.attribute(numbers.attribute);
        if (numbers.primitive != primitive.name() || !attribute)
            continue;
        const auto [first, second] = numberPair(attribute.value());
        const Rect& box = place_.box;
        if (numbers.isPair)
            setPair(primitive, numbers.attribute, first * box.width, second * box.height);
        else
            set(primitive, numbers.attribute, first * (numbers.isAlongY ? box.height : box.width));
    }
}

/// The library that runs filters grows and shrinks by a few pixels at most, however many are asked
/// for: what is more is done in turns.
void FilterMarkup::divide(pugi::xml_node primitive) const {
    if (std::string_view(primitive.name()) != "feMorphology")
        return;
    const pugi::xml_attribute radius = primitive.attribute("radius");
    const auto [x, y] = numberPair(radius.value());
    const double pixels = std::max(x, y) * place_.scale * kPixelsAPoint;
    if (!(pixels > kFarthestTurn))
        return;
    const double turns = std::min(std::ceil(pixels / kFarthestTurn), kMostTurns);
    setPair(primitive, "radius", x / turns, y / turns);
    for (int turn = 1; turn < static_cast<int>(turns); ++turn) {
        pugi::xml_node before = primitive.parent().insert_copy_before(primitive, primitive);
        before.remove_attribute("result");
        primitive.remove_attribute("in");
    }
}

/// Follows links and paint references from attribute to attribute.
void FilterMarkup::addTargets(pugi::xml_node element) {
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        const std::string_view value = attribute.value();
        if (value.starts_with('#') && std::string_view(attribute.name()).ends_with("href"))
            addTarget(attribute.value() + 1);
        else if (const std::size_t begin = value.find("url(#"); begin != std::string_view::npos)
            addTarget(std::string(value.substr(begin + 5, value.find(')') - begin - 5)).c_str());
    }
    for (auto child = firstChildElement(element); child; child = nextElement(child))
        addTargets(child);
}

void FilterMarkup::addTarget(const char* id) {
    const pugi::xml_node target = tree_.byId(id);
    std::size_t count = 0;
    for (const pugi::xml_node& known : document_.children()) {
        if (std::string_view(known.attribute("id").value()) == id)
            return;
        ++count;
    }
    if (!target || target == tree_.root() || count >= kMostTargets)
        return;
    dropForeignAttributes(document_.append_copy(target));
    addTargets(target);
}

std::string FilterMarkup::text() const {
    std::ostringstream markup;
    markup.imbue(std::locale::classic());
    document_.save(markup, "", pugi::format_raw | pugi::format_no_declaration);
    for (const pugi::xml_node& style : tree_.styleElements())
        style.print(markup, "", pugi::format_raw);
    return markup.str();
}

}  // namespace psrender::svg
