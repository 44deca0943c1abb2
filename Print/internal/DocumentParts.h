#pragma once

#include "Core/Object.h"
#include "Drawing/SizeF.h"
#include "Print/PrintSettings.h"
#include "Print/images/internal/PictureStore.h"
#include "Print/internal/FontStore.h"
#include "Print/internal/FormStore.h"
#include "Print/internal/Spool.h"
#include "Print/internal/TextRunMaker.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace Drawing::Print {

/// What a document and all its nested contexts have in common.
class DocumentParts : public Core::Object {
public:
    explicit DocumentParts(const PrintSettings& documentSettings);
    /// The last of the document, its copies and nested contexts has gone. Tells by `Log::warning`
    /// of pages that nobody wrote.
    ~DocumentParts() override;

    [[nodiscard]] bool isEps() const { return settings.form != FileForm::pages; }
    [[nodiscard]] const ColorConverter* converter() const { return settings.colors.get(); }
    /// Counts a use by the page or form that is being drawn.
    void notePicture(PictureStore::Id id, bool isNested);
    void noteForm(FormStore::Id id, bool isNested);

    const PrintSettings settings;
    Spool spool;
    PictureStore pictures;
    FormStore forms;
    FontStore fonts;
    std::map<std::string, Core::String> properties;
    GlyphLine line;  ///< room for the text that is being drawn
    TextRun run;
    std::uint32_t page = 0;  ///< the one that is being drawn, from 0
    std::uint32_t pageCount = 0;
    bool isPageOpen = false;
    bool isUnfinished = false;   ///< there are pages that no file has yet
    std::string setupRequest;    ///< what the printer is asked for: for the whole file,
    std::string pageRequest;     ///< and from the next page on
    bool usesText = false;       ///< and so the procedures that text takes
    bool usesGradients = false;  ///< and so theirs
    bool usesPlaces = false;     ///< of forms, and so likewise
    SizeF largestPage;           ///< of both sides the largest so far
};

/// Places in the script that the finished file fills: a byte that no page text holds, a letter that
/// tells the kind, a number, a line end.
namespace Marker {

constexpr char kByte = '\x01';
constexpr char kPageSetup = 'S';
constexpr char kPicture = 'I';

}  // namespace Marker

}  // namespace Drawing::Print
