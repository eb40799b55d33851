#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ventlock::test {

/// The driver manager's own files for this process and its children, in a temporary folder: the drivers that
/// are installed on the machine and the data sources that tests add. The files of user and machine stay
/// untouched. Under Wine it is the driver manager of the system below: the folder was made, and named in the
/// environment, by what started the process.
class OdbcFolder {
 public:
    using Settings = std::vector<std::pair<std::string, std::string>>;

    /// The process has one. The first call makes it.
    static OdbcFolder& Get();

    /// Adds a data source of the user; `driver` is the path of its library.
    void AddDataSource(const std::string& name, const std::string& driver, const Settings& settings);

    /// Adds a data source for all users of the machine.
    void AddSystemDataSource(const std::string& name, const std::string& driver, const Settings& settings);

    /// A name that no data source of this process has had; short, because a name has 32 characters at the
    /// most.
    std::string UnusedName();

    /// The path of an installed driver library, e.g. "libsqlite3odbc.so"; fails the test when it is missing.
    static std::string DriverLibrary(const std::string& fileName);

    [[nodiscard]] std::string UserFile() const { return path_ + "/odbc.ini"; }
    [[nodiscard]] std::string SystemFile() const { return path_ + "/system/odbc.ini"; }
    [[nodiscard]] std::string DriverFile() const { return path_ + "/system/odbcinst.ini"; }

 private:
    OdbcFolder();

    std::string path_;
    int names_ = 0;
};

}  // namespace ventlock::test
