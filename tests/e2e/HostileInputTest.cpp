// What comes from others: folders that are shared, odd paths, spoiled stores and dictionaries.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "e2e/Refused.h"

namespace ventlock::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> RegisterTo(const std::string& pyxIni, const std::string& ddinstal) {
    return {"register",    "entry.ini",        "--ini", "--ini-path", pyxIni,
            "--ddinstall", "--ddinstall-path", ddinstal};
}

unsigned ModeOf(const std::string& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
}

/// The file mode mask of this process and its children while the object lives.
class FileModeMask {
 public:
    explicit FileModeMask(mode_t mask) : before_(umask(mask)) {}
    ~FileModeMask() { umask(before_); }
    FileModeMask(const FileModeMask&) = delete;
    FileModeMask& operator=(const FileModeMask&) = delete;

 private:
    mode_t before_;
};

TEST(FileModes, OfNewFilesFollowTheMaskAndExistingOnesKeepTheirs) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    world.Write("old.ini", "[General]\r\nNumOfMfg=0\r\n");
    fs::permissions(world.Path("old.ini"), fs::perms(0600));
    {
        const FileModeMask mask(027);
        ASSERT_EQ(world.Run(RegisterTo("Pyx.ini", "old.ini")).exitCode, 0);
    }
    EXPECT_EQ(ModeOf(world.Path("Pyx.ini")), 0640U);
    EXPECT_EQ(ModeOf(world.Path("Pyx.ini.bak")), 0640U);
    EXPECT_EQ(ModeOf(world.Path("old.ini")), 0600U);
    EXPECT_EQ(world.Listing(), "Pyx.ini Pyx.ini.bak entry.ini old.ini old.ini.bak");
}

TEST(OddPaths, AreTakenAsTheyAre) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    for (const std::string name :
         {"a b.ini", "it's.ini", "\"quoted\".ini", "new\nline.ini", "$(touch shell).ini", "`touch shell`.ini",
          "a;touch shell;.ini", "| touch shell", "*.ini", "caf\xC3\xA9.ini", "%s%n%d.ini", "-rf", "{0}.ini",
          "tab\t.ini", " leading.ini"}) {
        const std::string path = name.front() == '-' ? "./" + name : name;
        const ProgramResult result = world.Run(RegisterTo(path, path + ".dd"));
        EXPECT_EQ(result.exitCode, 0) << name << result.err;
        EXPECT_EQ(world.Read(name), kFlowPyxIni) << name;
        EXPECT_EQ(world.Read(name + ".dd"), kFlowDdinstal) << name;
    }
    EXPECT_FALSE(world.Has("shell"));
}

TEST(OddPaths, OfAFileOfEntriesAreTakenAsTheyAreToo) {
    const World world;
    for (const std::string name : {"a b.ini", "it's.ini", "new\nline.ini", "$(touch shell).ini"}) {
        world.Write(name, kFlowEntry);
        const ProgramResult result = world.Run({"check", name});
        EXPECT_EQ(result.exitCode, 0) << name << result.err;
    }
    EXPECT_FALSE(world.Has("shell"));
}

TEST(OddPaths, OfAlmost4000CharactersAreWrittenAndLongerOnesRefused) {
    const World world;
    world.Write("entry.ini", kFlowEntry);
    std::string folder = world.Path("");
    while (folder.size() + 200 < 3900) folder += std::string(199, 'x') + "/";
    fs::create_directories(folder);
    const std::string path = folder + std::string(3900 - folder.size(), 'y');
    ASSERT_EQ(world.Run(RegisterTo(path, path + ".dd")).exitCode, 0);
    EXPECT_EQ(ReadBytes(path), kFlowPyxIni);
    EXPECT_EQ(ReadBytes(path + ".dd"), kFlowDdinstal);

    const ProgramResult refused = world.Run(RegisterTo(folder + std::string(400, 'z'), path + ".dd"));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_NE(refused.err.find("Bad file name or number"), std::string::npos) << refused.err;
    EXPECT_EQ(ReadBytes(path + ".dd"), kFlowDdinstal);
}

TEST(OddNames, CommandNoTerminal) {
    const World world;
    world.Write("entry.ini",
                "[\x1B[2J\x1B]0;owned\a]\nManID=26\nManName=Acme\nDevID=7\nDevName=Flow\nDLLName=d\n");
    const ProgramResult result = world.Run({"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini"});
    EXPECT_EQ((result.out + result.err).find('\x1B'), std::string::npos) << result.out << result.err;
    EXPECT_EQ((result.out + result.err).find('\a'), std::string::npos);
    EXPECT_NE((result.out + result.err).find("\\x1B[2J"), std::string::npos) << result.out << result.err;
}

