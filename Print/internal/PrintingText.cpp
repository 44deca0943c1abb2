#include "Print/internal/PrintingText.h"

#include "Print/PrintException.h"
#include "Print/internal/Ink.h"

namespace Drawing::Print {

namespace {

void addNumber(const char* key, const std::optional<std::int32_t>& value, std::int32_t least,
               std::int32_t most, TextBuffer& out) {
    if (!value)
        return;
    if (*value < least || *value > most)
        throw PrintException(std::string(key) + " of " + std::to_string(*value) + " is not from " +
                             std::to_string(least) + " to " + std::to_string(most));
    out << '/' << key << ' ' << std::to_string(*value) << '\n';
}

void addText(const char* key, const std::optional<Core::String>& value, TextBuffer& out) {
    if (!value)
        return;
    out << '/' << key;
    writeLiteral(value->toUtf8(), out);
    out << '\n';
}

void addFlag(const char* key, bool value, TextBuffer& out) {
    out << '/' << key << (value ? " true\n" : " false\n");
}

}  // namespace

std::string printingText(const PrintingRequest& request) {
    TextBuffer out;
    if (request.duplex) {
        addFlag("Duplex", *request.duplex, out);
        if (*request.duplex)
            addFlag("Tumble", request.duplexEdge == DuplexEdge::shortEdge, out);
    }
    addNumber("NumCopies", request.copies, 1, 32767, out);
    if (request.collate)
        addFlag("Collate", *request.collate, out);
    addNumber("MediaPosition", request.mediaPosition, 0, 255, out);
    addText("MediaColor", request.mediaColor, out);
    addText("MediaType", request.mediaType, out);
    addNumber("Jog", request.jog, 0, 3, out);
    if (out.size() == 0)
        return {};
    return "<<" + std::string(out.view()) + ">>rq\n";
}

}  // namespace Drawing::Print
