#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "gui/GuiWorld.h"
#include "support/LogEntry.h"

namespace ventlock::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LastResort, WritesAnErrorIntoTheLogFileWithoutABox) {
    GuiWorld world;
    frmMain& window = world.Start();
    window.ReportUnhandled(std::make_exception_ptr(RunTimeError(ErrorNumber::InvalidProcedureCall)));
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMain-00", ErrorNumber::InvalidProcedureCall)));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(LastResort, TakesErrorsOfAnyKind) {
    GuiWorld world;
    frmMain& window = world.Start();
    window.ReportUnhandled(std::make_exception_ptr(std::bad_alloc()));
    window.ReportUnhandled(std::make_exception_ptr(std::runtime_error("of a library")));
    window.ReportUnhandled(std::make_exception_ptr(1));
    EXPECT_THAT(world.LogEntries(), ElementsAre(EntryText("fMain-00", ErrorNumber::OutOfMemory),
                                                testing::HasSubstr("(51)"), testing::HasSubstr("(51)")));
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

TEST(LastResort, BeforeThereIsALogTellsNobody) {
    GuiWorld world;
    world.Make().ReportUnhandled(std::make_exception_ptr(RunTimeError(ErrorNumber::InvalidProcedureCall)));
    EXPECT_THAT(world.LogEntries(), IsEmpty());
    EXPECT_THAT(world.messages.Texts(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
