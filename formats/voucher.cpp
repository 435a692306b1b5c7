#include "formats/designs.h"
#include "formats/facts.h"
#include "formats/paper_facts.h"
#include "formats/styles.h"

// The address card: a sheet folded twice fits a long envelope (DL), whose window shows the address
// 20 mm from the left and 50 mm from the top.
namespace formats {

namespace {

constexpr double kPointsPerMm = 72 / 25.4;
constexpr double kMargin = 28.35;  // 10 mm

std::string rpt(int row, char column = 'A') {
  return std::string("rpt!$") + column + "$" + std::to_string(row);
}

class Card {
 public:
  explicit Card(Book& book) : sheet_(book.sheet("MAILLABL")), data_(book.sheet("rpt")), facts_(book) {
    data_.hide();
  }

  void write() {
    sheet_.width('A', 10 * kPointsPerMm);  // from the margin to the window
    sheet_.width('B', 85 * kPointsPerMm);
    sheet_.width('C', 70 * kPointsPerMm);
    const double heights[] = {13.5, 10.5, 10.5, 10.5, 10.5};
    int row = 1;
    double down = 0;
    for (const double height : heights) {
      sheet_.height(row++, height);
      down += height;
    }
    sheet_.height(row++, 43 * kPointsPerMm - kMargin - down);
    sheet_.height(row, 45);
    sheet_.height(row + 1, 93);
    sender();
    address(row);
    Paper paper;
    paper.leftRight = paper.topBottom = kMargin;
    paper.centred = false;
    sheet_.paper(paper, {
                            Cells{1, 'A', row + 1, 'C'}
    });
  }

 private:
  std::string of(const char* name, const std::string& reference) {
    return facts_.add(name, shown(reference));
  }
  std::string both(const char* name, const std::string& a, const char* between, const std::string& b) {
    return facts_.add(name, joined(a, between, b));
  }

  void sender() {
    const auto street = of("Own address", rpt(2, 'F'));
    const auto own1 = of("Own address 1", rpt(13)), own2 = of("Own address 2", rpt(14));
    const auto area = of("Own area", rpt(15)), city = of("Own city", rpt(16));
    const auto phone1 = of("Own phone 1", rpt(2, 'G')), phone2 = of("Own phone 2", rpt(2, 'H'));
    const auto mail = of("Own e-mail", rpt(2, 'R')), gstin = of("Own GSTIN", rpt(2, 'Q'));
    const auto lines12 = both("Own lines", own1, ", ", own2);
    const auto streets = facts_.add("Own street", "IF(" + lines12 + "=\"\"," + street + "," + lines12 + ")");
    const auto place = both("Own place", area, ", ", city);
    const auto phones = both("Own phones", phone1, ", ", phone2);
    const auto call = facts_.add("Own phone line", labelled("Phone : ", phones));
    const auto contact = both("Own contact", call, "     ", mail);
    const auto all = stacked(facts_, "Sender", {streets, place, contact, labelled("GSTIN : ", gstin)});
    sheet_.formula({1, 'B', 1, 'C'}, {.size = 10, .bold = true, .colour = kAccent, .shrink = true},
                   of("Own name", rpt(12)));
    sheet_.formula({2, 'B', 5, 'C'}, {.size = 8, .colour = kQuiet, .down = Down::Top, .wrap = true}, all);
  }

  void address(int row) {
    const auto area = of("Area", rpt(5)), city = of("City", rpt(6)), pin = of("Pin", rpt(7));
    const auto town = both("City, pin", city, " - ", pin);
    const auto phone = of("Phone", rpt(4, 'H'));
    const auto call = facts_.add("Phone line", labelled("Phone : ", phone));
    const auto lines =
        stacked(facts_, "Address", {of("Address 1", rpt(2)), of("Address 2", rpt(3)), area, town, call});
    const Style name{.size = 12, .bold = true, .down = Down::Bottom, .wrap = true};
    sheet_.formula({row, 'B'}, name, of("Name", rpt(1)));
    sheet_.formula({row + 1, 'B'}, {.size = 11, .down = Down::Top, .wrap = true}, lines);
  }

  Sheet& sheet_;
  Sheet& data_;
  Facts facts_;
};

}  // namespace

void voucher(const std::string& path) {
  Book book(path);
  Card(book).write();
  book.close();
}

}  // namespace formats
