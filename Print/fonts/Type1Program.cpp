// The encrypted part, once in clear, with the binary strings behind the word that reads them:
//
//   dup /Private 8 dict dup begin /RD {string currentfile exch readstring pop} executeonly def
//   /BlueValues [ ... ] ND  /lenIV 4 def  /OtherSubrs [ ... ] ND
//   /Subrs 43 array  dup 0 15 RD <15 bytes> NP ...
//   2 index /CharStrings 100 dict dup begin  /A 120 RD <120 bytes> ND ...
//
// (Adobe Type 1 Font Format, chapters 2, 5 and 7)

#include "Print/fonts/internal/Type1Program.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace Drawing::Print {

namespace {

constexpr std::uint16_t kProgramKey = 55665;
constexpr std::size_t kProgramLead = 4;
constexpr int kUsualLead = 4;

constexpr std::array<std::string_view, 17> kHintKeys{
    "BlueValues", "OtherBlues",    "FamilyBlues",     "FamilyOtherBlues", "BlueScale", "BlueShift",
    "BlueFuzz",   "StdHW",         "StdVW",           "StemSnapH",        "StemSnapV", "ForceBold",
    "RndStemUp",  "LanguageGroup", "ExpansionFactor", "OtherSubrs",       "lenIV",
};
constexpr std::array<std::string_view, 4> kFontKeys{"FontMatrix", "FontBBox", "WeightVector",
                                                    "PaintType"};

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n' ||
           character == '\f' || character == '\0';
}

bool isDelimiter(char character) {
    return std::string_view("()<>[]{}/%").find(character) != std::string_view::npos;
}

/// The tokens of a program, one after the other; empty at the end.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::string_view next() {
        skipBlanks();
        const std::size_t begin = at_;
        if (at_ == text_.size())
            return {};
        if (text_[at_] == '(')
            skipString();
        else if (isDelimiter(text_[at_++]) && text_[begin] != '/')
            return text_.substr(begin, 1);
        else
            skipWord();
        return text_.substr(begin, at_ - begin);
    }

    /// The next value with all that its brackets hold, blanks made one and comments left out.
    std::string value() {
        std::string text;
        int depth = 0;
        do {
            const std::string_view token = next();
            if (token.empty())
                break;
            depth += token == "[" || token == "{" ? 1 : token == "]" || token == "}" ? -1 : 0;
            if (!text.empty() && !isDelimiter(text.back()) && !isDelimiter(token.front()))
                text += ' ';
            text += token;
        } while (depth > 0);
        return text;
    }

    /// `length` bytes behind the blank that follows the last token.
    std::string_view bytes(std::size_t length) {
        at_ = std::min(at_ + 1, text_.size());
        const std::string_view found = text_.substr(at_, length);
        at_ += found.size();
        return found;
    }

private:
    void skipBlanks() {
        for (; at_ < text_.size() && (isBlank(text_[at_]) || text_[at_] == '%'); ++at_)
            if (text_[at_] == '%')
                at_ = std::min(text_.find_first_of("\r\n", at_), text_.size() - 1);
    }
    void skipWord() {
        while (at_ < text_.size() && !isBlank(text_[at_]) && !isDelimiter(text_[at_]))
            ++at_;
    }
    void skipString() {
        int depth = 0;
        for (; at_ < text_.size(); ++at_) {
            if (text_[at_] == '\\')
                ++at_;
            else if (text_[at_] == '(')
                ++depth;
            else if (text_[at_] == ')' && --depth == 0)
                break;
        }
        at_ = std::min(at_ + 1, text_.size());
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

int numberOf(std::string_view token, int otherwise = -1) {
    int number = otherwise;
    std::from_chars(token.data(), token.data() + token.size(), number);
    return number;
}

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& keys, std::string_view token) {
    return token.starts_with('/') && std::ranges::find(keys, token.substr(1)) != keys.end();
}

/// Whether a value is nothing but numbers and truth values in brackets: a document takes no other
/// program than charstrings from a font. Procedures that charstrings call may hold anything; they
/// are run only then.
bool isPlainValue(std::string_view value, bool mayHoldProcedures) {
    constexpr std::array<std::string_view, 6> words{"true",        "false",    "readonly",
                                                    "executeonly", "noaccess", "]"};
    Scanner scanner(value);
    int depth = 0;
    for (std::string_view token; !(token = scanner.next()).empty();) {
        depth += token == "{" ? 1 : token == "}" ? -1 : 0;
        const bool isInside = mayHoldProcedures && (depth > 0 || token == "}");
        const bool isNumber = token.find_first_not_of("0123456789+-.eE") == std::string_view::npos;
        if (!isInside && !isNumber && token != "[" && token != "{" && token != "}" &&
            std::ranges::find(words, token) == words.end())
            return false;
    }
    return depth == 0;
}

/// Reads the values of the two dictionaries, and strings wherever a word reads some.
class Reader {
public:
    explicit Reader(Type1Program& program) : program_(program) {}

