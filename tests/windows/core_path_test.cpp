#include "core_host/host_test.h"
#include "platform/win32/full_path.h"

namespace velmora::test {
namespace {

namespace fs = std::filesystem;

// A copy of the probe core as core.dll in the current directory.
class CorePath : public HostTest {
protected:
    void SetUp() override {
        fs::copy_file(core.path, scratch / L"core.dll");
        fs::current_path(scratch.path());
    }
    void TearDown() override { fs::current_path(before); }

    const fs::path before = fs::current_path();
    const fs::path full = fs::absolute(scratch / L"core.dll").make_preferred();
    const std::wstring drive = full.root_name().wstring();
    const std::wstring fromRoot = full.relative_path().wstring();
};

TEST_F(CorePath, IsTakenInEveryForm) {
    for (const fs::path& path :
         {fs::path(L"core.dll"), fs::path(L"./core.dll"), fs::path(drive + L"core.dll"),
          fs::path(L"\\" + fromRoot), fs::path(full.generic_wstring()),
          fs::path(L"\\\\?\\" + full.wstring()), fs::path(L"\\\\.\\" + full.wstring())})
        EXPECT_TRUE(host.loadCore(path)) << host.lastError;
}

TEST_F(CorePath, OnAShareIsNotLookedForOnTheCurrentDrive) {
    ASSERT_TRUE(host.loadCore(L"\\" + fromRoot));
    for (const wchar_t* root : {L"\\\\", L"//", L"\\\\?\\UNC\\"})
        EXPECT_FALSE(host.loadCore(root + fromRoot)) << host.lastError;
}

TEST(FullPath, IsMarkedWhereItIsTooLongToGoUnmarked) {
    const std::wstring most = L"C:\\" + std::wstring(256, L'n');
    const std::wstring share = L"\\\\server\\share\\" + most.substr(3);
    EXPECT_EQ(platform::fullPath(most), most);
    EXPECT_EQ(platform::fullPath(L"C:/./" + most.substr(3) + L"n"), L"\\\\?\\" + most + L"n");
    EXPECT_EQ(platform::fullPath(share), L"\\\\?\\UNC" + share.substr(1));
    for (const wchar_t* marked : {L"\\\\?\\", L"\\\\.\\"})
        EXPECT_EQ(platform::fullPath(marked + most), marked + most);
}

} // namespace
} // namespace velmora::test
