#pragma once

#include <string_view>

#include "differential/Deviation.h"
#include "differential/ProfileEngine.h"

namespace ventlock::test {

/// The rules of profile files written down plainly, with any of the host's deviations. Without one it must
/// answer as the editor does, with all of them as the host does.
class RulesEngine final : public ProfileEngine {
 public:
    explicit RulesEngine(Deviations deviations) : deviations_(deviations) {}

    void Load(const std::optional<std::string>& bytes) override;
    std::string Read(const ProfileQuery& query) override;
    std::vector<std::string> Sections() override;
    bool Write(const ProfileWrite& write) override;
    std::optional<std::string> Bytes() override;

 private:
    enum class Kind { Blank, Comment, Odd, Key, Header };

    struct Line {
        std::string content;
        std::string end;
        Kind kind = Kind::Blank;
        std::string name{};   ///< of a header or key; of an odd line its text
        std::string value{};  ///< of a key, without blanks round it
        bool isNew = false;
    };

    /// The lines that belong to a section: from `begin` to before `end`.
    struct Part {
        bool isFound = false;
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    [[nodiscard]] bool Has(Deviation deviation) const {
        return deviations_.test(static_cast<std::size_t>(deviation));
    }
    [[nodiscard]] std::string_view Blanks() const;
    [[nodiscard]] std::string Trimmed(std::string_view text) const;
    [[nodiscard]] std::string Folded(std::string_view name) const;
    [[nodiscard]] Line LineOf(std::string content, std::string end) const;
    void Split(std::string_view text);
    [[nodiscard]] Part FindSection(std::string_view section) const;
    [[nodiscard]] std::optional<std::size_t> FindKey(const Part& part, std::string_view key) const;
    [[nodiscard]] bool IsRefused(const ProfileWrite& write) const;
    [[nodiscard]] std::string NewName(std::string_view name) const;
    bool Change(Line& line, const std::string& value) const;
    [[nodiscard]] std::size_t PlaceOfNewKey(const Part& part) const;
    void Insert(std::size_t at, const std::string& content, const std::string& name);
    void WriteRestAnew();

    Deviations deviations_;
    bool exists_ = false;
    bool isUtf16_ = false;
    bool isUtf8_ = false;
    std::vector<Line> lines_;
};

}  // namespace ventlock::test
