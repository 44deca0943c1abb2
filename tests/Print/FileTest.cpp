#include "tests/Print/PrintedDocument.h"

#include "Core/Log.h"
#include "Core/MemoryStream.h"
#include "Drawing/Font.h"
#include "Drawing/RasterImage.h"
#include "Print/PrintException.h"
#include "Print/PrintForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using Core::makeObject;
using Drawing::Print::FileForm;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintException;
using Drawing::Print::PrintSettings;
using testing::HasSubstr;
using testing::Not;

namespace {

void drawPage(PrintDocument& document, Drawing::SizeF size, const char* word) {
    document.startPage(size);
    document.setStroke(nullptr);
    document.setFill(paintOf(0, 0, 0));
    document.setFont(makeObject<Drawing::Font>(u"DejaVu Sans", 12.0F));
    document.drawText(word, 0, 10, 50, 0, false);
    document.endPage();
}

std::string threePages() {
    return printed([](PrintDocument& document) {
        drawPage(document, {200, 100}, "first");
        drawPage(document, {100, 200.5F}, "second");
        drawPage(document, {100, 200.5F}, "third");
    });
}

PrintSettings formOf(FileForm form) {
    PrintSettings settings;
    settings.form = form;
    return settings;
}

}  // namespace

TEST(PrintFile, namesItsPartsForEverySpooler) {
    const std::string document = threePages();
    EXPECT_THAT(document, testing::StartsWith("%!PS-Adobe-3.0\n%%Creator: PSGraphics\n"));
    EXPECT_THAT(document, HasSubstr("%%LanguageLevel: 3\n"));
    EXPECT_THAT(document,
                HasSubstr("%%BoundingBox: 0 0 200 201\n%%HiResBoundingBox: 0 0 200 200.5\n"
                          "%%Pages: 3\n"));
    EXPECT_THAT(document, HasSubstr("font F1_0\n"));
    EXPECT_THAT(document, HasSubstr("%%Page: 2 2\n%%PageBoundingBox: 0 0 100 201\n"));
    EXPECT_THAT(document, testing::EndsWith("%%Trailer\nend\n%%EOF\n"));
    EXPECT_THAT(document, Not(HasSubstr("Duplex")));
    for (const char character : document)
        ASSERT_TRUE(character == '\n' || (character >= ' ' && character <= '~'));
}

TEST(PrintFile, givesPagesThatStandByThemselves) {
    const std::string document = threePages();
    EXPECT_EQ(interpret(document).pages.size(), 3U);
    for (const auto& [pages, words] : {std::pair{"2", "second"}, {"3,1", "third"}}) {
        const std::string chosen =
            outputOf("psselect -q -p" + std::string(pages) + " 2>/dev/null", document);
        const Interpretation result = interpret(chosen);
        ASSERT_FALSE(result.pages.empty()) << result.messages;
        EXPECT_EQ(result.pages[0].width, 100);
        EXPECT_EQ(result.pages[0].height, 201);
        EXPECT_THAT(wordsOf(chosen), HasSubstr(words));
    }
    const std::string booklet = outputOf("psnup -q -2 -pa4 2>/dev/null", document);
    EXPECT_EQ(interpret(booklet).pages.size(), 2U);
    EXPECT_THAT(wordsOf(outputOf("gs -q -sDEVICE=ps2write -o - -", document)), HasSubstr("second"));
}

TEST(PrintFile, tellsWhatItIsWithoutBelievingWhatItIsTold) {
    const std::string document = printed([](PrintDocument& target) {
        target.setProperty(u"title", u"Grüße)\n%%EOF (x\\");
        target.setProperty(u"Author", u"Ann");
        target.setProperty(u"no such property", u"x");
        drawPage(target, {100, 100}, "word");
    });
    EXPECT_THAT(document, HasSubstr("%%Title: Gr??e)?%%EOF (x\\\n%%For: Ann\n"));
    EXPECT_EQ(interpret(document).messages, "");
    const std::string facts = outputOf("ps2pdf - - | pdfinfo -", document);
    EXPECT_THAT(facts, HasSubstr("Grüße)"));
    EXPECT_THAT(facts, HasSubstr("Ann"));
}

