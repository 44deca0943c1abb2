#include "tests/support/Documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

using Core::makeObject;
using Core::SmartPtr;

std::string OpenDocument::script() const {
    Core::ByteArray bytes(static_cast<std::size_t>(scriptStream->length()));
    scriptStream->seek(0, Core::IO::SeekOrigin::begin);
    std::size_t done = 0;
    while (const std::size_t count = scriptStream->read(bytes, done, bytes.size() - done))
        done += count;
    return std::string(bytes.view());
}

SmartPtr<OpenDocument> makeContext() {
    return makeObject<OpenDocument>(makeObject<Core::IO::MemoryStream>().get(),
                                    Drawing::SizeF{100, 200}, false);
}

std::string drawn(const std::function<void(OpenDocument&)>& draw) {
    const auto context = makeContext();
    draw(*context);
    return context->script();
}

std::string finished(const std::function<void(OpenDocument&)>& draw, bool kerning) {
    const auto output = makeObject<Core::IO::MemoryStream>();
    const auto document = makeObject<OpenDocument>(output.get(), kerning);
    draw(*document);
    document->endDocument();
    return std::string(output->view());
}

std::string normalised(std::string document) {
    document = std::regex_replace(document, std::regex(R"(%%CreationDate:\d+/\d+/\d+)"),
                                  "%%CreationDate:D/M/Y");
    const std::regex numbered(R"(\b(shader_|docf_|pattern_|F)(\d+)\b)");
    std::map<std::string, std::map<std::string, std::size_t>> seen;
    std::string result;
    auto rest = document.cbegin();
    for (std::sregex_iterator hit(document.cbegin(), document.cend(), numbered), end; hit != end;
         ++hit) {
        auto& numbers = seen[(*hit)[1]];
        const std::size_t number = numbers.try_emplace((*hit)[2], numbers.size() + 1).first->second;
        result.append(rest, (*hit)[0].first).append((*hit)[1]).append(std::to_string(number));
        rest = (*hit)[0].second;
    }
    return result.append(rest, document.cend());
}

void expectApproved(const std::string& name, const std::string& document) {
    const std::string path = PSGRAPHICS_SOURCE_DIR "/tests/approved/" + name;
    const std::string actual = normalised(document);
    if (std::getenv("PSGRAPHICS_APPROVE"))
        std::ofstream(path, std::ios::binary) << actual;
    std::ifstream in(path, std::ios::binary);
    const std::string approved(std::istreambuf_iterator<char>(in), {});
    EXPECT_EQ(approved, actual) << "if the new document is right, run the tests once with "
                                   "PSGRAPHICS_APPROVE=1";
}

SmartPtr<Drawing::Brush> rgb(int red, int green, int blue, float opacity) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::RGBColor>(byte(red), byte(green), byte(blue)), opacity);
}

SmartPtr<Drawing::Stroke> line(const SmartPtr<Drawing::Brush>& brush, float width) {
    return makeObject<Drawing::Stroke>(brush, width);
}
