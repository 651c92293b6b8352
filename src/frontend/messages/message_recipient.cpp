#include "frontend/messages/message_recipient.h"

namespace morvex {

NuMessageRecipient::~NuMessageRecipient() = default;

int NuMessageRecipient::HandleMessage(std::string_view) {
  return 0;
}

void NuMessageRecipient::ForwardMessage(std::string_view message) {
  for (NuMessageRecipient* link : links_)
    link->HandleMessage(message);
}

}  // namespace morvex
