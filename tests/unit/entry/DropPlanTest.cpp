#include "entry/DropPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

DroppedFile Entry(const std::string& path) {
    return {.path = path, .isFile = true, .holdsEntryKey = true};
}

DroppedFile Other(const std::string& path) {
    return {.path = path, .isFile = true, .holdsEntryKey = false};
}

TEST(DropPlan, TellsTheTargetsByTheirNamesInAnyCase) {
    for (const char* path : {"/a/Pyx.ini", "/a/PYX.INI", "C:\\tav\\pyx.ini", "pyx.ini"}) {
        const DropPlan plan = PlanDrop({Other(path)});
        EXPECT_EQ(plan.ini, path);
        EXPECT_EQ(plan.ddInstall + plan.entry, "");
        EXPECT_THAT(plan.refused, IsEmpty());
    }
    for (const char* path : {"/a/Ddinstal.ini", "A:\\DDINSTAL.INI"}) {
        const DropPlan plan = PlanDrop({Other(path)});
        EXPECT_EQ(plan.ddInstall, path);
        EXPECT_EQ(plan.ini + plan.entry, "");
    }
}

TEST(DropPlan, TakesTheNameBeforeTheContent) {
    EXPECT_EQ(PlanDrop({Entry("/a/Pyx.ini")}).ini, "/a/Pyx.ini");
    EXPECT_EQ(PlanDrop({Entry("/a/Pyx.ini")}).entry, "");
}

TEST(DropPlan, OpensAnyOtherFileThatHoldsAKeyOfAnEntry) {
    EXPECT_EQ(PlanDrop({Entry("/a/flow.ini")}).entry, "/a/flow.ini");
    EXPECT_EQ(PlanDrop({Entry("/a/flow")}).entry, "/a/flow");
    EXPECT_EQ(PlanDrop({Entry("/pyx.ini/flow.ini")}).entry, "/pyx.ini/flow.ini");
    EXPECT_EQ(PlanDrop({Entry("/a/not-Pyx.ini")}).entry, "/a/not-Pyx.ini");
}

TEST(DropPlan, TakesOneOfEachKindAtOnce) {
    const DropPlan plan = PlanDrop({Other("/a/Ddinstal.ini"), Entry("/a/flow.ini"), Other("/a/Pyx.ini")});
    EXPECT_EQ(plan.ini, "/a/Pyx.ini");
    EXPECT_EQ(plan.ddInstall, "/a/Ddinstal.ini");
    EXPECT_EQ(plan.entry, "/a/flow.ini");
    EXPECT_THAT(plan.refused, IsEmpty());
}

TEST(DropPlan, RefusesSeveralOfOneKindAndDoesTheRest) {
    const DropPlan plan =
        PlanDrop({Entry("/a/1.ini"), Other("/a/Pyx.ini"), Entry("/a/2.ini"), Entry("/a/3.ini")});
    EXPECT_EQ(plan.entry, "");
    EXPECT_EQ(plan.ini, "/a/Pyx.ini");
    EXPECT_THAT(plan.refused,
                ElementsAre(Pair("/a/1.ini", DropRefusal::Several), Pair("/a/2.ini", DropRefusal::Several),
                            Pair("/a/3.ini", DropRefusal::Several)));
}

TEST(DropPlan, RefusesFoldersAndOtherFiles) {
    const DropPlan plan = PlanDrop({{.path = "/a/Pyx.ini", .isFile = false, .holdsEntryKey = false},
                                    Other("/a/picture.png"),
                                    Other("/b/Pyx.ini")});
    EXPECT_EQ(plan.ini, "/b/Pyx.ini") << "a folder of that name is none of its kind";
    EXPECT_THAT(plan.refused, ElementsAre(Pair("/a/Pyx.ini", DropRefusal::NoFile),
                                          Pair("/a/picture.png", DropRefusal::Unknown)));
}

TEST(DropPlan, OfNothingIsNothing) {
    const DropPlan plan = PlanDrop({});
    EXPECT_EQ(plan.ini + plan.ddInstall + plan.entry, "");
    EXPECT_THAT(plan.refused, IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
