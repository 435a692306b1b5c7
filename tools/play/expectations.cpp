#include <filesystem>
#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "output_of.h"
#include "platform/shown.h"
#include "player.h"
#include "store/place.h"

namespace {

std::string oneBlank(const std::string& text) {
  std::string out;
  for (const char ch : text) {
    const bool blank = ch == ' ' || ch == '\n' || ch == '\t' || ch == '\f' || ch == '\r';
    if (!blank)
      out += ch;
    else if (!out.empty() && out.back() != ' ')
      out += ' ';
  }
  return out;
}

std::string quote(const std::string& text) { return "\"" + replaceAll(text, "\n", "\\n") + "\""; }

}  // namespace

const std::map<std::string, Player::Command>& Player::expectations() {
  static const std::map<std::string, Command> table = {
      {"label",   &Player::expectLabel  },
      {"caption", &Player::expectCaption},
      {"hint",    &Player::expectHint   },
      {"mode",    &Player::expectMode   },
      {"panel",   &Player::expectPanel  },
      {"colour",  &Player::expectColour },
      {"message", &Player::expectMessage},
      {"screen",  &Player::expectScreen },
      {"focus",   &Player::expectFocus  },
      {"enabled", &Player::expectEnabled},
      {"visible", &Player::expectVisible},
      {"locked",  &Player::expectLocked },
      {"grid",    &Player::expectGrid   },
      {"rows",    &Player::expectRows   },
      {"sql",     &Player::expectSql    },
      {"file",    &Player::expectFile   },
      {"pdf",     &Player::expectPdf    },
      {"viewed",  &Player::expectViewed },
      {"printed", &Player::expectPrinted},
      {"link",    &Player::expectLink   },
  };
  return table;
}

void Player::expect(const Words& w) {
  const auto kind = expectations().find(lower(wordAt(w, 0).text));
  if (kind == expectations().end())
    expectControl(w);
  else
    (this->*kind->second)(Words(w.begin() + 1, w.end()));
  ++checks_;
}

void Player::match(const std::string& what, const std::string& saw, const Words& w, size_t from) {
  const bool part = !wordAt(w, from).quoted && sameText(w[from].text, "contains");
  const std::string& wanted = wordAt(w, from + (part ? 1 : 0)).text;
  const std::string plain = replaceAll(saw, "\r\n", "\n");
  if (part ? plain.find(wanted) == std::string::npos : plain != wanted)
    fail(what + (part ? " to contain " : " ") + quote(wanted), quote(plain));
}

void Player::expectControl(const Words& w) {
  const Control& c = control(w[0].text);
  match(c.fullName(), shownText(c), w, 1);
}

void Player::expectLabel(const Words& w) {
  const Control& c = control(wordAt(w, 0).text);
  match("label of " + c.fullName(), words(c.label), w, 1);
}

void Player::expectCaption(const Words& w) { match("caption", words(top().caption), w, 0); }

void Player::expectHint(const Words& w) { match("hint", desk_.hint(), w, 0); }

void Player::expectMode(const Words& w) { match("mode", top().mode, w, 0); }

void Player::expectPanel(const Words& w) {
  const int n = wholeAt(w, 0);
  const Screen* const shell = desk_.shell();
  if (!shell || n < 1 || static_cast<size_t>(n) > shell->panels.size())
    fail("panel " + std::to_string(n), "none");
  match("panel " + std::to_string(n), n == 2 ? desk_.hint() : shell->panels[static_cast<size_t>(n - 1)], w,
        1);
}

void Player::expectColour(const Words& w) {
  const Control& c = control(wordAt(w, 0).text);
  char hex[16];
  std::snprintf(hex, sizeof hex, "%06X", c.back);
  if (!sameText(hex, wordAt(w, 1).text)) fail("colour of " + c.fullName() + " " + w[1].text, hex);
}

