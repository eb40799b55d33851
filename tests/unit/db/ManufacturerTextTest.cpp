// Question marks and apostrophes in the manufacturer's texts.

#include "support/RowName.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Texts of a manufacturer that gets number 7 (new) or has it (known).
struct TextRow {
    const char* name;
    const char* typedName;
    const char* typedDescription;
    const char* statement;
    const char* stored;  ///< the row behind the number, "" when the statement fails
};

class ManufacturerText : public ManufacturerRecord, public testing::WithParamInterface<TextRow> {
 protected:
    ManufacturerText() {
        manufacturer_.Name = GetParam().typedName;
        manufacturer_.Desc = GetParam().typedDescription;
    }
};

class NewManufacturerText : public ManufacturerText {};

TEST_P(NewManufacturerText, IsFilledInTurn) {
    Execute("INSERT INTO Manufacturers VALUES (6, 'M6', 'D6')");
    Execute("INSERT INTO MfrProtocols VALUES (3, 6, 1, '17')");
    const std::string stored = GetParam().stored;
    EXPECT_EQ(manufacturer_.Insert(), !stored.empty());
    const std::vector<std::string> statements = Statements();
    ASSERT_GE(statements.size(), 2U);
    EXPECT_EQ(statements[1], GetParam().statement);
    EXPECT_EQ(Rows("Manufacturers"), "6|M6|D6\n" + stored);
    if (stored.empty()) {
        EXPECT_EQ(statements.size(), 2U);
        EXPECT_EQ(Rows("MfrProtocols"), "3|6|1|17\n");
        EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.1a")));
    } else {
        EXPECT_EQ(Rows("MfrProtocols"), "3|6|1|17\n4|7|1|38\n");
        EXPECT_THAT(Entries(), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    , NewManufacturerText,
    testing::Values(TextRow{"OneMark", "A?B", "D",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, "
                            "'ADB', '?') ",
                            "7|ADB|?\n"},
                    TextRow{"TwoMarks", "A??", "D",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, "
                            "'AD?', '?') ",
                            "7|AD?|?\n"},
                    TextRow{"MarkInTheDescription", "A", "D?",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, "
                            "'A', 'D?') ",
                            "7|A|D?\n"},
                    TextRow{"ApostropheInTheName", "O'Neil", "D",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, "
                            "'O'Neil', 'D') ",
                            ""},
                    TextRow{"ApostropheInTheDescription", "A", "D's",
                            "INSERT INTO Manufacturers        (TavMfrNameId, Name, Description) VALUES (7, "
                            "'A', 'D's') ",
                            ""}),
    RowName());

class KnownManufacturerText : public ManufacturerText {};

TEST_P(KnownManufacturerText, FailsAndChangesNothing) {
    Execute("INSERT INTO Manufacturers VALUES (7, 'M7', 'D7')");
    Execute("INSERT INTO MfrProtocols VALUES (3, 7, 1, '38')");
    EXPECT_FALSE(manufacturer_.Insert());
    EXPECT_THAT(Statements(), ElementsAre(kSearchProtocols, GetParam().statement));
    EXPECT_EQ(Rows("Manufacturers"), "7|M7|D7\n");
    EXPECT_EQ(Rows("MfrProtocols"), "3|7|1|38\n");
    EXPECT_THAT(Entries(), ElementsAre(DatabaseEntry("MANins-02.3")));
}

INSTANTIATE_TEST_SUITE_P(
    , KnownManufacturerText,
    testing::Values(TextRow{"MarkInTheName", "A?B", "D",
                            "update Manufacturers    set Name = 'ADB',        Description = '7'  where "
                            "TAVMfrNameID = ? ",
                            ""},
                    TextRow{"MarkInTheDescription", "A", "D?",
                            "update Manufacturers    set Name = 'A',        Description = 'D7'  where "
                            "TAVMfrNameID = ? ",
                            ""},
                    TextRow{"ApostropheInTheName", "O'Neil", "D",
                            "update Manufacturers    set Name = 'O'Neil',        Description = 'D'  where "
                            "TAVMfrNameID = 7 ",
                            ""}),
    RowName());

}  // namespace
}  // namespace ventlock::test
