#include <algorithm>
#include <utility>

#include "base/log.h"
#include "base/words.h"
#include "platform/desk.h"

// How screens come and go: what handlers ask for is taken up when they have returned.

namespace {

// Whether a screen that stands shows something else than what is asked for now.
bool asksForOther(const Opening& asked, const Opening& shown) {
  const auto other = [](const std::string& now, const std::string& then) {
    return !now.empty() && now != then;
  };
  return !asked.value.empty() || other(asked.entryType, shown.entryType) ||
         other(asked.reportKey, shown.reportKey) || other(asked.masterKey, shown.masterKey);
}

}  // namespace

void Desk::request(Request request) {
  if (!pending_.empty()) {
    pending_.back().push_back(std::move(request));
    return;
  }
  std::vector<Request> now{std::move(request)};
  take(now);
  if (open_.empty()) quitting_ = true;
  changed();
}

void Desk::open(const std::string& name, const Opening& opening) { request({name, opening}); }

void Desk::close(Screen& screen) { request({{}, {}, &screen}); }

void Desk::take(std::vector<Request>& requests) {
  for (Request& r : requests) {
    if (r.closing) {
      if (isOpen(*r.closing) && r.closing->mayClose()) remove(*r.closing);
    } else if (Screen* const standing = find(r.name)) {
      raise(*standing, r);
    } else if (known_.knows(r.name)) {
      if (std::unique_ptr<Screen> made = make(r.name, r.opening)) show(std::move(made));
    } else {
      hint("Not built yet");
    }
  }
}

// Nothing when the screen could not be made, which the person has then been told.
std::unique_ptr<Screen> Desk::make(const std::string& name, const Opening& opening) {
  std::string failure;
  const LogScreen here(name);
  try {
    std::unique_ptr<Screen> made = known_.make(name, *this, opening);
    made->opening_ = opening;
    return made;
  } catch (const std::exception& error) {
    failure = error.what();
    logFailure(kTold, error);
  }
  busy(false);
  message(failure, kMessageTitle);
  return nullptr;
}

void Desk::show(std::unique_ptr<Screen> made) {
  Screen& screen = *made;
  open_.push_back(std::move(made));
  const bool whole = run(screen, [&] {
    screen.opened(screen.opening_);
    if (!screen.focused_ && !screen.pendingFocus_ && !screen.walk_.empty()) step(screen, +1, false);
    settle(screen);
    screen.activated();
  });
  // A screen that could not open is not left standing half made.
  if (!whole && isOpen(screen)) remove(screen);
}

void Desk::raise(Screen& standing, const Request& wanted) {
  const auto it = std::ranges::find_if(open_, [&](const auto& s) { return s.get() == &standing; });
  std::rotate(it, it + 1, open_.end());
  standing.visible = true;
  changed();
  if (!asksForOther(wanted.opening, standing.opening_) || !standing.mayClose()) {
    run(standing, [&] { standing.activated(); });
    return;
  }
  dismiss(standing);
  if (std::unique_ptr<Screen> made = make(wanted.name, wanted.opening))
    show(std::move(made));
  else
    activateTop();
}

void Desk::remove(Screen& screen) {
  dismiss(screen);
  // The screen under a modal one is in the middle of the handler that opened it.
  if (!screen.modal_) activateTop();
}

void Desk::dismiss(Screen& screen) {
  screen.closing_ = true;
  screen.closed();
  const auto it = std::ranges::find_if(open_, [&](const auto& s) { return s.get() == &screen; });
  gone(screen);
  leaving_.push_back(std::move(*it));
  open_.erase(it);
}

void Desk::activateTop() {
  if (Screen* const now = top()) run(*now, [&] { now->activated(); });
}

void Desk::hint(const std::string& text) { hint_ = words(text); }

bool Desk::ask(const Question& question) {
  changed();
  Question told = question;
  for (std::string* text : {&told.text, &told.title, &told.yes, &told.no}) *text = words(*text);
  return answerTo(told);
}

void Desk::message(const std::string& text, const std::string& title) {
  const Screen* const screen = top();
  if (checking_ && screen && screen->focused_ && screen->focused_->editable())
    screen->focused_->refused = true;
  changed();
  box(words(text), words(title));
}

std::optional<std::string> Desk::openModal(const std::string& name, const Opening& opening) {
  if (!known_.knows(name)) {
    hint("Not built yet");
    return std::nullopt;
  }
  std::unique_ptr<Screen> made = make(name, opening);
  if (!made) return std::nullopt;
  // Keeps the closed screen in leaving_ until its result has been read.
  pending_.emplace_back();
  Screen& screen = *made;
  screen.modal_ = true;
  std::optional<std::string> result;
  try {
    show(std::move(made));
    changed();
    if (isOpen(screen)) nest(screen);
    result = screen.result;
  } catch (...) {
    pending_.pop_back();
    throw;
  }
  std::vector<Request> requests = std::move(pending_.back());
  pending_.pop_back();
  take(requests);
  return result;
}
