#pragma once

#include "Core/Stream.h"
#include "psrender/job/join/PartHead.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace psrender::join {

/// What a part calls its resources, and what they are called in the whole document.
using NameTable = std::map<std::string, std::string, std::less<>>;

/// The resources of all parts, each once: what two parts define in the same words, but for the
/// names, is the same. Only names and places are kept; the text stays in the files.
class ResourcePool {
public:
    /// Adds the resources of the next part, which are in `file`.
    void addPart(const std::string& name, const std::vector<Resource>& resources, LineReader& file);

    [[nodiscard]] std::size_t partCount() const { return tables_.size(); }
    /// Of a part, counted from 0.
    [[nodiscard]] const NameTable& namesOf(std::size_t part) const { return tables_.at(part); }
    /// Kind and name of each resource, as DSC comments have them.
    [[nodiscard]] std::vector<std::string> list() const;

    /// Writes the definitions, read again from the parts.
    void write(Core::IO::Stream& output) const;

private:
    struct Entry {
        std::size_t part;
        Resource resource;  ///< under its name in the whole document
        std::vector<std::string> names;
    };
    /// What tells two resources apart.
    using Digest = std::pair<std::uint64_t, std::uint64_t>;

    void add(const Resource& resource, LineReader& file);

    std::vector<std::string> files_;
    std::vector<NameTable> tables_;
    std::vector<Entry> entries_;
    std::map<Digest, std::size_t> entryByDigest_;
};

}  // namespace psrender::join
