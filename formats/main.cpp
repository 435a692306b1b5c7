#include <exception>
#include <iostream>

#include "formats/designs.h"

// mirav-formats FOLDER: writes the design workbooks into the folder.
int main(int argc, char** argv) try {
  if (argc != 2) {
    std::cerr << "mirav-formats FOLDER: writes the design workbooks into the folder\n";
    return 2;
  }
  formats::writeAll(argv[1]);
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
