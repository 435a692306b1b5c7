#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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

inline std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
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
