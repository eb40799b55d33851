#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// The filters of a file dialog.
struct FileFilters {
    std::string text;     ///< "description|pattern|description|pattern"
    int preselected = 1;  ///< the filter chosen at first, counted from 1

    bool operator==(const FileFilters&) const = default;
};

/// What a dialog can be given: the text as it is when it is a list of pairs, each with a pattern, else one
/// filter for all files.
/// @param preselected  counted from 1; one that the text does not have becomes the nearest it has
FileFilters UsableFilters(std::string_view text, int preselected);

}  // namespace ventlock
