#include "PS/PSDocumentFragment.h"

#include "Core/Exception.h"
#include "Core/FixedFormat.h"
#include "Core/MTInteger.h"
#include "Core/MemoryStream.h"
#include "PS/PSPatternBrush.h"
#include "PS/fonts/PSFontResource.h"
#include "PS/internal/Names.h"

namespace Drawing::PS {

namespace {

/// Counts the fragments of the process, whatever their document.
constinit Core::Threading::MTInteger fragmentCounter;

constexpr int kNestedFragment = 1;
constexpr int kFragmentPlacedInFragment = 2;

/// All that a stream holds; its position ends up behind the last byte.
Core::ByteArray contentOf(Core::IO::Stream& stream) {
    Core::ByteArray content(static_cast<std::size_t>(stream.length()));
    stream.seek(0, Core::IO::SeekOrigin::begin);
    std::size_t done = 0;
    while (const std::size_t count = stream.read(content, done, content.size() - done))
        done += count;
    content.resize(done);
    return content;
}

}  // namespace

PSDocumentFragment::PSDocumentFragment(float fragmentWidth, float fragmentHeight)
    : PSDocument(Core::makeObject<Core::IO::MemoryStream>().get(),
                 SizeF{fragmentWidth, fragmentHeight}, true),
      name(Names::fragment(fragmentCounter.increment())),
      width(fragmentWidth),
      height(fragmentHeight) {}

PSDocumentFragment::~PSDocumentFragment() = default;

OutputType PSDocumentFragment::getType() const {
    return OutputType::postScriptFragment;
}

void PSDocumentFragment::setTransform(const Matrix& transform) {
    graphicsState->transform = transform;
}

Core::SmartPtr<IOutputContext> PSDocumentFragment::createDocumentFragment(float /*width*/,
                                                                          float /*height*/) {
    throw Core::UnreacheableCodeException("PSDocument", kNestedFragment);
}

void PSDocumentFragment::drawDocumentFragment(Core::SmartPtr<IOutputContext> /*fragment*/) {
    throw Core::UnreacheableCodeException("PSDocument", kFragmentPlacedInFragment);
}

bool PSDocumentFragment::isFragmentOf(Core::SmartPtr<IOutputContext> context) const {
    const auto document = context.dynamicCast<PSDocument>();
    return document && document->hasDocumentFragment(name);
}

Core::ByteArray PSDocumentFragment::getRecordedBytes() const {
    return contentOf(*scriptStream);
}

Core::SmartPtr<IOutputContext> PSDocument::createDocumentFragment(float width, float height) {
    return Core::makeObject<PSDocumentFragment>(width, height);
}

Core::SmartPtr<IOutputContext> PSDocument::createPatternOutputContext(float width, float height) {
    return Core::makeObject<PSPatternBrush>(width, height);
}

bool PSDocument::hasDocumentFragment(const Core::String& name) const {
    return fragments.contains(name);
}

bool PSDocument::isFragmentOf(Core::SmartPtr<IOutputContext> /*context*/) const {
    return false;
}

void PSDocument::drawDocumentFragment(Core::SmartPtr<IOutputContext> context) {
    const auto fragment = context.dynamicCast<PSDocumentFragment>();
    if (!fragment)
        return;
    const Core::String name = fragment->getName();
    fragments.try_emplace(name, context);
    beginShape();
    writeLn(scriptStream, name);
    endShape();
}

}  // namespace Drawing::PS
