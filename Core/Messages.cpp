#include "Core/Messages.h"

#include <algorithm>
#include <array>

namespace Core {

namespace {

struct Message {
    int number;
    const char16_t* text;
};

constexpr std::array kMessages{
    Message{41000,
            u"the page size changes inside a duplex job: the printer may start a new sheet there; "
            u"set the printing options again before such a page, or use one size throughout"},
};

}  // namespace

String findMessage(int number) {
    const auto* found = std::ranges::find(kMessages, number, &Message::number);
    if (found == kMessages.end())
        return String("message " + std::to_string(number));
    return {found->text};
}

}  // namespace Core
