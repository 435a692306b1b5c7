#include "platform/workbook/container.h"

#include <sys/stat.h>
#include <zip.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>

#include "base/words.h"
#include "platform/whole_file.h"
#include "platform/workbook/xml.h"

namespace workbook {
namespace {

// Of the file, of one part and of all parts that are read, and how many parts there may be. A part
// takes some ten times its size while it is read.
constexpr uint64_t kMaxFile = 64u << 20, kMaxPart = 16u << 20, kMaxRead = 64u << 20, kMaxParts = 4096;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

struct ZipFileCloser {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

std::string lower(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

std::string partKey(std::string_view name) {
  std::string key = lower(name);
  for (char& c : key)
    if (c == '\\') c = '/';
  return key.starts_with('/') ? key.substr(1) : key;
}

std::string resolved(std::string_view base, std::string_view target) {
  std::string path;
  if (target.starts_with('/'))
    path = target.substr(1);
  else if (const size_t slash = base.rfind('/'); slash != std::string_view::npos)
    path.append(base.substr(0, slash + 1)).append(target);
  else
    path = target;
  return std::filesystem::path(path).lexically_normal().generic_string();
}

void writeFile(const std::string& path, std::string_view bytes) {
  try {
    WholeFile file(path);
    file.write(bytes);
    file.finish();
  } catch (const std::system_error& error) {
    throw WorkbookError(std::string(error.what()) + ".");
  }
}

}  // namespace

std::string relationsPart(std::string_view part) {
  const size_t slash = part.rfind('/');
  const size_t name = slash == std::string_view::npos ? 0 : slash + 1;
  return std::string(part.substr(0, name)) + "_rels/" + std::string(part.substr(name)) + ".rels";
}

void Container::Closer::operator()(struct zip* archive) const { zip_discard(archive); }

Container Container::open(const std::string& path) {
  const std::string name = std::filesystem::path(path).filename().string();
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR)
      throw WorkbookError(words("The file {file} is missing.", "file", path));
    throw WorkbookError(
        words("The file {file} cannot be read: {reason}.", "file", path, "reason", std::strerror(errno)));
  }
  if (!S_ISREG(status.st_mode))
    throw WorkbookError(words("The file {file} {fault}", "file", path, "fault", words("is not a workbook.")));
  if (static_cast<uint64_t>(status.st_size) > kMaxFile)
    throw WorkbookError(words("The file {file} {fault}", "file", name, "fault", words("is too large.")));
  const File file(std::fopen(path.c_str(), "rb"));
  std::string bytes(static_cast<size_t>(status.st_size), '\0');
  if (!file || std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
    throw WorkbookError(
        words("The file {file} cannot be read: {reason}.", "file", path, "reason", std::strerror(errno)));
  return Container(std::move(bytes), name);
}

Container Container::fromBytes(std::string bytes) { return Container(std::move(bytes), {}); }

Container::Container(std::string bytes, std::string name)
    : bytes_(std::make_unique<std::string>(std::move(bytes))), name_(std::move(name)) {
  if (bytes_->size() > kMaxFile) refuse("is too large.");
  if (!bytes_->starts_with("PK"))
    refuse(bytes_->starts_with("\xD0\xCF\x11\xE0")
               ? english("is not an .xlsx workbook: it is of the older .xls kind or protected by a password.")
               : english("is not a workbook."));
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes_->data(), bytes_->size(), 0, &error);
  zip_t* archive = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
  zip_error_fini(&error);
  if (!archive) {
    if (source) zip_source_free(source);
    damaged();
  }
  archive_.reset(archive);
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  if (count > static_cast<zip_int64_t>(kMaxParts)) refuse("is too large.");
  for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i)
    if (const char* part = zip_get_name(archive, i, ZIP_FL_ENC_GUESS)) parts_.emplace(partKey(part), i);
  if (!has("[Content_Types].xml")) refuse("is not a workbook.");
}

void Container::refuse(std::string_view what) const {
  const std::string fault = words(what);
  throw WorkbookError(name_.empty() ? words("The file {fault}", "fault", fault)
                                    : words("The file {file} {fault}", "file", name_, "fault", fault));
}

