#include "Drawing/PatternBrush.h"
#include "Drawing/RasterImage.h"
#include "Fonts/FontManager.h"
#include "tests/support/Documents.h"
#include "tests/support/FakeFont.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace {

using Core::makeObject;
using Core::SmartPtr;

/// What documents in several threads may have in common: objects that do not change, and a
/// document that nobody draws on meanwhile.
struct Shared {
    SmartPtr<Drawing::Font> font = makeObject<Drawing::Font>(u"Threads", 12.0F);
    SmartPtr<Drawing::Font> standard = makeObject<Drawing::Font>(u"Helvetica", 12.0F);
    SmartPtr<Drawing::Brush> red = rgb(255, 0, 0);
    SmartPtr<Drawing::Stroke> thick = line(red, 5);
    SmartPtr<Drawing::Image> image =
        makeObject<Drawing::RasterImage>(Drawing::PixelSize{4, 4}, Drawing::ColorSpaceType::gray,
                                         Core::ByteArray(16), Core::ByteArray(16));
    SmartPtr<OpenDocument> idle = makeContext();
};

std::string drawnWith(const Shared& shared) {
    return normalised(finished(
        [&](OpenDocument& d) {
            const auto fragment = d.createDocumentFragment(9, 9);
            fragment->drawImage(shared.image, 0, 0, 1, 1, 0);
            for (int page = 0; page < 20; ++page) {
                d.startPage({100, 100});
                const auto copy = makeObject<OpenDocument>(*shared.idle);
                d.setStroke(shared.thick);
                d.setFill(shared.red);
                d.drawRectangle(1, 2, 3, 4, 1, 1);
                d.drawDocumentFragment(fragment);
                for (const auto& font : {shared.font, shared.standard}) {
                    d.setFont(font);
                    d.drawText(u"AVAT", 0, 5, 5, 0, false);
                }
                d.drawImage(shared.image, 0, 0, 1, 1, 0);
                d.endPage();
            }
        },
        true));
}

TEST(Threads, DocumentsShareFontsImagesAndWhatTheyWereCopiedFrom) {
    Fonts::FontManager::registerFont(u"Threads", 400, Drawing::FontSlant::upright,
                                     makeObject<FakeFont>(Fonts::FontKind::type1));
    const Shared shared;
    const std::string expected = drawnWith(shared);
    std::array<std::string, 3> documents;
    std::vector<std::thread> threads;
    for (std::string& document : documents)
        threads.emplace_back([&] { document = drawnWith(shared); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& document : documents)
        EXPECT_EQ(expected, document);
    EXPECT_EQ(1, shared.image->getReferenceCount()) << "finished documents let go";
    EXPECT_EQ(1, shared.font->getReferenceCount());
}

}  // namespace
