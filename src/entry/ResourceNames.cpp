#include "entry/ResourceNames.h"

#include "base/Text.h"
#include "platform/Casing.h"

namespace ventlock {
namespace {

std::string WithExtension(std::string_view field, std::string_view extension) {
    std::string name(Trim(field));
    const std::size_t tail = name.size() < extension.size() ? 0 : name.size() - extension.size();
    if (LowerCase(std::string_view(name).substr(tail)) != extension) name += extension;
    return name;
}

}  // namespace

std::string DllName(std::string_view field) {
    return WithExtension(field, ".dll");
}

std::string TemplateName(std::string_view field) {
    return WithExtension(field, ".mrg");
}

std::string HelpFileName(std::string_view field) {
    return Trim(field).empty() ? std::string() : WithExtension(field, ".hlp");
}

}  // namespace ventlock