TEST(PrintFile, asksThePrinterForWhatWasAskedFor) {
    Drawing::Print::PrintingRequest request;
    request.duplex = true;
    request.duplexEdge = Drawing::Print::DuplexEdge::shortEdge;
    request.mediaColor = u"light (blue)";
    const std::string document = printed([&](PrintDocument& target) {
        target.requestPrinting(request);
        drawPage(target, {100, 100}, "a");
        Drawing::Print::PrintingRequest next;
        next.mediaPosition = 2;
        target.requestPrinting(next);
        drawPage(target, {100, 100}, "b");
    });
    EXPECT_THAT(document, HasSubstr("<</Duplex true\n/Tumble true\n/MediaColor(light \\(blue\\))\n"
                                    ">>rq\n"));
    EXPECT_THAT(document.substr(document.find("%%Page: 2")), HasSubstr("<</MediaPosition 2\n>>rq"));
    EXPECT_EQ(interpret(document).pages.size(), 2U);
    request.copies = 0;
    EXPECT_THROW(printed([&](PrintDocument& target) { target.requestPrinting(request); }),
                 PrintException);
}

TEST(PrintFile, encapsulatesOnePageTightly) {
    const Draw draw = [](PrintDocument& document) {
        document.setStroke(lineOf(2));
        document.drawRectangle(20, 30, 40, 10, 0, 0);
        document.setStroke(nullptr);
        document.setFill(paintOf(255, 0, 0));
        document.setClip({polygon({{0, 0}, {100, 0}, {100, 50}, {0, 50}})});
        document.drawEllipse(50, 50, 10, 25);
    };
    const std::string tight = onePage(draw, formOf(FileForm::epsInk));
    EXPECT_THAT(tight, testing::StartsWith("%!PS-Adobe-3.0 EPSF-3.0\n"));
    EXPECT_THAT(tight, HasSubstr("%%BoundingBox: 19 50 61 75\n"));
    EXPECT_THAT(tight.substr(tight.find("%%EndProlog")), Not(HasSubstr(" ps\n")));
    EXPECT_THAT(onePage(draw, formOf(FileForm::epsSheet)),
                HasSubstr("%%BoundingBox: 0 0 100 100\n"));
    const Interpretation cropped = interpret(tight, 72, "-dEPSCrop");
    ASSERT_EQ(cropped.pages.size(), 1U) << cropped.messages;
    EXPECT_EQ(cropped.pages[0].width, 42);
    EXPECT_EQ(cropped.pages[0].height, 25);
    const std::string wrapped =
        "%!PS\n1 0 0 setrgbcolor 5 setlinewidth 0 0 20 20 rectfill\n/saved save def\n"
        "/showpage{}def 0 setgray [3] 0 setdash 10 20 translate\n" +
        tight + "\nsaved restore\n0 0 1 setrgbcolor 80 0 20 20 rectfill showpage\n";
    const Interpretation around = interpret(wrapped, 72,
                                            "-dDEVICEWIDTHPOINTS=100 "
                                            "-dDEVICEHEIGHTPOINTS=130");
    ASSERT_EQ(around.pages.size(), 1U) << around.messages;
    EXPECT_EQ(around.pages[0].at(10, 120), (Picture::Pixel{255, 0, 0}));
    EXPECT_EQ(around.pages[0].at(90, 120), (Picture::Pixel{0, 0, 255}));
    EXPECT_EQ(around.pages[0].at(60, 110 - 51), (Picture::Pixel{255, 0, 0})) << "the ellipse";
}

TEST(PrintFile, measuresMitresCurvesAndText) {
    const auto boundsOf = [](const Draw& draw) {
        const std::string document = onePage(draw, formOf(FileForm::epsInk));
        const std::size_t at = document.find("%%BoundingBox: ") + 15;
        return document.substr(at, document.find('\n', at) - at);
    };
    const auto tip = makeObject<Drawing::Path>();
    tip->moveTo(20, 80);
    tip->lineTo(50, 20);
    tip->lineTo(80, 80);
    EXPECT_EQ(boundsOf([&](PrintDocument& document) {
                  document.setStroke(lineOf(4));
                  document.drawPath(tip);
              }),
              "18 18 82 85")
        << "the mitre stands out above";
    const auto arch = makeObject<Drawing::Path>();
    arch->moveTo(20, 60);
    arch->curveTo(20, 20, 80, 20, 80, 60);
    EXPECT_EQ(boundsOf([&](PrintDocument& document) {
                  document.setFill(paintOf(0, 0, 0));
                  document.drawPath(arch);
              }),
              "20 40 80 70")
        << "the arch, not its controls";
    const std::string text = onePage(
        [](PrintDocument& document) {
            document.setFill(paintOf(0, 0, 0));
            document.setFont(makeObject<Drawing::Font>(u"DejaVu Sans", 40.0F));
            document.drawText(u"gb", 0, 20, 60, 0, false);
        },
        formOf(FileForm::epsInk));
    const Interpretation result = interpret(text, 72, "-dEPSCrop");
    ASSERT_EQ(result.pages.size(), 1U);
    const Picture& page = result.pages[0];
    for (const int x : {0, page.width - 1}) {
        int inked = 0;
        for (int y = 0; y < page.height; ++y)
            inked += page.at(x, y) == kWhite ? 0 : 1;
        EXPECT_GT(inked, 0) << "column " << x << " of " << page.width;
    }
}

