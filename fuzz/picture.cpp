#include "documents/pdf/bitmap.h"
#include "documents/pdf/pdf_creator.h"
#include "fuzz/scratch.h"

// A BMP file: read, put into a PDF file plain and by ASCII85.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto file = scratchFile("picture.bmp", {reinterpret_cast<const char*>(data), size});
  try {
    const pdf::Bitmap bitmap = pdf::readBmp(file);
    if (bitmap.pixels.size() != pdf::pixelBytes(bitmap)) __builtin_trap();
    for (const bool packed : {false, true}) {
      clsPDFCreator pdf(scratch());
      pdf.EncodeASCII85(packed);
      pdf.InitPDFFile(scratch() / "picture.pdf");
      pdf.LoadImgFromArray("Img", bitmap);
      pdf.BeginPage();
      pdf.DrawImg("Img", 10, 10, 100, 100);
      pdf.EndPage();
      pdf.ClosePDFFile();
    }
  } catch (const std::runtime_error&) {
  }
  return 0;
}
