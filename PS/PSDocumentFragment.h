#pragma once

#include "Core/ByteArray.h"
#include "Core/String.h"
#include "PS/Export.h"
#include "PS/PSDocument.h"

namespace Drawing::PS {

/// Drawing that is recorded once, in memory, and placed many times: each placement is a call of a
/// procedure that the document defines in its prolog. Kerned whatever the document is, without
/// the page flip, and without fragments of its own.
class PS_API PSDocumentFragment : public PSDocument {
public:
    /// `width` and `height` in points.
    PSDocumentFragment(float width, float height);
    ~PSDocumentFragment() override;

    [[nodiscard]] OutputType getType() const override;
    /// Stores the transform as it is: what is placed keeps the space of its place.
    void setTransform(const Matrix& transform) override;
    /// Fragments do not nest: both raise `UnreacheableCodeException`.
    Core::SmartPtr<IOutputContext> createDocumentFragment(float width, float height) override;
    void drawDocumentFragment(Core::SmartPtr<IOutputContext> fragment) override;
    [[nodiscard]] bool isFragmentOf(Core::SmartPtr<IOutputContext> context) const override;

    /// "docf_{number}", the number unique in the process.
    [[nodiscard]] Core::String getName() const { return name; }
    [[nodiscard]] float getWidth() const { return width; }
    [[nodiscard]] float getHeight() const { return height; }
    /// A copy of what was drawn so far. A fragment that a document was assigned to shares its
    /// script, so that is all that was drawn on either.
    [[nodiscard]] Core::ByteArray getRecordedBytes() const;

protected:
    Core::String name;

private:
    float width;
    float height;
};

}  // namespace Drawing::PS
