#pragma once

#include <cstddef>
#include <pugixml.hpp>

namespace psrender::svg {

inline pugi::xml_node firstElement(pugi::xml_node node) {
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

inline pugi::xml_node firstChildElement(pugi::xml_node parent) {
    return firstElement(parent.first_child());
}

inline pugi::xml_node nextElement(pugi::xml_node node) {
    return firstElement(node.next_sibling());
}

inline pugi::xml_node previousElement(pugi::xml_node node) {
    do
        node = node.previous_sibling();
    while (node && node.type() != pugi::node_element);
    return node;
}

/// The element around `node`, or nothing for the root.
inline pugi::xml_node parentElement(pugi::xml_node node) {
    const pugi::xml_node parent = node.parent();
    return parent.type() == pugi::node_element ? parent : pugi::xml_node();
}

/// Calls `visit(element, depth)` for `root` (depth 0) and every element in it, in document
/// order and without recursion.
template <typename Visitor>
void forEachElement(pugi::xml_node root, Visitor visit) {
    std::size_t depth = 0;
    pugi::xml_node node = root;
    while (node) {
        visit(node, depth);
        if (const pugi::xml_node child = firstChildElement(node)) {
            node = child;
            ++depth;
            continue;
        }
        while (node != root && !nextElement(node)) {
            node = node.parent();
            --depth;
        }
        node = node == root ? pugi::xml_node() : nextElement(node);
    }
}

}  // namespace psrender::svg
