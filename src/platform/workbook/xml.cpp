#include "platform/workbook/xml.h"

#include <charconv>
#include <cmath>

#include "platform/utf8.h"

namespace workbook::xml {
namespace {

struct StringWriter : pugi::xml_writer {
  std::string bytes;
  void write(const void* data, size_t size) override { bytes.append(static_cast<const char*>(data), size); }
};

}  // namespace

std::string holdable(std::string_view text) {
  std::u32string letters = utf8::decode(text);
  std::erase_if(letters, [](char32_t c) {
    const bool control = c < U' ' && c != U'\t' && c != U'\n' && c != U'\r';
    return control || (c >= 0xD800 && c < 0xE000) || c == 0xFFFE || c == 0xFFFF || c > 0x10FFFF;
  });
  return utf8::encode(letters);
}

Document::Document(const Container& container, std::string_view part) : source_(container.read(part)) {
  const auto result =
      document_.load_buffer_inplace(source_.data(), source_.size(), pugi::parse_full | pugi::parse_ws_pcdata);
  if (!result || !root()) container.damaged();
  const std::string_view name = root().name();
  if (const size_t colon = name.find(':'); colon != std::string_view::npos)
    prefix_ = name.substr(0, colon + 1);
}

std::string Document::bytes() const {
  // The declaration that was read is written back as a node of its own; pugixml adds
  // one only where the part had none.
  for (Node node : document_.children())
    if (node.type() == pugi::node_declaration && node.attribute("encoding"))
      node.attribute("encoding").set_value("UTF-8");
  StringWriter writer;
  document_.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
  return std::move(writer.bytes);
}

std::string_view localName(Node node) {
  const std::string_view name = node.name();
  const size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool is(Node node, std::string_view name) { return localName(node) == name; }

Node child(Node parent, std::string_view name) {
  for (const Node node : parent.children())
    if (is(node, name)) return node;
  return {};
}

std::vector<Node> children(Node parent, std::string_view name) {
  std::vector<Node> found;
  for (const Node node : parent.children())
    if (is(node, name)) found.push_back(node);
  return found;
}

std::string_view text(Node node, const char* attribute) { return node.attribute(attribute).value(); }

std::string_view prefixed(Node node, std::string_view name) {
  for (const auto attribute : node.attributes()) {
    const std::string_view full = attribute.name();
    const size_t colon = full.find(':');
    if (colon != std::string_view::npos && full.substr(colon + 1) == name) return attribute.value();
  }
  return {};
}

std::optional<double> number(Node node, const char* attribute) {
  const std::string_view value = text(node, attribute);
  double result = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
  if (error != std::errc() || !std::isfinite(result)) return {};
  return result;
}

int whole(Node node, const char* attribute, int otherwise) {
  const auto value = number(node, attribute);
  return value && std::abs(*value) < 2e9 ? static_cast<int>(*value) : otherwise;
}

bool flag(Node node, const char* attribute, bool otherwise) {
  const std::string_view value = text(node, attribute);
  if (value.empty()) return otherwise;
  return value == "1" || value == "true" || value == "on";
}

bool flagChild(Node parent, std::string_view name) {
  const Node node = child(parent, name);
  return node && flag(node, "val", true);
}

}  // namespace workbook::xml
