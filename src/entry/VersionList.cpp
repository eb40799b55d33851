#include "entry/VersionList.h"

#include "base/Text.h"
#include "core/Guarded.h"

namespace ventlock {

std::vector<std::string> ParseVersionList(std::string_view text, IEvents& events,
                                          const AppObjects* oAppObjects) {
    std::vector<std::string> items;
    return Guarded(oAppObjects, "fMpl", std::vector<std::string>(), [&](StepLabel& step) {
        std::string_view rest = Trim(text);
        step = "03";
        for (std::size_t i = 0; i < rest.size(); events.Yield()) {
            if (rest[i] != ' ' && rest[i] != ',') {
                ++i;
                continue;
            }
            items.emplace_back(rest.substr(0, i));
            rest = Trim(rest.substr(i + 1));
            i = 0;
        }
        step = "04";
        if (!rest.empty()) items.emplace_back(rest);
        return items;
    });
}

bool IsVersion(std::string_view item) {
    const auto isNumber = [](std::string_view text) {
        return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    };
    const std::size_t stop = item.find('.');
    return stop != std::string_view::npos && isNumber(item.substr(0, stop)) &&
           isNumber(item.substr(stop + 1));
}

std::string SelectedVersions(const EntryForm& form) {
    std::string joined;
    for (const OfferedVersion& version : form.lstTAVVersionSupport) {
        if (version.isSelected) joined.append(joined.empty() ? "" : ", ").append(version.text);
    }
    return joined;
}

}  // namespace ventlock
