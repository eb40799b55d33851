#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/IFiles.h"
#include "platform/IRegistry.h"
#include "platform/ProfileFile.h"

namespace ventlock {

/// Further reasons of this registry.
inline constexpr RegistryStatus kRegistryTooManyFiles = 4;
inline constexpr RegistryStatus kRegistryInUse = 33;  ///< another program held the store for too long
inline constexpr RegistryStatus kRegistryDiskFull = 112;
inline constexpr RegistryStatus kRegistryInvalidName = 123;  ///< a name that the store file cannot hold
inline constexpr RegistryStatus kRegistryDeviceError = 1117;

/// The tree of settings in one text file of the user, a profile file in UTF-8: a section is a key, named by
/// its whole path below HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER, and holds the key's values as StoredText
/// writes them:
///
///     [HKEY_LOCAL_MACHINE\SOFTWARE\Halvard Systems\TAVToolkit\Ventlock\Settings]
///     WindowTop=dword:ffffffc4
///     ManName=text:"Acme"
///
/// It may be edited by hand; comments and lines in another order stay. A value line that is no such text
/// reads as absent. A missing file is an empty tree; the first write makes it and its folder, which is the
/// user's alone. Every call reads the file anew and every write replaces it under its lock, so that programs
/// which run at the same time see and keep each other's values. No name may hold a line end or a NUL or begin
/// or end with a blank; a key's must not hold "]", a value's neither "=" nor a ";" or "[" at its beginning
/// (kRegistryInvalidName).
class StoreFileRegistry final : public IRegistry {
 public:
    /// `files` must outlive the registry and its keys.
    StoreFileRegistry(IFiles& files, std::string storePath);

    /// The user's store: $VENTLOCK_REGISTRY when set, else registry.ini in the program's configuration
    /// folder.
    static std::string StorePath();

    /// A mask that asks for writing is refused with kRegistryAccessDenied when the store cannot be written;
    /// what a mask does not ask for the key then refuses likewise.
    RegistryStatus OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                           std::unique_ptr<IRegistryKey>& key) override;
    RegistryStatus CreateKey(RegistryRoot root, std::string_view path,
                             std::unique_ptr<IRegistryKey>& key) override;

 private:
    IFiles& files_;
    std::string storePath_;
};

}  // namespace ventlock
