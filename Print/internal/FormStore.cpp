#include "Print/internal/FormStore.h"

#include "Print/internal/TextBuffer.h"

#include <cmath>
#include <string_view>

namespace Drawing::Print {

namespace {

/// Characters of drawing in one procedure: a token takes at least two of them, and operand stacks
/// hold some hundred thousand tokens, on small interpreters some hundred.
constexpr std::size_t kProcedure = 2000;

/// Writes lines of drawing in procedures of about `kProcedure` characters that are run in turn.
/// Cutting at ends of lines is cutting between operators: no operand waits there.
void writeProcedures(std::string_view drawing, Core::IO::Stream& output) {
    if (drawing.size() <= kProcedure) {
        output.write(drawing);
        return;
    }
    while (!drawing.empty()) {
        std::size_t end = drawing.size();
        if (end > kProcedure)
            if (const std::size_t line = drawing.find('\n', kProcedure);
                line != std::string_view::npos)
                end = line + 1;
        output.write("{");
        output.write(drawing.substr(0, end));
        output.write("}exec\n");
        drawing.remove_prefix(end);
    }
}

}  // namespace

FormStore::Id FormStore::add(std::string_view drawing, const Shape& shape) {
    Core::IO::Stream& stream = spool_.begin();
    writeProcedures(drawing, stream);
    forms_.push_back({shape, spool_.end(), {}});
    return count() - 1;
}

void FormStore::noteUse(Id id, std::uint32_t page) {
    Form& form = forms_[id];
    form.isOnSeveralPages |= form.firstPage && *form.firstPage != page;
    form.firstPage = page;
}

std::optional<std::uint32_t> FormStore::onlyPage(Id id) const {
    const Form& form = forms_[id];
    return form.isNested || form.isOnSeveralPages ? std::nullopt : form.firstPage;
}

void FormStore::writeDefinition(Id id, Core::IO::Stream& output) {
    const Form& form = forms_[id];
    const Shape& shape = form.shape;
    TextBuffer text;
    text << '/' << nameOf(id)
         << (shape.isTile ? "<</PatternType 1/PaintType 1/TilingType 1"
                          : "<</FormType 1/Matrix im");
    text << "/BBox[";
    const bool isEmpty = shape.bounds.isEmpty();
    text.number(isEmpty ? 0 : shape.bounds.left);
    text.number(isEmpty ? 0 : shape.bounds.top);
    text.number(isEmpty ? 0 : shape.bounds.right);
    text.number(isEmpty ? 0 : shape.bounds.bottom);
    text << ']';
    if (shape.isTile) {
        text << "/XStep";
        text.number(shape.stepX);
        text << "/YStep";
        text.number(shape.stepY);
    }
    text << "/PaintProc{pop fs\n";
    text.flushTo(output);
    spool_.copyTo(output, form.drawing);
    output.write("}>>def\n");
}

}  // namespace Drawing::Print
