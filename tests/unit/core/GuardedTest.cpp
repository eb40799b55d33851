#include "core/Guarded.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "unit/core/LogWorld.h"

namespace ventlock::test {
namespace {

class Guard : public LogWorld {
 protected:
    void SetUp() override {
        oAppObjects_.Add("Log", StartedLog(kLogToFile | kLogToScreen));
        UseModuleMessageBox(&moduleMessages_);
    }
    void TearDown() override { UseModuleMessageBox(nullptr); }

    /// The entry that a guarded procedure leaves when its body raises `error` at step "02.1a".
    template <class Error>
    std::string EntryAfter(const Error& error) {
        const bool result = Guarded(&oAppObjects_, "MANins", false, [&](StepLabel& step) -> bool {
            step = "01";
            step = "02.1a";
            throw error;
        });
        EXPECT_FALSE(result);
        EXPECT_EQ(messageBox_.messages.size(), 1U);
        return messageBox_.messages.empty() ? "" : messageBox_.messages.back().text;
    }

    AppObjects oAppObjects_;
    FakeMessageBox moduleMessages_;
};

TEST_F(Guard, GivesTheResultOfABodyThatRaisesNothing) {
    EXPECT_EQ(
        Guarded(&oAppObjects_, "DBgci", std::string("failed"), [](StepLabel&) { return std::string("8"); }),
        "8");
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Guard, LogsTagStepDescriptionAndNumberOnceAndGivesTheFailureValue) {
    const std::string result =
        Guarded(&oAppObjects_, "MANins", std::string("failure"), [](StepLabel& step) -> std::string {
            step = "02.1a";
            throw RunTimeError(ErrorNumber::InvalidUseOfNull);
        });
    EXPECT_EQ(result, "failure");
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     MANins-02.1a: Invalid use of Null (94)\r\n");
    ASSERT_EQ(messageBox_.messages.size(), 1U);
    EXPECT_EQ(messageBox_.messages[0].text, "MANins-02.1a: Invalid use of Null (94)");
    EXPECT_EQ(messageBox_.messages[0].title, "Ventlock");
    EXPECT_EQ(moduleMessages_.messages.size(), 0U);
}

TEST_F(Guard, BeginsAtStep00) {
    EXPECT_EQ(Guarded(&oAppObjects_, "DBlvi", 7,
                      [](StepLabel&) -> int { throw RunTimeError(ErrorNumber::TypeMismatch); }),
              7);
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     DBlvi-00: Type mismatch (13)\r\n");
}

TEST_F(Guard, ReportsOverflow) {
    EXPECT_EQ(EntryAfter(RunTimeError(ErrorNumber::Overflow)), "MANins-02.1a: Overflow (6)");
}

TEST_F(Guard, ReportsATypeMismatch) {
    EXPECT_EQ(EntryAfter(RunTimeError(ErrorNumber::TypeMismatch)), "MANins-02.1a: Type mismatch (13)");
}

TEST_F(Guard, ReportsADetailBehindTheDescription) {
    EXPECT_EQ(EntryAfter(RunTimeError(ErrorNumber::PathFileAccessError, "\"Ω\" is refused")),
              "MANins-02.1a: Path/File access error \"Ω\" is refused (75)");
}

TEST_F(Guard, ReportsTheFirstDiagnosticOfAFailedDatabaseCall) {
    EXPECT_EQ(EntryAfter(RunTimeError::OdbcCallFailed(
                  {"[23000] UNIQUE constraint failed (19)", "[HY000] more (1)"})),
              "MANins-02.1a: ODBC--call failed. [23000] UNIQUE constraint failed (19) (3146)");
}

TEST_F(Guard, ReportsLackOfMemoryAsNumber7) {
    EXPECT_EQ(EntryAfter(std::bad_alloc()), "MANins-02.1a: Out of memory (7)");
}

TEST_F(Guard, ReportsAnyOtherExceptionAsAnInternalErrorWithItsText) {
    EXPECT_EQ(EntryAfter(std::logic_error("no such state")),
              "MANins-02.1a: Internal error no such state (51)");
}

TEST_F(Guard, ReportsWhatIsNoExceptionAsAnInternalError) {
    EXPECT_EQ(EntryAfter(42), "MANins-02.1a: Internal error (51)");
}

TEST_F(Guard, DropsTheTextBeforeThereAreAppObjects) {
    const int result =
        Guarded(nullptr, "DBie", -1, [](StepLabel&) -> int { throw RunTimeError(ErrorNumber::Overflow); });
    EXPECT_EQ(result, -1);
    EXPECT_EQ(folder_.Listing(), "");
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(moduleMessages_.messages.size(), 0U);
}

TEST_F(Guard, DropsTheTextWhenAppObjectsHoldNoLog) {
    const AppObjects withoutLog;
    EXPECT_FALSE(Guarded(&withoutLog, "DBie", false,
                         [](StepLabel&) -> bool { throw RunTimeError(ErrorNumber::Overflow); }));
    EXPECT_EQ(moduleMessages_.messages.size(), 0U);
}

TEST_F(Guard, DropsTheTextWhenWhatIsCalledLogIsNone) {
    struct NoLog final : AppObject {};
    AppObjects odd;
    odd.Add("Log", std::make_shared<NoLog>());
    EXPECT_FALSE(
        Guarded(&odd, "DBie", false, [](StepLabel&) -> bool { throw RunTimeError(ErrorNumber::Overflow); }));
}

TEST_F(Guard, KeepsItsFailureValueWhenTheLogFails) {
    files_.FailAt(FileOperation::Append, 1, RunTimeError(ErrorNumber::DiskFull));
    EXPECT_EQ(EntryAfter(RunTimeError(ErrorNumber::Overflow)), "MANins-02.1a: Overflow (6)");
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Guard, LogsAnErrorOfAnInnerProcedureOnceUnderTheInnerTag) {
    EXPECT_TRUE(Guarded(&oAppObjects_, "INIins", false, [&](StepLabel& step) {
        step = "02";
        Guarded(&oAppObjects_, "INIwb", false, [](StepLabel& inner) -> bool {
            inner = "03.1";
            throw RunTimeError(ErrorNumber::Overflow);
        });
        return true;
    }));
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     INIwb-03.1: Overflow (6)\r\n");
}

TEST_F(Guard, OfAModuleShowsTagStepAndDescriptionWithoutNumberAndWritesNothing) {
    const std::string result = GuardedModule("mLgs", std::string("none"), [](StepLabel& step) -> std::string {
        step = "01";
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    });
    EXPECT_EQ(result, "none");
    ASSERT_EQ(moduleMessages_.messages.size(), 1U);
    EXPECT_EQ(moduleMessages_.messages[0].text, "mLgs-01: Object variable or With block variable not set");
    EXPECT_EQ(moduleMessages_.messages[0].title, "") << "the application's own title";
    EXPECT_EQ(moduleMessages_.messages[0].help.has_value(), false);
    EXPECT_EQ(messageBox_.messages.size(), 0U);
    EXPECT_EQ(folder_.Listing(), "");
}

TEST_F(Guard, OfAModuleGivesTheResultOfABodyThatRaisesNothing) {
    EXPECT_EQ(GuardedModule("mCTcd", -1.0, [](StepLabel&) { return 31.0; }), 31.0);
    EXPECT_EQ(moduleMessages_.messages.size(), 0U);
}

TEST_F(Guard, OfAModuleWithoutMessageBoxDropsTheText) {
    UseModuleMessageBox(nullptr);
    EXPECT_EQ(GuardedModule("mCTps", 1, [](StepLabel&) -> int { throw std::bad_alloc(); }), 1);
    EXPECT_EQ(moduleMessages_.messages.size(), 0U);
}

TEST_F(Guard, LetsNothingOutWhenTheMessageBoxItselfFails) {
    struct BrokenBox final : IMessageBox {
        void Show(const std::string&, const std::string&, const std::optional<MessageHelp>&) override {
            throw std::runtime_error("no display");
        }
    } broken;
    UseModuleMessageBox(&broken);
    EXPECT_EQ(GuardedModule("mCTps", 1, [](StepLabel&) -> int { throw std::bad_alloc(); }), 1);
}

struct Tag {
    const char* name;
};

/// Tags are printed with their exact letter case.
class TagCase : public Guard, public testing::WithParamInterface<Tag> {};

TEST_P(TagCase, IsKept) {
    const std::string tag = GetParam().name;
    Guarded(&oAppObjects_, tag, false, [](StepLabel&) -> bool { throw RunTimeError(ErrorNumber::Overflow); });
    EXPECT_EQ(LogText(), Header() + "1-->\r\n     " + tag + "-00: Overflow (6)\r\n");
}

INSTANTIATE_TEST_SUITE_P(Guard, TagCase,
                         testing::Values(Tag{"fMf_l"}, Tag{"MANins"}, Tag{"DEVadtid"}, Tag{"LOGwlf"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace ventlock::test
