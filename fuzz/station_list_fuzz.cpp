// Any bytes as what the download station sends: a list, gzip or plain, and the answers to its questions.

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "../tests/scratch_folder.h"
#include "database/catalogue/asset_cache.h"
#include "net/station/asset_list.h"
#include "net/station/station_answers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder scratch;
  const std::string path = scratch / "answer";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

  morvex::ZEBAssetCache& cache = morvex::ZEBAssetCache::Instance();
  cache.Clear();
  const morvex::AssetListMerge merge = morvex::MergeAssetList(path);
  if (cache.Count() > merge.merged) std::abort();
  std::size_t onStation = 0;
  cache.View().ForEach([&](const morvex::ZEBAssetInfo& record) {
    onStation += record.Has(morvex::AssetState::kOnStation) ? 1U : 0U;
  });
  if (onStation != cache.Count()) std::abort();

  (void)morvex::ReadSearchAnswer(path);
  const morvex::TicketAnswer tickets = morvex::ReadTicketAnswer(path);
  if (tickets.activeDays < 0 || tickets.suspendedDays < 0) std::abort();
  (void)morvex::ReadProfileAnswer(path);
  return 0;
}
