#include "psrender/svg/text/TextContent.h"

#include "Core/String.h"
#include "Core/Unicode.h"
#include "Fonts/UnicodeRanges.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/xml/Conditions.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <array>
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

/// Of other elements, in one text.
constexpr std::size_t kMostReferred = 100'000;

/// What puts the text of an element in an order of its own, and ends that; 0 for nothing.
struct BidiMarks {
    char32_t begin = 0;
    char32_t end = 0;
};

BidiMarks marksOf(const ComputedStyle& style) {
    const bool isRightToLeft = style.text.isRightToLeft;
    switch (style.ownText.bidi) {
        case BidiMode::embed:
            return {isRightToLeft ? U'\u202B' : U'\u202A', U'\u202C'};
        case BidiMode::isolate:
            return {isRightToLeft ? U'\u2067' : U'\u2066', U'\u2069'};
        case BidiMode::replace:
            return {isRightToLeft ? U'\u202E' : U'\u202D', U'\u202C'};
        case BidiMode::normal:
            break;
    }
    return {};
}

class Collector {
public:
    Collector(const Measures& measures, StyleResolver& styles, const XmlTree& tree)
        : measures_(measures), styles_(styles), tree_(tree) {}

    void collect(const TextSpan& span) {
        Measures measures = measures_;
        measures.fontSize = span.style.fontSize;
        places_.emplace_back(span.element, measures, content_.characters.size());
        const BidiMarks marks = marksOf(span.style);
        control(marks.begin);
        if (std::string_view(span.element.name()) == "tref")
            addReferredText(span);
        else
            addContent(span);
        control(marks.end);
        places_.pop_back();
    }

    TextContent take() {
        dropSpaceAtEnd();
        return std::move(content_);
    }

private:
    void dropSpaceAtEnd() {
        const std::size_t begin = content_.paragraphs.empty() ? 0 : content_.paragraphs.back();
        if (content_.characters.size() > begin && endsInSpace_)
            content_.characters.pop_back();
    }

    static bool isSpan(std::string_view name) {
        constexpr std::array kNames{"tspan", "a", "tref", "textPath", "flowSpan"};
        return std::ranges::find(kNames, name) != kNames.end();
    }

    static bool isParagraph(std::string_view name) {
        constexpr std::array kNames{"flowPara", "flowDiv", "flowLine"};
        return std::ranges::find(kNames, name) != kNames.end();
    }

    void collectChild(pugi::xml_node child, const TextSpan& around) {
        const std::string_view name = child.name();
        const bool isPath = name == "textPath";
        if ((!isSpan(name) && !isParagraph(name)) || !conditionsHold(child))
            return;
        if (isParagraph(name)) {
            dropSpaceAtEnd();
            content_.paragraphs.push_back(content_.characters.size());
            endsInSpace_ = true;
        }
        TextSpan span = around;
        span.element = child;
        span.style = styles_.resolve(child, around.style);
        span.baselineShift += span.style.ownText.baselineShift;
        span.baseline = span.style.ownText.alignment.value_or(
            around.style.text.baseline == span.style.text.baseline ? around.baseline
                                                                   : span.style.text.baseline);
        if (isPath)
            span.path = child;
        if (span.style.isDisplayed)
            collect(span);
    }

    void addContent(const TextSpan& span) {
        for (const pugi::xml_node child : span.element.children())
            if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
                addText(child.value(), span);
            else if (child.type() == pugi::node_element)
                collectChild(child, span);
    }

    /// All characters of the element that is referred to, and nothing of its looks.
    void addReferredText(const TextSpan& span) {
        const std::string_view href = hrefOf(span.element);
        if (!href.starts_with('#'))
            return;
        const pugi::xml_node source = tree_.byId(href.substr(1));
        forEachElement(source, [&](pugi::xml_node element, std::size_t) {
            for (const pugi::xml_node child : element.children())
                if ((child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) &&
                    content_.characters.size() < kMostReferred)
                    addText(child.value(), span);
        });
    }

    void control(char32_t code) {
        if (code != 0)
            content_.controls.push_back({content_.characters.size(), code});
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

    /// The innermost element that has something to say counts. A mark stays with its letter.
    void place(TextCharacter& character) const {
        const std::size_t index = content_.characters.size();
        const bool isMark = character.code < Core::Unicode::kFirstSupplementary &&
                            Fonts::UnicodeRanges::isMark(static_cast<char16_t>(character.code));
        if (isMark && index > 0)
            return;
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
    const XmlTree& tree_;
    TextContent content_;
    std::vector<Places> places_;
    bool endsInSpace_ = false;
};

}  // namespace

TextContent readTextContent(pugi::xml_node text, const ComputedStyle& style,
                            const Measures& measures, StyleResolver& styles, const XmlTree& tree) {
    Collector collector(measures, styles, tree);
    const Baseline baseline = style.ownText.alignment.value_or(style.text.baseline);
    collector.collect({text, style, style.ownText.baselineShift, baseline, {}});
    TextContent content = collector.take();
    content.isRightToLeft = style.text.isRightToLeft;
    content.isVertical = style.text.isVertical;
    return content;
}

}  // namespace psrender::svg
