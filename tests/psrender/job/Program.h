#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline const std::string kRed =
    "<svg xmlns='http://www.w3.org/2000/svg' width='40pt' height='20pt' viewBox='0 0 40 20'>"
    "<rect width='20' height='20' fill='red'/></svg>";

/// Runs the program in an empty folder of its own.
class Psrender : public testing::Test {
protected:
    Psrender() {
        std::string name =
            (std::filesystem::temp_directory_path() / "psrender-test-XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
        write("red.svg", kRed);
        write("bad.svg", "<svg><rect");
    }
    ~Psrender() override {
        if (!std::getenv("KEEP"))
            std::filesystem::remove_all(folder_);
    }

    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }
    std::string read(const std::string& name) {
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::vector<std::string> files() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            names.push_back(entry.path().filename());
        return names;
    }
    /// The exit code; what is said on standard error is in `said`. `before` is shell text that
    /// runs first.
    int run(const std::string& arguments, const std::string& before = "") {
        const std::string command = "cd " + folder_.string() + "; " + before + " " +
                                    PSRENDER_PROGRAM + " " + arguments + " 2>said";
        const int status = std::system(command.c_str());
        said = read("said");
        std::filesystem::remove(folder_ / "said");
        return WEXITSTATUS(status);
    }

    std::filesystem::path folder_;
    std::string said;
};
