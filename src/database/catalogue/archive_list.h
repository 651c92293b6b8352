#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "database/catalogue/archive.h"

namespace morvex {

// The archives that the database knows of. Their files are never looked at here.
class ZEBArchiveList {
 public:
  // A new archive with a random serial and no number, and so not stored.
  ZEBArchive& Add();
  // An archive from the index file.
  ZEBArchive& Append(ZEBArchive archive);
  // Forgets an archive. Whether what it held is archived is looked up anew when it is next asked for.
  void Remove(ZEBArchive& archive);

  bool IsArchived(const ZEBAssetInfo& record) const;
  ZEBArchive* FindBySerial(uint32_t serial);
  // A number that no archive has.
  [[nodiscard]] uint32_t FreeNumber() const;

  // Appends to `chosen` the archives that must be at hand to get at all of `wanted`, few of them: always the next
  // that holds most of what is left. Takes out of `wanted` what they and those chosen before hold; what stays is in
  // no archive.
  void Select(KUIDList& wanted, std::vector<ZEBArchive*>& chosen);

  const std::vector<std::unique_ptr<ZEBArchive>>& Archives() const { return archives_; }
  void Clear() { archives_.clear(); }

 private:
  ZEBArchive* FindBestFor(const KUIDList& wanted, const std::vector<ZEBArchive*>& chosen);

  std::vector<std::unique_ptr<ZEBArchive>> archives_;  // at fixed addresses
};

}  // namespace morvex
