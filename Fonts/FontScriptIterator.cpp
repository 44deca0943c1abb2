#include "Fonts/FontScriptIterator.h"

#include "Core/Unicode.h"

#include <hb.h>

#include <utility>

namespace Fonts {

namespace {

constexpr char32_t kFirstNonAscii = 0x80;

bool isAsciiLetter(char32_t character) {
    const char32_t lower = character | 0x20;
    return lower >= U'a' && lower <= U'z';
}

hb_script_t scriptOf(char32_t character) {
    if (character < kFirstNonAscii)
        return isAsciiLetter(character) ? HB_SCRIPT_LATIN : HB_SCRIPT_COMMON;
    const hb_script_t script = hb_unicode_script(hb_unicode_funcs_get_default(), character);
    return script == HB_SCRIPT_INHERITED ? HB_SCRIPT_COMMON : script;
}

}  // namespace

FontScriptIterator::FontScriptIterator(Core::String text, int) : text_(std::move(text)) {}

bool FontScriptIterator::next(FontScript& run) {
    if (position_ == text_.length())
        return false;
    const Run found = findRun();
    run.script = found.script;
    if (position_ == 0 && found.end == text_.length()) {
        run.text = std::exchange(text_, {});
        return true;
    }
    run.text = text_.subString(position_, found.end - position_);
    position_ = found.end;
    return true;
}

FontScriptIterator::Run FontScriptIterator::findRun() const {
    hb_script_t script = HB_SCRIPT_COMMON;
    std::size_t end = position_;
    while (end < text_.length()) {
        std::size_t behind = end;
        const hb_script_t found = scriptOf(Core::Unicode::next(text_.view(), behind));
        if (script == HB_SCRIPT_COMMON)
            script = found;
        else if (found != script && found != HB_SCRIPT_COMMON)
            break;
        end = behind;
    }
    return {end, script};
}

}  // namespace Fonts
