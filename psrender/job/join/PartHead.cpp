#include "psrender/job/join/PartHead.h"

#include "psrender/base/InputError.h"

#include <algorithm>
#include <string_view>

namespace psrender::join {

namespace {

constexpr std::string_view kEnd = "%%Trailer\nend\n%%EOF\n";

class HeadReader {
public:
    HeadReader(const std::string& name, LineReader& file) : name_(name), file_(file) {}

    PartHead read() {
        requireWhole();
        PartHead head;
        if (line() != "%!PS-Adobe-3.0\n")
            refuse();
        for (std::string_view it = line(); it != "%%EndComments\n"; it = line())
            head.comments.emplace_back(it.substr(0, it.size() - 1));
        expect("%%BeginProlog\n");
        expect("%%BeginResource: procset PSGraphicsPrint 1 0\n");
        for (std::string_view it = line(); it != "%%EndResource\n"; it = line())
            head.prolog += it;
        expect("%%EndProlog\n");
        expect("%%BeginSetup\n");
        expect("PSGraphicsPrint begin\n");
        for (std::string_view it = line(); it != "%%EndSetup\n"; it = line())
            if (it.starts_with(kBegin))
                head.resources.push_back(resource(it));
            else
                head.requests += it;
        head.pages = file_.offset();
        return head;
    }

private:
    static constexpr std::string_view kBegin = "%%BeginResource: ";

    [[noreturn]] void refuse() const {
        throw InputError({name_},
                         "is no PostScript document of this psrender; make it again from its "
                         "drawings, and not as EPS");
    }

    void requireWhole() {
        const std::uint64_t length = file_.length();
        if (length == 0)
            throw InputError({name_}, "is empty; make it again");
        file_.seek(length - std::min<std::uint64_t>(length, kEnd.size()));
        std::string end;
        while (const auto it = file_.next())
            end += *it;
        file_.seek(0);
        if (const auto first = file_.next(); !first || !first->starts_with("%!PS-Adobe-3.0"))
            refuse();
        if (end != kEnd)
            throw InputError({name_},
                             "has no end or another one than documents of psrender; make "
                             "it again");
        file_.seek(0);
    }

    std::string_view line() {
        const std::string_view it = piece();
        if (!it.ends_with('\n'))
            refuse();
        return it;
    }

    void expect(std::string_view text) {
        if (line() != text)
            refuse();
    }

    /// `comment` is the line that begins it.
    Resource resource(std::string_view comment) {
        comment = comment.substr(kBegin.size(), comment.size() - kBegin.size() - 1);
        const std::size_t space = comment.find(' ');
        if (space == std::string_view::npos)
            refuse();
        Resource result{std::string(comment.substr(0, space)),
                        std::string(comment.substr(space + 1)), file_.offset(), 0};
        do
            result.end = file_.offset();
        while (piece() != "%%EndResource\n" || !file_.isBeginning());
        return result;
    }

    std::string_view piece() {
        const auto it = file_.next();
        if (!it)
            refuse();
        return *it;
    }

    const std::string& name_;
    LineReader& file_;
};

}  // namespace

PartHead readHead(const std::string& name, LineReader& file) {
    return HeadReader(name, file).read();
}

}  // namespace psrender::join
