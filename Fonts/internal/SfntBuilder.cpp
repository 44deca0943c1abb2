#include "Fonts/internal/SfntBuilder.h"

namespace Fonts {

std::vector<hb_tag_t> tableTags(hb_face_t* face) {
    unsigned count = hb_face_get_table_tags(face, 0, nullptr, nullptr);
    std::vector<hb_tag_t> tags(count);
    hb_face_get_table_tags(face, 0, &count, tags.data());
    return tags;
}

SfntBuilder::SfntBuilder(hb_face_t* face) {
    for (const hb_tag_t tag : tableTags(face))
        tables_[tag].reset(hb_face_reference_table(face, tag));
}

std::vector<std::uint8_t> SfntBuilder::table(hb_tag_t tag) const {
    const auto found = tables_.find(tag);
    if (found == tables_.end())
        return {};
    const Core::ByteArray bytes = bytesOf(found->second.get());
    return {bytes.begin(), bytes.end()};
}

void SfntBuilder::replace(hb_tag_t tag, const std::vector<std::uint8_t>& bytes) {
    tables_[tag].reset(hb_blob_create(reinterpret_cast<const char*>(bytes.data()),
                                      static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_DUPLICATE,
                                      nullptr, nullptr));
}

Core::ByteArray SfntBuilder::build() const {
    const HarfBuzzPtr<hb_face_t> builder(hb_face_builder_create());
    for (const auto& [tag, blob] : tables_)
        hb_face_builder_add_table(builder.get(), tag, blob.get());
    const HarfBuzzPtr<hb_blob_t> file(hb_face_reference_blob(builder.get()));
    return bytesOf(file.get());
}

Core::ByteArray bytesOf(hb_blob_t* blob) {
    unsigned length = 0;
    const char* first = hb_blob_get_data(blob, &length);
    return {first, length};
}

}  // namespace Fonts
