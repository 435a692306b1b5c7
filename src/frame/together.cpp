#include "frame/together.h"

#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "frame/frmothers.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/voucher_kinds.h"
#include "store/safe_file.h"
#include "store/together.h"

std::string whatInHand(const std::string& book, const std::string& number) {
  const VoucherKind* const kind = kindByBook(book);
  return (kind ? trim(words(kind->words.title)) : words(book)) + " " + number;
}

namespace {

std::string told(const Other& other) {
  return other.hold ? holdWords(other) : inHandWords(other, whatInHand(other.book, other.number));
}

void endHold(Database& db) noexcept {
  try {
    if (db.isOpen()) db.engine().endHold();
  } catch (const std::exception& error) {
    logFailure("passed over: the hold ends by itself", error);
  }
}

Hold asking(HoldBooks::Till till) { return till == HoldBooks::Till::Alone ? Hold::AsksToLeave : Hold::Asks; }

}  // namespace

std::string InHand::take(const std::string& book, const std::string& number) {
  letGo();
  Database& db = data();
  if (const auto other = db.engine().takeInHand(book, number)) return told(*other);
  books_ = db.file();
  book_ = book;
  number_ = number;
  return {};
}

void InHand::letGo() noexcept {
  if (book_.empty()) return;
  try {
    const Session& s = session();
    if (s.cndata && s.cndata->isOpen() && s.cndata->file() == books_)
      s.cndata->engine().letGo(book_, number_);
  } catch (const std::exception& error) {
    logFailure("passed over: the mark goes with the program", error);
  }
  book_.clear();
}

Question lookQuestion(const std::string& elsewhere) {
  return {.text = elsewhere + "\n" + words("Look At It, Without Changing It ?"),
          .title = kMessageTitle,
          .yes = english("&Look At It"),
          .no = english("&No, Another")};
}

HoldBooks::HoldBooks(Host& host, Database& db, const char* what, Till till)
    : db_(db), what_(what), till_(till) {
  if (const auto other = db_.engine().hold(what_, asking(till))) {
    host.message(holdWords(*other), kMessageTitle);
    return;
  }
  try {
    held_ = haveFinished(host);
  } catch (...) {
    end();
    throw;
  }
  if (!held_) end();
}

HoldBooks::~HoldBooks() { end(); }

void HoldBooks::end() noexcept { endHold(db_); }

bool HoldBooks::haveFinished(Host& host) {
  const OthersAwaited wanted{.what = what_, .all = till_ == Till::Alone};
  for (;;) {
    // Who came between the look and the closing is seen by the second look.
    if (awaited(db_, wanted).empty()) {
      goesOn();
      if (!wanted.all || awaited(db_, wanted).empty()) return true;
      (void)db_.engine().hold(what_, asking(till_));
    }
    if (!host.openModal("frmothers", {.more = wanted})) return false;
    if (wanted.all) continue;
    goesOn();
    return true;
  }
}

void HoldBooks::goesOn() {
  const Hold how = till_ == Till::Alone ? Hold::Shuts : Hold::Closes;
  if (!db_.inTransaction()) (void)db_.engine().hold(what_, how);
}

BooksAlone::BooksAlone(Database& books, const char* what) : books_(books), what_(what) {
  try {
    look();
  } catch (...) {
    endHold(books_);
    throw;
  }
}

BooksAlone::~BooksAlone() { endHold(books_); }

void BooksAlone::look() const {
  goesOn();
  if (!books_.engine().others().empty())
    throw DatabaseError(DatabaseError::Kind::locked, shownName(books_.file()), {});
}

void BooksAlone::goesOn() const {
  if (const auto other = books_.engine().hold(what_, Hold::Shuts))
    throw DatabaseError(DatabaseError::Kind::locked, DatabaseError::Told(holdWords(*other)));
}

void stillHere(Host& host) noexcept {
  try {
    const Session& s = session();
    if (s.cncomp && s.cncomp->isOpen()) s.cncomp->engine().stillHere();
    if (!s.cndata || !s.cndata->isOpen() || !s.cndata->engine().stillHere()) return;
    if (const auto other = s.cndata->engine().heldBy()) host.hint(holdWords(*other));
  } catch (const std::exception& error) {
    logFailure("passed over: who goes on typing is told by the next statement", error);
  }
}

bool othersWrote(Database& db) {
  static std::filesystem::path books;
  static double seen = 0;
  const double writes = db.engine().othersWrites();
  const bool another = writes != seen || db.file() != books;
  seen = writes;
  books = db.file();
  return another;
}
