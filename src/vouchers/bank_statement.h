#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/date.h"

// A bank's statement as it gives it away: a CSV file (comma, semicolon or tab, quoted fields), an .xlsx
// workbook, or a page of HTML with tables that is called .xls. Nothing about its columns is known but what
// their headings say.

struct StatementLine {
  Date date{};
  std::string text, reference;
  double amount = 0;  // what came to the account above 0, what went below
  std::optional<double> balance;
};

struct BankStatement {
  std::vector<StatementLine> lines;  // as the file has them
  int unread = 0;                    // rows with a date whose amount could not be read
};

// The file is no statement. what() is a sentence for the user.
struct StatementRefused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

BankStatement readBankStatement(const std::filesystem::path& file);
// The same of a CSV file's bytes, or of rows of cells; `name` stands in what is refused.
BankStatement statementOfText(const std::string& bytes, const std::string& name);
BankStatement statementOfRows(const std::vector<std::vector<std::string>>& rows, const std::string& name);
