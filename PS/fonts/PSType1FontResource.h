#pragma once

#include "PS/fonts/PSOneByteFontResource.h"

#include <memory>

namespace Drawing::PS {

class NumberTexts;

/// A Type 1 program carried by the document: its header rewritten so that the font is defined
/// under the resource's name with the document's codes, its encrypted part in hexadecimal.
class PS_API PSType1FontResource : public PSOneByteFontResource {
public:
    PSType1FontResource(const Font& font, Core::SmartPtr<Fonts::FontProgram> program,
                        Core::String family, bool kernText);
    ~PSType1FontResource() override;

    /// Raises `UnreacheableCodeException` for a program that is not in segments.
    void writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) override;
    void writeText(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text,
                   float fontSize, float spacing) override;
    [[nodiscard]] int getKind() const override { return type1; }

private:
    std::unique_ptr<NumberTexts> moves;
};

}  // namespace Drawing::PS
