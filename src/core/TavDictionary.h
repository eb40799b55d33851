#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IFiles.h"

namespace ventlock {

/// Translated texts by key and language.
class IDictionary {
 public:
    virtual ~IDictionary() = default;

    /// Reads the files in this order, each adding to those before. False when one of them cannot be taken.
    virtual bool Load(const std::vector<std::string>& paths) = 0;

    /// The text of a key; the key itself when there is none. A language that lacks the key falls back to
    /// "EN", then to any that has it. `flag` has no effect on the texts of this program.
    virtual std::string Find(const std::string& key, const std::string& language, bool flag) = 0;

    /// Third field of the option block; texts are looked up with it set.
    virtual bool& Option3() = 0;
};

/// The dictionary files (".dct"): UTF-8 with or without a mark, lines ended by CR LF or LF. "[EN]" begins the
/// texts of a language, "KEY=text" is one text, taken as it stands behind "="; empty lines and lines that
/// begin with ";" mean nothing. Languages and keys ignore case.
class TavDictionary final : public IDictionary {
 public:
    /// `files` must outlive this object.
    explicit TavDictionary(IFiles& files) : files_(files) {}

    bool Load(const std::vector<std::string>& paths) override;
    std::string Find(const std::string& key, const std::string& language, bool flag) override;
    bool& Option3() override { return option3_; }

    /// The language whose texts are shown to who asks for `language`: that one when there is any text in it,
    /// else the one it falls back to. "" without any text.
    [[nodiscard]] std::string ShownLanguage(const std::string& language) const;

 private:
    bool LoadText(std::string_view text);

    IFiles& files_;
    std::map<std::string, std::map<std::string, std::string>> texts_;  ///< by upper-cased key, then language
    std::set<std::string> languages_;                                  ///< upper-cased, with a text at least
    bool option3_ = false;
};

}  // namespace ventlock
