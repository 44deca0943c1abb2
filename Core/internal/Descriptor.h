#pragma once

#include <unistd.h>

#include <utility>

namespace Core::IO {

/// An open file that closes itself. The standard streams stay open.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    /// Negative if opening failed.
    [[nodiscard]] int number() const { return number_; }
    /// Whether all that was written has been taken; `errno` tells why not.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number <= STDERR_FILENO || ::close(number) == 0;
    }

private:
    int number_;
};

}  // namespace Core::IO
