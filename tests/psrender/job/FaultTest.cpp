// What the system refuses: every kind of call of a job fails in turn, and the output is old or
// whole.

#include "tests/Images/ImageFiles.h"
#include "tests/psrender/job/Program.h"
#include "tests/support/Documents.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

namespace {

using Images::tests::JpegFile;
using Images::tests::noise;
using Images::tests::PngFile;

std::string base64(const std::string& bytes) {
    static const std::string digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : bytes) {
        bits = bits << 8 | static_cast<unsigned char>(c);
        for (count += 8; count >= 6; count -= 6)
            text += digits[bits >> (count - 6) & 63];
    }
    return count > 0 ? text + digits[bits << (6 - count) & 63] : text;
}

class Faults : public Psrender {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
        GTEST_SKIP() << "the sanitizer has an allocator of its own";
#endif
    }
    Faults() {
        const std::string picture = base64(encode(PngFile{8, 8, noise(3 * 8 * 8)}));
        write("photo.jpg", encode(JpegFile{16, 16, 3, noise(3 * 16 * 16)}));
        PngFile scan{8, 8, noise(3 * 8 * 8)};
        scan.profile = Images::tests::profileOf(1.8);
        write("scan.png", encode(scan));
        write("rich.svg",
              "<svg xmlns='http://www.w3.org/2000/svg' width='200' height='99'><defs>"
              "<linearGradient id='g'><stop stop-color='red'/><stop offset='1'/></linearGradient>"
              "<pattern id='p' width='9' height='9' patternUnits='userSpaceOnUse'>"
              "<circle r='6' fill='blue'/></pattern><clipPath id='c'><circle r='50'/></clipPath>"
              "<style>.a{fill:url(#g)}</style></defs><g clip-path='url(#c)'>"
              "<rect class='a' width='90' height='90'/></g>"
              "<rect fill='url(#p)' opacity='.5' x='60' width='50' height='20'/>"
              "<text y='30' font-family='Helvetica'>Lost?</text>"
              "<text y='60' font-family='DejaVu Sans'>fi\xD0\x96 \xD7\x90\xD7\x91</text>"
              "<image width='20' height='20' href='data:image/png;base64," +
                  picture +
                  "'/>"
                  "<image x='40' width='20' height='20' href='photo.jpg'/></svg>");
    }

    /// Runs the job with one fault, if `number` is above 0.
    int runWithFault(const std::string& call, int number) {
        write("out.ps", "before");
        return run("rich.svg scan.png - -o out.ps <red.svg",
                   "FONTCONFIG_FILE=" PSGRAPHICS_SOURCE_DIR
                   "/tests/Fonts/fonts.conf FAULTY_REPORT=count " +
                       settings + " FAULTY_CALL=" + call +
                       " FAULTY_NUMBER=" + std::to_string(number) + " LD_PRELOAD=" FAULTY_CALLS);
    }
    int count(const std::string& call) {
        EXPECT_EQ(0, runWithFault(call, 0)) << said;
        EXPECT_EQ("", said);
        return std::stoi(read("count"));
    }
    /// Up to `most` calls, evenly spread over all.
    void failInTurn(const std::string& call, int most) {
        const int all = count(call);
        const std::string whole = normalised(read("out.ps"));
        EXPECT_GT(all, 0) << call;
        const auto names = files().size();
        for (int i = 0; i < std::min(all, most); ++i) {
            const int number = 1 + static_cast<int>(std::int64_t{i} * all / std::min(all, most));
            const int code = runWithFault(call, number);
            EXPECT_EQ(names, files().size()) << "nothing is left behind";
            EXPECT_EQ(code == 0 ? whole : "before", normalised(read("out.ps")))
                << call << " " << number << " of " << all << " said " << said;
            EXPECT_TRUE(code == 0 || code == 1)
                << call << " " << number << " of " << all << ": " << code;
            EXPECT_TRUE(code == 0 || said.starts_with("psrender: ")) << call << " " << number;
        }
    }

    std::string settings;  ///< for the environment of each run
};

TEST_F(Faults, LeaveTheOutputOldOrWhole) {
    for (const char* call : {"open", "read", "pread", "write", "pwrite", "fsync", "close", "stat",
                             "fstat", "rename", "linkat", "realpath", "mmap"})
        failInTurn(call, 8);
    failInTurn("malloc", 40);
}

TEST_F(Faults, LeaveNothingBehindWhereFilesNeedNames) {
    settings = "FAULTY_NAMES=1";
    for (const char* call : {"write", "fsync", "rename"})
        failInTurn(call, 8);
}

}  // namespace
