// Any bytes as drawing calls on a print document, its fragments and tiles in each other, valid or
// not, with settings of any kind. Calls raise exceptions of the library or nothing, and drawing
// goes on after them; a document that ends is whole, and ending it again gives the same bytes.
//
// A first byte that is even allows only calls that make a document which interpreters show. With
// PSGRAPHICS_FUZZ_OUTPUT in the environment the document is left in the file of that name.

#include "Core/MemoryStream.h"
#include "Drawing/ColorFieldBrush.h"
#include "Drawing/TintedImage.h"
#include "Print/PrintDocument.h"
#include "Print/PrintForm.h"
#include "tests/fuzz/Artist.h"

#include <cstdlib>

namespace {

using Drawing::Print::PrintDocument;

class PrintArtist : public Artist {
public:
    using Artist::Artist;

protected:
    [[nodiscard]] bool recordsAll() const override { return true; }

    void drawOwn(IOutputContext& context, Place place) override {
        auto& document = dynamic_cast<PrintDocument&>(context);
        switch (choices().upTo(isTame() ? 7 : 8)) {
            case 0:
                return setClip(document);
            case 1:
                document.setFont(font());
                return document.clipToText(text(), coordinate(), coordinate(), spacing());
            case 2:
                return drawGlyphs(document);
            case 3:
                return document.drawStencil(picture(true), coordinate(), coordinate(), size(),
                                            size(), static_cast<int>(choices().upTo(3)));
            case 4:
                return document.drawImage(picture(false), coordinate(), coordinate(), size(),
                                          size(), static_cast<int>(choices().upTo(3)));
            case 5:
                return drawFragment(context);
            case 6:
                return document.requestPrinting(request());
            default:
                return misusePrint(document, place);
        }
    }

    SmartPtr<Brush> ownBrush() override {
        if (maybe())
            return makeObject<Drawing::NoneBrush>();
        const auto columns = static_cast<std::int32_t>(choices().upTo(4) + 2);
        const auto rows = static_cast<std::int32_t>(choices().upTo(4) + 2);
        return makeObject<Drawing::ColorFieldBrush>(
            point(), Drawing::SizeF{size(), size()}, columns, rows,
            bytes(static_cast<std::size_t>(3 * columns * rows)), matrix(), maybe() ? 1.0F : 0.5F);
    }

private:
    void setClip(PrintDocument& document) {
        Core::Vector<SmartPtr<Drawing::Path>> paths(choices().upTo(3));
        for (auto& one : paths)
            one = path();
        document.setClip(paths);
    }

    /// Glyphs by their numbers, with the text that they show, part of it or none.
    void drawGlyphs(PrintDocument& document) {
        document.setFont(font());
        std::vector<Fonts::FontProgram::GlyphId> glyphs(choices().upTo(12));
        std::vector<Drawing::XPointF> positions(glyphs.size());
        std::vector<String> texts(maybe() ? glyphs.size() : 0);
        float y = coordinate();
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            glyphs[i] =
                static_cast<Fonts::FontProgram::GlyphId>(choices().byte() * (isTame() ? 1 : 300));
            y = maybe() ? y : coordinate();
            positions[i] = {coordinate(), y};
        }
        for (String& one : texts)
            one = maybe() ? text() : String();
        document.drawGlyphs(glyphs, positions, texts);
    }

    SmartPtr<Drawing::Image> picture(bool isStencil) {
        using Space = Drawing::ColorSpaceType;
        const std::int32_t side = static_cast<std::int32_t>(choices().upTo(9)) + 1;
        const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
        if (isStencil && maybe())
            return makeObject<Drawing::RasterImage>(Drawing::PixelSize{side, side}, Space::oneBit,
                                                    bytes(count));
        const auto image = makeObject<Drawing::RasterImage>(
            Drawing::PixelSize{side, side}, Space::rgb, bytes(3 * count),
            isStencil || maybe() ? bytes(count) : Core::ByteArray());
        if (isStencil || maybe())
            return image;
        return makeObject<Drawing::TintedImage>(
            image, std::vector<Drawing::TintedImage::Range>{{0.2, 1}, {0, 0.7}, {1, 0}});
    }

    Drawing::Print::PrintingRequest request() {
        Drawing::Print::PrintingRequest request;
        if (maybe())
            request.duplex = maybe();
        if (maybe())
            request.mediaType = text();
        if (!isTame() && maybe())
            request.copies = choices().byte() - 100;
        return request;
    }

    /// The brush goes again, as it holds the tile that holds it.
    void paintWithItself(PrintDocument& tile) {
        tile.setFill(makeObject<Drawing::PatternBrush>(SmartPtr<IOutputContext>(&tile), Matrix()));
        attempt([&] { tile.drawRectangle(0, 0, 9, 9, 0, 0); });
        tile.setFill(nullptr);
    }

    void misusePrint(PrintDocument& document, Place place) {
        switch (choices().upTo(5)) {
            case 0:
                return document.drawGlyphs(nullptr, size(), {}, {}, {});
            case 1:
                return document.drawStencil(nullptr, 0, 0, 1, 1, 0);
            case 2:
                return document.setClip({nullptr});
            case 3:
                // A tile in its own paint.
                if (place == Place::tile)
                    paintWithItself(document);
                return;
            default:
                return misuse(document);
        }
    }
};

Drawing::Print::PrintSettings settingsOf(Choices& choices) {
    using Space = Drawing::ColorSpaceType;
    static constexpr Space kTargets[] = {Space::gray, Space::rgb, Space::cmyk};
    Drawing::Print::PrintSettings settings;
    settings.kerning = choices.upTo(2) == 1;
    settings.form =
        static_cast<Drawing::Print::FileForm>(choices.upTo(6) < 3 ? 0 : choices.upTo(3));
    if (choices.upTo(2) == 1)
        settings.colors = Drawing::Print::ColorConverter::plain(kTargets[choices.upTo(3)]);
    settings.embedStandardFonts = choices.upTo(2) == 1;
    settings.keepHints = choices.upTo(2) == 1;
    return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    [[maybe_unused]] static const bool registered = registerFonts();
    Choices choices({data, size});
    const bool tame = choices.byte() % 2 == 0;
    const auto output = makeObject<Core::IO::MemoryStream>();
    const auto settings = settingsOf(choices);
    const auto document = makeObject<PrintDocument>(output, settings);
    try {
        PrintArtist artist(choices, tame, settings.kerning);
        if (settings.form == Drawing::Print::FileForm::pages)
            artist.drawDocument(*document);
        else
            artist.drawOnePage(*document);
        document->endDocument();
        const std::string first(output->view());
        if (!first.starts_with("%!PS-Adobe-3.0") || !first.ends_with("%%Trailer\nend\n%%EOF\n"))
            std::abort();
        keep(first);
        document->endDocument();
        if (output->view() != first + first)
            std::abort();
    } catch (const Core::Exception&) {
        if (tame)
            throw;
    }
    return 0;
}
