#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "platform/foundation/NSBundle.h"

namespace library {
struct Widget {};
namespace plugin {
struct Extra {};
}  // namespace plugin
}  // namespace library

namespace bkuk {
namespace {

namespace fs = std::filesystem;

class NSBundleTest : public testing::Test {
 protected:
  NSBundleTest() {
    fs::create_directories(root / "icons" / "deep.svg");
    for (const char* name : {"b.svg", "B.svg", "a.png", "\xC3\xA4.svg", ".svg", "icons/inner.svg"})
      std::ofstream(root / name) << name;
  }
  ~NSBundleTest() override { fs::remove_all(root); }

  static std::vector<std::string> names(const std::vector<std::string>& paths) {
    std::vector<std::string> names;
    for (const auto& path : paths) names.push_back(fs::path(path).filename());
    return names;
  }

  fs::path root = fs::path(testing::TempDir()) / ("bundle" + std::to_string(::getpid()));
  NSBundle& bundle = NSBundle::bundle(root.string());
  using Names = std::vector<std::string>;
};

TEST_F(NSBundleTest, PathsAreTheFilesOfOneDirectoryInByteOrder) {
  EXPECT_EQ(names(bundle.paths("svg")), (Names{"B.svg", "b.svg", "\xC3\xA4.svg"}));
  EXPECT_EQ(names(bundle.paths()), (Names{".svg", "B.svg", "a.png", "b.svg", "\xC3\xA4.svg"}));
  EXPECT_EQ(bundle.paths(), bundle.paths(""));
  EXPECT_EQ(names(bundle.paths("svg", "icons")), Names{"inner.svg"});
  EXPECT_TRUE(bundle.paths("svg", "missing").empty());
  EXPECT_TRUE(NSBundle::bundle("/nowhere/at/all").paths().empty());
}

TEST_F(NSBundleTest, EachDirectoryHasOneObject) {
  EXPECT_EQ(&NSBundle::bundle((root / "icons" / "..").string()), &bundle);
  EXPECT_NE(&NSBundle::bundle((root / "icons").string()), &bundle);
}

TEST_F(NSBundleTest, AClassAnswersTheBundleOfItsLibrary) {
  NSBundle::registerLibrary("library::", root.string());
  NSBundle::registerLibrary("library::plugin::", (root / "icons").string());
  EXPECT_EQ(&NSBundle::bundleForClass<library::Widget>(), &bundle);
  EXPECT_EQ(NSBundle::bundleForClass<library::plugin::Extra>().resourcePath(), (root / "icons").string());
  EXPECT_EQ(&NSBundle::bundleForClass<std::string>(), &NSBundle::main());
}

}  // namespace
}  // namespace bkuk
