#include "Print/internal/Assembly.h"

#include "Core/ByteArray.h"
#include "Core/DateTime.h"
#include "Print/internal/Ink.h"
#include "Print/internal/Prolog.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace Drawing::Print {

namespace {

constexpr std::size_t kLineLength = 200;

/// A DSC text line: what is no printable ASCII becomes "?", and structure cannot be faked, as line
/// ends are none either.
std::string plainText(const Core::String& text) {
    std::string plain;
    for (const char16_t unit : text.view())
        if (plain.size() < kLineLength)
            plain += unit >= 0x20 && unit < 0x7F ? static_cast<char>(unit) : '?';
    return plain;
}

/// A PDF text string: as it is, or UTF-16 with a mark in front (PDF 1.7, 7.9.2.2).
void writeInformationText(const Core::String& text, TextBuffer& out) {
    bool isPlain = true;
    for (const char16_t unit : text.view())
        isPlain &= unit >= 0x20 && unit < 0x7F;
    if (isPlain) {
        writeLiteral(text.toUtf8(), out);
        return;
    }
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out << "<FEFF";
    for (const char16_t unit : text.view())
        for (const int shift : {12, 8, 4, 0})
            out << kDigits[static_cast<std::size_t>(unit >> shift & 15)];
    out << '>';
}

std::string twoDigits(unsigned number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

void Assembly::write(Core::IO::Stream& script, std::uint32_t pageCount, const Box& ink) {
    gatherResources();
    writeHeader(pageCount, ink);
    output_.write("%%BeginProlog\n%%BeginResource: procset PSGraphicsPrint 1 0\n");
    output_.write(kBasicProcedures);
    if (parts_.usesPlaces)
        output_.write(kPlacingProcedures);
    if (parts_.usesGradients)
        output_.write(kGradientProcedures);
    if (parts_.usesText)
        output_.write(kTextProcedures);
    output_.write("end\n%%EndResource\n%%EndProlog\n");
    writeSetup();
    copyScript(script);
    output_.write("%%Trailer\nend\n%%EOF\n");
    output_.flush();
}

void Assembly::gatherResources() {
    parts_.pictures.beginFile();
    for (PictureStore::Id id = 0; id < parts_.pictures.count(); ++id) {
        if (!parts_.pictures.isShared(id))
            continue;
        if (const auto page = parts_.pictures.onlyPage(id))
            pagePictures_[*page].push_back(id);
        else
            sharedPictures_.push_back(id);
    }
    for (FormStore::Id id = 0; id < parts_.forms.count(); ++id) {
        if (const auto page = parts_.forms.onlyPage(id))
            pageForms_[*page].push_back(id);
        else
            sharedForms_.push_back(id);
    }
}

std::string Assembly::propertyOf(const char* name) const {
    const auto found = parts_.properties.find(name);
    return found == parts_.properties.end() ? std::string() : plainText(found->second);
}

void Assembly::writeHeader(std::uint32_t pageCount, const Box& ink) {
    output_.write(parts_.isEps() ? "%!PS-Adobe-3.0 EPSF-3.0\n" : "%!PS-Adobe-3.0\n");
    const std::string creator = propertyOf("creator");
    output_.write("%%Creator: " + (creator.empty() ? std::string("PSGraphics") : creator) + "\n");
    if (const std::string title = propertyOf("title"); !title.empty())
        output_.write("%%Title: " + title + "\n");
    if (const std::string author = propertyOf("author"); !author.empty())
        output_.write("%%For: " + author + "\n");
    const Core::DateTime now = Core::DateTime::getCurrentGMTTime();
    output_.write("%%CreationDate: " + std::to_string(now.getYear()) + "-" +
                  twoDigits(now.getMonth()) + "-" + twoDigits(now.getDay()) + "\n");
    output_.write("%%LanguageLevel: 3\n%%DocumentData: Clean7Bit\n");
    writeBounds(ink);
    output_.write("%%Pages: " + std::to_string(pageCount) + "\n%%PageOrder: Ascend\n");
    writeResourceList("%%DocumentNeededResources:", parts_.fonts.neededFonts());
    writeResourceList("%%DocumentSuppliedResources:", suppliedResources());
    output_.write("%%EndComments\n");
}

/// Upwards from the page's lower edge, as PostScript has it; outwards to whole points.
void Assembly::writeBounds(const Box& ink) {
    const SizeF page = parts_.largestPage;
    double left = 0;
    double bottom = 0;
    double right = page.width;
    double top = page.height;
    if (parts_.settings.form == FileForm::epsInk) {
        left = ink.isEmpty() ? 0 : ink.left;
        bottom = ink.isEmpty() ? 0 : page.height - ink.bottom;
        right = ink.isEmpty() ? 0 : ink.right;
        top = ink.isEmpty() ? 0 : page.height - ink.top;
    }
    TextBuffer out;
    out << "%%BoundingBox:";
    for (const double edge :
         {std::floor(left), std::floor(bottom), std::ceil(right), std::ceil(top)})
        out.number(edge, 0);
    out << "\n%%HiResBoundingBox:";
    for (const double edge : {left, bottom, right, top})
        out.number(edge, 4);
    out << '\n';
    out.flushTo(output_);
}

/// What several pages use; the rest belongs to its page.
std::vector<std::string> Assembly::suppliedResources() const {
    std::vector<std::string> supplied{"procset PSGraphicsPrint 1 0"};
    std::ranges::move(parts_.fonts.suppliedFonts(), std::back_inserter(supplied));
    for (const PictureStore::Id id : sharedPictures_)
        supplied.push_back(parts_.pictures.resourceOf(id));
    for (const FormStore::Id id : sharedForms_)
        supplied.push_back(parts_.forms.resourceOf(id));
    return supplied;
}

void Assembly::writeResourceList(std::string_view comment,
                                 const std::vector<std::string>& resources) {
    for (const std::string& resource : resources) {
        output_.write(comment);
        output_.write(" " + resource + "\n");
        comment = "%%+";
    }
}

void Assembly::writeSetup() {
    output_.write("%%BeginSetup\nPSGraphicsPrint begin\n");
    writeInformation();
    if (!parts_.isEps())
        output_.write(parts_.setupRequest);
    parts_.fonts.writeDefinitions(output_);
    for (const PictureStore::Id id : sharedPictures_) {
        output_.write("%%BeginResource: " + parts_.pictures.resourceOf(id) + "\n");
        parts_.pictures.writeDefinition(id, output_);
        output_.write("%%EndResource\n");
    }
    for (const FormStore::Id id : sharedForms_) {
        output_.write("%%BeginResource: " + parts_.forms.resourceOf(id) + "\n");
        parts_.forms.writeDefinition(id, output_);
        output_.write("%%EndResource\n");
    }
    output_.write("%%EndSetup\n");
}

/// Entries of the document information that distillers take over (pdfmark); printers pass over it.
/// An embedded file leaves the information of the file around it alone.
void Assembly::writeInformation() {
    if (parts_.isEps() || parts_.properties.empty())
        return;
    TextBuffer out;
    out << "/pdfmark where{pop}{userdict/pdfmark/cleartomark load put}ifelse\n[";
    for (const auto& [name, value] : parts_.properties) {
        std::string key = name;
        key.front() = static_cast<char>(key.front() - 'a' + 'A');
        out << '/' << key;
        writeInformationText(value, out);
        out << '\n';
    }
    out << "/DOCINFO pdfmark\n";
    out.flushTo(output_);
}

/// Copies the script and fills its markers, which may lie across the border of two chunks.
void Assembly::copyScript(Core::IO::Stream& script) {
    constexpr std::size_t kChunk = std::size_t{1} << 16;
    Core::ByteArray chunk(kChunk);
    std::string marker;
    bool inMarker = false;
    script.seek(0, Core::IO::SeekOrigin::begin);
    while (const std::size_t count = script.read(chunk, 0, kChunk)) {
        std::string_view text = chunk.view().substr(0, count);
        while (!text.empty()) {
            const std::size_t end = text.find(inMarker ? '\n' : Marker::kByte);
            const std::string_view piece = text.substr(0, end);
            if (inMarker)
                marker += piece;
            else
                output_.write(piece);
            if (end == std::string_view::npos)
                break;
            if (inMarker)
                fillMarker(std::exchange(marker, {}));
            inMarker = !inMarker;
            text.remove_prefix(end + 1);
        }
    }
}

void Assembly::fillMarker(std::string_view marker) {
    std::uint32_t number = 0;
    std::from_chars(marker.data() + 1, marker.data() + marker.size(), number);
    if (marker.front() == Marker::kPicture)
        parts_.pictures.writeUse(number, output_);
    else
        writePageResources(number);
}

void Assembly::writePageResources(std::uint32_t page) {
    if (const auto pictures = pagePictures_.find(page); pictures != pagePictures_.end())
        for (const PictureStore::Id id : pictures->second)
            parts_.pictures.writeDefinition(id, output_);
    if (const auto forms = pageForms_.find(page); forms != pageForms_.end())
        for (const FormStore::Id id : forms->second)
            parts_.forms.writeDefinition(id, output_);
}

}  // namespace Drawing::Print
