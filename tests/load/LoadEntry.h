#pragma once

#include <string>

namespace ventlock::test {

/// One of many device entries, told apart by its number (from 0, below 65535). Ten manufacturers take turns.
class LoadEntry {
 public:
    explicit LoadEntry(int number) : number_(number) {}

    /// Its section in an entry file.
    [[nodiscard]] std::string Text() const;

    /// The section's name, by which the program's answers call it.
    [[nodiscard]] std::string Name() const { return "E" + std::to_string(number_); }

    /// The manufacturer and the device type as the files write them.
    [[nodiscard]] std::string Manufacturer() const { return "00002" + std::to_string(number_ % 10); }
    [[nodiscard]] std::string DeviceType() const;

    /// What the device is called in the files and in the database.
    [[nodiscard]] std::string DeviceName() const { return "Device " + std::to_string(number_); }

 private:
    int number_;
};

}  // namespace ventlock::test