/// Every byte there is, several times, in an order of its own.
std::string Garbage(std::size_t size) {
    std::string bytes;
    std::uint32_t state = 1;
    while (bytes.size() < size) {
        state = state * 1664525U + 1013904223U;
        bytes += static_cast<char>(state >> 24U);
    }
    return bytes;
}

TEST(SpoiledStore, GivesTheDefaultsAndStillTakesValues) {
    const World world;
    const std::string defaults = world.Run({"settings", "list"}).out;
    const std::string path =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvard Systems\\TAVToolkit\\Ventlock\\ManData]\n";
    for (const std::string& content :
         {Garbage(20000), std::string(20000, '\0'), std::string(20000, '['), std::string(10000, '\n'),
          path + "ManName=text:\"open\nManName=hex(99999999999):zz\n",
          path + std::string(300000, 'x') + "=dword:0\n"}) {
        WriteBytes(world.SettingsStore(), content);
        const ProgramResult listed = world.Run({"settings", "list"});
        EXPECT_EQ(listed.exitCode, 0) << listed.err;
        EXPECT_EQ(listed.out, defaults);
        ASSERT_EQ(world.Run({"settings", "set", "ManName", "Best"}).exitCode, 0);
        EXPECT_EQ(world.Run({"settings", "get", "ManName"}).out, "Best\n");
    }
}

TEST(SpoiledStore, ThatIsNoFileOrTooLargeGivesTheDefaults) {
    const World world;
    const std::string defaults = world.Run({"settings", "list"}).out;
    const std::string store = world.SettingsStore();
    fs::remove(store);
    ASSERT_EQ(mkfifo(store.c_str(), 0600), 0);
    EXPECT_EQ(world.Run({"settings", "list"}).out, defaults);
    fs::remove(store);
    fs::create_symlink("/dev/zero", store);
    EXPECT_EQ(world.Run({"settings", "list"}).out, defaults);
    fs::remove(store);
    WriteBytes(store, "");
    fs::resize_file(store, std::uintmax_t{1} << 29U);  // takes no room on the disk
    EXPECT_EQ(world.Run({"settings", "list"}).out, defaults);
}

TEST(SpoiledDictionary, LeavesTheKeysOfTheTextsAndTheWorkIsDone) {
    World world;
    world.Write("entry.ini", kFlowEntry);
    fs::permissions(world.Path(""), fs::perms::all);
    // Makes the program's folder.
    ASSERT_EQ(world.RunAsOrdinaryUser({"settings", "list"}).exitCode, 0);
    for (const char* const name : {"QorStandard.dct", "Ventlock.dct"}) {
        for (const std::string& content :
             {Garbage(100000), std::string(2000000, '['), std::string("[IDS_TAB_GEN]\nEN=%s%n%s%n\n")}) {
            WriteBytes(world.ProgramFolder() + "/" + name, content);
            const ProgramResult result = world.RunAsOrdinaryUser(
                {"register", "entry.ini", "--ini", "--ini-path", "Pyx.ini", "--dry-run"});
            EXPECT_EQ(result.exitCode, 0) << result.err;
            EXPECT_NE(result.out.find("+000026.0007.01=000026/0007"), std::string::npos) << result.out;
        }
    }
}

TEST(Passwords, AreNeitherInTheLogNorInTheDocument) {
    World world;
    world.Write("entry.ini", kFlowEntry);
    WriteBytes(world.UserDataSources(),
               "[GONE]\nDriver=/nowhere/libgone.so\nPWD=verysecret\nPassword=verysecret\n");
    for (const char* const source :
         {"GONE;PWD=verysecret", "GONE;pwd={very}}secret};X=1", "PWD=verysecret"}) {
        const ProgramResult result =
            world.RunAsOrdinaryUser({"register", "entry.ini", "--db", "--dsn", source, "--json"});
        EXPECT_EQ(result.exitCode, 3);
        const std::string log = ReadBytes(world.StateFolder() + "/Ventlock.log");
        EXPECT_NE(log.find("CONNconn-02"), std::string::npos);
        for (const std::string& text : {log, result.out, result.err}) {
            EXPECT_EQ(text.find("verysecret"), std::string::npos) << text;
            EXPECT_EQ(text.find("very}"), std::string::npos) << text;
        }
    }
}

}  // namespace
}  // namespace ventlock::test
