// docs/database-drivers.md is held to what the drivers answer in the tests and to what the program advises.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/Advice.h"
#include "support/DriverAnswers.h"
#include "support/TempFolder.h"
#include "support/posix/ForeignLibrary.h"

namespace ventlock::test {
namespace {

std::string Cell(const DriverAnswer& answer) {
    if (answer.state.empty()) return "cannot happen";
    return "`" + std::string(answer.state) + "` " + std::to_string(answer.native) + ", " +
           std::string(answer.words);
}

bool IsOfAConnect(Refusal refusal) {
    return refusal == Refusal::AbsentServer || refusal == Refusal::UnknownDatabase ||
           refusal == Refusal::MissingDriver || refusal == Refusal::OtherWordSize;
}

/// The record that a user's program has when a product refuses so; the driver manager names the driver's
/// library.
std::string Record(const DriverAnswer& answer, const std::string& library) {
    std::string text(answer.words);
    if (text == "Can't open lib") text += " '" + library + "' : file not found";
    return "[" + std::string(answer.state) + "] " + text + " (" + std::to_string(answer.native) + ")";
}

/// What the program advises for every product that can refuse so.
std::string Advice(const RefusalRow& row) {
    const TempFolder folder;
    const std::string library = folder / "libdriver.so";
    if (row.refusal == Refusal::OtherWordSize) WriteBytes(library, LibraryOfClass(kOtherWordSizeClass));
    std::string advice;
    for (const Product product : {Product::Sqlite, Product::Postgresql, Product::Mariadb}) {
        const DriverAnswer& answer = row.Of(product);
        if (answer.state.empty()) continue;
        std::vector<std::string> records{Record(answer, library)};
        // The program's own limit is told before what the driver says when it is stopped.
        if (row.refusal == Refusal::LockedTable)
            records.insert(records.begin(), "[HYT00] The database did not answer within 60 s (0)");
        const std::string own =
            IsOfAConnect(row.refusal) ? ConnectAdvice(records, false) : StatementAdvice(records);
        if (advice.empty()) advice = own;
        EXPECT_EQ(own, advice) << row.title << " with " << NameOf(product);
    }
    return advice;
}

TEST(DriverDocument, HasTheAnswersOfTheDriversAndTheAdviceOfTheProgram) {
    std::string table =
        "| What is refused | SQLite | PostgreSQL | MariaDB | Advice |\n|---|---|---|---|---|\n";
    for (const RefusalRow& row : Refusals()) {
        table.append("| ").append(row.title).append(" | ");
        table.append(Cell(row.sqlite)).append(" | ").append(Cell(row.postgresql)).append(" | ");
        table.append(Cell(row.mariadb)).append(" | ").append(Advice(row)).append(" |\n");
    }
    const std::string document = ReadBytes(VENTLOCK_SOURCE_FOLDER "/docs/database-drivers.md");
    EXPECT_NE(document.find(table), std::string::npos) << "the document is to have this table:\n" << table;
}

}  // namespace
}  // namespace ventlock::test
