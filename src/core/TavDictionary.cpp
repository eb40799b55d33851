#include "core/TavDictionary.h"

#include "base/RunTimeError.h"
#include "base/Utf.h"
#include "platform/Casing.h"
#include "platform/ProfileLines.h"

namespace ventlock {

bool TavDictionary::Load(const std::vector<std::string>& paths) {
    bool loaded = true;
    for (const auto& path : paths) {
        try {
            loaded = LoadText(files_.ReadAll(path)) && loaded;
        } catch (const RunTimeError&) {
            loaded = false;  // the caller reports it; texts of the other file still help
        }
    }
    return loaded;
}

bool TavDictionary::LoadText(std::string_view text) {
    if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
    if (!IsUtf8(text)) return false;
    bool understood = true;
    std::string language;
    ProfileLines lines(text);
    for (ProfileLine line; lines.Next(line);) {
        const std::string_view content = line.Content(text);
        if (IsBlankOrComment(content)) continue;
        if (const auto header = HeaderName(content)) {
            language = UpperCase(TrimBlanks(*header));
            continue;
        }
        const auto key = KeyName(content);
        if (!key || language.empty()) {
            understood = false;
            continue;
        }
        texts_[UpperCase(TrimBlanks(*key))][language] = content.substr(key->size() + 1);
        languages_.insert(language);
    }
    return understood;
}

std::string TavDictionary::Find(const std::string& key, const std::string& language, bool /*flag*/) {
    const auto found = texts_.find(UpperCase(key));
    if (found == texts_.end()) return key;
    const auto& byLanguage = found->second;
    for (const std::string& wanted : {UpperCase(language), std::string("EN")}) {
        const auto text = byLanguage.find(wanted);
        if (text != byLanguage.end()) return text->second;
    }
    return byLanguage.begin()->second;
}

std::string TavDictionary::ShownLanguage(const std::string& language) const {
    for (const std::string& wanted : {UpperCase(language), std::string("EN")}) {
        if (languages_.contains(wanted)) return wanted;
    }
    return languages_.empty() ? "" : *languages_.begin();
}

}  // namespace ventlock
