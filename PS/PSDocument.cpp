// The document as an object: its streams and registries, its copies, and the two writers that
// everything else is built on.

#include "PS/PSDocument.h"
#include "PS/fonts/PSFontResource.h"

#include "Core/ByteArray.h"
#include "Core/Encoder.h"
#include "Core/Exception.h"
#include "Core/FileStream.h"
#include "Core/FileSystem.h"
#include "Drawing/Image.h"
#include "Drawing/Object3D.h"
#include "Fonts/ResourceManagerImpl.h"

#include <utility>

namespace Drawing::PS {

namespace {

/// Private, empty, for writing and for reading back; gone with the last reference.
Core::SmartPtr<Core::IO::Stream> openScript() {
    const Core::String name = Core::IO::FileSystem::getTempFileName(Core::String());
    return Core::makeObject<Core::IO::FileStream>(name, true, true, false);
}

}  // namespace

PSDocument::PSDocument(Core::IO::Stream* output, bool kernText)
    : scriptStream(openScript()),
      outputStream(output),
      pageDeviceFlag(true),
      kerning(kernText),
      resourceManager(Core::makeObject<Fonts::ResourceManagerImpl>()) {}

PSDocument::PSDocument(Core::IO::Stream* stream, SizeF size, bool kernText)
    : scriptStream(stream),
      graphicsState(Core::makeObject<PSGraphicsState>(size)),
      kerning(kernText),
      resourceManager(Core::makeObject<Fonts::ResourceManagerImpl>()) {
    graphicsState->newPathFlag = 1;
}

PSDocument::PSDocument(const PSDocument& other) = default;
PSDocument& PSDocument::operator=(const PSDocument& other) = default;
PSDocument::~PSDocument() = default;

OutputType PSDocument::getType() const {
    return OutputType::postScript;
}

void PSDocument::startDocument() {}

void PSDocument::setProperty(const Core::String& /*name*/, const Core::String& /*value*/) {}

void PSDocument::writeClip() {}

Core::SmartPtr<Core::IO::Stream> PSDocument::getDocStm() const {
    return outputStream;
}

void PSDocument::setOutputStream(Core::SmartPtr<Core::IO::Stream> stream) {
    outputStream = std::move(stream);
}

Core::SmartPtr<ResourceManager> PSDocument::getResourceManager() const {
    return resourceManager;
}

void PSDocument::draw3DObject(Core::SmartPtr<Object3D> /*object*/, float /*x*/, float /*y*/,
                              float /*width*/, float /*height*/) {
    throw Core::UnreacheableCodeException("PSDocument", 1591);
}

void PSDocument::write(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text) {
    if (text.isEmpty())
        return;
    const Core::ByteArray bytes = Core::Encoder::convertStringToMultibyte(text);
    stream->write(bytes, 0, bytes.size());
}

void PSDocument::writeLn(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text) {
    write(stream, text);
    stream->write("\n");
}

/// The copy of `endDocument`, by itself.
void PSDocument::copyScriptFromTempFile() {
    constexpr std::size_t kChunk = 1024;
    Core::ByteArray chunk(kChunk);
    scriptStream->seek(0, Core::IO::SeekOrigin::begin);
    while (const std::size_t count = scriptStream->read(chunk, 0, kChunk))
        outputStream->write(chunk, 0, count);
}

}  // namespace Drawing::PS
