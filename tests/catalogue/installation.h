#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "tests/scratch_folder.h"

namespace morvex::test {

// An installation in a folder of its own. The database is started by Start and stopped at the end of life.
class Installation {
 public:
  ~Installation() { Stop(); }

  // Starts and waits for the load.
  void Start();
  bool Stop();
  void Restart() {
    Stop();
    Start();
  }

  std::string Path(std::string_view name) const { return scratch_ / std::string(name); }
  bool Exists(std::string_view name) const;
  void Write(std::string_view name, std::string_view content) const;
  std::string Read(std::string_view name) const;
  void Remove(std::string_view name) const;
  void Rename(std::string_view from, std::string_view to) const;
  std::vector<std::string> List(std::string_view folder) const;

  // Writes `<folder>/config.txt` with a KUID, a name and further lines.
  void AddAsset(std::string_view folder, std::string_view kuid, std::string_view name,
                std::string_view more = {}) const;

 private:
  ScratchFolder scratch_;
};

// The record, which must exist, of a started database.
ZEBAssetInfo& Record(std::string_view kuid);
KUID Parse(std::string_view kuid);

// "open local pack" as "eLp": capitals for the copies that the record has; "-" without a record.
std::string Copies(std::string_view kuid);

// Texts of all KUIDs that a search with a new query finds, with blanks between them.
std::string ViewText();

}  // namespace morvex::test
