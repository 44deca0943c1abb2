#include "psrender/svg/elements/FilterReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/elements/FilterMarkup.h"
#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/Paint.h"
#include "psrender/svg/xml/XmlTree.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace psrender::svg {

using scene::Rect;

namespace {

/// A blur reaches about so many of its deviations.
constexpr double kReachOfBlur = 3;

std::string colorText(const scene::Color& color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(color.red),
                  static_cast<unsigned>(color.green), static_cast<unsigned>(color.blue));
    return text;
}

/// What operations refer to by "currentColor", "em", "FillPaint" and "StrokePaint".
std::string contextOf(const ComputedStyle& style) {
    std::string text = " color=\"" + colorText(style.color.color) + "\" font-size=\"" +
                       std::to_string(std::lround(style.fontSize)) + "\"";
    const auto addPaint = [&](const char* name, const PaintValue& paint) {
        if (paint.plain.kind == PlainPaint::Kind::color)
            text.append(" ").append(name).append("=\"") += colorText(paint.plain.color.color) + '"';
    };
    addPaint("fill", style.fill);
    addPaint("stroke", style.stroke);
    return text;
}

/// How far an operation reaches beyond what it is applied to.
double reachOf(const FilterOperation& operation, double fontSize) {
    double reach = 0;
    forEachWord(operation.arguments, [&](std::string_view word) {
        if (const auto length = parseLength(word, fontSize); length && !length->isShare)
            reach += kReachOfBlur * std::abs(length->value);
    });
    return reach;
}

void appendEscaped(std::string_view text, std::string& markup) {
    for (const char c : text)
        if (c == '"')
            markup += "&quot;";
        else if (c == '&')
            markup += "&amp;";
        else if (c == '<')
            markup += "&lt;";
        else
            markup += c;
}

}  // namespace

/// Regions go by the box of what is filtered, so that is drawn first. Nothing is left of what has
/// an empty one.
void FilterReader::drawWithin(const Surroundings& inside, const std::function<void()>& draw) {
    const auto group = items_.beginGroup(1);
    const auto scope = items_.boxScope(true);
    draw();
    if (inside.toPage.isInvertible()) {
        const auto box = items_.boxSince(group, inside.toPage.inverse());
        scene::Effects effects;
        effects.filter = read(inside, box);
        if (effects.filter && effects.filter->region.area() > 0)
            items_.setEffects(group, std::move(effects));
        else if (effects.filter)
            items_.dropSince(group);
    }
    items_.endGroup(group);
}

std::optional<scene::Filter> FilterReader::read(const Surroundings& inside,
                                                const std::optional<Rect>& box) {
    const auto operations = parseFilterList(inside.style.filter);
    if (!operations || operations->empty()) {
        warnings_.add("filters that SVG does not know are left out (filter)");
        return std::nullopt;
    }
    const FilterPlace place{box.value_or(Rect()), inside.measures, inside.toPage.meanScale()};
    FilterMarkup markup(tree_, place, warnings_);
    scene::Filter filter{"filter=\"", {}, place.box, inside.toPage, false};
    bool isEmpty = true;
    for (const FilterOperation& operation : *operations) {
        if (equalsIgnoringCase(operation.function, "url")) {
            const auto region = addElement(operation, markup);
            if (!region)
                continue;
            filter.region = *region;
        } else {
            filter.region = filter.region.grown(reachOf(operation, inside.style.fontSize));
        }
        appendEscaped(operation.text, filter.attributes);
        filter.attributes += ' ';
        isEmpty = false;
    }
    if (isEmpty)
        return std::nullopt;
    filter.attributes += '"' + contextOf(inside.style);
    filter.definitions = markup.text();
    filter.goesByPixels = markup.goesByPixels();
    return filter;
}

/// The region of a filter element; nothing if there is no filter.
std::optional<Rect> FilterReader::addElement(const FilterOperation& operation,
                                             FilterMarkup& markup) {
    const auto id = parseReference(operation.text);
    const pugi::xml_node element = id ? tree_.byId(*id) : pugi::xml_node();
    if (std::string_view(element.name()) == "filter")
        return markup.add(element);
    warnings_.add("filters that are not there are left out (filter)");
    return std::nullopt;
}

}  // namespace psrender::svg
