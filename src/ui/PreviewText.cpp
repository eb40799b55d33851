#include "ui/PreviewText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "base/ShownText.h"
#include "base/Text.h"
#include "core/modCommonTools.h"
#include "core/modLocalization.h"

namespace ventlock {
namespace {

/// Where a required field stands.
struct FieldPlace {
    std::string_view key;
    const char* tab;
    const char* label;
};

constexpr auto kPlaces = std::to_array<FieldPlace>({
    {"ManID", "IDS_TAB_MAN", "IDS_LBL_ID"},
    {"ManName", "IDS_TAB_MAN", "IDS_LBL_NAME"},
    {"DevID", "IDS_TAB_DEV", "IDS_LBL_ID"},
    {"DevName", "IDS_TAB_DEV", "IDS_LBL_NAME"},
    {"DLLName", "IDS_TAB_DEV", "IDS_LBL_DLL"},
    {"TemplateName", "IDS_TAB_DEV", "IDS_LBL_MRG"},
    {"DevRev", "IDS_TAB_REV", "IDS_LBL_DEVREV"},
    {"DDRev", "IDS_TAB_REV", "IDS_LBL_DDREV"},
    {"ProtRev", "IDS_TAB_REV", "IDS_LBL_HART"},
    {"TAVVersions", "IDS_TAB_REV", "IDS_LBL_TAVVER"},
});

std::string NameOfField(std::string_view key) {
    const auto* const place = std::ranges::find(kPlaces, key, &FieldPlace::key);
    if (place == kPlaces.end()) return std::string(key);
    return GetString(place->tab) + ", " + GetString(place->label);
}

}  // namespace

std::string PreviewText(const TargetPreview& preview) {
    std::vector<std::string> lines = preview.statements;
    if (!preview.diff.empty()) {
        if (!lines.empty()) lines.emplace_back();
        lines.push_back(preview.diff.substr(0, preview.diff.size() - 1));
    }
    if (preview.isWritten && lines.empty()) lines.push_back(GetString("IDS_PRV_NO_CHANGE"));
    if (!preview.isWritten || !preview.messages.empty()) {
        if (!lines.empty()) lines.emplace_back();
        lines.push_back(GetString(preview.isWritten ? "IDS_PRV_MESSAGES" : "IDS_PRV_FAILS"));
        lines.insert(lines.end(), preview.messages.begin(), preview.messages.end());
    }
    return ShownText(Joined(lines, "\n"));
}

std::string DisabledText(const WriteObstacles& obstacles) {
    if (!obstacles.Any()) return GetString("IDS_PRV_WRITTEN");
    std::vector<std::string> lines{GetString("IDS_PRV_DISABLED")};
    if (obstacles.isNotConnected) lines.push_back("- " + GetString("IDS_PRV_NOT_CONNECTED"));
    for (const std::string_view key : obstacles.emptyFields)
        lines.push_back("- " + FillParam(GetString("IDS_PRV_EMPTY"), NameOfField(key)));
    return Joined(lines, "\n");
}

}  // namespace ventlock
