#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/platform/registry_calls.h"
#include "tests/support/child_process.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace {

using mavrin2::platform::RegistryChange;
using mavrin2::tests::Apply;
using mavrin2::tests::ChildProcess;
using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::Get;
using mavrin2::tests::ScratchFolder;
using mavrin2::tests::Set;
using Kind = RegistryChange::Kind;

std::string ContentOf(const std::filesystem::path& path) {
    std::stringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

class RegistryFile : public testing::Test {
protected:
    std::filesystem::path File() const { return folder_.Path() / "lib" / "components"; }

    ScratchFolder folder_;
    EnvironmentVariable variable_{"MAVRIN2_REGISTRY", File().string()};
};

TEST_F(RegistryFile, IsMadeToBeRead) {
    ASSERT_EQ(Set(u"CLSID\\{A}", u"text"), S_OK);
    EXPECT_NE(ContentOf(File()).find("[CLSID\\{A}]\n"), std::string::npos);
}

TEST_F(RegistryFile, TakesWhatItUnderstandsFromACorruptFile) {
    ASSERT_EQ(Set(u"A", u"1"), S_OK);
    std::ofstream(File(), std::ios::binary)
        << "junk = \"before any key\"\n[A\n@ = \"under no key\"\n[]\n[B\\]\n@ = \"x\"\n[C]\r\n"
        << "@ = \"kept\"  \r\n@ = \"unfinished\nname = bare\n= \"x\"\n\"q\" = \"a\\\"\n\\\n"
        << "\xFF\xFE\x80 = \"\xC3\"\nlast = \"\xF0\x9D\x84\"\n[D]\n@=\"no blanks\"";
    EXPECT_EQ(Get(u"A"), u"(none)");
    EXPECT_EQ(Get(u"C"), u"kept");
    EXPECT_EQ(Get(u"C", u"last").size(), 3u) << "bytes that are no character are kept";
    EXPECT_EQ(Get(u"D"), u"no blanks");
    EXPECT_EQ(Set(u"E", u"new"), S_OK);
    EXPECT_EQ(Get(u"C"), u"kept");
    EXPECT_EQ(Get(u"E"), u"new");
    std::ofstream(File(), std::ios::binary) << std::string(3, '\0') << "[\n[[]]\n]\n@\n=\n\"";
    EXPECT_EQ(Get(u"C"), u"(none)");
}

TEST_F(RegistryFile, KeepsModulesBelowItByTheirRelativePath) {
    const std::filesystem::path module = folder_.Path() / "lib" / "sub" / "libx.so";
    ASSERT_EQ(Set(u"CLSID\\{A}\\InprocServer32", module.u16string()), S_OK);
    ASSERT_EQ(Set(u"CLSID\\{B}\\InprocServer32", u"/elsewhere/liby.so"), S_OK);
    ASSERT_EQ(Set(u"CLSID\\{A}\\ToolboxBitmap32", module.u16string() + u", 101"), S_OK);
    ASSERT_EQ(Set(u"CLSID\\{A}\\Other", module.u16string()), S_OK);
    EXPECT_EQ(Get(u"CLSID\\{A}\\InprocServer32"), module.u16string());

    std::filesystem::rename(folder_.Path() / "lib", folder_.Path() / "moved");
    const std::filesystem::path moved = folder_.Path() / "moved";
    const EnvironmentVariable variable("MAVRIN2_REGISTRY", (moved / "components").string());
    EXPECT_EQ(Get(u"CLSID\\{A}\\InprocServer32"), (moved / "sub" / "libx.so").u16string());
    EXPECT_EQ(Get(u"CLSID\\{A}\\ToolboxBitmap32"),
              (moved / "sub" / "libx.so").u16string() + u", 101");
    EXPECT_EQ(Get(u"CLSID\\{B}\\InprocServer32"), u"/elsewhere/liby.so");
    EXPECT_EQ(Get(u"CLSID\\{A}\\Other"), module.u16string()) << "no module's path";
}

TEST_F(RegistryFile, SaysWhenItCannotBeWritten) {
    ASSERT_EQ(Set(u"A", u"1"), S_OK);
    const EnvironmentVariable below("MAVRIN2_REGISTRY", (File() / "below a file").string());
    EXPECT_EQ(Set(u"A", u"2"), REGDB_E_WRITEREGDB);
    EXPECT_EQ(Get(u"A"), u"(none)");
}

TEST_F(RegistryFile, LosesNothingWhenProcessesWriteAtOnce) {
    constexpr int writers = 4;
    constexpr int rounds = 25;
    std::vector<std::unique_ptr<ChildProcess>> children;
    children.reserve(writers);
    for (int writer = 0; writer < writers; ++writer) {
        children.push_back(std::make_unique<ChildProcess>([writer] {
            for (int round = 0; round < rounds; ++round) {
                const std::u16string key = {static_cast<char16_t>(u'A' + writer), u'\\',
                                            static_cast<char16_t>(u'a' + round)};
                // Both values or neither: one is never seen without the other.
                if (FAILED(Apply({{Kind::SetValue, key, u"one", u"1"},
                                  {Kind::SetValue, key, u"two", u"2"}}))) {
                    return 1;
                }
                if (Get(key, u"one") != u"1" || Get(key, u"two") != u"2") return 2;
            }
            return 0;
        }));
    }
    for (auto& child : children)
        EXPECT_EQ(child->Wait(), 0);
    for (int writer = 0; writer < writers; ++writer) {
        for (int round = 0; round < rounds; ++round) {
            const std::u16string key = {static_cast<char16_t>(u'A' + writer), u'\\',
                                        static_cast<char16_t>(u'a' + round)};
            EXPECT_EQ(Get(key, u"two"), u"2");
        }
    }
}

TEST(RegistryPlace, IsTheUsersUnlessTheEnvironmentNamesAnother) {
    const ScratchFolder folder;
    const EnvironmentVariable none("MAVRIN2_REGISTRY", std::nullopt);
    {
        const EnvironmentVariable config("XDG_CONFIG_HOME", (folder.Path() / "config").string());
        ASSERT_EQ(Set(u"A", u"config"), S_OK);
        EXPECT_TRUE(std::filesystem::exists(folder.Path() / "config/mavrin2/components"));
        const EnvironmentVariable named("MAVRIN2_REGISTRY", (folder.Path() / "named").string());
        EXPECT_EQ(Get(u"A"), u"(none)") << "a file that is named is the only one";
        ASSERT_EQ(Set(u"A", u"named"), S_OK);
        EXPECT_EQ(Get(u"A"), u"named");
    }
    const EnvironmentVariable relative("XDG_CONFIG_HOME", "relative");
    const EnvironmentVariable home("HOME", (folder.Path() / "home").string());
    EXPECT_EQ(Get(u"A"), u"(none)");
    ASSERT_EQ(Set(u"A", u"home"), S_OK);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "home/.config/mavrin2/components"));
    EXPECT_EQ(Get(u"A"), u"home");
}

}  // namespace