    void read(std::string_view text) {
        Scanner scanner(text);
        std::string_view before;
        std::string_view last;
        for (std::string_view token; !(token = scanner.next()).empty();) {
            if (isOneOf(kFontKeys, token))
                keepValue(program_.font, token.substr(1), scanner.value());
            else if (isOneOf(kHintKeys, token))
                keepValue(program_.hints, token.substr(1), scanner.value());
            else if ((token == "RD" || token == "-|") && numberOf(last) >= 0)
                keep(before, scanner.bytes(static_cast<std::size_t>(numberOf(last))));
            before = last;
            last = token;
        }
    }

private:
    static void keepValue(Type1Program::Values& values, std::string_view key,
                          const std::string& value) {
        if (!value.empty() && isPlainValue(value, key == "OtherSubrs"))
            values.emplace(key, value);
    }
    void keep(std::string_view key, std::string_view bytes) {
        const auto found = program_.hints.find("lenIV");
        const int lead =
            found == program_.hints.end() ? kUsualLead : numberOf(found->second, kUsualLead);
        CharString::Bytes clear = CharString::decrypted(bytes, lead);
        if (key.starts_with('/'))
            program_.charStrings.emplace(key.substr(1), std::move(clear));
        else
            program_.subroutines.emplace(numberOf(key), std::move(clear));
    }

    Type1Program& program_;
};

std::string clearProgram(std::string_view cipher) {
    const CharString::Bytes clear = CharString::decrypted(cipher, kProgramLead, kProgramKey);
    return {clear.begin(), clear.end()};
}

}  // namespace

Type1Program Type1Program::read(const Core::ByteArray& segments) {
    constexpr std::size_t head = 6;
    constexpr char encrypted = 2;
    Type1Program program;
    Reader reader(program);
    for (std::string_view rest = segments.view(); rest.size() > head;) {
        std::size_t length = 0;
        for (std::size_t i = head; i > 2; --i)
            length = length << 8 | static_cast<std::uint8_t>(rest[i - 1]);
        const std::string_view data = rest.substr(head, length);
        reader.read(rest[1] == encrypted ? clearProgram(data) : std::string(data));
        rest.remove_prefix(head + data.size());
    }
    program.hints.erase("lenIV");
    for (auto& [key, value] : program.font)
        std::ranges::for_each(value, [](char& bracket) {
            bracket = bracket == '{' ? '[' : bracket == '}' ? ']' : bracket;
        });
    return program;
}

std::string Type1Program::value(std::string_view key) const {
    const auto found = font.find(key);
    return found == font.end() ? std::string() : found->second;
}

bool Type1Program::isPlain() const {
    return charStrings.contains(".notdef") && value("WeightVector").empty() &&
           (value("PaintType").empty() || value("PaintType") == "0");
}

double CharStringUse::add(const CharString::Bytes& charString) {
    stack_.clear();
    passed_.clear();
    run(charString, 0);
    return advance_;
}

double CharStringUse::take() {
    if (stack_.empty())
        return 0;
    const double value = stack_.back();
    stack_.pop_back();
    return value;
}

void CharStringUse::run(const CharString::Bytes& charString, int depth) {
    constexpr int deepest = 10;
    if (depth > deepest)
        return;
    for (std::size_t at = 0; at < charString.size();) {
        const auto byte = [&] { return at < charString.size() ? int{charString[at++]} : 0; };
        const int first = byte();
        if (first == 255) {
            std::uint32_t number = 0;
            for (int i = 0; i < 4; ++i)
                number = number << 8 | static_cast<std::uint32_t>(byte());
            stack_.push_back(static_cast<std::int32_t>(number));
        } else if (first >= 251) {
            stack_.push_back(-(first - 251) * 256 - byte() - 108);
        } else if (first >= 247) {
            stack_.push_back((first - 247) * 256 + byte() + 108);
        } else if (first >= 32) {
            stack_.push_back(first - 139);
        } else if (first == 12) {
            runEscaped(static_cast<std::uint8_t>(byte()));
        } else {
            runCommand(static_cast<std::uint8_t>(first), depth);
        }
    }
}

void CharStringUse::runCommand(std::uint8_t command, int depth) {
    constexpr std::uint8_t callSubroutine = 10;
    constexpr std::uint8_t goBack = 11;
    constexpr std::uint8_t sidebearing = 13;
    if (command == callSubroutine) {
        const int number = static_cast<int>(take());
        const auto found = program_.subroutines.find(number);
        if (found == program_.subroutines.end())
            return;
        subroutines_.insert(number);
        run(found->second, depth + 1);
    } else if (command != goBack) {
        if (command == sidebearing)
            advance_ = take();
        stack_.clear();
    }
}

void CharStringUse::runEscaped(std::uint8_t command) {
    constexpr std::uint8_t accented = 6;
    constexpr std::uint8_t twoSidebearings = 7;
    constexpr std::uint8_t divide = 12;
    constexpr std::uint8_t callOther = 16;
    constexpr std::uint8_t pop = 17;
    if (command == divide) {
        const double divisor = take();
        const double number = take();
        stack_.push_back(divisor != 0 ? number / divisor : 0);
    } else if (command == callOther) {
        take();
        passed_.clear();
        for (auto count = static_cast<int>(take()); count > 0 && !stack_.empty(); --count)
            passed_.push_back(take());
    } else if (command == pop) {
        stack_.push_back(passed_.empty() ? 0 : passed_.back());
        if (!passed_.empty())
            passed_.pop_back();
    } else {
        if (command == accented) {
            parts_.insert(static_cast<int>(take()));
            parts_.insert(static_cast<int>(take()));
        } else if (command == twoSidebearings) {
            take();
            advance_ = take();
        }
        stack_.clear();
    }
}

}  // namespace Drawing::Print
