#include "psrender/job/PageFacts.h"

#include "Fonts/CffFont.h"
#include "Fonts/StandardFont.h"
#include "Fonts/Type1Font.h"

#include <functional>
#include <set>
#include <utility>

namespace psrender {

namespace {

using scene::Item;
using scene::ItemList;

/// Calls `use` for each item of a page and of the lists that it refers to, and those once only.
class ItemWalk {
public:
    explicit ItemWalk(std::function<void(const Item&)> use) : use_(std::move(use)) {}

    void walk(const ItemList& list) {
        if (!seen_.insert(&list).second)
            return;
        for (const Item& item : list.items) {
            use_(item);
            descend(item);
        }
    }

private:
    void descend(const Item& item) {
        if (const auto* placement = std::get_if<scene::Placement>(&item))
            walk(*placement->symbol);
        else if (const auto* group = std::get_if<scene::BeginGroup>(&item))
            descendGroup(*group);
        else if (const auto* shape = std::get_if<scene::Shape>(&item))
            descendPaints(*shape);
        else if (const auto* text = std::get_if<scene::Text>(&item))
            descendPaints(*text);
    }

    void descendGroup(const scene::BeginGroup& group) {
        if (group.clip)
            walk(*group.clip->area);
        if (group.effects && group.effects->mask)
            walk(*group.effects->mask->content);
    }

    template <class Painted>
    void descendPaints(const Painted& item) {
        for (const scene::Paint* paint : {&item.fill, &item.stroke})
            if (const scene::Pattern* pattern = paint->pattern())
                walk(*pattern->content);
    }

    std::function<void(const Item&)> use_;
    std::set<const ItemList*> seen_;
};

FontWay wayOf(const Fonts::FontProgram& program, bool embedsStandardFonts) {
    if (dynamic_cast<const Fonts::StandardFont*>(&program) != nullptr)
        return embedsStandardFonts ? FontWay::embedded : FontWay::printer;
    const auto* cff = dynamic_cast<const Fonts::CffFont*>(&program);
    const auto* type1 = dynamic_cast<const Fonts::Type1Font*>(&program);
    const bool mustStayWhole =
        (cff != nullptr && !cff->isSubsettable()) || (type1 != nullptr && !type1->isSubsettable());
    return program.isEmbeddable() && !mustStayWhole ? FontWay::embedded : FontWay::outlined;
}

std::string nameOf(const scene::Text& text) {
    return text.run->program->getMetrics().postScriptName.toUtf8();
}

void noteFont(PageFacts::Font& font, const scene::TextRun& run) {
    if (!run.standsFor.empty())
        font.standsFor.insert(run.standsFor);
}

}  // namespace

void FactCollector::noteRead(const scene::Page& page) {
    ItemWalk([this](const Item& item) {
        if (const auto* text = std::get_if<scene::Text>(&item))
            noteFont(facts_.fonts[nameOf(*text)], *text->run);
    }).walk(page);
}

void FactCollector::notePlanned(const scene::Page& page) {
    facts_.width = page.width;
    facts_.height = page.height;
    std::map<Core::String, PageFacts::Picture> pictures;
    ItemWalk([&](const Item& item) {
        if (const auto* text = std::get_if<scene::Text>(&item))
            facts_.fonts[nameOf(*text)].way = wayOf(*text->run->program, embedsStandardFonts_);
        if (const auto* picture = std::get_if<scene::Picture>(&item)) {
            PageFacts::Picture& known = pictures[picture->image->getHashKey()];
            known.size = picture->image->getPixelSize();
            ++known.places;
        }
    }).walk(page);
    for (const auto& [key, picture] : pictures)
        facts_.pictures.push_back(picture);
}

PageFacts FactCollector::take(const std::string& input, std::size_t number,
                              const Warnings& warnings) {
    facts_.input = input;
    facts_.number = number;
    facts_.simplified = warnings.kinds();
    return std::exchange(facts_, {});
}

}  // namespace psrender
