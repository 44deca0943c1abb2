#include "Core/DateTime.h"
#include "Drawing/Object3D.h"
#include "Drawing/ResourceManager.h"
#include "PS/PSDocumentFragment.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace {

using Core::makeObject;
using Core::NullPointerException;
using Core::IO::MemoryStream;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(PSDocument, WritesTextAndLines) {
    EXPECT_EQ("\nab\nc", drawn([](OpenDocument& d) {
                  d.write(d.scriptStream, u"");
                  d.writeLn(d.scriptStream, u"");
                  d.writeLn(d.scriptStream, u"ab");
                  d.write(d.scriptStream, u"c");
                  EXPECT_RAISES(NullPointerException, "SmartPtr:118", d.write(nullptr, u"x"));
                  d.write(nullptr, u"");
              }));
}

TEST(PSDocument, CopiesShareStreamsStateAndRegistries) {
    const auto output = makeObject<MemoryStream>();
    const auto document = makeObject<OpenDocument>(output.get(), false);
    document->startPage({10, 10});
    const auto copy = makeObject<OpenDocument>(*document);
    const auto assigned = makeObject<OpenDocument>(nullptr, true);
    *assigned = *document;
    copy->beginState();
    assigned->endState();
    copy->setFill(nullptr);
    EXPECT_THAT(document->script(), EndsWith("q\nQ\n"));
    EXPECT_FALSE(assigned->graphicsState->hasFill());
    EXPECT_EQ(document->getDocStm(), copy->getDocStm());
    EXPECT_EQ(document->getResourceManager(), assigned->getResourceManager());
    copy->startPage({10, 10});
    EXPECT_EQ(0, document->pageIndex) << "counters are the copy's own";
    EXPECT_EQ(1, copy->pageIndex);
}

TEST(PSDocument, AnswersWhatItIs) {
    const auto context = makeContext();
    EXPECT_EQ(6, static_cast<int>(context->getType()));
    EXPECT_FALSE(context->getResourceManager().isNull());
    EXPECT_EQ(context->getResourceManager(), context->getResourceManager());
    EXPECT_TRUE(context->getDocStm().isNull());
    EXPECT_RAISES(Core::UnreacheableCodeException, "PSDocument:1591",
                  context->draw3DObject(nullptr, 0, 0, 1, 1));
    EXPECT_EQ("", context->script());
}

TEST(PSDocument, OutputMayBeChosenLate) {
    const auto late = makeObject<MemoryStream>();
    const auto document = makeObject<OpenDocument>(nullptr, false);
    document->startPage({10, 10});
    EXPECT_RAISES(NullPointerException, "SmartPtr:118", document->endDocument());
    document->setOutputStream(late);
    document->endDocument();
    EXPECT_THAT(std::string(late->view()), EndsWith("null\n>> setpagedevice\n%%Trailer\n%%EOF\n"));
}

TEST(PSDocument, WholeFileWithAndWithoutKerning) {
    for (const bool kerning : {false, true}) {
        const std::string document = finished(
            [](OpenDocument& d) {
                d.startDocument();
                d.startPage({595.3F, 841.9F});
                d.endPage();
            },
            kerning);
        expectApproved(kerning ? "empty-page-kerned.ps" : "empty-page.ps", document);
        const Interpretation seen = interpret(document);
        EXPECT_EQ("", seen.messages);
        ASSERT_EQ(1U, seen.pages.size());
        EXPECT_EQ(595, seen.pages[0].width);
        EXPECT_EQ(842, seen.pages[0].height);
    }
}

std::string textOf(const Core::DateTime& date) {
    return std::to_string(date.getDay()) + "/" + std::to_string(date.getMonth()) + "/" +
           std::to_string(date.getYear());
}

TEST(PSDocument, HeaderTellsDateCountAndLastSize) {
    const std::string document = finished([](OpenDocument& d) {
        d.startPage({612.9F, 100});
        d.startPage({50.99F, 1e20F});
    });
    EXPECT_THAT(document, HasSubstr("%%DocumentMedia: plain 50 2147483647 0 () ()\n"
                                    "%%BoundingBox: 0 0 50 2147483647\n%%Pages:2\n"
                                    "%%CreationDate:" +
                                    textOf(Core::DateTime::getCurrentGMTTime()) + "\n"));
}

/// Sets an environment variable for as long as it lives.
class Environment {
public:
    Environment(const char* name, const char* value) : name_(name) {
        // The tests run in one thread.
        ::setenv(name_, value, 1);  // NOLINT(concurrency-mt-unsafe)
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { ::unsetenv(name_); }  // NOLINT(concurrency-mt-unsafe)

private:
    const char* name_;
};

TEST(PSDocument, TheDateMayBeSetFromOutside) {
    const std::string today = textOf(Core::DateTime::getCurrentGMTTime());
    const auto dateAt = [](const char* seconds) {
        const Environment environment("SOURCE_DATE_EPOCH", seconds);
        const std::string document = finished([](OpenDocument& d) { d.startPage({1, 1}); });
        const std::size_t begin = document.find("%%CreationDate:") + 15;
        return document.substr(begin, document.find('\n', begin) - begin);
    };
    EXPECT_EQ("1/1/1970", dateAt("0"));
    EXPECT_EQ("31/1/2001", dateAt("980985599"));
    EXPECT_EQ("31/12/9999", dateAt("253402300799"));
    for (const char* invalid :
         {"", "soon", "12 ", "-1", "1.5", "253402300800", "99999999999999999999"})
        EXPECT_EQ(today, dateAt(invalid)) << invalid;
}

TEST(PSDocument, EndingWithoutAPageStopsAfterFourLines) {
    const auto output = makeObject<MemoryStream>();
    const auto document = makeObject<OpenDocument>(output.get(), false);
    EXPECT_RAISES(NullPointerException, "SmartPtr:118", document->endDocument());
    EXPECT_THAT(std::string(output->view()), testing::AllOf(StartsWith("%!PS-Adobe-3.0\n%%Title: "),
                                                            EndsWith("%%LanguageLevel: 2\n")));
}

TEST(PSDocument, ContextThatWasNeverPagedHasNoPages) {
    const auto context = makeContext();
    const auto output = makeObject<MemoryStream>();
    context->setOutputStream(output);
    context->beginState();
    context->endDocument();
    EXPECT_THAT(std::string(output->view()), HasSubstr("plain 100 200 0 () ()"));
    EXPECT_THAT(std::string(output->view()), HasSubstr("%%Pages:0\n"));
    EXPECT_THAT(std::string(output->view()), EndsWith("%%BeginSetup\n\nq\n%%Trailer\n%%EOF\n"));
}

TEST(PSDocument, EndingTwiceWritesTwoFiles) {
    const auto output = makeObject<MemoryStream>();
    const auto document = makeObject<OpenDocument>(output.get(), false);
    document->startPage({100, 100});
    for (int i = 0; i < 500; ++i)
        document->drawLine(0, 0, 1, static_cast<float>(i));
    document->endPage();
    document->endDocument();
    const std::string first(output->view());
    EXPECT_EQ(500, std::ranges::count(first, 'w') -
                       std::ranges::count(first.substr(0, first.find("%%Page:")), 'w'));
    document->endDocument();
    EXPECT_EQ(first + first, output->view());
}

}  // namespace
