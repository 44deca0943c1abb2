#include "Images/ImageStore.h"
#include "psrender/svg/SvgReader.h"
#include "psrender/svg/image/DataUri.h"
#include "tests/Images/ImageFiles.h"
#include "tests/psrender/Spots.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace psrender::svg {

namespace {

namespace fs = std::filesystem;
using Images::tests::encode;
using testing::ElementsAre;
using testing::HasSubstr;

std::string escaped(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        char code[4];
        std::snprintf(code, sizeof code, "%%%02x", static_cast<unsigned char>(c));
        text += code;
    }
    return text;
}

/// 4 by 2 pixels: red, green, blue and black above white, yellow, cyan and magenta.
std::string colours() {
    return "href='data:," +
           escaped(encode(Images::tests::PngFile{
               4, 2, {255, 0,   0,   0,   255, 0, 0, 0,   255, 0,   0, 0,
                      255, 255, 255, 255, 255, 0, 0, 255, 255, 255, 0, 255}})) +
           "'";
}

/// A document of a page of 80 by 40 points.
std::string scriptOf(const std::string& body) {
    Images::ImageStore store(1000);
    Warnings warnings;
    const scene::Page page = readSvg(
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 80 40' width='80pt' height='40pt'>" +
            body + "</svg>",
        "test", warnings, {&store});
    return tests::printed(page);
}

/// The colours at the middles of a grid of 8 by 4 squares on the page; a letter each.
std::vector<std::string> seen(const std::string& body) {
    const Interpretation result = interpret(scriptOf(body));
    EXPECT_EQ("", result.messages);
    std::vector<std::string> rows;
    for (int y = 5; y < 40; y += 10) {
        std::string& row = rows.emplace_back();
        for (int x = 5; x < 80; x += 10) {
            const auto pixel = result.pages.at(0).at(x, y);
            row += "krgybmcw"[pixel[0] / 128 + pixel[1] / 128 * 2 + pixel[2] / 128 * 4];
        }
    }
    return rows;
}

TEST(SvgImages, LieUprightAsTheirAspectRatioTells) {
    const std::string image = "<image " + colours() + " ";
    EXPECT_THAT(seen(image + "width='80' height='40'/>"),
                ElementsAre("rrggbbkk", "rrggbbkk", "wwyyccmm", "wwyyccmm"));
    EXPECT_THAT(seen(image + "x='10' width='40'/>"),
                ElementsAre("wrgbkwww", "wwycmwww", "wwwwwwww", "wwwwwwww"));
    EXPECT_THAT(seen(image + "width='80' height='20' preserveAspectRatio='xMaxYMin meet'/>"),
                ElementsAre("wwwwrgbk", "wwwwwycm", "wwwwwwww", "wwwwwwww"));
    EXPECT_THAT(seen(image + "width='80' height='20' preserveAspectRatio='xMidYMax slice'/>"),
                ElementsAre("wwyyccmm", "wwyyccmm", "wwwwwwww", "wwwwwwww"));
    EXPECT_THAT(
        seen(image + "x='20' width='20' height='40' preserveAspectRatio='xMinYMin slice'/>"),
        ElementsAre("wwrrwwww", "wwrrwwww", "wwwwwwww", "wwwwwwww"))
        << "cut to whole pixels, laid out to the edges";
    EXPECT_THAT(seen(image + "width='40' height='20' transform='translate(40 40) rotate(180)'/>"),
                ElementsAre("wwwwwwww", "wwwwwwww", "mcywwwww", "kbgrwwww"));
}

TEST(SvgImages, ShowTheColourBeneathThem) {
    const std::string clear =
        "<image x='20' y='10' width='40' height='20' preserveAspectRatio='none' href='data:," +
        escaped(encode(Images::tests::PngFile{1, 1, {9, 9, 9, 1}, 6})) + "'/>";
    const auto over = [&](const std::string& body) { return seen(body + clear).at(1); };
    EXPECT_EQ("yyyyyyyy", over("<rect width='80' height='40' fill='yellow'/>"));
    EXPECT_EQ("wbbbbbbw", over("<path d='M8 4H72L75 36H5zM0 0h4v4h-4z' fill='blue'/>"
                               "<path d='M0 0H80' stroke='red' stroke-width='10'/>"));
    EXPECT_EQ("yyyyyyyy", over("<rect width='80' height='40' fill='red'/>"
                               "<g transform='rotate(9)'>"
                               "<rect x='-9' y='-99' width='99' height='199' fill='yellow'/></g>"));
    EXPECT_EQ("wkkkkkkw", over("<rect width='80' height='40' fill='red'/><rect x='9' y='4' "
                               "width='62' height='32' stroke='white' stroke-width='2'/>"
                               "<rect width='9' height='40' fill='white'/>"
                               "<rect x='71' width='9' height='40' fill='white'/>"));
    EXPECT_EQ("bbbwwwww", over("<rect width='30' height='40' fill='blue'/>")) << "two colours";
    EXPECT_EQ("wbbbbbbw", over("<g opacity='.99'><path d='M40 0V40' stroke='blue' "
                               "stroke-width='60'/></g>"));
    EXPECT_EQ("rrrrbbbb", over("<linearGradient id='a'><stop offset='.5' stop-color='red'/><stop "
                               "offset='.5' stop-color='blue'/></linearGradient>"
                               "<rect width='80' height='40' fill='url(#a)'/>"));
}

