#include "gst/gstr1_errors.h"

#include <map>
#include <stdexcept>

#include "base/text.h"
#include "base/words.h"
#include "gst/json_reading.h"

namespace {

constexpr const char* kLists[] = {"b2b",  "b2ba", "b2cl",  "b2cla", "exp",
                                  "expa", "cdnr", "cdnra", "cdnur", "cdnura"};

class Answer {
 public:
  explicit Answer(const Gstr1& gstr1) {
    for (const PlacedDocument& placed : gstr1.documents) know(placed.document);
    for (const Amendment& amended : gstr1.amended) know(amended.now.document);
  }

  void read(const Json& tree) {
    for (const char* section : kLists)
      for (const Json& group : listOf(tree, section)) {
        row(section, group, group);
        for (const char* inner : {"inv", "nt"})
          for (const Json& its : listOf(group, inner)) row(section, its, group);
      }
    for (const char* section : {"b2cs", "b2csa", "at", "txpd"})
      for (const Json& its : listOf(tree, section)) whole(section, its);
    if (const auto hsn = tree.find("hsn"); hsn != tree.end())
      for (const char* half : {"hsn_b2b", "hsn_b2c", "data"})
        for (const Json& its : listOf(*hsn, half)) whole(half, its);
    for (const char* section : {"nil", "doc_issue", "hsn"})
      if (const auto its = tree.find(section); its != tree.end()) whole(section, *its);
  }

  PortalAnswer take() { return std::move(answer_); }

 private:
  void know(const TaxDocument& d) { known_[{d.isNote(), upper(d.number)}] = &d; }

  // A row of its own; what is said of its group counts where the row says nothing.
  void row(const char* section, const Json& its, const Json& group) {
    const std::string bill = textOf(its, "inum"), note = textOf(its, "nt_num");
    if (bill.empty() && note.empty()) return;
    const std::string why = said(its).empty() ? said(group) : said(its);
    if (why.empty()) return;
    const auto found = known_.find({!note.empty(), upper(note.empty() ? bill : note)});
    GstFault fault{.number = note.empty() ? bill : note, .field = section, .cure = why};
    if (found == known_.end()) {
      ++answer_.unknown;
    } else {
      fault.kind = found->second->kind;
      fault.voucher = found->second->voucher;
      fault.party = found->second->party->code;
      fault.name = found->second->party->name;
    }
    answer_.faults.push_back(std::move(fault));
  }

  void whole(const char* section, const Json& its) {
    const std::string why = said(its);
    if (!why.empty())
      answer_.faults.push_back({.number = textOf(its, "hsn_sc"), .field = section, .cure = why});
  }

  static std::string said(const Json& its) {
    return trim(textOf(its, "error_cd") + " " + textOf(its, "error_msg"));
  }

  std::map<std::pair<bool, std::string>, const TaxDocument*> known_;
  PortalAnswer answer_;
};

}  // namespace

PortalAnswer readPortalErrors(const std::filesystem::path& file, const Gstr1& gstr1) {
  const Json json = readJson(file);
  // Some answers have the tree below.
  const Json& tree = json.is_object() && json.contains("error_report") ? json["error_report"] : json;
  const std::string gstin = textOf(json, "gstin").empty() ? textOf(tree, "gstin") : textOf(json, "gstin");
  const std::string period = textOf(json, "fp").empty() ? textOf(tree, "fp") : textOf(json, "fp");
  if (!tree.is_object() || gstin.empty() || period.empty())
    throw std::runtime_error(words("This is no error file of GSTR-1"));
  if (!sameText(gstin, gstr1.shop->gstin))
    throw std::runtime_error(words("This file is for {gstin}, not for us", "gstin", gstin));
  if (period != gstr1.period.text())
    throw std::runtime_error(words("This file is for {period}, the return for {ours}", "period", period,
                                   "ours", gstr1.period.text()));
  Answer answer(gstr1);
  answer.read(tree);
  return answer.take();
}
