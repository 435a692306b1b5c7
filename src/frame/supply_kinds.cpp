#include "frame/supply_kinds.h"

#include <array>

#include "base/words.h"

namespace {

using enum SupplyKind;

constexpr std::array kSold = {Ordinary, ExportTaxed, Export, SezTaxed, Sez, Deemed};
constexpr std::array kBought = {Ordinary, ImportGoods, ImportServices};

struct Names {
  const char *whole, *mark;
};

// By their numbers.
constexpr std::array<Names, 8> kNames = {
    {
     {"", ""},
     {english("Export With Tax"), english("Export")},
     {english("Export, LUT"), english("Export, LUT")},
     {english("SEZ With Tax"), english("SEZ")},
     {english("SEZ, LUT"), english("SEZ, LUT")},
     {english("Deemed Export"), english("Deemed Export")},
     {english("Import Of Goods"), english("Import")},
     {english("Import Of Services"), english("Import")},
     }
};

const Names& namesOf(SupplyKind kind) { return kNames[static_cast<size_t>(kind)]; }

}  // namespace

std::span<const SupplyKind> supplyKinds(bool bought) {
  return bought ? std::span<const SupplyKind>(kBought) : std::span<const SupplyKind>(kSold);
}

SupplyKind supplyKind(double stored) {
  return stored > 0 && stored < static_cast<double>(kNames.size())
             ? static_cast<SupplyKind>(static_cast<int>(stored))
             : Ordinary;
}

std::string supplyName(SupplyKind kind) { return words(namesOf(kind).whole); }

std::string supplyMark(SupplyKind kind) { return words(namesOf(kind).mark); }

bool isExport(SupplyKind kind) { return kind == ExportTaxed || kind == Export; }

bool isSez(SupplyKind kind) { return kind == SezTaxed || kind == Sez; }

bool isImport(SupplyKind kind) { return kind == ImportGoods || kind == ImportServices; }

bool bearsIntegrated(SupplyKind kind) { return kind != Ordinary && kind != Deemed; }

bool isZeroRated(SupplyKind kind) { return kind == Export || kind == Sez; }
