#include "Print/images/internal/PictureStore.h"

#include <utility>

namespace Drawing::Print {

namespace {

std::string samplesName(std::size_t index) {
    return "I" + std::to_string(index + 1) + "d";
}

std::string maskName(std::size_t index) {
    return "I" + std::to_string(index + 1) + "m";
}

/// An interpreter shows decoded samples many times faster, but they must not fill it: those that
/// take more than this, of one picture or of all in a document, stay compressed.
constexpr std::uint64_t kMostDecoded = std::uint64_t{1} << 19;
constexpr std::uint64_t kMostDecodedInAll = std::uint64_t{1} << 23;

/// A byte a pixel, or less, is neglected for pictures of bits.
std::uint64_t decodedSize(const PictureData& data) {
    return static_cast<std::uint64_t>(data.size.width) *
           static_cast<std::uint64_t>(data.size.height) *
           static_cast<std::uint64_t>(data.components);
}

void defineStream(const std::string& name, const std::string& stream, Spool& spool,
                  const Spool::Extent& piece, Core::IO::Stream& output) {
    output.write("/" + name + " " + stream + "\n");
    spool.copyTo(output, piece);
    output.write("def\n");
}

/// A form (PLRM 4.7), so that programs that make PDF put the picture there once, and need not
/// compress it anew to see that it is the same.
std::string formText(const std::string& paint) {
    return "<</FormType 1/BBox[0 0 1 1]/Matrix[1 0 0 1 0 0]/PaintProc{pop " + paint + "}bind>>";
}

}  // namespace

PictureStore::PictureStore(Spool& spool, Core::SmartPtr<ColorConverter> converter)
    : spool_(spool), converter_(std::move(converter)) {}

/// Colours that are mixed with white, or brought to another space, have to be tinted before.
bool PictureStore::isTintLeft(const TintedImage& image) const {
    return !image.hasAlpha() &&
           (!converter_ || converter_->getTarget() == image.getColorSpace()->getType());
}

PictureStore::Id PictureStore::add(const Core::SmartPtr<Image>& image, int selector) {
    PictureLook look{image->isInterpolated(), {}};
    const auto* tinted = dynamic_cast<const TintedImage*>(image.get());
    if (tinted == nullptr || !isTintLeft(*tinted))
        return addPicture(addSamples(*image, selector, Kind::colors), std::move(look));
    look.ranges = tinted->getRanges();
    return addPicture(addSamples(*tinted->getOriginal(), selector, Kind::colors), std::move(look));
}

PictureStore::Id PictureStore::addStencil(const Core::SmartPtr<Image>& image, int selector) {
    return addPicture(addSamples(*image, selector, Kind::stencil), {image->isInterpolated(), {}});
}

std::size_t PictureStore::addSamples(const Image& image, int selector, Kind kind) {
    SamplesKey key{image.getHashKey(), selector, kind};
    if (const auto found = samplesByKey_.find(key); found != samplesByKey_.end())
        return found->second;
    Samples samples;
    samples.data = kind == Kind::stencil ? encodeStencil(spool_, image, selector)
                                         : encodePicture(spool_, image, selector, converter_.get());
    samples_.push_back(std::move(samples));
    return samplesByKey_[std::move(key)] = samples_.size() - 1;
}

PictureStore::Id PictureStore::addPicture(std::size_t samples, PictureLook look) {
    PictureKey key{samples, look.isInterpolated, {}};
    for (const TintedImage::Range& range : look.ranges)
        std::get<2>(key).insert(std::get<2>(key).end(), {range.low, range.high});
    const auto [entry, isNew] =
        picturesByKey_.try_emplace(std::move(key), static_cast<Id>(pictures_.size()));
    if (isNew)
        pictures_.push_back({samples, std::move(look), "I" + std::to_string(entry->second + 1)});
    return entry->second;
}

const PictureStore::Samples& PictureStore::samplesOf(Id id) const {
    return samples_[pictures_.at(id).samples];
}

PictureStore::Samples& PictureStore::samplesOf(Id id) {
    return samples_[pictures_.at(id).samples];
}

void PictureStore::noteUse(Id id, std::uint32_t page) {
    Samples& samples = samplesOf(id);
    ++samples.uses;
    samples.isOnSeveralPages = samples.isOnSeveralPages || samples.page.value_or(page) != page;
    samples.page = page;
}

void PictureStore::noteNestedUse(Id id) {
    samplesOf(id).isNested = true;
}

bool PictureStore::isShared(Id id) const {
    const Samples& samples = samplesOf(id);
    return samples.isNested || samples.uses > 1;
}

std::optional<std::uint32_t> PictureStore::onlyPage(Id id) const {
    const Samples& samples = samplesOf(id);
    return samples.isNested || samples.isOnSeveralPages ? std::nullopt : samples.page;
}

void PictureStore::beginFile() {
    decodedInAll_ = 0;
    for (Samples& samples : samples_)
        samples.isDefined = false;
}

void PictureStore::defineSamples(std::size_t index, Core::IO::Stream& output) {
    Samples& samples = samples_[index];
    if (std::exchange(samples.isDefined, true))
        return;
    const PictureData& data = samples.data;
    const std::uint64_t size = decodedSize(data);
    samples.isDecoded = data.coding != PictureCoding::jpeg && size <= kMostDecoded &&
                        decodedInAll_ + size <= kMostDecodedInAll;
    decodedInAll_ += samples.isDecoded ? size : 0;
    if (data.mask)
        defineStream(maskName(index), samples.isDecoded ? decodedMaskStream() : encodedStream(),
                     spool_, *data.mask, output);
    defineStream(samplesName(index),
                 samples.isDecoded ? decodedSamplesStream(data) : encodedStream(), spool_,
                 data.samples, output);
}

void PictureStore::writeDefinition(Id id, Core::IO::Stream& output) {
    const Picture& picture = pictures_.at(id);
    defineSamples(picture.samples, output);
    const Samples& samples = samplesOf(id);
    const std::string& name = picture.name;
    const std::string paint = namedPicture(samples.data, picture.look, samplesName(picture.samples),
                                           maskName(picture.samples), samples.isDecoded);
    if (samples.data.space.empty())  // forms may be kept with the colour that a stencil had first
        output.write("/" + name + "{" + paint + "}bind def\n");
    else
        output.write("/" + name + "f" + formText(paint) + "def/" + name + "{" + name +
                     "f execform}bind def\n");
}

void PictureStore::writeUse(Id id, Core::IO::Stream& output) {
    if (isShared(id)) {
        output.write(callText(id) + "\n");
        return;
    }
    const PictureData& data = samplesOf(id).data;
    output.write(inlinePicture(data, pictures_.at(id).look));
    if (data.mask)
        spool_.copyTo(output, *data.mask);
    spool_.copyTo(output, data.samples);
}

std::string PictureStore::callText(Id id) const {
    return pictures_.at(id).name;
}

}  // namespace Drawing::Print
