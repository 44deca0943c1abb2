#include "psrender/svg/text/FlowLines.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/text/TextLine.h"
#include "psrender/svg/text/UprightCharacters.h"

#include <algorithm>
#include <vector>

namespace psrender::svg {

namespace {

constexpr double kEm = 1000;

/// How much of a line each character takes, and how high above and below its baseline lines are.
struct Extent {
    double advance = 0;
    double ascent = 0;
    double lineHeight = 0;
};

std::vector<Extent> extentsOf(const TextContent& content, const Measures& measures,
                              FontChooser& fonts, Shaper& shaper) {
    std::vector<Extent> extents(content.characters.size());
    LineMaker lines(content, measures, shaper);
    for (const TextChunk& chunk : splitIntoChunks(content, fonts))
        for (const LineCell& cell : lines.make(chunk).cells) {
            const Fonts::FontMetrics& metrics = cell.font->program->getMetrics();
            const double unit = cell.size / kEm;
            const double height = content.spans[cell.span].style.text.lineHeight * cell.size;
            const double leading = height - (double{metrics.ascent} - metrics.descent) * unit;
            extents[cell.character] = {cell.advance + cell.spacing,
                                       metrics.ascent * unit + leading / 2, height};
        }
    return extents;
}

class Flow {
public:
    Flow(const scene::Rect& region, TextContent& content, std::vector<Extent> extents)
        : region_(region), content_(content), extents_(std::move(extents)), top_(region.y) {}

    /// False if there is no room for all.
    bool run() {
        for (std::size_t i = 0; i < content_.paragraphs.size(); ++i) {
            const bool isLast = i + 1 == content_.paragraphs.size();
            const std::size_t end =
                isLast ? content_.characters.size() : content_.paragraphs[i + 1];
            if (content_.paragraphs[i] == end)
                top_ += latestHeight_;
            for (std::size_t begin = content_.paragraphs[i]; begin < end;) {
                const std::size_t next = endOfLine(begin, end);
                if (!place(begin, next))
                    return false;
                begin = next;
            }
        }
        return true;
    }

private:
    [[nodiscard]] bool maySplitBehind(std::size_t index) const {
        const char32_t code = content_.characters[index].code;
        return code == U' ' || code == U'-' || standsUpright(code);
    }

    /// Blanks at the end take no room.
    [[nodiscard]] std::size_t endOfLine(std::size_t begin, std::size_t end) const {
        double width = 0;
        std::size_t split = begin;
        for (std::size_t i = begin; i < end; ++i) {
            width += extents_[i].advance;
            if (width > region_.width && content_.characters[i].code != U' ' && i > begin)
                return split > begin ? split : i;
            if (maySplitBehind(i))
                split = i + 1;
        }
        return end;
    }

    bool place(std::size_t begin, std::size_t end) {
        Extent line;
        for (std::size_t i = begin; i < end; ++i) {
            line.ascent = std::max(line.ascent, extents_[i].ascent);
            line.lineHeight = std::max(line.lineHeight, extents_[i].lineHeight);
        }
        constexpr double kRounding = 0.01;
        if (top_ + line.lineHeight > region_.bottom() + kRounding * line.lineHeight) {
            content_.characters.resize(begin);
            return false;
        }
        TextCharacter& first = content_.characters[begin];
        const TextStyle& style = content_.spans[first.span].style.text;
        const double share = style.anchor == TextAnchor::middle                         ? 0.5
                             : (style.anchor == TextAnchor::end) != style.isRightToLeft ? 1
                                                                                        : 0;
        first.x = region_.x + share * region_.width;
        first.y = top_ + line.ascent;
        top_ += line.lineHeight;
        latestHeight_ = line.lineHeight;
        return true;
    }

    const scene::Rect& region_;
    TextContent& content_;
    std::vector<Extent> extents_;
    double top_;
    double latestHeight_ = 0;
};

}  // namespace

void flowInto(const scene::Rect& region, TextContent& content, const Measures& measures,
              FontChooser& fonts, Shaper& shaper, Warnings& warnings) {
    if (!Flow(region, content, extentsOf(content, measures, fonts, shaper)).run())
        warnings.add("text that does not fit into its region is left out (<flowRoot>)");
}

}  // namespace psrender::svg
