#include "psrender/job/join/Join.h"

#include "psrender/base/InputError.h"
#include "psrender/job/join/JoinedHeader.h"
#include "psrender/job/join/PageCopier.h"
#include "psrender/job/join/ResourcePool.h"

#include <algorithm>
#include <string_view>

namespace psrender::join {

namespace {

constexpr std::string_view kDictionary = "/PSGraphicsPrint 120 dict def\n";

/// Pages select fonts by the names of their part, which stand for those of the whole document.
constexpr std::string_view kFontProcedure =
    "/tf{exch dup where{exch get}if exch[exch dup 0 0 3 -1 roll neg 0 0]selectfont}bind def\n";

struct Part {
    std::string name;
    std::uint64_t pagesBegin;
    std::size_t pages;
};

class Joiner {
public:
    std::vector<std::string> join(const std::vector<std::string>& parts, Core::IO::Stream& output) {
        for (const std::string& part : parts)
            add(part);
        header_.write(suppliedResources(), output);
        writeProlog(output);
        writeSetup(output);
        copyPages(output);
        output.write("%%Trailer\nend\n%%EOF\n");
        output.flush();
        return std::move(others_);
    }

private:
    void add(const std::string& name) {
        LineReader file(name);
        const PartHead head = readHead(name, file);
        if (head.prolog.find(kFontProcedure) != std::string::npos)
            throw InputError({name}, "is joined already; join its parts in its place");
        if (parts_.empty())
            requests_ = head.requests;
        else if (head.requests != requests_)
            others_.push_back(name);
        if (std::ranges::find(prologs_, head.prolog) == prologs_.end())
            prologs_.push_back(head.prolog);
        resources_.addPart(name, head.resources, file);
        parts_.push_back({name, head.pages, header_.add(head.comments)});
    }

    [[nodiscard]] std::vector<std::string> suppliedResources() const {
        std::vector<std::string> supplied = resources_.list();
        supplied.insert(supplied.begin(), "procset PSGraphicsPrint 1 0");
        return supplied;
    }

    /// Documents have the procedures that they need, so all of them together have all.
    void writeProlog(Core::IO::Stream& output) {
        std::ranges::stable_sort(prologs_, std::ranges::greater(), &std::string::size);
        output.write("%%BeginProlog\n%%BeginResource: procset PSGraphicsPrint 1 0\n");
        output.write(prologs_.front());
        for (auto it = prologs_.begin() + 1; it != prologs_.end(); ++it) {
            std::string more = *it;
            if (const auto at = more.find(kDictionary); at != std::string::npos)
                more.erase(at, kDictionary.size());
            output.write(more);
        }
        output.write("PSGraphicsPrint begin\n");
        output.write(kFontProcedure);
        output.write("end\n%%EndResource\n%%EndProlog\n");
    }

    void writeSetup(Core::IO::Stream& output) const {
        output.write("%%BeginSetup\nPSGraphicsPrint begin\n");
        output.write(requests_);
        resources_.write(output);
        for (std::size_t part = 0; part < parts_.size(); ++part)
            writeNames(part, output);
        output.write("%%EndSetup\n");
    }

    static std::string dictionaryOf(std::size_t part) { return "p" + std::to_string(part + 1); }

    void writeNames(std::size_t part, Core::IO::Stream& output) const {
        const NameTable& names = resources_.namesOf(part);
        if (names.empty())
            return;
        output.write("/" + dictionaryOf(part) + " " + std::to_string(names.size() + 2) +
                     " dict def " + dictionaryOf(part) + " begin\n");
        for (const auto& [own, common] : names) {
            output.write("/");
            output.write(own);
            output.write("/");
            output.write(common);
            output.write(own.starts_with('F') ? " def\n" : " load def\n");
        }
        output.write("end\n");
    }

    void copyPages(Core::IO::Stream& output) {
        PageCopier copier(output);
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            const Part& part = parts_[i];
            LineReader file(part.name);
            file.seek(part.pagesBegin);
            const bool hasNames = !resources_.namesOf(i).empty();
            const std::size_t pages = copier.copy(file, hasNames ? dictionaryOf(i) : "");
            if (pages != part.pages)
                throw InputError({part.name}, "has " + std::to_string(pages) + " pages and not " +
                                                  std::to_string(part.pages) +
                                                  " as it says; make it again");
        }
    }

    JoinedHeader header_;
    ResourcePool resources_;
    std::vector<Part> parts_;
    std::vector<std::string> prologs_;  ///< different ones
    std::string requests_;
    std::vector<std::string> others_;
};

}  // namespace

std::vector<std::string> joinDocuments(const std::vector<std::string>& parts,
                                       Core::IO::Stream& output) {
    return Joiner().join(parts, output);
}

}  // namespace psrender::join
