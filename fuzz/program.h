#pragma once

#include <deque>
#include <filesystem>
#include <string>

#include "platform/desk.h"
#include "program/all_screens.h"

// The whole program without windows, in a folder in memory that is as new for each run. What the
// process writes stays in there: the system refuses it anything else but the folders that the
// fuzzer itself was given.

// To be called once, before the first run, with the fuzzer's own arguments.
void confine(int argc, char** argv);

// The folder with the sample company, made anew.
const std::filesystem::path& freshFolder();
inline constexpr const char* kYearFile = "M00126.mdb";

// A person who says Yes and No in turn, and types the same into every input box.
class Person : public Desk {
 public:
  Person() : Desk(allScreens()) {}

  std::deque<std::string> said;

  std::optional<std::string> input(const std::string&, const std::string&, const std::string&) override;
  void busy(bool) override {}
  void refresh() override {}
  Moment now() const override;
  ScreenSize display() const override { return {}; }
  bool online() const override { return false; }
  bool running(const std::string&) const override { return false; }
  void endProcess(const std::string&) override {}
  void launch(const std::string&, const std::vector<std::string>&) override {}
  void openLink(const std::string&) override {}
  void view(const std::string&) override {}
  paint::Painter& painter() override;
  std::string clipboard() const override { return clip_; }
  void setClipboard(const std::string& text) override { clip_ = text; }

 protected:
  void box(const std::string& text, const std::string& title) override;
  bool answerTo(const Question& question) override;
  void nest(Screen& screen) override;
  void changed() override;

  // One more thing that the person does; false when there is none, and open boxes are left by Escape.
  virtual bool act() { return false; }

 private:
  bool yes_ = false;
  std::string clip_;
};

// A handler that fails ends in a box; words of the machine in it are a fault.
void refuseFaults(const Person& person);
