#pragma once

#include "Core/ByteArray.h"
#include "Core/String.h"
#include "Fonts/internal/HarfBuzz.h"

#include <cstdint>
#include <span>
#include <string>

namespace Fonts {

/// The bytes of a font file, mapped from disk or owned. They stay where they are when the object
/// moves.
class FontBytes {
public:
    /// Raises `FontException` if the file is not there or empty, and `Core::IOException` if the
    /// system fails to read it.
    explicit FontBytes(const std::string& fileName);
    /// `name` is for messages and may tell where the data came from.
    FontBytes(const Core::ByteArray& data, std::string name);

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] std::span<const std::uint8_t> span() const { return bytes_; }
    [[nodiscard]] hb_blob_t* blob() const { return blob_.get(); }

private:
    void refer();

    std::string name_;
    HarfBuzzPtr<hb_blob_t> blob_;
    std::span<const std::uint8_t> bytes_;
};

}  // namespace Fonts
