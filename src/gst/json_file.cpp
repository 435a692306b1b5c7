#include "gst/json_file.h"

#include <cmath>

#include "base/number.h"
#include "platform/whole_file.h"

namespace {

// A text that is no UTF-8 must not end the file.
std::string dumped(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace

Json jsonMoney(Paise amount) { return amount % 100 == 0 ? Json(amount / 100) : Json(rupees(amount)); }

Json jsonFigure(double value) {
  const double rounded = Round(value, 3);
  return rounded == std::floor(rounded) && std::abs(rounded) < 1e15 ? Json(static_cast<std::int64_t>(rounded))
                                                                    : Json(rounded);
}

JsonFiles::JsonFiles(std::filesystem::path folder, std::string stem, Json head, size_t most)
    : folder_(std::move(folder)), stem_(std::move(stem)), head_(dumped(head)), most_(most) {
  head_.pop_back();  // its brace is closed at the end
  begin();
}

void JsonFiles::begin() {
  text_ = head_;
  full_ = false;
}

void JsonFiles::makeRoom(size_t size) {
  // What closes the lists, and keys that begin them, is small beside it.
  if (!full_ || text_.size() + size + 200 <= most_) return;
  closeList();
  end();
  begin();
}

void JsonFiles::closeGroup() {
  if (!inner_.empty()) text_ += "]}";
  inner_.clear();
  group_.clear();
}

void JsonFiles::closeList() {
  closeGroup();
  if (!list_.empty()) text_ += "]";
  list_.clear();
}

void JsonFiles::add(const std::string& list, const Json& record) {
  const std::string text = dumped(record);
  makeRoom(text.size());
  if (list_ != list) {
    closeList();
    text_ += ",\"" + list + "\":[" + text;
    list_ = list;
  } else {
    text_ += "," + text;
  }
  full_ = true;
}

void JsonFiles::add(const std::string& list, const Json& group, const std::string& inner,
                    const Json& record) {
  std::string outer = dumped(group);
  const std::string text = dumped(record);
  outer.pop_back();
  makeRoom(outer.size() + text.size());
  if (list_ == list && group_ == outer) {
    text_ += "," + text;
  } else {
    if (list_ == list) {
      closeGroup();
      text_ += ",";
    } else {
      closeList();
      text_ += ",\"" + list + "\":[";
      list_ = list;
    }
    text_ += outer + ",\"" + inner + "\":[" + text;
    group_ = outer;
    inner_ = inner;
  }
  full_ = true;
}

void JsonFiles::put(const std::string& key, const Json& value) {
  const std::string text = dumped(value);
  makeRoom(text.size());
  closeList();
  text_ += ",\"" + key + "\":" + text;
  full_ = true;
}

void JsonFiles::end() {
  const std::string part = written_.empty() ? "" : "_" + std::to_string(written_.size() + 1);
  written_.push_back(folder_ / (stem_ + part + ".json"));
  WholeFile file(written_.back().string());
  file.write(text_);
  file.write("}\n");
  file.finish();
}

std::vector<std::filesystem::path> JsonFiles::finish() {
  closeList();
  end();
  std::error_code none;
  for (size_t part = written_.size() + 1;
       std::filesystem::remove(folder_ / (stem_ + "_" + std::to_string(part) + ".json"), none); ++part) {
  }
  return written_;
}
