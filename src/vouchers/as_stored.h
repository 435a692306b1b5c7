#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "frame/voucher_kinds.h"
#include "platform/host.h"
#include "store/database.h"

// Two programs on one voucher. Who shows one for a change or a deletion keeps it as it stood then, and the
// transaction that writes compares once more: of two who change the same voucher the second is told.

// Head and lines of a voucher, and what is kept beside them (a note's bills, what is settled, marks, what it
// was made from), as one text to compare; empty where no head is stored.
// Marks of time alone would not do: they are the same for two saves within a minute.
std::string asStored(Database& db, const VoucherKind& kind, double number);

// What a save or a deletion is to find under its number. It changes nothing, and says so, where something
// else stands.
class Saving {
 public:
  static const Saving Fresh;  // nothing
  static const Saving Again;  // whatever stands there
  static Saving over(const std::string& asRead) { return Saving(asRead); }
  // The same as long as this does not hold: another voucher took the number on the paper.
  Saving unless(std::function<bool()> taken) const;
  bool finds(Database& db, const VoucherKind& kind, double number) const;
  // Where it finds what it is to find, no voucher stands there.
  bool isFresh() const { return expected_ && expected_->empty(); }

 private:
  explicit Saving(std::optional<std::string> expected) : expected_(std::move(expected)) {}
  std::optional<std::string> expected_;
  std::function<bool()> taken_;
};

// What is told of a voucher that was changed or deleted since it was shown; by whom and when, where its
// head keeps that.
std::string meanwhileWords(Database& db, const VoucherKind& kind, double number);
// Asked before what stands takes the place of what was typed, and before a voucher that was deleted
// meanwhile is stored all the same.
Question changedQuestion(Database& db, const VoucherKind& kind, double number, bool typed);
Question deletedQuestion(double number);
