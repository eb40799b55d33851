#pragma once

#include <cstdint>
#include <random>
#include <utility>

#include "differential/ProfileEngine.h"

namespace ventlock::test {

/// One file with what is asked of it and written into it.
struct ProfileCase {
    std::optional<std::string> bytes;  ///< nothing: the file is missing
    std::vector<ProfileQuery> reads;   ///< of the file as it is
    std::vector<ProfileWrite> writes;
    std::vector<std::pair<std::string, std::string>> keys;  ///< section and key of all lines and writes
};

/// Makes files and edits. The same seed makes the same ones.
class ProfileGenerator {
 public:
    explicit ProfileGenerator(std::uint32_t seed) : random_(seed) {}

    ProfileCase Make();

 private:
    using Choices = std::vector<std::string>;

    [[nodiscard]] std::size_t Below(std::size_t limit) { return random_() % limit; }
    [[nodiscard]] bool OneIn(std::size_t count) { return Below(count) == 0; }
    const std::string& Pick(const Choices& choices) { return choices[Below(choices.size())]; }
    std::string Blanks();
    std::string OtherCase(std::string text);
    std::string SectionName();
    std::string KeyName();
    std::string Value();
    std::string LineEnd();
    std::string Header();
    std::string KeyLine();
    std::string OddLine();
    std::string Content();
    std::string File();
    std::string Stored(const std::string& text);
    void Note(const std::string& section, const std::string& key);
    std::pair<std::string, std::string> SomeKey();
    ProfileQuery Query();
    ProfileWrite Write();

    std::mt19937 random_;
    bool isUtf16_ = false;
    std::size_t lineEnds_ = 0;
    std::string section_;  ///< the section that the next line belongs to
    ProfileCase made_;
};

}  // namespace ventlock::test
