#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Print/ColorConverter.h"

#include <cstdint>
#include <optional>

namespace Drawing::Print {

/// What kind of file a document becomes.
enum class FileForm : std::uint8_t {
    pages,     ///< any number of pages, each with its own size
    epsInk,    ///< Encapsulated PostScript: one page, its bounding box what is painted
    epsSheet,  ///< the same with the whole page as its bounding box
};

/// What a document is made with; plain data, taken when the document is made.
struct PrintSettings {
    FileForm form = FileForm::pages;
    /// Brings all colours to one space; null leaves each in its own.
    Core::SmartPtr<ColorConverter> colors;
    /// Pairs of glyphs are moved together as their font asks for.
    bool kerning = true;
    /// The 14 standard fonts go into the file, too, from installed fonts of the same design, as
    /// archives ask for; else the interpreter's own are used.
    bool embedStandardFonts = false;
    /// TrueType hint programs go along: glyphs look better on printers of low resolution.
    bool keepHints = true;
};

/// The two ways to turn a sheet that is printed on both sides.
enum class DuplexEdge : std::uint8_t { longEdge, shortEdge };

/// What a printer is asked for (page device parameters, PLRM 6.2). What is not set is not
/// written, so that the printer's own settings hold.
struct PrintingRequest {
    /// Printing on both sides; `false` asks for one side.
    std::optional<bool> duplex;
    DuplexEdge duplexEdge = DuplexEdge::longEdge;
    std::optional<std::int32_t> copies;
    std::optional<bool> collate;
    std::optional<std::int32_t> mediaPosition;  ///< the tray
    std::optional<Core::String> mediaColor;     ///< "blue"
    std::optional<Core::String> mediaType;      ///< "Transparency"
    std::optional<std::int32_t> jog;            ///< 0 to 3: when the stack of sheets is shifted
};

}  // namespace Drawing::Print
