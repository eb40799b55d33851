// The facade's own failures: its records cannot be made.

#include "db/clsTavDB.h"
#include "unit/db/FailingMemory.h"
#include "unit/db/Records.h"

namespace ventlock::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A facade that knows the shared objects and has no records.
class UpdateMemory : public testing::Test {
 protected:
    UpdateMemory() { EXPECT_FALSE(tavDB_.Init(world_.Objects())); }

    /// The result of an update during which the allocation of `size` bytes fails.
    bool UpdateWithout(std::size_t size) {
        const FailingMemory memory(size);
        const bool result = tavDB_.Update();
        EXPECT_TRUE(memory.HasRefused());
        return result;
    }

    DbWorld world_;
    clsTavDB tavDB_{world_.Events()};
};

TEST_F(UpdateMemory, ManufacturerThatCannotBeMadeIsReportedAtStep03) {
    EXPECT_FALSE(UpdateWithout(sizeof(clsManufacturer)));
    EXPECT_THAT(world_.Entries(), ElementsAre(EntryText("DBupd-03", ErrorNumber::OutOfMemory)));
    EXPECT_THAT(world_.Statements(), IsEmpty());
    EXPECT_TRUE(tavDB_.Update()) << "the next one finds memory again";
}

TEST_F(UpdateMemory, DeviceThatCannotBeMadeIsReportedAtStep04) {
    EXPECT_FALSE(UpdateWithout(sizeof(clsDevice)));
    EXPECT_THAT(world_.Entries(), ElementsAre(EntryText("DBupd-04", ErrorNumber::OutOfMemory)));
    EXPECT_THAT(world_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace ventlock::test
