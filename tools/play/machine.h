#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/words.h"
#include "platform/desk.h"
#include "platform/paint.h"
#include "platform/qt/paint_qt.h"
#include "script.h"

// The machine as a script sets it, and what the program asked of it.
struct Machine {
  struct Said {
    std::string text, title;
    bool question = false;
  };
  struct Answer {
    std::string word;  // "yes", "no", "ok", "cancel", or what stands on a button; empty when it is a text
    std::optional<std::string> text;
  };

  std::optional<Moment> clock;
  ScreenSize display;
  bool online = true;
  std::vector<std::string> running;

  std::deque<Answer> answers;
  std::vector<Said> said;
  size_t expected = 0;  // of `said`
  std::vector<std::string> viewed, links, launched, printed;
  std::string clipboard;

  std::function<bool()> step;  // plays the next line; false at the end
  bool live = false;           // the lines follow what is seen, so a question waits for its answer

  Moment now() const;
  void say(const std::string& text, const std::string& title);
  bool ask(const Question& question);
  std::optional<std::string> input(const std::string& prompt, const std::string& title);
  bool isRunning(const std::string& process) const;

 private:
  Answer nextAnswer(const std::string& text);
};

// Papers as the program makes them; those for the printer are kept as their texts.
class RecordingPainter : public paint::Painter {
 public:
  RecordingPainter(std::unique_ptr<paint::Painter> real, Machine& machine);
  const paint::Metrics& metrics() const override { return real_->metrics(); }
  std::unique_ptr<paint::Canvas> pdf(const std::string& path) override { return real_->pdf(path); }
  std::unique_ptr<paint::Canvas> image(const std::string& path, double dpi) override {
    return real_->image(path, dpi);
  }
  std::unique_ptr<paint::Canvas> printer() override;

 private:
  std::unique_ptr<paint::Painter> real_;
  Machine& machine_;
};

// A host whose person is a script. Base is the desk without a window or the window's own host.
template <class Base>
class Played : public Base {
 public:
  template <class... Arguments>
  explicit Played(Machine& machine, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), machine_(machine) {}

  std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                   const std::string&) override {
    this->changed();
    return machine_.input(words(prompt), words(title));
  }
  std::optional<std::string> chooseFile(const std::string& prompt, const std::string& title,
                                        const std::string&) override {
    return input(prompt, title, "");
  }
  Moment now() const override { return machine_.now(); }
  ScreenSize display() const override { return machine_.display; }
  bool online() const override { return machine_.online; }
  bool running(const std::string& process) const override { return machine_.isRunning(process); }
  void endProcess(const std::string& process) override { std::erase(machine_.running, process); }
  void launch(const std::string& program, const std::vector<std::string>& arguments) override {
    std::string line = program;
    for (const auto& a : arguments) line += " " + a;
    machine_.launched.push_back(line);
  }
  void openLink(const std::string& url) override { machine_.links.push_back(url); }
  void view(const std::string& file) override { machine_.viewed.push_back(file); }
  std::string clipboard() const override { return machine_.clipboard; }
  void setClipboard(const std::string& text) override { machine_.clipboard = text; }
  paint::Painter& painter() override {
    if (!painter_) painter_ = std::make_unique<RecordingPainter>(paint::makePainter(), machine_);
    return *painter_;
  }

 protected:
  void box(const std::string& text, const std::string& title) override { machine_.say(text, title); }
  bool answerTo(const Question& question) override { return machine_.ask(question); }
  void nest(Screen& screen) override {
    while (this->isOpen(screen))
      if (!machine_.step()) throw Ended{};
  }

 private:
  Machine& machine_;
  std::unique_ptr<paint::Painter> painter_;
};

// The desk alone: no widgets, nothing to draw.
class Bare : public Desk {
 public:
  using Desk::Desk;
  void busy(bool) override {}
  void refresh() override {}

 protected:
  void changed() override {}
};
