#pragma once

#include "psrender/base/InputError.h"

#include <string>
#include <string_view>

namespace psrender::svg {

/// A document in UTF-8, with what is needed to say where in it something is wrong.
class SourceText {
public:
    /// Takes UTF-8 as it is, without a copy, so `bytes` must live on; UTF-16 with a byte order
    /// mark is converted. Throws `InputError` if the bytes cannot be an SVG document.
    SourceText(std::string_view bytes, std::string name);

    SourceText(const SourceText&) = delete;
    SourceText& operator=(const SourceText&) = delete;
    ~SourceText() = default;

    [[nodiscard]] std::string_view text() const { return text_; }
    /// Whether `text()` is no longer in the encoding that its XML declaration may name.
    [[nodiscard]] bool wasConverted() const { return wasConverted_; }
    void replace(std::string text);

    /// Of the document as a whole.
    [[nodiscard]] Place place() const { return {name_}; }
    [[nodiscard]] Place placeAt(std::size_t offset) const;
    [[noreturn]] void fail(std::size_t offset, const std::string& sentence) const;
    /// About the document as a whole.
    [[noreturn]] void fail(const std::string& sentence) const;

private:
    void rejectForeignFormats() const;

    std::string name_;
    std::string storage_;
    std::string_view text_;
    bool wasConverted_ = false;
};

}  // namespace psrender::svg
