#pragma once

#include "platform/IRegistry.h"

namespace ventlock {

/// The system's registry, in the view of this program's own word size. Statuses are the system's own codes.
///
/// A string is stored as its UTF-16 units, with no NUL behind them, and read as many units as are stored: one
/// that another program has stored with its NUL is read with it. Lone surrogates survive; bytes that are no
/// UTF-8 become U+FFFD. Values of every other type, unexpanded strings too, are their bytes as they are. A
/// stored value outlives the program at once; the system itself writes it to the disk.
class Win32Registry final : public IRegistry {
 public:
    /// The mask goes to the system as it is.
    RegistryStatus OpenKey(RegistryRoot root, std::string_view path, std::uint32_t mask,
                           std::unique_ptr<IRegistryKey>& key) override;

    /// Asks for reading and writing of the key and no more, because that is all that a user may have been
    /// given.
    RegistryStatus CreateKey(RegistryRoot root, std::string_view path,
                             std::unique_ptr<IRegistryKey>& key) override;
};

}  // namespace ventlock