void Player::expectMessage(const Words& w) {
  const bool none = !wordAt(w, 0).quoted && sameText(w[0].text, "none");
  const bool part = !w[0].quoted && sameText(w[0].text, "contains");
  for (; machine_.expected < machine_.said.size(); ++machine_.expected) {
    const auto& said = machine_.said[machine_.expected];
    if (none && !said.question) fail("no message", quote(said.text));
    if (none) continue;
    const std::string& wanted = wordAt(w, part ? 1 : 0).text;
    const bool fits = part ? said.text.find(wanted) != std::string::npos : said.text == wanted;
    // A question that was answered need not be expected.
    if (!fits && said.question) continue;
    if (!fits) fail("message " + quote(wanted), quote(said.text));
    const size_t title = part ? 2 : 1;
    if (w.size() > title && sameText(w[title].text, "title")) match("title", said.title, w, title + 1);
    ++machine_.expected;
    return;
  }
  if (!none) fail("message " + quote(wordAt(w, part ? 1 : 0).text), "none");
}

void Player::expectScreen(const Words& w) {
  if (!sameText(top().spec.name, wordAt(w, 0).text)) fail("screen " + w[0].text, top().spec.name);
}

void Player::expectFocus(const Words& w) {
  const Control* const focused = top().focused();
  if (&control(wordAt(w, 0).text) != focused)
    fail("focus on " + w[0].text, focused ? focused->fullName() : "nothing");
}

void Player::expectFlag(const std::string& what, bool saw, const Words& w) {
  const bool wanted = w.size() < 2 || !sameText(w[1].text, "no");
  if (saw != wanted) fail(wordAt(w, 0).text + " " + what + (wanted ? " yes" : " no"), saw ? "yes" : "no");
}

void Player::expectEnabled(const Words& w) { expectFlag("enabled", control(wordAt(w, 0).text).enabled, w); }
void Player::expectVisible(const Words& w) { expectFlag("visible", control(wordAt(w, 0).text).visible, w); }
void Player::expectLocked(const Words& w) { expectFlag("locked", control(wordAt(w, 0).text).locked, w); }

void Player::expectGrid(const Words& w) {
  const Control& g = grid(wordAt(w, 0).text);
  const int row = wholeAt(w, 1), column = wholeAt(w, 2);
  const std::string where = g.fullName() + " " + std::to_string(row) + " " + std::to_string(column);
  if (row < 0 || static_cast<size_t>(row) >= g.grid.count())
    fail(where, std::to_string(g.grid.count()) + " rows");
  match(where, g.grid.cell(static_cast<size_t>(row), static_cast<size_t>(column)).text, w, 3);
}

void Player::expectRows(const Words& w) {
  const Control& g = grid(wordAt(w, 0).text);
  if (g.grid.count() != static_cast<size_t>(wholeAt(w, 1)))
    fail(w[1].text + " rows in " + g.fullName(), std::to_string(g.grid.count()));
}

void Player::expectSql(const Words& w) {
  match(w[1].text, join(rowsOf(wordAt(w, 0).text, wordAt(w, 1).text), ", "), w, 2);
}

void Player::expectFile(const Words& w) {
  const std::string file = path(wordAt(w, 0).text);
  const bool there = onServer(file) ? booksExist(file) : std::filesystem::is_regular_file(file);
  if (!there) fail("file " + w[0].text, "none");
}

void Player::expectPdf(const Words& w) {
  expectFile(w);
  const std::string text = oneBlank(outputOf({"pdftotext", "-layout", path(w[0].text), "-"}));
  const std::string wanted = oneBlank(wordAt(w, 1).text);
  if (text.find(wanted) == std::string::npos) fail("in " + w[0].text + " " + quote(wanted), quote(text));
}

void Player::expectViewed(const Words& w) {
  if (machine_.viewed.empty()) fail("a file shown", "none");
  match("file shown", std::filesystem::path(machine_.viewed.back()).lexically_relative(folder_).string(), w,
        0);
}

void Player::expectPrinted(const Words& w) {
  if (machine_.printed.empty()) fail("a printed paper", "none");
  const std::string text = oneBlank(machine_.printed.back());
  const std::string wanted = oneBlank(wordAt(w, w.size() - 1).text);
  if (text.find(wanted) == std::string::npos) fail("on the printed paper " + quote(wanted), quote(text));
}

void Player::expectLink(const Words& w) {
  if (machine_.links.empty()) fail("a link opened", "none");
  match("link opened", machine_.links.back(), w, 0);
}
