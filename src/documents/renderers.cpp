#include "documents/renderers.h"

#include <algorithm>
#include <array>

#include "base/number.h"
#include "documents/invoice.h"

namespace {

void invoice(Host& host, const std::string& document, const std::string& kind) {
  RenderGstInvoice(host, Val(document), kind);
}

constexpr std::array kRenderers = {
    Renderer{"GST INVOICE", "SALE", &invoice},
};

}  // namespace

const Renderer* rendererOf(const std::string& key) {
  const auto found =
      std::find_if(kRenderers.begin(), kRenderers.end(), [&](const Renderer& r) { return key == r.key; });
  return found == kRenderers.end() ? nullptr : &*found;
}
