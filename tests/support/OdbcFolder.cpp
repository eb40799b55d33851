#include "support/OdbcFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/OdbcHost.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

void AppendSection(const std::string& path, const std::string& name, const OdbcFolder::Settings& settings) {
    std::ofstream out(path, std::ios::binary | std::ios::app);
    out << '[' << name << "]\n";
    for (const auto& [key, value] : settings) out << key << '=' << value << '\n';
    out << '\n';
    out.flush();
    EXPECT_TRUE(out.good()) << path << " cannot be written";
}

OdbcFolder::Settings WithDriver(const std::string& driver, const OdbcFolder::Settings& settings) {
    OdbcFolder::Settings all{{"Driver", driver}};
    all.insert(all.end(), settings.begin(), settings.end());
    return all;
}

}  // namespace

OdbcFolder& OdbcFolder::Get() {
    static OdbcFolder folder;
    return folder;
}

OdbcFolder::OdbcFolder() : path_(UseOdbcFolder()) {}

void OdbcFolder::AddDataSource(const std::string& name, const std::string& driver, const Settings& settings) {
    AppendSection(UserFile(), name, WithDriver(driver, settings));
}

void OdbcFolder::AddSystemDataSource(const std::string& name, const std::string& driver,
                                     const Settings& settings) {
    AppendSection(SystemFile(), name, WithDriver(driver, settings));
}

std::string OdbcFolder::UnusedName() {
    return "vt" + std::to_string(++names_);
}

std::string OdbcFolder::DriverLibrary(const std::string& fileName) {
    // A machine may have drivers of both word sizes in folders that are named after them.
    const std::string_view otherWordSize = sizeof(void*) == 4 ? "x86_64" : "i386";
    const fs::path root = LibraryFolder();
    std::vector<fs::path> places{root / "odbc" / fileName, root / fileName};
    for (const auto& entry : fs::directory_iterator(root)) {
        if (!entry.is_directory() || entry.path().filename().string().starts_with(otherWordSize)) continue;
        places.push_back(entry.path() / "odbc" / fileName);
        places.push_back(entry.path() / fileName);
    }
    for (const fs::path& place : places) {
        std::error_code unreadable;  // a folder that may not be read holds no driver for this process
        if (fs::exists(place, unreadable)) return DriversPath(place.string());
    }
    ADD_FAILURE() << "the driver " << fileName << " is not installed";
    return fileName;
}

}  // namespace ventlock::test
