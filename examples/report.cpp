// A report of several pages: a letterhead that is recorded once, text that is broken into lines, a
// table that goes on from page to page, page numbers.

#include "Drawing/RasterImage.h"
#include "Fonts/FontManager.h"
#include "Fonts/TextMetrics.h"
#include "examples/Example.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

using namespace example;

namespace {

constexpr float kMargin = 64;
constexpr float kRight = kA4.width - kMargin;
constexpr float kFoot = kA4.height - 70;
constexpr std::uint32_t kInk = 0x263238;
constexpr std::uint32_t kGreen = 0x2E7D32;
constexpr std::uint32_t kPale = 0xEDF4EC;

constexpr const char* kSummary =
    "The season began three weeks late, after a cold and wet April, and made up for it with a long "
    "and dry autumn. All but four of the orchards picked more than in the year before. The old "
    "trees along the river gave the most, as ever; the young ones on the terraces, planted nine "
    "years ago, came close to them for the first time. Prices fell by a tenth while everybody was "
    "picking and recovered as soon as the stores were full.";

/// A typeface in one size, with the program that measures it.
struct Type {
    Type(const char16_t* family, float size, int weight = Drawing::Font::kRegular)
        : font(makeObject<Drawing::Font>(family, size, weight)),
          program(Fonts::FontManager::getFont(font)) {}

    [[nodiscard]] float widthOf(const Core::String& text) const {
        return Fonts::measureText(*program, font->getFontSize(), text).width;
    }

    SmartPtr<Drawing::Font> font;
    SmartPtr<Fonts::FontProgram> program;
};

struct Row {
    std::string orchard;
    int trees = 0;
    int tonnes = 0;
};

std::vector<Row> rows() {
    std::vector<Row> table;
    for (const char* place : {"River", "Mill", "Chapel", "Terrace", "Quarry", "Meadow", "Hill"})
        for (const char* side : {"north", "east", "south", "west", "old trees", "nursery"}) {
            const int n = static_cast<int>(table.size());
            table.push_back(
                {std::string(place) + ", " + side, 140 + n * 37 % 160, 11 + n * 29 % 47});
        }
    return table;
}

/// An apple, pixel by pixel, with a soft edge in its alpha.
SmartPtr<Drawing::Image> apple() {
    constexpr int kSide = 96;
    Core::ByteArray pixels(std::size_t{3} * kSide * kSide);
    Core::ByteArray alpha(std::size_t{kSide} * kSide);
    std::size_t at = 0;
    for (int row = 0; row < kSide; ++row)
        for (int column = 0; column < kSide; ++column) {
            const double x = (column + 0.5) / kSide * 2 - 1;
            const double y = (row + 0.5) / kSide * 2 - 1;
            const double edge = 0.86 - 0.16 * std::exp(-x * x * 30) * (y < 0 ? 1.6 : 0.7);
            const double light = std::hypot(x + 0.3, y + 0.3);
            const auto shade = [&](double lit, double dark) {
                return static_cast<std::uint8_t>(lit + (dark - lit) * std::min(1.0, light / 1.3));
            };
            pixels[3 * at] = shade(240, 150);
            pixels[3 * at + 1] = shade(110, 20);
            pixels[3 * at + 2] = shade(90, 24);
            const double cover = (edge - std::hypot(x, y)) * kSide / 4;
            alpha[at++] = static_cast<std::uint8_t>(255 * std::clamp(cover, 0.0, 1.0));
        }
    return makeObject<Drawing::RasterImage>(Drawing::PixelSize{kSide, kSide},
                                            Drawing::ColorSpaceType::rgb, pixels, alpha);
}

/// Draws the report; it knows where on which page it stands.
class Report {
public:
    explicit Report(IOutputContext& document)
        : document_(document), letterhead_(document.createDocumentFragment(kA4.width, 100)) {
        recordLetterhead();
    }

    void startPage() {
        document_.startPage(kA4);
        document_.setTransform({});
        document_.drawDocumentFragment(letterhead_);
        write(small_, "Page " + std::to_string(++page_), kRight, kA4.height - 40, 1);
        y_ = 130;
    }
    void endPage() { document_.endPage(); }

    void heading(const Core::String& text) {
        write(title_, text, kMargin, y_, 0, kGreen);
        y_ += 26;
    }

