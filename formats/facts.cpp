#include "formats/facts.h"

#include <algorithm>

#include "base/states.h"
#include "formats/sheet3.h"

namespace formats {

using std::to_string;

namespace {

constexpr char kLabel = 'L', kValue = 'M', kCount = 'N', kShownLabel = 'O', kShownValue = 'P';
std::string calc(char column, int row) { return std::string("CALC!$") + column + "$" + to_string(row); }

}  // namespace

Facts::Facts(Book& book) : sheet_(book.sheet("CALC")) {
  sheet_.width('A', 120);
  sheet_.width('B', 220);
  sheet_.width('E', 160);
  sheet_.width('I', 160);
  const Style head{.bold = true};
  sheet_.text({1, 'D'}, head, "State code");
  sheet_.text({1, 'E'}, head, "State");
  int row = 2;
  for (const State& state : states()) {
    sheet_.number({row, 'D'}, {}, state.code);
    sheet_.text({row, 'E'}, {}, state.name);
    ++row;
  }
  sheet_.hide();
}

std::string Facts::add(std::string_view name, const std::string& formula) {
  sheet_.text({row_, 'A'}, {.colour = kQuiet}, name);
  sheet_.formula({row_, 'B'}, {}, formula);
  return calc('B', row_++);
}

std::string Facts::state(std::string_view name, const std::string& code) {
  const auto table = "$D$2:$E$" + to_string(1 + states().size());
  return add(name, "IF(" + code + "=0,\"\",IFERROR(VLOOKUP(" + code + "," + table +
                       ",2,FALSE)&\" (\",\"(\")&TEXT(" + code + ",\"00\")&\")\")");
}

std::vector<Facts::Named> Facts::closed(const std::vector<Named>& facts, int rows) {
  const int first = closedRow_, last = closedRow_ + std::max(static_cast<int>(facts.size()), rows) - 1;
  closedRow_ = last + 1;
  // Beside each fact stands how many up to it have a value.
  int row = first;
  for (const Named& fact : facts) {
    sheet_.formula({row, kLabel}, {}, fact.label);
    sheet_.formula({row, kValue}, {}, fact.value);
    const auto before = row == first ? std::string() : "+" + std::string(1, kCount) + to_string(row - 1);
    sheet_.formula({row, kCount}, {},
                   "IF(" + std::string(1, kValue) + to_string(row) + "=\"\",0,1)" + before);
    ++row;
  }
  const auto found = [&](char column, int n) {
    const auto range = [&](char c) {
      const std::string name = "$" + std::string(1, c) + "$";
      return name + to_string(first) + ":" + name + to_string(last);
    };
    return "IFERROR(INDEX(" + range(column) + ",MATCH(" + to_string(n) + "," + range(kCount) + ",0)),\"\")";
  };
  std::vector<Named> shown;
  for (int n = 1; n <= rows; ++n) {
    const int at = first + n - 1;
    sheet_.formula({at, kShownLabel}, {}, found(kLabel, n));
    sheet_.formula({at, kShownValue}, {}, found(kValue, n));
    shown.push_back({calc(kShownLabel, at), calc(kShownValue, at)});
  }
  return shown;
}

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string shown(const std::string& x) {
  return "IF(OR(" + x + "=\"\"," + x + "=\".\"," + x + "=\"0\"),\"\"," + x + ")";
}

std::string joined(const std::string& a, const std::string& separator, const std::string& b) {
  return a + "&IF(AND(" + a + "<>\"\"," + b + "<>\"\")," + quoted(separator) + ",\"\")&" + b;
}

std::string labelled(const std::string& label, const std::string& text) {
  return "IF(" + text + "=\"\",\"\"," + quoted(label) + "&" + text + ")";
}

std::string amount(const std::string& x) {
  return "IF(" + x + "=\"\",\"\",IF(ROUND(" + x + ",2)=0,\"\"," + x + "))";
}

CompanyCells companyOfBill() {
  using sheet3::cell;
  return {
      .name = cell(1, 3),
      .address = cell(3, 1),
      .phone1 = cell(3, 3),
      .phone2 = cell(3, 5),
      .mail = cell(4, 20),
      .gstin = cell(4, 24),
      .stateCode = cell(4, 26),
      .state = cell(4, 9),
      .bank = cell(4, 16),
      .branch = cell(4, 17),
      .ifsc = cell(4, 18),
      .account = cell(4, 19),
      .city = cell(4, 28),
  };
}

Company companyFacts(Facts& facts, const CompanyCells& cells) {
  const auto field = [&](const char* name, const std::string& cell) {
    return facts.add(name, cell.empty() ? quoted("") : shown(cell));
  };
  Company company;
  company.name = field("Company", cells.name);
  const auto street = field("Address", cells.address);
  const auto phone1 = field("Phone 1", cells.phone1);
  const auto phone2 = field("Phone 2", cells.phone2);
  const auto mail = field("E-mail", cells.mail);
  company.mail = mail;
  company.phones = facts.add("Phones", joined(phone1, ", ", phone2));
  const auto phone = facts.add("Phone line", labelled("Phone : ", company.phones));
  const auto mailLine = facts.add("E-mail line", labelled("E-mail : ", mail));
  company.contact = facts.add("Contact", joined(phone, "     ", mailLine));
  company.gstin = field("Company GSTIN", cells.gstin);
  company.pan =
      facts.add("Company PAN", "IF(LEN(" + company.gstin + ")=15,MID(" + company.gstin + ",3,10),\"\")");
  const auto code = facts.add("Company state code", "IFERROR(VALUE(" + cells.stateCode + "),0)");
  const auto byCode = facts.state("State by code", code);
  const auto named = field("Company state", cells.state);
  company.state = facts.add("State line", "IF(" + byCode + "=\"\"," + named + "," + byCode + ")");
  company.city = field("Company city", cells.city);
  company.address = facts.add("Address, city", joined(street, ", ", company.city));
  company.bankName = field("Bank", cells.bank);
  company.branch = field("Branch", cells.branch);
  const auto branchLine = facts.add("Branch line", labelled("Branch : ", company.branch));
  company.bank = facts.add("Bank line", joined(company.bankName, ",  ", branchLine));
  company.ifsc = field("IFSC", cells.ifsc);
  company.accountNumber = field("Account number", cells.account);
  const auto numberLine = facts.add("A/c line", labelled("A/c No : ", company.accountNumber));
  const auto ifscLine = facts.add("IFSC line", labelled("IFSC : ", company.ifsc));
  company.account = facts.add("Account line", joined(numberLine, ",  ", ifscLine));
  return company;
}

}  // namespace formats
