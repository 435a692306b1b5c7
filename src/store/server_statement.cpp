#include "store/server_statement.h"

#include <algorithm>

#include "base/text.h"
#include "store/server_functions.h"

std::string onServerText(std::string_view statement) {
  std::string text = replaceAll(statement, " CROSS JOIN ", " STRAIGHT_JOIN ");
  constexpr std::string_view kDefaults = " DEFAULT VALUES";
  if (text.ends_with(kDefaults))
    text.replace(text.size() - kDefaults.size(), kDefaults.size(), " () VALUES ()");
  return inServersWords(text);
}

namespace {

enum_field_types readAs(enum_field_types type) {
  switch (type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return MYSQL_TYPE_LONGLONG;
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return MYSQL_TYPE_DOUBLE;
    default:
      return MYSQL_TYPE_STRING;
  }
}

}  // namespace

ServerStatement::ServerStatement(ServerEngine& engine, std::string text)
    : PreparedStatement(std::move(text)), engine_(engine), target_(WorkJournal::target(sql)) {
  engine_.stand();
  // With its connection a transaction is gone, also from the engine: what belongs to it must not go on alone.
  const bool within = engine_.inTransaction();
  try {
    try {
      prepare();
    } catch (const DatabaseError& error) {
      if (error.kind() != DatabaseError::Kind::lost || within) throw;
      engine_.stand();
      prepare();
    }
  } catch (...) {
    close();
    throw;
  }
}

ServerStatement::~ServerStatement() { close(); }

void ServerStatement::close() noexcept {
  // Of a connection that is gone nothing is left to close on the server.
  if (handle_) mysql_stmt_close(handle_);
  handle_ = nullptr;
}

void ServerStatement::fail() {
  const unsigned code = mysql_stmt_errno(handle_);
  const std::string text = mysql_stmt_error(handle_);
  engine_.fail(code, text, sql);
}

void ServerStatement::prepare() {
  close();
  const std::string text = onServerText(sql);
  handle_ = mysql_stmt_init(engine_.link().handle());
  if (!handle_) throw DatabaseError(DatabaseError::Kind::memory, {}, {}, sql);
  generation_ = engine_.link().generation();
  int failed = 0;
  await(mysql_stmt_prepare_start(&failed, handle_, text.data(), text.size()), mysql_stmt_prepare_cont,
        failed);
  if (failed != 0) fail();
  my_bool measured = 1;
  mysql_stmt_attr_set(handle_, STMT_ATTR_UPDATE_MAX_LENGTH, &measured);
  parameters_ = static_cast<int>(mysql_stmt_param_count(handle_));
  readShape();
}

void ServerStatement::readShape() {
  cells_.clear();
  origins_.clear();
  MYSQL_RES* const result = mysql_stmt_result_metadata(handle_);
  if (!result) return;
  for (unsigned i = 0; i < mysql_num_fields(result); ++i) {
    const MYSQL_FIELD& field = *mysql_fetch_field_direct(result, i);
    cells_.push_back({.name = field.name, .read = readAs(field.type)});
    origins_.push_back(field.org_name_length == 0 ? "" : std::string(field.org_table) + "." + field.org_name);
  }
  mysql_free_result(result);
}

void ServerStatement::bindValues() {
  const size_t count = values_.size();
  bound_.assign(count, MYSQL_BIND{});
  wholes_.resize(count);
  numbers_.resize(count);
  texts_.resize(count);
  for (size_t i = 0; i < count; ++i) {
    const Value& value = values_[i];
    MYSQL_BIND& bound = bound_[i];
    if (value.isNull()) {
      bound.buffer_type = MYSQL_TYPE_NULL;
    } else if (value.isWhole()) {
      wholes_[i] = value.whole();
      bound.buffer_type = MYSQL_TYPE_LONGLONG;
      bound.buffer = &wholes_[i];
    } else if (value.isText()) {
      texts_[i] = value.text();
      bound.buffer_type = MYSQL_TYPE_STRING;
      bound.buffer = texts_[i].data();
      bound.buffer_length = texts_[i].size();
    } else {
      numbers_[i] = value.number();
      bound.buffer_type = MYSQL_TYPE_DOUBLE;
      bound.buffer = &numbers_[i];
    }
  }
  if (count > 0 && mysql_stmt_bind_param(handle_, bound_.data()) != 0) fail();
}

