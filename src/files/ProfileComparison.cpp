#include "files/ProfileComparison.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/Casing.h"
#include "platform/ProfileLines.h"

namespace ventlock {
namespace {

class Comparison {
 public:
    explicit Comparison(const ProfileFile& file) : file_(file), sections_(file.Sections()) {}

    void EnterSection(const std::string& section) {
        const auto count = std::count_if(sections_.begin(), sections_.end(), [&](const std::string& name) {
            return EqualIgnoringCase(TrimBlanks(name), TrimBlanks(section));
        });
        isThere_ = count > 0;
        if (count == 0) Add({Difference::Kind::Missing, Place(section), {}, {}, {}});
        if (count > 1) Add({Difference::Kind::Repeated, Place(section), {}, "1", std::to_string(count)});
    }

    void CompareKey(const ProfileKey& key) {
        if (!isThere_) return;
        const std::optional<std::string> found = file_.Read(key.section, key.name);
        if (found && *found == ProfileValue(key.value)) return;
        Add({Difference::Kind::Value, Place(key.section), key.name, key.value, found});
    }

    std::vector<Difference> Take() { return std::move(differences_); }

 private:
    static std::string Place(const std::string& section) { return "[" + section + "]"; }
    void Add(Difference difference) { differences_.push_back(std::move(difference)); }

    const ProfileFile& file_;
    std::vector<std::string> sections_;
    bool isThere_ = false;
    std::vector<Difference> differences_;
};

}  // namespace

std::vector<Difference> CompareKeys(const ProfileFile& file, const std::vector<ProfileKey>& keys) {
    Comparison comparison(file);
    const std::string* section = nullptr;
    for (const ProfileKey& key : keys) {
        if (section == nullptr || *section != key.section) comparison.EnterSection(key.section);
        section = &key.section;
        comparison.CompareKey(key);
    }
    return comparison.Take();
}

}  // namespace ventlock
