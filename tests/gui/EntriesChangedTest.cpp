#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/modLocalization.h"
#include "gui/GuiWorld.h"

namespace ventlock::test {
namespace {

TEST(EntriesChanged, IsFalseAtFirstAndTrueAfterAChange) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    EXPECT_FALSE(window.EntriesChanged());
    window.Controls().txtMain[kDeviceNameBox]->SetText("Flow");
    EXPECT_TRUE(window.EntriesChanged());
}

TEST(EntriesChanged, IsSetByEveryTextBox) {
    for (std::size_t box = 0; box < kTextBoxCount; ++box) {
        GuiWorld world(GuiWorld::NoDatabase{});
        frmMain& window = world.Make();
        window.Controls().txtMain[box]->SetText("x");
        EXPECT_TRUE(window.EntriesChanged()) << box;
    }
}

TEST(EntriesChanged, IsNotSetByAnEqualText) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    window.Controls().txtMain[kDeviceNameBox]->SetText("");
    EXPECT_FALSE(window.EntriesChanged());
}

/// A dictionary during whose look-ups a text box changes.
class MeddlingDictionary final : public IDictionary {
 public:
    explicit MeddlingDictionary(frmMain& window) : window_(window) {}
    bool Load(const std::vector<std::string>& /*paths*/) override { return true; }
    std::string Find(const std::string& key, const std::string& /*language*/, bool /*flag*/) override {
        window_.Controls().txtMain[kDeviceNameBox]->SetText(key);
        return key;
    }
    bool& Option3() override { return option3_; }

 private:
    frmMain& window_;
    bool option3_ = false;
};

TEST(EntriesChanged, IsNotSetWhileTheCaptionsLoad) {
    GuiWorld world(GuiWorld::NoDatabase{});
    frmMain& window = world.Make();
    UseDictionary(std::make_shared<MeddlingDictionary>(window));
    window.LoadFormText(frmMain::kCaptions);
    EXPECT_EQ(window.Controls().txtMain[kDeviceNameBox]->Text(), "IDS_LBL_HART");
    EXPECT_FALSE(window.EntriesChanged());
}

}  // namespace
}  // namespace ventlock::test
