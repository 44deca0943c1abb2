#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Print/internal/Box.h"
#include "Print/internal/DocumentParts.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Drawing::Print {

/// Puts the finished file together (DSC 3.0):
///
///   %!PS-Adobe-3.0 ... %%EndComments     header
///   %%BeginProlog ... %%EndProlog        the procedure set
///   %%BeginSetup ... %%EndSetup          document information, fonts, what several pages share
///   %%Page: ...                          the script, with what one page alone uses in its set-up
///   %%Trailer %%EOF
class Assembly {
public:
    Assembly(DocumentParts& parts, Core::IO::Stream& output) : parts_(parts), output_(output) {}

    /// `script` holds the pages; `ink` is what was painted on the page of a tight EPS file.
    void write(Core::IO::Stream& script, std::uint32_t pageCount, const Box& ink);

private:
    void gatherResources();
    void writeHeader(std::uint32_t pageCount, const Box& ink);
    void writeBounds(const Box& ink);
    [[nodiscard]] std::vector<std::string> suppliedResources() const;
    void writeResourceList(std::string_view comment, const std::vector<std::string>& resources);
    void writeSetup();
    void writeInformation();
    void copyScript(Core::IO::Stream& script);
    void fillMarker(std::string_view marker);
    void writePageResources(std::uint32_t page);
    [[nodiscard]] std::string propertyOf(const char* name) const;

    DocumentParts& parts_;
    Core::IO::Stream& output_;
    std::map<std::uint32_t, std::vector<PictureStore::Id>> pagePictures_;
    std::map<std::uint32_t, std::vector<FormStore::Id>> pageForms_;
    std::vector<PictureStore::Id> sharedPictures_;
    std::vector<FormStore::Id> sharedForms_;
};

}  // namespace Drawing::Print
