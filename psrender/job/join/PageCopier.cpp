#include "psrender/job/join/PageCopier.h"

namespace psrender::join {

std::size_t PageCopier::copy(LineReader& file, const std::string& names) {
    partPages_ = 0;
    depth_ = 0;
    while (const auto line = file.next()) {
        const bool isComment = file.isBeginning() && line->starts_with("%%");
        if (!isComment)
            output_.write(*line);
        else if (depth_ == 0 && *line == "%%Trailer\n")
            break;
        else
            copyLine(*line, names);
    }
    return partPages_;
}

void PageCopier::copyLine(std::string_view line, const std::string& names) {
    if (depth_ == 0 && line.starts_with("%%Page: ")) {
        copyPageComment(line);
        return;
    }
    output_.write(line);
    if (line.starts_with("%%BeginDocument"))
        ++depth_;
    else if (depth_ > 0)
        depth_ -= line.starts_with("%%EndDocument") ? 1 : 0;
    else if (!names.empty() && line == "%%BeginPageSetup\n")
        output_.write(names + " begin\n");
    else if (!names.empty() && line == "%%PageTrailer\n")
        output_.write("end\n");
}

/// The label goes with the number if it is the number.
void PageCopier::copyPageComment(std::string_view line) {
    line = line.substr(8, line.size() - 9);
    const std::size_t space = line.rfind(' ');
    const std::string_view label = line.substr(0, space);
    const bool isNumber = space != std::string_view::npos && label == line.substr(space + 1);
    ++partPages_;
    const std::string number = std::to_string(++pages_);
    output_.write("%%Page: " + (isNumber ? number : std::string(label)) + " " + number + "\n");
}

}  // namespace psrender::join
