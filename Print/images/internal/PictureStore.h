#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Drawing/Image.h"
#include "Print/ColorConverter.h"
#include "Print/internal/Spool.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Drawing::Print {

/// The pictures of one document. A picture is encoded once, when it is first added, into the spool
/// as whole ASCII lines; what stays in memory is a record of its shape. So images may go at once.
///
/// How often a picture is shown is known only when the whole document is: then the document is put
/// together with a definition for each picture that is shared, and the data of the others inline.
class PictureStore {
public:
    using Id = std::uint32_t;

    /// `spool` must outlive the store. `converter` null: colours as they are given.
    PictureStore(Spool& spool, Core::SmartPtr<ColorConverter> converter);

    /// The picture for `image` in version `selector`; the same id for equal hash key, selector,
    /// interpolation and tint. Raises `FormatException` for an image without pixels, or with fewer
    /// than its size needs, and what the image itself raises; nothing is kept then.
    Id add(const Core::SmartPtr<Image>& image, int selector);
    /// The shape of `image` as a mask that is painted in the current colour: where its alpha is at
    /// least half, or, without alpha, where a one-bit image is black. Raises `FormatException` for
    /// any other image, and as `add` does.
    Id addStencil(const Core::SmartPtr<Image>& image, int selector);

    /// Notes that the picture is shown once more: on `page` (0 ...), or within a form or tile.
    void noteUse(Id id, std::uint32_t page);
    void noteNestedUse(Id id);

    /// Whether the picture needs a definition: its data is shown more than once, or nested. The
    /// three questions may be asked when all uses are noted.
    [[nodiscard]] bool isShared(Id id) const;
    /// The one page on which the data of a shared picture is shown; its definition may then stand
    /// in that page's set-up. Nothing if it is nested or on several pages.
    [[nodiscard]] std::optional<std::uint32_t> onlyPage(Id id) const;

    /// Lines that define a shared picture, once for each.
    void writeDefinition(Id id, Core::IO::Stream& output);
    /// Lines that show the picture in the unit square of the current space, y downwards, rows from
    /// the top: by its definition if it is shared, else with its data behind them, so that they
    /// must be run from the file. Colour space and colour are others afterwards, except for
    /// stencils: put the lines between gsave and grestore.
    void writeUse(Id id, Core::IO::Stream& output);
    /// The same for a shared picture, as text that may stand in a procedure.
    [[nodiscard]] std::string callText(Id id) const;
};

}  // namespace Drawing::Print
