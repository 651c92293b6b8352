#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tagdata/kuid.h"
#include "tagdata/kuid_list.h"

namespace morvex {

class ZEBAssetInfo;

// One archive file that holds assets in package form, as the index file knows it.
struct ZEBArchive {
  bool mounted = false;
  bool scanning = false;
  uint32_t number = 0;  // archives without one aren't stored
  KUIDList kuids;       // what it holds, each once
  std::string path;
  std::string name;
  uint32_t serial = 0;     // ties the entry to its file
  uint32_t hits = 0;       // scratch of a selection
  uint64_t totalSize = 0;  // bytes, by estimate; 0: to be computed
};

// The archives that the database knows of. Their files are never looked at here.
class ZEBArchiveList {
 public:
  // A new archive with a random serial.
  ZEBArchive& Add();
  // An archive from the index file.
  ZEBArchive& Append(ZEBArchive archive);
  // Forgets an archive. What it held is looked up anew when it is next asked for.
  void Remove(ZEBArchive& archive);

  bool IsArchived(const ZEBAssetInfo& record) const;
  ZEBArchive* FindBySerial(uint32_t serial);

  const std::vector<std::unique_ptr<ZEBArchive>>& Archives() const { return archives_; }
  void Clear() { archives_.clear(); }

 private:
  std::vector<std::unique_ptr<ZEBArchive>> archives_;  // at fixed addresses
};

}  // namespace morvex
