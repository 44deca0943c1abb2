// Text that an interpreter shows must lie where its glyphs were laid out: it is compared with the
// same run drawn by the outlines of its glyphs.

#include "psrender/plan/TextOutlines.h"
#include "psrender/svg/SvgReader.h"
#include "tests/psrender/Spots.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace psrender {
namespace {

/// Left, top, right and bottom of what is not white, in pixels.
using InkBox = std::array<int, 4>;

InkBox inkBoxOf(const scene::Page& page) {
    const Interpretation seen = interpret(tests::printed(page), 144);
    EXPECT_EQ("", seen.messages);
    InkBox box{9999, 9999, -1, -1};
    const Picture& picture = seen.pages.at(0);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (picture.at(x, y)[1] < 128)
                box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x),
                       std::max(box[3], y)};
    return box;
}

scene::Page outlined(scene::Page page) {
    for (scene::Item& item : page.items)
        if (const auto* text = std::get_if<scene::Text>(&item))
            if (auto shape = plan::outlinesOf(*text))
                item = std::move(*shape);
    return page;
}

TEST(TextPlacement, IsThatOfTheOutlines) {
    const char* const fonts[] = {"Helvetica' font-weight='bold",
                                 "Times' font-style='italic",
                                 "Courier",
                                 "DejaVu Sans",
                                 "Liberation Serif",
                                 "P052"};
    for (const std::string font : fonts)
        for (const char* more :
             {"", "letter-spacing='1.5'", "transform='rotate(20) scale(.9 1)'"}) {
            Warnings warnings;
            const scene::Page page = svg::readSvg(
                "<svg xmlns='http://www.w3.org/2000/svg' width='340pt' height='150pt' "
                "viewBox='0 0 340 150'><text x='10' y='30' font-size='17' font-family='" +
                    font + "' " + more + ">AVATAR: To Wave, LT. Wolf &amp; yak</text></svg>",
                "test", warnings);
            const InkBox shown = inkBoxOf(page);
            const InkBox drawn = inkBoxOf(outlined(page));
            for (std::size_t i = 0; i < shown.size(); ++i)
                EXPECT_NEAR(shown[i], drawn[i], 1) << font << " " << more << " side " << i;
            EXPECT_GT(shown[2], 300) << "the text is there";
            const scene::Page planned = plan::Planner().plan(page, warnings);
            EXPECT_TRUE(std::ranges::all_of(
                planned.items,
                [](const scene::Item& item) { return std::holds_alternative<scene::Text>(item); }))
                << font << more << " stays text";
        }
}

}  // namespace
}  // namespace psrender
