#include "PS/internal/Type1Program.h"

#include "Core/Exception.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace Drawing::PS {

namespace {

constexpr int kMalformedSegment = 4;
constexpr std::uint8_t kSegmentMark = 128;
constexpr std::size_t kHexLine = 32;

using Lines = std::vector<std::string>;

std::string encodingOf(const std::vector<Core::String>& glyphNames) {
    std::string text = "/Encoding 256 array\n0 1 255 {1 index exch /.notdef put} for\n";
    for (std::size_t code = 0; code < glyphNames.size(); ++code)
        text += "dup " + std::to_string(code) + " /" + glyphNames[code].toUtf8() + " put \n";
    return text + "readonly def\n";
}

/// "\r\n" if there is one anywhere, else a lone return, else a lone feed; empty if the text is one
/// line.
std::string_view separatorOf(std::string_view text) {
    for (const std::string_view separator : {"\r\n", "\r", "\n"})
        if (text.find(separator) != std::string_view::npos)
            return separator;
    return {};
}

Lines split(std::string_view text, std::string_view separator) {
    Lines lines;
    for (std::size_t end = 0; (end = text.find(separator)) != std::string_view::npos;) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    if (!text.empty())
        lines.emplace_back(text);
    return lines;
}

bool has(const std::string& line, std::string_view word) {
    return line.find(word) != std::string::npos;
}

/// Rewrites the clear-text header line by line.
class Header {
public:
    Header(const Lines& lines, std::string name, const std::vector<Core::String>& glyphNames)
        : lines_(lines), name_(std::move(name)), glyphNames_(glyphNames) {}

    std::string rewritten() {
        out_ = "%%BeginFont:" + name_ + "\n";
        while (at_ < lines_.size() && !ended_)
            rewriteLine();
        return out_;
    }

private:
    void rewriteLine() {
        const std::string& line = lines_[at_];
        if (line.starts_with('%'))
            ++at_;
        else if (has(line, "/FontInfo"))
            keepThrough("end readonly def");
        else if (has(line, "/FontName"))
            replaceName();
        else if (named_ && has(line, "/Encoding"))
            replaceEncoding();
        else if (named_ && has(line, "currentfile eexec"))
            end();
        else
            keep();
    }

    void keep() { out_ += lines_[at_++] + "\n"; }

    void keepThrough(std::string_view last) {
        while (at_ < lines_.size()) {
            const bool isLast = has(lines_[at_], last);
            keep();
            if (isLast)
                return;
        }
    }

    void replaceName() {
        out_ += "/FontName /" + name_ + " def\n";
        named_ = true;
        ++at_;
    }

    void replaceEncoding() {
        ++at_;
        if (at_ < lines_.size() && (has(lines_[at_], "dup") || has(lines_[at_], "0 1 255")))
            dropEncoding();
        out_ += encodingOf(glyphNames_);
    }

    /// The explicit encoding: its entries, and what follows up to the line that makes it
    /// read-only.
    void dropEncoding() {
        while (at_ < lines_.size() && has(lines_[at_], "dup"))
            ++at_;
        while (at_ < lines_.size() && !has(lines_[at_], "readonly def"))
            ++at_;
        if (at_ < lines_.size())
            ++at_;
    }

    void end() {
        out_ += "currentfile eexec\n";
        ended_ = true;
    }

    const Lines& lines_;
    std::string name_;
    const std::vector<Core::String>& glyphNames_;
    std::string out_;
    std::size_t at_ = 0;
    bool named_ = false;
    bool ended_ = false;
};

/// Bytes beyond ASCII, as in copyright notices, stay as they are.
std::string rewriteClearText(std::string_view text, const Core::String& name,
                             const std::vector<Core::String>& glyphNames) {
    const std::string_view separator = separatorOf(text);
    if (separator.empty())
        return std::string(text);
    const Lines lines = split(text, separator);
    if (text.find("cleartomark") == std::string_view::npos)
        return Header(lines, name.toUtf8(), glyphNames).rewritten();
    std::string trailer;
    for (const std::string& line : lines)
        trailer += line + "\n";
    return trailer;
}

/// Lines of 64 digits, each with a line feed, the last one too: after a whole number of lines an
/// empty one follows.
std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2 + bytes.size() / kHexLine + 1);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text += {kDigits[bytes[i] >> 4], kDigits[bytes[i] & 0xF]};
        if ((i + 1) % kHexLine == 0)
            text += '\n';
    }
    return text += '\n';
}

[[noreturn]] void malformed() {
    throw Core::UnreacheableCodeException("PSDocument", kMalformedSegment);
}

std::size_t lengthAt(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 4)
        malformed();
    return std::size_t{bytes[0]} | std::size_t{bytes[1]} << 8 | std::size_t{bytes[2]} << 16 |
           std::size_t{bytes[3]} << 24;
}

}  // namespace

void writeType1Program(Core::IO::Stream& stream, const Core::ByteArray& program,
                       const Core::String& name, const std::vector<Core::String>& glyphNames) {
    std::span<const std::uint8_t> rest = program.span();
    while (!rest.empty()) {
        if (rest.size() < 2 || rest[0] != kSegmentMark || rest[1] < 1 || rest[1] > 3)
            malformed();
        const std::uint8_t type = rest[1];
        rest = rest.subspan(2);
        if (type == 3) {
            stream.write("%%EndFont\n");
            continue;
        }
        const std::size_t length = std::min(lengthAt(rest), rest.size() - 4);
        const auto data = rest.subspan(4, length);
        rest = rest.subspan(4 + length);
        const std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
        stream.write(type == 1 ? rewriteClearText(text, name, glyphNames) : hexadecimal(data));
    }
}

}  // namespace Drawing::PS
