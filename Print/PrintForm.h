#pragma once

#include "Print/PrintDocument.h"

#include <cstdint>
#include <optional>

namespace Drawing::Print {

/// Drawing that a `PrintDocument` records, to be placed as a form or to repeat as a tile. Made by
/// `createDocumentFragment` and `createPatternOutputContext`.
class PRINT_API PrintForm : public PrintDocument {
public:
    enum class Kind : std::uint8_t { fragment, tile };

    PrintForm(const PrintDocument& parent, SizeF size, Kind kind);
    PrintForm(const PrintForm&) = delete;
    PrintForm& operator=(const PrintForm&) = delete;
    ~PrintForm() override;

    [[nodiscard]] OutputType getType() const override;
    /// A nested context has no pages and makes no file of its own: these raise `PrintException`.
    void startPage(const SizeF& size) override;
    void endPage() override;
    void endDocument() override;

    [[nodiscard]] bool isFragmentOf(Core::SmartPtr<IOutputContext> context) const override;

    /// What of a tile's drawing shows, in its own space: larger than its step, so that neighbours
    /// overlap, or smaller. Before the tile is first painted with.
    void setBounds(float x, float y, float width, float height);

    /// The number of the form in its document, to which it is handed over now if it was not yet:
    /// nothing more can be drawn in it.
    std::uint32_t seal();
    /// Whether `document` is the document that made it, or one of its nested contexts.
    [[nodiscard]] bool belongsTo(const PrintDocument& document) const;

private:
    SizeF size;
    Kind kind;
    std::optional<std::uint32_t> sealedId;
    float boundsX = 0;
    float boundsY = 0;
    SizeF boundsSize;
};

}  // namespace Drawing::Print
