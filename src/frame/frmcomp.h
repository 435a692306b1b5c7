#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/companies.h"
#include "platform/host.h"

// "Company Selection": the first screen of every run. Opens a company-year, creates,
// renames and deletes them.
class FRMCOMP : public Screen {
 public:
  explicit FRMCOMP(Host& host);
  void opened(const Opening& opening) override;
  void activated() override;
  void closed() override;
  void typed(Control& list, char32_t ch) override;

 private:
  void fill(size_t row = 0);
  void take(const CompanyYear& row);
  void clearFields();
  void search(const std::string& text);

  Go copyRow();
  void copyMovedRow();
  Go openRow();
  Go searchBack();
  void leave();
  void escape();
  void endNewCompany();
  Go code();
  Go name();
  Go year();
  void ok();
  void newCompany();
  void modify();
  void remove();
  void video();

  void openTyped();
  bool create(CreateBy by);

  bool newcomp_ = false;             // from "Create New Company" to the end of the creation
  bool okpressed_ = false;           // a company-year has been opened
  std::optional<CompanyYear> made_;  // created last; its details follow when it is opened
  std::vector<CompanyYear> rows_;
};
