// Texts of an entry in German, Greek and Chinese, written and read back.

#include "core/ItemList.h"
#include "db/DatabaseOf.h"
#include "db/clsTavDB.h"
#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TextsRow {
    const char* name;
    const char* manufacturer;
    const char* device;
    const char* revision;
    const char* category;
    const char* otherCase;  ///< the category in the other letter case, where there is one
    const char* longest;    ///< one character of a name of 64
};

class Language : public testing::TestWithParam<TextsRow> {
 protected:
    static void Fill(clsTavDB& tavDB) {
        FillManufacturer(tavDB.Manufacturer());
        FillDevice(tavDB.Device());
        tavDB.Manufacturer().Name = GetParam().manufacturer;
        tavDB.Manufacturer().Desc = GetParam().device;
        tavDB.Device().DevName = GetParam().device;
        tavDB.Device().DevDesc = GetParam().revision;
        tavDB.Device().RevName = GetParam().revision;
        tavDB.Device().RevDesc = GetParam().category;
    }

    static std::string Longest() {
        std::string text;
        for (int i = 0; i < 64; ++i) text += GetParam().longest;
        return text;
    }
};

TEST_P(Language, NewEntryIsStoredAsItIs) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    Fill(tavDB);
    EXPECT_TRUE(tavDB.Update());
    const std::string manufacturer = GetParam().manufacturer;
    const std::string device = GetParam().device;
    const std::string revision = GetParam().revision;
    EXPECT_EQ(world.Rows("SELECT Name, Description FROM Manufacturers"), manufacturer + "|" + device + "\n");
    EXPECT_EQ(world.Rows("SELECT Name, Description FROM DeviceTypes"), device + "|" + revision + "\n");
    EXPECT_EQ(world.Rows("SELECT Name, Description FROM DeviceRevisions"),
              revision + "|" + GetParam().category + "\n");
    EXPECT_EQ(world.Rows("SELECT COUNT(*) FROM Manufacturers WHERE Name = '" + manufacturer + "'"), "1\n");
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST_P(Language, KnownEntryIsChangedToNamesOf64Characters) {
    DbWorld world;
    for (const std::string& name : {std::string("Before"), Longest()}) {
        clsTavDB tavDB(world.Events());
        ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
        Fill(tavDB);
        tavDB.Manufacturer().Name = tavDB.Device().DevName = tavDB.Device().RevName = name;
        EXPECT_TRUE(tavDB.Update());
    }
    for (const std::string table : {"Manufacturers", "DeviceTypes", "DeviceRevisions"})
        EXPECT_EQ(world.Rows("SELECT Name FROM " + table), Longest() + "\n");
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST_P(Language, NewCategoryIsFoundAgainAndListed) {
    DbWorld world;
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    EXPECT_EQ(tavDB.GetCategoryID(GetParam().category, 8), "10");
    EXPECT_EQ(tavDB.GetCategoryID(GetParam().otherCase, 8), "10");
    EXPECT_EQ(tavDB.GetCategoryID(GetParam().category, 9), "18");
    ItemList list;
    EXPECT_TRUE(tavDB.LoadCategories(list, 8));
    EXPECT_EQ(list.Text(list.Count() - 1), GetParam().category);
    EXPECT_THAT(world.Entries(), IsEmpty());
}

TEST_P(Language, EntryOfTheOldSchemaIsStoredAsItIs) {
    DbWorld world(DeviceSchema::Old);
    clsTavDB tavDB(world.Events());
    ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
    Fill(tavDB);
    tavDB.Manufacturer().Name = Longest();
    EXPECT_TRUE(tavDB.Update());
    const std::string device = GetParam().device;
    EXPECT_EQ(world.Rows("SELECT MfrIdName FROM MfrIds"), Longest() + "\n");
    EXPECT_EQ(world.Rows("SELECT DevTypeDesc FROM DevTypes"), device + "\n");
    EXPECT_EQ(world.Rows("SELECT DevName FROM PDevices"), device + "\n");
    EXPECT_THAT(world.Entries(), IsEmpty());
}

/// MariaDB takes a backslash in a statement for the beginning of an escape, unless the data source tells it
/// not to; the other products store it as it is.
TEST(Backslash, IsStoredAsItIsButByMariadbUntilItIsTold) {
    DbWorld world;
    const auto write = [&] {
        clsTavDB tavDB(world.Events());
        ASSERT_TRUE(tavDB.Init(world.Objects(), 2));
        FillManufacturer(tavDB.Manufacturer());
        FillDevice(tavDB.Device());
        tavDB.Device().RevDesc = R"(DD\1.0)";
        EXPECT_TRUE(tavDB.Update());
    };
    const std::string stored = "SELECT Description FROM DeviceRevisions";
    write();
    if (TestedProduct() == Product::Mariadb) {
        EXPECT_EQ(world.Rows(stored), "DD1.0\n");
        DatabaseOf(&world.Objects()).Execute("SET sql_mode=CONCAT(@@sql_mode,',NO_BACKSLASH_ESCAPES')");
        write();
    }
    EXPECT_EQ(world.Rows(stored), "DD\\1.0\n");
}

INSTANTIATE_TEST_SUITE_P(, Language,
                         testing::Values(TextsRow{"German", "Müller & Söhne", "Füllstandsmessgerät",
                                                  "Ausführung für Öl", "Überdruck", "üBERDRUCK", "ß"},
                                         TextsRow{"Greek", "Αφοί Παπαδόπουλοι", "Ροόμετρο", "Έκδοση πρώτη",
                                                  "Στάθμη", "ΣΤΆΘΜΗ", "Ω"},
                                         TextsRow{"Chinese", "上海仪表有限公司", "电磁流量计", "第一版",
                                                  "液位", "液位", "温"}),
                         RowName());

}  // namespace
}  // namespace ventlock::test
