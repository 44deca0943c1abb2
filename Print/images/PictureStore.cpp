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

std::string pictureName(PictureStore::Id id) {
    return "I" + std::to_string(id + 1);
}

/// Kept as it is compressed: decoded pictures would fill an interpreter.
void defineStream(const std::string& name, Spool& spool, const Spool::Extent& piece,
                  Core::IO::Stream& output) {
    output.write("/" + name +
                 " currentfile<</Filter/ASCII85Decode>>/ReusableStreamDecode filter\n");
    spool.copyTo(output, piece);
    output.write("def\n");
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
    PictureData data = kind == Kind::stencil
                           ? encodeStencil(spool_, image, selector)
                           : encodePicture(spool_, image, selector, converter_.get());
    samples_.emplace_back(std::move(data));
    return samplesByKey_[std::move(key)] = samples_.size() - 1;
}

PictureStore::Id PictureStore::addPicture(std::size_t samples, PictureLook look) {
    PictureKey key{samples, look.isInterpolated, {}};
    for (const TintedImage::Range& range : look.ranges)
        std::get<2>(key).insert(std::get<2>(key).end(), {range.low, range.high});
    const auto [entry, isNew] =
        picturesByKey_.try_emplace(std::move(key), static_cast<Id>(pictures_.size()));
    if (isNew)
        pictures_.push_back({samples, std::move(look)});
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

void PictureStore::defineSamples(std::size_t index, Core::IO::Stream& output) {
    Samples& samples = samples_[index];
    if (std::exchange(samples.isDefined, true))
        return;
    if (samples.data.mask)
        defineStream(maskName(index), spool_, *samples.data.mask, output);
    defineStream(samplesName(index), spool_, samples.data.samples, output);
}

void PictureStore::writeDefinition(Id id, Core::IO::Stream& output) {
    const Picture& picture = pictures_.at(id);
    defineSamples(picture.samples, output);
    output.write("/" + pictureName(id) + "{" +
                 namedPicture(samplesOf(id).data, picture.look, samplesName(picture.samples),
                              maskName(picture.samples)) +
                 "}bind def\n");
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
    return pictureName(id);
}

}  // namespace Drawing::Print
