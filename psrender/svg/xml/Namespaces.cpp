#include "psrender/svg/xml/Namespaces.h"

#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <string>
#include <string_view>
#include <vector>

namespace psrender::svg {

namespace {

constexpr std::string_view kSvgNamespace = "http://www.w3.org/2000/svg";
constexpr std::size_t kMostBindings = 500;
constexpr std::size_t kMostAttributes = 500;

/// A prefix (empty: the default) from the element at `depth` on downwards.
struct Binding {
    std::string_view prefix;
    bool isSvg;
    std::size_t depth;
};

class Normalizer {
public:
    explicit Normalizer(const XmlTree& tree) : tree_(tree) {}

    void enter(pugi::xml_node element, std::size_t depth) {
        while (!bindings_.empty() && bindings_.back().depth >= depth)
            bindings_.pop_back();
        readBindings(element, depth);
        rename(element);
    }

private:
    void readBindings(pugi::xml_node element, std::size_t depth);
    void rename(pugi::xml_node element) const;
    [[nodiscard]] bool isSvg(std::string_view prefix) const;

    const XmlTree& tree_;
    std::vector<Binding> bindings_;
};

void Normalizer::readBindings(pugi::xml_node element, std::size_t depth) {
    std::size_t attributes = 0;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const std::string_view name = attribute.name();
        if (++attributes > kMostAttributes)
            tree_.fail(element, "an element has more than 500 attributes; remove some");
        if (!name.starts_with("xmlns"))
            continue;
        if (name.size() == 5)
            bindings_.push_back({{}, attribute.value() == kSvgNamespace, depth});
        else if (name[5] == ':')
            bindings_.push_back({name.substr(6), attribute.value() == kSvgNamespace, depth});
    }
    if (bindings_.size() > kMostBindings)
        tree_.fail(element, "more than 500 namespaces are declared at once; remove some");
}

void Normalizer::rename(pugi::xml_node element) const {
    const std::string_view name = element.name();
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos) {
        if (!isSvg({}))
            element.set_name((":" + std::string(name)).c_str());
    } else if (isSvg(name.substr(0, colon))) {
        element.set_name(std::string(name.substr(colon + 1)).c_str());
    }
}

/// Prefixes that nobody declared are foreign, except for the default one.
bool Normalizer::isSvg(std::string_view prefix) const {
    for (auto binding = bindings_.rbegin(); binding != bindings_.rend(); ++binding)
        if (binding->prefix == prefix)
            return binding->isSvg;
    return prefix.empty();
}

}  // namespace

void normalizeNames(const XmlTree& tree) {
    Normalizer normalizer(tree);
    forEachElement(tree.root(), [&normalizer](pugi::xml_node element, std::size_t depth) {
        normalizer.enter(element, depth);
    });
}

}  // namespace psrender::svg
