#include "psrender/job/join/ResourcePool.h"

#include "psrender/job/join/ResourceNames.h"

#include <xxhash.h>

#include <algorithm>
#include <memory>
#include <new>
#include <optional>

namespace psrender::join {

namespace {

template <class Action>
void forEachPiece(const Resource& resource, LineReader& file, Action action) {
    file.seek(resource.begin);
    while (file.offset() < resource.end)
        if (const auto piece = file.next())
            action(*piece);
        else
            return;
}

/// A digest of the text in which the resource's own names are numbers, and others those of the
/// whole document.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): final, and never held as a sink.
class Digester final : public NameSink {
public:
    Digester(const Resource& resource, const NameTable& known)
        : isFont_(resource.kind == "font"), known_(known), state_(XXH3_createState()) {
        if (!state_)
            throw std::bad_alloc();
        XXH3_128bits_reset(state_.get());
    }

    void text(std::string_view piece) override {
        XXH3_128bits_update(state_.get(), piece.data(), piece.size());
    }

    void name(std::string_view word, bool isLiteral) override {
        if (const auto known = known_.find(word); known != known_.end())
            text(known->second);
        else if (const auto number = ownNumber(word, isLiteral))
            text("\x02" + std::to_string(*number) + "\x03");
        else
            text(word);
    }

    [[nodiscard]] const std::vector<std::string>& ownNames() const { return own_; }
    [[nodiscard]] std::pair<std::uint64_t, std::uint64_t> digest() const {
        const XXH128_hash_t hash = XXH3_128bits_digest(state_.get());
        return {hash.high64, hash.low64};
    }

private:
    struct Deleter {
        void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
    };

    /// Fonts hold names of glyphs, which may look like those of forms.
    std::optional<std::size_t> ownNumber(std::string_view word, bool isLiteral) {
        if (isFont_ != (word.front() == 'F'))
            return std::nullopt;
        const auto found = std::ranges::find(own_, word);
        if (found == own_.end() && !isLiteral)
            return std::nullopt;
        const auto number = static_cast<std::size_t>(found - own_.begin());
        if (number == own_.size())
            own_.emplace_back(word);
        return number;
    }

    bool isFont_;
    const NameTable& known_;
    std::vector<std::string> own_;
    std::unique_ptr<XXH3_state_t, Deleter> state_;
};

/// Writes the text under the names of the whole document.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): likewise.
class Renamer final : public NameSink {
public:
    Renamer(const NameTable& names, Core::IO::Stream& output) : names_(names), output_(output) {}

    void text(std::string_view piece) override { output_.write(piece); }
    void name(std::string_view word, bool /*isLiteral*/) override {
        const auto found = names_.find(word);
        output_.write(found == names_.end() ? word : std::string_view(found->second));
    }

private:
    const NameTable& names_;
    Core::IO::Stream& output_;
};

}  // namespace

void ResourcePool::addPart(const std::string& name, const std::vector<Resource>& resources,
                           LineReader& file) {
    files_.push_back(name);
    tables_.emplace_back();
    for (const Resource& resource : resources)
        add(resource, file);
}

void ResourcePool::add(const Resource& resource, LineReader& file) {
    NameTable& table = tables_.back();
    Digester digester(resource, table);
    ResourceNames names;
    forEachPiece(resource, file, [&](std::string_view piece) { names.scan(piece, digester); });
    const auto [known, isNew] = entryByDigest_.try_emplace(digester.digest(), entries_.size());
    if (isNew) {
        const std::string suffix = "." + std::to_string(tables_.size());
        Entry entry{tables_.size() - 1, resource, digester.ownNames()};
        entry.resource.name += suffix;
        for (std::string& own : entry.names)
            own += suffix;
        entries_.push_back(std::move(entry));
    }
    const Entry& entry = entries_[known->second];
    for (std::size_t i = 0; i < entry.names.size(); ++i)
        table.insert_or_assign(digester.ownNames()[i], entry.names[i]);
}

std::vector<std::string> ResourcePool::list() const {
    std::vector<std::string> result;
    for (const Entry& entry : entries_)
        result.push_back(entry.resource.kind + " " + entry.resource.name);
    return result;
}

void ResourcePool::write(Core::IO::Stream& output) const {
    std::optional<LineReader> file;
    std::size_t opened = 0;
    for (const Entry& entry : entries_) {
        if (!file || opened != entry.part)
            file.emplace(files_[entry.part]);
        opened = entry.part;
        output.write("%%BeginResource: " + entry.resource.kind + " " + entry.resource.name + "\n");
        Renamer renamer(tables_[entry.part], output);
        ResourceNames names;
        forEachPiece(entry.resource, *file,
                     [&](std::string_view piece) { names.scan(piece, renamer); });
        output.write("%%EndResource\n");
    }
}

}  // namespace psrender::join
