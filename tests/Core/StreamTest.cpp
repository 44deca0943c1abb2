#include "Core/FileStream.h"
#include "Core/FileSystem.h"
#include "Core/FixedFormat.h"
#include "Core/Log.h"
#include "Core/MemoryStream.h"
#include "Core/SmartPtr.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

using Core::ByteArray;
using Core::makeObject;
using Core::SmartPtr;
using Core::IO::FileStream;
using Core::IO::MemoryStream;
using Core::IO::SeekOrigin;
using Core::IO::Stream;
using testing::HasSubstr;

namespace fs = std::filesystem;

std::string all(Stream& stream) {
    stream.seek(0, SeekOrigin::begin);
    std::string text;
    ByteArray part(7);
    while (const std::size_t count = stream.read(part, 0, part.size()))
        text += part.view().substr(0, count);
    return text;
}

/// A stream as a stranger writes one: no buffer, only the operations.
class PlainStream : public MemoryStream {
public:
    using Stream::write;
    void write(const ByteArray& from, std::size_t offset, std::size_t count) override {
        text += from.view().substr(offset, count);
    }
    std::string text;

protected:
    char* makeRoom(std::size_t count) override { return Stream::makeRoom(count); }
};

SmartPtr<FileStream> scratch() {
    return makeObject<FileStream>(Core::IO::FileSystem::getTempFileName(u""), true, true, false);
}

TEST(Stream, ReadsWritesAndSeeksAlikeInMemoryAndFile) {
    for (const SmartPtr<Stream>& stream :
         {SmartPtr<Stream>(makeObject<MemoryStream>()), SmartPtr<Stream>(scratch())}) {
        stream->write("hello ");
        Core::writeFixed<"{0} {1}">(*stream, 1.5F, 2);
        EXPECT_EQ(11, stream->length());
        EXPECT_EQ("hello 1.5 2", all(*stream));
        stream->write("!");
        stream->seek(0, SeekOrigin::begin);
        stream->write("J");
        ByteArray next(2);
        EXPECT_EQ(2U, stream->read(next, 0, 2));
        EXPECT_EQ("el", next.view()) << "reading goes on where writing stopped";
        stream->write("L");
        stream->seek(-1, SeekOrigin::end);
        stream->write("?");
        EXPECT_EQ("JelLo 1.5 2?", all(*stream));
        EXPECT_RAISES(Core::IOException, "Stream:22", stream->seek(-1, SeekOrigin::begin));
    }
}

TEST(Stream, TakesLargePiecesAndManySmallOnes) {
    const auto file = scratch();
    std::string expected(200000, 'a');
    file->write(ByteArray(expected), 0, expected.size());
    for (int i = 0; i < 50000; ++i) {
        Core::writeFixed<"{0}\n">(*file, i);
        expected += std::to_string(i) + "\n";
    }
    EXPECT_EQ(expected, all(*file));
}

TEST(Stream, ANumberThatCannotBeWrittenLeavesNoneOfItsLine) {
    const auto plain = makeObject<PlainStream>();
    const auto memory = makeObject<MemoryStream>();
    for (const SmartPtr<Stream>& stream : {SmartPtr<Stream>(plain), SmartPtr<Stream>(memory)}) {
        Core::writeFixed<"{0} m\n">(*stream, 1);
        EXPECT_RAISES(Core::NumberRangeException, "NumberText:1",
                      Core::writeFixed<"{0} {1} l\n">(*stream, 7, HUGE_VALF));
        Core::writeFixed<"{0} c\n">(*stream, 2);
    }
    EXPECT_EQ("1 m\n2 c\n", plain->text);
    EXPECT_EQ("1 m\n2 c\n", memory->view());
}

TEST(FileStream, ScratchFilesArePrivateAndNameless) {
    const fs::path folder = fs::temp_directory_path() / "psgraphics-scratch-test";
    fs::create_directory(folder);
    const Core::String name((folder / "script").string());
    {
        const auto stream = makeObject<FileStream>(name, true, true, false);
        stream->write("private");
        stream->flush();
        EXPECT_TRUE(fs::is_empty(folder));
        EXPECT_EQ("private", all(*stream));
    }
    fs::remove(folder);
    EXPECT_RAISES(Core::IOException, "Stream:2", FileStream(name, true, true, false));
    EXPECT_NE(Core::IO::FileSystem::getTempFileName(u"x"),
              Core::IO::FileSystem::getTempFileName(u"x"));
}

TEST(FileStream, NamesTheFileAndTheReasonOfAFailure) {
    const auto full = makeObject<FileStream>(u"/dev/full", true, false, true);
    full->write("lost");
    try {
        full->close();
        FAIL() << "a full disk went unnoticed";
    } catch (const Core::IOException& failure) {
        EXPECT_EQ("cannot write to /dev/full: " + std::generic_category().message(ENOSPC),
                  failure.getMessage());
    }
    std::string warned;
    auto before = Core::Log::setSink([&](const Core::String& text) { warned = text.toUtf8(); });
    makeObject<FileStream>(u"/dev/full", true, false, true)->write("lost");
    Core::Log::setSink(std::move(before));
    EXPECT_THAT(warned, HasSubstr("/dev/full")) << "nobody closed it, but it must not be silent";
}

TEST(SmartPtr, CountsReferencesAndRefusesNull) {
    const auto stream = makeObject<MemoryStream>();
    {
        const SmartPtr<Stream> same = stream;
        EXPECT_EQ(2, stream->getReferenceCount());
        EXPECT_TRUE(same.dynamicCast<FileStream>().isNull());
        EXPECT_EQ(stream, same.dynamicCast<MemoryStream>());
    }
    EXPECT_EQ(1, stream->getReferenceCount());
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118", SmartPtr<Stream>()->flush());
}

}  // namespace
