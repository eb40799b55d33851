#include "base/RunTimeError.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ventlock {
namespace {

TEST(RunTimeError, EveryNumberHasItsClassicDescription) {
    const std::vector<std::pair<int, std::string>> table{
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {13, "Type mismatch"},
        {51, "Internal error"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {57, "Device I/O error"},
        {61, "Disk full"},
        {67, "Too many files"},
        {68, "Device unavailable"},
        {70, "Permission denied"},
        {71, "Disk not ready"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {91, "Object variable or With block variable not set"},
        {94, "Invalid use of Null"},
        {424, "Object required"},
        {429, "ActiveX component can't create object"},
        {457, "This key is already associated with an element of this collection"},
        {521, "Can't open Clipboard"},
        {3021, "No current record."},
        {3146, "ODBC--call failed."},
        {3265, "Item not found in this collection."},
        {3420, "Object invalid or no longer set."},
    };
    for (const auto& [number, description] : table) {
        const RunTimeError error(static_cast<ErrorNumber>(number));
        EXPECT_EQ(static_cast<int>(error.Number()), number);
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(DescriptionOf(error.Number()), description);
        EXPECT_TRUE(error.Diagnostics().empty());
    }
}

TEST(RunTimeError, ADetailFollowsTheDescriptionAfterOneBlank) {
    const RunTimeError error(ErrorNumber::PathFileAccessError,
                             "\"Ω\" holds a character that code page 1252 lacks");
    EXPECT_EQ(error.Description(),
              "Path/File access error \"Ω\" holds a character that code page 1252 lacks");
    EXPECT_EQ(RunTimeError(ErrorNumber::Overflow, "").Description(), "Overflow");
}

TEST(RunTimeError, AFailedDatabaseCallShowsItsFirstDiagnosticAndKeepsAll) {
    const RunTimeError error = RunTimeError::OdbcCallFailed({"[HY000] first (1)", "[01000] second (2)"});
    EXPECT_EQ(error.Number(), ErrorNumber::OdbcCallFailed);
    EXPECT_EQ(error.Description(), "ODBC--call failed. [HY000] first (1)");
    EXPECT_EQ(error.Diagnostics(), (std::vector<std::string>{"[HY000] first (1)", "[01000] second (2)"}));
}

TEST(RunTimeError, AFailedDatabaseCallWithoutDiagnosticsHasTheBareText) {
    EXPECT_EQ(RunTimeError::OdbcCallFailed({}).Description(), "ODBC--call failed.");
}

}  // namespace
TEST(RunTimeError, CircumstanceOfAFileIsToldButIsNotInTheDescription) {
    const RunTimeError error = RunTimeError::OfFile(ErrorNumber::PathNotFound, "\"/a/b\": gone");
    EXPECT_EQ(error.Description(), "Path not found");
    EXPECT_STREQ(error.what(), "Path not found \"/a/b\": gone");
}

}  // namespace ventlock
