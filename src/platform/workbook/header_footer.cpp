#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/text.h"
#include "platform/workbook/page_drawing.h"

namespace workbook {
namespace {

struct Run {
  std::string text;
  paint::Font font;
};
using TextLine = std::vector<Run>;
using Section = std::vector<TextLine>;

// "&L...&C...&R...": the three sections with their codes carried out.
class Reader {
 public:
  Reader(const Model& model, const SheetModel& sheet, int number, int pages, double scale)
      : model_(model), sheet_(sheet), number_(number), pages_(pages), scale_(scale) {}

  std::array<Section, 3> read(std::string_view code) {
    std::array<Section, 3> sections;
    size_t section = 1;
    start();
    for (size_t at = 0; at < code.size();) {
      if (code[at] == '\n') {
        line(sections[section]);
        sections[section].emplace_back();
        ++at;
      } else if (code[at] != '&' || at + 1 == code.size()) {
        put(sections[section], code.substr(at++, 1));
      } else if (const size_t place = std::string_view("LCR").find(code[at + 1]);
                 place != std::string_view::npos) {
        section = place;
        start();
        at += 2;
      } else {
        at = command(code, at + 1, sections[section]);
      }
    }
    return sections;
  }

 private:
  void start() {
    font_ = model_.styles.style(0).font;
    font_.size *= scale_;
  }
  static TextLine& line(Section& section) {
    return section.empty() ? section.emplace_back() : section.back();
  }
  void put(Section& section, std::string_view text) {
    TextLine& into = line(section);
    if (fresh_ || into.empty()) into.push_back({.text = {}, .font = font_});
    fresh_ = false;
    into.back().text += text;
  }

  size_t command(std::string_view code, size_t at, Section& section) {
    const char letter = code[at];
    if (letter >= '0' && letter <= '9') {
      int size = 0;
      const auto end = std::from_chars(code.data() + at, code.data() + code.size(), size).ptr;
      font_.size = std::clamp(size, 1, 409) * scale_;
      fresh_ = true;
      return static_cast<size_t>(end - code.data());
    }
    switch (letter) {
      case '&':
        put(section, "&");
        break;
      case 'P':
        put(section, std::to_string(number_));
        break;
      case 'N':
        put(section, std::to_string(pages_));
        break;
      case 'A':
        put(section, sheet_.name);
        break;
      case 'F':
        put(section, model_.container.name());
        break;
      case 'D':
        put(section, NumberFormat("dd/mm/yyyy").show(model_.nowSerial()).text);
        break;
      case 'T':
        put(section, NumberFormat("hh:mm").show(model_.nowSerial()).text);
        break;
      case 'B':
        toggle(font_.bold);
        break;
      case 'I':
        toggle(font_.italic);
        break;
      case 'U':
      case 'E':
        toggle(font_.underline);
        break;
      case 'S':
        toggle(font_.strike);
        break;
      case 'K':
        return std::min(at + 7, code.size());
      case '"':
        return named(code, at);
      default:
        break;
    }
    return at + 1;
  }

  void toggle(bool& flag) {
    flag = !flag;
    fresh_ = true;
  }

  // &"Family,Bold Italic"
  size_t named(std::string_view code, size_t at) {
    const size_t end = std::min(code.find('"', at + 1), code.size());
    const std::string_view inside = code.substr(at + 1, end - at - 1);
    const std::string_view family = inside.substr(0, inside.find(','));
    const std::string style = lower(inside.substr(std::min(family.size(), inside.size())));
    if (!family.empty() && family != "-") font_.family = family;
    font_.bold = style.find("bold") != std::string::npos;
    font_.italic = style.find("italic") != std::string::npos;
    fresh_ = true;
    return std::min(end + 1, code.size());
  }

  const Model& model_;
  const SheetModel& sheet_;
  int number_, pages_;
  double scale_;
  paint::Font font_;
  bool fresh_ = true;
};

struct Painter {
  const PageSetup& page;
  paint::Canvas& canvas;
  const paint::Metrics& metrics;

  double height(const TextLine& line, const paint::Font& otherwise) const {
    double most = line.empty() ? metrics.lineHeight(otherwise) : 0;
    for (const Run& run : line) most = std::max(most, metrics.lineHeight(run.font));
    return most;
  }

  // Grows down from `edge`, or ends there.
  void section(const Section& section, size_t place, double edge, bool footer,
               const paint::Font& font) const {
    double y = edge;
    if (footer)
      for (const TextLine& line : section) y -= height(line, font);
    const double room = page.width - page.left - page.right;
    for (const TextLine& line : section) {
      const double tall = height(line, font);
      double width = 0;
      for (const Run& run : line) width += metrics.width(run.text, run.font);
      double x = page.left + (room - width) * static_cast<double>(place) / 2;
      for (const Run& run : line) {
        const double own = metrics.width(run.text, run.font);
        canvas.text({
            .text = run.text,
            .box = {x,        y, own + 1, tall},
            .clip = {0, 0, page.width, page.height},
            .font = run.font,
            .colour = {      }
        });
        x += own;
      }
      y += tall;
    }
  }
};

}  // namespace

void drawHeaderFooter(const Model& model, const SheetModel& sheet, const PageLayout& page, int place,
                      int pages, double scale, paint::Canvas& canvas, const paint::Metrics& metrics) {
  const PageSetup& setup = sheet.page;
  const bool first = setup.differentFirst && place == 0,
             even = setup.differentOddEven && page.number % 2 == 0;
  const std::string& header = first ? setup.firstHeader : even ? setup.evenHeader : setup.oddHeader;
  const std::string& footer = first ? setup.firstFooter : even ? setup.evenFooter : setup.oddFooter;
  const Painter painter{.page = setup, .canvas = canvas, .metrics = metrics};
  paint::Font font = model.styles.style(0).font;
  font.size *= scale;
  for (const bool bottom : {false, true}) {
    const std::string& code = bottom ? footer : header;
    if (code.empty()) continue;
    const auto sections = Reader(model, sheet, page.number, pages, scale).read(code);
    for (size_t i = 0; i < sections.size(); ++i)
      painter.section(sections[i], i, bottom ? setup.height - setup.footer : setup.header, bottom, font);
  }
}

}  // namespace workbook
