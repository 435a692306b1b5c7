#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook/container.h"

// Reading parts with pugixml. Elements are told by their local names, since some programs
// write "x:row" for "row"; a changed part keeps the prefix that it came with.
namespace workbook::xml {

using Node = pugi::xml_node;

class Document {
 public:
  // Raises WorkbookError when the part is missing or is not well formed.
  Document(const Container& container, std::string_view part);

  Node root() const { return document_.document_element(); }
  // "x:" or empty: what stands before the names of the root and of its own kind.
  const std::string& prefix() const { return prefix_; }
  // The part as text, with one XML declaration.
  std::string bytes() const;

 private:
  std::string source_;  // the nodes point into it
  pugi::xml_document document_;
  std::string prefix_;
};

// Broken UTF-8 mended; characters that no XML may hold are left out.
std::string holdable(std::string_view text);

std::string_view localName(Node node);
bool is(Node node, std::string_view name);
Node child(Node parent, std::string_view name);
std::vector<Node> children(Node parent, std::string_view name);

std::string_view text(Node node, const char* attribute);
// The attribute that has any prefix before the name: "r:id".
std::string_view prefixed(Node node, std::string_view name);
// Nothing when the attribute is absent or is not a number.
std::optional<double> number(Node node, const char* attribute);
int whole(Node node, const char* attribute, int otherwise);
// "1" and "true" against "0" and "false".
bool flag(Node node, const char* attribute, bool otherwise = false);
// The attribute `val` of a child that may be absent: <b/> and <b val="1"/> are true.
bool flagChild(Node parent, std::string_view name);

}  // namespace workbook::xml
