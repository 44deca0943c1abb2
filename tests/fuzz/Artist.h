#pragma once

#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/Object3D.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/RasterImage.h"
#include "Drawing/SpotColor.h"
#include "Fonts/FontManager.h"
#include "PS/PSDocument.h"
#include "tests/fuzz/Choices.h"

#include <cmath>
#include <cstdlib>
#include <vector>

using Core::makeObject;
using Core::SmartPtr;
using Core::String;
using Drawing::Brush;
using Drawing::Color;
using Drawing::IOutputContext;
using Drawing::Matrix;

/// Draws what its choices say; what a kind of document has of its own, a subclass adds.
class Artist {
public:
    Artist(Choices& choices, bool tame, bool kerned)
        : choices_(choices), tame_(tame), kerned_(kerned) {}
    Artist(const Artist&) = delete;
    Artist& operator=(const Artist&) = delete;
    virtual ~Artist() = default;

    void drawDocument(Drawing::PS::PSDocument& document) {
        document.startDocument();
        do
            drawWholePage(document);
        while (choices_.left() > 0);
    }

    void drawOnePage(Drawing::PS::PSDocument& document) {
        document.startDocument();
        drawWholePage(document);
    }

protected:
    enum class Place { page, fragment, tile };

    /// Whether recorded drawing may hold everything, even as long as it is tame.
    [[nodiscard]] virtual bool recordsAll() const { return false; }
    /// A call that only this kind of document has.
    virtual void drawOwn(IOutputContext& context, Place /*place*/) {
        if (!tame_)
            misuse(context);
    }
    virtual SmartPtr<Brush> ownBrush() { return makeObject<Drawing::NoneBrush>(); }

    static constexpr std::size_t kMostCalls = 40;
    static constexpr int kMostNesting = 3;

    /// What a call raises is the library's own, and the next one is made all the same.
    template <class Call>
    void attempt(Call&& call) {
        try {
            call();
        } catch (const Core::Exception&) {
            if (tame_)
                throw;
        }
    }

    void drawWholePage(Drawing::PS::PSDocument& document) {
        attempt([&] { document.startPage({size(), size()}); });
        attempt([&] { document.setTransform(matrix()); });
        drawPage(document);
        attempt([&] { document.endPage(); });
    }

    void drawPage(IOutputContext& context) {
        drawShapes(context, Place::page);
        for (std::size_t i = choices_.upTo(3); i-- > 0;)
            attempt([&] { drawFragment(context); });
        drawShapes(context, Place::page);
    }

    void drawShapes(IOutputContext& context, Place place) {
        for (std::size_t i = choices_.upTo(kMostCalls); i-- > 0 && choices_.left() > 0;)
            attempt([&] { drawShape(context, place); });
    }

    void drawShape(IOutputContext& context, Place place) {
        switch (choices_.upTo(10)) {
            case 0:
                return context.setStroke(maybe() ? stroke(context, place) : nullptr);
            case 1:
                return context.setFill(maybe() ? brush(context, place) : nullptr);
            case 2:
                return context.drawLine(coordinate(), coordinate(), coordinate(), coordinate());
            case 3:
                return context.drawRectangle(coordinate(), coordinate(), size(), size(), size(),
                                             size());
            case 4:
                return context.drawEllipse(coordinate(), coordinate(), size(), size());
            case 5:
                return context.drawPath(path());
            case 6:
                return drawText(context, place);
            case 7:
                return drawImage(context, place);
            case 8:
                return drawOwn(context, place);
            default:
                return context.setTransform(matrix());
        }
    }

    /// Recorded with shapes of its own, placed twice.
    void drawFragment(IOutputContext& context) {
        if (nesting_ == kMostNesting)
            return;
        const auto fragment = context.createDocumentFragment(size(), size());
        ++nesting_;
        drawShapes(*fragment, Place::fragment);
        --nesting_;
        for (int times = 0; times < 2; ++times) {
            context.setTransform(matrix());
            context.drawDocumentFragment(fragment);
        }
    }

    /// Kerned text is taken off the stack by its fill, tiles define no fonts, and fragments kern by
    /// procedures that only a kerned document has.
    void drawText(IOutputContext& context, Place place) {
        if (tame_ && !recordsAll() &&
            (place == Place::tile || (place == Place::fragment && !kerned_)))
            return;
        context.setFont(font());
        if (tame_ && !recordsAll()) {
            context.setStroke(nullptr);
            context.setFill(makeObject<Drawing::SolidColorBrush>(rgb()));
        }
        context.drawText(text(), 0, coordinate(), coordinate(), spacing(), false);
    }

