#pragma once

#include "Core/FileStream.h"
#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Font.h"
#include "Drawing/IOutputContext.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/SizeF.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"
#include "PS/fonts/PSFontResource.h"
#include "Print/PrintDocument.h"

#include <cstdint>
#include <exception>
#include <iostream>
#include <string>

/// What the examples share: short names for what they draw with, and the two kinds of document.
namespace example {

using Core::makeObject;
using Core::SmartPtr;
using Drawing::IOutputContext;

constexpr Drawing::SizeF kA4{595.276F, 841.89F};

inline SmartPtr<Drawing::Color> rgb(std::uint32_t value) {
    const auto byte = [value](int shift) { return static_cast<std::uint8_t>(value >> shift); };
    return makeObject<Drawing::RGBColor>(byte(16), byte(8), byte(0));
}

inline SmartPtr<Drawing::Brush> paint(std::uint32_t value, float opacity = 1) {
    return makeObject<Drawing::SolidColorBrush>(rgb(value), opacity);
}

inline SmartPtr<Drawing::Stroke> pen(std::uint32_t value, float width) {
    return makeObject<Drawing::Stroke>(paint(value), width);
}

/// Has `draw` draw into a document of the kind, which goes to the file `name`.
template <class Document>
void make(const std::string& name, void (*draw)(IOutputContext&)) {
    const auto file = makeObject<Core::IO::FileStream>(name, true, true, true);
    const auto document = makeObject<Document>(file, true);
    document->startDocument();
    draw(*document);
    document->endDocument();
    file->close();
}

/// Makes NAME-ps.ps and NAME-print.ps in the folder that the command line names, or in this one.
inline int makeBoth(int argc, char** argv, const std::string& name, void (*draw)(IOutputContext&)) {
    const std::string stem = (argc > 1 ? std::string(argv[1]) + "/" : std::string()) + name;
    try {
        make<Drawing::PS::PSDocument>(stem + "-ps.ps", draw);
        make<Drawing::Print::PrintDocument>(stem + "-print.ps", draw);
    } catch (const std::exception& failure) {
        std::cerr << name << ": " << failure.what() << '\n';
        return 1;
    }
    return 0;
}

}  // namespace example
