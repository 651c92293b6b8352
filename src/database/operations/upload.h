#pragma once

#include <cstdint>
#include <functional>

#include "tagdata/kuid_list.h"

namespace morvex {

class DownloadManager;
class DownloadTask;
class ResultsLog;

// Sees the task that sends a package of so many bytes, about ten times a second while it does. It may cancel it.
using UploadWatch = std::function<void(DownloadTask& task, std::uint64_t size)>;

// Sends assets of the local author to the download station, as one package in one form, to the upload server of the
// manager's settings. Nothing is sent unless every asset may go: it is installed, committed, without errors, the
// author's own, and not on the station yet. All there is to tell goes to `log`: an error for each asset that may not
// go, then how the sending went, a note for each asset that arrived. With no assets nothing happens.
//
// Waits for the whole transfer. Takes the database lock to look at the assets and to package them, and holds none
// while it waits. The package is in memory. A cancelled transfer is logged as one that failed, though the station may
// have taken the assets before it heard of that.
void ZEBUploadAssets(const KUIDList& kuids, ResultsLog& log, DownloadManager& downloads,
                     const UploadWatch& watch = {});

}  // namespace morvex
