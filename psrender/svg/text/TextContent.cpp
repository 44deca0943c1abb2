#include "psrender/svg/text/TextContent.h"

#include "Core/String.h"
#include "Core/Unicode.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/xml/Conditions.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <string_view>

namespace psrender::svg {

namespace {

std::vector<double> readLengths(pugi::xml_node element, const char* name, Axis axis,
                                const Measures& measures) {
    std::vector<double> values;
    NumberScanner scanner(trimmed(element.attribute(name).value()));
    while (!scanner.atEnd()) {
        const auto length = scanLength(scanner, measures.fontSize);
        if (!length)
            break;
        values.push_back(length->resolve(measures, axis));
        scanner.skipCommaSpace();
    }
    return values;
}

/// What one element says of the places of its characters.
struct Places {
    Places(pugi::xml_node element, const Measures& measures, std::size_t firstCharacter)
        : first(firstCharacter),
          x(readLengths(element, "x", Axis::horizontal, measures)),
          y(readLengths(element, "y", Axis::vertical, measures)),
          dx(readLengths(element, "dx", Axis::horizontal, measures)),
          dy(readLengths(element, "dy", Axis::vertical, measures)),
          rotation(readLengths(element, "rotate", Axis::other, measures)) {}

    std::size_t first;
    std::vector<double> x, y, dx, dy, rotation;
};

class Collector {
public:
    Collector(const Measures& measures, StyleResolver& styles)
        : measures_(measures), styles_(styles) {}

    void collect(pugi::xml_node element, const ComputedStyle& style, double shift,
                 pugi::xml_node path) {
        Measures measures = measures_;
        measures.fontSize = style.fontSize;
        places_.emplace_back(element, measures, content_.characters.size());
        const TextSpan span{element, style, shift, path};
        for (const pugi::xml_node child : element.children())
            if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
                addText(child.value(), span);
            else if (child.type() == pugi::node_element)
                collectChild(child, span);
        places_.pop_back();
    }

    TextContent take() {
        if (!content_.characters.empty() && endsInSpace_)
            content_.characters.pop_back();
        return std::move(content_);
    }

private:
    void collectChild(pugi::xml_node child, const TextSpan& around) {
        const std::string_view name = child.name();
        const bool isPath = name == "textPath";
        if ((!isPath && name != "tspan" && name != "a") || !conditionsHold(child))
            return;
        const ComputedStyle style = styles_.resolve(child, around.style);
        if (style.isDisplayed)
            collect(child, style, around.baselineShift + style.baselineShift,
                    isPath ? child : around.path);
    }

    void addText(std::string_view utf8, const TextSpan& span) {
        if (utf8.empty())
            return;
        content_.spans.push_back(span);
        const bool keepsSpace = span.style.text.keepsSpace || preservesSpace(span.element);
        const Core::String text(utf8);
        const std::u16string_view units = text.view();
        for (std::size_t i = 0; i < units.size();)
            addCharacter(Core::Unicode::next(units, i), keepsSpace);
    }

    /// White space becomes one blank, none at the ends of the text, unless it is to be kept.
    void addCharacter(char32_t code, bool keepsSpace) {
        const bool isBlank = code == U' ' || code == U'\t' || code == U'\n' || code == U'\r';
        if (isBlank && !keepsSpace && (endsInSpace_ || content_.characters.empty()))
            return;
        endsInSpace_ = isBlank && !keepsSpace;
        TextCharacter character;
        character.code = isBlank ? U' ' : code;
        character.span = content_.spans.size() - 1;
        place(character);
        content_.characters.push_back(character);
    }

    /// The innermost element that has something to say counts.
    void place(TextCharacter& character) const {
        const std::size_t index = content_.characters.size();
        character.x = find(&Places::x, index);
        character.y = find(&Places::y, index);
        character.dx = find(&Places::dx, index).value_or(0);
        character.dy = find(&Places::dy, index).value_or(0);
        for (auto places = places_.rbegin(); places != places_.rend(); ++places)
            if (!places->rotation.empty()) {
                const std::size_t last = places->rotation.size() - 1;
                character.rotation = places->rotation[std::min(index - places->first, last)];
                break;
            }
    }

    [[nodiscard]] std::optional<double> find(std::vector<double> Places::*list,
                                             std::size_t index) const {
        for (auto places = places_.rbegin(); places != places_.rend(); ++places)
            if (index - places->first < ((*places).*list).size())
                return ((*places).*list)[index - places->first];
        return std::nullopt;
    }

    static bool preservesSpace(pugi::xml_node element) {
        for (; element; element = parentElement(element))
            if (const pugi::xml_attribute space = element.attribute("xml:space"))
                return std::string_view(space.value()) == "preserve";
        return false;
    }

    const Measures& measures_;
    StyleResolver& styles_;
    TextContent content_;
    std::vector<Places> places_;
    bool endsInSpace_ = false;
};

}  // namespace

TextContent readTextContent(pugi::xml_node text, const ComputedStyle& style,
                            const Measures& measures, StyleResolver& styles) {
    Collector collector(measures, styles);
    collector.collect(text, style, style.baselineShift, {});
    return collector.take();
}

}  // namespace psrender::svg
