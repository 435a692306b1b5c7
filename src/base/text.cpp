#include "base/text.h"

#include <algorithm>

namespace {

char upperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
char lowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
bool isFollower(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Counts broken sequences as the database does, so that a text that fits here fits there.
size_t nextPoint(std::string_view text, size_t at) {
  const bool lead = static_cast<unsigned char>(text[at]) >= 0xC0;
  ++at;
  while (lead && at < text.size() && isFollower(text[at])) ++at;
  return at;
}

size_t offsetOf(std::string_view text, int points) {
  size_t at = 0;
  for (int i = 0; i < points && at < text.size(); ++i) at = nextPoint(text, at);
  return at;
}

}  // namespace

std::string ltrim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string trim(std::string_view text) { return ltrim(text.substr(0, text.find_last_not_of(' ') + 1)); }

std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upperChar);
  return result;
}

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lowerChar);
  return result;
}

bool sameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithNoCase(a, b);
}

bool startsWithNoCase(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [](char x, char y) { return upperChar(x) == upperChar(y); });
}

int length(std::string_view text) {
  int points = 0;
  for (size_t at = 0; at < text.size(); at = nextPoint(text, at)) ++points;
  return points;
}

std::string left(std::string_view text, int n) { return std::string(text.substr(0, offsetOf(text, n))); }

std::string right(std::string_view text, int n) {
  if (n <= 0) return {};
  return std::string(text.substr(offsetOf(text, std::max(0, length(text) - n))));
}

std::string mid(std::string_view text, int start1, int n) {
  const auto rest = text.substr(offsetOf(text, start1 - 1));
  return n < 0 ? std::string(rest) : left(rest, n);
}

std::string cut(std::string_view text, int n) { return left(text, n); }

std::string replaceAll(std::string_view text, std::string_view what, std::string_view by) {
  if (what.empty()) return std::string(text);
  std::string result;
  size_t from = 0;
  for (size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
    result.append(text, from, at - from).append(by);
    from = at + what.size();
  }
  return result.append(text.substr(from));
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  size_t from = 0;
  for (size_t at = separator.empty() ? std::string_view::npos : text.find(separator);
       at != std::string_view::npos; at = text.find(separator, from)) {
    parts.emplace_back(text.substr(from, at - from));
    from = at + separator.size();
  }
  parts.emplace_back(text.substr(from));
  return parts;
}

std::string join(const std::vector<std::string>& parts, std::string_view separator) {
  std::string result;
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) result += separator;
    result += parts[i];
  }
  return result;
}

std::string padLeft(std::string_view text, int n, char fill) {
  const int missing = std::max(0, n - length(text));
  return std::string(static_cast<size_t>(missing), fill).append(text);
}
