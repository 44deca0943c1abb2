#include "Fonts/FontManager.h"

#include "Fonts/FontException.h"
#include "Fonts/ResourceManagerImpl.h"
#include "tests/Fonts/FontFiles.h"
#include "tests/support/FakeFont.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Drawing::FontSlant;
using FontFiles::describe;
using Fonts::FontException;
using Fonts::FontManager;
using Fonts::FontNotFoundException;

/// Lets only the fonts that the tests name count as installed. The configuration is read once, at
/// the first look at installed fonts.
void useFonts(const std::string& configuration) {
    // No other thread is running yet.
    setenv("FONTCONFIG_FILE", configuration.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
}

class FontManagerTest : public testing::Test {
public:
    static void SetUpTestSuite() { useFonts(PSGRAPHICS_SOURCE_DIR "/tests/Fonts/fonts.conf"); }
};

using FontManagerDeathTest = FontManagerTest;

std::string nameOf(const FontManager::Program& program) {
    return program ? program->getMetrics().postScriptName.toUtf8() : "none";
}

struct Answer {
    const char* family;
    int weight;
    FontSlant slant;
    const char* name;
};

void expectAnswers(const std::vector<Answer>& answers) {
    for (const Answer& answer : answers)
        EXPECT_EQ(
            answer.name,
            nameOf(FontManager::findFont(describe(answer.family, answer.weight, answer.slant))))
            << answer.family << " " << answer.weight;
}

TEST_F(FontManagerTest, AnswersStandardInstalledAndStandInFonts) {
    expectAnswers({
        {"Helvetica", 400, FontSlant::upright, "Helvetica"},
        {"Helvetica", 700, FontSlant::italic, "Helvetica-BoldOblique"},
        {"times", 700, FontSlant::upright, "Times-Bold"},
        {"Times", 599, FontSlant::oblique, "Times-Italic"},
        {"Courier", 600, FontSlant::oblique, "Courier-BoldOblique"},
        {"Times-Roman", 700, FontSlant::upright, "Times-Bold"},
        {"Courier-Oblique", 700, FontSlant::upright, "Courier-Oblique"},
        {"Symbol", 700, FontSlant::italic, "Symbol"},
        {"DejaVu Sans", 400, FontSlant::upright, "DejaVuSans"},
        {"dejavu sans mono", 700, FontSlant::upright, "DejaVuSansMono-Bold"},
        {"Liberation Serif", 700, FontSlant::italic, "LiberationSerif-BoldItalic"},
        {"Nimbus Sans", 400, FontSlant::oblique, "NimbusSans-Italic"},
        {"Arial", 700, FontSlant::upright, "Helvetica-Bold"},
        {"Times New Roman", 400, FontSlant::italic, "Times-Italic"},
        {"Courier New", 400, FontSlant::upright, "Courier"},
        {"sans-serif", 400, FontSlant::upright, "Helvetica"},
        {"serif", 400, FontSlant::upright, "Times-Roman"},
        {"monospace", 400, FontSlant::upright, "Courier"},
        {"Zqxv", 400, FontSlant::upright, "none"},
    });
}

TEST_F(FontManagerTest, SaysWhichFontItDidNotFind) {
    try {
        FontManager::getFont(describe("Zqxv"));
        ADD_FAILURE() << "found";
    } catch (const FontNotFoundException& error) {
        EXPECT_NE(std::string::npos, error.getMessage().find("\"Zqxv\""));
    }
    EXPECT_THROW(FontManager::getFont({}), Core::NullPointerException);
    EXPECT_THROW(FontManager::registerFontFile("X", 400, FontSlant::upright, "/no/such/font.ttf"),
                 FontException);
    EXPECT_THROW(FontManager::registerFont("X", 400, FontSlant::upright, {}),
                 Core::NullPointerException);
}

TEST_F(FontManagerTest, ARegisteredProgramAnswersFirstForItsStyle) {
    const auto bold = FontManager::openFontFile(FontFiles::kLiberationSans);
    EXPECT_EQ("Courier-Bold", nameOf(FontManager::getFont(describe("Courier", 700))));
    FontManager::registerFont("Courier", 700, FontSlant::upright, bold);
    FontManager::registerFontFile("Own Face", 900, FontSlant::upright, FontFiles::kDejaVuSans);
    expectAnswers({{"Courier", 700, FontSlant::upright, "LiberationSans"},
                   {"courier", 600, FontSlant::upright, "LiberationSans"},
                   {"Courier", 400, FontSlant::upright, "Courier"},
                   {"Own Face", 700, FontSlant::upright, "DejaVuSans"},
                   {"Own Face", 400, FontSlant::italic, "DejaVuSans"}});
    FontManager::registerFont("Own Face", 400, FontSlant::upright, bold);
    EXPECT_EQ("LiberationSans", nameOf(FontManager::getFont(describe("Own Face", 300))));
}

TEST_F(FontManagerTest, OpensAFileOnceAndSharesIt) {
    const auto program = FontManager::openFontFile(FontFiles::kDejaVuSans);
    EXPECT_EQ(program, FontManager::openFontFile(FontFiles::kDejaVuSans, 0));
    EXPECT_EQ(program, FontManager::getFont(describe("DejaVu Sans")));
    const Fonts::ResourceManagerImpl resources;
    EXPECT_EQ(program, resources.getFontProgram(describe("DEJAVU SANS")));
    EXPECT_EQ(FontManager::openFontFile(FontFiles::kNimbusRomanBare),
              FontManager::getFont(describe("Nimbus Roman")))
        << "neither the OpenType file, which a document cannot carry, nor the one without kerning";
}

TEST_F(FontManagerTest, TheLatestRegistrationCountsAndTheOthersLetGo) {
    const auto first = Core::makeObject<FakeFont>(Fonts::FontKind::type1, "First");
    const auto second = Core::makeObject<FakeFont>(Fonts::FontKind::type1, "Second");
    const auto bold = Core::makeObject<FakeFont>(Fonts::FontKind::type1, "Bold");
    FontManager::registerFont("Webfont", 400, FontSlant::upright, first);
    FontManager::registerFont("Webfont", 800, FontSlant::upright, bold);
    FontManager::registerFont("Webfont", 600, FontSlant::upright, bold);
    EXPECT_EQ("First", nameOf(FontManager::findFont(describe("Webfont"))));
    FontManager::registerFont("WEBFONT", 400, FontSlant::upright, second);
    EXPECT_EQ(1, first->getReferenceCount());
    expectAnswers({{"Webfont", 400, FontSlant::upright, "Second"},
                   {"Webfont", 700, FontSlant::upright, "Bold"},
                   {"Webfont", 400, FontSlant::italic, "Second"}});
    FontManager::unregisterFont(bold);
    FontManager::unregisterFont(second);
    expectAnswers({{"Webfont", 700, FontSlant::upright, "none"}});
    EXPECT_EQ(1, bold->getReferenceCount());
    EXPECT_EQ(1, second->getReferenceCount());
}

/// How often a file is mapped into memory.
long mappingsOf(const std::string& name) {
    std::ifstream maps("/proc/self/maps");
    long count = 0;
    for (std::string line; std::getline(maps, line);)
        count += line.ends_with(name) ? 1 : 0;
    return count;
}

TEST_F(FontManagerTest, ClosesFilesThatNobodyUses) {
    const std::filesystem::path folder = testing::TempDir() + "psgraphics-many-fonts";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    const auto nameAt = [&](int number) { return folder / (std::to_string(number) + ".ttf"); };
    std::vector<FontManager::Program> held;
    for (int i = 0; i < 300; ++i) {
        std::filesystem::create_symlink(FontFiles::kDejaVuSans, nameAt(i));
        const auto program = FontManager::openFontFile(nameAt(i).string());
        if (i < 5)
            held.push_back(program);
    }
    const long mapped = mappingsOf(FontFiles::kDejaVuSans);
    EXPECT_GT(mapped, 5);
    EXPECT_LT(mapped, 100);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(held.at(static_cast<std::size_t>(i)),
                  FontManager::openFontFile(nameAt(i).string()));
    std::filesystem::remove_all(folder);
}

TEST_F(FontManagerTest, FindsAFontForACharacter) {
    const auto helvetica = describe("Helvetica");
    EXPECT_EQ("Helvetica", nameOf(FontManager::findFontFor(U'A', helvetica)));
    const auto cyrillic = FontManager::findFontFor(U'\u0416', helvetica);
    ASSERT_TRUE(cyrillic);
    EXPECT_TRUE(cyrillic->covers(U'\u0416'));
    EXPECT_TRUE(cyrillic->isEmbeddable());
    EXPECT_FALSE(FontManager::findFontFor(U'\u4e00', helvetica));
    EXPECT_TRUE(FontManager::findFontFor(U'\u2192', describe("Zqxv"))->covers(U'\u2192'));
}

/// In a process of its own, as the configuration is read once.
TEST_F(FontManagerDeathTest, TheStandardFontsNeedNoInstalledFont) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const std::string configuration = testing::TempDir() + "no-fonts.conf";
            std::ofstream(configuration) << "<fontconfig></fontconfig>";
            useFonts(configuration);
            const bool right =
                nameOf(FontManager::findFont(describe("Times"))) == "Times-Roman" &&
                nameOf(FontManager::findFont(describe("DejaVu Sans"))) == "Helvetica" &&
                nameOf(FontManager::findFontFor(U'\u2701', describe("Times"))) == "ZapfDingbats" &&
                nameOf(FontManager::findFontFor(U'\u03b1', describe("Zqxv"))) == "Symbol";
            std::_Exit(right ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(FontManagerTest, ServesSeveralThreadsAtOnce) {
    const auto work = [](std::vector<std::string>& results) {
        for (const char* family : {"DejaVu Serif", "Nimbus Roman", "Times", "Liberation Mono"}) {
            const auto font = FontManager::getFont(describe(family));
            std::string result = FontFiles::namesOf(font, u"AV\u00e9.");
            for (const char16_t* pair : {u"AV", u"To", u"P.", u"AV"})
                result += FontFiles::kerningOf(font, pair) + " ";
            result += FontFiles::outlineOf(*font, FontFiles::glyphsOf(font, u"g")[0]);
            if (const auto trueType = font.dynamicCast<Fonts::TTFFont>())
                result += std::to_string(trueType->subset({36, 37, 38}, 0).size());
            results.push_back(result);
        }
    };
    std::vector<std::vector<std::string>> results(4);
    std::vector<std::thread> threads;
    threads.reserve(results.size());
    for (auto& result : results)
        threads.emplace_back(work, std::ref(result));
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& result : results)
        EXPECT_EQ(results[0], result);
}

}  // namespace
