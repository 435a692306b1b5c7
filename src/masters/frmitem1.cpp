#include "masters/frmitem1.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "masters/page_rows.h"

using namespace fields;

namespace {

// No table keeps a least stock, so there is no field for one.
// clang-format off
const ScreenSpec& itemTable() {
  using enum Holds;
  static const std::vector<Length> cells{px(116), px(92), part(1.1, 70), px(112), px(92), px(36), part(1)};
  static const ScreenSpec s{
      .name = "FRMITEM1",
      .caption = "Item Master ",
      .layout = {.bands = {
          {.height = part(1), .groups = {
              {.name = "form", .frame = Frame::Plain, .bands = {
                  {fit(),   {{.name = "item",  .columns = cells, .pitch = 39}}},
                  {px(25),  {{.name = "heads", .frame = Frame::Heads, .columnsOf = "DataGrid1"}}},
                  {px(34),  {{.name = "entry", .frame = Frame::Entry, .columnsOf = "DataGrid1"}}},
                  {px(24),  {{.name = "keys",  .frame = Frame::Keys,  .columnsOf = "DataGrid1"}}},
                  {part(1), {{.name = "rows",  .frame = Frame::Plain}}},
              }},
              {.name = "names", .width = px(400), .frame = Frame::Plain},
          }},
          entryButtonBand(),
      }},
      .controls = withButtons({
          {.name = "Text1", .index = 0,  .field = kCode,         .column = "ITEM_CD",     .holds = Typed,  .label = "Item Code",  .at = {.group = "item", .row = 0, .col = 1, .span = 2, .width = 120}, .tab = 1, .limit = 20, .keys = KeyClass::Text},
          {.name = "usrlbl", .field = kUser, .kind = Kind::Label,                       .at = {.group = "item", .row = 0, .col = 4, .span = 3}, .style = Style::Quiet},
          {.name = "Text1", .index = 1,  .field = kName,         .column = "ITEM_NAME",   .holds = Typed,  .label = "Name",       .at = {.group = "item", .row = 1, .col = 1, .span = 6}, .tab = 2, .limit = 100, .keys = KeyClass::Text, .hint = "Type Item Name And Press Enter"},
          {.name = "Text1", .index = 4,  .field = kCategory,     .column = "DEPT_CD",     .holds = Typed,  .label = "Category",   .at = {.group = "item", .row = 2, .col = 1}, .tab = 3, .limit = 4, .keys = KeyClass::Text, .hint = "Press Enter To Select Category Or Ctrl + D To Add Category"},
          {.name = "lblCategory", .field = kCategoryName, .kind = Kind::Label,                  .at = {.group = "item", .row = 2, .col = 2}, .style = Style::Quiet},
          {.name = "Text1", .index = 5,  .field = kUnitName,     .column = "UOM",         .holds = Typed,  .label = "Unit Name",  .at = {.group = "item", .row = 2, .col = 4, .span = 3}, .tab = 4, .limit = 20, .keys = KeyClass::Text, .hint = "Type Unit For Item Ex - Kg, Nos, Ltr, Mtr Etc."},
          {.name = "Text1", .index = 21, .field = kTaxRate,      .column = "RATEOFTAX",   .holds = Figure, .label = "Gst %",      .at = {.group = "item", .row = 3, .col = 1}, .tab = 5, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Gst Rate For Item"},
          {.name = "Text1", .index = 22, .field = kHsn,          .column = "HSNCODE",     .holds = Typed,  .label = "Hsn Code",   .at = {.group = "item", .row = 3, .col = 4, .span = 3}, .tab = 6, .limit = 250, .keys = KeyClass::Text, .hint = "Type Item Hsn Code"},
          {.name = "Text1", .index = 2,  .field = kShortName,    .column = "ITEM_SNAME",  .holds = Typed,  .label = "Short Name", .at = {.group = "item", .row = 4, .col = 1, .span = 2}, .tab = 7, .limit = 100, .keys = KeyClass::Text, .hint = "Type Description And Press Enter"},
          {.name = "Text1", .index = 3,  .field = kLongName,     .column = "ITEM_LNAME",  .holds = Typed,  .label = "Long Name",  .at = {.group = "item", .row = 4, .col = 4, .span = 3}, .tab = 8, .limit = 100, .keys = KeyClass::Text, .hint = "Type Description And Press Enter"},

          // The code of a row is open only while a stored row is being changed.
          {.name = "Text1", .index = 14, .field = kRowCode,      .label = "Item Code",   .at = {.group = "entry", .col = 0}, .tab = 10, .limit = 20, .keys = KeyClass::Text, .enabled = false, .hint = "Another Code :: Row Goes To That Item"},
          {.name = "Text1", .index = 6,  .field = kUnit,         .label = "Unit",        .at = {.group = "entry", .col = 1}, .tab = 11, .limit = 20, .keys = KeyClass::Text, .hint = "Press Enter For Help :: Down = Rows :: Page Down = Save"},
          {.name = "Text1", .index = 7,  .field = kPurchaseRate, .label = "P. Rate",     .at = {.group = "entry", .col = 2}, .tab = 12, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Item Purchase Rate"},
          {.name = "Text1", .index = 8,  .field = kSaleRate,     .label = "Sale Rate",   .at = {.group = "entry", .col = 3}, .tab = 13, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Item Sales Rate"},
          {.name = "Text1", .index = 9,  .field = kMrp,          .label = "Mrp",         .at = {.group = "entry", .col = 4}, .tab = 14, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Item Mrp"},
          {.name = "Text1", .index = 11, .field = kOpeningStock, .label = "Op. Stock",   .at = {.group = "entry", .col = 5}, .tab = 16, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Item Opening Stock"},
          {.name = "Text1", .index = 12, .field = kDiscount,     .label = "Discount",    .at = {.group = "entry", .col = 6}, .tab = 17, .limit = 15, .keys = KeyClass::Number, .align = Align::Right, .hint = "Type Sale Discount"},
          {.name = "Text1", .index = 13, .field = kDescription,  .label = "Description", .at = {.group = "entry", .col = 7}, .tab = 18, .limit = 20, .keys = KeyClass::Text, .hint = "Type Description And Press Enter"},
          {.name = "lblKeys", .kind = Kind::Label,  .label = "Enter On A Row = Change  ::  F10 = Remove Row  ::  Page Down = Save", .at = {.group = "keys", .col = 0, .span = 8}, .style = Style::Quiet},
          {.name = "DataGrid1", .kind = Kind::Grid, .at = {.group = "rows"}, .tab = 20, .enabled = false, .hint = "Press Enter To Change Row :: F10 = Remove Row", .columns = {
              {.title = "Item Code",   .width = px(92, 90)},
              {.title = "Unit",        .width = part(1, 64)},
              {.title = "P. Rate",     .width = px(102, 84), .align = Align::Right, .money = true},
              {.title = "Sale Rate",   .width = px(102, 86), .align = Align::Right, .money = true},
              {.title = "Mrp",         .width = px(102, 84), .align = Align::Right, .money = true},
              {.title = "Op. Stock",   .width = px(92, 84), .align = Align::Right},
              {.title = "Discount",    .width = px(88, 78), .align = Align::Right},
              {.title = "Description", .width = part(1.4, 102)},
              {.title = "Stock",       .width = px(72, 62), .align = Align::Right},
          }},
          {.name = "DataGrid2", .kind = Kind::Grid, .at = {.group = "names"}, .columns = {{.title = "Names already in use"}}},
      }, "&Save"),
  };
  return s;
}
// clang-format on

EntryPattern itemPattern() {
  const std::string stem = words("Item Master ");
  return {
      .key = kCode,
      .first = kName,
      .what = english("Item"),
      .idle = stem,
      .add = words("{master}: ADD MODE", "master", stem),
      .edit = words("{master}: EDIT MODE", "master", stem),
      .del = words("{master}: DELETE MODE", "master", stem),
      .view = words("{master}: VIEW MODE", "master", stem),
      .viewMode = "VIEW",
      .idleHint = "Press Enter To Add New Record",
      .searches = "F1 = Short Name  ::  F3 = Rate",
      .deleteQuestion = "ARE YOU SURE YOU WANT TO DELETE CURRENT RECORD",
      .names = {.columns = {{"ITEM_NAME"}}, .from = "ITEM", .order = {"item_name"}},
      .namesGrid = "DataGrid2",
      .name = kName,
      .optional = {kHsn   },
      .video = links().itemVideo,
  };
}

}  // namespace

FRMITEM1::FRMITEM1(Host& theHost) : EntryScreen(theHost, itemTable(), itemPattern()) {
  at("DataGrid1").grid.heading = false;
  wire<FRMITEM1>(*this, {
                            {kCode,        KeyCode::F3,     &FRMITEM1::rateSearch     },
                            {kCode,        KeyCode::F1,     &FRMITEM1::shortNameSearch},
                            {kName,        KeyCode::Enter,  &FRMITEM1::nameEntered    },
                            {kCategory,    KeyCode::Enter,  &FRMITEM1::categoryEntered},
                            {kUnitName,    KeyCode::Enter,  &FRMITEM1::unitEntered    },
                            {kHsn,         KeyCode::Enter,  &FRMITEM1::hsnEntered     },
                            {kUnit,        On::Focus,       &FRMITEM1::sizeFocused    },
                            {kUnit,        KeyCode::Enter,  &FRMITEM1::sizeEntered    },
                            {kUnit,        KeyCode::Down,   &FRMITEM1::toRows         },
                            {kDescription, KeyCode::Enter,  &FRMITEM1::detailEnded    },
                            {"",           KeyCode::PgDn,   &FRMITEM1::endDetails     },
                            {"DataGrid1",  On::DoubleClick, &FRMITEM1::pickRow        },
                            {"DataGrid1",  KeyCode::Enter,  &FRMITEM1::pickRow        },
                            {"DataGrid1",  KeyCode::F10,    &FRMITEM1::removeRow      },
  });
}

void FRMITEM1::opened(const Opening& opening) {
  EntryScreen::opened(opening);
  if (mode.empty()) add();
}

void FRMITEM1::closed() {
  clearItemDetails(data());
  EntryScreen::closed();
}

std::string FRMITEM1::nextCode() { return itemCode(NextItemCode()); }

std::optional<Row> FRMITEM1::storedRow(const std::string& code) { return findItem(data(), code); }

std::string FRMITEM1::standing(const std::string& code) {
  return EntryScreen::standing(code) + itemDetailsAsStored(data(), code);
}

void FRMITEM1::shown(const std::string& code) {
  clearDetail();
  renamings_.clear();
  rowsChanged_ = false;
  showCategory();
  const bool details = loadItemDetails(data(), code);
  showRows();
  if (!details) say("No Record To Display");
}

void FRMITEM1::emptied() {
  clearItemDetails(data());
  clearDetail();
  renamings_.clear();
  rowsChanged_ = false;
  put(kCategoryName, "");
  showRows();
}

// The rows count, and the one that is being typed.
bool FRMITEM1::unsaved() const {
  if (rowsChanged_ || EntryScreen::unsaved()) return true;
  return std::ranges::any_of(controls, [](const auto& c) {
    return c->editable() && c->focusable() && c->ofLine() && !c->given && !trim(c->text).empty();
  });
}

void FRMITEM1::showCategory() { put(kCategoryName, categoryName(data(), trimmed(kCategory)).value_or("")); }

// Code

namespace {

constexpr const char* kWithCategory = "item left join deptment on item.dept_cd = deptment.dept_cd";

}  // namespace

Lookup FRMITEM1::codeLookup() const {
  return {
      .rows = {.columns = {{"ITEM_CD"},
                           {"ITEM_NAME"},
                           {"dept_name", 0, "CATEGORY"},
                           {"ITEM_SNAME", 0, "SUB_CATG"},
                           {"ITEM_LNAME", 0, "MATERIAL"}},
               .from = kWithCategory,
               .order = {"ITEM_NAME"}}
  };
}

Go FRMITEM1::rateSearch() {
  return searchInto({
      .rows = {
               .columns = {{"ITEM.ITEM_CD"},
                      {"STR(SALE_RATE1)", 0, "SRATE1"},
                      {"SALE_RATE2"},
                      {"PUR_RATE"},
                      {"ITEM_NAME"},
                      {"dept_name"},
                      {"itemdtl.cl_stk"}},
               .from = std::string("(") + kWithCategory + ") LEFT JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD",
               .order = {"ITEM_NAME", "ITEM.rowid", "SIZE_CD"}}
  });
}

Go FRMITEM1::shortNameSearch() {
  return searchInto({
      .rows = {.columns = {{"ITEM_CD"}, {"ITEM_SNAME"}, {"ITEM_NAME"}, {"dept_name"}},
               .from = kWithCategory,
               .order = {"ITEM_NAME"}}
  });
}

Go FRMITEM1::searchInto(const Lookup& lookup) {
  return mode == "ADD" ? Go::Stay : lookUp(host, *this, at(kCode), lookup);
}

// Head

Go FRMITEM1::nameEntered() {
  const std::string name = trimmed(kName);
  return name.empty() ? valuesInUse("item", "ITEM_NAME") : nameIsFree();
}

Go FRMITEM1::nameIsFree() {
  const bool taken = mode == "ADD" && itemNameInUse(data(), trimmed(kName));
  return taken ? refuse("Duplicate Item Not Allowed") : Go::On;
}

Go FRMITEM1::categoryEntered() {
  if (!trimmed(kCategory).empty()) return categoryIsKnown();
  showCategory();
  return lookUp(
      host, *this, at(kCategory),
      {
          .rows = {.columns = {{"DEPT_CD"}, {"DEPT_NAME"}}, .from = "DEPTMENT", .order = {"dept_name"}}
  });
}

Go FRMITEM1::categoryIsKnown() {
  showCategory();
  return categoryName(data(), trimmed(kCategory)) ? Go::On : refuse("Category Not Found");
}

Go FRMITEM1::unitEntered() { return valuesInUse("item", "UOM"); }
Go FRMITEM1::hsnEntered() { return valuesInUse("item", "HSNCODE"); }

// Detail rows

// The first row of an item is usually in its own unit.
void FRMITEM1::sizeFocused() {
  if (trimmed(kUnit).empty() && !picked_ && countItemDetails(data()) == 0) put(kUnit, trimmed(kUnitName));
}

Go FRMITEM1::sizeEntered() {
  const std::string size = trimmed(kUnit);
  if (size.empty()) return valuesInUse("itemDTL", "SIZE_CD");
  const bool own = picked_ && sameText(picked_->size, size);
  return !own && itemSizeInWork(data(), size) ? refuse("Duplicate Item Not Allowed") : Go::On;
}

Go FRMITEM1::detailEnded() {
  const ItemDetail detail = typedDetail();
  if (detail.key.size.empty()) {
    focus(at(kUnit));
    return Go::Stay;
  }
  if (figureTooLarge()) return Go::Stay;
  // Everything that names the row's item would name none.
  if (!sameText(detail.key.code, code()) && !findItem(data(), detail.key.code)) {
    say(words("No Item Has The Code {code}\nA Row Goes To An Item That Stands", "code", detail.key.code));
    focus(at(kRowCode));
    return Go::Stay;
  }
  const bool own = picked_ && *picked_ == detail.key;
  if (!own && findItemDetail(data(), detail.key)) {
    say("Duplicate Values Found Entry Terminated");
    clearDetail();
    focus(at("cmdUpdate"));
    return Go::Stay;
  }
  keepDetail(detail);
  focus(at(kUnit));
  return Go::Stay;
}

ItemDetail FRMITEM1::typedDetail() const {
  const std::string rowCode = trimmed(kRowCode);
  return {
      .key = {picked_ && !rowCode.empty() ? rowCode : code(), trimmed(kUnit)},
      .purchaseRate = value(kPurchaseRate),
      .saleRate = value(kSaleRate),
      .mrp = value(kMrp),
      .discount = value(kDiscount),
      .openingStock = value(kOpeningStock),
      .description = text(kDescription)
  };
}

void FRMITEM1::keepDetail(const ItemDetail& detail) {
  if (!picked_) {
    addItemDetail(data(), detail, sendMarks());
  } else {
    changeItemDetail(data(), *picked_, detail, sendMarks());
    if (mode != "ADD" && !(*picked_ == detail.key))
      renamings_.push_back({.from = *picked_, .to = detail.key});
  }
  clearDetail();
  rowsChanged_ = true;
  showRows();
}

void FRMITEM1::clearDetail() {
  emptyFields(Part::Line);
  at(kRowCode).enabled = false;
  picked_.reset();
}

void FRMITEM1::showRows() {
  Control& list = at("DataGrid1");
  list.grid.source = std::make_shared<PageRows>(data(), Select{
                                                            .columns = {{"ITEM_CD"},
                                                                        {"SIZE_CD"},
                                                                        {"PUR_RATE"},
                                                                        {"SALE_RATE1"},
                                                                        {"SALE_RATE2"},
                                                                        {"OP_STK"},
                                                                        {"SALE_DISC"},
                                                                        {"DESC1"},
                                                                        {"CL_STK"}},
                                                            .from = "TEMP_ITMDTL"
  });
  list.grid.current = Grid::kNone;
  list.enabled = entering() && list.grid.count() > 0;
}

void FRMITEM1::endDetails() {
  if (entering()) focus(at("cmdUpdate"));
}

void FRMITEM1::toRows() {
  if (at("DataGrid1").focusable()) focus(at("DataGrid1"));
}

std::optional<ItemKey> FRMITEM1::rowUnderCursor() const {
  const Grid& grid = at("DataGrid1").grid;
  if (grid.current == Grid::kNone || grid.current >= grid.count()) return {};
  return ItemKey{grid.cell(grid.current, 0).text, grid.cell(grid.current, 1).text};
}

Go FRMITEM1::pickRow() {
  const auto key = rowUnderCursor();
  const auto detail = key && entering() ? findItemDetail(data(), *key) : std::nullopt;
  if (!detail) return Go::Stay;
  picked_ = detail->key;
  put(kRowCode, detail->key.code);
  put(kUnit, detail->key.size);
  put(kPurchaseRate, detail->purchaseRate);
  put(kSaleRate, detail->saleRate);
  put(kMrp, detail->mrp);
  put(kOpeningStock, detail->openingStock);
  put(kDiscount, detail->discount);
  put(kDescription, detail->description);
  at(kRowCode).enabled = mode == "EDIT";
  focus(at(kUnit));
  return Go::Stay;
}

void FRMITEM1::removeRow() {
  const auto key = rowUnderCursor();
  if (!key || !entering() || !host.ask(deleteQuestion(english("ARE YOU SURE"), ""))) return;
  // A row that is stored under another name yet is named by that.
  const auto renamed = std::ranges::find_if(renamings_, [&](const Renaming& r) { return r.to == *key; });
  if (const auto refused = unitRefusal(data(), renamed == renamings_.end() ? *key : renamed->from))
    return host.message(refused->words, refused->title);
  removeItemDetail(data(), *key);
  rowsChanged_ = true;
  std::erase_if(renamings_, [&](const Renaming& r) { return r.to == *key; });
  if (picked_ == key) clearDetail();
  showRows();
  focus(at(kUnit));
}

// Saving and deleting

Control* FRMITEM1::missingField() {
  for (const FieldName required : {kCode, kName, kCategory, kUnitName})
    if (trimmed(required).empty()) return &at(required);
  return nullptr;
}

// What still stands in the entry row belongs to the item; an item has at least one row.
bool FRMITEM1::maySave() {
  if (nameIsFree() == Go::Stay || categoryIsKnown() == Go::Stay) return false;
  ItemDetail detail = typedDetail();
  const bool typed = !detail.key.size.empty();
  if (picked_ && !(*picked_ == detail.key)) {
    say("Batch or Unit Can Not Be Changed");
    return false;
  }
  if (typed && !picked_ && findItemDetail(data(), detail.key)) {
    say("Duplicate Item Not Allowed");
    return false;
  }
  if (!typed && !picked_ && countItemDetails(data()) == 0) detail.key.size = trimmed(kUnitName);
  if (!detail.key.size.empty()) keepDetail(detail);
  return true;
}

bool FRMITEM1::store() {
  for (const FieldName name : {kCode, kName}) put(name, trimmed(name));
  Fields head = writtenFields(Part::Head);
  for (Field& f : head)
    if (f.column == "ITEM_LNAME" && trim(f.value.text()).empty()) f.value = ".";
  for (Field& f : stamps()) head.push_back(std::move(f));
  if (mode == "EDIT" && rowsChanged_ && stays(goneUnitsRefusal(data(), loaded(), renamings_))) return false;
  if (mode == "EDIT") return changeItem(data(), loaded(), head, renamings_);
  addItem(data(), code(), std::move(head));
  return true;
}

void FRMITEM1::saved(const std::string& code) { session().mlastitem = code; }

std::optional<Refusal> FRMITEM1::refusal(const std::string& code) { return itemRefusal(data(), code); }

void FRMITEM1::erase(const std::string& code) { deleteItem(data(), code); }
