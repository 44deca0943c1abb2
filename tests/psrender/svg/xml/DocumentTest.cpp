// XML as such: encodings, namespaces, entities, and documents that are broken or hostile.

#include "tests/psrender/svg/Drawings.h"

#include <cmath>
#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

const std::string open = "<svg xmlns='http://www.w3.org/2000/svg' width='100' height='100'>";
const std::string triangle = "<path id='t' d='M0 0H1V1'/>";
const std::string plain = "fill=#000000 M0,0 L1,0 L1,1";

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string inUtf16(std::string_view ascii, bool isBigEndian) {
    std::string result = isBigEndian ? "\xfe\xff" : "\xff\xfe";
    for (const char c : ascii)
        result += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return result;
}

TEST(SvgDocument, MayBeInSeveralEncodings) {
    const std::string document = open + triangle + "</svg>";
    for (const std::string& bytes :
         {document, "\xef\xbb\xbf" + document, inUtf16(document, true), inUtf16(document, false),
          inUtf16("<?xml version='1.0' encoding='UTF-16'?>" + document, true),
          "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xe9 -->" + document})
        EXPECT_THAT(read(bytes).items, ElementsAre(plain)) << bytes;
}

TEST(SvgDocument, MayUseAnyPrefixes) {
    const char* const documents[] = {
        "<s:svg xmlns:s='http://www.w3.org/2000/svg'><s:path d='M0 0H1V1'/><path d='M'/></s:svg>",
        "<svg><path d='M0 0H1V1'/></svg>",
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:b='http://b'><b:path d='M0 0H2V2'/>"
        "<path d='M0 0H1V1'/></svg>",
        "<svg xmlns='http://www.w3.org/2000/svg'><g xmlns='http://b'><path d='M0 0H2V2'/></g>"
        "<path d='M0 0H1V1'/></svg>",
        "<svg xmlns='http://www.w3.org/2000/svg'><g xmlns:q='http://b'/><q:path d='M0 0H2V2'/>"
        "<q:path xmlns:q='http://www.w3.org/2000/svg' d='M0 0H1V1'/></svg>",
    };
    for (const char* document : documents)
        EXPECT_THAT(read(document).items, ElementsAre(plain)) << document;
}

TEST(SvgDocument, MayDeclareEntities) {
    const std::string types =
        "<!DOCTYPE svg PUBLIC \"-//[x]//\" 'svg.dtd' [<!-- <!ENTITY d 'M'> -->"
        "<!ENTITY ns \"http://www.w3.org/2000/svg\"> <!ENTITY d 'M0 0H1V1'>"
        "<!ENTITY all '<path d=\"&d;\"/>'> <!ENTITY q 'a\"b'>"
        "<!ENTITY % p 'x'> <!ENTITY e SYSTEM 'file'> <!ELEMENT svg ANY>]>";
    const std::pair<const char*, const char*> rows[] = {
        {"<path d='&d;'/>", "fill=#000000 M0,0 L1,0 L1,1"},
        {"&all;", "fill=#000000 M0,0 L1,0 L1,1"},
        {"<path id=\"&q;\" d='&d;'/>&e;&unknown;&amp;&", "fill=#000000 M0,0 L1,0 L1,1"},
        {"<!-- &all; --><path d='&d;h9'/>", "fill=#000000 M0,0 L1,0 L1,1 L10,1"},
    };
    for (const auto& [body, item] : rows)
        EXPECT_THAT(read(types + "<svg xmlns='&ns;'>" + body + "</svg>").items, ElementsAre(item))
            << body;
}

TEST(SvgDocument, ThatIsNoneIsRefusedWithItsPlace) {
    const std::pair<std::string, const char*> rows[] = {
        {"", "test.svg: the file is empty"},
        {" \n ", "test.svg: the file is empty"},
        {"%!PS", "test.svg: this is not an SVG file"},
        {"\x1f\x8b\x08", "test.svg: the file is compressed"},
        {open + "\n <g>" + std::string(1, '\0') + "</svg>", "test.svg:2:5: there is a zero byte"},
        {"<html/>", "test.svg:1:2: <html>: the root element is not <svg>"},
        {"<svg xmlns='http://x'/>", "the root element is not <svg>"},
        {"<!-- -->", "test.svg: there is no element"},
        {open + "</svg>\n text", "there is something outside"},
        {open + "</svg><svg/>", "there is something outside"},
        {open + "<g>\n</svg>", "test.svg:2:3: an end tag does not fit"},
        {open + "<g>", "an end tag does not fit"},
        {open + "<g a=", "cut short"},
        {open + "<g a='", "cut short"},
        {open + "<!-- ", "has no end"},
        {"<!DOCTYPE svg [", "has no end"},
    };
    for (const auto& [document, sentence] : rows)
        EXPECT_THAT(refusal(document),
                    AllOf(StartsWith("test.svg"), HasSubstr(sentence), HasSubstr("; ")))
            << document;
}

TEST(SvgDocument, CutAnywhereIsRefusedOrRead) {
    const std::string whole = "<!DOCTYPE svg [<!ENTITY a 'x'>]>" + open +
                              "<style>g>a,rect[x]{fill:url(#a)}</style><g transform='scale(2)'>"
                              "<path d='M0 0a1 1 0 011 1z'/>&a;<![CDATA[x]]></g></svg>";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_NE(refusal(whole.substr(0, length)), "") << length;
    EXPECT_EQ(refusal(whole), "");
}

