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
    file->write("small before large");
    file->write(ByteArray(expected), 0, expected.size());
    expected.insert(0, "small before large");
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

TEST(Stream, ReadsToAnyPlaceOfAFullBuffer) {
    for (const SmartPtr<Stream>& stream :
         {SmartPtr<Stream>(makeObject<MemoryStream>()), SmartPtr<Stream>(scratch())}) {
        stream->write("abcdef");
        stream->seek(0, SeekOrigin::begin);
        ByteArray into("......");
        EXPECT_EQ(2U, stream->read(into, 4, 6)) << "no more than there is room for";
        EXPECT_EQ("....ab", into.view());
        EXPECT_EQ(0U, stream->read(into, 6, 1));
        EXPECT_EQ(1U, stream->read(into, 1, 1));
        EXPECT_EQ(".c..ab", into.view());
    }
}

/// Passes each piece on into memory that is taken from where the piece lay.
class CrowdingStream : public PlainStream {
public:
    using Stream::write;
    void write(const ByteArray& from, std::size_t offset, std::size_t count) override {
        if (fails)
            throw Core::IOException("cannot write to", "the test", ENOSPC);
        PlainStream::write(from, offset, count);
        crowd_.push_back(std::make_unique_for_overwrite<char[]>(count - 8));
    }
    bool fails = false;

private:
    std::vector<std::unique_ptr<char[]>> crowd_;
};

/// What a path's writer builds on, which copies coordinates from the lines before.
TEST(Stream, RoomBehindTheLastCommitHasItsBytesInFront) {
    const auto file = scratch();
    const auto check = [](Stream& stream) {
        for (const std::size_t length : {40UL, 2040UL, 4088UL, 70000UL, 24UL, 65536UL}) {
            char* room = stream.reserve(length + 2000);
            std::fill_n(room, length, 'x');
            stream.commit(room + length);
            const char* next = stream.reserve(50);
            const bool follows = next == room + length;
            EXPECT_TRUE(!follows || std::all_of(room, room + length, [](char c) {
                return c == 'x';
            })) << length;
        }
    };
    check(*makeObject<MemoryStream>());
    check(*file);
    const auto crowding = makeObject<CrowdingStream>();
    crowding->text.reserve(1000000);
    for (int i = 0; i < 100; ++i) {
        char* room = crowding->reserve(6000);
        crowding->commit(std::fill_n(room, 2048, 'x'));
        EXPECT_NE(room + 2048, crowding->reserve(3000)) << "the piece is not there any more";
    }
}

TEST(Stream, ThatLostBytesTakesNoMore) {
    const auto stream = makeObject<CrowdingStream>();
    stream->fails = true;
    EXPECT_RAISES(Core::IOException, "Stream:28", stream->write("lost"));
    stream->fails = false;
    EXPECT_RAISES(Core::IOException, "Stream:0", stream->write("behind a gap"));
    EXPECT_EQ("", stream->text);
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
    EXPECT_RAISES(Core::IOException, "Stream:28", full->close());
    EXPECT_RAISES(Core::IOException, "Stream:28", full->write("more"));
    std::string warned;
    auto before = Core::Log::setSink([&](const Core::String& text) { warned = text.toUtf8(); });
    makeObject<FileStream>(u"/dev/full", true, false, true)->write("lost");
    Core::Log::setSink(std::move(before));
    EXPECT_THAT(warned, HasSubstr("/dev/full")) << "nobody closed it, but it must not be silent";
}

/// Lets files grow to so many bytes only for as long as it lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : before_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit lower{bytes, limit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &lower);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }

private:
    rlimit limit_{};
    void (*before_)(int);
};

TEST(FileStream, StaysFailed) {
    const auto file = scratch();
    std::string warned;
    auto before = Core::Log::setSink([&](const Core::String& text) { warned = text.toUtf8(); });
    {
        const FileSizeLimit limit(100000);
        EXPECT_RAISES(
            Core::IOException, "Stream:27",
            for (int i = 0; i < 100000; ++i) { Core::writeFixed<"{0} {0} l\n">(*file, i); });
    }
    ByteArray some(10);
    EXPECT_RAISES(Core::IOException, "Stream:27", file->write("behind the gap"));
    EXPECT_RAISES(Core::IOException, "Stream:27", file->flush());
    EXPECT_RAISES(Core::IOException, "Stream:27", file->seek(0, SeekOrigin::begin));
    EXPECT_RAISES(Core::IOException, "Stream:27", file->read(some, 0, 10));
    EXPECT_RAISES(Core::IOException, "Stream:27", file->length());
    EXPECT_RAISES(Core::IOException, "Stream:27", file->write(ByteArray(100000), 0, 100000));
    for (int times = 0; times < 2; ++times)
        EXPECT_RAISES(Core::IOException, "Stream:27", file->close());
    Core::Log::setSink(std::move(before));
    EXPECT_EQ("", warned) << "the failure was raised";
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