    /// Words as long as they fit on the line.
    void paragraph(const std::string& text) {
        std::istringstream words(text);
        std::string line;
        for (std::string word; words >> word;) {
            std::string longer = line;
            if (!line.empty())
                longer += ' ';
            longer += word;
            if (body_.widthOf(longer) > kRight - kMargin) {
                writeLine(line);
                line = word;
            } else {
                line = longer;
            }
        }
        writeLine(line);
        y_ += 14;
    }

    void table(const std::vector<Row>& rows) {
        Row total{"All orchards"};
        tableHead();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (y_ > kFoot) {
                endPage();
                startPage();
                tableHead();
            }
            tableRow(rows[i], i % 2 == 1, body_);
            total.trees += rows[i].trees;
            total.tonnes += rows[i].tonnes;
        }
        document_.setStroke(pen(kGreen, 1));
        document_.drawLine(kMargin, y_ - 12, kRight, y_ - 12);
        tableRow(total, false, strong_);
    }

private:
    /// `share` of the text stands left of `x`: 0 begins there, 0.5 is centred, 1 ends there.
    void write(const Type& type, const Core::String& text, float x, float y, float share,
               std::uint32_t colour = kInk) {
        document_.setFont(type.font);
        document_.setStroke(nullptr);
        document_.setFill(paint(colour));
        document_.drawText(text, 0, x - share * type.widthOf(text), y, 0, false);
    }

    void writeLine(const std::string& line) {
        write(body_, line, kMargin, y_, 0);
        y_ += 15;
    }

    void tableHead() {
        document_.setFill(paint(kGreen));
        document_.setStroke(nullptr);
        document_.drawRectangle(kMargin, y_ - 13, kRight - kMargin, 18, 3, 3);
        cells("Orchard", "Trees", "Tonnes", "Yield per tree", strong_, 0xFEFEFE);
    }

    void tableRow(const Row& row, bool striped, const Type& type) {
        if (striped) {
            document_.setFill(paint(kPale));
            document_.setStroke(nullptr);
            document_.drawRectangle(kMargin, y_ - 12, kRight - kMargin, 17, 0, 0);
        }
        std::ostringstream yield;
        yield.precision(1);
        yield << std::fixed << 1000.0 * row.tonnes / row.trees << " kg";
        cells(row.orchard, std::to_string(row.trees), std::to_string(row.tonnes), yield.str(), type,
              kInk);
    }

    void cells(const Core::String& first, const Core::String& second, const Core::String& third,
               const Core::String& fourth, const Type& type, std::uint32_t colour) {
        write(type, first, kMargin + 8, y_, 0, colour);
        write(type, second, kMargin + 230, y_, 1, colour);
        write(type, third, kMargin + 320, y_, 1, colour);
        write(type, fourth, kRight - 8, y_, 1, colour);
        y_ += 17;
    }

    /// A picture is drawn at the size that the transform gives to its pixels, so that every kind
    /// of document shows the same.
    void recordLetterhead() {
        IOutputContext& head = *letterhead_;
        constexpr float kSide = 40;
        const auto picture = apple();
        const auto pixels = static_cast<float>(picture->getPixelSize().width);
        head.setTransform({kSide / pixels, 0, 0, kSide / pixels, kMargin, 40});
        head.drawImage(picture, 0, 0, pixels, pixels, 0);
        head.setTransform({});
        head.setFont(makeObject<Drawing::Font>(u"Times", 24.0F, Drawing::Font::kBold));
        head.setStroke(nullptr);
        head.setFill(paint(kGreen));
        head.drawText(u"Orchards on the River", 0, kMargin + 52, 68, 0, false);
        head.setStroke(pen(kGreen, 1.5F));
        head.drawLine(kMargin, 94, kRight, 94);
    }

    IOutputContext& document_;
    SmartPtr<IOutputContext> letterhead_;
    Type body_{u"Helvetica", 10.5F};
    Type strong_{u"Helvetica", 10.5F, Drawing::Font::kBold};
    Type small_{u"Helvetica", 9};
    Type title_{u"Times", 18, Drawing::Font::kBold};
    float y_ = 0;
    int page_ = 0;
};

void drawReport(IOutputContext& document) {
    Report report(document);
    report.startPage();
    report.heading(u"Harvest of the year");
    report.paragraph(kSummary);
    report.heading(u"Orchard by orchard");
    report.table(rows());
    report.endPage();
}

}  // namespace

int main(int argc, char** argv) {
    return makeBoth(argc, argv, "report", drawReport);
}
