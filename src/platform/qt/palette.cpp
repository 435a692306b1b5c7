#include "platform/qt/palette.h"

namespace palette {

QColor fromBgr(Bgr colour) {
  return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
          static_cast<int>((colour >> 16) & 0xFF)};
}

}  // namespace palette
