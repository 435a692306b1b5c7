#include "fuzz/scratch.h"
#include "fuzz/use_book.h"

// The bytes of a whole workbook file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  scratch();
  useBook({reinterpret_cast<const char*>(data), size});
  return 0;
}
