#pragma once

#include <filesystem>
#include <string>

#include "platform/host.h"
#include "store/engine.h"

// Several programs at the books of one server: what each has in hand is marked, and who needs the books for
// itself asks the others to finish. A file's locks do without: here nothing happens over one.

// What a screen has in hand for a change, as long as this stands.
class InHand {
 public:
  InHand() = default;
  ~InHand() { letGo(); }
  InHand(const InHand&) = delete;
  InHand& operator=(const InHand&) = delete;

  // Takes it in place of what was in hand before. Returns what is told where somebody else has it.
  std::string take(const std::string& book, const std::string& number);
  void letGo() noexcept;

 private:
  std::filesystem::path books_;
  std::string book_, number_;
};
// The question whether what somebody else has in hand is to be looked at.
Question lookQuestion(const std::string& elsewhere);
// "SALES ENTRY 7", "Account A00007"
std::string whatInHand(const std::string& book, const std::string& number);

// Keeps the others from writing as long as it stands, and from opening the books where they are needed alone.
// Before, they are asked to finish, and the person sees who has yet to, and may leave it.
class HoldBooks {
 public:
  // Finished: nobody has anything in hand, or the person goes on all the same. Alone: nobody else has the
  // books open.
  enum class Till { Finished, Alone };
  // What for: an English text of english(), "Full Posting".
  HoldBooks(Host& host, Database& db, const char* what, Till till);
  ~HoldBooks();
  HoldBooks(const HoldBooks&) = delete;
  HoldBooks& operator=(const HoldBooks&) = delete;
  // False when the person left it, or somebody else holds them.
  explicit operator bool() const { return held_; }
  // Work of many transactions says now and then that it goes on.
  void goesOn();

 private:
  bool haveFinished(Host& host);
  void end() noexcept;

  Database& db_;
  std::string what_;
  const Till till_;
  bool held_ = false;
};

// Books of a server that nobody else has open, nor can open as long as this stands. Raises DatabaseError:
// locked. Of a file its lock is the judge.
class BooksAlone {
 public:
  // What for, as above.
  BooksAlone(Database& books, const char* what);
  ~BooksAlone();
  BooksAlone(const BooksAlone&) = delete;
  BooksAlone& operator=(const BooksAlone&) = delete;
  void goesOn() const;
  // Work may have lasted longer than the hold of a program that says nothing.
  void look() const;

 private:
  Database& books_;
  std::string what_;
};

// Tells the others that this program is here, and the person what others wait for. A host calls it now
// and then.
void stillHere(Host& host) noexcept;
// The books were written by others since this was asked last.
bool othersWrote(Database& db);
