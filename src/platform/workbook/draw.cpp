#include "platform/workbook/draw.h"

#include "platform/workbook/evaluate.h"
#include "platform/workbook/page_drawing.h"

namespace workbook {

int draw(Workbook& book, std::string_view name, paint::Canvas& canvas, const paint::Metrics& metrics) {
  Model& model = book.model();
  const int index = model.sheet(name);
  if (index < 0) book.sheet(name);  // says that there is none
  if (model.stale) Evaluator(model).all();
  const SheetModel& sheet = model.sheets[static_cast<size_t>(index)];
  const SheetLayout layout = layOut(model, sheet);
  const int pages = static_cast<int>(layout.pages.size());
  size_t letters = 0;
  for (int i = 0; i < pages; ++i) {
    const PageLayout& page = layout.pages[static_cast<size_t>(i)];
    canvas.page(sheet.page.width, sheet.page.height);
    PageDrawing(model, sheet, layout, static_cast<size_t>(i), canvas, metrics, letters).draw();
    drawHeaderFooter(model, sheet, page, i, pages, layout.scale, canvas, metrics);
  }
  return pages;
}

}  // namespace workbook
