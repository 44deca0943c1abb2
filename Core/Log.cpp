#include "Core/Log.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace Core {

namespace {

std::mutex sinkMutex;

Log::Sink& installedSink() {
    static Log::Sink sink;
    return sink;
}

}  // namespace

void Log::warning(const String& text) {
    const std::scoped_lock lock(sinkMutex);
    if (const Sink& sink = installedSink())
        sink(text);
    else
        std::fprintf(stderr, "warning: %s\n", text.toUtf8().c_str());
}

Log::Sink Log::setSink(Sink sink) {
    const std::scoped_lock lock(sinkMutex);
    return std::exchange(installedSink(), std::move(sink));
}

}  // namespace Core
