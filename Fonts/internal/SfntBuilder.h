#pragma once

#include "Core/ByteArray.h"
#include "Fonts/internal/HarfBuzz.h"

#include <cstdint>
#include <map>
#include <vector>

namespace Fonts {

/// Writes a face as a file of its own, after some of its tables have been replaced. The same
/// tables give the same bytes.
class SfntBuilder {
public:
    /// Starts with all tables of `face`.
    explicit SfntBuilder(hb_face_t* face);

    [[nodiscard]] std::vector<std::uint8_t> table(hb_tag_t tag) const;
    void replace(hb_tag_t tag, const std::vector<std::uint8_t>& bytes);
    [[nodiscard]] Core::ByteArray build() const;

private:
    std::map<hb_tag_t, HarfBuzzPtr<hb_blob_t>> tables_;
};

[[nodiscard]] std::vector<hb_tag_t> tableTags(hb_face_t* face);

/// The bytes of a blob.
[[nodiscard]] Core::ByteArray bytesOf(hb_blob_t* blob);

}  // namespace Fonts
