#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

struct Example {
    const char* name;
    std::size_t pages;
    const char* text;       ///< found on a page of the print document
    double mostDifference;  ///< between the two documents: share of pixels that are far apart
};

/// The chart's dashes are twice as long in one of them.
constexpr Example kExamples[] = {
    {"report", 2, "Orchard Trees Tonnes Yield per tree", 0.002},
    {"chart", 1, "The lake through the year", 0.03},
    {"forms", 1, "a tile of dots", 0.01},
};

std::string contentOf(const std::filesystem::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

double differenceOf(const Picture& a, const Picture& b) {
    constexpr int kFar = 40;
    std::size_t far = 0;
    for (std::size_t i = 0; i < std::min(a.bytes.size(), b.bytes.size()); ++i)
        if (std::abs(int{a.bytes[i]} - int{b.bytes[i]}) > kFar)
            ++far;
    return static_cast<double>(far) / static_cast<double>(a.bytes.size());
}

TEST(Examples, BothKindsOfDocumentShowTheSame) {
    const auto folder = std::filesystem::current_path() / "examples-output";
    std::filesystem::create_directories(folder);
    for (const Example& example : kExamples) {
        SCOPED_TRACE(example.name);
        const std::string name = example.name;
        const std::string program = std::string(EXAMPLES_FOLDER) + "/example-" + name;
        ASSERT_EQ(0, std::system(("'" + program + "' '" + folder.string() + "'").c_str()));
        const std::string printed = contentOf(folder / (name + "-print.ps"));
        const Interpretation print = interpret(printed);
        const Interpretation ps = interpret(contentOf(folder / (name + "-ps.ps")));
        EXPECT_EQ("", print.messages);
        EXPECT_EQ("", ps.messages);
        ASSERT_EQ(example.pages, print.pages.size());
        ASSERT_EQ(example.pages, ps.pages.size());
        for (std::size_t page = 0; page < example.pages; ++page)
            EXPECT_LT(differenceOf(print.pages[page], ps.pages[page]), example.mostDifference);
        const std::string words =
            outputOf("ps2pdf - - | pdftotext -layout - - | tr -s ' \\n' ' '", printed);
        EXPECT_NE(std::string::npos, words.find(example.text)) << words;
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