void ServerStatement::await(int status, int (*goOn)(int*, MYSQL_STMT*, int), int& result) {
  engine_.link().await(status, [&](int came) { return goOn(&result, handle_, came); });
}

void ServerStatement::execute() {
  if (generation_ != engine_.link().generation()) prepare();
  bindValues();
  int result = 0;
  await(mysql_stmt_execute_start(&result, handle_), mysql_stmt_execute_cont, result);
  if (result != 0) fail();
  if (!cells_.empty()) {
    await(mysql_stmt_store_result_start(&result, handle_), mysql_stmt_store_result_cont, result);
    if (result != 0) fail();
    readResult();
    return;
  }
  changed_ = static_cast<int>(mysql_stmt_affected_rows(handle_));
  if (startsWithNoCase(sql, "INSERT"))
    engine_.inserted(static_cast<std::int64_t>(mysql_stmt_insert_id(handle_)));
}

void ServerStatement::readResult() {
  MYSQL_RES* const result = mysql_stmt_result_metadata(handle_);
  std::vector<MYSQL_BIND> into(cells_.size());
  for (size_t i = 0; i < cells_.size(); ++i) {
    Cell& cell = cells_[i];
    MYSQL_BIND& bound = into[i];
    bound.buffer_type = cell.read;
    bound.is_null = &cell.null;
    bound.length = &cell.length;
    if (cell.read == MYSQL_TYPE_LONGLONG) {
      bound.buffer = &cell.whole;
    } else if (cell.read == MYSQL_TYPE_DOUBLE) {
      bound.buffer = &cell.number;
    } else {
      cell.text.resize(
          std::max<size_t>(1, mysql_fetch_field_direct(result, static_cast<unsigned>(i))->max_length));
      bound.buffer = cell.text.data();
      bound.buffer_length = cell.text.size();
    }
  }
  mysql_free_result(result);
  if (mysql_stmt_bind_result(handle_, into.data()) != 0) fail();
}

// Only when it is run does the server tell what it selects.
std::vector<std::int64_t> ServerStatement::answer() {
  execute();
  std::vector<std::int64_t> row;
  if (mysql_stmt_field_count(handle_) == 0) return row;
  readShape();
  int result = 0;
  await(mysql_stmt_store_result_start(&result, handle_), mysql_stmt_store_result_cont, result);
  if (result != 0) fail();
  readResult();
  if (mysql_stmt_fetch(handle_) == 0)
    for (const Cell& cell : cells_) row.push_back(cell.whole);
  cells_.clear();
  while (mysql_stmt_more_results(handle_)) {
    await(mysql_stmt_next_result_start(&result, handle_), mysql_stmt_next_result_cont, result);
    if (result > 0) fail();
  }
  return row;
}

void ServerStatement::run() {
  engine_.stand();
  engine_.catchUp(target_.empty());
  changed_ = 0;
  if (!target_.empty()) return engine_.write(target_, sql, values_, [this] { execute(); });
  const bool within = engine_.inTransaction();
  try {
    execute();
  } catch (const DatabaseError& error) {
    if (error.kind() != DatabaseError::Kind::lost || within) throw;
    engine_.stand();
    execute();
  }
}

bool ServerStatement::step() {
  if (!running_) run();
  running_ = true;
  if (cells_.empty()) return false;
  const int fetched = mysql_stmt_fetch(handle_);
  if (fetched == 1) fail();
  return fetched != MYSQL_NO_DATA;
}

void ServerStatement::reset() noexcept {
  if (running_ && handle_ && generation_ == engine_.link().generation()) mysql_stmt_free_result(handle_);
  running_ = false;
}

std::string ServerStatement::declaredType(int column) const {
  const std::string& origin = origins_.at(static_cast<size_t>(column));
  const auto dot = origin.find('.');
  return dot == std::string::npos ? "" : engine_.declaredType(origin.substr(0, dot), origin.substr(dot + 1));
}

Value ServerStatement::value(int column) const {
  const Cell& cell = cells_.at(static_cast<size_t>(column));
  if (cell.null) return {};
  if (cell.read == MYSQL_TYPE_LONGLONG) return static_cast<std::int64_t>(cell.whole);
  if (cell.read == MYSQL_TYPE_DOUBLE) return cell.number;
  return std::string(cell.text.data(), std::min<size_t>(cell.length, cell.text.size()));
}
