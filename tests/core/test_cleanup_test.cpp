// The suites' own clean-up removes what lies below its folder and never walks
// through a link out of it: a prefix's user folders once led to the home
// folder, and a clean-up that followed them emptied it.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_platform.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <filesystem>
#include <fstream>
#include <unistd.h>
#endif

namespace tw::test {
namespace {

#ifdef _WIN32
// Wine cannot make links itself: tools/test.sh plants C:\twlink-fixture with
// a file and "out", a link to a folder of the scratch home holding keep.txt.
struct LinkFixture {
  std::u16string folder = u"C:\\twlink-fixture";
  bool Ready() const { return GetFileAttributesW(L"C:\\twlink-fixture\\out\\keep.txt") != INVALID_FILE_ATTRIBUTES; }
  bool OutsideKept() const {
    std::wstring keep = HostHomeFolder() + L"\\canary-folder\\keep.txt";
    return !HostHomeFolder().empty() && GetFileAttributesW(keep.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  bool FileInsideGone() const {
    return GetFileAttributesW(L"C:\\twlink-fixture\\inside.txt") == INVALID_FILE_ATTRIBUTES;
  }
};
#else
struct LinkFixture {
  std::filesystem::path root = std::filesystem::temp_directory_path() / ("tw-cleanup-" + std::to_string(getpid()));
  std::u16string folder = (root / "inside").u16string();
  LinkFixture() {
    std::filesystem::create_directories(root / "inside" / "sub");
    std::filesystem::create_directories(root / "outside");
    std::ofstream(root / "inside" / "inside.txt") << "x";
    std::ofstream(root / "outside" / "keep.txt") << "x";
    std::filesystem::create_directory_symlink(root / "outside", root / "inside" / "out");
  }
  ~LinkFixture() { std::filesystem::remove_all(root); }
  bool Ready() const { return std::filesystem::exists(root / "inside" / "out" / "keep.txt"); }
  bool OutsideKept() const { return std::filesystem::exists(root / "outside" / "keep.txt"); }
  bool FileInsideGone() const { return !std::filesystem::exists(root / "inside" / "inside.txt"); }
};
#endif

TEST(TestCleanup, NeverFollowsALinkOutOfTheFolder) {
  LinkFixture fixture;
  if (!fixture.Ready()) GTEST_SKIP() << "no link to clean up here: tools/test.sh plants one for Wine";
  RemoveTestFolder(fixture.folder);
  EXPECT_TRUE(fixture.FileInsideGone()) << "what lies below the folder is removed";
  EXPECT_TRUE(fixture.OutsideKept()) << "what the link leads to is untouched";
}

}  // namespace
}  // namespace tw::test
