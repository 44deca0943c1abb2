#include "tests/Print/PrintedDocument.h"

#include "Core/MemoryStream.h"

#include <gtest/gtest.h>

using Core::makeObject;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintSettings;

std::string printed(const Draw& draw, const PrintSettings& settings) {
    const auto output = makeObject<Core::IO::MemoryStream>();
    const auto document = makeObject<PrintDocument>(output, settings);
    document->startDocument();
    draw(*document);
    document->endDocument();
    return std::string(output->view());
}

std::string onePage(const Draw& draw, const PrintSettings& settings) {
    return printed(
        [&](PrintDocument& document) {
            document.startPage({100, 100});
            document.setFill(nullptr);
            document.setStroke(nullptr);
            draw(document);
            document.endPage();
        },
        settings);
}

std::string contentOf(const Draw& draw, const PrintSettings& settings) {
    const std::string document = onePage(draw, settings);
    const std::string before = "%%EndPageSetup\n";
    const std::size_t begin = document.find(before) + before.size();
    return document.substr(begin, document.find("ep\n%%PageTrailer") - begin);
}

Picture shownPage(const std::string& document) {
    const Interpretation result = interpret(document);
    EXPECT_EQ(result.messages, "");
    EXPECT_EQ(result.pages.size(), 1U);
    return result.pages.empty() ? Picture() : result.pages.front();
}

Picture shown(const Draw& draw, const PrintSettings& settings) {
    return shownPage(onePage(draw, settings));
}

std::string wordsOf(const std::string& document) {
    return outputOf("ps2pdf - - | pdftotext -layout - -", document);
}

Core::SmartPtr<Drawing::Brush> paintOf(int red, int green, int blue, float opacity) {
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::RGBColor>(static_cast<std::uint8_t>(red),
                                      static_cast<std::uint8_t>(green),
                                      static_cast<std::uint8_t>(blue)),
        opacity);
}

Core::SmartPtr<Drawing::Stroke> lineOf(float width) {
    return makeObject<Drawing::Stroke>(paintOf(0, 0, 0), width);
}

Core::SmartPtr<Drawing::Path> polygon(std::initializer_list<Drawing::XPointF> corners) {
    auto path = makeObject<Drawing::Path>();
    for (const Drawing::XPointF& corner : corners) {
        if (path->getCommandCount() == 0)
            path->moveTo(corner.x, corner.y);
        else
            path->lineTo(corner.x, corner.y);
    }
    path->close();
    return path;
}
