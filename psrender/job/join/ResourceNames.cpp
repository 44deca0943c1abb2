#include "psrender/job/join/ResourceNames.h"

#include <algorithm>

namespace psrender::join {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isRegular(char c) {
    constexpr std::string_view kOthers = "()<>[]{}/%";
    return static_cast<unsigned char>(c) > ' ' && kOthers.find(c) == std::string_view::npos;
}

std::size_t wordEnd(std::string_view line, std::size_t at) {
    while (at < line.size() && isRegular(line[at]))
        ++at;
    return at;
}

bool isResourceName(std::string_view word) {
    std::size_t digits = 1;
    while (digits < word.size() && isDigit(word[digits]))
        ++digits;
    if (digits == 1)
        return false;
    const std::string_view suffix = word.substr(digits);
    switch (word.front()) {
        case 'F':
            return suffix.size() > 1 && suffix.front() == '_';
        case 'I':
            return suffix.empty() || suffix == "d" || suffix == "f" || suffix == "m";
        case 'X':
            return suffix.empty();
        default:
            return false;
    }
}

}  // namespace

void ResourceNames::scan(std::string_view line, NameSink& sink) {
    std::size_t given = 0;
    std::size_t at = 0;
    while (at < line.size()) {
        if (state_ != State::script) {
            at = passData(line, at);
        } else if (isRegular(line[at])) {
            const std::size_t end = wordEnd(line, at);
            const std::string_view word = line.substr(at, end - at);
            if (isResourceName(word)) {
                sink.text(line.substr(given, at - given));
                sink.name(word, at > 0 && line[at - 1] == '/');
                given = end;
            }
            isDataNext_ = isDataNext_ || word == "currentfile";
            at = end;
        } else {
            at = passDelimiter(line, at);
        }
    }
    sink.text(line.substr(given));
}

std::size_t ResourceNames::passDelimiter(std::string_view line, std::size_t at) {
    const char next = at + 1 < line.size() ? line[at + 1] : '\0';
    switch (line[at]) {
        case '(':
            state_ = State::string;
            depth_ = 1;
            return at + 1;
        case '<':
            if (next == '<')
                return at + 2;
            state_ = next == '~' ? State::encoded : State::hexString;
            return next == '~' ? at + 2 : at + 1;
        case '%':
            return line.size();
        case '\n':
            if (isDataNext_)
                state_ = State::encoded;
            isDataNext_ = false;
            return at + 1;
        default:
            return at + 1;
    }
}

std::size_t ResourceNames::passData(std::string_view line, std::size_t at) {
    switch (state_) {
        case State::string:
            return passString(line, at);
        case State::hexString:
        case State::encodedEnd:
            return passTo('>', line, at, State::script);
        case State::encoded:
            return passTo('~', line, at, State::encodedEnd);
        case State::script:
            break;
    }
    return at;
}

std::size_t ResourceNames::passString(std::string_view line, std::size_t at) {
    for (; at < line.size() && depth_ > 0; ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '(')
            ++depth_;
        else if (line[at] == ')')
            --depth_;
    }
    if (depth_ == 0)
        state_ = State::script;
    return std::min(at, line.size());
}

std::size_t ResourceNames::passTo(char end, std::string_view line, std::size_t at, State next) {
    const std::size_t found = line.find(end, at);
    if (found == std::string_view::npos)
        return line.size();
    state_ = next;
    return found + 1;
}

}  // namespace psrender::join
