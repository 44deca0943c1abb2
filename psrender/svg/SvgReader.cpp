#include "psrender/svg/SvgReader.h"

#include "psrender/svg/elements/SceneBuilder.h"
#include "psrender/svg/xml/XmlTree.h"

namespace psrender::svg {

scene::Page readSvg(std::string_view text, const std::string& name, Warnings& warnings,
                    const ImageAccess& images) {
    const XmlTree tree(text, name);
    return SceneBuilder(tree, images, warnings).build();
}

}  // namespace psrender::svg
