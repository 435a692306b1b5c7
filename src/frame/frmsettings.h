#pragma once

#include <string>
#include <vector>

#include "frame/child_screen.h"
#include "frame/settings.h"

// "Settings": everything that a shop may set and that has no screen of its own, found by typing. What is
// changed counts once it is kept.
class frmsettings : public ChildScreen {
 public:
  explicit frmsettings(Host& host);
  void opened(const Opening& opening) override;
  void focusMoved(Control& control) override;
  void typed(Control& list, char32_t ch) override;
  bool worksOnLeaving(const Control& target) const override;

 protected:
  bool unsaved() const override;
  std::string atStake() const override;
  std::string hintFor(const Control& control) const override;

 private:
  const Setting& current() const { return *shown_[at("lst").grid.current]; }
  std::string& valueOf(const Setting& setting) { return values_[indexOf(setting)]; }
  size_t indexOf(const Setting& setting) const;
  bool changed(const Setting& setting) const;
  bool anyChanged() const { return values_ != stored_; }
  std::string shownValue(const Setting& setting) const;

  void fill(const Setting* at = nullptr);
  void refill();
  void showRow();
  void explain();
  void tellEsc();
  void take(const Setting& setting, const std::string& value);
  std::string refusalOf(const Setting& setting, std::string& value);
  std::string whereTo(const std::string& folder) const;

  Go change();
  Go searchBack();
  Go searched();
  Go valueEntered();
  Go standard();
  void keep();
  void leave();
  void escape();

  std::vector<std::string> stored_, values_;  // of all settings, in their order
  std::vector<const Setting*> shown_;         // those that are found
};
