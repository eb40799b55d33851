#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/IRegistry.h"

namespace ventlock::test {

/// A registry in memory with the same rules for names: case is ignored and kept, a "\" at the end of a path
/// means nothing. It keeps what was asked of it and refuses what a test wants refused. It must outlive its
/// keys.
class FakeRegistry final : public IRegistry {
 public:
    struct Value {
        std::uint32_t type = 0;
        std::string bytes;
        bool operator==(const Value&) const = default;
    };

    /// A Set as it was asked for, refused ones too. `path` begins with the root:
    /// "HKEY_LOCAL_MACHINE\SOFTWARE\...".
    struct SetCall {
        std::string path;
        std::string name;
        Value value;
        bool operator==(const SetCall&) const = default;
    };

    /// An OpenKey as it was asked for.
    struct OpenCall {
        std::string path;
        std::uint32_t mask = 0;
        RegistryStatus status = kRegistrySuccess;
        bool operator==(const OpenCall&) const = default;
    };

    RegistryStatus OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                           std::unique_ptr<IRegistryKey>& key) override;
    RegistryStatus CreateKey(RegistryRoot root, std::string_view path,
                             std::unique_ptr<IRegistryKey>& key) override;

    /// Makes a key, with those above it, and gives it a value; not counted as a Set.
    void Put(RegistryRoot root, std::string_view path, std::string_view name, std::uint32_t type,
             std::string_view bytes);
    void PutText(RegistryRoot root, std::string_view path, std::string_view name, std::string_view text);
    void PutNumber(RegistryRoot root, std::string_view path, std::string_view name, std::uint32_t number);

    /// Makes a key without values.
    void PutKey(RegistryRoot root, std::string_view path);

    /// What is stored now.
    [[nodiscard]] std::optional<Value> Get(RegistryRoot root, std::string_view path,
                                           std::string_view name) const;

    /// From now on OpenKey with exactly this mask gives `status` for an existing key.
    void RefuseOpen(std::uint32_t mask, RegistryStatus status) { refusedMasks_[mask] = status; }

    /// From now on CreateKey and Set give `status` and store nothing; kRegistrySuccess ends that.
    void RefuseWrites(RegistryStatus status) { writeStatus_ = status; }

    std::vector<SetCall> sets;
    std::vector<OpenCall> opens;

 private:
    class Key;
    struct Values {
        std::string name;
        Value value;
    };

    // By the path in capitals.
    std::map<std::string, std::map<std::string, Values>> keys_;
    std::map<std::uint32_t, RegistryStatus> refusedMasks_;
    RegistryStatus writeStatus_ = kRegistrySuccess;
};

}  // namespace ventlock::test
