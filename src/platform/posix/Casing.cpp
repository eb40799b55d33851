#include "platform/Casing.h"

#include <wctype.h>

#include <clocale>

#include "base/RunTimeError.h"

namespace ventlock {
namespace {

locale_t CharacterTables() {
    static const locale_t kTables = [] {
        const locale_t made = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        if (made == nullptr) throw RunTimeError(ErrorNumber::InternalError, "the locale C.UTF-8 is missing");
        return made;
    }();
    return kTables;
}

}  // namespace

char32_t UpperCase(char32_t character) {
    return static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), CharacterTables()));
}

char32_t LowerCase(char32_t character) {
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(character), CharacterTables()));
}

}  // namespace ventlock
