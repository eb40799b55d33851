#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ventlock {

/// Outcome of a registry call; a call never throws. 0 is success, any other value the host's reason.
using RegistryStatus = std::int32_t;
inline constexpr RegistryStatus kRegistrySuccess = 0;
inline constexpr RegistryStatus kRegistryFileNotFound = 2;
inline constexpr RegistryStatus kRegistryAccessDenied = 5;

/// Value types that the program reads and writes; a stored value may carry any other number.
inline constexpr std::uint32_t kRegistryString = 1;
inline constexpr std::uint32_t kRegistryDword = 4;

/// Access masks as the registry counts them.
inline constexpr std::uint32_t kKeyAllAccess32 = 63;  ///< query, set, create subkey, enumerate, notify, link
inline constexpr std::uint32_t kKeyFullAccess = 0x2003F;
inline constexpr std::uint32_t kKeyRead = 0x20019;

enum class RegistryRoot { LocalMachine, CurrentUser };

/// An open key; closed by its destructor. Use it on the thread and within the life of the registry that
/// opened it.
class IRegistryKey {
 public:
    virtual ~IRegistryKey() = default;

    /// Reads a value; the name ignores case. A string is its UTF-8 bytes without a NUL of the registry's own,
    /// a DWORD four bytes, least significant first. `type` and `bytes` are left alone on failure.
    virtual RegistryStatus Query(std::string_view name, std::uint32_t& type, std::string& bytes) = 0;

    /// Stores a value, durable when it returns; an existing one keeps the spelling of its name.
    /// `bytes` as in Query: exactly the characters of the text, no NUL added.
    virtual RegistryStatus Set(std::string_view name, std::uint32_t type, std::string_view bytes) = 0;
};

/// The tree of keys and values that settings live in: the registry on Windows, one text file elsewhere.
/// Paths are separated by "\"; names ignore case and keep it; a "\" at the end of a path means nothing.
class IRegistry {
 public:
    virtual ~IRegistry() = default;

    /// Opens an existing key with an access mask. `key` is set on success only.
    virtual RegistryStatus OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                                   std::unique_ptr<IRegistryKey>& key) = 0;

    /// Opens a key for reading and writing and creates it, with the keys above it, when missing.
    virtual RegistryStatus CreateKey(RegistryRoot root, std::string_view path,
                                     std::unique_ptr<IRegistryKey>& key) = 0;
};

}  // namespace ventlock
