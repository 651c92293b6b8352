#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvex {

// What the index file keeps for the download station's client. Nothing here opens a connection.
struct DownloadStationState {
  enum Ticket : uint32_t { kNoTicket = 0, kNotKnown = 1, kActive = 2, kSuspended = 3 };

  std::string lastReceivedFile;  // sent back to the station with the next question
  uint64_t lastUpdateTime = 0;   // seconds since 1970
  std::vector<std::string> queuedUrls;
  uint32_t ticketState = kNotKnown;
  float ticketSeconds = 0;
};

}  // namespace morvex
