#pragma once

namespace psrender::svg {

class XmlTree;

/// Renames the elements of a tree so that those of SVG have their plain name, whatever
/// prefix the document gives them, and all others have a colon in theirs. A document that
/// declares no default namespace is taken for SVG.
void normalizeNames(const XmlTree& tree);

}  // namespace psrender::svg
