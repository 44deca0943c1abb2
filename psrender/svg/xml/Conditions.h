#pragma once

#include <pugixml.hpp>

namespace psrender::svg {

/// Whether the element's conditions (language, features, extensions) let it be shown: the
/// language is English, extensions there are none.
bool conditionsHold(pugi::xml_node element);

}  // namespace psrender::svg