bool Container::has(std::string_view part) const { return parts_.contains(partKey(part)); }

std::string Container::read(std::string_view part) const {
  const auto found = parts_.find(partKey(part));
  if (found == parts_.end()) damaged();
  zip_stat_t status;
  if (zip_stat_index(archive_.get(), found->second, 0, &status) != 0 || !(status.valid & ZIP_STAT_SIZE))
    damaged();
  if (status.size > kMaxPart) refuse("is too large.");
  if (read_.insert(found->second).second && (readBytes_ += status.size) > kMaxRead) refuse("is too large.");
  const std::unique_ptr<zip_file_t, ZipFileCloser> file(zip_fopen_index(archive_.get(), found->second, 0));
  if (!file) damaged();
  // The size is only what the file says of itself: one byte more is asked for, which also
  // makes the checksum be compared at the end.
  std::string bytes(static_cast<size_t>(status.size) + 1, '\0');
  size_t filled = 0;
  while (filled < bytes.size()) {
    const zip_int64_t got = zip_fread(file.get(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0) damaged();
    if (got == 0) break;
    filled += static_cast<size_t>(got);
  }
  if (filled != status.size) damaged();
  bytes.resize(filled);
  return bytes;
}

std::vector<Relation> Container::relations(std::string_view part) const {
  std::vector<Relation> found;
  const std::string name = relationsPart(part);
  if (!has(name)) return found;
  const xml::Document document(*this, name);
  for (const xml::Node node : xml::children(document.root(), "Relationship")) {
    const std::string_view type = xml::text(node, "Type");
    const bool outside = xml::text(node, "TargetMode") == "External";
    found.push_back({.id = std::string(xml::text(node, "Id")),
                     .type = std::string(type.substr(type.rfind('/') + 1)),
                     .target = outside ? "" : resolved(part, xml::text(node, "Target"))});
  }
  return found;
}

std::string Container::written(const PartChanges& changes) const {
  zip_error_t error;
  zip_error_init(&error);
  // A source that is written to comes to own its bytes, whatever was asked for.
  std::unique_ptr<void, void (*)(void*)> copy(std::malloc(bytes_->size()), std::free);
  if (!copy) throw std::bad_alloc();
  std::memcpy(copy.get(), bytes_->data(), bytes_->size());
  zip_source_t* source = zip_source_buffer_create(copy.get(), bytes_->size(), 1, &error);
  if (!source) damaged();
  copy.release();
  zip_source_keep(source);
  const std::unique_ptr<zip_source_t, void (*)(zip_source_t*)> kept(source, zip_source_free);
  std::unique_ptr<zip_t, Closer> archive(zip_open_from_source(source, 0, &error));
  if (!archive) {
    zip_source_free(source);
    damaged();
  }
  for (const std::string& part : changes.removed)
    if (const auto found = parts_.find(partKey(part)); found != parts_.end())
      zip_delete(archive.get(), found->second);
  for (const auto& [part, bytes] : changes.replaced) {
    const auto found = parts_.find(partKey(part));
    if (found == parts_.end()) continue;
    zip_source_t* content = zip_source_buffer(archive.get(), bytes.data(), bytes.size(), 0);
    if (!content || zip_file_replace(archive.get(), found->second, content, 0) != 0) {
      if (content) zip_source_free(content);
      damaged();
    }
    // Named as the default method the level counts, named as what the part had it would not.
    zip_set_file_compression(archive.get(), found->second, ZIP_CM_DEFAULT, 1);
  }
  if (zip_close(archive.get()) != 0) damaged();
  archive.release();

  zip_stat_t status;
  if (zip_source_stat(source, &status) != 0 || zip_source_open(source) != 0) damaged();
  std::string bytes(static_cast<size_t>(status.size), '\0');
  const zip_int64_t got = zip_source_read(source, bytes.data(), bytes.size());
  zip_source_close(source);
  if (got != static_cast<zip_int64_t>(bytes.size())) damaged();
  return bytes;
}

void Container::save(const std::string& path, const PartChanges& changes) const {
  writeFile(path, changes.replaced.empty() && changes.removed.empty() ? *bytes_ : written(changes));
}

}  // namespace workbook
