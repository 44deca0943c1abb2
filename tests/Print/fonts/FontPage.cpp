#include "tests/Print/fonts/FontPage.h"

#include "Print/fonts/internal/ClusterTexts.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <hb.h>

#include <algorithm>
#include <iomanip>
#include <locale>
#include <sstream>
#include <utility>

namespace {

using Drawing::Print::GlyphCode;

std::string hexadecimal(GlyphCode code) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << '<' << std::hex << std::setw(2) << std::setfill('0') << int{code.code} << '>';
    return out.str();
}

using Characters = std::vector<char32_t>;

/// The character behind the cluster that begins at `begin`.
std::uint32_t clusterEnd(const Characters& text, std::uint32_t begin,
                         const std::vector<std::uint32_t>& clusters) {
    auto end = static_cast<std::uint32_t>(text.size());
    for (const std::uint32_t cluster : clusters)
        if (cluster > begin)
            end = std::min(end, cluster);
    return end;
}

std::vector<char32_t> charactersOf(const std::string& utf8) {
    hb_buffer_t* buffer = hb_buffer_create();
    hb_buffer_add_utf8(buffer, utf8.data(), static_cast<int>(utf8.size()), 0, -1);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    std::vector<char32_t> characters;
    for (unsigned i = 0; i < count; ++i)
        characters.push_back(infos[i].codepoint);
    hb_buffer_destroy(buffer);
    return characters;
}

}  // namespace

FontPage::FontPage(Program program, const Drawing::Print::FontSettings& settings, int width,
                   int height)
    : program_(std::move(program)),
      font_(Drawing::Print::PrintFont::make(program_, 7, settings)),
      width_(width),
      height_(height) {
    if (!font_)
        throw std::runtime_error("the font has no form in a document");
}

FontPage& FontPage::glyph(double x, double y, int size, GlyphCode code) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "/" << font_->partName(code.part) << " " << size << " selectfont " << x << " " << y
        << " moveto " << hexadecimal(code) << " show\n";
    script_ += out.str();
    return *this;
}

FontPage& FontPage::show(int x, int y, int size, const Core::String& text) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << x << " " << y << " moveto\n";
    const auto glyphs = program_->mapGlyphs({text, 0});
    const auto characters = charactersOf(text.toUtf8());
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const GlyphCode code = font_->encode(glyphs[i], characters[i]);
        out << "/" << font_->partName(code.part) << " " << size << " selectfont "
            << hexadecimal(code) << " show\n";
    }
    script_ += out.str();
    return *this;
}

FontPage& FontPage::shape(int x, int y, int size, const std::string& utf8) {
    const auto file = program_->getFile().value();
    hb_blob_t* blob = hb_blob_create(reinterpret_cast<const char*>(file.bytes.data()),
                                     static_cast<unsigned>(file.bytes.size()),
                                     HB_MEMORY_MODE_READONLY, nullptr, nullptr);
    hb_face_t* face = hb_face_create(blob, file.faceIndex);
    hb_font_t* font = hb_font_create(face);
    const std::vector<char32_t> text = charactersOf(utf8);
    hb_buffer_t* buffer = hb_buffer_create();
    hb_buffer_add_utf32(buffer, reinterpret_cast<const std::uint32_t*>(text.data()),
                        static_cast<int>(text.size()), 0, -1);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font, buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer, &count);
    std::vector<std::uint32_t> clusters;
    std::vector<float> advances;
    for (unsigned i = 0; i < count; ++i) {
        clusters.push_back(infos[i].cluster);
        advances.push_back(static_cast<float>(places[i].x_advance));
    }
    const double unit = static_cast<double>(size) / hb_face_get_upem(face);
    double pen = x;
    for (unsigned first = 0, last = 0; first < count; first = last) {
        while (last < count && clusters[last] == clusters[first])
            ++last;
        const std::u32string cluster(text.begin() + clusters[first],
                                     text.begin() + clusterEnd(text, clusters[first], clusters));
        const auto texts =
            Drawing::Print::shareOut(cluster, std::span(advances).subspan(first, last - first));
        for (unsigned i = first; i < last; ++i) {
            glyph(pen + places[i].x_offset * unit, y + places[i].y_offset * unit, size,
                  font_->encode(infos[i].codepoint, texts[i - first]));
            pen += places[i].x_advance * unit;
        }
    }
    hb_buffer_destroy(buffer);
    hb_font_destroy(font);
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    return *this;
}

std::string FontPage::definitions() const {
    Core::IO::MemoryStream stream;
    font_->writeDefinitions(stream);
    return std::string(stream.view());
}

std::string FontPage::document() const {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 " << width_ << " " << height_ << "\n<</PageSize["
        << width_ << " " << height_ << "]>>setpagedevice\n"
        << definitions() << script_ << "showpage\n";
    return out.str();
}

std::string FontPage::text() const {
    return outputOf("pdf=$(mktemp) && ps2pdf - $pdf && pdftotext -layout $pdf - && rm $pdf",
                    document());
}

double FontPage::ink() const {
    return inkOf(document());
}

double inkOf(const std::string& document) {
    const Interpretation result = interpret(document, 300);
    EXPECT_EQ("", result.messages);
    if (result.pages.size() != 1)
        return -1;
    const auto& bytes = result.pages.front().bytes;
    return static_cast<double>(std::ranges::count(bytes, std::uint8_t{0})) /
           static_cast<double>(bytes.size());
}
