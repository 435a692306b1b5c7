#pragma once

#include "frame/move_books.h"
#include "frame/progress_dialog.h"

// Moves the companies that still stand in the folder's files to the server that the folder names. Stands
// over the company selection, too, as long as the server has no company.
class frmmove : public ProgressDialog {
 public:
  explicit frmmove(Host& host);
  void opened(const Opening& opening) override;

 private:
  void fill();
  void moveAll();
  void moveRow();
  void move(const std::vector<FileCompany>& companies);

  std::vector<FileCompany> companies_;
};

// Copies the open company from the server into files.
class frmcopy : public ProgressDialog {
 public:
  explicit frmcopy(Host& host);

 private:
  void copy();
};
