#pragma once

#include <string>

namespace ventlock::test {

/// One of many device entries, told apart by its number (from 0, below 65535).
class LoadEntry {
 public:
    /// @param manufacturers  how many take turns
    explicit LoadEntry(int number, int manufacturers = 10) : number_(number), manufacturers_(manufacturers) {}

    /// Its section in an entry file.
    [[nodiscard]] std::string Text() const;

    /// The section's name, by which the program's answers call it.
    [[nodiscard]] std::string Name() const { return "E" + std::to_string(number_); }

    /// The manufacturer and the device type as the files write them.
    [[nodiscard]] std::string Manufacturer() const;
    [[nodiscard]] std::string DeviceType() const;

    /// What the device is called in the files and in the database.
    [[nodiscard]] std::string DeviceName() const { return "Device " + std::to_string(number_); }

 private:
    int number_;
    int manufacturers_;
};

}  // namespace ventlock::test
