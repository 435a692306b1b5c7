#include "machine.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <utility>

#include "base/text.h"
#include "platform/qt/layout_engine.h"

namespace {

std::string shown(std::string text) {
  text = replaceAll(text, "\r\n", "\n");
  return replaceAll(text, "\n", "\\n");
}

// Keeps what is drawn as text, a blank between two runs.
class PrintedPaper : public paint::Canvas {
 public:
  explicit PrintedPaper(Machine& machine) : machine_(machine) {}
  void page(double, double) override { text_ += "\f"; }
  void text(const paint::Text& run) override { (text_ += run.text) += " "; }
  void line(double, double, double, double, double, paint::Colour, paint::Dash) override {}
  void fill(const paint::Rect&, paint::Colour) override {}
  void picture(const paint::Rect&, std::string_view, const paint::Rect&) override {}
  void finish() override { machine_.printed.push_back(text_); }

 private:
  Machine& machine_;
  std::string text_;
};

}  // namespace

Moment Machine::now() const {
  if (clock) return *clock;
  const std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  return {
      Date{std::chrono::year{local.tm_year + 1900},
           std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
           std::chrono::day(static_cast<unsigned>(local.tm_mday))},
      local.tm_hour, local.tm_min, local.tm_sec
  };
}

void Machine::say(const std::string& text, const std::string& title) {
  said.push_back({replaceAll(text, "\r\n", "\n"), title, false});
  std::cout << "  [" << title << "] " << shown(text) << "\n";
}

Machine::Answer Machine::nextAnswer(const std::string& text) {
  if (live && answers.empty()) {
    std::cout << "question: " << shown(text) << "\n";
    while (answers.empty() && step()) {
    }
    if (answers.empty()) throw Ended{};
  }
  if (answers.empty()) throw Stop{"expected an answer for the question, saw none queued: " + shown(text)};
  Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

bool Machine::ask(const Question& question) {
  const std::string text = shown(question.text), yes = layout::plainCaption(question.yes),
                    no = layout::plainCaption(question.no);
  said.push_back({replaceAll(question.text, "\r\n", "\n"), question.title, true});
  const Answer answer = nextAnswer(question.text);
  if (answer.text) throw Stop{"expected Yes or No for the question, saw a text queued: " + text};
  std::cout << "  [" << question.title << "] " << text << " -> " << answer.word << "\n";
  const bool agrees = answer.word == "yes" || answer.word == "ok" || sameText(answer.word, yes);
  if (!agrees && answer.word != "no" && answer.word != "cancel" && !sameText(answer.word, no))
    throw Stop{"expected the button \"" + answer.word + "\", saw \"" + yes + "\" and \"" + no +
               "\" under the question: " + text};
  return agrees;
}

std::optional<std::string> Machine::input(const std::string& prompt, const std::string& title) {
  said.push_back({replaceAll(prompt, "\r\n", "\n"), title, true});
  const Answer answer = nextAnswer(prompt);
  if (!answer.text && answer.word != "cancel")
    throw Stop{"expected a text for the input box, saw: " + answer.word};
  std::cout << "  [" << title << "] " << shown(prompt) << " -> " << answer.text.value_or("Cancel") << "\n";
  return answer.text;
}

bool Machine::isRunning(const std::string& process) const {
  return std::ranges::any_of(running, [&](const auto& name) { return sameText(name, process); });
}

RecordingPainter::RecordingPainter(std::unique_ptr<paint::Painter> real, Machine& machine)
    : real_(std::move(real)), machine_(machine) {}

std::unique_ptr<paint::Canvas> RecordingPainter::printer() {
  return std::make_unique<PrintedPaper>(machine_);
}
