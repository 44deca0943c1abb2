#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Drawing/Image.h"
#include "Drawing/TintedImage.h"
#include "Print/ColorConverter.h"
#include "Print/images/internal/PictureData.h"
#include "Print/images/internal/PictureText.h"
#include "Print/internal/Spool.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace Drawing::Print {

/// The pictures of one document. A picture is encoded once, when it is first added, into the spool
/// as whole ASCII lines; what stays in memory is a record of its shape. So images may go at once.
/// No piece of the spool may be open meanwhile. Tints of one image share its data.
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

    /// Pictures have the ids from 0 to below it.
    [[nodiscard]] Id count() const { return static_cast<Id>(pictures_.size()); }

    /// Its kind and name, as DSC comments have them.
    [[nodiscard]] std::string resourceOf(Id id) const { return "form " + pictures_.at(id).name; }

    /// Nothing is defined yet in the file that is now written; a document can be written again.
    void beginFile();
    /// Lines that define a shared picture, once for each.
    void writeDefinition(Id id, Core::IO::Stream& output);
    /// Lines that show the picture in the unit square of the current space, y downwards, rows from
    /// the top: by its definition if it is shared, else with its data behind them, so that they
    /// must be run from the file. Colour space and colour are others afterwards, except for
    /// stencils: put the lines between gsave and grestore.
    void writeUse(Id id, Core::IO::Stream& output);
    /// The same for a shared picture, as text that may stand in a procedure.
    [[nodiscard]] std::string callText(Id id) const;

private:
    /// Samples that one or more pictures show.
    struct Samples {
        PictureData data;
        std::uint64_t uses = 0;
        bool isNested = false;
        std::optional<std::uint32_t> page;  ///< of the first use
        bool isOnSeveralPages = false;
        bool isDefined = false;
        bool isDecoded = false;  ///< by the interpreter, when it is defined
    };
    struct Picture {
        std::size_t samples;
        PictureLook look;
        std::string name;
    };
    enum class Kind { colors, stencil };
    /// Hash key, selector, kind. A tint that cannot be left to `Decode` has a key of its own.
    using SamplesKey = std::tuple<Core::String, int, Kind>;
    /// The samples, interpolation, and the ranges of a tint one after another.
    using PictureKey = std::tuple<std::size_t, bool, std::vector<double>>;

    [[nodiscard]] bool isTintLeft(const TintedImage& image) const;
    std::size_t addSamples(const Image& image, int selector, Kind kind);
    Id addPicture(std::size_t samples, PictureLook look);
    [[nodiscard]] const Samples& samplesOf(Id id) const;
    Samples& samplesOf(Id id);
    void defineSamples(std::size_t index, Core::IO::Stream& output);

    Spool& spool_;
    Core::SmartPtr<ColorConverter> converter_;
    std::uint64_t decodedInAll_ = 0;
    std::vector<Samples> samples_;
    std::vector<Picture> pictures_;
    std::map<SamplesKey, std::size_t> samplesByKey_;
    std::map<PictureKey, Id> picturesByKey_;
};

}  // namespace Drawing::Print
