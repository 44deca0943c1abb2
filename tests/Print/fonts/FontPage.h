#pragma once

#include "Core/MemoryStream.h"
#include "Fonts/FontManager.h"
#include "Print/fonts/internal/PrintFont.h"

#include <memory>
#include <string>

/// A document of one page, written around the definitions of one font.
class FontPage {
public:
    using Program = Core::SmartPtr<Fonts::FontProgram>;

    explicit FontPage(Program program, const Drawing::Print::FontSettings& settings = {},
                      int width = 600, int height = 400);

    /// One glyph a character, as the font maps them.
    FontPage& show(int x, int y, int size, const Core::String& text);
    /// Glyphs as HarfBuzz shapes the text, each where it belongs.
    FontPage& shape(int x, int y, int size, const std::string& utf8);
    /// The next glyph at this place.
    FontPage& glyph(double x, double y, int size, Drawing::Print::GlyphCode code);

    [[nodiscard]] Drawing::Print::PrintFont& font() { return *font_; }
    [[nodiscard]] std::string definitions() const;
    [[nodiscard]] std::string document() const;
    /// What is found in the text of the page once it is a PDF file.
    [[nodiscard]] std::string text() const;
    /// The share of black at 300 dpi.
    [[nodiscard]] double ink() const;

private:
    Program program_;
    std::unique_ptr<Drawing::Print::PrintFont> font_;
    std::string script_;
    int width_;
    int height_;
};

/// The share of black of a page at 300 dpi.
double inkOf(const std::string& document);
