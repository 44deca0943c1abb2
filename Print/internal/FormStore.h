#pragma once

#include "Print/internal/Box.h"
#include "Print/internal/Spool.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Drawing::Print {

/// The forms (PLRM 4.7) and tiles (PLRM 4.9.2) of a document. Their recorded drawing lies in the
/// spool; what stays in memory is a record.
class FormStore {
public:
    using Id = std::uint32_t;

    struct Shape {
        Box bounds;
        bool isTile = false;
        double stepX = 0;  ///< of a tile
        double stepY = 0;
    };

    /// `spool` must outlive the store.
    explicit FormStore(Spool& spool) : spool_(spool) {}

    Id add(std::string_view drawing, const Shape& shape);
    [[nodiscard]] static std::string nameOf(Id id) { return "X" + std::to_string(id + 1); }
    [[nodiscard]] const Shape& shapeOf(Id id) const { return forms_[id].shape; }
    /// Its kind and name, as DSC comments have them.
    [[nodiscard]] std::string resourceOf(Id id) const {
        return (shapeOf(id).isTile ? "pattern " : "form ") + nameOf(id);
    }

    /// Notes that the form is shown on `page` (0 ...), or within another one.
    void noteUse(Id id, std::uint32_t page);
    void noteNestedUse(Id id) { forms_[id].isNested = true; }
    /// The one page on which the form is shown, whose set-up may define it; nothing if there are
    /// several, or it is nested.
    [[nodiscard]] std::optional<std::uint32_t> onlyPage(Id id) const;
    [[nodiscard]] Id count() const { return static_cast<Id>(forms_.size()); }

    /// The form's dictionary under its name. Its drawing is a procedure made of procedures, each
    /// small enough for the operand stack on which an interpreter collects it.
    void writeDefinition(Id id, Core::IO::Stream& output);

private:
    struct Form {
        Shape shape;
        Spool::Extent drawing;
        std::optional<std::uint32_t> firstPage;
        bool isNested = false;
        bool isOnSeveralPages = false;
    };

    Spool& spool_;
    std::vector<Form> forms_;
};

}  // namespace Drawing::Print
