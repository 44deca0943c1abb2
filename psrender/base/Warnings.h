#pragma once

#include "psrender/base/Place.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace psrender {

/// What a reader or the planner left out or approximated, counted by kind, so that a file with
/// ten thousand labels gives one line rather than ten thousand. Knows where the first case of
/// each kind stands.
class Warnings {
public:
    /// While one lives, what is added stands where it says. The innermost one counts. Asked only
    /// for the first case of a kind, so it may take its time.
    class Site {
    public:
        Site(const Site&) = delete;
        Site& operator=(const Site&) = delete;

    protected:
        explicit Site(Warnings& warnings) : warnings_(warnings), outer_(warnings.site_) {
            warnings.site_ = this;
        }
        ~Site() { warnings_.site_ = outer_; }

    private:
        friend class Warnings;
        [[nodiscard]] virtual Place place() const = 0;

        Warnings& warnings_;
        const Site* outer_;
    };

    struct Kind {
        std::string sentence;  ///< such as "negative sizes are ignored"
        Place first;
        std::size_t count = 0;
    };

    Warnings() = default;
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    ~Warnings() = default;

    /// Counts one more case of `kind`, a phrase such as "negative sizes are ignored".
    void add(const std::string& kind);
    /// Counts all that `other` has counted.
    void add(const Warnings& other);

    [[nodiscard]] bool empty() const { return kinds_.empty(); }
    /// In the order of their sentences.
    [[nodiscard]] std::vector<Kind> kinds() const;
    /// The kinds without their places, each with " (N times)" when it was met more than once.
    [[nodiscard]] std::vector<std::string> sentences() const;

private:
    struct Counted {
        Place first;
        std::size_t count = 0;
    };

    std::map<std::string, Counted> kinds_;
    const Site* site_ = nullptr;
};

/// What is told of a kind: its sentence and how often it was met, if more than once.
std::string sentenceOf(const Warnings::Kind& kind);

}  // namespace psrender
