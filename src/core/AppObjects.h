#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace ventlock {

/// What can be kept in AppObjects.
class AppObject {
 public:
    AppObject() = default;
    AppObject(const AppObject&) = delete;
    AppObject& operator=(const AppObject&) = delete;
    virtual ~AppObject() = default;
};

/// Keys of the shared service objects.
inline constexpr std::string_view kLogKey = "Log";
inline constexpr std::string_view kSettingsKey = "Settings";
inline constexpr std::string_view kConnectionKey = "Connection";

/// The shared service objects by key. One object a key; keys ignore case. Every class receives it in its Init
/// and fetches what it needs at the time of use.
class AppObjects {
 public:
    /// @throws RunTimeError 457 when the key is there already.
    void Add(std::string_view key, std::shared_ptr<AppObject> object);

    [[nodiscard]] bool Contains(std::string_view key) const;

    /// The object of a key, owned by the collection.
    /// @throws RunTimeError 5 for an unknown key, 424 when the object is of another class.
    template <class Class>
    [[nodiscard]] Class& Get(std::string_view key) const {
        auto* object = dynamic_cast<Class*>(&Find(key));
        if (object == nullptr) throw RunTimeError(ErrorNumber::ObjectRequired);
        return *object;
    }

 private:
    [[nodiscard]] AppObject& Find(std::string_view key) const;

    std::map<std::string, std::shared_ptr<AppObject>> objects_;  ///< by upper-cased key
};

}  // namespace ventlock
