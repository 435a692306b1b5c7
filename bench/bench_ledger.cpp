// The books beside Debian's ledger, which keeps the same postings as a journal in plain text: the whole
// ledger made anew against its balances, a party's statement against its register, each program in a
// process of its own. Without that program the books stand alone.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/pattern.h"
#include "base/text.h"
#include "reports/statement.h"
#include "store/balances.h"
#include "vouchers/posting.h"

namespace fs = std::filesystem;

namespace {

constexpr int kRounds = 5;
constexpr const char* kParty = "A00007";
constexpr int kNotFound = 127;

struct Taken {
  double seconds = 0;
  double cpu = 0;  // seconds; of a process of its own
  double peakMb = 0;
  int status = 0;
};

double secondsOf(const std::function<void()>& act) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  act();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Runs a program with its output in the file, waits for it and tells what it took.
Taken run(const std::vector<std::string>& command, const fs::path& output = "/dev/null") {
  std::vector<char*> arguments;
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  Taken taken;
  rusage used{};
  taken.seconds = secondsOf([&] {
    const pid_t child = fork();
    if (child == 0) {
      dup2(open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
      execvp(arguments[0], arguments.data());
      _exit(kNotFound);
    }
    wait4(child, &taken.status, 0, &used);
  });
  const auto part = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
  };
  taken.cpu = part(used.ru_utime) + part(used.ru_stime);
  taken.peakMb = static_cast<double>(used.ru_maxrss) / 1024;
  return taken;
}

bool isInstalled() { return WEXITSTATUS(run({"ledger", "--version"}).status) != kNotFound; }

template <class T>
double median(std::vector<T> rounds, double T::*figure) {
  std::ranges::sort(rounds, {}, figure);
  return rounds[rounds.size() / 2].*figure;
}

Taken medianOf(const std::function<Taken()>& act) {
  std::vector<Taken> rounds;
  for (int i = 0; i < kRounds; ++i) {
    rounds.push_back(act());
    if (rounds.back().status != 0) throw std::runtime_error("A program has failed");
  }
  return {median(rounds, &Taken::seconds), median(rounds, &Taken::cpu), median(rounds, &Taken::peakMb)};
}

fs::path companyYear(const fs::path& folder) {
  for (const auto& file : fs::directory_iterator(folder))
    if (file.path().extension() == ".mdb" && file.path().stem() != "comp") return file.path();
  throw std::runtime_error("No company-year stands in " + folder.string());
}

// One transaction a voucher, one posting a ledger row.
void writeJournal(Database& db, const fs::path& file) {
  std::ofstream journal(file);
  auto rows = db.query(
      "SELECT BOOK_CD, VOUCH_NO, VOUCH_DT, VOUCH_TYPE, PARTY_CD, VOUCH_AMT, PARTY_BL FROM ALEDGER"
      " ORDER BY VOUCH_DT, BOOK_CD, VOUCH_NO, rowid");
  std::string voucher;
  while (rows.next()) {
    const std::string key = rows.text(0) + " " + rows.text(1);
    if (key != voucher)
      journal << "\n" << replaceAll(rows.text(2), "-", "/") << " (" << key << ") " << rows.text(6) << "\n";
    voucher = key;
    const double amount = rows.text(3) == "D" ? rows.number(5) : -rows.number(5);
    journal << "    " << rows.text(4) << "  " << Format(amount, "0.00") << "\n";
  }
}

// Both keep the same books.
void compareBalance(Database& db, const fs::path& journal, const fs::path& output) {
  run({"ledger", "-f", journal, "balance", kParty}, output);
  std::ifstream answer(output);
  double theirs = 0;
  answer >> theirs;
  const double ours = db.number(
      "SELECT SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END) FROM ALEDGER WHERE PARTY_CD = "
      "?",
      kParty);
  if (std::fabs(theirs - ours) > 0.004) throw std::runtime_error("The journal is not the ledger");
}

void tell(const char* what, const Taken& ours, const Taken& theirs = {}) {
  std::printf("%-26s %9.1f ms", what, ours.seconds * 1000);
  if (ours.cpu > 0) std::printf(" %6.1f CPU %4.0f MB", ours.cpu * 1000, ours.peakMb);
  if (theirs.seconds > 0) {
    const double times = theirs.seconds / ours.seconds;
    std::printf("   ledger %7.1f ms %7.1f CPU %4.0f MB   1/%s of its time", theirs.seconds * 1000,
                theirs.cpu * 1000, theirs.peakMb, Format(times, times < 10 ? "0.00" : "0").c_str());
    if (ours.cpu > 0)
      std::printf(", 1/%.2f of its CPU, 1/%.0f of its memory", theirs.cpu / ours.cpu,
                  theirs.peakMb / ours.peakMb);
  }
  std::printf("\n");
  std::fflush(stdout);
}

// This process stays small until the last: what it holds counts for the processes that it starts.
void measure(const std::string& self, const fs::path& folder) {
  const fs::path books = companyYear(folder), journal = folder / "books.journal";
  const bool beside = isInstalled();
  if (!beside) std::puts("ledger is not installed: the books stand alone");
  if (beside && run({self, "--journal", books, journal}).status != 0)
    throw std::runtime_error("No journal has been written");
  const auto theirs = [&](const std::vector<std::string>& words) {
    std::vector<std::string> command = {"ledger", "-f", journal.string()};
    command.insert(command.end(), words.begin(), words.end());
    return beside ? medianOf([&] { return run(command); }) : Taken{};
  };
  tell("full posting", medianOf([&] { return run({self, "--post", books}); }), theirs({"balance"}));
  const Taken registered = theirs({"register", kParty});

  Database db;
  db.open(books);
  if (beside) compareBalance(db, journal, folder / "balance.txt");
  const Row days = *db.first("SELECT MIN(VOUCH_DT), MAX(VOUCH_DT) FROM ALEDGER");
  const StatementQuery query{
      .account = kParty, .from = *days.date(0), .to = *days.date(1), .periodStart = *days.date(0)};
  const auto inside = [](const std::function<void()>& act) {
    return medianOf([&] { return Taken{.seconds = secondsOf(act)}; });
  };
  tell("a party's statement", inside([&] { runningStatement(db, query); }), registered);
  tell("opening, nothing missing", inside([&] {
         postMissing(db);
         RebuildAllBalances(db);
       }));
}

void work(const std::vector<std::string>& words) {
  Database db;
  db.open(words[1]);
  if (words[0] == "--post") postAll(db);
  if (words[0] == "--journal") writeJournal(db, words.at(2));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() > 1) {
      work(words);
    } else if (words.size() == 1) {
      measure(fs::read_symlink("/proc/self/exe"), words[0]);
    } else {
      std::cerr << argv[0] << " FOLDER: a program folder with a large company-year\n";
      return 1;
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "ERROR " << error.what() << "\n";
    return 1;
  }
}