    SmartPtr<Drawing::Font> font() {
        static const char16_t* const families[] = {u"Helvetica", u"Times", u"Fuzz TrueType",
                                                   u"Fuzz Type 1", u"Nobody's"};
        const auto slant = static_cast<Drawing::FontSlant>(choices_.upTo(3));
        return makeObject<Drawing::Font>(families[choices_.upTo(tame_ ? 4 : 5)], size(), 400,
                                         slant);
    }

    void drawImage(IOutputContext& context, Place place) {
        using Space = Drawing::ColorSpaceType;
        static constexpr Space kSpaces[] = {Space::gray, Space::rgb, Space::cmyk, Space::oneBit};
        if (tame_ && place == Place::tile && !recordsAll())
            return;
        const auto space = kSpaces[choices_.upTo(tame_ ? 3 : 4)];
        const auto width = static_cast<std::int32_t>(choices_.upTo(5)) + (tame_ ? 1 : 0);
        const auto height = static_cast<std::int32_t>(choices_.upTo(5)) + (tame_ ? 1 : 0);
        const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        const Drawing::ColorSpace components(space);
        context.drawImage(
            makeObject<Drawing::RasterImage>(
                Drawing::PixelSize{width, height}, space,
                bytes(count * static_cast<std::size_t>(components.getComponentCount())),
                maybe() ? bytes(count) : Core::ByteArray()),
            coordinate(), coordinate(), 1, 1, static_cast<int>(choices_.upTo(3)));
    }

    /// What no sound program does.
    void misuse(IOutputContext& context) {
        switch (choices_.upTo(7)) {
            case 0:
                return context.drawDocumentFragment(nullptr);
            case 1:
                return context.drawDocumentFragment(SmartPtr<IOutputContext>(&context));
            case 2:
                return context.draw3DObject(nullptr, 0, 0, 1, 1);
            case 3:
                return context.drawImage(nullptr, 0, 0, 1, 1, 0);
            case 4:
                return context.setFont(nullptr);
            case 5:
                return context.endPage();
            default:
                return context.setFill(makeObject<Drawing::SolidColorBrush>(nullptr));
        }
    }

    SmartPtr<Drawing::Path> path() {
        const auto path = makeObject<Drawing::Path>();
        const float x = coordinate();
        const float y = coordinate();
        path->moveTo(x, y);
        for (std::size_t i = choices_.upTo(12); i-- > 0;) {
            switch (choices_.upTo(tame_ ? 5 : 6)) {
                case 0:
                    path->lineTo(x, coordinate());
                    break;
                case 1:
                    path->lineTo(coordinate(), y);
                    break;
                case 2:
                    path->curveTo(x, y, coordinate(), coordinate(), coordinate(), y);
                    break;
                case 3:
                    path->close();
                    break;
                case 4:
                    path->moveTo(coordinate(), y);
                    break;
                default:
                    path->add({static_cast<Drawing::PathCommandKind>(choices_.byte()), x, y});
            }
        }
        return path;
    }

    SmartPtr<Drawing::Stroke> stroke(IOutputContext& context, Place place) {
        const auto stroke = makeObject<Drawing::Stroke>(brush(context, place), size() / 20);
        stroke->setDashCap(static_cast<Drawing::LineCap>(choices_.upTo(tame_ ? 4 : 6)));
        stroke->setMiterLimit(1 + size());
        Core::Vector<float> dashes(choices_.upTo(4));
        for (float& dash : dashes)
            dash = size();
        stroke->setDashArray(dashes);
        return stroke;
    }

    SmartPtr<Brush> brush(IOutputContext& context, Place place) {
        switch (choices_.upTo(place == Place::tile && tame_ && !recordsAll() ? 2 : 5)) {
            case 0:
                return makeObject<Drawing::SolidColorBrush>(color(), maybe() ? 1.0F : 0.0F);
            case 1:
                return ownBrush();
            case 2:
                return makeObject<Drawing::LinearGradientBrush>(point(), point(), stops(),
                                                                matrix());
            case 3:
                return makeObject<Drawing::RadialGradientBrush>(point(), 1.0F, 1 + size(), stops(),
                                                                matrix());
            default:
                return tile(context, place);
        }
    }