TEST(PrintFile, refusesWhatMakesNoFile) {
    const auto output = makeObject<Core::IO::MemoryStream>();
    const auto document = makeObject<PrintDocument>(output, formOf(FileForm::epsInk));
    EXPECT_THROW(document->endDocument(), PrintException) << "no page";
    EXPECT_THROW(document->drawRectangle(0, 0, 1, 1, 0, 0), PrintException) << "before a page";
    EXPECT_THROW(document->startPage({0, 10}), PrintException);
    document->startPage({10, 10});
    EXPECT_THROW(document->endDocument(), PrintException) << "within a page";
    document->endPage();
    EXPECT_THROW(document->endPage(), PrintException);
    EXPECT_THROW(document->startPage({10, 10}), PrintException) << "a second page";
    EXPECT_EQ(output->length(), 0);
    document->setOutputStream(nullptr);
    EXPECT_THROW(document->endDocument(), PrintException);
}

TEST(PrintFile, isMissedWhenTheDocumentIsNotEnded) {
    std::vector<std::string> warnings;
    auto before =
        Core::Log::setSink([&](const Core::String& text) { warnings.push_back(text.toUtf8()); });
    const auto letGo = [&](bool isEnded) {
        const auto document =
            makeObject<PrintDocument>(makeObject<Core::IO::MemoryStream>(), PrintSettings{});
        const PrintDocument copy = *document;
        drawPage(*document, {100, 100}, "word");
        if (isEnded)
            document->endDocument();
    };
    letGo(true);
    EXPECT_THAT(warnings, testing::IsEmpty());
    letGo(false);
    EXPECT_THAT(warnings, testing::ElementsAre(HasSubstr("without endDocument")));
    EXPECT_THROW(
        {
            PrintDocument given(makeObject<Core::IO::MemoryStream>(), PrintSettings{});
            drawPage(given, {100, 100}, "word");
            throw PrintException("given up");
        },
        PrintException);
    EXPECT_EQ(1U, warnings.size());
    Core::Log::setSink(std::move(before));
}

TEST(PrintFile, isWrittenAgainFromCopiesAndMissedIfNever) {
    std::vector<std::string> warnings;
    const auto before =
        Core::Log::setSink([&](const Core::String& text) { warnings.push_back(text.toUtf8()); });
    {
        const auto output = makeObject<Core::IO::MemoryStream>();
        const auto document = makeObject<PrintDocument>(output, PrintSettings());
        const auto copy = makeObject<PrintDocument>(*document);
        const auto image = makeObject<Drawing::RasterImage>(
            Drawing::PixelSize{1, 1}, Drawing::ColorSpaceType::gray, Core::ByteArray(1));
        for (PrintDocument* each : {document.get(), copy.get()}) {
            each->startPage({10, 10});
            each->drawImage(image, 0, 0, 5, 5, 0);
            each->endPage();
        }
        document->endDocument();
        const std::string first(output->view());
        EXPECT_THAT(first, HasSubstr("%%Page: 2 2"));
        copy->endDocument();
        EXPECT_EQ(output->view(), first + first);
    }
    EXPECT_TRUE(warnings.empty());
    {
        const auto lost = makeObject<PrintDocument>(nullptr, PrintSettings());
        lost->startPage({10, 10});
        const auto copy = makeObject<PrintDocument>(*lost);
    }
    Core::Log::setSink(before);
    EXPECT_EQ(warnings.size(), 1U) << "for the document and its copy together";
}
