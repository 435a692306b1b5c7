#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "support/temp_folder.h"

// What other programs find in a PDF file.

inline std::string outputOf(const std::string& command) {
  std::string text;
  FILE* const pipe = popen(command.c_str(), "r");
  if (!pipe) return text;
  char buffer[4096];
  while (const size_t n = fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, n);
  pclose(pipe);
  return text;
}

// Structure and streams are without a fault or a warning.
inline void expectSound(const std::filesystem::path& file) {
  const std::string said = outputOf("qpdf --check '" + file.string() + "' 2>&1; echo $?");
  EXPECT_NE(said.find("No syntax or stream encoding errors found"), std::string::npos) << said;
  EXPECT_TRUE(said.ends_with("\n0\n")) << said;
}

inline std::string pdfText(const std::filesystem::path& file, int page = 0) {
  const std::string only = page > 0 ? " -f " + std::to_string(page) + " -l " + std::to_string(page) : "";
  return outputOf("pdftotext -layout" + only + " '" + file.string() + "' -");
}

// "Pages", "Title", "Page size" ... of pdfinfo.
inline std::string pdfInfo(const std::filesystem::path& file, const std::string& entry) {
  const std::string info = outputOf("pdfinfo '" + file.string() + "' 2>&1");
  const size_t at = info.find(entry + ":");
  if (at == std::string::npos) return {};
  const size_t start = info.find_first_not_of(' ', at + entry.size() + 1);
  return info.substr(start, info.find('\n', start) - start);
}

// With one blank for each run of them.
inline std::string squeezed(const std::string& text) {
  std::string result;
  for (const char c : text)
    if (c != ' ' || !result.ends_with(' ')) result += c;
  return result;
}

inline size_t count(const std::string& text, const std::string& what) {
  size_t n = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

inline bool has(const std::string& text, const std::string& what) {
  return text.find(what) != std::string::npos;
}

inline void expectAll(const std::string& text, const std::vector<std::string>& said) {
  for (const std::string& what : said) EXPECT_TRUE(has(text, what)) << what << "\n" << text.substr(0, 3000);
}

struct PdfWord {
  std::string text;
  double left, top, right, bottom;  // in points from the paper's left and top edge
};

inline std::vector<PdfWord> pdfWords(const std::filesystem::path& file) {
  std::vector<PdfWord> words;
  std::istringstream rows(outputOf("pdftotext -bbox '" + file.string() + "' - | grep '<word'"));
  for (std::string row; std::getline(rows, row);) {
    const auto edge = [&](const std::string& name) { return std::stod(row.substr(row.find(name) + 6)); };
    const size_t text = row.find('>') + 1;
    words.push_back({row.substr(text, row.find("</word>") - text), edge("xMin"), edge("yMin"), edge("xMax"),
                     edge("yMax")});
  }
  return words;
}

// No word comes nearer to the paper's edge than a printer can print.
inline void expectOnPaper(const std::filesystem::path& file, double width, double height) {
  constexpr double kEdge = 8;
  for (const PdfWord& word : pdfWords(file)) {
    EXPECT_GE(word.left, kEdge) << word.text;
    EXPECT_GE(word.top, kEdge) << word.text;
    EXPECT_LE(word.right, width - kEdge) << word.text;
    EXPECT_LE(word.bottom, height - kEdge) << word.text;
  }
}
