#include "core/modCommonTools.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "base/Numbers.h"
#include "base/Text.h"
#include "core/Guarded.h"

namespace ventlock {

std::string FormatErrorText(std::string_view tag, std::string_view step, std::string_view description,
                            std::int32_t number) {
    std::string text(tag);
    text.append("-").append(step).append(": ").append(description);
    text.append(" (").append(std::to_string(number)).append(")");
    return text;
}

std::string PadString(std::string_view text, std::int16_t length, std::string_view fill, std::int16_t align) {
    return GuardedModule("mCTps", std::string(), [&](StepLabel&) {
        const std::int16_t count = ToInteger(length - static_cast<double>(CharacterCount(text)));
        std::string pad;
        for (std::int16_t i = 0; i < count; ++i) pad += fill;
        if (align == kAlignLeft) return std::string(text) + pad;
        if (align == kAlignRight) return pad + std::string(text);
        return std::string();
    });
}

std::string FillParam(std::string_view statement, std::string_view value) {
    std::string filled(statement);
    const std::size_t at = filled.find('?');
    if (at != std::string::npos) filled.replace(at, 1, value);
    return filled;
}

int FindListText(const IList& list, std::string_view text) {
    return GuardedModule("mCTflt", -1, [&](StepLabel&) {
        for (int i = 0; i < list.Count(); ++i) {
            if (list.Text(i) == text) return i;
        }
        return -1;
    });
}

int FindListItemData(const IList& list, std::int16_t number) {
    return GuardedModule("mCTfli", -1, [&](StepLabel&) {
        for (int i = 0; i < list.Count(); ++i) {
            if (list.ItemData(i) == number) return i;
        }
        return -1;
    });
}

namespace {

double Half(double length) {
    return std::trunc(length / 2);
}

}  // namespace

void CenterForm(IBounds& form, double screenWidth, double screenHeight) {
    GuardedModule("mCTcf", false, [&](StepLabel&) {
        form.Move(Half(screenWidth) - Half(form.Width()), Half(screenHeight) - Half(form.Height()));
        return true;
    });
}

void CenterForm(IBounds& form, const IBounds& parent) {
    GuardedModule("mCTcf", false, [&](StepLabel&) {
        form.Move(parent.Left() + Half(parent.Width()) - Half(form.Width()),
                  parent.Top() + Half(parent.Height()) - Half(form.Height()));
        return true;
    });
}

double HexToNumber(std::string_view text) {
    if (text.starts_with("0x")) text.remove_prefix(2);
    double value = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U)
            continue;  // not the first byte of its character
        int digit = -1;
        if (c >= '0' && c <= '9') digit = c - '0';
        if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
        if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
        value = value * 16 + digit;
    }
    return value;
}

std::string HexText(double number) {
    std::array<char, 20> text{};
    std::snprintf(text.data(), text.size(), "%02llX", static_cast<unsigned long long>(number));
    return text.data();
}

std::string StripNull(std::string_view buffer) {
    const std::size_t end = buffer.find('\0');
    return std::string(buffer.substr(0, end == std::string_view::npos ? 0 : end));
}

}  // namespace ventlock
