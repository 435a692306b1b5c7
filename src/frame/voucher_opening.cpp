#include "frame/voucher_opening.h"

#include "base/number.h"
#include "base/words.h"
#include "frame/menu.h"
#include "frame/voucher_kinds.h"

namespace {

// What the menu does not offer opens from nowhere.
const VoucherKind* openable(const std::string& book) {
  const VoucherKind* const kind = kindByBook(book);
  return kind && commandByKey(kind->entryType) ? kind : nullptr;
}

}  // namespace

bool canOpen(const VoucherKey& voucher) { return openable(voucher.book) != nullptr; }

std::string openingHint(const VoucherKey& voucher) {
  return words("Press Enter To Open {kind} {number}", "kind", words(openable(voucher.book)->words.name),
               "number", numText(voucher.number));
}

bool openVoucher(Host& host, const Screen& caller, const VoucherKey& voucher) {
  const VoucherKind* const kind = openable(voucher.book);
  if (!kind) return false;
  host.open(kind->screen,
            {.caller = caller.spec.name, .entryType = kind->entryType, .value = numText(voucher.number)});
  return true;
}
