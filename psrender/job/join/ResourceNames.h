#pragma once

#include <cstdint>
#include <string_view>

namespace psrender::join {

/// Takes the text of a resource in pieces.
class NameSink {
public:
    virtual void text(std::string_view piece) = 0;
    /// A word that looks like the name of a resource: F1_0 and F1_s belong to fonts, X1 is a form
    /// or tile, I1, I1d, I1f and I1m belong to pictures.
    virtual void name(std::string_view word, bool isLiteral) = 0;

protected:
    ~NameSink() = default;
};

/// Finds the names of resources in PostScript, and leaves strings and encoded data alone. Lines are
/// given one after the other.
class ResourceNames {
public:
    void scan(std::string_view line, NameSink& sink);

private:
    enum class State : std::uint8_t { script, string, hexString, encoded, encodedEnd };

    /// What is no script from `at` on: the place behind it, or the end of the line.
    std::size_t passData(std::string_view line, std::size_t at);
    std::size_t passString(std::string_view line, std::size_t at);
    std::size_t passTo(char end, std::string_view line, std::size_t at, State next);
    std::size_t passDelimiter(std::string_view line, std::size_t at);

    State state_ = State::script;
    int depth_ = 0;            ///< of parentheses
    bool isDataNext_ = false;  ///< behind the line's end, for currentfile
};

}  // namespace psrender::join
