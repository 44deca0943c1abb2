#pragma once

namespace psrender::svg {

class SourceText;

/// Replaces references to entities that the document itself declares, as some drawing
/// programs write for their namespaces. External entities stay unread. Throws `InputError`
/// when references nest deeper than 4 or add more than 64 KiB to the text.
void expandEntities(SourceText& source);

}  // namespace psrender::svg
