#include "psrender/job/join/JoinedHeader.h"

#include <algorithm>
#include <charconv>
#include <locale>
#include <sstream>
#include <string_view>

namespace psrender::join {

namespace {

constexpr std::string_view kNeeded = "%%DocumentNeededResources:";
constexpr std::string_view kSupplied = "%%DocumentSuppliedResources:";
constexpr std::string_view kMore = "%%+";

std::string boxText(const std::array<double, 4>& box) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out.precision(9);
    for (const double edge : box)
        out << ' ' << edge;
    return out.str();
}

}  // namespace

std::size_t JoinedHeader::add(const std::vector<std::string>& comments) {
    std::size_t pages = 0;
    std::string list;
    for (const std::string& comment : comments) {
        const std::size_t colon = comment.find(':');
        const std::string key = comment.substr(0, colon == std::string::npos ? 0 : colon + 1);
        const std::string value = comment.substr(std::min(key.size() + 1, comment.size()));
        if (comment.starts_with(kMore)) {
            if (list == kNeeded)
                addNeeded(comment.substr(kMore.size() + 1));
            continue;
        }
        list = key;
        if (key == "%%BoundingBox:")
            widen(box_, value);
        else if (key == "%%HiResBoundingBox:")
            widen(exactBox_, value);
        else if (key == "%%Pages:")
            std::from_chars(value.data(), value.data() + value.size(), pages);
        else if (key == kNeeded)
            addNeeded(value);
        else if (key != kSupplied && key != "%%PageOrder:" && isFirst_)
            first_.push_back(comment);
    }
    isFirst_ = false;
    pages_ += pages;
    return pages;
}

/// All boxes of pages begin at the origin.
void JoinedHeader::widen(Box& box, const std::string& values) {
    std::istringstream in(values);
    in.imbue(std::locale::classic());
    for (double& edge : box) {
        double value = 0;
        in >> value;
        edge = std::max(edge, value);
    }
}

void JoinedHeader::addNeeded(const std::string& resource) {
    if (knownNeeded_.insert(resource).second)
        needed_.push_back(resource);
}

void JoinedHeader::write(const std::vector<std::string>& supplied, Core::IO::Stream& output) const {
    const auto writeList = [&](std::string_view comment, const std::vector<std::string>& list) {
        for (const std::string& resource : list) {
            output.write(comment);
            output.write(" " + resource + "\n");
            comment = kMore;
        }
    };
    output.write("%!PS-Adobe-3.0\n");
    for (const std::string& line : first_)
        output.write(line + "\n");
    output.write("%%BoundingBox:" + boxText(box_) + "\n%%HiResBoundingBox:" + boxText(exactBox_) +
                 "\n%%Pages: " + std::to_string(pages_) + "\n%%PageOrder: Ascend\n");
    writeList(kNeeded, needed_);
    writeList(kSupplied, supplied);
    output.write("%%EndComments\n");
}

}  // namespace psrender::join
