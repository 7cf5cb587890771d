#include <gtest/gtest.h>

#include "win/platform/win32.h"

#include <string>

#include "win/platform/registry.h"
#include "win/platform/win_platform.h"

namespace tos::win {
namespace {

// A key of the test's own under the current user, gone before and after.
class RegistryTest : public ::testing::Test {
protected:
    const std::string key = "Software\\TolvarineObjectScripterTest\\" +
                            std::to_string(GetCurrentProcessId()) + "\\Tolvarine Object Scripter";
    void SetUp() override { Drop(); }
    void TearDown() override { Drop(); }
    void Drop() { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\TolvarineObjectScripterTest"); }

    bool KeyExists() const
    {
        HKEY h = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &h) != ERROR_SUCCESS)
            return false;
        RegCloseKey(h);
        return true;
    }
    // Stores bytes as they are, for values SetRegStr never writes.
    void StoreRaw(const std::string& name, DWORD type, const std::string& bytes) const
    {
        HKEY h = nullptr;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                  nullptr, &h, nullptr),
                  ERROR_SUCCESS);
        RegSetValueExA(h, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
        RegCloseKey(h);
    }
};

TEST_F(RegistryTest, FirstRunFindsNothingAndWritesNothing)
{
    WinPlatform platform;
    EXPECT_EQ(platform.ReadSetting(key, "DefaultDir"), "");
    EXPECT_EQ(GetRegStr(key, "ObjectDir", HKEY_CURRENT_USER), "");
    EXPECT_FALSE(KeyExists());
    SetRegStr("DefaultDir", "C:\\x", "", HKEY_CURRENT_USER);
    EXPECT_FALSE(KeyExists());
}

TEST_F(RegistryTest, FoldersWrittenTogetherReadBackUnchanged)
{
    WinPlatform platform;
    // The Windows-1252 bytes reach the registry as they are.
    const std::string folder = "C:\\Sz\xe9nes\\Valley";
    platform.WriteSetting(key, "DefaultDir", folder);
    platform.WriteSetting(key, "ObjectDir", "D:\\Max");
    EXPECT_EQ(platform.ReadSetting(key, "DefaultDir"), folder);
    EXPECT_EQ(platform.ReadSetting(key, "ObjectDir"), "D:\\Max");

    DWORD type = 0;
    DWORD size = 0;
    ASSERT_EQ(RegGetValueA(HKEY_CURRENT_USER, key.c_str(), "ObjectDir", RRF_RT_ANY, &type, nullptr,
                           &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 7u) << "the terminating zero is counted";
}

TEST_F(RegistryTest, StoredValuesReadWithTheLastByteDropped)
{
    struct Row {
        const char* name;
        DWORD type;
        std::string bytes;
        std::string read;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "empty text", .type = REG_SZ, .bytes = std::string(1, '\0'), .read = ""},
        {.name = "zero length", .type = REG_SZ, .bytes = "", .read = ""},
        {.name = "no terminating zero", .type = REG_BINARY, .bytes = "abc", .read = "ab"},
        {.name = "other type, read as text", .type = REG_EXPAND_SZ, .bytes = {"%X%\0", 4},
         .read = "%X%"},
    };
    // clang-format on
    for (const Row& row : rows) {
        StoreRaw("Value", row.type, row.bytes);
        EXPECT_EQ(GetRegStr(key, "Value", HKEY_CURRENT_USER), row.read) << row.name;
    }
    SetRegStr("Value", "", key, HKEY_CURRENT_USER);
    EXPECT_EQ(GetRegStr(key, "Value", HKEY_CURRENT_USER), "");
}

} // namespace
} // namespace tos::win
