// The English captions as the window shows them, with what the program puts behind them.

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "core/TavDictionary.h"
#include "platform/Host.h"
#include "support/RowName.h"

namespace ventlock::test {
namespace {

struct CaptionRow {
    std::string_view name;  ///< the key without "IDS_"
    std::string_view suffix;
    std::string_view shown;
};

void PrintTo(const CaptionRow& row, std::ostream* out) {
    *out << '"' << row.shown << '"';
}

class EnglishCaption : public testing::TestWithParam<CaptionRow> {};

TEST_P(EnglishCaption, IsShownAsInTheRow) {
    const std::unique_ptr<Host> host = CreateHost("ventlock");
    TavDictionary dictionary(host->Files());
    ASSERT_TRUE(dictionary.Load(
        {VENTLOCK_SOURCE_FOLDER "/data/QorStandard.dct", VENTLOCK_SOURCE_FOLDER "/data/Ventlock.dct"}));
    const std::string text = dictionary.Find("IDS_" + std::string(GetParam().name), "EN", true);
    EXPECT_EQ(text + std::string(GetParam().suffix), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Menus, EnglishCaption,
    testing::Values(CaptionRow{"MNU_FILE", "", "&File"},
                    CaptionRow{"MNU_SELECT_DD", "...", "S&elect DDInstall..."},
                    CaptionRow{"MNU_SELECT_INI", "...", "Select I&NI..."},
                    CaptionRow{"MNU_WRITE_DB", "", "Write to &Database"},
                    CaptionRow{"MNU_WRITE_INI", "", "Write to &INI"},
                    CaptionRow{"MNU_WRITE_DD", "", "Write to DDInstal&l"},
                    CaptionRow{"MNU_FILE_EXIT", "", "E&xit"}, CaptionRow{"MNU_EDIT", "", "&Edit"},
                    CaptionRow{"MNU_EDIT_CUT", "", "Cu&t"}, CaptionRow{"MNU_EDIT_COPY", "", "&Copy"},
                    CaptionRow{"MNU_EDIT_PASTE", "", "&Paste"}, CaptionRow{"MNU_CLEAR", "", "C&lear Entries"},
                    CaptionRow{"MNU_HELP", "", "&Help"},
                    CaptionRow{"MNU_HELP_CONTENTS", "...", "&Contents..."},
                    CaptionRow{"MNU_HELP_INDEX", "...", "&Search for Help on..."},
                    CaptionRow{"MNU_HELP_ABOUT", "...", "&About..."}, CaptionRow{"MNU_TOOLS", "", "&Tools"},
                    CaptionRow{"MNU_LOG", "", "&Log Entries"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    TabsAndButtons, EnglishCaption,
    testing::Values(CaptionRow{"TITLE", "", "Ventlock"}, CaptionRow{"TAB_GEN", "", "General"},
                    CaptionRow{"TAB_MAN", "", "Manufacturer"}, CaptionRow{"TAB_DEV", "", "Device"},
                    CaptionRow{"TAB_REV", "", "Revision"}, CaptionRow{"CMD_WRITE_DB", "", "Write DB"},
                    CaptionRow{"CMD_WRITE_INI", "", "Write .INI"},
                    CaptionRow{"CMD_WRITE_DD", "", "Write DDInstall"}, CaptionRow{"CMD_CLOSE", "", "Close"},
                    CaptionRow{"CMD_SWITCH", "", "Switch"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Labels, EnglishCaption,
    testing::Values(
        CaptionRow{"LBL_DSN", ":", "Datasource:"}, CaptionRow{"LBL_DD", ":", "DDInstall File:"},
        CaptionRow{"LBL_INI", ":", "PYX.ini Path:"}, CaptionRow{"LBL_ID", ":", "ID (in hex):"},
        CaptionRow{"LBL_NAME", ":", "Name:"}, CaptionRow{"LBL_DESC", ":", "Description:"},
        CaptionRow{"LBL_PROT", ":", "Protocol:"},
        CaptionRow{"LBL_CONV_CAT", "", "Only Conventional devices need major and minor categories"},
        CaptionRow{"LBL_DLL", ":", "Dev .DLL:"}, CaptionRow{"LBL_MRG", ":", "Dev .MRG:"},
        CaptionRow{"LBL_DEVHELP", ":", "Device Help:"}, CaptionRow{"LBL_BLKHELP", ":", "Block Help:"},
        CaptionRow{"LBL_DEVREV", ":", "Dev Rev:"}, CaptionRow{"LBL_DDREV", ":", "DD Rev:"},
        CaptionRow{"LBL_HART", ":", "HART Rev:"}, CaptionRow{"LBL_TAVVER", ":", "TAV Versions Supported:"},
        CaptionRow{"LBL_CAT", ":", "Major Category:"}, CaptionRow{"LBL_MINCAT", ":", "Minor Category:"}),
    RowName());

}  // namespace
}  // namespace ventlock::test
