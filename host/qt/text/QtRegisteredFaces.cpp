#include "host/qt/text/QtRegisteredFaces.h"

#include <QtGui/QFontDatabase>
#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "host/qt/text/QtFace.h"

namespace bkuk::host {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestFile = 512u << 20;

using Bytes = std::vector<std::byte>;

// Absent for what does not begin like a font: a film is not read to its end to find that out.
std::optional<Bytes> fontBytes(const std::string& path) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  if (error || size > largestFile) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::array<std::byte, 4> start{};
  file.read(reinterpret_cast<char*>(start.data()), start.size());
  if (!file || !looksLikeFont(start)) return std::nullopt;
  Bytes bytes(static_cast<std::size_t>(size));
  file.seekg(0);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

std::string newFamily() {
  static int count = 0;
  return "Registered face " + std::to_string(++count);
}

}  // namespace

FontRegistration QtRegisteredFaces::registerFile(const std::string& path) {
  using Status = FontRegistration::Status;
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return {Status::missingFile, {}};
  auto bytes = fontBytes(path);
  if (!bytes) return {Status::notAFont, {}};
  const auto file = std::make_shared<const Bytes>(std::move(*bytes));
  FontRegistration result;
  bool hasKnown = false;
  for (auto& face : readFontFile(*file)) {
    if (entries_.contains(face.postScriptName)) {
      hasKnown = true;
      continue;
    }
    const auto tables = face.fontTables();
    Entry entry{file, std::move(face), *readMetrics(tables), host::familyName(tables), {}};
    // The first face tells whether Qt takes the file; the others of a collection wait until they are needed.
    if (result.names.empty()) handOver(entry);
    if (result.names.empty() && !entry.font) break;
    result.names.push_back(entry.face.postScriptName);
    entries_.emplace(result.names.back(), std::move(entry));
  }
  if (!result.names.empty()) result.status = Status::registered;
  if (result.names.empty() && hasKnown) result.status = Status::registeredBefore;
  return result;
}

std::optional<QFont> QtRegisteredFaces::font(std::string_view postScriptName) {
  const auto found = entries_.find(postScriptName);
  if (found == entries_.end()) return std::nullopt;
  if (found->second.file) handOver(found->second);
  return found->second.font;
}

std::string QtRegisteredFaces::familyName(std::string_view postScriptName) const {
  const auto found = entries_.find(postScriptName);
  return found == entries_.end() ? std::string() : found->second.family;
}

std::optional<std::string> QtRegisteredFaces::nearestInFamily(std::string_view family,
                                                              FontWeight weight) const {
  const std::pair<const std::string, Entry>* nearest = nullptr;
  for (const auto& entry : entries_) {
    if (entry.second.family != family) continue;
    const bool isNearer =
        !nearest || entry.second.metrics.distance(weight) < nearest->second.metrics.distance(weight);
    if (isNearer) nearest = &entry;
  }
  return nearest ? std::optional(nearest->first) : std::nullopt;
}

void QtRegisteredFaces::handOver(Entry& entry) {
  const auto family = newFamily();
  const auto bytes = fileOfFace(entry.face, family);
  entry.face.tables.clear();
  entry.file = nullptr;
  const QByteArray data(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
  if (QFontDatabase::addApplicationFontFromData(data) < 0) return;
  QFont font(QString::fromStdString(family));
  // So that faces which help out are as heavy.
  font.setWeight(static_cast<QFont::Weight>(entry.metrics.weight));
  QFont alone = font;
  alone.setStyleStrategy(QFont::NoFontMerging);
  if (QtFace::postScriptNameOf(alone) == entry.face.postScriptName) entry.font = font;
}

}  // namespace bkuk::host
