#include "core/TavDictionary.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Host.h"
#include "support/FailingFiles.h"
#include "support/TempFolder.h"

namespace ventlock::test {
namespace {

class DictionaryFiles : public testing::Test {
 protected:
    /// Makes a file in the folder and gives its path.
    std::string File(std::string_view name, std::string_view text) {
        std::string path = folder_ / name;
        WriteBytes(path, text);
        return path;
    }
    std::string Find(const std::string& key, const std::string& language) {
        return dictionary_.Find(key, language, true);
    }

    TempFolder folder_;
    std::unique_ptr<Host> host_ = CreateHost("ventlock");
    FailingFiles files_{host_->Files()};
    TavDictionary dictionary_{files_};
};

TEST_F(DictionaryFiles, GiveTheTextOfAKeyInALanguage) {
    EXPECT_TRUE(dictionary_.Load(
        {File("a.dct", "; texts\n[EN]\nIDS_CMD_CLOSE=Close\n\n[DE]\nIDS_CMD_CLOSE=Schließen\n")}));
    EXPECT_EQ(Find("IDS_CMD_CLOSE", "EN"), "Close");
    EXPECT_EQ(Find("IDS_CMD_CLOSE", "DE"), "Schließen");
}

TEST_F(DictionaryFiles, FindKeysAndLanguagesWithoutRegardToCase) {
    dictionary_.Load({File("a.dct", "[en]\nids_x=text\n")});
    EXPECT_EQ(Find("IDS_X", "EN"), "text");
    EXPECT_EQ(Find("Ids_X", "En"), "text");
}

TEST_F(DictionaryFiles, AreReadInTheirOrderAndTheLaterAddsToTheEarlier) {
    const std::string first = File("QorStandard.dct", "[EN]\nIDS_A=first a\nIDS_B=first b\n");
    const std::string second = File("Ventlock.dct", "[EN]\nIDS_B=second b\nIDS_C=second c\n");
    EXPECT_TRUE(dictionary_.Load({first, second}));
    EXPECT_EQ(Find("IDS_A", "EN"), "first a");
    EXPECT_EQ(Find("IDS_B", "EN"), "second b");
    EXPECT_EQ(Find("IDS_C", "EN"), "second c");
    EXPECT_EQ(files_.Calls(FileOperation::ReadAll), 2);
}

TEST_F(DictionaryFiles, ThatCannotBeLoadedGiveFalseWhicheverItIs) {
    const std::string good = File("a.dct", "[EN]\nIDS_A=a\n");
    EXPECT_FALSE(dictionary_.Load({folder_ / "missing.dct", good}));
    EXPECT_FALSE(dictionary_.Load({good, folder_ / "missing.dct"}));
    EXPECT_FALSE(dictionary_.Load({good, folder_.Path()}));
    files_.FailAt(FileOperation::ReadAll, 2, RunTimeError(ErrorNumber::DeviceIoError));
    EXPECT_FALSE(dictionary_.Load({good, good}));
    EXPECT_TRUE(dictionary_.Load({good, good}));
}

TEST_F(DictionaryFiles, TextsOfTheOtherFileHelpAfterAFailure) {
    EXPECT_FALSE(dictionary_.Load({folder_ / "missing.dct", File("a.dct", "[EN]\nIDS_A=a\n")}));
    EXPECT_EQ(Find("IDS_A", "EN"), "a");
}

TEST_F(DictionaryFiles, ThatAreNoDictionaryGiveFalse) {
    EXPECT_FALSE(dictionary_.Load({File("a.dct", "[EN]\nIDS_A=\xFC\n")})) << "not UTF-8";
    EXPECT_FALSE(dictionary_.Load({File("b.dct", "[EN]\nneither key nor comment\n")}));
    EXPECT_FALSE(dictionary_.Load({File("c.dct", "IDS_A=a\n[EN]\n")})) << "a text of no language";
    EXPECT_TRUE(dictionary_.Load({File("d.dct", "")}));
    EXPECT_TRUE(dictionary_.Load({}));
}

TEST_F(DictionaryFiles, MayHaveAMarkAndAnyLineEnd) {
    EXPECT_TRUE(dictionary_.Load({File("a.dct", "\xEF\xBB\xBF[EN]\r\nIDS_A=a\r\n \t\r\n  ; c\r\nIDS_B=b")}));
    EXPECT_EQ(Find("IDS_A", "EN"), "a");
    EXPECT_EQ(Find("IDS_B", "EN"), "b");
}

TEST_F(DictionaryFiles, TakeATextAsItStandsBehindTheEqualsSign) {
    dictionary_.Load({File("a.dct", "[EN]\n IDS_A =  two blanks & \"quotes\" \nIDS_B=a=b;c:\nIDS_C=\n")});
    EXPECT_EQ(Find("IDS_A", "EN"), "  two blanks & \"quotes\" ");
    EXPECT_EQ(Find("IDS_B", "EN"), "a=b;c:");
    EXPECT_EQ(Find("IDS_C", "EN"), "");
}

TEST_F(DictionaryFiles, AnUnknownKeyGivesTheKey) {
    EXPECT_EQ(Find("IDS_Unknown", "EN"), "IDS_Unknown") << "nothing is loaded";
    dictionary_.Load({File("a.dct", "[EN]\nIDS_A=a\n")});
    EXPECT_EQ(Find("IDS_Unknown", "EN"), "IDS_Unknown");
}

TEST_F(DictionaryFiles, AMissingLanguageFallsBackToEnglishThenToAnyThenToTheKey) {
    dictionary_.Load({File(
        "a.dct", "[DE]\nIDS_A=deutsch\nIDS_B=nur deutsch\n[EN]\nIDS_A=english\n[FR]\nIDS_A=français\n")});
    EXPECT_EQ(Find("IDS_A", "FR"), "français");
    EXPECT_EQ(Find("IDS_A", "IT"), "english");
    EXPECT_EQ(Find("IDS_A", ""), "english");
    EXPECT_EQ(Find("IDS_B", "FR"), "nur deutsch");
    EXPECT_EQ(Find("IDS_C", "FR"), "IDS_C");
}

TEST_F(DictionaryFiles, TellWhichLanguageIsShown) {
    EXPECT_EQ(dictionary_.ShownLanguage("EN"), "");
    dictionary_.Load({File("a.dct", "[fr]\nIDS_A=a\n[IT]\n[DE]\nIDS_B=b\n")});
    EXPECT_EQ(dictionary_.ShownLanguage("Fr"), "FR");
    EXPECT_EQ(dictionary_.ShownLanguage("DE"), "DE");
    EXPECT_EQ(dictionary_.ShownLanguage("IT"), "DE") << "there is no text in it";
    dictionary_.Load({File("b.dct", "[EN]\nIDS_A=a\n")});
    EXPECT_EQ(dictionary_.ShownLanguage("IT"), "EN");
}

TEST_F(DictionaryFiles, TheFlagChangesNoText) {
    dictionary_.Load({File("a.dct", "[EN]\nIDS_A=a\n")});
    EXPECT_EQ(dictionary_.Find("IDS_A", "EN", false), "a");
}

TEST_F(DictionaryFiles, TheThirdFieldOfTheOptionBlockIsFalseUntilItIsSet) {
    EXPECT_FALSE(dictionary_.Option3());
    dictionary_.Option3() = true;
    EXPECT_TRUE(dictionary_.Option3());
}

}  // namespace
}  // namespace ventlock::test
