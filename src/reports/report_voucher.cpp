#include "reports/report_voucher.h"

#include "base/number.h"
#include "base/text.h"
#include "frame/menu.h"
#include "frame/session.h"

namespace {

struct BookCommand {
  const char *book, *command;
};
constexpr BookCommand kBooks[] = {
    {"SA", "SALE"     },
    {"CH", "CH"       },
    {"RC", "RECEIPT"  },
    {"PY", "PAYMENT"  },
    {"PU", "PURCHASE" },
    {"QT", "QUOTATION"},
};

const Command* commandOfBook(const std::string& book) {
  for (const BookCommand& b : kBooks)
    if (sameText(b.book, book)) return commandByKey(b.command);
  return nullptr;
}

}  // namespace

bool canOpen(const VoucherKey& voucher) { return commandOfBook(voucher.book) != nullptr; }

bool openVoucher(Host& host, const Screen& caller, const VoucherKey& voucher) {
  const Command* const command = commandOfBook(voucher.book);
  if (!command) return false;
  session().mentrytype = command->entrytype;
  host.open(command->screen, {.caller = caller.spec.name, .value = numText(voucher.number)});
  return true;
}
