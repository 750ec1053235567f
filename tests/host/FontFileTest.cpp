#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>

#include "host/qt/text/QtFonts.h"
#include "host/support/FontFile.h"

namespace bkuk::host {
namespace {

constexpr const char* interFile = "/usr/share/fonts/opentype/inter/Inter-Bold.otf";
constexpr const char* dejaVuFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

std::string contents(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::span<const std::byte> bytesOf(const std::string& text) { return std::as_bytes(std::span(text)); }

/// A file for the length of a test, of its process alone: tests run beside each other.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& content)
      : path_((std::filesystem::temp_directory_path() / ("bkuk-font-file-" + std::to_string(getpid())))
                  .string()) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TemporaryFile() { std::filesystem::remove(path_); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// Two faces in one file, as collections have them.
std::string collectionOf(const std::string& first, const std::string& second) {
  const auto word = [](std::size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<char>(value >> shift & 0xFF));
    return bytes;
  };
  // Offsets of tables count from the start of the file.
  const auto moved = [&](std::string face, std::size_t by) {
    const int count = static_cast<unsigned char>(face[4]) << 8 | static_cast<unsigned char>(face[5]);
    for (int i = 0; i < count; ++i) {
      const auto at = static_cast<std::size_t>(12 + 16 * i + 8);
      std::size_t offset = 0;
      for (std::size_t k = 0; k < 4; ++k) offset = offset << 8 | static_cast<unsigned char>(face[at + k]);
      face.replace(at, 4, word(offset + by));
    }
    return face;
  };
  constexpr std::size_t header = 20;
  return "ttcf" + word(0x10000) + word(2) + word(header) + word(header + first.size()) +
         moved(first, header) + moved(second, header + first.size());
}

TEST(FontFile, ReadsNamesAndMetricsOfBothKindsOfOutlines) {
  for (const auto& [path, name, family] :
       {std::tuple{interFile, "Inter-Bold", "Inter"}, std::tuple{dejaVuFile, "DejaVuSans", "DejaVu Sans"}}) {
    const auto file = contents(path);
    const auto faces = readFontFile(bytesOf(file));
    ASSERT_EQ(faces.size(), 1u);
    EXPECT_EQ(faces[0].postScriptName, name);
    EXPECT_EQ(familyName(faces[0].fontTables()), family);
    const auto metrics = readMetrics(faces[0].fontTables());
    ASSERT_TRUE(metrics);
    EXPECT_LT(metrics->units.underlinePosition, 0);
    EXPECT_GT(metrics->units.underlineThickness, 0);
    EXPECT_GT(metrics->units.bounds.height, metrics->units.ascent + metrics->units.descent);
  }
}

TEST(FontFile, LeavesOutWhatIsCutShort) {
  const auto file = contents(dejaVuFile);
  ASSERT_FALSE(file.empty());
  for (std::size_t length = 0; length < file.size(); length += 1 + file.size() / 97) {
    EXPECT_TRUE(readFontFile(bytesOf(file.substr(0, length))).empty()) << length;
  }
  EXPECT_TRUE(readFontFile(bytesOf("ttcf" + std::string(200, '\xFF'))).empty());
}

TEST(RegisteredFaces, AnswerTheirNamesAndAreFoundByThem) {
  QtFonts fonts;
  const auto registration = fonts.registerFile(interFile);
  EXPECT_EQ(registration.status, FontRegistration::Status::registered);
  EXPECT_EQ(registration.names, std::vector<std::string>{"Inter-Bold"});
  const auto font = fonts.font("Inter-Bold", 20);
  ASSERT_TRUE(font);
  EXPECT_EQ(font->postScriptName(), "Inter-Bold");
  EXPECT_EQ(font->familyName(), "Inter");
  EXPECT_EQ(font->weight(), 700);
  EXPECT_EQ(fonts.registerFile(interFile).status, FontRegistration::Status::registeredBefore);
  // The registered face is the one that draws: it is as wide as the installed bold one, not as the regular.
  QtFonts installed;
  EXPECT_EQ(font->shape(u"Width", TextDirection::leftToRight)->width(),
            installed.font("Inter-Bold", 20)->shape(u"Width", TextDirection::leftToRight)->width());
}

TEST(FaceMetrics, WholeLengthsStayWholeAtEverySize) {
  FaceMetrics face;
  face.unitsPerEm = 1000;
  face.units.ascent = 1000;
  for (int size = 1; size < 200; ++size) EXPECT_EQ(face.at(size).ascent, size);
}

TEST(Families, AnswerTheFaceNextToAWeight) {
  QtFonts fonts;
  const auto nameOf = [&](const char* family, FontWeight weight) {
    const auto font = fonts.fontInFamily(family, 12, weight);
    return font ? font->postScriptName() : "none";
  };
  EXPECT_EQ(nameOf("Inter", 900), "Inter-Black");
  EXPECT_EQ(nameOf("DejaVu Sans", 400), "DejaVuSans") << "neither condensed nor oblique";
  EXPECT_EQ(nameOf("DejaVu Sans", 900), "DejaVuSans-Bold");
  EXPECT_EQ(nameOf("No such family", 400), "none");
  EXPECT_EQ(nameOf("", 400), "none");
  // Faces of a family that is in files alone; an installed one is taken where it is nearer.
  auto content = contents(interFile);
  auto faces = readFontFile(bytesOf(content));
  faces[0].postScriptName = "Mine-Bold";
  const auto made = fileOfFace(faces[0], "Mine");
  const TemporaryFile file({reinterpret_cast<const char*>(made.data()), made.size()});
  fonts.registerFile(file.path());
  EXPECT_EQ(nameOf("Mine", 100), "Mine-Bold");
  fonts.registerFile("/usr/share/fonts/opentype/inter/Inter-BoldItalic.otf");
  EXPECT_EQ(nameOf("Inter", 700), "Inter-Bold") << "upright";
}

TEST(RegisteredFaces, WinOverInstalledOnesOfTheSameName) {
  // The regular face that calls itself bold.
  auto regular = contents("/usr/share/fonts/opentype/inter/Inter-Regular.otf");
  auto faces = readFontFile(bytesOf(regular));
  ASSERT_EQ(faces.size(), 1u);
  faces[0].postScriptName = "Inter-Bold";
  const auto made = fileOfFace(faces[0], "Someone");
  const TemporaryFile file({reinterpret_cast<const char*>(made.data()), made.size()});
  QtFonts fonts;
  ASSERT_EQ(fonts.registerFile(file.path()).names, std::vector<std::string>{"Inter-Bold"});
  const auto width = [](const Font& font) {
    return font.shape(u"Width", TextDirection::leftToRight)->width();
  };
  EXPECT_DOUBLE_EQ(width(*fonts.font("Inter-Bold", 20)), width(*fonts.font("Inter-Regular", 20)));
}

TEST(RegisteredFaces, ComeAllFromACollection) {
  const TemporaryFile file(collectionOf(contents(interFile), contents(dejaVuFile)));
  QtFonts fonts;
  const auto names = fonts.registerFile(file.path()).names;
  EXPECT_EQ(names, (std::vector<std::string>{"Inter-Bold", "DejaVuSans"}));
  for (const auto& name : names) {
    const auto font = fonts.font(name, 12);
    ASSERT_TRUE(font) << name;
    EXPECT_EQ(font->postScriptName(), name);
  }
}

TEST(RegisteredFaces, BrokenFilesRegisterNothing) {
  QtFonts fonts;
  using Status = FontRegistration::Status;
  EXPECT_EQ(fonts.registerFile("/no/such/file.ttf").status, Status::missingFile);
  EXPECT_EQ(fonts.registerFile("/usr").status, Status::missingFile);
  auto damaged = contents(dejaVuFile);
  // Everything after the directory is noise, so the tables are there and say nothing.
  for (std::size_t i = 400; i < damaged.size(); ++i) damaged[i] = static_cast<char>(i * 7919 >> 3);
  for (const auto& content :
       {std::string(), std::string("plain text"), damaged, contents(dejaVuFile).substr(0, 5000)}) {
    const TemporaryFile file(content);
    const auto registration = fonts.registerFile(file.path());
    EXPECT_EQ(registration.status, Status::notAFont);
    EXPECT_TRUE(registration.names.empty());
  }
}

TEST(StandIns, AnswerForFacesOfOtherSystems) {
  QtFonts fonts;
  for (const char* name : {"HiraginoSans-W1", "PingFangSC-Medium", "AppleSDGothicNeo-Bold"}) {
    const auto font = fonts.font(name, 15);
    ASSERT_TRUE(font) << name;
    EXPECT_GT(font->metrics().ascent, 0);
  }
  EXPECT_FALSE(fonts.font("HiraginoMincho-W3", 15));
  EXPECT_TRUE(fonts.fontForLanguage("he", 12, 400)->glyph(U'\u05D0')) << "DejaVu Sans covers Hebrew";
}

}  // namespace
}  // namespace bkuk::host
