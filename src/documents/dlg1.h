#pragma once

#include "base/words.h"
#include "platform/host.h"

struct PrintKey;

// The print dialog of all documents. The report key says which; opened with a number it is
// ready to make that document, else the number is typed or looked up.
class dlg1 : public Screen {
 public:
  dlg1(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;
  void closed() override;
  char32_t filter(const Control& control, char32_t key) override;

 private:
  void numberFocus();
  Go numberEnter();
  Go billLookup();
  void makePdf() { make("PDF"); }
  void print() { make("PRN"); }
  void excelView();
  void make(const std::string& mode);
  void leave();

  const PrintKey* key_;
  std::string answer_ =
      english("Press Enter For Help");  // what the hint line says when the number has the focus
};
