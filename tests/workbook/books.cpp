#include "workbook/books.h"

#include <zip.h>

#include <cstdio>
#include <stdexcept>

#include "support/temp_folder.h"

namespace books {

std::string written(const std::function<void(lxw_workbook*)>& fill) {
  const TempFolder folder;
  const std::string path = folder / "made.xlsx";
  lxw_workbook* book = workbook_new(path.c_str());
  fill(book);
  if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("libxlsxwriter failed");
  return bytesOf(path);
}

std::string zipped(const Parts& parts) {
  const TempFolder folder;
  const std::string path = folder / "made.zip";
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
  for (const auto& [name, bytes] : parts)
    zip_file_add(archive, name.c_str(), zip_source_buffer(archive, bytes.data(), bytes.size(), 0), 0);
  if (zip_close(archive) != 0) throw std::runtime_error("libzip failed");
  return bytesOf(path);
}

Parts unzipped(const std::string& bytes) {
  Parts parts;
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr);
  zip_t* archive = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
  if (!archive) throw std::runtime_error("not a zip file");
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    zip_stat_t status;
    zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &status);
    zip_file_t* file = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
    std::string content(status.size, '\0');
    if (zip_fread(file, content.data(), status.size) != static_cast<zip_int64_t>(status.size))
      throw std::runtime_error("cannot be unpacked");
    zip_fclose(file);
    parts[status.name] = content;
  }
  zip_discard(archive);
  return parts;
}

Parts withSheet(const std::string& sheetXml, const std::string& workbookXml) {
  Parts parts;
  parts["[Content_Types].xml"] =
      R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>
<Override PartName="/xl/calcChain.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml"/>
</Types>)";
  parts["_rels/.rels"] =
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/>
</Relationships>)";
  parts["xl/_rels/workbook.xml.rels"] =
      R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/>
<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/calcChain" Target="/xl/calcChain.xml"/>
</Relationships>)";
  parts["xl/calcChain.xml"] = R"(<calcChain><c r="A1" i="1"/></calcChain>)";
  parts["xl/workbook.xml"] = R"(<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"
xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<sheets><sheet name="S" sheetId="1" r:id="rId1"/></sheets></workbook>)";
  if (!workbookXml.empty()) parts["xl/workbook.xml"] = workbookXml;
  parts["xl/worksheets/sheet1.xml"] = sheetXml;
  return parts;
}

std::string sheet(const std::string& rows, const std::string& behind) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<worksheet xmlns=\""
         "http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData>" +
         rows + "</sheetData>" + behind + "</worksheet>";
}

std::string said(const workbook::Value& value) {
  if (const double* number = value.number()) {
    char text[32];
    std::snprintf(text, sizeof text, "%.12g", *number);
    return text;
  }
  if (const std::string* text = value.text()) return *text;
  if (const bool* truth = value.truth()) return *truth ? "TRUE" : "FALSE";
  if (!value.error()) return "";
  static const char* const kErrors[] = {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"};
  return kErrors[static_cast<int>(*value.error())];
}

}  // namespace books
