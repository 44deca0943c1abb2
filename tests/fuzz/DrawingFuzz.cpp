// Any bytes as drawing calls on a document, its fragments and its tiles, valid or not. Calls raise
// exceptions of the library or nothing, and drawing goes on after them; a document that ends is
// whole, and ending it again gives the same bytes.
//
// A first byte that is even allows only calls that make a document which interpreters show. With
// PSGRAPHICS_FUZZ_OUTPUT in the environment the document is left in the file of that name.

#include "Core/MemoryStream.h"
#include "tests/fuzz/Artist.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    [[maybe_unused]] static const bool registered = registerFonts();
    Choices choices({data, size});
    const bool tame = choices.byte() % 2 == 0;
    const auto output = makeObject<Core::IO::MemoryStream>();
    const bool kerned = choices.upTo(2) == 1;
    const auto document = makeObject<Drawing::PS::PSDocument>(output.get(), kerned);
    try {
        Artist(choices, tame, kerned).drawDocument(*document);
        document->endDocument();
        const std::string first(output->view());
        if (!first.starts_with("%!PS-Adobe-3.0\n") || !first.ends_with("%%Trailer\n%%EOF\n"))
            std::abort();
        keep(first);
        document->endDocument();
        if (output->view() != first + first)
            std::abort();
    } catch (const Core::Exception&) {
        if (tame)
            throw;
    }
    return 0;
}
