#include "frame/links.h"

Links& links() {
  static Links one;
  return one;
}
