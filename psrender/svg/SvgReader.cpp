#include "psrender/svg/SvgReader.h"

#include "psrender/svg/elements/SceneBuilder.h"
#include "psrender/svg/xml/XmlTree.h"

namespace psrender::svg {

scene::Page readSvg(std::string_view text, const std::string& name, Warnings& warnings,
                    const ImageAccess& images, const ReadingLimits& limits,
                    const ReadingWishes& wishes) {
    const XmlTree tree(text, name, limits, wishes.languages);
    return SceneBuilder(tree, images, warnings, limits, wishes).build();
}

}  // namespace psrender::svg
