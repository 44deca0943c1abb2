#include "psrender/job/Report.h"

#include "psrender/job/Message.h"

#include <array>
#include <cmath>
#include <locale>
#include <sstream>
#include <string_view>

namespace psrender {

namespace {

constexpr std::array<std::string_view, 3> kWays{"embedded", "printer", "outlined"};

std::string_view nameOf(FontWay way) {
    return kWays[static_cast<std::size_t>(way)];
}

/// To a ten-thousandth.
double rounded(double points) {
    return std::round(points * 10'000) / 10'000;
}

std::ostringstream stream() {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(10);
    return out;
}

std::string textOf(const PageFacts& page) {
    std::ostringstream out = stream();
    out << printable(page.input) << ": " << rounded(page.width) << " x " << rounded(page.height)
        << " points\n";
    for (const auto& [name, font] : page.fonts) {
        out << "  font " << printable(name) << ": " << nameOf(font.way);
        for (const std::string& family : font.standsFor)
            out << ", for " << printable(family);
        out << "\n";
    }
    for (const PageFacts::Picture& picture : page.pictures)
        out << "  picture of " << picture.size.width << " x " << picture.size.height
            << " pixels in " << picture.places << (picture.places == 1 ? " place\n" : " places\n");
    for (const Warnings::Kind& kind : page.simplified) {
        Place place = kind.first;
        place.file = page.input;
        out << "  simplified: " << printable(messageAt(place, sentenceOf(kind))) << "\n";
    }
    return out.str();
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : printable(text)) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + "\"";
}

template <class Range, class Write>
void writeArray(std::ostream& out, const Range& range, Write write) {
    out << "[";
    const char* separator = "";
    for (const auto& each : range) {
        out << separator;
        write(each);
        separator = ", ";
    }
    out << "]";
}

std::string jsonOf(const PageFacts& page) {
    std::ostringstream out = stream();
    out << "{\"input\": " << quoted(page.input) << ", \"number\": " << page.number
        << ", \"width\": " << rounded(page.width) << ", \"height\": " << rounded(page.height)
        << ", \"fonts\": ";
    writeArray(out, page.fonts, [&](const auto& font) {
        out << "{\"name\": " << quoted(font.first)
            << ", \"way\": " << quoted(nameOf(font.second.way)) << ", \"for\": ";
        writeArray(out, font.second.standsFor, [&](const auto& family) { out << quoted(family); });
        out << "}";
    });
    out << ", \"pictures\": ";
    writeArray(out, page.pictures, [&](const PageFacts::Picture& picture) {
        out << "{\"width\": " << picture.size.width << ", \"height\": " << picture.size.height
            << ", \"places\": " << picture.places << "}";
    });
    out << ", \"simplified\": ";
    writeArray(out, page.simplified, [&](const Warnings::Kind& kind) {
        out << "{\"sentence\": " << quoted(kind.sentence) << ", \"count\": " << kind.count
            << ", \"element\": " << quoted(kind.first.element) << ", \"line\": " << kind.first.line
            << ", \"column\": " << kind.first.column << "}";
    });
    out << "}";
    return out.str();
}

}  // namespace

std::string reportOf(const std::vector<PageFacts>& pages, ReportForm form) {
    std::string result;
    if (form == ReportForm::text) {
        for (const PageFacts& page : pages)
            result += textOf(page);
        return result;
    }
    for (const PageFacts& page : pages)
        result += (result.empty() ? "[" : ",\n ") + jsonOf(page);
    return result + "]\n";
}

}  // namespace psrender
