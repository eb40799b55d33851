// Data sources whose driver or database cannot be had.

#include "platform/odbc/DriverAnswers.h"
#include "support/DriverAnswers.h"
#include "support/OdbcFolder.h"
#include "support/TempFolder.h"
#include "support/TestedServer.h"
#include "support/posix/ForeignLibrary.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;

class Unreachable : public testing::Test {
 protected:
    /// Connects by a new data source of the driver at this path.
    bool Connect(const std::string& driver, const OdbcFolder::Settings& settings) {
        const std::string name = OdbcFolder::Get().UnusedName();
        OdbcFolder::Get().AddDataSource(name, driver, settings);
        return world_.Connect(name);
    }

    [[nodiscard]] bool TellsOtherWordSize() {
        return odbc::TellOtherWordSize(world_.Connection().Diagnostics());
    }

    DbWorld world_;
    TempFolder folder_;
};

TEST_F(Unreachable, DriverThatIsNotThereIsNamed) {
    EXPECT_FALSE(Connect(folder_ / "libnone.so", {}));
    EXPECT_EQ(world_.Connection().DB(), nullptr);
    EXPECT_THAT(world_.Entries(),
                ElementsAre(testing::AllOf(RefusedEntry("CONNconn-02", Refusal::MissingDriver),
                                           testing::HasSubstr("'" + (folder_ / "libnone.so") + "'"))));
    EXPECT_FALSE(TellsOtherWordSize());
}

TEST_F(Unreachable, DriverOfTheOtherWordSizeIsToldFromOneThatIsNotThere) {
    WriteBytes(folder_ / "libother.so", LibraryOfClass(kOtherWordSizeClass));
    EXPECT_FALSE(Connect(folder_ / "libother.so", {}));
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("CONNconn-02", Refusal::OtherWordSize)));
    EXPECT_TRUE(TellsOtherWordSize());
}

TEST_F(Unreachable, DriverThatIsBrokenIsNotTakenForOneOfTheOtherWordSize) {
    for (const std::string& bytes :
         {LibraryOfClass(kOwnWordSizeClass), LibraryOfClass(kOtherWordSizeClass).substr(0, 8),
          std::string("#!/bin/sh\n# this is no library at all\n"), std::string()}) {
        WriteBytes(folder_ / "libbroken.so", bytes);
        EXPECT_FALSE(Connect(folder_ / "libbroken.so", {}));
        EXPECT_FALSE(TellsOtherWordSize()) << bytes;
    }
}

TEST_F(Unreachable, DatabaseThatIsNotThereIsToldInEachDriversOwnWords) {
    if (TestedProduct() == Product::Sqlite) {
        EXPECT_FALSE(Connect(OdbcFolder::DriverLibrary("libsqlite3odbc.so"),
                             {{"Database", folder_ / "nowhere/device.db"}}));
    } else {
        EXPECT_FALSE(Connect(TestedServer().Driver(), TestedServer().SettingsFor("nowhere")));
    }
    EXPECT_EQ(world_.Connection().DB(), nullptr);
    EXPECT_THAT(world_.Entries(), ElementsAre(RefusedEntry("CONNconn-02", Refusal::UnknownDatabase)));
}

}  // namespace
}  // namespace ventlock::test