TEST(SvgImages, ShowThroughTranslucentShapes) {
    const std::string image =
        "<image " + colours() + " width='80' height='40' image-rendering='pixelated'/>";
    EXPECT_THAT(seen(image + "<rect x='20' width='40' height='40' fill-opacity='.3'/>"),
                ElementsAre("rrggbbkk", "rrggbbkk", "wwyyccmm", "wwyyccmm"))
        << "not yet half dark";
    EXPECT_THAT(seen(image + "<circle cx='40' cy='20' r='18' fill='#fff' fill-opacity='.7'/>"),
                ElementsAre("rrgwwbkk", "rrwwwwkk", "wwwwwwmm", "wwywwcmm"));
}

TEST(SvgImages, AreSmoothUnlessTheyAreToBePixelated) {
    const auto isSmooth = [](const std::string& rendering) {
        const std::string made =
            scriptOf("<image " + colours() + " width='80' height='40' " + rendering + "/>");
        return made.find("/Interpolate true") != std::string::npos;
    };
    EXPECT_TRUE(isSmooth(""));
    EXPECT_TRUE(isSmooth("style='image-rendering:optimizeQuality'"));
    EXPECT_FALSE(isSmooth("image-rendering='pixelated'"));
    EXPECT_FALSE(isSmooth("style='image-rendering:optimizeSpeed'"));
    EXPECT_FALSE(isSmooth("transform='scale(.005)'")) << "as fine as print";
}

TEST(SvgImages, MayBeDrawings) {
    const auto drawing = [](const std::string& body) {
        return "<image x='20' width='40' height='40' href='data:image/svg+xml," +
               escaped("<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10'>" + body +
                       "</svg>") +
               "'/>";
    };
    EXPECT_THAT(seen(drawing("<style>rect{fill:red}</style><rect y='-9' width='10' height='29'/>")),
                ElementsAre("wwwwwwww", "wwrrwwww", "wwrrwwww", "wwwwwwww"));
    EXPECT_THAT(seen(drawing("<rect")),
                ElementsAre("wwwwwwww", "wwwwwwww", "wwwwwwww", "wwwwwwww"));
    std::string nested = "<rect width='20' height='10'/>";
    for (int i = 0; i < 6; ++i)
        nested = drawing(nested);
    EXPECT_EQ("wwwwwwww", seen(nested).at(2)) << "too deep";
}

TEST(DataUris, AreDecodedInBothForms) {
    EXPECT_EQ("a b%2", decodeDataUri("data:,a%20b%2"));
    EXPECT_EQ("Man", decodeDataUri("data:image/png;base64,TWFu"));
    EXPECT_EQ("Ma", decodeDataUri("DATA:;charset=x;BASE64, T\nWE="));
    EXPECT_EQ("M", decodeDataUri("data:;base64,T%51"));
    EXPECT_EQ("\xFB\xFF", decodeDataUri("data:;base64,-_8"));
    for (const char* damaged : {"data:;base64,TWF!", "data:;base64,T", "data:", "http://a,b", ""})
        EXPECT_EQ(std::nullopt, decodeDataUri(damaged)) << damaged;
}

TEST(SvgImages, AreReadFromTheFolderOfTheDrawingOnly) {
    std::string name = (fs::temp_directory_path() / "psrender-test-XXXXXX").string();
    const fs::path outside = ::mkdtemp(name.data());
    const fs::path folder = outside / "inside";
    fs::create_directories(folder / "sub");
    const std::string png = encode(Images::tests::PngFile{1, 1, {1, 2, 3}});
    for (const fs::path& file : {outside / "a.png", folder / "b c.png", folder / "sub" / "d.png"})
        std::ofstream(file, std::ios::binary) << png;
    fs::create_symlink(outside / "a.png", folder / "link.png");
    fs::create_symlink(folder / "b c.png", folder / "fine.png");
    Images::ImageStore store(1000);
    const auto warning = [&](const std::string& address, const std::string& place) {
        Warnings warnings;
        readSvg("<svg xmlns='http://www.w3.org/2000/svg'><image href='" + address + "'/></svg>",
                "test", warnings, {&store, place});
        return warnings.empty() ? "" : warnings.sentences()[0];
    };
    for (const char* good : {"b%20c.png", "./sub/d.png#x", "fine.png"})
        EXPECT_EQ("", warning(good, folder.string())) << good;
    for (const char* bad :
         {"../a.png", "sub/../../a.png", "link.png", "/etc/passwd", "%2e%2e/a.png", "b%20c.png%00"})
        EXPECT_THAT(warning(bad, folder.string()), HasSubstr("not in the folder")) << bad;
    EXPECT_THAT(warning("http://a/b.png", folder.string()), HasSubstr("is not fetched"));
    EXPECT_THAT(warning("sub", folder.string()), HasSubstr("is no regular file"));
    EXPECT_THAT(warning("b%20c.png", ""), HasSubstr("not in the folder"));
    fs::remove_all(outside);
}

}  // namespace

}  // namespace psrender::svg
