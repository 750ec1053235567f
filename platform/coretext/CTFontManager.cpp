#include "platform/coretext/CTFontManager.h"

#include <charconv>
#include <string>

#include "host/Drawing.h"
#include "host/Host.h"

namespace bkuk {

namespace {

using Status = host::FontRegistration::Status;

constexpr std::string_view scheme = "file://";

std::string withoutPercents(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char* digits = text.data() + i + 1;
    unsigned char byte = 0;
    const bool isEscape = text[i] == '%' && text.size() - i > 2 &&
                          std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    plain.push_back(isEscape ? static_cast<char>(byte) : text[i]);
    if (isEscape) i += 2;
  }
  return plain;
}

std::string pathOf(std::string_view url) {
  if (!url.starts_with(scheme)) return std::string(url);
  url.remove_prefix(scheme.size());
  const auto start = url.find('/');  // after the name of this machine, which is mostly left out
  return start == std::string_view::npos ? std::string() : withoutPercents(url.substr(start));
}

CTFontManagerError errorOf(Status status) {
  if (status == Status::missingFile) return CTFontManagerError::fileNotFound;
  if (status == Status::registeredBefore) return CTFontManagerError::alreadyRegistered;
  return CTFontManagerError::unrecognizedFormat;
}

}  // namespace

bool CTFontManagerRegisterFontsForURL(std::string_view fontURL, CTFontManagerScope /*scope*/,
                                      CTFontManagerError* error) {
  const auto status = host::current().drawing().fonts().registerFile(pathOf(fontURL)).status;
  if (status == Status::registered) return true;
  if (error) *error = errorOf(status);
  return false;
}

}  // namespace bkuk
