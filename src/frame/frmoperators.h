#pragma once

#include <string>
#include <vector>

#include "frame/child_screen.h"
#include "store/server_operators.h"

// "Operators": who signs in to the server of the books, and what each may do in which company. A right
// counts as soon as its step is chosen.
class frmoperators : public ChildScreen {
 public:
  explicit frmoperators(Host& host);
  void opened(const Opening& opening) override;
  void typed(Control& list, char32_t ch) override;

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  struct Company {
    std::string code, name;
  };
  const Operator* current() const;  // null without any
  bool typing() const { return !mode.empty(); }

  void read(const std::string& name = {});
  void showRights();
  void showButtons();
  void begin(const char* newMode, FieldName first);
  void end();

  void add();
  void password();
  void remove();
  void save();
  Go nameEntered();
  Go toRights();
  Go toNames();
  void step();
  void give(Right right);
  void leave();
  void escape();

  std::vector<Operator> all_;
  std::vector<Company> companies_;
};