    SmartPtr<Brush> tile(IOutputContext& context, Place place) {
        if (nesting_ == kMostNesting || (tame_ && place != Place::page && !recordsAll()))
            return makeObject<Drawing::NoneBrush>();
        ++nesting_;
        const auto drawn = context.createPatternOutputContext(size(), size());
        drawShapes(*drawn, Place::tile);
        --nesting_;
        return makeObject<Drawing::PatternBrush>(drawn, matrix(), point());
    }

    /// In order and of one kind, which all interpreters show.
    Core::Vector<Drawing::StopPoint> stops() {
        Core::Vector<Drawing::StopPoint> stops(choices_.upTo(4) + (tame_ ? 1 : 0));
        for (std::size_t i = 0; i < stops.size(); ++i) {
            if (tame_)
                stops[i] = {0.1F + 0.2F * static_cast<float>(i), rgb()};
            else
                stops[i] = {choices_.anyFloat(), color()};
        }
        return stops;
    }

    SmartPtr<Color> rgb() {
        return makeObject<Drawing::RGBColor>(choices_.byte(), choices_.byte(), choices_.byte());
    }

    SmartPtr<Color> color() {
        const auto cmyk = [&] {
            const auto ink = [&] { return choices_.byte() / 255.0; };
            return makeObject<Drawing::CMYKColor>(ink(), ink(), ink(), ink());
        };
        switch (choices_.upTo(tame_ ? 4 : 6)) {
            case 0:
                return rgb();
            case 1:
                return makeObject<Drawing::GrayScaleColor>(choices_.byte());
            case 2:
                return cmyk();
            case 3:
                return makeObject<Drawing::SpotColor>(
                    u"Deep Blue", makeObject<Drawing::ColorSubstitute>(nullptr, cmyk()));
            case 4:
                return makeObject<Drawing::SpotColor>(text(), nullptr);
            default:
                return nullptr;
        }
    }

    String text() {
        std::u16string units(choices_.upTo(20), u'\0');
        for (char16_t& unit : units)
            unit = tame_ ? static_cast<char16_t>(u' ' + choices_.upTo(95))
                         : static_cast<char16_t>(choices_.byte() << 8 | choices_.byte());
        return {units};
    }

    Core::ByteArray bytes(std::size_t count) {
        Core::ByteArray bytes(count);
        for (std::size_t i = 0; i < count; ++i)
            bytes[i] = choices_.byte();
        return bytes;
    }

    /// Invertible as long as it is tame.
    Matrix matrix() {
        if (!tame_)
            return {choices_.anyFloat(), choices_.anyFloat(), choices_.anyFloat(),
                    choices_.anyFloat(), choices_.anyFloat(), choices_.anyFloat()};
        const float turn = static_cast<float>(choices_.byte()) / 40;
        const float scale = 0.5F + static_cast<float>(choices_.byte()) / 200;
        return {scale * std::cos(turn), scale * std::sin(turn), -scale * std::sin(turn),
                scale * std::cos(turn), coordinate(),           coordinate()};
    }

    float spacing() { return maybe() ? coordinate() / 50 : 0; }
    [[nodiscard]] Choices& choices() { return choices_; }
    [[nodiscard]] bool isTame() const { return tame_; }
    bool maybe() { return choices_.upTo(2) == 1; }
    Drawing::XPointF point() { return {coordinate(), coordinate()}; }
    float coordinate() {
        return tame_ ? static_cast<float>(choices_.byte() * 3) - 100 : choices_.anyFloat();
    }
    /// Above 0 as long as it is tame.
    float size() {
        return tame_ ? static_cast<float>(choices_.byte()) / 2 + 8 : choices_.anyFloat();
    }

private:
    Choices& choices_;
    bool tame_;
    bool kerned_;
    int nesting_ = 0;
};

/// Fonts of the packages that the tests need; without them the standard ones are drawn alone.
inline bool registerFonts() {
    const auto upright = Drawing::FontSlant::upright;
    try {
        Fonts::FontManager::registerFontFile(
            u"Fuzz TrueType", 400, upright,
            u"/usr/share/fonts/truetype/liberation/LiberationMono-Regular.ttf");
        Fonts::FontManager::registerFontFile(
            u"Fuzz Type 1", 400, upright,
            u"/usr/share/fonts/type1/urw-base35/NimbusMonoPS-Regular.t1");
    } catch (const Core::Exception&) {
        return false;
    }
    return true;
}

/// Leaves the document in the file that the environment names.
inline void keep(std::string_view document) {
    if (const char* name = std::getenv("PSGRAPHICS_FUZZ_OUTPUT")) {
        Core::IO::FileStream file(name, true, true, true);
        file.write(document);
        file.close();
    }
}
