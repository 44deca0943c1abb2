#pragma once

#include <pugixml.hpp>
#include <string>
#include <vector>

namespace psrender::svg {

/// Whether the element's conditions (language, features, extensions) let it be shown: the
/// language is English, extensions there are none.
bool conditionsHold(pugi::xml_node element);

/// Takes the elements below `root` away that ask for none of these languages, and the condition
/// from those that ask for one of them. "de" is asked for by "de" and by "de-AT".
void chooseLanguages(pugi::xml_node root, const std::vector<std::string>& languages);

}  // namespace psrender::svg