TEST(SvgLimits, OfNesting) {
    const auto nested = [](std::size_t depth) {
        return open + repeated("<g>", depth) + triangle + repeated("</g>", depth) + "</svg>";
    };
    EXPECT_THAT(read(nested(998)).items, ElementsAre(plain));
    EXPECT_THAT(refusal(nested(100'000)), HasSubstr("1000 deep"));
    EXPECT_THAT(refusal(repeated("<a>", 100'000)), HasSubstr("1000 deep"));
    std::string chain = "<g id='0'/>";
    for (int i = 1; i < 2000; ++i)
        chain = "<g id='" + std::to_string(i) + "'><use href='#" + std::to_string(i - 1) +
                "'/></g>" + chain;
    EXPECT_THAT(refusal(open + chain + "</svg>"), HasSubstr("1000 deep"));
}

TEST(SvgLimits, OfAttributesAndNamespaces) {
    std::string attributes;
    std::string prefixes;
    for (int i = 0; i < 600; ++i) {
        attributes += " a" + std::to_string(i) + "=''";
        prefixes += "<g xmlns:p" + std::to_string(i) + "='x'>";
    }
    EXPECT_THAT(refusal(open + "<g" + attributes + "/></svg>"), HasSubstr("500 attributes"));
    EXPECT_THAT(refusal(open + prefixes + repeated("</g>", 600) + "</svg>"),
                HasSubstr("500 namespaces"));
}

/// Each level of references multiplies the one below by ten.
std::string bomb(const std::string& core) {
    std::string body = core;
    for (int i = 1; i < 12; ++i)
        body += "<g id='" + std::to_string(i) + "'>" +
                repeated("<use href='#" + std::to_string(i - 1) + "'/>", 10) + "</g>";
    return open + "<defs>" + body + "</defs><use href='#11'/></svg>";
}

TEST(SvgLimits, OfReferences) {
    for (const char* circle : {"<g id='a'><use href='#a'/><path d='M0 0h1v1'/></g>",
                               "<g id='a'><use href='#b'/><path d='M0 0h1v1'/></g>"
                               "<defs><g id='b'><use href='#a'/></g></defs>"}) {
        const Reading reading = readBody(circle);
        EXPECT_EQ(reading.items.size(), 1U) << circle;
        EXPECT_THAT(reading.warnings, ElementsAre(HasSubstr("part of")));
    }
    const std::string points = repeated("h1v1", 50'000);
    EXPECT_THAT(refusal(bomb("<path id='0' d='M0 0" + points + "'/>")),
                HasSubstr("20000000 points"));
    const std::string bulk(1'000'000, 'x');
    EXPECT_THAT(refusal(bomb("<g id='0' class='" + bulk + "'/>")), HasSubstr("million elements"));
}

TEST(SvgLimits, OfEntities) {
    std::string entities = "<!ENTITY e0 'ha'>";
    for (int i = 1; i < 12; ++i)
        entities += "<!ENTITY e" + std::to_string(i) + " '" +
                    repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    const auto laughing = [&](const std::string& reference) {
        return refusal("<!DOCTYPE svg [" + entities + "<!ENTITY self '&self;'><!ENTITY big '" +
                       std::string(40'000, 'x') + "'>]>" + open + reference + "</svg>");
    };
    EXPECT_EQ(laughing("&e3;&big;"), "");
    EXPECT_THAT(laughing("&e11;"), HasSubstr("4 deep"));
    EXPECT_THAT(laughing("&self;"), HasSubstr("4 deep"));
    EXPECT_THAT(laughing("&big;<g id='&big;'/>"), HasSubstr("64 KiB"));
}

TEST(SvgLimits, OfStyleSheets) {
    // Fast, as rules are found by class, whatever their number.
    std::string sheet;
    std::string shapes;
    for (int i = 0; i < 5000; ++i) {
        sheet += ".c" + std::to_string(i) + "{fill:red}";
        shapes += "<path class='c" + std::to_string(i) + "' d='M0 0H1V1'/>";
    }
    const Reading reading = read(open + "<style>" + sheet + "</style>" + shapes + "</svg>");
    EXPECT_THAT(reading.items, testing::AllOf(testing::SizeIs(5000),
                                              testing::Each("fill=#ff0000 M0,0 L1,0 L1,1")));
    // Endless, as every declaration counts for every element.
    EXPECT_THAT(refusal(open + "<style>" + "rect{" + repeated("fill:red;", 10'000) + "}</style>" +
                        repeated("<rect/>", 20'000) + "</svg>"),
                HasSubstr("too many rules"));
}

TEST(SvgLimits, OfHostileSheetsAreTheirLength) {
    for (const char* piece : {"{", "}", "@media x{", "@", "a>", "a,", "[", "\"", "(", "/*", "<!--",
                              "a{fill:red}", "a{b:c;", "!", "\\"})
        EXPECT_EQ(
            refusal(open + "<style><![CDATA[" + repeated(piece, 100'000) + "]]></style></svg>"), "")
            << piece;
}

TEST(SvgLimits, OfCoordinatesKeepThePageFinite) {
    const Reading reading =
        readBody("<path d='M3e38 3e38a1e-30 1e38 5 0 1 -3e38 0q3e38 0 1 1t3e38 3e38'/>" +
                 repeated("<g transform='scale(1e38)'>", 9) + triangle + repeated("</g>", 9));
    ASSERT_EQ(reading.page.items.size(), 1U);
    for (const scene::Point& p : std::get<scene::Shape>(reading.page.items[0]).outline->points())
        EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    EXPECT_THAT(reading.warnings, ElementsAre(HasSubstr("beyond all measure")));
}

}  // namespace
}  // namespace psrender::svg
