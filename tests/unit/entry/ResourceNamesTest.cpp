#include "entry/ResourceNames.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/RowName.h"

namespace ventlock::test {
namespace {

struct NameRow {
    std::string_view name;
    std::string (*complete)(std::string_view field);
    std::string_view field;
    std::string_view result;
};

void PrintTo(const NameRow& row, std::ostream* out) {
    *out << '"' << row.field << '"';
}

class ResourceName : public testing::TestWithParam<NameRow> {};

TEST_P(ResourceName, IsCompletedByItsExtension) {
    EXPECT_EQ(GetParam().complete(GetParam().field), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Rows, ResourceName,
                         testing::Values(NameRow{"DllAdded", DllName, "Dev", "Dev.dll"},
                                         NameRow{"DllInCapitals", DllName, "DEV.DLL", "DEV.DLL"},
                                         NameRow{"DllEmpty", DllName, "", ".dll"},
                                         NameRow{"DllBlanks", DllName, "  ", ".dll"},
                                         NameRow{"DllOfThreeCharacters", DllName, "dll", "dll.dll"},
                                         NameRow{"DllCutExtension", DllName, "x.dl", "x.dl.dll"},
                                         NameRow{"DllBareExtension", DllName, ".dll", ".dll"},
                                         NameRow{"DllTrailingBlank", DllName, "Dev.dll ", "Dev.dll"},
                                         NameRow{"DllLeadingBlank", DllName, " Dev", "Dev.dll"},
                                         NameRow{"TemplateInCapitals", TemplateName, "t.MRG", "t.MRG"},
                                         NameRow{"TemplateAdded", TemplateName, "t", "t.mrg"},
                                         NameRow{"TemplateEmpty", TemplateName, "", ".mrg"},
                                         NameRow{"HelpEmpty", HelpFileName, "", ""},
                                         NameRow{"HelpBlanks", HelpFileName, "  ", ""},
                                         NameRow{"HelpAdded", HelpFileName, "h", "h.hlp"},
                                         NameRow{"HelpInCapitals", HelpFileName, "H.HLP", "H.HLP"}),
                         RowName());

}  // namespace
}  // namespace ventlock::test
