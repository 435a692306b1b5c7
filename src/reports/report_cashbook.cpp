#include <utility>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/voucher_kinds.h"
#include "reports/reports.h"
#include "store/engine.h"
#include "store/groups.h"

// Cash book and bank book: a line a day of an account with what stood in it before and after, and under it
// what came in and went out. Figures are debit positive. As in the account's statement the opening counts
// the period alone.

namespace {

std::string ofCash() { return underGroups("GROUP_CD", {88}); }
std::string ofBanks() { return underGroups("GROUP_CD", {87, 127}); }

class Days : public ReportReading {
 public:
  Days(Database& db, const std::string& offered, const ReportQuery& q)
      : db_(db), from_(q.from), to_(q.to), periodStart_(q.periodStart) {
    Condition c;
    c.addFilled("ACC_CD = ?", q[kParty]);
    accounts_ = db.all("SELECT ACC_CD, ACC_NAME, OP_BAL FROM ACCOUNT WHERE " + offered +
                           (c.empty() ? "" : " AND " + c.text()) + " ORDER BY ACC_NAME, ACC_CD",
                       c.values());
  }

  const ColumnNames& names() const override {
    static const ColumnNames names({"VOUCH_DT", "No", "Bk", "ACC_NAME", "Ref", "Opening", "Received", "Paid",
                                    "Closing", "ACC_CD", "ENTRIES"});
    return names;
  }

  // An account without entries has a line alone where something stands in it.
  bool next() override {
    while (true) {
      if (days_ && days_->next()) return take(*days_);
      if (days_ && std::exchange(idle_, false) && closing_ != 0) return takeIdle();
      if (next_ == accounts_.size()) return false;
      begin(accounts_[next_++]);
    }
  }

  std::string text(int column) const override {
    switch (column) {
      case 0:
        return date_;
      case 3:
        return account_->text("ACC_NAME");
      case 5:
        return Format(opening_, "0.00");
      case 6:
        return Format(received_, "0.00");
      case 7:
        return Format(paid_, "0.00");
      case 8:
        return Format(closing_, "0.00");
      case 9:
        return account_->text("ACC_CD");
      case 10:
        return std::to_string(entries_);
      default:
        return {};
    }
  }

 private:
  // Read from the ledger's index alone, in its order.
  void begin(const Row& account) {
    account_ = &account;
    idle_ = true;
    days_.reset();
    const std::string code = account.text("ACC_CD");
    const std::string debits = sumWhere(db_, "VOUCH_AMT", "VOUCH_TYPE = 'D'"),
                      credits = sumWhere(db_, "VOUCH_AMT", "VOUCH_TYPE = 'C'");
    closing_ =
        Round(account.number("OP_BAL") +
                  db_.number("SELECT COALESCE(" + debits + ", 0) - COALESCE(" + credits +
                                 ", 0) FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_DT >= ? AND VOUCH_DT < ?",
                             code, periodStart_, from_),
              2);
    days_.emplace(
        db_.query("SELECT VOUCH_DT, " + debits + ", " + credits +
                      ", COUNT(*) FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_DT >= ? AND VOUCH_DT <= ?"
                      " GROUP BY VOUCH_DT ORDER BY VOUCH_DT",
                  code, from_, to_));
  }

  bool take(const Rows& day) {
    idle_ = false;
    date_ = day.text(0);
    opening_ = closing_;
    received_ = Round(day.number(1), 2);
    paid_ = Round(day.number(2), 2);
    closing_ = Round(opening_ + received_ - paid_, 2);
    entries_ = toInt(day.number(3));
    return true;
  }

  bool takeIdle() {
    date_ = isoDate(from_);
    opening_ = closing_;
    received_ = paid_ = entries_ = 0;
    return true;
  }

  Database& db_;
  const Date from_, to_, periodStart_;
  std::vector<Row> accounts_;
  size_t next_ = 0;
  const Row* account_ = nullptr;
  std::optional<Rows> days_;
  bool idle_ = false;  // no entry of the account has come
  std::string date_;
  double opening_ = 0, received_ = 0, paid_ = 0, closing_ = 0;
  int entries_ = 0;
};

constexpr const char* kEntries =
    "SELECT '' AS DAY, VOUCH_NO, BOOK_CD,"
    " COALESCE(ACC_NAME, '') || CASE WHEN LEN(NARRATION) > 1 THEN ' : ' || NARRATION ELSE '' END,"
    " CASE WHEN LEN(CHQ_NO) > 1 THEN CHQ_NO ELSE PARTY_BL END, '' AS OPENING,"
    " CASE WHEN VOUCH_TYPE = 'D' THEN SHOWN(VOUCH_AMT, '0.00') ELSE '' END AS RECEIVED,"
    " CASE WHEN VOUCH_TYPE = 'C' THEN SHOWN(VOUCH_AMT, '0.00') ELSE '' END AS PAID, '' AS CLOSING"
    " FROM ALEDGER LEFT JOIN ACCOUNT ON ALEDGER.PARTY_TCD = ACCOUNT.ACC_CD"
    " WHERE ALEDGER.PARTY_CD = ? AND VOUCH_DT = ? ORDER BY VOUCH_TYPE DESC, VOUCH_NO, BOOK_CD, ALEDGER.rowid";

ReportPlan planDays(const std::string& offered, const ReportQuery& q) {
  ReportPlan plan;
  plan.reading = [offered, q](Database& db) { return std::make_unique<Days>(db, offered, q); };
  plan.details = ReportDetails{
      .rows = {kEntries   },
        .keys = { "ACC_CD", "VOUCH_DT"},
        .count = "ENTRIES"
  };
  plan.detailVoucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  // clang-format off
  plan.columns = {
      {.heading = "Date",        .twips = 1200, .type = ColumnType::Date, .detail = ColumnType::Text},
      {.heading = "No",          .twips = 700,  .type = ColumnType::Count},
      {.heading = "Bk.",         .twips = 500},
      {.heading = "Particulars", .twips = 3200},
      {.heading = "Ref No.",     .twips = 1300},
      {.heading = "Opening",     .twips = 1300, .type = ColumnType::Money, .right = true},
      {.heading = "Received",    .twips = 1300, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Paid",        .twips = 1300, .type = ColumnType::Money, .summed = true, .detail = ColumnType::Money},
      {.heading = "Closing",     .twips = 1300, .type = ColumnType::Money, .right = true},
  };
  // clang-format on
  return plan;
}

ReportPlan planCash(Database&, const ReportQuery& q) { return planDays(ofCash(), q); }
ReportPlan planBanks(Database&, const ReportQuery& q) { return planDays(ofBanks(), q); }

}  // namespace

const Report& cashBook() {
  static const Report report{
      .key = "CASHBOOK",
      .caption = "Cash Book",
      .fields = {kParty},
      .partyLabel = english("Account"),
      .offered = ofCash(),
      .plan = planCash,
  };
  return report;
}

const Report& bankBook() {
  static const Report report{
      .key = "BANKBOOK",
      .caption = "Bank Book",
      .fields = {kParty},
      .partyLabel = english("Account"),
      .offered = ofBanks(),
      .plan = planBanks,
  };
  return report;
}
