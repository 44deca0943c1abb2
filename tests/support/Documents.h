#pragma once

#include "Core/MemoryStream.h"
#include "Drawing/Brush.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"

#include <functional>
#include <string>

/// Everything that a document keeps for itself, opened for tests.
class OpenDocument : public Drawing::PS::PSDocument {
public:
    using PSDocument::PSDocument;

    using PSDocument::beginState;
    using PSDocument::endState;
    using PSDocument::formatColorArray;
    using PSDocument::getEscapedColorName;
    using PSDocument::gradients;
    using PSDocument::graphicsState;
    using PSDocument::hasGradientFill;
    using PSDocument::outputStream;
    using PSDocument::pageIndex;
    using PSDocument::scriptStream;
    using PSDocument::write;
    using PSDocument::writeBrush;
    using PSDocument::writeFill;
    using PSDocument::writeImageResourcesLevel2;
    using PSDocument::writeImageResourcesLevel3;
    using PSDocument::writeLn;
    using PSDocument::writePath;
    using PSDocument::writeStroke;

    /// All that was drawn so far.
    [[nodiscard]] std::string script() const;
};

/// A context of 100 by 200 points that draws into memory; its matrix is the identity, unflipped,
/// until a transform is set.
Core::SmartPtr<OpenDocument> makeContext();

/// The text that `draw` adds to such a context.
std::string drawn(const std::function<void(OpenDocument&)>& draw);

/// A whole document of the pages that `draw` makes.
std::string finished(const std::function<void(OpenDocument&)>& draw, bool kerning = false);

/// The document with today's date and the numbers that depend on what else the process made
/// replaced by fixed ones, in the order of their appearance.
std::string normalised(std::string document);

/// Compares with tests/approved/NAME and shows the difference. With PSGRAPHICS_APPROVE set in the
/// environment it takes the document as the new approved one.
void expectApproved(const std::string& name, const std::string& document);

Core::SmartPtr<Drawing::Brush> rgb(int red, int green, int blue, float opacity = 1);
Core::SmartPtr<Drawing::Stroke> line(const Core::SmartPtr<Drawing::Brush>& brush, float width);
