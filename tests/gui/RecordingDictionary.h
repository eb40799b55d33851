#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/TavDictionary.h"

namespace ventlock::test {

/// Keeps what it was asked for and answers "key in language" unless a test gives a key another text.
struct RecordingDictionary final : IDictionary {
    struct LookUp {
        std::string key;
        std::string language;
        bool flag = false;
    };
    std::vector<std::vector<std::string>> loads;
    std::vector<LookUp> lookUps;
    std::map<std::string, std::string> texts;
    std::function<void()> whileLoading;
    std::function<void(const std::string& key)> whileFinding;
    bool canLoad = true;
    bool option3 = false;

    bool Load(const std::vector<std::string>& paths) override {
        loads.push_back(paths);
        if (whileLoading) whileLoading();
        return canLoad;
    }
    std::string Find(const std::string& key, const std::string& language, bool flag) override {
        lookUps.push_back({key, language, flag});
        if (whileFinding) whileFinding(key);
        const auto given = texts.find(key);
        return given == texts.end() ? key + " in " + language : given->second;
    }
    bool& Option3() override { return option3; }

    /// The keys of all look-ups in order.
    [[nodiscard]] std::vector<std::string> Keys() const {
        std::vector<std::string> keys;
        for (const LookUp& lookUp : lookUps) keys.push_back(lookUp.key);
        return keys;
    }
};

}  // namespace ventlock::test
