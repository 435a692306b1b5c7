#include "documents/renderers.h"

#include <algorithm>
#include <array>

#include "base/number.h"
#include "documents/address_card.h"
#include "documents/challan.h"
#include "documents/delivery_slip.h"
#include "documents/invoice.h"
#include "documents/quotation.h"
#include "frame/voucher_kinds.h"

namespace {

// Documents that are found by a voucher number take what stands in the field for one.
template <void (*Render)(Host&, double, const std::string&)>
void byNumber(Host& host, const std::string& document, const std::string& kind) {
  Render(host, Val(document), kind);
}

Renderer of(const VoucherKind& kind, void (*make)(Host&, const std::string&, const std::string&)) {
  return {kind.paper.key, kind.paper.kind, make};
}

const std::array kRenderers = {
    of(saleKind(), &byNumber<RenderGstInvoice>),
    of(creditNoteKind(), &byNumber<RenderGstInvoice>),
    of(debitNoteKind(), &byNumber<RenderGstInvoice>),
    of(purchaseReturnKind(), &byNumber<RenderGstInvoice>),
    of(challanKind(), &byNumber<RenderChallan>),
    of(quotationKind(), &byNumber<RenderQuotation>),
    Renderer{"Delivery Slip", "Delivery Slip", &byNumber<RenderDeliverySlip>},
    Renderer{"adcard",        "adcrd",         &RenderAddressCard           },
};

}  // namespace

const Renderer* rendererOf(const std::string& key) {
  const auto found =
      std::find_if(kRenderers.begin(), kRenderers.end(), [&](const Renderer& r) { return key == r.key; });
  return found == kRenderers.end() ? nullptr : &*found;
}
