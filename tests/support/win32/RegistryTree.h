#pragma once

#include <string>

#include "platform/IRegistry.h"

namespace ventlock::test {

// Questions to the system's registry itself, past the program's own way to it.

/// All values of a key and of those below it, a line each, sorted: the path below the key and the value's
/// name, then its type and content as they are stored: `Settings\ManName=1:Acme`, a string with every
/// unit there is, `Settings\WindowTop=4:ffffffc4`, a number by its value, every other type by its bytes in
/// hexadecimal. A key without values has a line too: `Settings\`. "(none)" when the key is missing.
std::string TreeText(RegistryRoot root, const std::string& path);

/// A path of HKEY_CURRENT_USER that no one else uses; what is there at the end is removed.
class TestKey {
 public:
    TestKey();
    ~TestKey();
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    [[nodiscard]] const std::string& Path() const noexcept { return path_; }

    /// Stores a value of exactly these bytes; the key is made when missing.
    void Put(const std::string& name, std::uint32_t type, const std::string& bytes) const;

 private:
    std::string path_;
};

/// A key of HKEY_LOCAL_MACHINE without anything in it as long as this object lives, and afterwards as it was
/// before.
class EmptiedKey {
 public:
    explicit EmptiedKey(std::string path);
    ~EmptiedKey();
    EmptiedKey(const EmptiedKey&) = delete;
    EmptiedKey& operator=(const EmptiedKey&) = delete;

 private:
    std::string path_;
    std::string firstMissing_;  ///< the highest key on the way that was not there; empty when all were
    TestKey aside_;
};

}  // namespace ventlock::test
